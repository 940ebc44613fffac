#include "factor/analyse/edition.h"

#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/panne/erreur.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "core/resultats/tete.h"
#include "factor/analyse/fichiers.h"
#include "factor/analyse/tables.h"

namespace quelvar::factor {

namespace {

constexpr int kDecimalesAuPlus = 99;
constexpr std::size_t kLignesSurTroisChiffres = 1000;

// Columns of the places.
constexpr int kNom = 4;
constexpr int kNomDeListe = 5;  // of a sorted listing
constexpr int kCoordonnee = 7;
constexpr int kCoordonneeEtendue = 6;  // beside its COS2
constexpr int kPourMille = 5;
constexpr int kTitreUsuel = 4;  // "COS2", "F=10"; "F=100" takes one more
constexpr PlaceEnRangee kPlacePourMille{"", kPourMille, Elargissement::Entier};

std::string Repeter(std::string_view debut, std::string_view motif, std::size_t fois, std::string_view fin) {
  std::string texte(debut);
  for (std::size_t i = 0; i < fois; ++i) texte += motif;
  texte += fin;
  return texte;
}

}  // namespace

void ImprimerInconnus(Rapport& rapport, const std::vector<std::string>& noms) {
  for (const std::string& nom : noms) {
    rapport.Ligne();
    rapport.Ligne({"Intitule court ", nom, " non trouve"});
    rapport.Ligne();
  }
}

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
  constexpr int kEntiersDeLInertie = 7;
  constexpr int kDecimalesDeLInertie = 6;
  const bool acp = analyse.type == TypeAnalyse::Acp;
  const std::string_view titre =
      acp ? "ACP : Analyse en composantes principales des ecarts" : "AFC : Analyse des correspondances";
  rapport.Ligne();
  rapport.Ligne(titre);
  rapport.Ligne(std::string(titre.size(), '*'));
  rapport.Ligne();
  rapport.Ligne({acp ? "La somme des carrés est de :"_w : "Le phi-deux est de :"_w,
                 NombreFixe(analyse.ecarts.Inertie(analyse.type), kEntiersDeLInertie, kDecimalesDeLInertie)});
  rapport.Ligne();
}

void ImprimerNombreDeFacteurs(Rapport& rapport, int nombre) {
  rapport.Ligne();
  rapport.Ligne({kNombreDeFacteurs, "  ", Nombre(nombre)});
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
    rapport.Ligne({kAttention, "le facteur n'a pas convergé après"_w, NombreNu(facteur.tours),
                   "itérations, il est gardé en l'état"_w});
  rapport.Ligne();
  rapport.Ligne({kValeurPropre, " ", TexteEnColonne(cellules[0], kLargeurValeurPropre)});
  rapport.Ligne({kPourcentage, TexteEnColonne(cellules[1], kLargeurPourcentage)});
  rapport.Ligne();
}

void ImprimerEchelle(Rapport& rapport, double echelle) {
  if (echelle == 1) return;
  rapport.Ligne({"Les coordonnées sont multipliées par "_w, Nombre(static_cast<std::int64_t>(echelle)),
                 " : la plus grande a moins de trois chiffres en millièmes"_w});
}

namespace {

// What tells the listing of rows from that of columns.
struct MotsListe {
  std::string_view numero;  // title of its column
  std::string_view actifs;
  std::string_view supplementaires;
  int largeurIndice;
};

// A place under a title that is set right in columns of its own: the titles are not as wide as their places.
PlaceEnRangee SousUnTitre(PlaceEnRangee place, int colonnesDuTitre, std::string_view derriereTitre = {}) {
  place.titre = TitreDeColonne::ADroite;
  place.colonnesDuTitre = colonnesDuTitre;
  place.derriereTitre = derriereTitre;
  return place;
}

FormeEnRangees FormeTriee(int largeurIndice) {
  return {.places = {SousUnTitre({"", largeurIndice, Elargissement::Entier}, 3), SousUnTitre({" ", kNomDeListe}, 4),
                     SousUnTitre({"", kCoordonnee}, 10), SousUnTitre(kPlacePourMille, 4, "         Intitule long")},
          .avantIntitule = "    "};
}

// With the heading of the columns, or rows alone.
void ImprimerElements(Rapport& rapport, const ListeTriee& liste, const std::vector<std::size_t>& positions,
                      int largeurIndice, const std::vector<Colonne>& colonnes) {
  const FormeEnRangees forme = FormeTriee(largeurIndice);
  ImprimeurDeRangees imprimeur(rapport, forme, forme.places.size());
  imprimeur.Tete({.colonnes = colonnes});
  for (const std::size_t position : positions) imprimeur.Imprimer(RangeeTriee(liste.elements, liste.cote, position));
}

std::string LigneFacteur(std::size_t k, std::string_view suite) {
  return Joindre({"Facteur ", EntierDroit(static_cast<std::int64_t>(k), 2), suite});
}

void ImprimerActifsTries(Rapport& rapport, const ListeTriee& liste, std::size_t k, const MotsListe& mots) {
  if (liste.elements.actifs == 0) return;
  rapport.Ligne(LigneFacteur(k, mots.actifs));
  ImprimerElements(rapport, liste, liste.actifs, mots.largeurIndice, ColonnesTriees(mots.numero));
}

}  // namespace

