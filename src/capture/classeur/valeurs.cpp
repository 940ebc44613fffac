#include "capture/classeur/valeurs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "core/texte/caracteres.h"

namespace quelvar::capture::classeur {

namespace {

std::optional<double> Lire(std::string_view texte) {
  double valeur = 0;
  const auto [fin, faute] = std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
  if (faute != std::errc() || fin != texte.data() + texte.size() || !std::isfinite(valeur)) return std::nullopt;
  return valeur;
}

bool SansPointNiExposant(std::string_view texte) {
  if (texte.starts_with('-')) texte.remove_prefix(1);
  return SontChiffres(texte);
}

// "1.5e-05" as "0.000015".
std::string SansExposant(std::string_view texte) {
  const std::size_t e = texte.find('e');
  if (e == std::string_view::npos) return std::string(texte);
  int exposant = 0;
  const std::string_view chiffresExposant = texte.substr(e + (texte[e + 1] == '+' ? 2 : 1));
  std::from_chars(chiffresExposant.data(), chiffresExposant.data() + chiffresExposant.size(), exposant);
  std::string chiffres;
  int entiers = 0;
  bool apresPoint = false;
  const bool negatif = texte.front() == '-';
  for (const char c : texte.substr(negatif ? 1 : 0, e - (negatif ? 1 : 0))) {
    if (c == '.') {
      apresPoint = true;
      continue;
    }
    chiffres += c;
    if (!apresPoint) ++entiers;
  }
  const int point = entiers + exposant;
  std::string ecrit = negatif ? "-" : "";
  if (point <= 0) return ecrit + "0." + std::string(static_cast<std::size_t>(-point), '0') + chiffres;
  const auto place = static_cast<std::size_t>(point);
  if (place >= chiffres.size()) return ecrit + chiffres + std::string(place - chiffres.size(), '0');
  return ecrit + chiffres.substr(0, place) + "." + chiffres.substr(place);
}

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHeure = 60 * kMinute;
constexpr std::int64_t kJour = 24 * kHeure;

std::string Deux(std::int64_t n) {
  std::string texte = std::to_string(n);
  return texte.size() < 2 ? "0" + texte : texte;
}

std::string Heure(std::int64_t secondes) {
  return Deux(secondes / kHeure) + ":" + Deux(secondes % kHeure / kMinute) + ":" + Deux(secondes % kMinute);
}

}  // namespace

std::string TexteDuNombre(std::string_view stocke) {
  if (SansPointNiExposant(stocke)) return std::string(stocke);
  const std::optional<double> valeur = Lire(stocke);
  if (!valeur) return std::string(stocke);
  if (*valeur == 0) return "0";
  constexpr int kChiffres = std::numeric_limits<double>::digits10;
  std::array<char, 64> octets;  // more than they take with sign, point and exponent
  const auto [fin, faute] =
      std::to_chars(octets.data(), octets.data() + octets.size(), *valeur, std::chars_format::general, kChiffres);
  return SansExposant({octets.data(), static_cast<std::size_t>(fin - octets.data())});
}

Sens SensDuFormat(std::string_view code) {
  bool jour = false;
  bool heure = false;
  bool mois = false;  // or minutes
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (c == ';') break;  // the format of negative numbers
    if (c == '"') {
      i = code.find('"', i + 1);
      if (i == std::string_view::npos) break;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == '[') {
      const std::size_t fin = code.find(']', i);
      if (fin == std::string_view::npos) break;
      const std::string_view dedans = code.substr(i + 1, fin - i - 1);
      if (!dedans.empty() && dedans.find_first_not_of("hHmMsS") == std::string_view::npos) heure = true;
      i = fin;
    } else if (c == 'd' || c == 'D' || c == 'y' || c == 'Y') {
      jour = true;
    } else if (c == 'h' || c == 'H' || c == 's' || c == 'S') {
      heure = true;
    } else if (c == 'm' || c == 'M') {
      mois = true;
    }
  }
  if (jour || (mois && !heure)) return Sens::Date;
  return heure ? Sens::Heure : Sens::Nombre;
}

