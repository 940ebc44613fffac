#include "forms/programmes/capture/import/apercu/modeles.h"

#include <QBrush>
#include <QFont>
#include <QLocale>
#include <algorithm>

#include "capture/apercu/choix/devenir.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

const QColor kFondFautif(255, 205, 205);
const QColor kEncreFautive(160, 0, 0);

std::size_t Rang(int n) { return static_cast<std::size_t>(n); }

bool EnNombres(capture::Genre genre) {
  return genre == capture::Genre::Codes || genre == capture::Genre::Classes || genre == capture::Genre::Nombres;
}

QString Nombre(std::int64_t n) { return QLocale(QLocale::French).toString(static_cast<qlonglong>(n)); }

}  // namespace

QString TitreDeColonne(const capture::FaitsDeColonne& colonne, std::size_t rang) {
  if (colonne.intitule.empty()) return QStringLiteral("Colonne %1").arg(rang + 1);
  return VersQt(colonne.intitule);
}

LignesDApercu::LignesDApercu(const capture::PreparationDImport& preparation, QObject* parent)
    : QAbstractTableModel(parent), preparation_(preparation) {
  Relire();
}

void LignesDApercu::Relire() {
  beginResetModel();
  fautives_.clear();
  const auto& colonnes = preparation_.Colonnes();
  for (std::size_t c = 0; c < colonnes.size(); ++c) {
    const capture::ChoixDeColonne& choix = preparation_.Choix()[c];
    if (!EnNombres(choix.genre)) continue;
    for (const capture::CelluleFautive& cellule : colonnes[c].fautives)
      if (std::ranges::find(choix.nonReponses, cellule.valeur) == choix.nonReponses.end())
        fautives_.insert({static_cast<int>(c), cellule.ligne});
  }
  endResetModel();
}

int LignesDApercu::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(preparation_.Vue().lignes.size());
}

int LignesDApercu::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(preparation_.Colonnes().size());
}

QVariant LignesDApercu::data(const QModelIndex& index, int role) const {
  const capture::LigneApercu& ligne = preparation_.Vue().lignes[Rang(index.row())];
  if (role == Qt::BackgroundRole && fautives_.contains({index.column(), ligne.ligne})) return QBrush(kFondFautif);
  if (role == Qt::ForegroundRole && fautives_.contains({index.column(), ligne.ligne})) return QBrush(kEncreFautive);
  if (role != Qt::DisplayRole || Rang(index.column()) >= ligne.cellules.size()) return {};
  return VersQt(ligne.cellules[Rang(index.column())]);
}

QVariant LignesDApercu::headerData(int section, Qt::Orientation sens, int role) const {
  if (role == Qt::ToolTipRole && sens == Qt::Vertical) return QStringLiteral("Ligne du fichier");
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  if (sens == Qt::Vertical) return static_cast<qlonglong>(preparation_.Vue().lignes[Rang(section)].ligne);
  return TitreDeColonne(preparation_.Colonnes()[Rang(section)], Rang(section));
}

void ColonnesDApercu::Relire() {
  beginResetModel();
  endResetModel();
}

void ColonnesDApercu::Rafraichir() {
  const int lignes = rowCount({});
  if (lignes > 0) emit dataChanged(index(0, 0), index(lignes - 1, kRubriques - 1));
}

int ColonnesDApercu::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(preparation_.Colonnes().size());
}

int ColonnesDApercu::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kRubriques; }

QVariant ColonnesDApercu::data(const QModelIndex& index, int role) const {
  const std::size_t rang = Rang(index.row());
  const capture::FaitsDeColonne& colonne = preparation_.Colonnes()[rang];
  const capture::ChoixDeColonne& choix = preparation_.Choix()[rang];
  if (role == Qt::ForegroundRole && colonne.fautes > 0 && EnNombres(choix.genre)) return QBrush(kEncreFautive);
  if (role == Qt::TextAlignmentRole && (index.column() == Differentes || index.column() == Vides))
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole) return {};
  switch (index.column()) {
    case Intitule: return TitreDeColonne(colonne, rang);
    case Nom: return VersQt(quelvar::Rogner(choix.nom));
    case Contenu: return VersQt(capture::NomContenu(colonne.contenu));
    case Differentes: return Nombre(colonne.differentes);
    case Vides: return Nombre(colonne.vides);
    default:
      if (role == Qt::ToolTipRole) return VersQt(capture::Devenir(choix, colonne));
      return VersQt(capture::LibelleGenre(choix.genre));
  }
}

QVariant ColonnesDApercu::headerData(int section, Qt::Orientation sens, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (sens == Qt::Vertical) return section + 1;
  static const char* const kTitres[] = {"Intitulé", "Nom", "Contient", "Valeurs", "Vides", "Devient"};
  return QString::fromUtf8(kTitres[section]);
}

Qt::ItemFlags ColonnesDApercu::flags(const QModelIndex& index) const {
  const bool nommable = index.column() == Nom && !preparation_.Choix()[Rang(index.row())].nom.empty();
  return QAbstractTableModel::flags(index) | (nommable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool ColonnesDApercu::setData(const QModelIndex& index, const QVariant& valeur, int role) {
  if (role != Qt::EditRole || index.column() != Nom) return false;
  emit Renomme(index.row(), valeur.toString());
  return true;
}

}  // namespace quelvar::forms
