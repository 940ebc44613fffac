#include "regression/anatab/effets_edition.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "core/resultats/colonnedenombres.h"
#include "core/texte/nombres.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeurCourte = 5;  // of a label that names an effect, of a cell in a list

std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

std::string NomCourt(const Modele& modele, const Effet& effet) {
  return CadreGauche(modele.Explicative(effet.modalite).intitule, kLargeurCourte);
}

std::string_view TexteDeTest(int classe) {
  static constexpr std::string_view textes[] = {" ns ", " *  ", " ** ", " ***"};
  return textes[classe];
}

double EcartTypeDeLaPart(const Situation& situation) {
  const double p = situation.pourcentage / 100;
  return std::sqrt(p * (1 - p) / situation.effectif);
}

std::string_view TitreDAnalyse(ChoixEdition choix) { return choix.oddsRatio ? "logistique" : "tabulaire"; }

int DecimalesDEffet(ChoixEdition choix) { return choix.oddsRatio ? 2 : 1; }

// The columns of the sub-effects of one modality.
struct ColonnesSousEffets {
  ColonneDeNombres effet;
  ColonneDeNombres poids{5, 0, Voisin::Nombre};
  ColonneDeNombres somme{5, 0, Voisin::Nombre};
  ColonneDeNombres khi2{3, 1, Voisin::Nombre};
};

ColonnesSousEffets MesurerColonnes(ChoixEdition choix, const Effet& effet) {
  ColonnesSousEffets colonnes{ColonneDeNombres(3, DecimalesDEffet(choix))};
  colonnes.effet.Voir(effet.minimum);
  colonnes.effet.Voir(effet.maximum);
  colonnes.poids.Voir(effet.poidsMaximum);
  colonnes.somme.Voir(effet.poids);
  colonnes.khi2.Voir(effet.khi2Maximum);
  return colonnes;
}

void ImprimerEnteteSousEffets(Rapport& rapport, std::size_t questions, const ColonnesSousEffets& colonnes,
                              bool avecTest) {
  rapport.Ligne("Sous-population");
  rapport.Suite({Blancs((questions - 1) * kLargeurCourte), colonnes.effet.Ajout(), "   s-e", colonnes.poids.Ajout(),
                 "  Eff", colonnes.somme.Ajout(), "  Tot"});
  if (avecTest) rapport.Ligne({colonnes.khi2.Ajout(), " Khi2 Test"});
  else rapport.Ligne(" ");
}

void AjouterSousPopulation(std::string& ligne, const AnalyseTabulaire& analyse, const SousEffet& sousEffet) {
  const std::span<const std::uint32_t> modalites = analyse.table.Modalites(sousEffet.premiere);
  for (std::size_t c = 0; c < modalites.size(); ++c) {
    if (c == sousEffet.question) continue;
    ligne += ' ';
    ligne += analyse.cellules[modalites[c]].intitule;
  }
}

// Writes the line of a sub-effect: there may be millions of them, and neighbours share their sub-population.
class LignesDeSousEffets {
 public:
  LignesDeSousEffets(const AnalyseTabulaire& analyse, ChoixEdition choix, const Effet& effet)
      : analyse_(analyse),
        choix_(choix),
        colonnes_(MesurerColonnes(choix, effet)),
        somme_(colonnes_.somme(effet.poids)) {}

  void ImprimerEntete(Rapport& rapport) const {
    ImprimerEnteteSousEffets(rapport, analyse_.table.questions, colonnes_, !choix_.oddsRatio);
  }

  void Imprimer(Rapport& rapport, const SousEffet& sousEffet) {
    if (debut_ == 0 || sousEffet.premiere != derniere_.premiere || sousEffet.question != derniere_.question) {
      ligne_.clear();
      AjouterSousPopulation(ligne_, analyse_, sousEffet);
      ligne_ += ' ';
      debut_ = ligne_.size();
      derniere_ = sousEffet;
    }
    ligne_.resize(debut_);
    const MesureSousEffet mesure = Mesurer(sousEffet, analyse_.table, choix_.oddsRatio);
    colonnes_.effet.Ajouter(ligne_, mesure.effet);
    colonnes_.poids.Ajouter(ligne_, mesure.poids);
    ligne_ += somme_;
    if (!choix_.oddsRatio) {
      colonnes_.khi2.Ajouter(ligne_, mesure.khi2.khi2);
      ligne_ += TexteDeTest(mesure.khi2.classe);
    }
    rapport.Ligne(ligne_);
  }

 private:
  const AnalyseTabulaire& analyse_;
  ChoixEdition choix_;
  ColonnesSousEffets colonnes_;
  std::string somme_;
  std::string ligne_;
  std::size_t debut_ = 0;  // where the figures start, behind the sub-population and its blank
  SousEffet derniere_;     // that the sub-population was written for
};

