#include "factor/analyse/editions.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/programme/erreur.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "core/texte/nombres.h"
#include "factor/analyse/tables.h"

namespace quelvar::factor {

namespace {

constexpr int kDecimalesAuPlus = 99;
constexpr std::size_t kLignesSurTroisChiffres = 1000;

std::string Repeter(std::string_view debut, std::string_view motif, std::size_t fois, std::string_view fin) {
  std::string texte(debut);
  for (std::size_t i = 0; i < fois; ++i) texte += motif;
  texte += fin;
  return texte;
}

}  // namespace

void ImprimerDimensions(Rapport& rapport, const PlanAnecar& plan, const SeuilsAnecar& seuils) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre total de  lignes  du tableau est de ", NombreNu(plan.lignes)});
  rapport.Ligne({"Le nombre total de colonnes du tableau est de ", NombreNu(plan.colonnes.Nombre())});
  rapport.Ligne({"Le nombre de  lignes  supplementaires est de ", NombreNu(plan.LignesSup())});
  rapport.Ligne({"Le nombre de colonnes supplementaires est de ", NombreNu(plan.colonnes.Supplementaires())});
  rapport.Ligne({"Le nombre de  lignes  actives est de ", NombreNu(plan.lignesActives)});
  rapport.Ligne({"Le nombre de colonnes actives est de ", NombreNu(plan.colonnes.actifs)});
  if (seuils.lignes) rapport.Ligne({"Le seuil d'edition des lignes est de ", NombreNu(*seuils.lignes)});
  if (seuils.colonnes) rapport.Ligne({"Le seuil d'edition des colonnes est de ", NombreNu(*seuils.colonnes)});
  if (plan.genre != GenreTableau::BurtCarre) return;
  rapport.Ligne();
  rapport.Ligne(" Cas d'un tableau de BURT : on ne   ");
  rapport.Ligne("calcule pas les ISUP symetriques des JSUP");
}

void ImprimerTitre(Rapport& rapport, const AnalyseAnecar& analyse) {
  const bool acp = analyse.type == TypeAnalyse::Acp;
  rapport.Ligne();
  rapport.Ligne(std::string_view(acp ? "ACP : Analyse en composantes principales des ecarts"
                                     : "AFC : Analyse des correspondances"));
  rapport.Ligne(std::string(acp ? 51 : 33, '*'));
  rapport.Ligne();
  rapport.Ligne({acp ? "La somme des carrés est de :"_w : "Le phi-deux est de :"_w,
                 NombreFixe(analyse.ecarts.Inertie(analyse.type), 7, 6)});
  rapport.Ligne();
}

void ImprimerNombreDeFacteurs(Rapport& rapport, int nombre) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre de facteurs a extraire est de  ", Nombre(nombre)});
  rapport.Ligne();
}

void ImprimerDebutDeFacteur(Rapport& rapport, std::size_t k) {
  rapport.Ligne();
  rapport.Ligne({"Facteur ", EntierDroit(static_cast<std::int64_t>(k), 3)});
}

namespace {

constexpr int kLargeurValeurPropre = 9;
constexpr int kLargeurPourcentage = 5;

}  // namespace

void ImprimerFacteur(Rapport& rapport, const FacteurAnecar& facteur) {
  const std::vector<Cellule> cellules = ValeurPropre(facteur);
  if (!facteur.converge)
    rapport.Ligne({"*** Attention : le facteur n'a pas convergé après"_w, NombreNu(facteur.tours),
                   "itérations, il est gardé en l'état"_w});
  rapport.Ligne();
  rapport.Ligne({"Valeur propre = ", TexteEnColonne(cellules[0], kLargeurValeurPropre)});
  rapport.Ligne({"Pourcentage du total =", TexteEnColonne(cellules[1], kLargeurPourcentage)});
  rapport.Ligne();
}

void ImprimerEchelle(Rapport& rapport, double echelle) {
  if (echelle == 1) return;
  rapport.Ligne({"Les coordonnées sont multipliées par "_w, Nombre(static_cast<std::int64_t>(echelle)),
                 " : la plus grande a moins de trois chiffres en millièmes"_w});
}

