#include "regression/logistique/edition.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/resultats/colonnedenombres.h"
#include "core/texte/nombres.h"
#include "crosstab/tableau/khi2.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeur = static_cast<int>(kLargeurIntitule);
constexpr int kDecimalesOrdinaires = 4;
constexpr int kDecimalesDemandees = 5;  // from this value on DE= is a number of decimals

std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

std::string_view TitreDe(const ModeleAjuste& ajuste) {
  return ajuste.lien == Lien::Lineaire ? "Régression linéaire"_w : "Régression logistique"_w;
}

int Decimales(const Travail& travail) {
  return travail.parametres.de >= kDecimalesDemandees ? travail.parametres.de : kDecimalesOrdinaires;
}

double PourcentageLogistique(double score) { return 100 * Probabilite(Lien::Logistique, score); }

std::vector<std::string> IntitulesDesParametres(const Modele& modele) {
  std::vector<std::string> intitules;
  for (std::size_t k = 0; k < modele.Explicatives(); ++k)
    if (!modele.Explicative(k).reference) intitules.push_back(CadreGauche(modele.Explicative(k).intitule, kLargeur));
  return intitules;
}

std::string_view RaisonDAbsence(const DonneesDeBase& base, std::size_t k) {
  if (base.total[k] == 0) return "aucun individu";
  if (base.oui[k] == base.total[k]) return "tous répondent oui"_w;
  if (base.oui[k] == 0) return "aucun ne répond oui"_w;
  return "aucune situation où l'on réponde oui et non"_w;
}

// The search would carry to infinity the effect of a modality that settles the answer. Its situations take no part in
// the fit, and the effect stays at 0: that is no figure, and is said.
void PrevenirDesSeparations(Rapport& rapport, const Travail& travail) {
  std::string modalites;
  for (std::size_t k = 0; k < travail.modele.Explicatives(); ++k) {
    if (travail.modele.Explicative(k).reference || EstEstimee(travail, k)) continue;
    if (!modalites.empty()) modalites += ", ";
    modalites += Joindre({travail.modele.Explicative(k).intitule, " (", RaisonDAbsence(travail.base, k), ")"});
  }
  if (modalites.empty()) return;
  rapport.Ligne({"*** Attention : effet non estimé, laissé à 0 : "_w, modalites});
}

// Effects that share one whole of which the data tell the sum alone: the search splits it by the order of the
// questions.
void PrevenirDesIndistincts(Rapport& rapport, const Travail& travail, const std::vector<std::size_t>& indistincts) {
  if (indistincts.empty()) return;
  const std::vector<std::size_t> rangs = RangsDesParametres(travail.modele);
  std::string modalites;
  for (const std::size_t indistinct : indistincts) {
    const auto k = static_cast<std::size_t>(std::find(rangs.begin(), rangs.end(), indistinct) - rangs.begin());
    if (!modalites.empty()) modalites += ", ";
    modalites += travail.modele.Explicative(k).intitule;
  }
  rapport.Ligne(
      {"*** Attention : les situations ne permettent pas de distinguer ces effets, leur partage est arbitraire : "_w,
       modalites});
}

void ImprimerConstante(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste) {
  const double alpha = ajuste.ajustement.parametres.alpha;
  const int decimales = Decimales(travail);
  const std::string noms = NomsDeSituation(travail.analyse, travail.analyse.reference);
  if (ajuste.lien == Lien::Lineaire) {
    rapport.Ligne({"Situation de référence "_w, noms});
    rapport.Ligne({Blancs(25), NombreFixe(alpha, 4, decimales), Blancs(25), Figure(100 * alpha, 3, 1)});
    rapport.Ligne("Effets marginaux ");
    return;
  }
  rapport.Ligne({"Situation de référence "_w, noms, "       ChancesRef"});
  rapport.Ligne({Blancs(25), NombreFixe(alpha, 4, decimales), Blancs(6), Figure(std::exp(alpha), 4, decimales),
                 Blancs(10), NombreFixe(PourcentageLogistique(alpha), 3, 1)});
  rapport.Ligne("Effets marginaux                        Odds-ratio ");
}

// A mean of each modality with its distance from the general one, beside that of what was observed.
void ImprimerMoyennes(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste,
                      const std::vector<double>& moyennes, Texte entete, std::string_view separation) {
  const double generale = travail.base.MoyenneGenerale();
  rapport.Ligne({TitreDe(ajuste), ", moyenne générale "_w, NombreFixe(generale, 1, 4)});
  rapport.Ligne();
  rapport.Ligne(entete);
  rapport.Ligne(
      "Modalité explicative                        Ecart de la moyenne observée à la moyenne générale en %"_w);
  ColonneDeNombres moyenne(1, 4);
  ColonneDeNombres ecart(4, 1);
  for (const double m : moyennes) {
    moyenne.Voir(m);
    ecart.Voir(100 * (m - generale));
  }
  for (std::size_t k = 0; k < moyennes.size(); ++k)
    rapport.Ligne({CadreGauche(travail.modele.Explicative(k).intitule, kLargeur), " ", moyenne(moyennes[k]), separation,
                   ecart(100 * (moyennes[k] - generale)), "  ",
                   NombreFixe(100 * (travail.base.Part(k) - generale), 4, 1)});
}