void ImprimerUnEffet(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, ChoixEdition choix,
                     const Effet& effet) {
  LignesDeSousEffets lignes(analyse, choix, effet);
  rapport.Ligne({"Effet ", NomCourt(modele, effet), NombreNu(effet.nombre), " sous-effets (s-e)"});
  lignes.ImprimerEntete(rapport);
  std::uint64_t rang = 0;
  ParcourirSousEffets(analyse.table, analyse.cellules, analyse.voisinages, effet.modalite,
                      [&](const SousEffet& sousEffet) {
                        lignes.Imprimer(rapport, sousEffet);
                        ++rang;
                        if (!choix.tableaux) return;
                        rapport.Ligne();
                        for (const std::string& bande : TableauPaire(analyse, modele, sousEffet)) rapport.Ligne(bande);
                        rapport.Ligne();
                        if (rang == effet.nombre) return;
                        rapport.Ligne();
                        lignes.ImprimerEntete(rapport);
                      });
  rapport.Ligne({"moyenne pondérée des sous-effets ="_w, Figure(effet.moyenne, 3, DecimalesDEffet(choix))});
  rapport.Ligne({"Ecart type pondéré en pourcentage ="_w, Figure(effet.ecartType, 3, 1)});
  if (effet.EcartDepasseMoyenne()) {
    rapport.Ligne("*** attention");
    rapport.Ligne("    l'écart-type est plus grand que la valeur absolue de la moyenne"_w);
    rapport.Ligne("    l'effet moyen est peu fiable du fait des interactions");
  }
  if (effet.Seul()) {
    rapport.Ligne("*** attention");
    rapport.Ligne("    l'écart-type est nul car il il y un seul sous-effet"_w);
    rapport.Ligne("    l'effet moyen est peu fiable ");
  }
  rapport.Ligne();
}

void ImprimerResumeReference(Rapport& rapport, const AnalyseTabulaire& analyse) {
  const double p = analyse.PartReference();
  const double s = EcartTypeDeLaPart(analyse.Reference());
  rapport.Ligne("    Situation                            Intervalle de confiance ");
  rapport.Ligne("  de référence        Validité              à 1 écart-type"_w);
  rapport.Ligne();
  rapport.Ligne(NomsDeSituation(analyse, analyse.reference));
  rapport.Ligne();
  rapport.Ligne({"     ", NombreFixe(100 * p, 3, 1), "%            ", MarqueDeCellule(analyse.khi2Reference.classe),
                 Blancs(19), NombreFixe(100 * std::max(0.0, p - s), 3, 1), "% ", "     ",
                 NombreFixe(100 * std::min(1.0, p + s), 3, 1), "% "});
  rapport.Ligne();
}

}  // namespace

std::string_view MarqueDeCellule(int classe) {
  static constexpr std::string_view marques[] = {"ns ", "*  ", "** ", "***"};
  return marques[classe];
}

void ImprimerSituations(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele) {
  constexpr std::size_t kLargeurCellule = 7;
  ColonneDeNombres effectif(5, 0);
  ColonneDeNombres pourcentage(3, 1, Voisin::Nombre);
  ColonneDeNombres khi2(4, 1, Voisin::Nombre);
  for (std::size_t s = 0; s < analyse.examinees; ++s) {
    const Situation& situation = analyse.table.situations[s];
    effectif.Voir(situation.effectif);
    pourcentage.Voir(situation.Brut());
    khi2.Voir(situation.khi2.khi2);
  }
  rapport.Ligne({Blancs((modele.questions.size() - 1) * kLargeurCellule), effectif.Ajout(), "  Eff.",
                 pourcentage.Ajout(), "Pour.", khi2.Ajout(), " Khi2 Test"});
  for (std::size_t s = 0; s < analyse.examinees; ++s) {
    const Situation& situation = analyse.table.situations[s];
    for (const std::uint32_t k : analyse.table.Modalites(s))
      rapport.Suite({analyse.cellules[k].intitule, Milieu(analyse.cellules[k].role, 1, 3)});
    rapport.Ligne({effectif(situation.effectif), pourcentage(situation.Brut()), khi2(situation.khi2.khi2), " ",
                   MarqueDeCellule(situation.khi2.classe), " "});
  }
}

std::string NomsDeSituation(const AnalyseTabulaire& analyse, std::size_t situation) {
  std::string noms;
  for (const std::uint32_t k : analyse.table.Modalites(situation)) noms += analyse.cellules[k].intitule + ' ';
  return noms;
}

std::string SousPopulation(const AnalyseTabulaire& analyse, const SousEffet& sousEffet) {
  std::string noms;
  AjouterSousPopulation(noms, analyse, sousEffet);
  return noms;
}

