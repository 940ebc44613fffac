// The progress of a program that reads a file from its first byte to its last.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/programme/programme.h"

namespace quelvar::utilities {

// Moves the progress display by the bytes of the file that is read.
class AvancementOctets {
 public:
  AvancementOctets(const Contexte& contexte, std::uintmax_t total) : dialogue_(contexte.Ecran()) {
    dialogue_.montrerProgression(static_cast<std::int64_t>(total / kPas + 1));
  }
  ~AvancementOctets() { dialogue_.montrerProgression(0); }
  AvancementOctets(const AvancementOctets&) = delete;
  AvancementOctets& operator=(const AvancementOctets&) = delete;

  void Avancer(std::size_t octets) {
    attente_ += octets;
    if (attente_ < kPas) return;
    pas_ += static_cast<std::int64_t>(attente_ / kPas);
    attente_ %= kPas;
    dialogue_.progresser(pas_);
  }

 private:
  static constexpr std::uintmax_t kPas = std::uintmax_t{1} << 20;
  const Dialogue& dialogue_;
  std::uintmax_t attente_ = 0;
  std::int64_t pas_ = 0;
};

}  // namespace quelvar::utilities
