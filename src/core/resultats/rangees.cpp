#include "core/resultats/rangees.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/resultats/colonnedenombres.h"

namespace quelvar {

namespace {

const PlaceEnRangee& PlaceDe(const FormeEnRangees& forme, std::size_t colonne) {
  return forme.places[std::min(colonne, forme.places.size() - 1)];
}

bool AUneTete(const TableauEdite& tableau) {
  return !tableau.coin.empty() ||
         std::ranges::any_of(tableau.colonnes, [](const Colonne& colonne) { return !colonne.titre.empty(); });
}

std::vector<ColonneEnRangees> Colonnes(const FormeEnRangees& forme, std::size_t nombre) {
  std::vector<ColonneEnRangees> colonnes;
  colonnes.reserve(nombre);
  for (std::size_t j = 0; j < nombre; ++j) colonnes.emplace_back(PlaceDe(forme, j));
  return colonnes;
}

// As CadreGauche, at the end of a line.
void AjouterAGauche(std::string& ligne, std::string_view texte, int colonnes) {
  const auto largeur = static_cast<std::size_t>(std::max(colonnes, 0));
  ligne += texte.substr(0, largeur);
  for (std::size_t i = texte.size(); i < largeur; ++i) ligne += ' ';
}

// Most places have nothing around them.
void AjouterSIlYALieu(std::string& ligne, std::string_view texte) {
  if (!texte.empty()) ligne += texte;
}

bool EstVide(const Rangee& rangee) {
  return rangee.titre.empty() && rangee.cellules.empty() && rangee.intitule.empty();
}

void EcrireRangee(std::string& ligne, const Rangee& rangee, const FormeEnRangees& forme,
                  const std::vector<ColonneEnRangees>& colonnes) {
  if (EstVide(rangee)) return;
  if (forme.titre == 0) ligne += rangee.titre;
  else AjouterAGauche(ligne, rangee.titre, forme.titre);
  for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes[j].Ecrire(ligne, rangee.cellules[j]);
  ligne += forme.avantIntitule;
  if (forme.intitule == 0) ligne += rangee.intitule;
  else ligne += CadreDroit(rangee.intitule, forme.intitule);
}

}  // namespace

void ColonneEnRangees::Voir(const Cellule& cellule) {
  if (!cellule.valeur || !Elargit()) return;
  const Voisin voisin = place_.elargissement == Elargissement::DerriereUnNombre ? Voisin::Nombre : Voisin::Texte;
  ColonneDeNombres colonne(entiers_, cellule.decimales, voisin);
  colonne.Voir(*cellule.valeur);
  entiers_ = colonne.Entiers();
}

void ColonneEnRangees::Ecrire(std::string& ligne, const Cellule& cellule) const {
  AjouterSIlYALieu(ligne, place_.avant);
  if (cellule.valeur) {
    EcrireValeur(ligne, *cellule.valeur, cellule.decimales);
    AjouterSIlYALieu(ligne, cellule.marque);
  } else if (entiers_ == 0) {
    ligne += cellule.marque;
  } else {
    AjouterAGauche(ligne, cellule.marque, entiers_);
  }
}

bool ColonneEnRangees::Elargit() const {
  return place_.elargissement != Elargissement::Aucun && place_.elargissement != Elargissement::Entier;
}

void ColonneEnRangees::EcrireValeur(std::string& ligne, double valeur, int decimales) const {
  if (place_.elargissement == Elargissement::Entier) ligne += EntierDroit(static_cast<std::int64_t>(valeur), entiers_);
  else if (Elargit() || std::fabs(valeur) < kSansExposant) ColonneDeNombres(entiers_, decimales).Ajouter(ligne, valeur);
  else ligne += NombreFixe(valeur, entiers_, decimales);
}

void ColonneEnRangees::EcrireTitre(std::string& ligne, std::string_view titre) const {
  const int colonnes = (place_.colonnesDuTitre > 0 ? place_.colonnesDuTitre : place_.entiers) + EnPlus();
  if (place_.titre == TitreDeColonne::TelQuel) ligne.append(static_cast<std::size_t>(EnPlus()), ' ');
  AjouterSIlYALieu(ligne, place_.avantTitre);
  switch (place_.titre) {
    case TitreDeColonne::AGauche: AjouterAGauche(ligne, titre, colonnes); break;
    case TitreDeColonne::ADroite: ligne += CadreDroit(titre, colonnes); break;
    case TitreDeColonne::TelQuel: ligne += titre; break;
  }
  AjouterSIlYALieu(ligne, place_.derriereTitre);
}

ImprimeurDeRangees::ImprimeurDeRangees(Rapport& rapport, const FormeEnRangees& forme, std::size_t colonnes)
    : rapport_(rapport), forme_(forme), colonnes_(Colonnes(forme, colonnes)) {}

void ImprimeurDeRangees::Voir(const Rangee& rangee) {
  for (std::size_t j = 0; j < rangee.cellules.size(); ++j) colonnes_[j].Voir(rangee.cellules[j]);
}

void ImprimeurDeRangees::Tete(const TableauEdite& tableau) {
  for (const std::string& titre : tableau.titres) rapport_.Ligne({CadreGauche("", forme_.avantLesTitres), titre});
  if (!AUneTete(tableau)) return;
  if (!forme_.tete.noms.empty()) return TeteADeuxLignes(tableau);
  ligne_ = tableau.coin;
  for (std::size_t j = 0; j < tableau.colonnes.size(); ++j) colonnes_[j].EcrireTitre(ligne_, tableau.colonnes[j].titre);
  rapport_.Ligne(ligne_);
  ligne_.clear();
}

void ImprimeurDeRangees::TeteADeuxLignes(const TableauEdite& tableau) {
  std::vector<std::string_view> noms;
  std::vector<int> enPlus;
  for (std::size_t j = 0; j < tableau.colonnes.size(); ++j) {
    noms.emplace_back(tableau.colonnes[j].titre);
    enPlus.push_back(colonnes_[j].EnPlus());
  }
  for (const std::string& ligne : quelvar::TeteADeuxLignes(tableau.coin, noms, enPlus, forme_.tete))
    if (!ligne.empty()) rapport_.Ligne(ligne);
}

void ImprimeurDeRangees::Imprimer(const Rangee& rangee) {
  EcrireRangee(ligne_, rangee, forme_, colonnes_);
  if (++surLaLigne_ == forme_.parLigne) Finir();
}

void ImprimeurDeRangees::Finir() {
  if (surLaLigne_ > 0) rapport_.Ligne(ligne_);
  ligne_.clear();
  surLaLigne_ = 0;
}

void ImprimerRangees(Rapport& rapport, const TableauEdite& tableau, const FormeEnRangees& forme) {
  ImprimeurDeRangees imprimeur(rapport, forme, tableau.colonnes.size());
  for (const Rangee& rangee : tableau.rangees) imprimeur.Voir(rangee);
  imprimeur.Tete(tableau);
  for (const Rangee& rangee : tableau.rangees) imprimeur.Imprimer(rangee);
  imprimeur.Finir();
}

std::string TexteDeRangee(const Rangee& rangee, const FormeEnRangees& forme) {
  std::vector<ColonneEnRangees> colonnes = Colonnes(forme, rangee.cellules.size());
  for (std::size_t j = 0; j < colonnes.size(); ++j) colonnes[j].Voir(rangee.cellules[j]);
  std::string texte;
  EcrireRangee(texte, rangee, forme, colonnes);
  return texte;
}

void ImprimerListe(Rapport& rapport, std::span<const Rangee> rangees, const std::vector<PlaceEnRangee>& places) {
  for (std::size_t i = 0; i < rangees.size(); ++i)
    rapport.Ligne(TexteDeRangee(rangees[i], {.places = {places[std::min(i, places.size() - 1)]}}));
}

}  // namespace quelvar
