#include "core/resultats/cadre.h"

#include <algorithm>
#include <string>

#include "core/resultats/largeurfixe.h"

namespace quelvar {

namespace {

constexpr int kLignesEntrePages = 3;

std::string TexteEnCase(double valeur, std::span<const EcritureEnCase> ecritures, int supplement) {
  const auto ecriture =
      std::find_if(ecritures.begin(), ecritures.end() - 1, [&](const EcritureEnCase& e) { return valeur < e.sous; });
  return NombreFixe(valeur, ecriture->entiers + supplement, ecriture->decimales) +
         std::string(static_cast<std::size_t>(ecriture->blancs), ' ');
}

// Ranks from `premier` to before `fin`.
struct BlocDeCases {
  std::size_t premier;
  std::size_t fin;
};

class ImprimanteCadree {
 public:
  ImprimanteCadree(Rapport& rapport, const TableCadree& table, const FormeCadree& forme)
      : rapport_(rapport), table_(table), forme_(forme) {
    for (const std::vector<PlaceEnCase>& places : table.places)
      for (const PlaceEnCase& place : places)
        if (place.usuelles > 0)
          supplement_ = std::max(supplement_, ColonnesEnPlus(place.plusGrande, place.decimales, place.usuelles));
  }

  void Page(const BlocDeCases& lignes, const BlocDeCases& colonnes) {
    EnTete(colonnes);
    for (std::size_t i = lignes.premier; i < lignes.fin; ++i) {
      for (std::size_t moitie = 0; moitie < kLignesDeCase; ++moitie) {
        rapport_.Suite({"|", CadreGauche(Morceau(table_.lignes[i], moitie), forme_.cellule), "|"});
        for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j) LigneDeCase(i, j, moitie);
        rapport_.Ligne();
      }
      Filet(colonnes);
    }
    for (int k = 0; k < kLignesEntrePages; ++k) rapport_.Ligne();
  }

 private:
  void LigneDeCase(std::size_t i, std::size_t j, std::size_t moitie) {
    std::string_view fin = "|";
    ligne_.clear();
    for (const PlaceEnCase& place : table_.places[moitie]) {
      const Cellule& cellule = place.tableau->rangees[i].cellules[j];
      ligne_ += place.ecritures.empty() ? TexteEnColonne(cellule, place.colonnes)
                                        : TexteEnCase(*cellule.valeur, place.ecritures, ElargieDe(place));
      if (place.fermeLaCase && !cellule.marque.empty()) fin = cellule.marque;
    }
    rapport_.Suite({ligne_, fin});
  }

  // All that the cells have more goes to the values that may want it.
  int ElargieDe(const PlaceEnCase& place) const { return place.usuelles > 0 ? supplement_ : 0; }

  // The part of a label that stands on a line of the cell.
  std::string_view Morceau(std::string_view intitule, std::size_t moitie) const {
    const auto largeur = static_cast<std::size_t>(forme_.cellule);
    return Milieu(intitule, moitie * largeur + 1, largeur);
  }

  void Filet(const BlocDeCases& colonnes) {
    const std::string morceau = std::string(static_cast<std::size_t>(forme_.cellule + supplement_), '-') + "+";
    rapport_.Suite({"+", std::string(static_cast<std::size_t>(forme_.cellule), '-'), "+"});
    for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j) rapport_.Suite(morceau);
    rapport_.Ligne();
  }

  void EnTete(const BlocDeCases& colonnes) {
    Filet(colonnes);
    for (std::size_t moitie = 0; moitie < kLignesDeCase; ++moitie) {
      rapport_.Suite({"|", CadreGauche(table_.coin[moitie], forme_.cellule), "|"});
      for (std::size_t j = colonnes.premier; j < colonnes.fin; ++j)
        rapport_.Suite({CadreGauche(Morceau(table_.colonnes[j], moitie), forme_.cellule + supplement_), "|"});
      rapport_.Ligne();
    }
    Filet(colonnes);
  }

  Rapport& rapport_;
  const TableCadree& table_;
  const FormeCadree& forme_;
  int supplement_ = 0;
  std::string ligne_;  // of a cell
};

}  // namespace

void ImprimerCadre(Rapport& rapport, const TableCadree& table, const FormeCadree& forme) {
  ImprimanteCadree imprimante(rapport, table, forme);
  for (std::size_t i = 0; i < table.lignes.size(); i += forme.lignesParPage)
    for (std::size_t j = 0; j < table.colonnes.size(); j += forme.colonnesParPage)
      imprimante.Page({i, std::min(i + forme.lignesParPage, table.lignes.size())},
                      {j, std::min(j + forme.colonnesParPage, table.colonnes.size())});
}

std::string DisposerSurDeuxLignes(std::string_view texte) {
  constexpr std::size_t kLargeur = kColonnesDeCase;
  constexpr std::size_t kPremiereCoupe = kLargeur / 2;  // a first line is at least half full
  const std::size_t blanc = texte.find(' ', kPremiereCoupe);
  if (texte.size() <= kLargeur || blanc == std::string_view::npos || blanc >= kLargeur) return std::string(texte);
  return Joindre({CadreGauche(texte.substr(0, blanc), kColonnesDeCase), texte.substr(blanc + 1)});
}

}  // namespace quelvar
