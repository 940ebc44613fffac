// The choices of an import as a readable text, generic.IMC: UTF-8, one line a column, "title=kind;name;parameters".
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// A title, a text or a value that holds "=", ";", "|", "#", a quote or outer blanks stands in double quotes, its quotes
// doubled. Parameters: "ordre=alphabetique" or "ordre=frequence", "textes=Homme|Femme", "fondus=oui", "zero=NSP|NR",
// "bornes=15|25|35", "groupes=5", "liste=;", "reponses=Oui", "codemax=L3", "cadrage=droite", "intitule=Age". Lines that
// start with "#" are remarks.
std::string EcrireImc(const std::vector<ChoixDeColonne>& choix);  // the bytes of the file
// Raises a sentence (kIncompatibiliteType) with line and text for a line that cannot be read, and the failures of
// LecteurLignes.
std::vector<ChoixDeColonne> LireImc(const Chemin& chemin);

// The choices of the columns: those of the file with the same title (the n-th with it, where titles repeat), the
// proposed ones for the others.
struct ChoixApparies {
  std::vector<ChoixDeColonne> choix;     // one for each column
  std::vector<std::string> sansChoix;    // columns that the file says nothing of
  std::vector<std::string> sansColonne;  // titles of the file that no column has
};
ChoixApparies Apparier(const std::vector<ChoixDeColonne>& proposes, const std::vector<ChoixDeColonne>& lus);

}  // namespace quelvar::capture
