#include "regression/anatab/editiondeseffets.h"

#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/resultats/colonnedenombres.h"
#include "core/resultats/rangees.h"
#include "regression/anatab/edition.h"

namespace quelvar::regression {

namespace {

std::string_view TitreDAnalyse(MesureDEffet mesure) {
  return mesure == MesureDEffet::Points ? "tabulaire" : "logistique";
}

constexpr int kEntiersDUnEffet = 3;

// The columns of the sub-effects of one modality.
struct ColonnesSousEffets {
  ColonneDeNombres effet;
  ColonneDeNombres poids{5, 0, Voisin::Nombre};
  ColonneDeNombres somme{5, 0, Voisin::Nombre};
  ColonneDeNombres khi2{3, 1, Voisin::Nombre};
};

ColonnesSousEffets MesurerColonnes(MesureDEffet mesure, const Effet& effet) {
  ColonnesSousEffets colonnes{ColonneDeNombres(3, DecimalesDEffet(mesure))};
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
  rapport.Suite({std::string((questions - 1) * kLargeurCourte, ' '), colonnes.effet.Ajout(), "   s-e",
                 colonnes.poids.Ajout(), "  Eff", colonnes.somme.Ajout(), "  Tot"});
  if (avecTest) rapport.Ligne({colonnes.khi2.Ajout(), " Khi2 Test"});
  else rapport.Ligne(" ");
}

// Writes the line of a sub-effect: there may be millions of them, and neighbours share their sub-population. That is
// why the driver of rows does not: the line keeps the text of the sub-population and of the sum, and makes no cells.
class LignesDeSousEffets {
 public:
  LignesDeSousEffets(const AnalyseTabulaire& analyse, const Effet& effet)
      : analyse_(analyse),
        avecTest_(analyse.mesure == MesureDEffet::Points),
        colonnes_(MesurerColonnes(analyse.mesure, effet)),
        somme_(colonnes_.somme(effet.poids)) {}

  void ImprimerEntete(Rapport& rapport) const {
    ImprimerEnteteSousEffets(rapport, analyse_.table.questions, colonnes_, avecTest_);
  }

  void Imprimer(Rapport& rapport, const SousEffet& sousEffet, const MesureSousEffet& mesure) {
    if (debut_ == 0 || sousEffet.premiere != derniere_.premiere || sousEffet.question != derniere_.question) {
      ligne_.clear();
      AjouterSousPopulation(ligne_, analyse_, sousEffet);
      ligne_ += ' ';
      debut_ = ligne_.size();
      derniere_ = sousEffet;
    }
    ligne_.resize(debut_);
    colonnes_.effet.Ajouter(ligne_, mesure.effet);
    colonnes_.poids.Ajouter(ligne_, mesure.poids);
    ligne_ += somme_;
    if (avecTest_) {
      colonnes_.khi2.Ajouter(ligne_, mesure.khi2.khi2);
      ligne_ += ' ';
      ligne_ += MarqueDeCellule(mesure.khi2.classe);
    }
    rapport.Ligne(ligne_);
  }

