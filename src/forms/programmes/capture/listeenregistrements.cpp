#include "forms/programmes/capture/listeenregistrements.h"

#include "forms/qt/texte.h"

namespace quelvar::forms {

ListeEnregistrements::ListeEnregistrements(const capture::SaisieEnCours& saisie, QObject* parent)
    : QAbstractListModel(parent), saisie_(saisie), lignes_(static_cast<int>(saisie.fichiers.Examen().lignes)) {}

int ListeEnregistrements::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : lignes_; }

QVariant ListeEnregistrements::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  try {
    return QStringLiteral("%1  %2").arg(index.row() + 1, 6).arg(VersQt(saisie_.fichiers.Lire(index.row() + 1)));
  } catch (const Erreur&) {
    return {};
  }
}

void ListeEnregistrements::Rafraichir() {
  const int lignes = static_cast<int>(saisie_.fichiers.Examen().lignes);
  if (lignes > lignes_) {
    beginInsertRows({}, lignes_, lignes - 1);
    lignes_ = lignes;
    endInsertRows();
  } else if (lignes < lignes_) {
    beginRemoveRows({}, lignes, lignes_ - 1);
    lignes_ = lignes;
    endRemoveRows();
  }
  if (lignes_ > 0) emit dataChanged(index(0), index(lignes_ - 1));
}

}  // namespace quelvar::forms
