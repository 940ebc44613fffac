// Lists of questions: each line shows a question and keeps its rank; and the lists of a choice, between which the user
// moves the questions.
#pragma once

#include <QListWidget>
#include <QPushButton>
#include <string>
#include <utility>
#include <vector>

#include "modalities/liste/choix.h"

namespace quelvar::forms {

struct QuestionListee {
  std::size_t rang;
  std::string texte;
};

// Fixed font, several lines at a time.
void PreparerListe(QListWidget& liste);
// Replaces the lines; none is selected, and the keyboard goes on from where it was.
void MontrerQuestions(QListWidget& liste, const std::vector<QuestionListee>& lignes);
// Ranks of the questions that are selected.
std::vector<std::size_t> QuestionsChoisies(const QListWidget& liste);

// Each list shows the questions of one status of a choice.
class ListesDeQuestions : public QObject {
  Q_OBJECT
 public:
  // The questions and their statuses live as long as the form, which is the parent.
  ListesDeQuestions(QWidget& forme, const FichierPos& pos, modalities::ChoixQuestions& choix,
                    std::vector<std::pair<QListWidget*, Statut>> listes);

  // The two lists of a choice between taken and left, with the button of each and double clicks.
  struct Deux {
    QListWidget& laissees;
    QListWidget& prises;
    QPushButton& prendre;
    QPushButton& laisser;
  };
  ListesDeQuestions(QWidget& forme, const FichierPos& pos, modalities::ChoixQuestions& choix, const Deux& listes);

  // The button gives that status to what is selected in the list.
  void Relier(QPushButton& bouton, const QListWidget& depart, Statut statut);
  // So does a double click in it.
  void RelierDoubleClic(const QListWidget& depart, Statut statut);
  // Gives all questions one status.
  void DonnerATous(Statut statut);
  // Shows the choice as it is; no line is selected.
  void Montrer();

  // Names of the questions of a status, in the order of the position file.
  std::vector<std::string> Noms(Statut statut) const;

 signals:
  // The user has moved questions, and the lists show it.
  void Change();

 private:
  void Deplacer(const QListWidget& depart, Statut statut);

  const FichierPos& pos_;
  modalities::ChoixQuestions& choix_;
  std::vector<std::pair<QListWidget*, Statut>> listes_;
};

}  // namespace quelvar::forms
