// The end of the preparation of a recoding: its instructions go into the .POS.
#include "core/enquete/colonnes.h"
#include "core/fichiers/generiquetenu.h"
#include "sorts/preparation/preprecod.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

std::string LigneTailleNeuve(const EtatPrepRecod& etat, std::string_view ancienne) {
  std::string ligne(Rogner(LireConsignesTaille(ancienne).avant));
  if (!etat.ponderation.empty()) ligne += Joindre({" POND=", etat.ponderation, " "});
  if (etat.maximum) ligne += " MAX ";
  if (!etat.filtre.empty()) ligne += Joindre({" ", etat.filtre, " "});
  return ligne;
}

std::string LigneQuestionNeuve(const QuestionPreparee& preparee) {
  const Question& question = preparee.question;
  std::string ligne = Joindre({preparee.tete, question.regle, MarqueDe(question.statut)});
  if (!question.intitule.empty()) ligne += EntreDollars(question.intitule);
  return ligne;
}

// The file from line 3 on.
std::vector<std::string> LignesNeuves(const EtatPrepRecod& etat) {
  std::vector<std::string> lignes;
  for (const QuestionPreparee& question : etat.questions) lignes.push_back(LigneQuestionNeuve(question));
  lignes.insert(lignes.end(), etat.vit.begin(), etat.vit.end());
  if (!etat.vit.empty()) lignes.emplace_back(kMarqueVit);
  // Lines that stood behind a VIT are no questions.
  else if (!etat.suite.empty() && !MarqueDeFin(etat.suite.front())) lignes.emplace_back(kFinDeListe);
  lignes.insert(lignes.end(), etat.suite.begin(), etat.suite.end());
  return lignes;
}

}  // namespace

bool EnregistrerPrepRecod(EtatPrepRecod& etat, const Contexte& contexte) {
  LecteurLignes lecteur(contexte.Exiger(".POS"));
  const std::string titre(lecteur.LireObligatoire());
  const std::string taille(lecteur.LireObligatoire());
  std::vector<std::string> presentes;
  for (std::string_view ligne; lecteur.Lire(ligne);) presentes.emplace_back(ligne);
  if (presentes != etat.lues || MotsDeTaille(taille) != etat.motsLus) {
    etat.message =
        "Le fichier *.POS a été modifié depuis l'ouverture de cette fenêtre : rien n'est enregistré, annulez et "
        "recommencez"_w;
    return false;
  }
  std::vector<std::string> lignes = LignesNeuves(etat);
  const GeneriqueTenu tenu(contexte.repertoire, contexte.generique, contexte.Nom(".POS"));
  Remplacement pos(contexte.repertoire, contexte.Nom(".POS"), Nature::Unique);
  pos.Fichier().Ligne(titre);
  const std::string tailleNeuve = LigneTailleNeuve(etat, taille);
  pos.Fichier().Ligne(tailleNeuve);
  for (const std::string& ligne : lignes) pos.Fichier().Ligne(ligne);
  pos.Valider();
  etat.motsLus = MotsDeTaille(tailleNeuve);
  etat.lues = std::move(lignes);
  etat.modifie = false;
  return true;
}

}  // namespace quelvar::sorts
