#include "regression/logistique/edition.h"

#include <string>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/resultats/colonnedenombres.h"
#include "core/resultats/rangees.h"
#include "core/texte/listes.h"
#include "regression/anatab/edition.h"
#include "regression/logistique/resultats.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeur = kIntituleDeModaliteAuPlus;
// Figures within sentences; probabilities and the general mean have one column before the point.
constexpr int kEntiersDeLaVraisemblance = 6;
constexpr int kDecimalesDeLaVraisemblance = 4;
constexpr int kEntiersDesDegres = 3;
constexpr int kDecimalesDUneProbabilite = 3;
constexpr int kDecimalesDUneMoyenne = 4;
constexpr int kEntiersDesIterations = 4;
constexpr Elargissement kLibre = Elargissement::DerriereUnTexte;
constexpr std::string_view kVingtCinqBlancs = "                         ";

std::string_view TitreDe(const ModeleAjuste& ajuste) {
  return ajuste.lien == FonctionDeLien::Lineaire ? "Régression linéaire"_w : "Régression logistique"_w;
}

void ImprimerNonEstimes(Rapport& rapport, const TravailDAnatab& travail) {
  const std::vector<std::string> effets = EffetsNonEstimes(travail);
  if (effets.empty()) return;
  rapport.Ligne({kAttention, "effet non estimé, laissé à 0 : "_w, Enumerer(effets)});
}

// Effects that share one whole of which the data tell the sum alone: the search splits it by the order of the
// questions.
void ImprimerIndistincts(Rapport& rapport, const TravailDAnatab& travail, const std::vector<std::size_t>& indistincts) {
  if (indistincts.empty()) return;
  rapport.Ligne({kAttention,
                 "les situations ne permettent pas de distinguer ces effets, leur partage est arbitraire : "_w,
                 Enumerer(IntitulesDesParametres(travail.modele, indistincts))});
}

void ImprimerConstante(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste) {
  const bool logistique = ajuste.lien == FonctionDeLien::Logistique;
  rapport.Ligne({"Situation de référence "_w, NomsDeSituation(travail.analyse, travail.analyse.reference),
                 std::string_view(logistique ? "       ChancesRef" : "")});
  FormeEnRangees forme{.titre = kLargeur, .places = {{"", 4}, {kVingtCinqBlancs, 3, kLibre}}};
  if (logistique) forme.places = {{"", 4}, {"      ", 4, kLibre}, {"          ", 3}};
  ImprimerRangees(rapport, TableauDeLaConstante(travail, ajuste), forme);
}

// Of the names of the columns the report has that of the odds-ratio alone.
void ImprimerEffetsMarginaux(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste) {
  FormeEnRangees forme{.titre = kLargeur,
                       .places = {{" ", 3, kLibre}, {kVingtCinqBlancs, 3, kLibre}},
                       .tete = {.coin = EnHaut(0), .noms = {{}, {}}, .colonnes = {17, 0}, .fixe = true}};
  if (ajuste.lien == FonctionDeLien::Logistique) {
    forme.places = {{" ", 3, kLibre}, {"       ", 3, kLibre}, {"            ", 3, kLibre}};
    forme.tete.noms = {{}, EnHaut(40), {}};
    forme.tete.colonnes = {51, 0};
  }
  ImprimerRangees(rapport, TableauDesParametres(travail, ajuste), forme);
}

// What the two editions of means have of their own: what the means are, where the names of the columns of the mean and
// of its distance stand, and what parts the two.
struct MotsDesMoyennes {
  std::string_view sorte;
  int moyenne;
  int ecart;
  std::string_view separation;
};

// A mean of each modality with its distance from the general one, beside that of what was observed.
void ImprimerMoyennes(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                      const std::vector<double>& moyennes, const MotsDesMoyennes& mots) {
  rapport.Ligne(
      {TitreDe(ajuste), ", moyenne générale "_w, NombreFixe(travail.base.MoyenneGenerale(), 1, kDecimalesDUneMoyenne)});
  rapport.Ligne();
  ImprimerRangees(
      rapport, TableauDesMoyennes(travail, moyennes, mots.sorte),
      {.titre = kLargeur,
       .places = {{" ", 1, kLibre}, {mots.separation, 4, kLibre}, {"  ", 4}},
       .tete = {.coin = EnBas(0), .noms = {EnHaut(mots.moyenne), EnHaut(mots.ecart), EnBas(44)}, .fixe = true}});
}

}  // namespace

void ImprimerParametres(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                        const std::vector<std::size_t>& indistincts) {
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne("Paramètres de la régression                         en pourcentages"_w);
  rapport.Ligne(TitreDe(ajuste));
  rapport.Ligne(travail.modele.titre);
  if (ajuste.ajustement.interrompu)
    rapport.Ligne({kAttention, "la vraisemblance monte encore après "_w, Nombre(kPassagesMax),
                   " passages, les paramètres ci-dessous ne sont pas stabilisés"_w});
  ImprimerNonEstimes(rapport, travail);
  ImprimerIndistincts(rapport, travail, indistincts);
  ImprimerConstante(rapport, travail, ajuste);
  ImprimerEffetsMarginaux(rapport, travail, ajuste);
  rapport.Ligne({"Log-Vraisembl.",
                 Figure(ajuste.ajustement.logVraisemblance, kEntiersDeLaVraisemblance, kDecimalesDeLaVraisemblance)});
  rapport.Ligne();
}

void ImprimerTests(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                   const TestsDuModele& tests) {
  ImprimerRangees(rapport, TableauDesVraisemblances(ajuste, tests), {.titre = 14, .places = {{"", 5, kLibre}}});
  rapport.Ligne({"Degré liberté "_w, NombreFixe(static_cast<double>(tests.parametres.size()), kEntiersDesDegres, 0),
                 " Prob.=", NombreFixe(tests.modele.Depassement(), 1, kDecimalesDUneProbabilite), " ",
                 tests.modele.probabilite.marque});
  ImprimerRangees(
      rapport, TableauDesTests(travail, tests),
      {.titre = kLargeur, .places = {{" Khideux de Vrais.", 5, kLibre}, {" Significatif à "_w, 1}, {"  ", 3}}});
  rapport.Ligne(
      {"Nb d'itérations= "_w, NombreFixe(static_cast<double>(ajuste.ajustement.iterations), kEntiersDesIterations, 0)});
  rapport.Ligne();
}

void ImprimerEffetExperimental(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                               const std::vector<double>& moyennes) {
  rapport.Ligne("Sorties en probabilité selon méthode de l'effet expérimental (Brenque, BMS à paraitre)"_w);
  ImprimerMoyennes(rapport, travail, ajuste, moyennes, {"expérimentale"_w, 13, 35, "  "});
}

void ImprimerEffetPur(Rapport& rapport, const TravailDAnatab& travail, const ModeleAjuste& ajuste,
                      const std::vector<double>& ajustees) {
  rapport.Ligne("Sorties en probabilité selon méthode de l'effet pur (Marvex/Soldain 1997 p.252)"_w);
  ImprimerMoyennes(rapport, travail, ajuste, ajustees, {"ajustée"_w, 18, 34, " "});
}

}  // namespace quelvar::regression
