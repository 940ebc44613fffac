#include "forms/pieces/listequestions.h"

#include <algorithm>

#include "forms/texte/policefixe.h"
#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

constexpr int kRang = Qt::UserRole;  // of a line: the rank of its question

}  // namespace

ListesDeQuestions::ListesDeQuestions(QWidget& forme, const FichierPos& pos, modalities::ChoixQuestions& choix,
                                     std::vector<std::pair<QListWidget*, Statut>> listes)
    : QObject(&forme), pos_(pos), choix_(choix), listes_(std::move(listes)) {
  for (const auto& [liste, statut] : listes_) {
    liste->setFont(PoliceFixe());
    liste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    liste->setUniformItemSizes(true);
  }
}

void ListesDeQuestions::Relier(QPushButton& bouton, const QListWidget& depart, Statut statut) {
  connect(&bouton, &QPushButton::clicked, this, [this, &depart, statut] { Deplacer(depart, statut); });
}

void ListesDeQuestions::RelierDoubleClic(const QListWidget& depart, Statut statut) {
  connect(&depart, &QListWidget::itemDoubleClicked, this, [this, &depart, statut] { Deplacer(depart, statut); });
}

void ListesDeQuestions::DonnerATous(Statut statut) {
  std::ranges::fill(choix_.statuts, statut);
  Montrer();
  emit Change();
}

void ListesDeQuestions::Deplacer(const QListWidget& depart, Statut statut) {
  const QList<QListWidgetItem*> choisies = depart.selectedItems();
  if (choisies.isEmpty()) return;
  for (const QListWidgetItem* ligne : choisies)
    choix_.statuts.at(static_cast<std::size_t>(ligne->data(kRang).toULongLong())) = statut;
  Montrer();
  emit Change();
}

void ListesDeQuestions::Montrer() {
  for (const auto& [liste, statut] : listes_) {
    const int courante = liste->currentRow();
    liste->clear();
    for (const std::size_t rang : choix_.Rangs(statut)) {
      auto* const ligne = new QListWidgetItem(VersQt(modalities::LigneDeListe(pos_, rang)), liste);
      ligne->setData(kRang, static_cast<qulonglong>(rang));
    }
    // The keyboard goes on from where it was.
    liste->setCurrentRow(std::min(courante, liste->count() - 1), QItemSelectionModel::NoUpdate);
  }
}

std::vector<std::string> ListesDeQuestions::Noms(Statut statut) const {
  std::vector<std::string> noms;
  for (const std::size_t rang : choix_.Rangs(statut)) noms.push_back(pos_.questions[rang].nom);
  return noms;
}

}  // namespace quelvar::forms
