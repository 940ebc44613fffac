#include "capture/colonnes/compterendu.h"

#include <algorithm>

#include "capture/colonnes/tableau.h"
#include "capture/compterendu/fichiers.h"
#include "capture/noms/courts.h"
#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/resultats/rangees.h"

namespace quelvar::capture {

void ImprimerPresence(Rapport& rapport, const Contexte& contexte, std::string_view nomSource,
                      const Presence& presence) {
  const std::string dat = contexte.Nom(".DAT");
  const std::string pos = contexte.Nom(".POS");
  const auto existe = [](bool present) -> Texte { return present ? kExiste : kNExistePas; };
  ImprimerEtat(rapport, nomSource, existe(presence.source));
  if (!presence.source) {
    ImprimerEtat(rapport, dat, existe(presence.dat));
    ImprimerEtat(rapport, pos, existe(presence.pos));
    ArreterSansSource(rapport, presence.pos || presence.dat);
  }
  if (presence.dat) {
    ImprimerEtat(rapport, dat, kRemplace);
  } else if (presence.pos) {
    ImprimerEtat(rapport, dat, kSeraCreeSansAccents);
  } else {
    ImprimerEtat(rapport, dat, kSeraCree);
    ImprimerEtat(rapport, pos, kSeraCree);
    rapport.Ligne();
    rapport.Ligne("Tous les champs du fichier seront examinés"_w);
  }
}

namespace {

// The places of TableauDesColonnes.
FormeEnRangees FormeDesColonnes(bool sansIntitules) {
  constexpr int kNombre = 4;  // digits of every number
  constexpr int kStatut = 12;
  constexpr int kNumero = 6;  // columns of the first word of a name that is broken
  constexpr int kPremierePosition = 13;
  if (sansIntitules)
    return {.places = {{"", kNombre}, {"              ", kNombre}, {"          ", kNombre}},
            .tete = {.noms = {SurLesDeux(0, 0, kNumero), SurLesDeux(15, 12, kPremierePosition), EnHaut(34)},
                     .colonnes = {43, 43}}};
  return {.places = {{"", kNombre},
                     {"    ", kNombre},
                     {"          ", kNombre},
                     {"        ", kNombre},
                     {"      ", static_cast<int>(kNomCourtLePlusLong)},
                     {"       ", kStatut},
                     {.avant = " "}},
          .tete = {.noms = {SurLesDeux(0, 0, kNumero), SurLesDeux(9, 9, 4), SurLesDeux(19, 18, kPremierePosition),
                            EnHaut(34), SurLesDeux(43, 43, 3), SurLesDeux(50, 52, 14), SurLesDeux(67, 67, 11)}}};
}

}  // namespace

void ImprimerColonnes(Rapport& rapport, const std::vector<ColonneImportee>& colonnes, std::size_t nombreDeColonnes,
                      bool sansIntitules) {
  rapport.Ligne();
  const std::string nombre = NombreNu(nombreDeColonnes);
  if (sansIntitules) {
    rapport.Ligne({"Examen du fichier  importé qui comporte "_w, nombre, " colonnes"});
    rapport.Ligne("C'est un fichier quelconque, il ne génère pas un fichier *.POS mais seulement un fichier *.DAT\""_w);
  } else {
    rapport.Ligne({"Examen du fichier importé qui comporte "_w, nombre, " colonnes"});
  }
  rapport.Ligne();
  rapport.Ligne("Résultat de l'importation pour chaque colonne"_w);
  rapport.Ligne();
  ImprimerRangees(rapport, TableauDesColonnes(colonnes, sansIntitules), FormeDesColonnes(sansIntitules));
}

std::string NumeroEtIntitule(const ColonneImportee& colonne) {
  return Joindre({NombreNu(colonne.rang), colonne.intitule});
}

std::string RemarqueLignesVides(std::int64_t nombre) {
  return Joindre({kAttention, Nombre(nombre), " ligne(s) sans aucune valeur, non comptée(s) parmi les individus"_w});
}

std::string RemarqueNegatives(std::int64_t nombre, std::size_t rang, std::string_view intitule) {
  return Joindre({kAttention, Nombre(nombre), " valeur(s) négative(s) comptée(s) pour 0 à la colonne"_w, NombreNu(rang),
                  intitule});
}

void RemarquerNoms(std::vector<std::string>& remarques, const std::vector<ColonneImportee>& colonnes,
                   const std::vector<std::size_t>& nomsChanges) {
  if (!nomsChanges.empty())
    remarques.push_back(Joindre({kAttention, "noms courts choisis pour qu'ils soient tous différents"_w}));
  for (const std::size_t j : nomsChanges)
    remarques.push_back(Joindre({"    ", colonnes[j].nomCourt, " pour la colonne", NumeroEtIntitule(colonnes[j])}));
  const auto loin = std::ranges::find_if(colonnes, &ColonneImportee::HorsDePortee);
  if (loin == colonnes.end()) return;
  remarques.push_back(Joindre({kAttention, "à partir de la colonne"_w, NombreNu(loin->rang), "la position dépasse "_w,
                               Nombre(kDernierePosition), ", les colonnes restent hors du fichier *.POS"}));
}

void ImprimerRemarques(Rapport& rapport, const std::vector<std::string>& remarques) {
  if (remarques.empty()) return;
  rapport.Ligne();
  rapport.Lignes(remarques);
}

void ImprimerVerification(Rapport& rapport, std::int64_t individus, const std::vector<std::string>& premieres,
                          bool sansIntitules) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre d'individus est de ", NombreNu(individus)});
  rapport.Ligne();
  rapport.Ligne("Impression des premières lignes du fichier créé *.DAT pour vérification"_w);
  rapport.Ligne();
  rapport.Lignes(premieres);
  rapport.Ligne();
  rapport.Ligne("En principe la partie des données numériques est alignée alors que la partie texte ne l'est pas"_w);
  rapport.Ligne();
  rapport.Ligne("Si la répartition se fait mal, on peut forcer la séparation entre partie numérique et"_w);
  rapport.Ligne(
      "  partie texte en insérant (entre les deux parties), un zéro dans toute une colonne du fichier Excel "_w);
  rapport.Ligne();
  if (sansIntitules) {
    rapport.Ligne("Fin normale du programme");
  } else {
    rapport.Ligne("Si tout est ok, lancez le tri à plat et passez à la suite"_w);
    rapport.Ligne("sinon corrigez le fichier ou modifiez le fichier *.POS");
  }
}

}  // namespace quelvar::capture
