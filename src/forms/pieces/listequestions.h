// Lists of questions between which the user moves them: the lists show the questions of each status of a choice.
#pragma once

#include <QListWidget>

#include "modalities/creation/choix.h"

namespace quelvar::forms {

// Fixed font, several lines at a time.
void PreparerListeDeQuestions(QListWidget& liste);
// Shows the questions of a status; none is selected.
void MontrerQuestions(QListWidget& liste, const FichierPos& pos, const modalities::ChoixQuestions& choix,
                      Statut statut);
// Gives a status to the questions that are selected in the list; true when there were any.
bool PoserStatut(const QListWidget& liste, modalities::ChoixQuestions& choix, Statut statut);

// Names of the questions of a status, in the order of the position file.
std::vector<std::string> NomsDesQuestions(const FichierPos& pos, const modalities::ChoixQuestions& choix,
                                          Statut statut);

}  // namespace quelvar::forms
