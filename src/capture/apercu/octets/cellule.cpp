#include "capture/apercu/octets/cellule.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/texte/caracteres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

bool EstLettre(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr std::size_t kGroupe = 3;          // digits between two signs of thousands
constexpr std::size_t kExposantAuPlus = 2;  // digits
constexpr std::size_t kPetitAuPlus = 2;     // digits of an hour, a minute, a day
constexpr std::size_t kChiffresDAnnee = 4;
constexpr std::size_t kNombreAuPlus = 64;       // characters; longer ones are no numbers
constexpr std::size_t kDateLaPlusCourte = 4;    // "1:30"
constexpr std::size_t kDateLaPlusLongue = 40;   // with hour, zone and blanks
constexpr std::size_t kDecalageLePlusLong = 6;  // "+01:00"

std::size_t Chiffres(std::string_view texte, std::size_t debut) {
  std::size_t i = debut;
  while (i < texte.size() && EstChiffre(texte[i])) ++i;
  return i - debut;
}

// Length of an exponent at that place: with a sign of its own, or behind decimals; 0 for none.
std::size_t Exposant(std::string_view texte, std::size_t i, bool decimales) {
  if (i >= texte.size() || (texte[i] != 'E' && texte[i] != 'e')) return 0;
  const bool signe = i + 1 < texte.size() && (texte[i + 1] == '+' || texte[i + 1] == '-');
  if (!signe && !decimales) return 0;
  const std::size_t debut = i + (signe ? 2 : 1);
  const std::size_t nombre = Chiffres(texte, debut);
  return nombre == 0 || nombre > kExposantAuPlus ? 0 : debut + nombre - i;
}

// The whole part at the head: "1234", or groups of three behind a first one of one to three. Length, and the sign
// between the groups.
struct PartieEntiere {
  std::size_t longueur = 0;
  char groupes = '\0';
};

PartieEntiere LirePartieEntiere(std::string_view texte) {
  PartieEntiere partie{Chiffres(texte, 0)};
  if (partie.longueur == 0 || partie.longueur > kGroupe || partie.longueur == texte.size()) return partie;
  const char signe = texte[partie.longueur];
  if (!EstBlancDeCellule(signe) && signe != ',' && signe != '.' && signe != '\'') return partie;
  std::size_t fin = partie.longueur;
  std::size_t nombre = 0;
  while (fin < texte.size() && texte[fin] == signe && Chiffres(texte, fin + 1) == kGroupe) {
    fin += 1 + kGroupe;
    ++nombre;
  }
  // One group behind "," or "." is read as decimals, unless the other sign follows.
  const bool doute = signe == ',' || signe == '.';
  if (nombre == 0 || (doute && nombre == 1 && (fin == texte.size() || (texte[fin] != ',' && texte[fin] != '.'))))
    return partie;
  return {fin, EstBlancDeCellule(signe) ? ' ' : signe};
}

// Reads a count of one or two digits at a place, moves behind it; -1 without.
int Petit(std::string_view texte, std::size_t& i) {
  const std::size_t nombre = Chiffres(texte, i);
  if (nombre == 0 || nombre > kPetitAuPlus) return -1;
  int valeur = 0;
  for (const std::size_t fin = i + nombre; i < fin; ++i) valeur = valeur * 10 + (texte[i] - '0');
  return valeur;
}

bool Passer(std::string_view texte, std::size_t& i, char signe) {
  if (i >= texte.size() || texte[i] != signe) return false;
  ++i;
  return true;
}

// "10:22", "10:22:33", "10:22:33.5", then perhaps AM or PM and a zone; to the end of the text.
bool EstHeure(std::string_view texte) {
  std::size_t i = 0;
  const int heures = Petit(texte, i);
  if (heures < 0 || heures > 24 || !Passer(texte, i, ':')) return false;
  const int minutes = Petit(texte, i);
  if (minutes < 0 || minutes > 59) return false;
  if (Passer(texte, i, ':')) {
    const int secondes = Petit(texte, i);
    if (secondes < 0 || secondes > 60) return false;
    if (Passer(texte, i, '.') || Passer(texte, i, ',')) i += Chiffres(texte, i);
  }
  std::string_view reste = RognerCellule(texte.substr(i));
  for (const std::string_view suffixe : {"AM", "PM", "am", "pm"})
    if (reste.starts_with(suffixe)) reste = RognerCellule(reste.substr(2));
  for (const std::string_view zone : {"UTC", "GMT", "EET", "CET", "Z"}) {
    if (!reste.starts_with(zone)) continue;
    reste.remove_prefix(zone.size());
    break;
  }
  return reste.find_first_not_of("+-:0123456789") == std::string_view::npos && reste.size() <= kDecalageLePlusLong;
}

// The day at the head; its length, 0 for none.
std::size_t LongueurDuJour(std::string_view texte) {
  const std::size_t premiers = Chiffres(texte, 0);
  if (premiers == 0 || premiers >= texte.size()) return 0;
  const char signe = texte[premiers];
  if (signe != '/' && signe != '-' && signe != '.') return 0;
  std::size_t i = 0;
  const bool annee = premiers == kChiffresDAnnee;
  if (annee) i = kChiffresDAnnee;
  const int a = annee ? 1 : Petit(texte, i);
  if (a < 0 || !Passer(texte, i, signe)) return 0;
  const int b = Petit(texte, i);
  if (b < 0 || !Passer(texte, i, signe)) return 0;
  const std::size_t derniers = Chiffres(texte, i);
  if (annee ? derniers == 0 || derniers > kPetitAuPlus : derniers != kPetitAuPlus && derniers != kChiffresDAnnee)
    return 0;
  int c = 0;
  for (std::size_t k = 0; k < derniers; ++k) c = c * 10 + (texte[i + k] - '0');
  const auto jour = [](int j, int m) { return j >= 1 && j <= 31 && m >= 1 && m <= 12; };
  if (annee ? !jour(c, b) : !jour(a, b) && !jour(b, a)) return 0;
  return i + derniers;
}

struct Entite {
  std::string_view nom;
  std::string_view signe;
};
constexpr std::array<Entite, 27> kEntites = {
    {{"nbsp", " "},     {"amp", "&"},      {"lt", "<"},       {"gt", ">"},       {"quot", "\""},    {"apos", "'"},
     {"#39", "'"},      {"rsquo", "'"},    {"eacute", "é"_w}, {"egrave", "è"_w}, {"ecirc", "ê"_w},  {"agrave", "à"_w},
     {"acirc", "â"_w},  {"ccedil", "ç"_w}, {"ocirc", "ô"_w},  {"ugrave", "ù"_w}, {"ucirc", "û"_w},  {"icirc", "î"_w},
     {"iuml", "ï"_w},   {"hellip", "…"_w}, {"laquo", "«"_w},  {"raquo", "»"_w},  {"Eacute", "É"_w}, {"Egrave", "È"_w},
     {"Agrave", "À"_w}, {"Acirc", "Â"_w},  {"Ccedil", "Ç"_w}}};

// Length of the tag at the head of the text; 0 when "<" starts none.
std::size_t LongueurDeBalise(std::string_view texte) {
  if (texte.size() < 3) return 0;
  const std::size_t nom = texte[1] == '/' || texte[1] == '!' ? 2 : 1;
  if (nom >= texte.size() || (!EstLettre(texte[nom]) && texte[1] != '!')) return 0;
  const std::size_t fin = texte.find('>');
  return fin == std::string_view::npos ? 0 : fin + 1;
}

}  // namespace

