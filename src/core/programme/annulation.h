// The user gives up a run in one of its boxes.
#pragma once

#include <exception>

#include "core/texte/texte.h"

namespace quelvar {

// Thrown by the screen out of a box that was cancelled, and caught by whoever started the run: the frame of the run
// lets it through, and the files, the former report among them, stay as they were.
class Annulation : public std::exception {
 public:
  const char* what() const noexcept override { return "quelvar::Annulation"; }
};

inline constexpr std::string_view kArretVolontaire = "Arrêt volontaire du programme"_w;

}  // namespace quelvar
