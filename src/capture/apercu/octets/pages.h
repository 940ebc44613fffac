// Bytes of the encodings that a table may have, brought to bytes of the code page.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "capture/apercu/octets/lecture.h"
#include "core/texte/utf16.h"

namespace quelvar::capture {

// The text in the code page: the view itself when it is ASCII or already so, else one on `tampon`. Letters that are
// followed by their accent are put together; the blanks and hyphens that the code page lacks become its own. Every
// character that it has no sign for, and every invalid byte, becomes "?" and counts in `etrangers`. UTF-16 comes as
// UTF-8, as its lines do.
std::string_view EnPageDeCode(std::string_view octets, EncodageDeTable encodage, std::string& tampon,
                              std::int64_t& etrangers);

inline constexpr char kEtranger = '?';

// Lines of a UTF-16 source as UTF-8, or of one with lines that end in CR alone, as LecteurLignes gives those of others.
// The source is read in pieces. Raises the failures of LireMorceau, and kMemoireInsuffisante for a line beyond
// LecteurLignes::kLigneAuPlus.
class LignesDecodees {
 public:
  LignesDecodees(const Chemin& source, EncodageDeTable encodage);
  bool Lire(std::string_view& ligne);

 private:
  void Remplir();

  Chemin source_;
  bool seize_;
  DecodeurUtf16 decodeur_;  // when it is in UTF-16
  std::uintmax_t place_ = 0;
  std::string tampon_;     // decoded bytes
  std::size_t debut_ = 0;  // first byte not given yet
  bool finie_ = false;
};

}  // namespace quelvar::capture
