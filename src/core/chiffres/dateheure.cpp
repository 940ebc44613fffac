#include "core/chiffres/dateheure.h"

#include <cstdio>
#include <ctime>

namespace quelvar {

namespace {

constexpr int kPremiereAnnee = 1900;  // from which the system counts

constexpr std::size_t kDateAuPlus = 40;  // characters of a date or a time, whatever the numbers

}  // namespace

DateHeure HeureLocale() {
  const std::time_t maintenant = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&maintenant, &local);
  return {local.tm_year + kPremiereAnnee, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string TexteDate(const DateHeure& instant) {
  char texte[kDateAuPlus];
  std::snprintf(texte, sizeof texte, "%02d/%02d/%04d", instant.jour, instant.mois, instant.annee);
  return texte;
}

std::string TexteHeure(const DateHeure& instant) {
  char texte[kDateAuPlus];
  std::snprintf(texte, sizeof texte, "%02d:%02d:%02d", instant.heure, instant.minute, instant.seconde);
  return texte;
}

}  // namespace quelvar
