// A local date and time, and how reports write them.
#pragma once

#include <string>

namespace quelvar {

struct DateHeure {
  int annee = 0, mois = 1, jour = 1, heure = 0, minute = 0, seconde = 0;
};

DateHeure HeureLocale();

// dd/mm/yyyy and hh:mm:ss.
std::string TexteDate(const DateHeure& instant);
std::string TexteHeure(const DateHeure& instant);

}  // namespace quelvar
