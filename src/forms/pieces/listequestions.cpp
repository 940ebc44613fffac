#include "forms/pieces/listequestions.h"

#include <QFontDatabase>

#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

constexpr int kRang = Qt::UserRole;  // of a line: the rank of its question

}  // namespace

void PreparerListeDeQuestions(QListWidget& liste) {
  liste.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  liste.setSelectionMode(QAbstractItemView::ExtendedSelection);
  liste.setUniformItemSizes(true);
}

void MontrerQuestions(QListWidget& liste, const FichierPos& pos, const modalities::ChoixQuestions& choix,
                      Statut statut) {
  const int courante = liste.currentRow();
  liste.clear();
  for (const std::size_t rang : choix.Rangs(statut)) {
    auto* ligne = new QListWidgetItem(VersQt(modalities::LigneDeListe(pos, rang)), &liste);
    ligne->setData(kRang, static_cast<qulonglong>(rang));
  }
  // The keyboard goes on from where it was.
  liste.setCurrentRow(std::min(courante, liste.count() - 1), QItemSelectionModel::NoUpdate);
}

bool PoserStatut(const QListWidget& liste, modalities::ChoixQuestions& choix, Statut statut) {
  const QList<QListWidgetItem*> lignes = liste.selectedItems();
  for (const QListWidgetItem* ligne : lignes)
    choix.statuts.at(static_cast<std::size_t>(ligne->data(kRang).toULongLong())) = statut;
  return !lignes.isEmpty();
}

std::vector<std::string> NomsDesQuestions(const FichierPos& pos, const modalities::ChoixQuestions& choix,
                                          Statut statut) {
  std::vector<std::string> noms;
  for (const std::size_t rang : choix.Rangs(statut)) noms.push_back(pos.questions[rang].nom);
  return noms;
}

}  // namespace quelvar::forms