std::array<std::string, 4> TableauPaire(const AnalyseTabulaire& analyse, const Modele& modele,
                                        const SousEffet& sousEffet) {
  struct Rangee {
    std::string_view nom;
    double y;
    double n;
    double Pourcentage() const { return 100 * y / n; }
  };
  const auto rangee = [&](std::uint32_t s) {
    const Situation& situation = analyse.table.situations[s];
    const std::size_t k = analyse.cellules[analyse.table.Modalites(s)[sousEffet.question]].designee;
    return Rangee{k < modele.Explicatives() ? std::string_view(modele.Explicative(k).nom) : "    ",
                  situation.pourcentage * situation.effectif / 100, situation.effectif};
  };
  const Rangee a = rangee(sousEffet.premiere);
  const Rangee b = rangee(sousEffet.seconde);
  const Rangee total{"  Tot", a.y + b.y, a.n + b.n};
  ColonneDeNombres oui(5, 0);
  ColonneDeNombres non(5, 0, Voisin::Nombre);
  ColonneDeNombres effectif(5, 0, Voisin::Nombre);
  oui.Voir(total.y);
  non.Voir(total.n - total.y);
  effectif.Voir(total.n);
  ColonneDeNombres partOui(3, 1);
  ColonneDeNombres partNon(3, 1, Voisin::Nombre);
  for (const Rangee& r : {a, b, total}) {
    partOui.Voir(r.Pourcentage());
    partNon.Voir(100 * (r.n - r.y) / r.n);
  }
  const bool premierePlus = a.Pourcentage() > total.Pourcentage();
  const auto bande = [&](const Rangee& r, std::string_view signe) {
    return Joindre({CadreGauche(r.nom, 6), oui(r.y), non(r.n - r.y), effectif(r.n), "  ", partOui(r.Pourcentage()),
                    partNon(100 * (r.n - r.y) / r.n), " 100  ", signe, " "});
  };
  const std::string_view t = modele.Expliquee().nom;
  return {Joindre({"       ", oui.Ajout(), t, non.Ajout(), " Reste", effectif.Ajout(), " Tot   ", partOui.Ajout(), t,
                   partNon.Ajout(), " Reste      ", t, " Reste"}),
          bande(a, premierePlus ? "  +    -  " : "  -    +  "), bande(b, premierePlus ? "  -    +  " : "  +    -  "),
          bande(total, "          ")};
}

void ImprimerTitreParametres(Rapport& rapport, const Modele& modele, ChoixEdition choix) {
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne();
  rapport.Ligne({"Paramètres de l'analyse "_w, TitreDAnalyse(choix)});
  rapport.Ligne();
  rapport.Ligne(modele.titre);
  rapport.Ligne();
  rapport.Ligne("Situation de référence : "_w);
}

void ImprimerReference(Rapport& rapport, const AnalyseTabulaire& analyse) {
  const Situation& situation = analyse.Reference();
  rapport.Ligne({NomsDeSituation(analyse, analyse.reference), " = ", NombreFixe(situation.pourcentage, 3, 1),
                 "   effectif associé ="_w, Figure(situation.effectif, 5, 0)});
  rapport.Ligne({"Ecart-type en pourcentage =", NombreFixe(100 * EcartTypeDeLaPart(situation), 3, 1)});
  rapport.Ligne(
      {"Khi-deux =", Figure(analyse.khi2Reference.khi2, 4, 1), " ", MarqueDeCellule(analyse.khi2Reference.classe)});
  rapport.Ligne();
  rapport.Ligne();
}

void ImprimerEffets(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, ChoixEdition choix) {
  for (const Effet& effet : analyse.effets) ImprimerUnEffet(rapport, analyse, modele, choix, effet);
}

void ImprimerResume(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, ChoixEdition choix) {
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne();
  rapport.Ligne({"Résumé des paramètres de l'analyse "_w, TitreDAnalyse(choix)});
  rapport.Ligne(modele.titre);
  ImprimerResumeReference(rapport, analyse);

  rapport.Ligne("    Effets                               Intervalle de confiance ");
  rapport.Ligne("  marginaux                                 à 1 écart-type"_w);
  rapport.Ligne();
  ColonneDeNombres moyenne(3, DecimalesDEffet(choix));
  ColonneDeNombres bas(3, 1);
  ColonneDeNombres haut(3, 1);
  for (const Effet& effet : analyse.effets) {
    moyenne.Voir(effet.moyenne);
    bas.Voir(effet.moyenne - effet.ecartType);
    haut.Voir(effet.moyenne + effet.ecartType);
  }
  const std::string_view unite = choix.oddsRatio ? "  " : "% ";
  for (const Effet& effet : analyse.effets) {
    const std::string_view remarque = effet.Seul()                  ? "Un seul sous-effet  "
                                      : effet.EcartDepasseMoyenne() ? "Ecart-Type > Moyenne"
                                                                    : "                    ";
    rapport.Ligne({NomCourt(modele, effet), moyenne(effet.moyenne), unite, "    ", remarque, Blancs(9),
                   bas(effet.moyenne - effet.ecartType), unite, "     ", haut(effet.moyenne + effet.ecartType), unite});
  }
}

}  // namespace quelvar::regression
