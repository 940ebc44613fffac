// The flat count that an import makes of its questions, to see that the columns were cut where they should.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/enquete/datfile.h"

namespace quelvar::capture {

// Codes counted apart, those of two digits; every other value counts as a non-response.
inline constexpr std::size_t kCodesDeDeuxChiffres = 100;

struct TriDeChamp {
  std::vector<std::int64_t> effectifs;  // of the codes 0 to 99 that the width can hold
  int codeMax = 0;                      // the largest value seen, above 99 too
  // Values that are no codes: decimals, which count rounded, negative ones and texts, which count as non-responses.
  std::int64_t impropres = 0;
  std::int64_t premierImpropre = 0;  // line of the first of them, from 1
  std::string exemple;               // what stands there
};

// Counts lines that hold the whole of every field.
class CompteurDeChamps {
 public:
  explicit CompteurDeChamps(std::span<const Champ> champs);
  // The values of that field are looked at for those that are no codes.
  void Surveiller(std::size_t champ) { surveilles_.push_back(champ); }

  void Compter(const char* ligne);
  // For each field, in the order given.
  std::vector<TriDeChamp> Tris() const;
  // Values beyond 16 bits, counted as non-responses and left out of the largest value.
  std::int64_t ValeursImpossibles() const { return impossibles_; }

 private:
  struct Groupe {
    std::vector<std::uint32_t> debuts;  // first byte of each field
    std::vector<std::size_t> rangs;     // its rank among all the fields
    std::vector<std::int64_t> effectifs;
  };

  struct Impropres {
    std::int64_t nombre = 0;
    std::int64_t premier = 0;
    std::string exemple;
  };

  void CompterTrois(const char* ligne);
  void VoirImpropres(const char* ligne);

  Groupe un_, deux_, trois_;
  std::vector<int> codesMax_;  // of the fields of three bytes
  std::size_t champs_;
  std::int64_t impossibles_ = 0;
  std::vector<Champ> tous_;
  std::size_t longueur_ = 0;
  std::vector<std::size_t> surveilles_;
  std::vector<Impropres> impropres_;  // by field
  std::int64_t lignes_ = 0;
};

}  // namespace quelvar::capture
