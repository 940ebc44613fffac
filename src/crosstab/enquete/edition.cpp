#include "crosstab/enquete/edition.h"

#include "core/chiffres/nombres.h"

namespace quelvar::crosstab {

void ImprimerTeteDeLEnquete(Rapport& rapport, const Contexte& contexte, const FichiersCroise& fichiers) {
  ImprimerBandeau(rapport, "Tris croisés"_w);
  rapport.Ligne({"Le nom du fichier de donnees est ", fichiers.nomDonnees});
  rapport.Ligne({"Le nom du fichier de parametres est  ", fichiers.nomPos});
  rapport.Ligne();
  rapport.Ligne({"Ce fichier d'impression a pour nom ", contexte.Nom(".TCR")});
  rapport.Ligne();
}

void ImprimerCodeMaxRamene(Rapport& rapport, const Question& question, int plafond) {
  rapport.Ligne({"Attention : code-max plus grand que ", NombreNu(plafond), " dans ", question.nom});
  rapport.Ligne(" les codes supérieurs à ce code-max sont ramenés à 0"_w);
  rapport.Ligne(" pour s'affranchir de cette contrainte, se mettre en niveau 2 d'utilisateur");
}

void ImprimerTropDeQuestions(Rapport& rapport, std::size_t auPlus) {
  rapport.Ligne({"Il y a trop de questions : max=", NombreNu(auPlus)});
}

void ImprimerNombreDeQuestions(Rapport& rapport, std::size_t questions) {
  rapport.Ligne({"Il y a ", NombreNu(questions), " questions"});
}

}  // namespace quelvar::crosstab
