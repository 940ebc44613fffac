// What the entries of the menu "Aide" open: a document, and a place in it.
#pragma once

#include <span>

namespace quelvar::forms {

struct EntreeDAide {
  const char* nom;       // of the action (UTF-8)
  const char* document;  // in the directory of the help
  const char* ancre = "";
};
std::span<const EntreeDAide> EntreesDAide();

}  // namespace quelvar::forms
