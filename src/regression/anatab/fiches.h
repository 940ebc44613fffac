// The individuals of a logical coding as records of characters: each distinct record once, and who has which.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/dialogue.h"
#include "regression/anatab/modele.h"
#include "regression/donnees/entrees.h"

namespace quelvar::regression {

using NumeroFiche = std::uint32_t;

// Numeric value of one character: a digit counts for itself, anything else for 0.
constexpr int ValeurDuCaractere(char c) { return c >= '0' && c <= '9' ? c - '0' : 0; }

// A set of records of one width, numbered from 0 in the order of their arrival.
class Fiches {
 public:
  explicit Fiches(std::size_t largeur);

  std::size_t Largeur() const { return largeur_; }
  std::size_t Nombre() const { return octets_.size() / largeur_; }
  std::string_view operator[](NumeroFiche numero) const { return {octets_.data() + numero * largeur_, largeur_}; }
  // Without the pair of the explained modality.
  std::string_view Situation(NumeroFiche numero) const { return (*this)[numero].substr(0, largeur_ - 2); }
  bool Oui(NumeroFiche numero) const { return (*this)[numero][largeur_ - 2] == '1'; }

  NumeroFiche Ranger(std::string_view fiche);

 private:
  std::size_t Place(std::string_view fiche) const;
  void Agrandir();

  std::size_t largeur_;
  std::vector<char> octets_;
  std::vector<NumeroFiche> table_;  // open addressing; a number plus 1, 0 for a free place
};

struct Individus {
  explicit Individus(std::size_t largeurFiche) : fiches(largeurFiche) {}

  Fiches fiches;
  std::vector<NumeroFiche> fiche;  // of each individual, in the order of the file
  std::int64_t oui = 0;            // individuals with the explained modality
  Fautifs fautifs;                 // individuals without one answer to each question

  std::int64_t Nombre() const { return static_cast<std::int64_t>(fiche.size()); }
};

// Characters of a record whose value tells it apart from every other: so many digits are exact in a double.
inline constexpr std::size_t kChiffresExacts = 15;

// Reads the logical coding into `individus`; what was read before a failure stays there. A character past the end of a
// line is a blank. Raises the failures of LecteurLignes.
void LireIndividus(const Chemin& codageLogique, const Modele& modele, const Dialogue& ecran, Individus& individus);

// The records of the individuals by descending value, each record read as one decimal number in a double. Records of
// more than 15 characters may share a value: their order is then that of the heap sort, and equal records need not
// stand together. Raises kDepassementCapacite, with the line of its first individual, for a value beyond a double.
std::vector<NumeroFiche> TrierFiches(const Individus& individus, const Dialogue& ecran);

// A record and how many neighbours in the order had it.
struct Comptee {
  NumeroFiche fiche;
  double effectif;
};

std::vector<Comptee> CompterVoisines(const std::vector<NumeroFiche>& triees);

// Only the pairs of neighbours that differ in the explained modality alone; a pair is consumed.
std::vector<Comptee> GarderLesPaires(const std::vector<Comptee>& comptees, const Fiches& fiches);

// What the order of the records has taken apart: a key of fifteen digits cannot tell long ones from each other, and
// situations then fall to pieces.
struct Melange {
  std::size_t situations = 0;   // that the individuals are in
  std::size_t morceaux = 0;     // that the order makes of them
  std::size_t inversees = 0;    // in which a no stands in front of a yes: it is then counted as one
  std::int64_t population = 0;  // of the situations that an exact order would keep, individuals
};

// Nothing when each record stands in one place, beside those of its situation. `possibles` counts the records that
// there can be: only where some are missing are the situations without a yes, or without a no, left out.
std::optional<Melange> MelangeDesFiches(const Individus& individus, const std::vector<Comptee>& comptees,
                                        double possibles);

}  // namespace quelvar::regression