namespace {

// Rows of individuals can be millions: a table is made and laid out so many at a time.
constexpr std::size_t kRangeesALaFois = 1000;

template <class FaireTable>  // the table of some ranks
void ImprimerParTranches(Rapport& rapport, Tranche rangs, const FormeEnRangees& forme, const FaireTable& faire) {
  for (std::size_t premier = rangs.premier; premier < rangs.fin; premier += kRangeesALaFois)
    ImprimerRangees(rapport, faire(Tranche{premier, std::min(premier + kRangeesALaFois, rangs.fin)}), forme);
}

// What tells the listing of rows from that of columns.
struct MotsListe {
  std::string_view enTete;
  std::string_view actifs;
  std::string_view supplementaires;
  int largeurIndice;
};

void ImprimerElementsTries(Rapport& rapport, const ElementsAnecar& elements, const CoteFacteur& cote, Tranche positions,
                           int seuil, int largeurIndice) {
  const FormeEnRangees forme{
      .places = {{"", largeurIndice, Elargissement::Entier}, {" ", 5}, {"", 7}, {"", 5, Elargissement::Entier}},
      .avantIntitule = "    "};
  const std::vector<std::size_t> tries = ElementsTries(cote, positions, seuil);
  ImprimerParTranches(rapport, {0, tries.size()}, forme, [&](Tranche rangs) {
    return TableTriee(elements, cote, std::span(tries).subspan(rangs.premier, rangs.Taille()));
  });
}

std::string LigneFacteur(std::size_t k, std::string_view suite) {
  return Joindre({"Facteur ", EntierDroit(static_cast<std::int64_t>(k), 2), suite});
}

void ImprimerActifsTries(Rapport& rapport, const ElementsAnecar& elements, const CoteFacteur& cote, std::size_t k,
                         int seuil, const MotsListe& mots) {
  if (elements.actifs == 0) return;
  rapport.Ligne(LigneFacteur(k, mots.actifs));
  rapport.Ligne(mots.enTete);
  ImprimerElementsTries(rapport, elements, cote, {0, elements.actifs}, seuil, mots.largeurIndice);
}

}  // namespace

void ImprimerLignesTriees(Rapport& rapport, const TableauAnecar& tableau, const CoteFacteur& cote, std::size_t k,
                          int seuil) {
  const ElementsAnecar& lignes = tableau.lignes;
  const MotsListe mots{"  I NOM Coor.fac. CPF         Intitule long", " Impression des lignes   actives du tableau",
                       " Impression des lignes   suppl.   du tableau",
                       lignes.Nombre() > kLignesSurTroisChiffres ? 4 : 3};
  ImprimerActifsTries(rapport, lignes, cote, k, seuil, mots);
  if (lignes.Supplementaires() == 0) return;
  rapport.Ligne(" ");
  rapport.Ligne(mots.supplementaires);
  ImprimerElementsTries(rapport, lignes, cote, {lignes.actifs, lignes.Nombre()}, seuil, mots.largeurIndice);
}

void ImprimerColonnesTriees(Rapport& rapport, const ElementsAnecar& colonnes, const CoteFacteur& cote, std::size_t k,
                            int seuil) {
  const MotsListe mots{"  J NOM Coor.fac. CPF         Intitule long", " Impression des colonnes actives du tableau",
                       " Impression des colonnes suppl.   du tableau", 3};
  ImprimerActifsTries(rapport, colonnes, cote, k, seuil, mots);
  if (colonnes.Supplementaires() == 0) return;
  rapport.Ligne();
  rapport.Ligne(LigneFacteur(k, mots.supplementaires));
  ImprimerElementsTries(rapport, colonnes, cote, {colonnes.actifs, colonnes.Nombre()}, seuil, mots.largeurIndice);
}

