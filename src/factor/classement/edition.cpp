#include "factor/classement/edition.h"

#include "core/chiffres/nombres.h"
#include "core/resultats/cellules.h"
#include "core/resultats/rangees.h"

namespace quelvar::factor {

namespace {

constexpr PlaceEnRangee kNumero{"", 4};
constexpr PlaceEnRangee kClasses{"", 3};
constexpr int kItem = 14;    // a label is cut
constexpr int kEntiers = 5;  // of criterion and share

std::string TexteItem(std::int32_t item, std::span<const std::string> libelles) {
  if (item > 0) return libelles[static_cast<std::size_t>(item - 1)];
  return Joindre({" Agrég. n°"_w, CadreDroit(Nombre(-item), 3)});
}

std::vector<Colonne> ColonnesDesEtapes() {
  std::vector<Colonne> colonnes;
  for (const Texte titre : {Texte("NUM"), Texte("Elément 1"_w), Texte("Elément 2"_w), Texte("NbAgrèg"_w),
                            Texte("Critère d'association"_w), Texte("%Crit Cumulé"_w)})
    colonnes.push_back({std::string(titre.Vue())});
  return colonnes;
}

}  // namespace

void ImprimerEtapes(Rapport& rapport, std::span<const EtapeWard> etapes, std::span<const BilanDEtape> bilans,
                    std::span<const std::string> libelles) {
  const FormeEnRangees forme{
      .places = {kNumero, {" ", kItem}, {"", kItem}, kClasses, {"", kEntiers}, {"", kEntiers}},
      .tete = {.noms = {EnHaut(0), EnHaut(4), EnHaut(18), EnHaut(30), SurLesDeux(39, 36, 7), EnHaut(48)}}};
  ImprimeurDeRangees imprimeur(rapport, forme, forme.places.size());
  imprimeur.Tete({.colonnes = ColonnesDesEtapes()});
  for (std::size_t s = 0; s < etapes.size(); ++s)
    imprimeur.Imprimer({{},
                        {},
                        {CelluleEntiere(s + 1),
                         CelluleTexte(TexteItem(etapes[s].itemPremier, libelles)),
                         CelluleTexte(TexteItem(etapes[s].itemSecond, libelles)),
                         CelluleEntiere(bilans[s].classes),
                         {etapes[s].critere, Unite::Nombre, 5},
                         {bilans[s].cumul, Unite::Pourcent, 1}}});
}

void ImprimerClasses(Rapport& rapport, int niveau, std::span<const std::vector<Rangee>> classes) {
  constexpr int kEntiersDuNiveau = 4;
  constexpr int kEntiersDeLaClasse = 2;
  const FormeEnRangees forme{.places = {{"    ", 2}}};
  rapport.Ligne({"Aggrégation niveau "_w, NombreFixe(niveau, kEntiersDuNiveau, 0)});
  for (std::size_t k = 0; k < classes.size(); ++k) {
    rapport.Ligne({"$$G", NombreFixe(static_cast<double>(k + 1), kEntiersDeLaClasse, 0)});
    for (const Rangee& modalite : classes[k]) rapport.Ligne(TexteDeRangee(modalite, forme));
  }
  rapport.Ligne("$$");
}

}  // namespace quelvar::factor
