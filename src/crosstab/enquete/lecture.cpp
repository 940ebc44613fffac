#include "crosstab/enquete/lecture.h"

#include <algorithm>
#include <vector>

#include "core/enquete/modfile.h"

namespace quelvar::crosstab {

namespace {

QuestionCroisee QuestionDe(const Question& question, std::string_view ligne, int plafond) {
  QuestionCroisee croisee;
  croisee.nom = question.nom;
  croisee.libelle = LibelleDeQuestion(ligne);
  croisee.intitule = question.intitule;
  croisee.position = question.position;
  croisee.codeMax = question.codeMax;
  croisee.plafond = std::clamp(question.codeMax, 0, plafond);
  return croisee;
}

// The place of each question in a data line. The pseudo question of the program stands first in its list, so that the
// report counts the questions of the file from 2.
std::vector<ChampPlafonne> Champs(const FichierPos& pos, const EnqueteCroisee& enquete) {
  std::vector<ChampPlafonne> champs;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    if (question.position < 1) throw ChampImpossible(pos, i, 2);
    champs.push_back({ChampDe(question), std::min(enquete.questions[i].plafond, kCodeMaxGarde)});
  }
  return champs;
}

// The first data line gives the pseudo question its place: a file without any cannot be crossed.
MatriceCodes LireCodes(const Contexte& contexte, const Chemin& donnees, const FichierPos& pos,
                       const EnqueteCroisee& enquete) {
  LecteurLignes(donnees).LireObligatoire();
  Progression progression(contexte.Ecran(), enquete.individus);
  return ChargerCodes(donnees, Champs(pos, enquete), enquete.individus, progression);
}

}  // namespace

FichiersCroise TrouverFichiers(const Contexte& contexte, std::string_view fichierDonnees) {
  FichiersCroise fichiers;
  fichiers.nomDonnees = fichierDonnees.empty() ? contexte.Nom(".DAT") : std::string(fichierDonnees);
  fichiers.nomPos = contexte.Nom(".POS");
  fichiers.donnees = ChercherFichier(contexte.repertoire, fichiers.nomDonnees);
  fichiers.pos = ChercherFichier(contexte.repertoire, fichiers.nomPos);
  return fichiers;
}

EnqueteCroisee LireEnquete(const Contexte& contexte, const Chemin& donnees, const FichierPos& pos,
                           std::int64_t individus, int plafond) {
  EnqueteCroisee enquete;
  enquete.individus = individus;
  enquete.avantPonderation = pos.taille.avantPonderation;
  for (std::size_t i = 0; i < pos.questions.size(); ++i)
    enquete.questions.push_back(QuestionDe(pos.questions[i], pos.lignes[i + 2], plafond));
  if (const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD")))
    enquete.intitules = LireIntitules(*mod);
  enquete.codes = LireCodes(contexte, donnees, pos, enquete);
  return enquete;
}

}  // namespace quelvar::crosstab