namespace {

constexpr int kNomDeLigne = 5;  // of a table of deviations, with the blank behind it
constexpr int kEntiersDesEcarts = 5;

// The names of the active columns over their cells. Raises kArgumentIncorrect for decimals that nobody could print.
std::string TeteDesEcarts(const ElementsAnecar& colonnes, int decimales) {
  if (decimales > kDecimalesAuPlus) throw Erreur(kArgumentIncorrect);
  std::string ligne(8, ' ');
  for (std::size_t j = 0; j < colonnes.actifs; ++j) {
    ligne += CadreGauche(colonnes.noms[j], 5);
    ligne.append(static_cast<std::size_t>(decimales) + 1, ' ');
  }
  return ligne;
}

// The cells of the deviations all stand in the same place.
FormeEnRangees FormeDesEcarts() {
  return {.titre = kNomDeLigne, .places = {{"", kEntiersDesEcarts}}, .avantIntitule = {}};
}

// One measure of every column, then one of the factor in a place of its own.
void ImprimerMesure(Rapport& rapport, const TableauEdite& mesure, std::size_t colonnes, PlaceEnRangee fin) {
  FormeEnRangees forme = FormeDesEcarts();
  forme.places.resize(colonnes, forme.places.front());
  forme.places.push_back(fin);
  ImprimerRangees(rapport, mesure, forme);
}

}  // namespace

void ImprimerEcartsRestants(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const EcartsRestants& restants, int decimales) {
  rapport.Ligne("Ecarts à l'indépendance restants"_w);
  rapport.Ligne(TeteDesEcarts(colonnes, decimales));
  ImprimerParTranches(rapport, {0, restants.d.Lignes()}, FormeDesEcarts(), [&](Tranche positions) {
    return TableDesEcarts(lignes, restants.d, restants.effectif, decimales, positions);
  });
}

void ImprimerReconstitution(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const Reconstitution& reconstitution, int decimales) {
  const std::string blancs(static_cast<std::size_t>(decimales), ' ');
  rapport.Ligne("Reconstitution des écarts à l'indépendance restants"_w);
  rapport.Ligne({TeteDesEcarts(colonnes, decimales), " PI  ", blancs, "  FI ", blancs, " SemiCalNonPond"});
  ImprimerParTranches(rapport, {0, reconstitution.effectifs.Lignes()}, FormeDesEcarts(), [&](Tranche positions) {
    return TableReconstituee(lignes, reconstitution, decimales, positions);
  });

  const std::size_t p = reconstitution.colonnes.size();
  const auto mesure = [&](std::string titre, double ElementReconstitue::*laquelle, std::vector<Cellule> fin) {
    return MesureDesColonnes(std::move(titre), reconstitution, laquelle, decimales, std::move(fin));
  };
  ImprimerMesure(rapport, mesure(" PJ", &ElementReconstitue::part, {{reconstitution.effectif}}), p, {"    100=", 4});
  ImprimerMesure(rapport,
                 mesure(" FJ", &ElementReconstitue::coordonnee, {{reconstitution.valeurSinguliere, Unite::Nombre, 7}}),
                 p, {"    Ksi=", 1});
  ImprimerMesure(rapport, mesure("Semi", &ElementReconstitue::semi, {}), p, {});
}

