#include "tables/edition.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/resultats/rangees.h"
#include "core/texte/caracteres.h"

namespace quelvar::tables {

namespace {

constexpr int kLargeurLigne = 4;  // of a row label
// What stands in front of the labels of the columns: in the first two tables, and in the others.
constexpr std::string_view kRetraitDesDeuxPremiers = "     ";
constexpr std::string_view kRetrait = "       ";
// The lines of blanks that part the tables.
constexpr std::size_t kBlancsDevantUnTableau = 7;
constexpr std::size_t kBlancsDevantLesTheoriques = 6;

std::string_view SuiteDeLaPhrase(OrdresTries tries) {
  if (tries.lignes && tries.colonnes)
    return "'ordre des lignes et des colonnes est celui du premier facteur de l'AFC du tableau";
  if (tries.colonnes) return "'ordre d'origine des lignes du tableau a été conservé"_w;
  if (tries.lignes) return "'ordre d'origine des colonnes du tableau a été conservé"_w;
  return "'ordre d'origine des lignes et des colonnes du tableau a été conservé"_w;
}

// A cell is one wider than in the table file; so is the label above it.
PlaceEnRangee PlaceDeCase(const Presentation& presentation) {
  return {.entiers = presentation.largeur + 1, .titre = TitreDeColonne::AGauche};
}
PlaceEnRangee PlaceDeTotal(const Presentation& presentation) {
  return {.avant = " ", .entiers = presentation.largeur + 1, .avantTitre = " "};
}

// The places of a table with these columns and what follows them; the heading begins behind `retrait`.
FormeEnRangees FormeDeTable(const Presentation& presentation, std::size_t colonnes, std::string_view retrait,
                            std::initializer_list<PlaceEnRangee> totaux) {
  FormeEnRangees forme{.titre = kLargeurLigne};
  forme.places.assign(colonnes, PlaceDeCase(presentation));
  forme.places.insert(forme.places.end(), totaux);
  forme.places.front().avantTitre = retrait;
  return forme;
}

// The heading of a table: the labels of its columns.
TableauEdite Tete(const Presentation& presentation) {
  TableauEdite tete;
  for (const std::string_view colonne : presentation.colonnes) tete.colonnes.push_back({std::string(colonne)});
  return tete;
}

Rangee RangeeDe(std::string_view titre, std::span<const double> valeurs, int decimales) {
  Rangee rangee{std::string(titre)};
  rangee.cellules.reserve(valeurs.size() + 2);
  for (const double valeur : valeurs) rangee.cellules.push_back({valeur, Unite::Nombre, decimales});
  return rangee;
}

// The rows go to the driver one by one: the cells of a large table are not held twice.
void ImprimerSansTotaux(Rapport& rapport, const Presentation& presentation, const Matrice& cellules) {
  constexpr int kDecimales = 1;
  const FormeEnRangees forme = FormeDeTable(presentation, cellules.Colonnes(), kRetrait, {});
  ImprimeurDeRangees imprimeur(rapport, forme, cellules.Colonnes());
  imprimeur.Tete(Tete(presentation));
  for (std::size_t i = 0; i < cellules.Lignes(); ++i)
    imprimeur.Imprimer(RangeeDe(presentation.lignes[i], cellules.Ligne(i), kDecimales));
}

void ImprimerAvecTotaux(Rapport& rapport, const Presentation& presentation, std::string_view retrait,
                        const Matrice& cellules, const crosstab::Marges& marges, int decimales) {
  const FormeEnRangees forme = FormeDeTable(presentation, cellules.Colonnes(), retrait, {PlaceDeTotal(presentation)});
  TableauEdite tete = Tete(presentation);
  tete.colonnes.push_back({"TOT."});
  ImprimeurDeRangees imprimeur(rapport, forme, tete.colonnes.size());
  imprimeur.Tete(tete);
  const auto imprimer = [&](std::string_view titre, std::span<const double> valeurs, double total) {
    Rangee rangee = RangeeDe(titre, valeurs, decimales);
    rangee.cellules.push_back({total, Unite::Nombre, decimales});
    imprimeur.Imprimer(rangee);
  };
  for (std::size_t i = 0; i < cellules.Lignes(); ++i)
    imprimer(presentation.lignes[i], cellules.Ligne(i), marges.lignes[i]);
  imprimer("TOT.", marges.colonnes, marges.total);
}

// Percentages of the rows, with the share of each row behind 100.
void ImprimerPourcentages(Rapport& rapport, const Presentation& presentation,
                          const crosstab::DetailsDuTableau& details) {
  constexpr int kDecimales = 1;
  const Cellule cent{100.0, Unite::Pourcent};
  const FormeEnRangees forme = FormeDeTable(
      presentation, presentation.colonnes.size(), kRetraitDesDeuxPremiers,
      {{.avant = "  ", .entiers = 3, .avantTitre = "   "}, {.avant = " ", .entiers = presentation.largeur + 1}});
  TableauEdite tete = Tete(presentation);
  tete.colonnes.insert(tete.colonnes.end(), {{"TOT."}, {}});
  ImprimeurDeRangees imprimeur(rapport, forme, tete.colonnes.size());
  imprimeur.Tete(tete);
  for (std::size_t i = 0; i < presentation.lignes.size(); ++i) {
    Rangee rangee = RangeeDe(presentation.lignes[i], details.pourcentages.Ligne(i), kDecimales);
    rangee.cellules.insert(rangee.cellules.end(), {cent, {details.partsLignes[i], Unite::Pourcent, kDecimales}});
    imprimeur.Imprimer(rangee);
  }
  Rangee pied = RangeeDe("TOT.", details.partsColonnes, kDecimales);
  pied.cellules.push_back(cent);
  pied.intitule = "   100";  // whatever the width of the shares above it
  imprimeur.Imprimer(pied);
}

// The coordinates under the labels of their elements.
void ImprimerAxe(Rapport& rapport, std::span<const std::string_view> intitules, std::span<const double> coordonnees,
                 int largeur) {
  const PlaceEnRangee place{.entiers = largeur, .titre = TitreDeColonne::ADroite};
  PlaceEnRangee premiere = place;
  premiere.avant = "  ";
  premiere.avantTitre = "     ";
  ImprimerRangees(rapport, TableDeLAxe(intitules, coordonnees), {.places = {premiere, place}});
  rapport.Ligne();
}

// The rows up to the first whose figure has no value: there the report stops.
void ImprimerValeurs(Rapport& rapport, std::span<const Rangee> rangees, const std::vector<PlaceEnRangee>& places) {
  const auto manque = [](const Rangee& rangee) {
    const Cellule& figure = rangee.cellules.front();
    return !figure.valeur && figure.marque.empty();
  };
  const auto fin = std::ranges::find_if(rangees, manque);
  ImprimerListe(rapport, {rangees.begin(), fin}, places);
  if (fin != rangees.end()) throw Erreur(kDivisionParZero);
}

}  // namespace

void ImprimerFacteur(Rapport& rapport, const Presentation& presentation, const crosstab::PremierFacteur& facteur) {
  const int largeur = presentation.largeur + 3;
  rapport.Ligne("Coordonnées factorielles du premier facteur de l'analyse des correspondances"_w);
  ImprimerAxe(rapport, presentation.colonnes, facteur.colonnes, largeur);
  ImprimerAxe(rapport, presentation.lignes, facteur.lignes, largeur);
  constexpr int kDecimales = 4;
  const Rangee valeurPropre{
      Joindre({"Première valeur propre="_w}), {}, {{facteur.valeurPropre, Unite::Nombre, kDecimales}}};
  ImprimerListe(rapport, {&valeurPropre, 1}, {{.entiers = presentation.largeur}});
}

void ImprimerTableaux(Rapport& rapport, const Presentation& presentation, const TableauxAEditer& tableaux,
                      OrdresTries tries) {
  constexpr int kEffectifs = 0;
  constexpr int kTheoriques = 1;
  const crosstab::DetailsDuTableau& details = tableaux.details;
  const crosstab::Marges& marges = tableaux.table.marges;
  const auto sansTotaux = [&](const Matrice& cellules) { ImprimerSansTotaux(rapport, presentation, cellules); };

  if (tries.lignes || tries.colonnes) rapport.Ligne({"Impression du tableau de données : l"_w, SuiteDeLaPhrase(tries)});
  else rapport.Ligne("Impression du tableau de données dans l'ordre d'origine des lignes et des colonnes"_w);
  ImprimerAvecTotaux(rapport, presentation, kRetraitDesDeuxPremiers, tableaux.table.effectifs, marges, kEffectifs);
  rapport.Ligne();
  rapport.Ligne(Blancs(kBlancsDevantUnTableau));
  rapport.Ligne("Pourcentages en lignes et des marges ");
  ImprimerPourcentages(rapport, presentation, details);
  rapport.Ligne();
  rapport.Ligne(Blancs(kBlancsDevantUnTableau));
  rapport.Ligne("Différence au pourcentage moyen"_w);
  sansTotaux(details.differences);
  rapport.Ligne();
  rapport.Ligne(Blancs(kBlancsDevantLesTheoriques));
  rapport.Ligne("Impression des effectifs théoriques"_w);
  ImprimerAvecTotaux(rapport, presentation, kRetrait, details.theoriques, marges, kTheoriques);
  rapport.Ligne();
  rapport.Ligne("Impression des écarts à l'indépendance"_w);
  sansTotaux(details.ecarts);
  rapport.Ligne();
  rapport.Ligne("Impression du tableau diagonalisé (diagonale chargée au maximum)"_w);
  ImprimerAvecTotaux(rapport, presentation, kRetrait, tableaux.maximum, marges, kEffectifs);
  rapport.Ligne();
  rapport.Ligne("Impression des contributions au Khi-deux ");
  sansTotaux(details.contributions);
  rapport.Ligne();
  rapport.Ligne("Impression des PEM  ");
  sansTotaux(tableaux.attractions.pem);
  rapport.Ligne();
  rapport.Ligne("Impression des Khi-deux relatifs à chaque PEM "_w);
  sansTotaux(tableaux.attractions.khi2);
}

void ImprimerPartDuFacteur(Rapport& rapport, const PartDuFacteur& part, int largeur) {
  ImprimerListe(rapport, RangeesDeLaPart(part), {{.entiers = largeur}});
}

void ImprimerIndices(Rapport& rapport, const IndicesGlobaux& indices, OrdresTries tries, int largeur) {
  const auto somme = [&](std::string_view avant) { return PlaceEnRangee{avant, largeur + 1}; };
  const auto pourcent = [](std::string_view avant) { return PlaceEnRangee{avant, 3}; };
  const PlaceEnRangee compte{" = "};
  if (!tries.lignes || !tries.colonnes) {
    rapport.Ligne("*** Attention, le PEM, le Khideux max et le Gamma n'ont de sens que si");
    rapport.Ligne("    le tableau a été maximisé dans l'ordre du premier facteur d'une AFC ***"_w);
  }
  ImprimerValeurs(rapport, RangeesDesIndices(indices),
                  {somme(" = "), somme("= "), pourcent("   ="), somme("= "), somme("= "), pourcent("="), compte, compte,
                   pourcent("="), PlaceEnRangee{" = ", 1}});
}

void ImprimerGamma(Rapport& rapport, Texte titre, const Gamma& gamma) {
  const TableauEdite table = TableDeGamma(gamma);
  const std::span<const Rangee> rangees = table.rangees;
  constexpr int kEntiers = 3;
  rapport.Ligne(titre);
  rapport.Ligne();
  rapport.Lignes(table.titres);
  ImprimerValeurs(rapport, rangees.first(2), {{"        =", kEntiers}, {"    =", kEntiers}});
  rapport.Ligne();
  ImprimerValeurs(rapport, rangees.subspan(2), {{" =", kEntiers}});
  rapport.Ligne();
}

void ImprimerOrdre(Rapport& rapport, OrdresTries tries) { rapport.Ligne({"L", SuiteDeLaPhrase(tries)}); }

void ImprimerNombreDeLiens(Rapport& rapport, std::size_t liens, SeuilAnnonce seuil, OrigineDesLiens origine) {
  if (liens == 0) return;
  const std::string nombre = NombreNu(liens);
  switch (seuil) {
    case SeuilAnnonce::Aucun:
    case SeuilAnnonce::Gendat:
      rapport.Ligne(
          {std::string_view(origine == OrigineDesLiens::Burt ? "Nombre total de PEM (significatifs ou non) ="
                                                             : "Nombre total de PEM positifs (significatifs ou non) ="),
           nombre});
      rapport.Ligne("(Seuil à 10%=2,7 ; à 5%=3,8 ; à 1%=6,6)"_w);
      return;
    case SeuilAnnonce::DixPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 10% =", nombre}); break;
    case SeuilAnnonce::CinqPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 5% =", nombre}); break;
    case SeuilAnnonce::UnPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 1% =", nombre}); break;
  }
  rapport.Ligne();
}

}  // namespace quelvar::tables
