#include "core/enquete/datfile.h"

#include <algorithm>
#include <memory>

#include "core/chiffres/nombres.h"

namespace quelvar {

std::vector<Champ> ChampsDe(const FichierPos& pos) {
  std::vector<Champ> champs;
  champs.reserve(pos.questions.size());
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    if (question.position < 1) throw ChampImpossible(pos, i);
    champs.push_back(ChampDe(question));
  }
  return champs;
}

std::size_t LongueurUtile(const std::vector<Champ>& champs) {
  std::size_t longueur = 0;
  for (const Champ& champ : champs) longueur = std::max<std::size_t>(longueur, champ.debut + champ.largeur);
  return longueur;
}

const std::array<std::uint8_t, 256>& ValeursDUnOctet() {
  static const auto table = [] {
    std::array<std::uint8_t, 256> valeurs{};
    for (unsigned c = '0'; c <= '9'; ++c) valeurs[c] = static_cast<std::uint8_t>(c - '0');
    return valeurs;
  }();
  return table;
}

const std::array<std::int8_t, 65536>& ValeursDeDeuxOctets() {
  static const auto table = [] {
    auto valeurs = std::make_unique<std::array<std::int8_t, 65536>>();
    for (unsigned i = 0; i < 65536; ++i) {
      const char octets[2] = {static_cast<char>(i & 0xFF), static_cast<char>(i >> 8)};
      (*valeurs)[i] = static_cast<std::int8_t>(Entier16(ValeurDe({octets, 2})));
    }
    return valeurs;
  }();
  return *table;
}

int ConvertirChamp(std::string_view octets, Champ champ) {
  return Situer(
      [&] {
        return Lieu{{}, 0, static_cast<int>(champ.debut) + 1};
      },
      [&] { return Entier16(ValeurDe(octets)); });
}

const char* LecteurIndividus::Completer() {
  const auto fin = std::copy(ligne_.begin(), ligne_.end(), tampon_.begin());
  std::fill(fin, tampon_.end(), ' ');
  return tampon_.data();
}

std::int64_t CompterLignes(const Chemin& chemin) {
  LecteurLignes lecteur(chemin);
  std::int64_t lignes = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) ++lignes;
  return lignes;
}

std::int64_t AnnoncesOuComptes(const LigneTaille& taille, const Chemin& donnees) {
  return taille.individus > 0 ? taille.individus : CompterLignes(donnees);
}

std::string LigneDesIndividus(std::int64_t individus) {
  return Joindre({"Il y a ", NombreNu(individus), " individus"});
}

}  // namespace quelvar