void ImprimerLignesTriees(Rapport& rapport, const ListeTriee& liste, std::size_t k) {
  const MotsListe mots{"I", " Impression des lignes   actives du tableau",
                       " Impression des lignes   suppl.   du tableau",
                       liste.elements.Nombre() > kLignesSurTroisChiffres ? 4 : 3};
  ImprimerActifsTries(rapport, liste, k, mots);
  if (liste.elements.Supplementaires() == 0) return;
  rapport.Ligne(" ");
  rapport.Ligne(mots.supplementaires);
  ImprimerElements(rapport, liste, liste.supplementaires, mots.largeurIndice, {});
}

void ImprimerColonnesTriees(Rapport& rapport, const ListeTriee& liste, std::size_t k) {
  const MotsListe mots{"J", " Impression des colonnes actives du tableau",
                       " Impression des colonnes suppl.   du tableau", 3};
  ImprimerActifsTries(rapport, liste, k, mots);
  if (liste.elements.Supplementaires() == 0) return;
  rapport.Ligne();
  rapport.Ligne(LigneFacteur(k, mots.supplementaires));
  ImprimerElements(rapport, liste, liste.supplementaires, mots.largeurIndice, {});
}

namespace {

constexpr int kNomDeLigne = 5;  // with the blank behind it
constexpr int kEntiersDesEcarts = 5;
constexpr PlaceEnRangee kPlaceDEcart{"", kEntiersDesEcarts};
constexpr PlaceEnRangee kDerniereMesure{.entiers = kEntiersDesEcarts, .avantTitre = " "};

// The cells of the deviations all stand in the same place.
FormeEnRangees FormeDesEcarts() { return {.titre = kNomDeLigne, .places = {kPlaceDEcart}}; }

// The same with their titles: set left in the columns that a cell takes with its decimals.
PlaceEnRangee SousUnNom(std::string_view avant, int colonnes, int decimales) {
  PlaceEnRangee place = kPlaceDEcart;
  place.titre = TitreDeColonne::AGauche;
  place.avantTitre = avant;
  place.colonnesDuTitre = colonnes + decimales;
  return place;
}

// Raises kArgumentIncorrect for decimals that nobody could print.
FormeEnRangees FormeDesEcarts(std::size_t colonnes, int decimales) {
  if (decimales > kDecimalesAuPlus) throw Erreur(kArgumentIncorrect);
  FormeEnRangees forme{.titre = kNomDeLigne};
  forme.places.assign(colonnes, SousUnNom("", kEntiersDesEcarts + 1, decimales));
  if (colonnes > 0) forme.places.front().avantTitre = "        ";
  return forme;
}

// A row of one measure, and behind it one of the factor in a place of its own.
std::string LigneDeMesure(Rangee mesure, const Cellule& duFacteur, const PlaceEnRangee& place) {
  FormeEnRangees forme = FormeDesEcarts();
  forme.places.resize(mesure.cellules.size(), forme.places.front());
  forme.places.push_back(place);
  mesure.cellules.push_back(duFacteur);
  return TexteDeRangee(mesure, forme);
}

}  // namespace

void ImprimerEcartsRestants(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const EcartsRestants& restants, int decimales) {
  rapport.Ligne("Ecarts à l'indépendance restants"_w);
  const FormeEnRangees forme = FormeDesEcarts(restants.d.Colonnes(), decimales);
  ImprimeurDeRangees imprimeur(rapport, forme, restants.d.Colonnes());
  imprimeur.Tete({.colonnes = ColonnesDesEcarts(colonnes)});
  for (std::size_t i = 0; i < restants.d.Lignes(); ++i)
    imprimeur.Imprimer(RangeeDesEcarts(lignes.noms[i], restants.d.Ligne(i), restants.effectif, decimales));
}

