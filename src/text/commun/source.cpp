#include "text/commun/source.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "core/texte/nombres.h"
#include "text/commun/lignes.h"

namespace quelvar::text {

namespace {

std::int64_t Interrogations(std::string_view octets) {
  return static_cast<std::int64_t>(std::count(octets.begin(), octets.end(), '?'));
}

// Rank (from 1) of the first line that lost a character.
std::int64_t PremiereLigneAlteree(std::string_view utf8) {
  LignesDuTexte lignes(utf8);
  std::int64_t numero = 1;
  for (std::string_view ligne; lignes.Lire(ligne); ++numero)
    if (Interrogations(DepuisUtf8(ligne)) != Interrogations(ligne)) break;
  return numero;
}

// The text in the code page, and what the conversion has lost.
struct TexteConverti {
  std::string octets;
  std::int64_t perdus = 0;
  std::int64_t premiereLigne = 0;  // of the first character lost, from 1
};

TexteConverti Convertir(std::string_view utf8) {
  OterMarqueUtf8(utf8);
  TexteConverti converti{DepuisUtf8(utf8), 0, 0};
  converti.perdus = Interrogations(converti.octets) - Interrogations(utf8);
  if (converti.perdus > 0) converti.premiereLigne = PremiereLigneAlteree(utf8);
  return converti;
}

}  // namespace

std::string PrendreTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport) {
  std::string octets = LireOctets(chemin);
  if (!EstUtf8(octets)) return octets;
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Le fichier ", nom, " est en UTF-8 : chaque lettre accentuée y occupe plusieurs caractères.\r\n"_w,
               "Faut-il le convertir à la lecture ? (le fichier lui-même reste comme il est)"_w}),
      Boutons::OuiNon);
  if (reponse != Reponse::Oui) {
    rapport.Ligne({"*** Arrêt du programme : le fichier "_w, nom, " est en UTF-8"});
    throw Erreur(kArretAnnonce);
  }
  TexteConverti converti = Convertir(octets);
  if (converti.perdus > 0)
    rapport.Ligne({"*** Attention : ", Nombre(converti.perdus), " caractère(s) de "_w, nom,
                   " n'existent pas dans la page de code et deviennent \"?\" (le premier à la ligne "_w,
                   Nombre(converti.premiereLigne), ")"});
  return std::move(converti.octets);
}

}  // namespace quelvar::text
