// Hash of a row of words, by which records and situations are told apart quickly.
#pragma once

#include <cstdint>

namespace quelvar::regression {

// Source of the multiplier: A. Appleby, "MurmurHash3" (2011), the first of its 64-bit finish. Only which rows are
// compared hangs on it, never a result.
class Hachage {
 public:
  void Meler(std::uint64_t mot) {
    valeur_ = (valeur_ ^ mot) * kFacteur;
    valeur_ ^= valeur_ >> 32;
  }
  std::uint64_t Valeur() const { return valeur_; }

 private:
  static constexpr std::uint64_t kDepart = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
  static constexpr std::uint64_t kFacteur = 0xFF51AFD7ED558CCD;

  std::uint64_t valeur_ = kDepart;
};

}  // namespace quelvar::regression
