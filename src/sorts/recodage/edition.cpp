#include "sorts/recodage/edition.h"

#include <array>

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"
#include "core/resultats/rangees.h"
#include "sorts/recodage/posneuf.h"

namespace quelvar::sorts {

namespace {

constexpr int kColonnesDeNom = 4;  // with a blank behind it
constexpr PlaceEnRangee kPlaceDePosition{"  ", 4};
constexpr PlaceEnRangee kPlaceDeCodeMax{"  ", 3};

// The headings of both tables: above the rows the names of the position and of its neighbours are broken.
constexpr PlaceDeNom kNomEnTete = EnBas(0);
constexpr PlaceDeNom kPositionEnTete = SurLesDeux(5, 5, 5);
constexpr std::array<int, kLignesDeTete> kColonnesDeTete = {40, 0};
constexpr int kCodeMaxEnTete = 12;
constexpr int kCoupeDuCodeMax = 8;

// Position, code-max, new code-max and rule of a recoded question, with its label.
Rangee RangeeDe(const Consignes& consignes, const ChampNeuf& champ, const std::string& regle) {
  const Question& question = consignes.pos.questions[champ.question];
  Rangee rangee{NomNeuf(question, consignes.mode),
                question.intitule,
                {CelluleEntiere(champ.position), CelluleEntiere(question.codeMax), CelluleEntiere(champ.codeMax),
                 CelluleTexte(regle)}};
  if (champ.liberees > 0)
    rangee.intitule = Joindre({NombreNu(champ.liberees), " position(s) inutilisee(s) apres la position ",
                               NombreNu(champ.position), " et marquee(s) d'un X(Y) dans les donnees", rangee.intitule});
  return rangee;
}

// Position and code-max of each VIT, behind a warning where that was brought down.
void ImprimerTableVit(Rapport& rapport, const Consignes& consignes, const PlanDeRecodage& plan) {
  const FormeEnRangees forme{.titre = kColonnesDeNom,
                             .places = {kPlaceDePosition, kPlaceDeCodeMax},
                             .tete = {.coin = kNomEnTete,
                                      .noms = {kPositionEnTete, SurLesDeux(kCodeMaxEnTete, 11, kCoupeDuCodeMax)},
                                      .colonnes = kColonnesDeTete}};
  rapport.Ligne();
  ImprimeurDeRangees imprimeur(rapport, forme, forme.places.size());
  imprimeur.Tete({.titres = {"Variables Ideales Typiques VIT (ou variables crees)"},
                  .coin = "Nom",
                  .colonnes = {{"Position"}, {"Code-max Theorique"}}});
  for (const VitNeuve& vit : plan.vits) {
    if (vit.ramene) {
      rapport.Ligne("Attention, le code-max theorique suivant depassait 999 ");
      rapport.Ligne("il a ete ramene a 999");
    }
    imprimeur.Imprimer(
        {consignes.vits[vit.demandee].nom, {}, {CelluleEntiere(vit.position), CelluleEntiere(vit.codeMax)}});
  }
}

}  // namespace

std::string LigneDeVit(std::size_t numero, std::string_view nom) {
  return TexteDeRangee({"VIT numero ", {}, {CelluleEntiere(numero), CelluleTexte(nom)}},
                       {.places = {{.entiers = 2}, {" de nom ", kColonnesDeNom}}});
}

void ImprimerTableRecodage(Rapport& rapport, const Consignes& consignes, const PlanDeRecodage& plan) {
  TableauEdite table{
      .titres = {"Impression de la table de recodage"},
      .coin = "Nom",
      .colonnes = {
          {"Position"}, {"Code-max Ancien"}, {"Code-max Nouv."}, {Joindre({"Recodage (+ intitulé long éventuel)"_w})}}};
  for (std::size_t i = 0; i < plan.champs.size(); ++i)
    table.rangees.push_back(RangeeDe(consignes, plan.champs[i], consignes.aRegle[i].regle));
  ImprimerRangees(rapport, table,
                  {.titre = kColonnesDeNom,
                   .places = {kPlaceDePosition, kPlaceDeCodeMax, kPlaceDeCodeMax, {.avant = "   "}},
                   .avantIntitule = " ",
                   .tete = {.coin = kNomEnTete,
                            .noms = {kPositionEnTete, SurLesDeux(kCodeMaxEnTete, 10, kCoupeDuCodeMax),
                                     SurLesDeux(kCodeMaxEnTete, 17, kCoupeDuCodeMax), EnBas(23)},
                            .colonnes = kColonnesDeTete}});
  if (!plan.vits.empty()) ImprimerTableVit(rapport, consignes, plan);
}

}  // namespace quelvar::sorts
