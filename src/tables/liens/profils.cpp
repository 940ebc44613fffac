#include "tables/liens/profils.h"

#include <algorithm>
#include <string>

namespace quelvar::tables {

namespace {

constexpr std::size_t kItemsDunBloc = 16;

// Columns of a label that are shown.
constexpr std::size_t ColonnesDIntitule(LargeurDeProfil largeur) {
  return largeur == LargeurDeProfil::Compacte ? 4 : 10;
}

// Items of one decimal, in five columns, each under its label and the blank behind that: what the label takes more
// stands behind the value.
FormeEnRangees FormeDuBloc(LargeurDeProfil largeur) {
  const std::string_view reste = largeur == LargeurDeProfil::Compacte ? "" : "      ";
  PlaceEnRangee premiere{.entiers = 3, .titre = TitreDeColonne::AGauche};
  premiere.colonnesDuTitre = static_cast<int>(ColonnesDIntitule(largeur)) + 1;
  PlaceEnRangee suivantes = premiere;
  suivantes.avant = reste;
  premiere.avantTitre = " ";
  return {.places = {premiere, suivantes}, .avantIntitule = reste};
}

}  // namespace

ImprimeurDeProfils::ImprimeurDeProfils(Rapport& rapport, std::span<const std::string_view> intitules,
                                       LargeurDeProfil largeur)
    : rapport_(rapport),
      intitules_(intitules),
      colonnesDIntitule_(ColonnesDIntitule(largeur)),
      forme_(FormeDuBloc(largeur)),
      imprimeur_(rapport, forme_, kItemsDunBloc),
      bloc_{.rangees = std::vector<Rangee>(1)} {}

void ImprimeurDeProfils::Imprimer(std::span<const Lien> profil) {
  for (std::size_t i = 0; i < profil.size(); i += kItemsDunBloc)
    ImprimerBloc(profil.subspan(i, std::min(kItemsDunBloc, profil.size() - i)));
}

void ImprimeurDeProfils::ImprimerBloc(std::span<const Lien> liens) {
  std::vector<Cellule>& cellules = bloc_.rangees.front().cellules;
  bloc_.colonnes.resize(liens.size());
  cellules.resize(liens.size(), {.decimales = 1});
  for (std::size_t j = 0; j < liens.size(); ++j) {
    const std::string_view intitule = intitules_[static_cast<std::size_t>(liens[j].premier) - 1];
    bloc_.colonnes[j].titre = intitule.substr(0, colonnesDIntitule_);
    cellules[j].valeur = liens[j].valeur;
  }
  imprimeur_.Tete(bloc_);
  imprimeur_.Imprimer(bloc_.rangees.front());
  rapport_.Ligne();
  rapport_.Ligne();
}

}  // namespace quelvar::tables
