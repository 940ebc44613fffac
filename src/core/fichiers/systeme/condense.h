// A digest of bytes as they are written, to tell later whether a file is whole; it guards against accidents, not
// against intent.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/calcul/hachage.h"

namespace quelvar {

// Eight lanes of the FNV-1a step on words of 64 bits, with a rotation that brings the high bits down; lanes of their
// own let the multiplications overlap. Source of the step: G. Fowler, L. C. Noll, K.-P. Vo, "The FNV Non-Cryptographic
// Hash Algorithm", IETF draft, 2011 (there on bytes). The cut of the bytes into calls does not matter.
class CondenseDOctets {
 public:
  void Ajouter(std::string_view octets) {
    total_ += octets.size();
    if (reste_ > 0) {
      const std::size_t pris = std::min(kBloc - reste_, octets.size());
      std::memcpy(attente_.data() + reste_, octets.data(), pris);
      reste_ += pris;
      octets.remove_prefix(pris);
      if (reste_ < kBloc) return;
      Bloc(attente_.data());
      reste_ = 0;
    }
    for (; octets.size() >= kBloc; octets.remove_prefix(kBloc)) Bloc(octets.data());
    std::memcpy(attente_.data(), octets.data(), octets.size());
    reste_ = octets.size();
  }

  std::uint64_t Taille() const { return total_; }

  std::uint64_t Valeur() const {
    CondenseDOctets fin = *this;
    std::memset(fin.attente_.data() + reste_, 0, kBloc - reste_);
    fin.Bloc(fin.attente_.data());
    std::uint64_t valeur = total_;
    for (const std::uint64_t voie : fin.voies_) valeur = std::rotl((valeur ^ voie) * kNombreDOr, 29);
    return valeur ^ valeur >> 32;
  }

 private:
  static constexpr std::size_t kVoies = 8;
  static constexpr std::size_t kBloc = kVoies * sizeof(std::uint64_t);

  void Bloc(const char* octets) {
    std::array<std::uint64_t, kVoies> mots;
    std::memcpy(mots.data(), octets, kBloc);
    for (std::size_t i = 0; i < kVoies; ++i) voies_[i] = std::rotl((voies_[i] ^ mots[i]) * kNombreDOr, 31);
  }

  std::array<std::uint64_t, kVoies> voies_{1, 2, 3, 4, 5, 6, 7, 8};
  std::array<char, kBloc> attente_{};
  std::size_t reste_ = 0;
  std::uint64_t total_ = 0;
};

}  // namespace quelvar
