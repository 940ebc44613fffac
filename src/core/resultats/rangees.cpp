#include "core/resultats/rangees.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "core/resultats/colonnedenombres.h"

namespace quelvar {

namespace {

const PlaceEnRangee& PlaceDe(const FormeEnRangees& forme, std::size_t colonne) {
  return forme.places[std::min(colonne, forme.places.size() - 1)];
}

// A column by its place and the decimals of its cells, which one column may mix.
class ColonneEnRangees {
 public:
  explicit ColonneEnRangees(const PlaceEnRangee& place) : place_(place), entiers_(place.entiers) {}

  void Voir(const Cellule& cellule) {
    if (!cellule.valeur || place_.elargissement == Elargissement::Aucun) return;
    const Voisin voisin = place_.elargissement == Elargissement::DerriereUnNombre ? Voisin::Nombre : Voisin::Texte;
    ColonneDeNombres colonne(entiers_, cellule.decimales, voisin);
    colonne.Voir(*cellule.valeur);
    entiers_ = colonne.Entiers();
  }

  void Ecrire(std::string& ligne, const Cellule& cellule) const {
    ligne += place_.avant;
    if (cellule.valeur) {
      ligne += place_.elargissement == Elargissement::Aucun
                   ? NombreFixe(*cellule.valeur, entiers_, cellule.decimales)
                   : ColonneDeNombres(entiers_, cellule.decimales)(*cellule.valeur);
      ligne += cellule.marque;
    } else {
      ligne += entiers_ == 0 ? cellule.marque : CadreGauche(cellule.marque, entiers_);
    }
  }

  std::string Ajout() const { return CadreGauche("", entiers_ - place_.entiers); }

 private:
  const PlaceEnRangee& place_;
  int entiers_;
};

bool UneALeTexte(const TableauEdite& tableau, std::string Colonne::*texte) {
  return std::ranges::any_of(tableau.colonnes, [texte](const Colonne& colonne) { return !(colonne.*texte).empty(); });
}

void ImprimerTete(Rapport& rapport, const TableauEdite& tableau, const std::vector<ColonneEnRangees>& colonnes) {
  const auto ligne = [&](std::string debut, std::string Colonne::*texte) {
    for (std::size_t j = 0; j < colonnes.size(); ++j) debut += colonnes[j].Ajout() + tableau.colonnes[j].*texte;
    rapport.Ligne(debut);
  };
  const bool intitules = UneALeTexte(tableau, &Colonne::intitule);
  if (intitules || !tableau.coin.empty() || UneALeTexte(tableau, &Colonne::titre)) ligne(tableau.coin, &Colonne::titre);
  if (intitules) ligne(std::string(tableau.coin.size(), ' '), &Colonne::intitule);
}

bool EstVide(const Rangee& rangee) {
  return rangee.titre.empty() && rangee.cellules.empty() && rangee.intitule.empty();
}

}  // namespace

void ImprimerRangees(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme) {
  std::vector<ColonneEnRangees> colonnes;
  colonnes.reserve(tableau.colonnes.size());
  for (std::size_t j = 0; j < tableau.colonnes.size(); ++j) colonnes.emplace_back(PlaceDe(forme, j));
  for (const Rangee& rangee : tableau.rangees)
    for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes[j].Voir(rangee.cellules[j]);

  for (const std::string& titre : tableau.titres) rapport.Ligne(titre);
  ImprimerTete(rapport, tableau, colonnes);
  std::string ligne;
  for (std::size_t i = 0; i < tableau.rangees.size(); ++i) {
    const Rangee& rangee = tableau.rangees[i];
    if (!EstVide(rangee)) {
      ligne = forme.titre == 0 ? rangee.titre : CadreGauche(rangee.titre, forme.titre);
      for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes[j].Ecrire(ligne, rangee.cellules[j]);
      ligne += forme.avantIntitule;
      ligne += forme.intitule == 0 ? rangee.intitule : CadreDroit(rangee.intitule, forme.intitule);
      rapport.Suite(ligne);
    }
    if ((i + 1) % forme.parLigne == 0 || i + 1 == tableau.rangees.size()) rapport.Ligne();
  }
}

}  // namespace quelvar
