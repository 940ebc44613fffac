#include "tables/liens/liens.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <utility>

#include "core/calcul/tris.h"
#include "core/panne/erreur.h"

namespace quelvar::tables {

namespace {

std::uint64_t LireEntier(std::string_view octets, std::size_t debut, std::size_t taille) {
  std::uint64_t valeur = 0;
  for (std::size_t i = taille; i-- > 0;) valeur = valeur << 8 | static_cast<unsigned char>(octets[debut + i]);
  return valeur;
}

void PoserEntier(char* place, std::uint32_t valeur, std::size_t taille) {
  for (std::size_t i = 0; i < taille; ++i) place[i] = static_cast<char>(valeur >> (8 * i) & 0xFF);
}

template <typename Avant>
void TrierAvec(std::span<Lien> liens, const Dialogue& dialogue, const Avant& avant) {
  constexpr std::size_t pas = 0x3FFF;  // records between two moves of the progress display
  const std::size_t total = liens.size();
  dialogue.montrerProgression(static_cast<std::int64_t>(total));
  TrierParTas(liens, avant, [&](std::size_t reste) {
    if (((total - reste) & pas) == pas) dialogue.progresser(static_cast<std::int64_t>(total - reste));
  });
  dialogue.montrerProgression(0);
}

// Ends the insertions of TrierChaine in one stroke: an element goes before all those that it meets of its value, so the
// result is the order by value in which later elements stand before equal earlier ones.
void AcheverChaine(std::span<Lien> profil, std::size_t depart, std::size_t pas, std::size_t premierRestant) {
  std::vector<Lien> chaine;
  for (std::size_t i = premierRestant; i < profil.size(); i += pas) chaine.push_back(profil[i]);
  std::reverse(chaine.begin(), chaine.end());
  for (std::size_t i = depart; i < premierRestant; i += pas) chaine.push_back(profil[i]);
  std::stable_sort(chaine.begin(), chaine.end(), [](const Lien& a, const Lien& b) { return a.valeur > b.valeur; });
  for (std::size_t i = 0; i < chaine.size(); ++i) profil[depart + i * pas] = chaine[i];
}

// The insertions of one round of the Shell sort among the records depart, depart + pas, depart + 2 pas...
void TrierChaine(std::span<Lien> profil, std::size_t depart, std::size_t pas) {
  // Beyond so many exchanges, as in long profiles of equal values, the insertions would never end.
  const std::size_t echangesPermis = 8 * profil.size();
  std::size_t echanges = 0;
  for (std::size_t fin = depart + pas; fin < profil.size(); fin += pas) {
    if (echanges > echangesPermis) return AcheverChaine(profil, depart, pas, fin);
    for (std::size_t i = fin; i > depart && profil[i - pas].valeur <= profil[i].valeur; i -= pas, ++echanges)
      std::swap(profil[i - pas], profil[i]);
  }
}

// Records in descending order are exchanged over no more than a run of equal values: the length of the longest one, or
// of all of them when they are in another order.
std::size_t PorteeDesEchanges(std::span<const Lien> profil) {
  std::size_t portee = 1;
  std::size_t serie = 1;
  for (std::size_t i = 1; i < profil.size(); ++i) {
    if (profil[i - 1].valeur < profil[i].valeur) return profil.size();
    serie = profil[i - 1].valeur == profil[i].valeur ? serie + 1 : 1;
    portee = std::max(portee, serie);
  }
  return portee;
}

}  // namespace

std::int16_t NumeroDeNoeud(std::size_t numero) {
  if (numero > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) throw Erreur(kDepassementCapacite);
  return static_cast<std::int16_t>(numero);
}

std::vector<Lien> LireLiens(const std::optional<Chemin>& chemin) {
  std::vector<Lien> liens;
  if (!chemin) return liens;
  const std::string octets = LireOctets(*chemin);
  liens.reserve(octets.size() / kOctetsDUnLien);
  for (std::size_t i = 0; i + kOctetsDUnLien <= octets.size(); i += kOctetsDUnLien)
    liens.push_back({static_cast<std::int16_t>(LireEntier(octets, i, 2)),
                     static_cast<std::int16_t>(LireEntier(octets, i + 2, 2)),
                     std::bit_cast<float>(static_cast<std::uint32_t>(LireEntier(octets, i + 4, 4)))});
  return liens;
}

void EcrireLiens(Ecrivain& fichier, std::span<const Lien> liens) {
  for (const Lien& lien : liens) {
    char* place = fichier.Place(kOctetsDUnLien);
    PoserEntier(place, static_cast<std::uint16_t>(lien.premier), 2);
    PoserEntier(place + 2, static_cast<std::uint16_t>(lien.second), 2);
    PoserEntier(place + 4, std::bit_cast<std::uint32_t>(lien.valeur), 4);
    fichier.Avancer(kOctetsDUnLien);
  }
}

void TrierLiens(std::span<Lien> liens, ModeTri mode, const Dialogue& dialogue) {
  switch (mode) {
    case ModeTri::NBR:
      return TrierAvec(liens, dialogue, [](const Lien& a, const Lien& b) { return a.valeur > b.valeur; });
    case ModeTri::LIGN:
      return TrierAvec(liens, dialogue, [](const Lien& a, const Lien& b) { return a.premier < b.premier; });
    case ModeTri::COL:
      return TrierAvec(liens, dialogue, [](const Lien& a, const Lien& b) { return a.second < b.second; });
  }
}

void TrierProfil(std::span<Lien> profil) {
  const std::size_t portee = PorteeDesEchanges(profil);
  for (std::size_t pas = profil.size() / 2; pas > 0; pas /= 2) {
    if (pas >= portee) continue;  // nothing is exchanged over so many
    for (std::size_t depart = 0; depart < pas; ++depart) TrierChaine(profil, depart, pas);
  }
}

}  // namespace quelvar::tables
