#include "forms/pieces/listequestions.h"

#include <algorithm>

#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

constexpr int kRang = Qt::UserRole;  // of a line: the rank of its question

// Lines of one size are measured by the last one: it has the size of the longest, so that a list that is too narrow for
// that scrolls.
void MesurerLaListe(QListWidget& liste) {
  if (liste.count() == 0) return;
  int longue = 0;
  for (int ligne = 1; ligne < liste.count(); ++ligne)
    if (liste.item(ligne)->text().size() > liste.item(longue)->text().size()) longue = ligne;
  liste.item(liste.count() - 1)->setSizeHint(liste.sizeHintForIndex(liste.model()->index(longue, 0)));
}

}  // namespace

void PreparerListe(QListWidget& liste) {
  liste.setFont(PoliceFixe());
  liste.setSelectionMode(QAbstractItemView::ExtendedSelection);
  liste.setUniformItemSizes(true);
}

void MontrerQuestions(QListWidget& liste, const std::vector<QuestionListee>& lignes) {
  const int courante = liste.currentRow();
  liste.clear();
  for (const QuestionListee& question : lignes) {
    auto* const ligne = new QListWidgetItem(VersQt(question.texte), &liste);
    ligne->setData(kRang, static_cast<qulonglong>(question.rang));
  }
  MesurerLaListe(liste);
  liste.setCurrentRow(std::min(courante, liste.count() - 1), QItemSelectionModel::NoUpdate);
}

std::vector<std::size_t> QuestionsChoisies(const QListWidget& liste) {
  std::vector<std::size_t> rangs;
  for (const QListWidgetItem* ligne : liste.selectedItems())
    rangs.push_back(static_cast<std::size_t>(ligne->data(kRang).toULongLong()));
  return rangs;
}

ListesDeQuestions::ListesDeQuestions(QWidget& forme, const FichierPos& pos, modalities::ChoixQuestions& choix,
                                     std::vector<std::pair<QListWidget*, Statut>> listes)
    : QObject(&forme), pos_(pos), choix_(choix), listes_(std::move(listes)) {
  for (const auto& [liste, statut] : listes_) PreparerListe(*liste);
}

ListesDeQuestions::ListesDeQuestions(QWidget& forme, const FichierPos& pos, modalities::ChoixQuestions& choix,
                                     const Deux& listes)
    : ListesDeQuestions(forme, pos, choix, {{&listes.laissees, Statut::Aucun}, {&listes.prises, Statut::Actif}}) {
  Relier(listes.prendre, listes.laissees, Statut::Actif);
  Relier(listes.laisser, listes.prises, Statut::Aucun);
  RelierDoubleClic(listes.laissees, Statut::Actif);
  RelierDoubleClic(listes.prises, Statut::Aucun);
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
  const std::vector<std::size_t> choisies = QuestionsChoisies(depart);
  if (choisies.empty()) return;
  for (const std::size_t rang : choisies) choix_.statuts.at(rang) = statut;
  Montrer();
  emit Change();
}

void ListesDeQuestions::Montrer() {
  for (const auto& [liste, statut] : listes_) {
    std::vector<QuestionListee> lignes;
    for (const std::size_t rang : choix_.Rangs(statut)) lignes.push_back({rang, modalities::LigneDeListe(pos_, rang)});
    MontrerQuestions(*liste, lignes);
  }
}

std::vector<std::string> ListesDeQuestions::Noms(Statut statut) const {
  std::vector<std::string> noms;
  for (const std::size_t rang : choix_.Rangs(statut)) noms.push_back(pos_.questions[rang].nom);
  return noms;
}

}  // namespace quelvar::forms