 private:
  const AnalyseTabulaire& analyse_;
  bool avecTest_;  // the chi-square of a sub-effect goes with a difference of percentages
  ColonnesSousEffets colonnes_;
  std::string somme_;
  std::string ligne_;
  std::size_t debut_ = 0;  // where the figures start, behind the sub-population and its blank
  SousEffet derniere_;     // that the sub-population was written for
};

void ImprimerUnEffet(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, bool tableaux,
                     const Effet& effet) {
  LignesDeSousEffets lignes(analyse, effet);
  rapport.Ligne({"Effet ", CadreGauche(modele.Explicative(effet.modalite).intitule, kLargeurCourte),
                 NombreNu(effet.nombre), " sous-effets (s-e)"});
  lignes.ImprimerEntete(rapport);
  std::uint64_t rang = 0;
  ParcourirMesures(analyse, effet.modalite, [&](const SousEffet& sousEffet, const MesureSousEffet& mesures) {
    lignes.Imprimer(rapport, sousEffet, mesures);
    ++rang;
    if (!tableaux) return;
    rapport.Ligne();
    for (const std::string& ligne : LignesDeLaPaire(TableDe(analyse, modele, sousEffet))) rapport.Ligne(ligne);
    rapport.Ligne();
    if (rang == effet.nombre) return;
    rapport.Ligne();
    lignes.ImprimerEntete(rapport);
  });
  rapport.Ligne({"moyenne pondérée des sous-effets ="_w,
                 Figure(effet.moyenne, kEntiersDUnEffet, DecimalesDEffet(analyse.mesure))});
  rapport.Ligne({"Ecart type pondéré en pourcentage ="_w, Figure(effet.ecartType, kEntiersDUnEffet, 1)});
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

// The heading of a summary. `coupe`: of its corner; `validite`: where that name stands.
FormeADeuxLignes TeteDuResume(int coupe, int validite) {
  constexpr PlaceDeNom kIntervalle = SurLesDeux(41, 44, 23);
  return {.coin = SurLesDeux(4, 2, coupe),
          .noms = {{}, EnBas(validite), kIntervalle, kIntervalle},
          .colonnes = {65, 0},
          .fixe = true};
}

// The heading, these lines, and the rows.
void ImprimerResumeDe(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme,
                      const std::vector<std::string>& sousLaTete) {
  ImprimeurDeRangees imprimeur(rapport, forme, tableau.colonnes.size());
  for (const Rangee& rangee : tableau.rangees) imprimeur.Voir(rangee);
  imprimeur.Tete(tableau);
  rapport.Lignes(sousLaTete);
  for (const Rangee& rangee : tableau.rangees) imprimeur.Imprimer(rangee);
}

void ImprimerResumeReference(Rapport& rapport, const AnalyseTabulaire& analyse) {
  ImprimerResumeDe(rapport, TableauDeLaReference(analyse),
                   {.titre = kLargeurCourte,
                    .places = {{"", 3}, {"            ", 3}, {"                   ", 3}, {"      ", 3}},
                    .avantIntitule = " ",
                    .tete = TeteDuResume(9, 22)},
                   {"", NomsDeSituation(analyse, analyse.reference), ""});
  rapport.Ligne();
}

void ImprimerResumeDesEffets(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele) {
  constexpr Elargissement kLibre = Elargissement::DerriereUnTexte;
  // A percentage bears its sign, a ratio a blank in its place.
  const std::size_t signe = analyse.mesure == MesureDEffet::Points ? 0 : 1;
  const auto derriereUnEffet = [signe](std::size_t blancs) {
    constexpr std::string_view kBlancs = "       ";
    return kBlancs.substr(0, blancs + signe);
  };
  ImprimerResumeDe(
      rapport, TableauDesEffets(analyse, modele),
      {.titre = kLargeurCourte,
       .places = {{"", 3, kLibre}, {derriereUnEffet(5), 20}, {"         ", 3, kLibre}, {derriereUnEffet(6), 3, kLibre}},
       .avantIntitule = derriereUnEffet(1),
       .tete = TeteDuResume(6, kHorsDeLaLigne)},
      {""});
}

}  // namespace

// Laid out here and not by the driver of rows: there is one for each sub-effect, millions of them, for which cells,
// titles and columns would be made and thrown away one by one.
std::array<std::string, 4> LignesDeLaPaire(const TableDePaire& table) {
  constexpr int kLargeurNom = 6;
  const auto& [a, b, deux] = table.rangees;
  ColonneDeNombres oui(5, 0);
  ColonneDeNombres non(5, 0, Voisin::Nombre);
  ColonneDeNombres effectif(5, 0, Voisin::Nombre);
  oui.Voir(deux.oui);
  non.Voir(deux.Non());
  effectif.Voir(deux.effectif);
  ColonneDeNombres partOui(3, 1);
  ColonneDeNombres partNon(3, 1, Voisin::Nombre);
  for (const TableDePaire::Rangee& rangee : table.rangees) {
    partOui.Voir(rangee.PartOui());
    partNon.Voir(rangee.PartNon());
  }
  const auto ligne = [&](const TableDePaire::Rangee& r, std::string_view signe) {
    return Joindre({CadreGauche(r.nom, kLargeurNom), oui(r.oui), non(r.Non()), effectif(r.effectif), "  ",
                    partOui(r.PartOui()), partNon(r.PartNon()), " 100  ", signe, " "});
  };
  const std::string_view t = table.expliquee;
  return {Joindre({"       ", oui.Ajout(), t, non.Ajout(), " Reste", effectif.Ajout(), " Tot   ", partOui.Ajout(), t,
                   partNon.Ajout(), " Reste      ", t, " Reste"}),
          ligne(a, table.premierePlus ? "  +    -  " : "  -    +  "),
          ligne(b, table.premierePlus ? "  -    +  " : "  +    -  "), ligne(deux, "          ")};
}

void ImprimerTitreParametres(Rapport& rapport, const Modele& modele, MesureDEffet mesure) {
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne();
  rapport.Ligne({"Paramètres de l'analyse "_w, TitreDAnalyse(mesure)});
  rapport.Ligne();
  rapport.Ligne(modele.titre);
  rapport.Ligne();
  rapport.Ligne("Situation de référence : "_w);
}

void ImprimerReference(Rapport& rapport, const AnalyseTabulaire& analyse) {
  constexpr int kEntiersDuKhi2 = 4;
  const Situation& situation = analyse.Reference();
  rapport.Ligne({NomsDeSituation(analyse, analyse.reference), " = ", TexteDePourcentage(situation.pourcentage),
                 "   effectif associé ="_w, Figure(situation.effectif, kEntiersDUnEffectif, 0)});
  rapport.Ligne({"Ecart-type en pourcentage =", TexteDePourcentage(situation.EcartTypeEnPoints())});
  rapport.Ligne({"Khi-deux =", Figure(analyse.khi2Reference.khi2, kEntiersDuKhi2, 1), " ",
                 MarqueDeCellule(analyse.khi2Reference.classe)});
  rapport.Ligne();
  rapport.Ligne();
}

void ImprimerEffets(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele, bool tableaux) {
  for (const Effet& effet : analyse.effets) ImprimerUnEffet(rapport, analyse, modele, tableaux, effet);
}

void ImprimerResume(Rapport& rapport, const AnalyseTabulaire& analyse, const Modele& modele) {
  rapport.Ligne();
  rapport.Ligne(kEtoiles);
  rapport.Ligne();
  rapport.Ligne({"Résumé des paramètres de l'analyse "_w, TitreDAnalyse(analyse.mesure)});
  rapport.Ligne(modele.titre);
  ImprimerResumeReference(rapport, analyse);
  ImprimerResumeDesEffets(rapport, analyse, modele);
}

}  // namespace quelvar::regression
