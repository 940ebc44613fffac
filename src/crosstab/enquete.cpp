#include "crosstab/enquete.h"

#include <algorithm>
#include <optional>

#include "core/enquete/coherence.h"
#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/posfile.h"
#include "core/texte/nombres.h"

namespace quelvar::crosstab {

namespace {

constexpr std::size_t kQuestionsMaximum = 300;
constexpr int kPlafondInitial = 20;

struct FichiersCroise {
  std::string nomDonnees;
  std::string nomPos;
  std::optional<Chemin> donnees;
  std::optional<Chemin> pos;
};

FichiersCroise TrouverFichiers(const Contexte& contexte, std::string_view fichierDonnees) {
  FichiersCroise fichiers;
  fichiers.nomDonnees = fichierDonnees.empty() ? contexte.Nom(".DAT") : std::string(fichierDonnees);
  fichiers.nomPos = contexte.Nom(".POS");
  fichiers.donnees = ChercherFichier(contexte.repertoire, fichiers.nomDonnees);
  fichiers.pos = ChercherFichier(contexte.repertoire, fichiers.nomPos);
  return fichiers;
}

void ImprimerEnTete(Rapport& rapport, const Contexte& contexte, const FichiersCroise& fichiers) {
  ImprimerBandeau(rapport, "Tris croisés"_w);
  rapport.Ligne({"Le nom du fichier de donnees est ", fichiers.nomDonnees});
  rapport.Ligne({"Le nom du fichier de parametres est  ", fichiers.nomPos});
  rapport.Ligne();
  rapport.Ligne({"Ce fichier d'impression a pour nom ", contexte.Nom(".TCR")});
  rapport.Ligne();
}

// The ceiling behind a question whose code-max is above it: a user of level 2 decides, another one is told.
int PlafondApres(Rapport& rapport, const Contexte& contexte, const Question& question, int plafond) {
  if (contexte.niveau < kNiveauAvance) {
    rapport.Ligne({"Attention : code-max plus grand que ", NombreNu(plafond), " dans ", question.nom});
    rapport.Ligne(" les codes supérieurs à ce code-max sont ramenés à 0"_w);
    rapport.Ligne(" pour s'affranchir de cette contrainte, se mettre en niveau 2 d'utilisateur");
    return plafond;
  }
  const std::string texte =
      Joindre({"Attention : le code-max de la question ", question.nom, " est égal à "_w, Nombre(question.codeMax),
               " et est donc plus grand que ", Nombre(plafond), "\r\nVoulez-vous accepter ce code-max ?\r\n",
               "Si vous répondez oui, les tris en seront ralentis, si vous répondez non, les codes supérieurs à "_w,
               Nombre(plafond), " serons ramenés à 0 "_w});
  return contexte.Ecran().demander(texte, Boutons::OuiNon) == Reponse::Oui ? question.codeMax : plafond;
}

// Settles the ceiling, question after question, and tells how many there are.
int ConvenirDuPlafond(Rapport& rapport, const Contexte& contexte, const FichierPos& pos) {
  int plafond = kPlafondInitial;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    if (i == kQuestionsMaximum) {
      rapport.Ligne({"Il y a trop de questions : max=", NombreNu(kQuestionsMaximum)});
      throw Erreur(kArretAnnonce);
    }
    if (pos.questions[i].codeMax > plafond) plafond = PlafondApres(rapport, contexte, pos.questions[i], plafond);
  }
  rapport.Ligne({"Il y a ", NombreNu(pos.questions.size()), " questions"});
  return plafond;
}

QuestionCroisee QuestionDe(const Question& question, std::string_view ligne, int plafond) {
  QuestionCroisee croisee;
  croisee.nom = question.nom;
  croisee.libelle = Joindre({CadreGauche(Milieu(ligne, 1, 7), 7), " ", CadreGauche(Milieu(ligne, 8, 2), 2)});
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

EnqueteCroisee PreparerEnquete(Rapport& rapport, const Contexte& contexte, std::string_view fichierDonnees) {
  const FichiersCroise fichiers = TrouverFichiers(contexte, fichierDonnees);
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{fichiers.nomDonnees, fichiers.donnees.has_value()}, {fichiers.nomPos, fichiers.pos.has_value()}},
                 kArretAbsenceSansAccents);
  ImprimerEnTete(rapport, contexte, fichiers);

  const FichierPos pos = LirePos(*fichiers.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  EnqueteCroisee enquete;
  enquete.individus = AnnoncesOuComptes(pos.taille, *fichiers.donnees);
  enquete.avantPonderation = pos.taille.avantPonderation;
  const bool annonces = pos.taille.individus > 0;
  if (annonces) rapport.Ligne(LigneDesIndividus(enquete.individus));
  const int plafond = ConvenirDuPlafond(rapport, contexte, pos);
  for (std::size_t i = 0; i < pos.questions.size(); ++i)
    enquete.questions.push_back(QuestionDe(pos.questions[i], pos.lignes[i + 2], plafond));
  if (!annonces) rapport.Ligne(LigneDesIndividus(enquete.individus));
  if (const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD")))
    enquete.intitules = LireIntitules(*mod);
  enquete.codes = LireCodes(contexte, *fichiers.donnees, pos, enquete);
  return enquete;
}

std::vector<std::string> IntitulesCourts(const QuestionCroisee& question) {
  std::vector<std::string> intitules;
  for (int code = 0; code <= question.plafond; ++code)
    intitules.push_back(Joindre({question.nom, CodeCaractere(code)}));
  return intitules;
}

std::vector<std::string> NomsDeModalites(const QuestionCroisee& question) {
  std::vector<std::string> noms;
  for (int code = 0; code <= question.plafond; ++code) noms.push_back(NomDeModalite(question.nom, code));
  return noms;
}

std::vector<std::string> IntitulesEtendus(const EnqueteCroisee& enquete, const QuestionCroisee& question) {
  std::vector<std::string> intitules = NomsDeModalites(question);
  for (std::string& intitule : intitules) {
    const std::string* trouve = enquete.intitules.Chercher(intitule);
    const std::string_view texte = trouve == nullptr ? std::string_view() : RognerDroite(*trouve);
    if (!texte.empty()) intitule = DisposerSurDeuxLignes(texte);
  }
  return intitules;
}

std::string DisposerSurDeuxLignes(std::string_view texte) {
  constexpr std::size_t largeur = 12;
  constexpr std::size_t premierePlace = 6;
  const std::size_t blanc = texte.find(' ', premierePlace);
  if (texte.size() <= largeur || blanc == std::string_view::npos || blanc >= largeur) return std::string(texte);
  return Joindre({CadreGauche(texte.substr(0, blanc), static_cast<int>(largeur)), texte.substr(blanc + 1)});
}

}  // namespace quelvar::crosstab
