#include "text/commun/source.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "core/texte/nombres.h"
#include "text/commun/lignes.h"

namespace quelvar::text {

namespace {

// Place of the first byte above 127, or the size; eight bytes a step, since most texts are nearly all ASCII.
std::size_t PremierAccent(std::string_view octets) {
  std::size_t i = 0;
  for (; i + 8 <= octets.size(); i += 8) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, octets.data() + i, 8);
    if ((mot & 0x8080808080808080ULL) != 0) break;
  }
  while (i < octets.size() && static_cast<unsigned char>(octets[i]) < 0x80) ++i;
  return i;
}

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

std::string Convertir(std::string_view utf8, std::string_view nom, Rapport& rapport) {
  std::string converti = DepuisUtf8(utf8);
  const std::int64_t perdus = Interrogations(converti) - Interrogations(utf8);
  if (perdus > 0)
    rapport.Ligne({"*** Attention : ", Nombre(perdus), " caractère(s) de "_w, nom,
                   " n'existent pas dans la page de code et deviennent \"?\" (le premier à la ligne "_w,
                   Nombre(PremiereLigneAlteree(utf8)), ")"});
  return converti;
}

}  // namespace

bool EstUtf8(std::string_view octets) {
  return octets.starts_with(kMarqueUtf8) || EstUtf8MultiOctet(octets.substr(PremierAccent(octets)));
}

std::string LireTexte(const Contexte& contexte, const Chemin& chemin, std::string_view nom, Rapport& rapport) {
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
  std::string_view utf8 = octets;
  OterMarqueUtf8(utf8);
  return Convertir(utf8, nom, rapport);
}

}  // namespace quelvar::text
