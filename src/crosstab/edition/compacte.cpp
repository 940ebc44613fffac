#include <algorithm>
#include <iterator>

#include "core/enquete/posfile.h"
#include "core/resultats/cellules.h"
#include "core/resultats/largeurfixe.h"
#include "core/resultats/rangees.h"
#include "crosstab/edition/editions.h"

namespace quelvar::crosstab {

namespace {

constexpr int kColonnesDEffectif = 5;
constexpr std::size_t kLargeurEtiquette = 5;  // of a row label with the blank behind it
constexpr std::size_t kNomCoupe = 4;          // of a label that heads a column
constexpr PlaceEnRangee kPlaceDePourcentage{.entiers = 3};
constexpr PlaceEnRangee kPlaceDeCent{" ", 3};
constexpr PlaceEnRangee kPlaceDeSigne{"  ", 3};
constexpr std::string_view kCentDuPied = " 100 ";
constexpr std::string_view kCoinDesCodes = "Modal.  ";
constexpr std::string_view kTotal = "TOT";
constexpr std::string_view kTotalLigne = " TOT ";

// Tables laid out for the report alone, side by side: one row a modality and that of the totals, under a heading of
// names and one of codes.
struct Bandes {
  TableauEdite noms;
  TableauEdite corps;
  FormeEnRangees formeDesNoms = {};
  FormeEnRangees forme = {};
};

std::string Etiquette(std::string_view texte) {
  return Joindre({texte, std::string_view(texte.size() < kLargeurEtiquette ? " " : "")});
}

// The rows of the table, and that of the totals; `nom`, unless it is empty, stands for the labels of all.
Bandes Commencer(const TableauTitre& titre, std::string_view coin, std::string_view nom = {}) {
  // Counts, percentages and signs, with the totals of the first two.
  const std::size_t colonnes = 3 * titre.tableau.colonnes.size() + 3;
  Bandes bandes{{.coin = std::string(coin)}, {.coin = std::string(kCoinDesCodes)}};
  bandes.noms.colonnes.reserve(colonnes);
  bandes.corps.colonnes.reserve(colonnes);
  bandes.formeDesNoms.places.reserve(colonnes);
  bandes.forme.places.reserve(colonnes);
  bandes.corps.rangees.reserve(titre.tableau.lignes.size() + 1);
  for (const std::size_t i : titre.tableau.lignes)
    bandes.corps.rangees.push_back({Etiquette(nom.empty() ? titre.IntituleLigne(i) : nom)});
  bandes.corps.rangees.push_back({std::string(kTotalLigne)});
  for (Rangee& rangee : bandes.corps.rangees) rangee.cellules.reserve(colonnes);
  return bandes;
}

// A title of a heading with its place.
struct TitrePlace {
  std::string titre;
  PlaceEnRangee place;
};

void AjouterColonne(Bandes& bandes, TitrePlace nom, TitrePlace code) {
  bandes.noms.colonnes.push_back({std::move(nom.titre)});
  bandes.formeDesNoms.places.push_back(nom.place);
  bandes.corps.colonnes.push_back({std::move(code.titre)});
  bandes.forme.places.push_back(code.place);
}

// Totals have no name above them.
void AjouterTotal(Bandes& bandes, std::string titre, const PlaceEnRangee& place) {
  AjouterColonne(bandes, {{}, {.entiers = place.entiers, .enPlus = place.enPlus}}, {std::move(titre), place});
}

// What stands in front of the first column of a band: of its name, of its code and of its rows.
struct Ecart {
  std::string_view nom = " ", code = " ", rangee = {};
};

// Of percentages beside counts.
constexpr Ecart kDerriereLesEffectifs{"        ", "     ", "  "};

enum class Entete { Codes, Intitules };

// A column a modality, headed by the name of the question, and below by the code or the label.
void AjouterModalites(Bandes& bandes, const TableauTitre& titre, const PlaceEnRangee& place, const Ecart& ecart,
                      Entete entete) {
  const bool intitules = entete == Entete::Intitules;
  Ecart avant = ecart;
  for (const std::size_t j : titre.tableau.colonnes) {
    const auto code = static_cast<int>(titre.tableau.compte.rangsColonnes[j]);
    PlaceEnRangee placeDuNom{
        .entiers = place.entiers, .enPlus = place.enPlus, .avantTitre = avant.nom, .derriereTitre = " "};
    PlaceEnRangee placeDuCode = place;
    placeDuCode.avant = avant.rangee;
    placeDuCode.avantTitre = intitules ? "" : avant.code;
    placeDuCode.derriereTitre = intitules ? " " : "   ";
    AjouterColonne(
        bandes, {titre.colonne.nom, placeDuNom},
        {std::string(intitules ? Milieu(titre.IntituleColonne(j), 1, kNomCoupe) : CodeCaractere(code)), placeDuCode});
    avant = {.rangee = place.avant};
  }
}

// Counts and their totals, all of them as wide as the whole total wants to be.
void AjouterEffectifs(Bandes& bandes, const TableauTitre& titre, const TablesCroisees& tables,
                      Entete entete = Entete::Codes) {
  const int enPlus = ColonnesEnPlus(titre.tableau.compte.marges.total, 0, kColonnesDEffectif);
  const PlaceEnRangee place{.entiers = kColonnesDEffectif, .enPlus = enPlus};
  AjouterModalites(bandes, titre, place, {}, entete);
  AjouterTotal(bandes, std::string(kTotal), place);
  for (std::size_t rang = 0; rang < bandes.corps.rangees.size(); ++rang)
    std::ranges::copy(tables.effectifs.rangees[rang].cellules, std::back_inserter(bandes.corps.rangees[rang].cellules));
}

// Row percentages, 100, and the share of the row, which is 100 again in the row of the totals.
void AjouterPourcentages(Bandes& bandes, const TableauTitre& titre, const TablesCroisees& tables, const Ecart& ecart,
                         const PlaceEnRangee& placeDeCent = kPlaceDeCent, Entete entete = Entete::Codes) {
  AjouterModalites(bandes, titre, kPlaceDePourcentage, ecart, entete);
  AjouterTotal(bandes, std::string(kTotal), placeDeCent);
  AjouterTotal(bandes, {}, kPlaceDePourcentage);
  const std::size_t cent = titre.tableau.colonnes.size();
  for (std::size_t rang = 0; rang < bandes.corps.rangees.size(); ++rang) {
    const std::vector<Cellule>& cellules = tables.pourcentages.rangees[rang].cellules;
    std::vector<Cellule>& places = bandes.corps.rangees[rang].cellules;
    for (std::size_t j = 0; j < cellules.size(); ++j)
      places.push_back({cellules[j].valeur, cellules[j].unite, cellules[j].decimales, j == cent ? " " : ""});
  }
  bandes.corps.rangees.back().cellules.pop_back();
  bandes.corps.rangees.back().intitule = kCentDuPied;
}

void AjouterSignes(Bandes& bandes, const TableauTitre& titre, const TablesCroisees& tables, const Ecart& ecart) {
  AjouterModalites(bandes, titre, kPlaceDeSigne, ecart, Entete::Codes);
  for (std::size_t rang = 0; rang < titre.tableau.lignes.size(); ++rang)
    for (std::size_t j = 0; j < titre.tableau.colonnes.size(); ++j)
      bandes.corps.rangees[rang].cellules.push_back(CelluleTexte(tables.pourcentages.rangees[rang].cellules[j].marque));
}

void Imprimer(Rapport& rapport, Bandes bandes) {
  while (bandes.noms.colonnes.back().titre.empty()) bandes.noms.colonnes.pop_back();  // nothing behind the last name
  ImprimerRangees(rapport, bandes.noms, bandes.formeDesNoms);
  ImprimerRangees(rapport, bandes.corps, bandes.forme);
}

// The signs alone, which have no totals.
void ImprimerSignes(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables) {
  Bandes bandes = Commencer(titre, "  COL:");
  bandes.corps.rangees.pop_back();
  AjouterSignes(bandes, titre, tables, {.rangee = "    "});
  Imprimer(rapport, std::move(bandes));
}

void ImprimerTroisBandes(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, bool ordrePem) {
  const Entete entete = ordrePem ? Entete::Intitules : Entete::Codes;
  Bandes effectifs = Commencer(titre, " COL:");
  AjouterEffectifs(effectifs, titre, tables, entete);
  Imprimer(rapport, std::move(effectifs));
  rapport.Ligne();
  Bandes pourcentages = Commencer(titre, "COL:");
  AjouterPourcentages(pourcentages, titre, tables, {}, kPlaceDeCent, entete);
  Imprimer(rapport, std::move(pourcentages));
  rapport.Ligne();
  ImprimerSignes(rapport, titre, tables);
}

// Counts beside percentages, and the signs beside them too.
void ImprimerUneBande(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables) {
  Bandes bandes = Commencer(titre, "  COL: ");
  AjouterEffectifs(bandes, titre, tables);
  AjouterPourcentages(bandes, titre, tables, kDerriereLesEffectifs);
  AjouterSignes(bandes, titre, tables, {"           ", "        ", "    "});
  Imprimer(rapport, std::move(bandes));
}

// Counts beside percentages, the signs below. The rows of the triangular edition bear the name of their question.
void ImprimerDeuxBandes(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, Edition edition) {
  Bandes bandes = Commencer(titre, "  COL: ", edition == Edition::Triangulaire ? titre.ligne.nom : std::string());
  AjouterEffectifs(bandes, titre, tables);
  PlaceEnRangee placeDeCent = kPlaceDeCent;
  placeDeCent.avantTitre = " ";
  AjouterPourcentages(bandes, titre, tables, kDerriereLesEffectifs, placeDeCent);
  Imprimer(rapport, std::move(bandes));
  rapport.Ligne();
  ImprimerSignes(rapport, titre, tables);
}

}  // namespace

void ImprimerEditionCompacte(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, Edition edition,
                             bool ordrePem) {
  switch (edition) {
    case Edition::TroisBandes: return ImprimerTroisBandes(rapport, titre, tables, ordrePem);
    case Edition::UneBande: return ImprimerUneBande(rapport, titre, tables);
    default: return ImprimerDeuxBandes(rapport, titre, tables, edition);
  }
}

}  // namespace quelvar::crosstab
