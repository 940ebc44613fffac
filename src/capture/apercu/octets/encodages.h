// The encoding that the bytes of a file show, and the files that are no text.
#pragma once

#include <string>
#include <vector>

#include "capture/apercu/octets/lecture.h"

namespace quelvar::capture {

struct EncodageDetecte {
  EncodageDeTable encodage = EncodageDeTable::Windows1252;
  bool crSeuls = false;  // a line ends in CR alone
  std::vector<std::string> doutes;
};

// Of the head of the file, or of all of it. Raises a sentence (kIncompatibiliteType) for a file that is empty or no
// text.
EncodageDetecte DetecterEncodage(const Chemin& source, EtendueDeLecture etendue);

}  // namespace quelvar::capture
