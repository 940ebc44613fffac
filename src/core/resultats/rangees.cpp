#include "core/resultats/rangees.h"

#include <algorithm>
#include <cmath>
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
    if (!cellule.valeur || !Elargit()) return;
    const Voisin voisin = place_.elargissement == Elargissement::DerriereUnNombre ? Voisin::Nombre : Voisin::Texte;
    ColonneDeNombres colonne(entiers_, cellule.decimales, voisin);
    colonne.Voir(*cellule.valeur);
    entiers_ = colonne.Entiers();
  }

  void Ecrire(std::string& ligne, const Cellule& cellule) const {
    ligne += place_.avant;
    if (cellule.valeur) {
      EcrireValeur(ligne, *cellule.valeur, cellule.decimales);
      ligne += cellule.marque;
    } else {
      ligne += entiers_ == 0 ? cellule.marque : CadreGauche(cellule.marque, entiers_);
    }
  }

  std::string Ajout() const { return CadreGauche("", entiers_ - place_.entiers); }

 private:
  bool Elargit() const {
    return place_.elargissement != Elargissement::Aucun && place_.elargissement != Elargissement::Entier;
  }

  void EcrireValeur(std::string& ligne, double valeur, int decimales) const {
    if (place_.elargissement == Elargissement::Entier)
      ligne += EntierDroit(static_cast<std::int64_t>(valeur), entiers_);
    else if (Elargit() || std::fabs(valeur) < kSansExposant)
      ColonneDeNombres(entiers_, decimales).Ajouter(ligne, valeur);
    else ligne += NombreFixe(valeur, entiers_, decimales);
  }

  const PlaceEnRangee& place_;
  int entiers_;
};

bool AUneTete(const TableauEdite& tableau) {
  return !tableau.coin.empty() ||
         std::ranges::any_of(tableau.colonnes, [](const Colonne& colonne) { return !colonne.titre.empty(); });
}

}  // namespace

void ImprimerRangees(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme) {
  std::vector<ColonneEnRangees> colonnes;
  colonnes.reserve(tableau.colonnes.size());
  for (std::size_t j = 0; j < tableau.colonnes.size(); ++j) colonnes.emplace_back(PlaceDe(forme, j));
  for (const Rangee& rangee : tableau.rangees)
    for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes[j].Voir(rangee.cellules[j]);

  for (const std::string& titre : tableau.titres) rapport.Ligne(titre);
  std::string ligne;
  if (AUneTete(tableau)) {
    ligne = tableau.coin;
    for (std::size_t j = 0; j < colonnes.size(); ++j) ligne += colonnes[j].Ajout() + tableau.colonnes[j].titre;
    rapport.Ligne(ligne);
  }
  for (const Rangee& rangee : tableau.rangees) {
    ligne = forme.titre == 0 ? rangee.titre : CadreGauche(rangee.titre, forme.titre);
    for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes[j].Ecrire(ligne, rangee.cellules[j]);
    ligne += forme.avantIntitule;
    ligne += rangee.intitule;
    rapport.Ligne(ligne);
  }
}

}  // namespace quelvar
