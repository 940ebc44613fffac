#include "crosstab/graphe/graphe2.h"

#include <algorithm>
#include <array>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "core/resultats/tableau.h"

namespace quelvar::crosstab {

namespace {

constexpr std::array<double, 7> kValeurs = {1, 2, 5, 10, 20, 50, 100};

std::vector<ElementGraphe2> Elements(const std::vector<std::size_t>& places, const std::vector<std::size_t>& codes,
                                     const std::vector<double>& parts, const std::vector<std::string>& noms,
                                     const std::vector<std::string>& intitules) {
  std::vector<ElementGraphe2> elements;
  for (const std::size_t place : places) {
    const std::size_t code = codes[place];
    elements.push_back({noms[code], intitules[code] == noms[code] ? std::string() : intitules[code], parts[place]});
  }
  return elements;
}

// The rows and columns that are not empty, out of the differences of the whole table.
BandeGraphe2 Bande(const TableauCroise& t, const Matrice& differences) {
  BandeGraphe2 bande;
  bande.ecarts = Matrice(t.lignes.size(), t.colonnes.size());
  bande.largeur = kEcartementGraphe2;
  for (std::size_t j = 0; j < t.colonnes.size(); ++j) {
    double petit = 0;
    double grand = 0;
    for (std::size_t i = 0; i < t.lignes.size(); ++i) {
      const double ecart = differences(t.lignes[i], t.colonnes[j]);
      bande.ecarts(i, j) = ecart;
      petit = std::min(petit, ecart);
      grand = std::max(grand, ecart);
    }
    bande.plusPetits.push_back(petit);
    bande.plusGrands.push_back(grand);
    bande.largeur += kEcartementGraphe2 + grand - petit;
  }
  return bande;
}

constexpr double kGrossissementMinimum = 0.2;
constexpr double kGrossissementMaximum = 10;

double Changer(double valeur, bool plus, Coefficient coefficient) {
  const double facteur = FacteurDeTaille(coefficient);
  return std::clamp(plus ? valeur * facteur : valeur / facteur, kGrossissementMinimum, kGrossissementMaximum);
}

}  // namespace

DonneesGraphe2 PreparerGraphe2(const TableauRetenu& retenu) {
  const TableauCroise& t = retenu.tableau;
  DonneesGraphe2 donnees;
  donnees.titre = Joindre({retenu.ligne.NomLong(), " et ", retenu.colonne.NomLong()});
  if (retenu.ordrePem) donnees.pem = t.pem;
  donnees.lignes = Elements(t.lignes, t.compte.rangsLignes, t.details.partsLignes, NomsDeModalites(retenu.ligne),
                            retenu.intitulesLignes);
  donnees.colonnes = Elements(t.colonnes, t.compte.rangsColonnes, t.details.partsColonnes,
                              NomsDeModalites(retenu.colonne), retenu.intitulesColonnes);
  donnees.observe = Bande(t, t.details.differences);
  donnees.maximum = Bande(t, Detailler(AvecCellules(t.compte, t.maximum)).differences);
  return donnees;
}

double AgrandissementGraphe2(const DonneesGraphe2& donnees) {
  return std::max({kLargeurInitialeGraphe2, donnees.observe.largeur, donnees.maximum.largeur}) /
         kLargeurInitialeGraphe2;
}

EtatGraphe2 NouveauGraphe2(const DonneesGraphe2& donnees) {
  EtatGraphe2 etat;
  etat.donnees = donnees;
  etat.entrees.push_back({donnees.titre, {}});
  etat.entrees.push_back({"Echelle=", {}});
  for (const auto* elements : {&donnees.lignes, &donnees.colonnes})
    for (const ElementGraphe2& element : *elements) etat.entrees.push_back({element.nom, {}});
  for (const auto* elements : {&donnees.lignes, &donnees.colonnes})
    for (const ElementGraphe2& element : *elements)
      if (!element.texte.empty()) etat.entrees.push_back({element.texte, {}});
  return etat;
}

void DeplacerEntree(EtatGraphe2& etat, SensGraphe2 sens) {
  const double pas = PasDeTexte(etat.coefficient);
  switch (sens) {
    case SensGraphe2::Haut: return DeplacerEntree(etat, {0, -pas});
    case SensGraphe2::Bas: return DeplacerEntree(etat, {0, pas});
    case SensGraphe2::Gauche: return DeplacerEntree(etat, {-pas, 0});
    case SensGraphe2::Droite: return DeplacerEntree(etat, {pas, 0});
  }
}

void DeplacerEntree(EtatGraphe2& etat, Position deplacement) {
  Position& place = etat.entrees.at(etat.choisie).deplacement;
  place = {place.x + deplacement.x, place.y + deplacement.y};
}

void ChangerEchelle(EtatGraphe2& etat, bool plus) { etat.echelle = Changer(etat.echelle, plus, etat.coefficient); }

void ChangerFenetre(EtatGraphe2& etat, bool plus) { etat.fenetre = Changer(etat.fenetre, plus, etat.coefficient); }

void ChangerValeur(EtatGraphe2& etat, bool plus) {
  const auto* valeur = std::find(kValeurs.begin(), kValeurs.end(), etat.valeurEchelle);
  if (plus && valeur + 1 < kValeurs.end()) etat.valeurEchelle = *(valeur + 1);
  if (!plus && valeur > kValeurs.begin()) etat.valeurEchelle = *(valeur - 1);
}

void Reinitialiser(EtatGraphe2& etat) {
  const std::size_t choisie = etat.choisie;
  etat = NouveauGraphe2(DonneesGraphe2(etat.donnees));
  etat.choisie = choisie;
}

std::string TexteDePourcentage(double pourcentage) {
  return TexteDeCellule({AuDixieme(pourcentage), Unite::Pourcent, 1});
}

std::string TexteEchelle(const EtatGraphe2& etat) {
  const std::string echelle = Joindre({"Echelle=", Nombre(etat.valeurEchelle), " "});
  if (!etat.donnees.pem) return echelle;
  return Joindre({echelle, "PEM=", TexteDePourcentage(*etat.donnees.pem), "% "});
}

std::string TexteFenetre(const EtatGraphe2& etat) {
  const double agrandissement = AgrandissementGraphe2(etat.donnees);
  const auto limites = [&](std::string_view minimum, std::string_view maximum, double initiale) {
    const double marge = initiale * agrandissement * (etat.fenetre - 1) / 2;
    return Joindre(
        {minimum, Nombre(Arrondir(-marge, 1)), maximum, Nombre(Arrondir(initiale * agrandissement + marge, 1))});
  };
  return Joindre(
      {limites("xi=", " Xa=", kLargeurInitialeGraphe2), "\r\n", limites("yi=", " ya=", kHauteurInitialeGraphe2)});
}

}  // namespace quelvar::crosstab