namespace {

// "F=" and the number of each factor in the place that one or two digits leave, between `debut` and `suite`.
std::string TeteDesFacteurs(std::string_view titre, std::size_t facteurs, std::string_view debut,
                            std::string_view suite) {
  std::string ligne(titre);
  for (std::size_t k = 1; k <= facteurs; ++k) {
    ligne += k > 9 ? debut.substr(0, debut.size() - 1) : debut;
    ligne += "F=" + EntierDroit(static_cast<std::int64_t>(k), k > 9 ? 2 : 1);
    ligne += suite;
  }
  return ligne;
}

// The frame of a table of coordinates: active elements, a line on them all, supplementary ones if there are any.
struct CadreDeTable {
  std::string regle;
  std::string actifs, supplementaires;  // heads
  std::function<void()> ensemble;       // prints the line on all active elements
  std::function<void(Tranche positions)> elements;
};

void ImprimerTable(Rapport& rapport, const CadreDeTable& cadre, const ElementsAnecar& elements) {
  rapport.Ligne(cadre.regle);
  rapport.Ligne(cadre.actifs);
  rapport.Ligne(cadre.regle);
  cadre.elements({0, elements.actifs});
  rapport.Ligne(cadre.regle);
  cadre.ensemble();
  rapport.Ligne(cadre.regle);
  if (elements.Supplementaires() == 0) return;
  rapport.Ligne(cadre.supplementaires);
  rapport.Ligne(cadre.regle);
  cadre.elements({elements.actifs, elements.Nombre()});
  rapport.Ligne(cadre.regle);
}

constexpr int kNom = 4;
constexpr PlaceEnRangee kPlacePourMille{"", 5, Elargissement::Entier};

void ImprimerTableCompacte(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  FormeEnRangees forme{.titre = kNom, .places = {}, .avantIntitule = "   "};
  for (std::size_t k = 0; k < facteurs; ++k)
    for (const PlaceEnRangee& place : {PlaceEnRangee{"", 7}, kPlacePourMille}) forme.places.push_back(place);
  ImprimerTable(rapport,
                {.regle = Repeter("*---", "*------*----", facteurs, "*"),
                 .actifs = TeteDesFacteurs("ACT.", facteurs, "    ", "  CPF"),
                 .supplementaires = TeteDesFacteurs("SUP.", facteurs, "    ", "  CPF"),
                 .ensemble = [&] { rapport.Ligne(Repeter("*   ", "*      *1000", facteurs, "*")); },
                 .elements =
                     [&](Tranche positions) {
                       ImprimerParTranches(rapport, positions, forme,
                                           [&](Tranche tranche) { return TableCompacte(dimension, analyse, tranche); });
                     }},
                dimension.elements);
  rapport.Ligne();
}

// QLT, then three places a factor.
FormeEnRangees FormeEtendue(std::size_t facteurs, std::string_view fin) {
  FormeEnRangees forme{.titre = kNom, .places = {kPlacePourMille}, .avantIntitule = fin};
  for (std::size_t k = 0; k < facteurs; ++k)
    for (const PlaceEnRangee& place : {PlaceEnRangee{"!", 6}, kPlacePourMille, kPlacePourMille})
      forme.places.push_back(place);
  return forme;
}

void ImprimerTableEtendue(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  const FormeEnRangees forme = FormeEtendue(facteurs, "! ");
  ImprimerTable(
      rapport,
      {.regle = Repeter("*---*----", "*------*----*----", facteurs, "*"),
       .actifs = TeteDesFacteurs("ACT.  QLT", facteurs, "!   ", " COS2  CPF") + "!",
       .supplementaires = TeteDesFacteurs("SUP.  QLT", facteurs, "!   ", " COS2  CPF") + "!",
       .ensemble = [&] { ImprimerRangees(rapport, MoyenneEtendue(dimension, analyse), FormeEtendue(facteurs, "!")); },
       .elements =
           [&](Tranche positions) {
             ImprimerParTranches(rapport, positions, forme,
                                 [&](Tranche tranche) { return TableEtendue(dimension, analyse, tranche); });
           }},
      dimension.elements);
}

}  // namespace

void ImprimerTablesCompactes(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                             const AnalyseAnecar& analyse) {
  rapport.Ligne("Coordonnees factorielles (F= ) et  contributions pour le facteur (CPF)");
  if (plan.burt < 1) {
    rapport.Ligne("Lignes du tableau");
    ImprimerTableCompacte(rapport, DimensionDesLignes(tableau, analyse), analyse);
  }
  rapport.Ligne("Modalites en colonne");
  ImprimerTableCompacte(rapport, DimensionDesColonnes(plan, analyse), analyse);
}

void ImprimerTablesEtendues(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                            const AnalyseAnecar& analyse) {
  rapport.Ligne("Somme des Cos2 pour le facteurs affichés (QLT)"_w);
  rapport.Ligne("Coordonnees factorielles (F= )");
  rapport.Ligne("Contributions pour la variable(COS2) et contributions pour le facteur(CPF)");
  rapport.Ligne("Lignes du tableau");
  ImprimerTableEtendue(rapport, DimensionDesLignes(tableau, analyse), analyse);
  rapport.Ligne("Modalites en colonne");
  ImprimerTableEtendue(rapport, DimensionDesColonnes(plan, analyse), analyse);
}

}  // namespace quelvar::factor
