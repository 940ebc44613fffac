#include "crosstab/enquete/preparation.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/posfile.h"
#include "crosstab/enquete/edition.h"
#include "crosstab/enquete/lecture.h"

namespace quelvar::crosstab {

namespace {

constexpr std::size_t kQuestionsACroiser = 300;  // the pairs of them are 44850 tables
constexpr int kPlafondInitial = 20;              // tables of larger codes slow the crossing, as the user is told

bool AccepterCodeMax(const Dialogue& ecran, const Question& question, int plafond) {
  const std::string texte =
      Joindre({"Attention : le code-max de la question ", question.nom, " est égal à "_w, Nombre(question.codeMax),
               " et est donc plus grand que ", Nombre(plafond), "\r\nVoulez-vous accepter ce code-max ?\r\n",
               "Si vous répondez oui, les tris en seront ralentis, si vous répondez non, les codes supérieurs à "_w,
               Nombre(plafond), " serons ramenés à 0 "_w});
  return ecran.demander(texte, Boutons::OuiNon) == Reponse::Oui;
}

// The ceiling behind a question whose code-max is above it: a user of level 2 decides, another one is told.
int PlafondApres(Rapport& rapport, const Contexte& contexte, const Question& question, int plafond) {
  if (contexte.niveau >= kNiveauAvance)
    return AccepterCodeMax(contexte.Ecran(), question, plafond) ? question.codeMax : plafond;
  ImprimerCodeMaxRamene(rapport, question, plafond);
  return plafond;
}

// Settles the ceiling, question after question, up to the one that is too many: each answer decides what the next
// question is compared with.
int ConvenirDuPlafond(Rapport& rapport, const Contexte& contexte, const FichierPos& pos) {
  const std::vector<Question>& questions = pos.questions;
  int plafond = kPlafondInitial;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    if (i == kQuestionsACroiser) {
      ImprimerTropDeQuestions(rapport, kQuestionsACroiser);
      throw Erreur(
          FauteSituee{Joindre({"plus de ", Nombre(kQuestionsACroiser), " questions"}), LieuDeLaQuestion(pos, i)});
    }
    if (questions[i].codeMax > plafond) plafond = PlafondApres(rapport, contexte, questions[i], plafond);
  }
  return plafond;
}

}  // namespace

EnqueteCroisee PreparerEnquete(Rapport& rapport, const Contexte& contexte, std::string_view fichierDonnees) {
  const FichiersCroise fichiers = TrouverFichiers(contexte, fichierDonnees);
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{fichiers.nomDonnees, fichiers.donnees.has_value()}, {fichiers.nomPos, fichiers.pos.has_value()}},
                 kArretAbsenceSansAccents);
  ImprimerTeteDeLEnquete(rapport, contexte, fichiers);

  const FichierPos pos = LirePos(*fichiers.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  const std::int64_t individus = AnnoncesOuComptes(pos.taille, *fichiers.donnees);
  const bool annonces = pos.taille.individus > 0;
  if (annonces) rapport.Ligne(LigneDesIndividus(individus));
  const int plafond = ConvenirDuPlafond(rapport, contexte, pos);
  ImprimerNombreDeQuestions(rapport, pos.questions.size());
  if (!annonces) rapport.Ligne(LigneDesIndividus(individus));
  return LireEnquete(contexte, *fichiers.donnees, pos, individus, plafond);
}

}  // namespace quelvar::crosstab
