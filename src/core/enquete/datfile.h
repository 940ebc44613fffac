// The data file .DAT: the value of a field, decoded in place, and the count of its lines.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"

namespace quelvar {

// The field of a data line, ready for decoding.
struct Champ {
  std::uint32_t debut = 0;    // first byte, from 0
  std::uint32_t largeur = 1;  // bytes
};

// The field of a question whose position is at least 1.
inline Champ ChampDe(const Question& question) {
  return {static_cast<std::uint32_t>(question.position - 1), static_cast<std::uint32_t>(question.largeur)};
}

// The fields of the questions. Raises kArgumentIncorrect, with the question, for a position below 1.
std::vector<Champ> ChampsDe(const FichierPos& pos);

// Bytes that a line must have for every field to lie inside it.
std::size_t LongueurUtile(const std::vector<Champ>& champs);

// Values of all fields of one and two bytes by the lenient conversion, rounded: a table look-up replaces the parsing.
// A negative value of two bytes ("-5") is kept negative.
const std::array<std::uint8_t, 256>& ValeursDUnOctet();
const std::array<std::int8_t, 65536>& ValeursDeDeuxOctets();  // index: first byte + 256 * second byte

// Value of a field from its bytes: lenient conversion, rounded to 16 bits. Raises kDepassementCapacite, with its
// column.
int ConvertirChamp(std::string_view octets, Champ champ);

// Value of a field that lies wholly inside a line of bytes. Raises kDepassementCapacite.
inline int LireChampInterieur(const char* ligne, Champ champ) {
  const char* octets = ligne + champ.debut;
  const auto chiffre = [&](int i) { return static_cast<unsigned>(static_cast<unsigned char>(octets[i])) - '0'; };
  if (champ.largeur == 1)
    return chiffre(0) < 10 ? static_cast<int>(chiffre(0)) : ValeursDUnOctet()[static_cast<unsigned char>(octets[0])];
  if (champ.largeur == 2) {
    const unsigned unites = chiffre(1);
    if (unites < 10 && chiffre(0) < 10) return static_cast<int>(10 * chiffre(0) + unites);
    if (unites < 10 && octets[0] == ' ') return static_cast<int>(unites);
  } else if (champ.largeur == 3 && chiffre(2) < 10 && chiffre(1) < 10 && chiffre(0) < 10) {
    return static_cast<int>(100 * chiffre(0) + 10 * chiffre(1) + chiffre(2));
  }
  return ConvertirChamp(std::string_view(octets, champ.largeur), champ);
}

// Gives each line of the data file at least `longueurUtile` bytes, blanks standing for what is missing.
class LecteurIndividus {
 public:
  LecteurIndividus(const Chemin& chemin, std::size_t longueurUtile) : lecteur_(chemin), tampon_(longueurUtile, ' ') {}

  // The next line as a pointer on bytes that live until the next call; nullptr at the end of the file. Raises
  // kErreurPeripherique.
  const char* Lire() {
    if (!lecteur_.Lire(ligne_)) return nullptr;
    return ligne_.size() >= tampon_.size() ? ligne_.data() : Completer();
  }
  // The line itself, as long as it is in the file.
  std::string_view Ligne() const { return ligne_; }
  const LecteurLignes& Lignes() const { return lecteur_; }

 private:
  const char* Completer();

  LecteurLignes lecteur_;
  std::string_view ligne_;
  std::string tampon_;
};

// Number of lines of a data file. Raises the failures of LecteurLignes.
std::int64_t CompterLignes(const Chemin& chemin);

// Gives each individual, its bytes and its rank from 1, to `traiter`, at most `maximum` of them; returns how many there
// were. A failure gets the line reached.
template <class Traiter>
std::int64_t Parcourir(LecteurIndividus& lecteur, std::int64_t maximum, Traiter&& traiter) {
  return Situer(lecteur.Lignes(), [&] {
    std::int64_t numero = 0;
    while (numero < maximum) {
      const char* individu = lecteur.Lire();
      if (individu == nullptr) break;
      traiter(individu, ++numero);
    }
    return numero;
  });
}

// Individuals that line 2 of .POS announces, or the lines of the data file when it announces none.
std::int64_t AnnoncesOuComptes(const LigneTaille& taille, const Chemin& donnees);
// "Il y a ... individus", the line of all reports.
std::string LigneDesIndividus(std::int64_t individus);

// The warning on a file shorter than announced, in the wording of all programs but the recoding.
inline constexpr std::string_view kFichierPlusCourt =
    "Attention : le nombre reel d'individus est inferieur a celui annonce";

}  // namespace quelvar