std::string_view SansHabit(std::string_view cellule) {
  const std::string_view dedans = cellule.substr(1);
  if (cellule.front() == '=')
    return dedans.size() >= 2 && dedans.front() == '"' && dedans.back() == '"'
               ? RognerCellule(dedans.substr(1, dedans.size() - 2))
               : cellule;
  const std::string_view nombre = dedans.ends_with('\'') ? dedans.substr(0, dedans.size() - 1) : dedans;
  return LireNombre(nombre) ? nombre : cellule;
}

bool NombreDeCellule::EstAmbigu() const {
  return signe != '\0' && exposant.empty() && groupes == '\0' && decimales.size() == kGroupe && !entiers.empty() &&
         entiers.size() <= kGroupe && entiers.front() != '0';
}

NombreDeCellule NombreDeCellule::SansDecimales() const {
  NombreDeCellule entier = *this;
  entier.decimales = {};
  entier.signe = '\0';
  if (entier.entiers.empty()) entier.entiers = "0";
  return entier;
}

void NombreDeCellule::LireEnMilliers() {
  // Whole part, sign and decimals stand side by side in the cell.
  entiers = std::string_view(entiers.data(), entiers.size() + 1 + decimales.size());
  groupes = signe;
  decimales = {};
  signe = '\0';
}