Sens SensDuFormatPredefini(int numero) {
  struct Plage {
    int premier;
    int dernier;
  };
  // Hours stand among the dates; 27 to 36 and those from 50 on are of the languages of East Asia.
  static constexpr Plage kHeures[] = {{18, 21}, {32, 35}, {45, 47}};
  static constexpr Plage kDates[] = {{14, 22}, {27, 36}, {50, 58}};
  const auto parmi = [numero](const auto& plages) {
    return std::ranges::any_of(plages, [numero](Plage p) { return numero >= p.premier && numero <= p.dernier; });
  };
  if (parmi(kHeures)) return Sens::Heure;
  return parmi(kDates) ? Sens::Date : Sens::Nombre;
}

std::string TexteDeLaDate(std::string_view stocke, Sens sens, bool depuis1904) {
  const std::optional<double> valeur = Lire(stocke);
  constexpr double kDernierJour = 2958466;  // the first of January 10000
  if (sens == Sens::Nombre || !valeur || *valeur < 0 || *valeur >= kDernierJour) return TexteDuNombre(stocke);
  const std::int64_t total = std::llround(*valeur * static_cast<double>(kJour));
  if (sens == Sens::Heure) return Heure(total);
  std::int64_t jours = total / kJour;
  const std::int64_t secondes = total % kJour;
  using std::chrono::day;
  using std::chrono::month;
  using std::chrono::year;
  std::chrono::sys_days origine = std::chrono::sys_days(year(1904) / month(1) / day(1));
  if (!depuis1904) {
    constexpr std::int64_t kJourDeTrop = 60;  // the 29th of February 1900, that never was
    if (jours == 0) return secondes == 0 ? std::string(stocke) : Heure(secondes);
    if (jours == kJourDeTrop) return secondes == 0 ? "1900-02-29" : "1900-02-29 " + Heure(secondes);
    origine = std::chrono::sys_days(year(1899) / month(12) / day(jours < kJourDeTrop ? 31 : 30));
  }
  const std::chrono::year_month_day date(origine + std::chrono::days(jours));
  const std::string texte = std::to_string(static_cast<int>(date.year())) + "-" +
                            Deux(static_cast<unsigned>(date.month())) + "-" + Deux(static_cast<unsigned>(date.day()));
  return secondes == 0 ? texte : texte + " " + Heure(secondes);
}

std::string TexteDeLaDuree(std::string_view iso) {
  if (!iso.starts_with("PT")) return std::string(iso);
  constexpr std::int64_t kUnitesAuPlus = 100'000'000;  // beyond it is no duration, and sums stay within 64 bits
  std::int64_t secondes = 0;
  for (std::string_view reste = iso.substr(2); !reste.empty();) {
    std::int64_t nombre = 0;
    const auto [fin, faute] = std::from_chars(reste.data(), reste.data() + reste.size(), nombre);
    if (faute != std::errc() || nombre < 0 || nombre > kUnitesAuPlus) return std::string(iso);
    reste.remove_prefix(static_cast<std::size_t>(fin - reste.data()));
    if (reste.starts_with('.') || reste.starts_with(',')) {  // parts of a second
      const std::size_t unite = reste.find('S');
      if (unite == std::string_view::npos) return std::string(iso);
      reste.remove_prefix(unite);
    }
    if (reste.empty()) return std::string(iso);
    const char unite = reste.front();
    if (unite != 'H' && unite != 'M' && unite != 'S') return std::string(iso);
    secondes += nombre * (unite == 'H' ? kHeure : unite == 'M' ? kMinute : 1);
    reste.remove_prefix(1);
  }
  return Heure(secondes);
}

std::string TexteDuJour(std::string_view iso) {
  const std::size_t t = iso.find('T');
  if (t == std::string_view::npos) return std::string(iso);
  const std::string_view heure = iso.substr(t + 1);
  const std::string jour(iso.substr(0, t));
  return heure.find_first_not_of("0:.,Z") == std::string_view::npos ? jour : jour + " " + std::string(heure);
}

}  // namespace quelvar::capture::classeur