std::string_view MarqueDeParametre(double depassement) {
  if (depassement <= crosstab::kSeuilDe1PourCent) return "***";
  if (depassement <= crosstab::kSeuilDe5PourCent) return "** ";
  return depassement <= crosstab::kSeuilDe10PourCent ? "*  " : "ns ";
}

}  // namespace

double EffetEnPoints(const ModeleAjuste& ajuste, double beta) {
  if (ajuste.lien == Lien::Lineaire) return 100 * beta;
  const double alpha = ajuste.ajustement.parametres.alpha;
  return PourcentageLogistique(alpha + beta) - PourcentageLogistique(alpha);
}

void ImprimerParametres(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste,
                        const std::vector<std::size_t>& indistincts) {
  const std::vector<double>& betas = ajuste.ajustement.parametres.betas;
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne("Paramètres de la régression                         en pourcentages"_w);
  rapport.Ligne(TitreDe(ajuste));
  rapport.Ligne(travail.modele.titre);
  if (ajuste.ajustement.interrompu)
    rapport.Ligne({"*** Attention : la vraisemblance monte encore après "_w, Nombre(kPassagesMax),
                   " passages, les paramètres ci-dessous ne sont pas stabilisés"_w});
  PrevenirDesSeparations(rapport, travail);
  PrevenirDesIndistincts(rapport, travail, indistincts);
  ImprimerConstante(rapport, travail, ajuste);

  ColonneDeNombres beta(3, Decimales(travail));
  ColonneDeNombres rapportDeChances(3, 2);
  ColonneDeNombres effet(3, 1);
  for (const double b : betas) {
    beta.Voir(b);
    if (ajuste.lien == Lien::Logistique) rapportDeChances.Voir(std::exp(b));
    effet.Voir(EffetEnPoints(ajuste, b));
  }
  const std::vector<std::string> intitules = IntitulesDesParametres(travail.modele);
  for (std::size_t j = 0; j < betas.size(); ++j) {
    rapport.Suite({intitules[j], " ", beta(betas[j])});
    if (ajuste.lien == Lien::Lineaire) rapport.Suite(Blancs(25));
    else rapport.Suite({Blancs(7), rapportDeChances(std::exp(betas[j])), Blancs(12)});
    rapport.Ligne(effet(EffetEnPoints(ajuste, betas[j])));
  }
  rapport.Ligne({"Log-Vraisembl.", Figure(ajuste.ajustement.logVraisemblance, 6, 4)});
  rapport.Ligne();
}

void ImprimerTests(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste, const TestsDuModele& tests) {
  ColonneDeNombres ensemble(5, 4);
  const double constante = -2 * tests.logConstante;
  const double complet = -2 * ajuste.ajustement.logVraisemblance;
  for (const double valeur : {constante, complet, tests.modele.khi2}) ensemble.Voir(valeur);
  rapport.Ligne({"Cst seulement ", ensemble(constante)});
  rapport.Ligne({"Modèle complet"_w, ensemble(complet)});
  rapport.Ligne({"Khideux Vrais.", ensemble(tests.modele.khi2)});
  rapport.Ligne({"Degré liberté "_w, NombreFixe(static_cast<double>(tests.parametres.size()), 3, 0),
                 " Prob.=", NombreFixe(tests.modele.Depassement(), 1, 3), " ", tests.modele.probabilite.marque});

  ColonneDeNombres khi2(5, 4);
  for (const TestDeVraisemblance& test : tests.parametres)
    if (!test.Impossible()) khi2.Voir(test.khi2);
  const std::vector<std::string> intitules = IntitulesDesParametres(travail.modele);
  for (std::size_t j = 0; j < tests.parametres.size(); ++j) {
    const TestDeVraisemblance& test = tests.parametres[j];
    rapport.Suite({intitules[j], " ", "Khideux de Vrais."});
    if (test.Impossible()) rapport.Ligne("   Test impossible à calculer"_w);
    else
      rapport.Ligne({khi2(test.khi2), " Significatif à "_w, NombreFixe(test.Depassement(), 1, 3), "  ",
                     MarqueDeParametre(test.Depassement())});
  }
  rapport.Ligne({"Nb d'itérations= "_w, NombreFixe(static_cast<double>(ajuste.ajustement.iterations), 4, 0)});
  rapport.Ligne();
}

void ImprimerEffetExperimental(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste,
                               const std::vector<double>& moyennes) {
  rapport.Ligne("Sorties en probabilité selon méthode de l'effet expérimental (Brenque, BMS à paraitre)"_w);
  ImprimerMoyennes(rapport, travail, ajuste, moyennes,
                   "             Moyenne expérimentale Ecart de la moyenne expérimentale à la moyenne générale en %"_w,
                   "  ");
}

void ImprimerEffetPur(Rapport& rapport, const Travail& travail, const ModeleAjuste& ajuste,
                      const std::vector<double>& ajustees) {
  rapport.Ligne("Sorties en probabilité selon méthode de l'effet pur (Marvex/Soldain 1997 p.252)"_w);
  ImprimerMoyennes(rapport, travail, ajuste, ajustees,
                   "                  Moyenne ajustée Ecart de la moyenne ajustée à la moyenne générale en %"_w, " ");
}

}  // namespace quelvar::regression