std::string NombreDeCellule::Normalise() const {
  std::string texte;
  for (const char c : entiers)
    if (EstChiffre(c)) texte += c;
  texte.erase(0, std::min(texte.find_first_not_of('0'), texte.size()));
  if (texte.empty()) texte = "0";
  if (!decimales.empty()) texte.append(1, '.').append(decimales);
  texte += exposant;
  const bool nul = texte.find_first_of("123456789") == std::string::npos;
  return negatif && !nul ? "-" + texte : texte;
}

std::optional<NombreDeCellule> LireNombre(std::string_view cellule) {
  if (cellule.size() > kNombreAuPlus) return std::nullopt;
  NombreDeCellule nombre;
  if (!cellule.empty() && (cellule.front() == '-' || cellule.front() == '+')) {
    nombre.negatif = cellule.front() == '-';
    cellule.remove_prefix(1);
  }
  const PartieEntiere partie = LirePartieEntiere(cellule);
  nombre.entiers = cellule.substr(0, partie.longueur);
  nombre.groupes = partie.groupes;
  nombre.zeroDevant = partie.longueur > 1 && cellule.front() == '0';
  std::size_t i = partie.longueur;
  if (i < cellule.size() && (cellule[i] == ',' || cellule[i] == '.')) {
    nombre.signe = cellule[i];
    const std::size_t decimales = Chiffres(cellule, ++i);
    if (decimales == 0 || nombre.signe == nombre.groupes) return std::nullopt;
    nombre.decimales = cellule.substr(i, decimales);
    i += decimales;
  }
  if (nombre.entiers.empty() && nombre.decimales.empty()) return std::nullopt;
  const std::size_t exposant = Exposant(cellule, i, nombre.signe != '\0');
  nombre.exposant = cellule.substr(i, exposant);
  if (i + exposant != cellule.size()) return std::nullopt;
  return nombre;
}

std::optional<NombreDeCellule> LireNombre(std::string_view cellule, const SignesDeNombres& signes) {
  std::optional<NombreDeCellule> nombre = LireNombre(cellule);
  if (!nombre || (nombre->signe == '\0' && nombre->groupes == '\0')) return nombre;
  if (nombre->EstAmbigu()) {
    if (nombre->signe == signes.milliers) nombre->LireEnMilliers();
    else if (signes.douteRefuse) return std::nullopt;
  }
  if (nombre->signe != '\0' && nombre->signe != signes.decimale) return std::nullopt;
  if (nombre->groupes == signes.decimale) return std::nullopt;
  return nombre;
}

bool EstDate(std::string_view cellule) {
  if (cellule.size() < kDateLaPlusCourte || cellule.size() > kDateLaPlusLongue || !EstChiffre(cellule.front()))
    return false;
  if (EstHeure(cellule)) return true;
  const std::size_t jour = LongueurDuJour(cellule);
  if (jour == 0) return false;
  if (jour == cellule.size()) return true;
  if (!EstBlancDeCellule(cellule[jour]) && cellule[jour] != 'T') return false;
  std::string_view heure = cellule.substr(jour + 1);
  if (heure.starts_with("à "_w)) heure.remove_prefix(2);
  return EstHeure(RognerCellule(heure));
}

std::string NettoyerIntitule(std::string_view intitule) {
  std::string propre;
  bool aLaBalise = false;  // the last blank stands for a tag
  for (std::size_t i = 0; i < intitule.size(); ++i) {
    const char c = intitule[i];
    if (c == '<') {
      if (const std::size_t longueur = LongueurDeBalise(intitule.substr(i)); longueur > 0) {
        i += longueur - 1;
        if (!propre.empty() && propre.back() != ' ') propre += ' ';
        aLaBalise = true;
        continue;
      }
    }
    if (c == '&') {
      const std::string_view reste = intitule.substr(i + 1);
      const auto entite = std::ranges::find_if(kEntites, [&](const Entite& e) {
        return reste.starts_with(e.nom) && reste.size() > e.nom.size() && reste[e.nom.size()] == ';';
      });
      if (entite != kEntites.end()) {
        propre += entite->signe;
        aLaBalise = false;
        i += entite->nom.size() + 1;
        continue;
      }
    }
    const bool blanc = EstBlancDeCellule(c) || static_cast<unsigned char>(c) < 0x20;
    if (blanc && aLaBalise) continue;
    aLaBalise = false;
    propre += blanc ? ' ' : c;
  }
  return std::string(RognerCellule(propre));
}

}  // namespace quelvar::capture
