// What a target is given, cut into options and files.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace fuzz {

// An input: bytes of options, then pieces, cut at each byte FF hex.
class Entree {
 public:
  Entree(const std::uint8_t* donnees, std::size_t taille, std::size_t options)
      : options_(reinterpret_cast<const char*>(donnees), std::min(taille, options)),
        reste_(reinterpret_cast<const char*>(donnees) + options_.size(), taille - options_.size()) {}

  // A byte of options; 0 where the input is shorter.
  unsigned Option(std::size_t rang = 0) const {
    return rang < options_.size() ? static_cast<unsigned char>(options_[rang]) : 0U;
  }
  // Whether another piece comes.
  bool Encore() const { return !finie_; }
  // The next piece; behind the last one come empty ones.
  std::string_view Suivant() {
    const std::size_t coupe = reste_.find('\xFF');
    const std::string_view debut = reste_.substr(0, coupe);
    finie_ = coupe == std::string_view::npos;
    reste_.remove_prefix(finie_ ? reste_.size() : coupe + 1);
    return debut;
  }
  // All that has not been taken, uncut.
  std::string_view Reste() const { return reste_; }

 private:
  std::string_view options_;
  std::string_view reste_;
  bool finie_ = false;
};

}  // namespace fuzz
