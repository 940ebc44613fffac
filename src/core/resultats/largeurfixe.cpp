#include "core/resultats/largeurfixe.h"

#include <algorithm>

namespace quelvar {

namespace {

int Longueur(const std::string& texte) { return static_cast<int>(texte.size()); }

int LargeurDeColonne(const TableauEdite& tableau, std::size_t colonne, int minimum) {
  int largeur = minimum;
  const std::string& intitule = tableau.colonnes[colonne].intitule;
  if (!intitule.empty()) largeur = std::max(largeur, Longueur(intitule) + 1);
  for (const Rangee& rangee : tableau.rangees) {
    const Cellule& cellule = rangee.cellules[colonne];
    if (cellule.unite == Unite::Effectif && cellule.valeur)
      largeur = std::max(largeur, LargeurDuNombre(*cellule.valeur, cellule.decimales, minimum));
  }
  return largeur;
}

bool AUnIntitule(const TableauEdite& tableau, BlocDeColonnes bloc) {
  for (std::size_t i = bloc.premier; i < bloc.fin; ++i)
    if (!tableau.colonnes[i + 1].intitule.empty()) return true;
  return false;
}

}  // namespace

int LargeurDuNombre(double valeur, int decimales, int minimum) {
  const std::string texte = NombreFixe(valeur, kEntiersDeToutNombre, decimales);
  return std::max(minimum, static_cast<int>(Rogner(texte).size()) + 1);
}

int ColonnesEnPlus(double valeur, int decimales, int usuelles) {
  return LargeurDuNombre(valeur, decimales, usuelles) - usuelles;
}

int ColonnesEnPlus(const TableauEdite& tableau, std::size_t premiere, std::size_t fin, int usuelles) {
  int enPlus = 0;
  for (const Rangee& rangee : tableau.rangees)
    for (std::size_t j = premiere; j < fin; ++j)
      if (const Cellule& cellule = rangee.cellules[j]; cellule.valeur)
        enPlus = std::max(enPlus, ColonnesEnPlus(*cellule.valeur, cellule.decimales, usuelles));
  return enPlus;
}

std::string TexteEnColonne(const Cellule& cellule, int largeur) {
  if (!cellule.valeur) return std::string(static_cast<std::size_t>(largeur), ' ');
  const int entiere = cellule.decimales == 0 ? largeur : largeur - cellule.decimales - 1;
  return NombreFixe(*cellule.valeur, entiere, cellule.decimales);
}

LargeursFixes Mesurer(const TableauEdite& tableau, const FormeFixe& forme) {
  LargeursFixes largeurs{forme.tete, forme.page, {}};
  if (tableau.colonnes.empty()) return largeurs;
  for (const Rangee& rangee : tableau.rangees) {
    const Cellule& total = rangee.cellules.front();
    if (total.unite == Unite::Effectif && total.valeur)
      largeurs.tete = LargeurDuNombre(*total.valeur, total.decimales, largeurs.tete + 1) - 1;
  }
  largeurs.page -= largeurs.tete - forme.tete;
  for (std::size_t i = 1; i < tableau.colonnes.size(); ++i)
    largeurs.colonnes.push_back(LargeurDeColonne(tableau, i, forme.colonne));
  return largeurs;
}

std::vector<BlocDeColonnes> DecouperEnBlocs(const LargeursFixes& largeurs) {
  std::vector<BlocDeColonnes> blocs;
  int somme = 0;
  for (std::size_t i = 0; i < largeurs.colonnes.size(); ++i) {
    somme += largeurs.colonnes[i];
    if (blocs.empty() || somme > largeurs.page) {
      blocs.push_back({i, i});
      somme = largeurs.colonnes[i];
    }
    blocs.back().fin = i + 1;
  }
  return blocs;
}

void ImprimerLargeurFixe(Rapport& rapport, const TableauEdite& tableau, const FormeFixe& forme) {
  const LargeursFixes largeurs = Mesurer(tableau, forme);
  for (const BlocDeColonnes& bloc : DecouperEnBlocs(largeurs)) {
    // What stands in the head, then the columns of the block.
    const auto ligne = [&](const std::string& tete, auto texte) {
      rapport.Suite(tete);
      for (std::size_t i = bloc.premier; i < bloc.fin; ++i) rapport.Suite(texte(i + 1, largeurs.colonnes[i]));
      rapport.Ligne();
    };
    ligne(CadreDroit(tableau.colonnes.front().titre, largeurs.tete),
          [&](std::size_t i, int largeur) { return CadreDroit(tableau.colonnes[i].titre, largeur); });
    if (AUnIntitule(tableau, bloc))
      ligne(std::string(static_cast<std::size_t>(largeurs.tete), ' '),
            [&](std::size_t i, int largeur) { return CadreDroit(tableau.colonnes[i].intitule, largeur); });
    for (const Rangee& rangee : tableau.rangees)
      ligne(TexteEnColonne(rangee.cellules.front(), largeurs.tete),
            [&](std::size_t i, int largeur) { return TexteEnColonne(rangee.cellules[i], largeur); });
    rapport.Ligne();
    rapport.Ligne();
  }
}

}  // namespace quelvar