void ImprimerReconstitution(Rapport& rapport, const ElementsAnecar& lignes, const ElementsAnecar& colonnes,
                            const Reconstitution& reconstitution, int decimales) {
  rapport.Ligne("Reconstitution des écarts à l'indépendance restants"_w);
  FormeEnRangees forme = FormeDesEcarts(reconstitution.effectifs.Colonnes(), decimales);
  for (const PlaceEnRangee& place : {SousUnNom(" ", 4, decimales), SousUnNom("  ", 3, decimales), kDerniereMesure})
    forme.places.push_back(place);
  ImprimeurDeRangees imprimeur(rapport, forme, reconstitution.effectifs.Colonnes() + kMesuresDUneLigne);
  imprimeur.Tete({.colonnes = ColonnesReconstituees(colonnes)});
  for (std::size_t i = 0; i < reconstitution.effectifs.Lignes(); ++i)
    imprimeur.Imprimer(RangeeReconstituee(lignes.noms[i], reconstitution, decimales, i));

  const auto mesure = [&](std::string titre, double ElementReconstitue::*laquelle) {
    return MesureDesColonnes(std::move(titre), reconstitution, laquelle, decimales);
  };
  rapport.Ligne(LigneDeMesure(mesure(" PJ", &ElementReconstitue::part), {reconstitution.effectif}, {"    100=", 4}));
  rapport.Ligne(LigneDeMesure(mesure(" FJ", &ElementReconstitue::coordonnee),
                              {reconstitution.valeurSinguliere, Unite::Nombre, 7}, {"    Ksi=", 1}));
  rapport.Ligne(TexteDeRangee(mesure("Semi", &ElementReconstitue::semi), FormeDesEcarts()));
}

namespace {

// A table of coordinates in its frame: active elements, a line on them all, supplementary ones if there are any.
struct CadreDeTable {
  std::string regle;
  std::string actifs, ensemble, supplementaires;  // heads, and the line on all active elements
  FormeEnRangees forme;
  Rangee (*rangee)(const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t position);
};

void ImprimerTable(Rapport& rapport, const CadreDeTable& cadre, const Dimension& dimension,
                   const AnalyseAnecar& analyse) {
  const ElementsAnecar& elements = dimension.elements;
  const auto imprimer = [&](std::size_t premier, std::size_t fin) {
    ImprimeurDeRangees imprimeur(rapport, cadre.forme, cadre.forme.places.size());
    for (std::size_t i = premier; i < fin; ++i) imprimeur.Imprimer(cadre.rangee(dimension, analyse, i));
  };
  rapport.Ligne(cadre.regle);
  rapport.Ligne(cadre.actifs);
  rapport.Ligne(cadre.regle);
  imprimer(0, elements.actifs);
  rapport.Ligne(cadre.regle);
  rapport.Ligne(cadre.ensemble);
  rapport.Ligne(cadre.regle);
  if (elements.Supplementaires() == 0) return;
  rapport.Ligne(cadre.supplementaires);
  rapport.Ligne(cadre.regle);
  imprimer(elements.actifs, elements.Nombre());
  rapport.Ligne(cadre.regle);
}

void ImprimerTableCompacte(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  FormeEnRangees forme{.titre = kNom, .avantIntitule = "   "};
  for (std::size_t k = 0; k < facteurs; ++k)
    for (const PlaceEnRangee& place : {PlaceEnRangee{"", kCoordonnee}, kPlacePourMille}) forme.places.push_back(place);
  const std::vector<Colonne> colonnes = ColonnesCompactes(facteurs);
  ImprimerTable(rapport,
                {Repeter("*---", "*------*----", facteurs, "*"), TeteADroite("ACT.", colonnes, forme, kTitreUsuel),
                 Repeter("*   ", "*      *1000", facteurs, "*"), TeteADroite("SUP.", colonnes, forme, kTitreUsuel),
                 forme, RangeeCompacte},
                dimension, analyse);
  rapport.Ligne();
}

// QLT, then three places a factor.
FormeEnRangees FormeEtendue(std::size_t facteurs, std::string_view fin) {
  FormeEnRangees forme{.titre = kNom, .places = {kPlacePourMille}, .avantIntitule = fin};
  for (std::size_t k = 0; k < facteurs; ++k)
    for (const PlaceEnRangee& place : {PlaceEnRangee{"!", kCoordonneeEtendue}, kPlacePourMille, kPlacePourMille})
      forme.places.push_back(place);
  return forme;
}

void ImprimerTableEtendue(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  const FormeEnRangees forme = FormeEtendue(facteurs, "! ");
  const std::vector<Colonne> colonnes = ColonnesEtendues(facteurs);
  ImprimerTable(rapport,
                {Repeter("*---*----", "*------*----*----", facteurs, "*"),
                 TeteADroite("ACT.", colonnes, forme, kTitreUsuel) + "!",
                 TexteDeRangee(MoyenneEtendue(dimension, analyse), FormeEtendue(facteurs, "!")),
                 TeteADroite("SUP.", colonnes, forme, kTitreUsuel) + "!", forme, RangeeEtendue},
                dimension, analyse);
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
