#include "core/texte/texte.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

using TableDOctets = std::array<char, 256>;

// In the code page a capital stands 20 hex before its small letter, and 10 hex in the rows of 80 and 90; that of "ÿ" is
// among these.

constexpr TableDOctets ConstruireMajuscules() {
  TableDOctets table{};
  for (unsigned i = 0; i < table.size(); ++i) {
    unsigned haut = i;
    if ((i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE && i != 0xF7)) haut = i - 0x20;
    if (i == 0x9A || i == 0x9C || i == 0x9E) haut = i - 0x10;
    if (i == 0xFF) haut = 0x9F;
    table[i] = static_cast<char>(haut);
  }
  return table;
}

constexpr TableDOctets kMajuscules = ConstruireMajuscules();

constexpr TableDOctets ConstruireMinuscules() {
  TableDOctets table{};
  for (unsigned i = 0; i < table.size(); ++i) table[i] = static_cast<char>(i);
  for (unsigned i = 0; i < table.size(); ++i)
    if (static_cast<unsigned char>(kMajuscules[i]) != i)
      table[static_cast<unsigned char>(kMajuscules[i])] = static_cast<char>(i);
  return table;
}

constexpr TableDOctets kMinuscules = ConstruireMinuscules();

constexpr TableDOctets ConstruireSansAccent() {
  constexpr std::string_view kAccentuees = "ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÑÒÓÔÕÖÙÚÛÜÝàáâãäåçèéêëìíîïñòóôõöùúûüýÿ"_w;
  constexpr std::string_view kNues = "AAAAAACEEEEIIIINOOOOOUUUUYaaaaaaceeeeiiiinooooouuuuyy";
  static_assert(kAccentuees.size() == kNues.size());
  TableDOctets table{};
  for (unsigned i = 0; i < table.size(); ++i) table[i] = static_cast<char>(i);
  for (std::size_t i = 0; i < kNues.size(); ++i) table[static_cast<unsigned char>(kAccentuees[i])] = kNues[i];
  return table;
}

constexpr TableDOctets kSansAccent = ConstruireSansAccent();

}  // namespace

std::string Joindre(std::initializer_list<Texte> morceaux) {
  std::size_t longueur = 0;
  for (const Texte& morceau : morceaux) longueur += morceau.Vue().size();
  std::string resultat;
  resultat.reserve(longueur);
  for (const Texte& morceau : morceaux) resultat += morceau.Vue();
  return resultat;
}

std::string_view RognerGauche(std::string_view texte) {
  const std::size_t debut = texte.find_first_not_of(' ');
  return debut == std::string_view::npos ? std::string_view{} : texte.substr(debut);
}

std::string_view RognerDroite(std::string_view texte) { return texte.substr(0, texte.find_last_not_of(' ') + 1); }

std::string_view Rogner(std::string_view texte) { return RognerGauche(RognerDroite(texte)); }

char Majuscule(char c) { return kMajuscules[static_cast<unsigned char>(c)]; }
char Minuscule(char c) { return kMinuscules[static_cast<unsigned char>(c)]; }
char SansAccent(char c) { return kSansAccent[static_cast<unsigned char>(c)]; }

std::string Majuscules(std::string_view texte) {
  std::string resultat(texte);
  std::transform(resultat.begin(), resultat.end(), resultat.begin(), Majuscule);
  return resultat;
}

std::string Minuscules(std::string_view texte) {
  std::string resultat(texte);
  std::transform(resultat.begin(), resultat.end(), resultat.begin(), Minuscule);
  return resultat;
}

bool EgalSansCasse(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Majuscule(x) == Majuscule(y); });
}

std::string_view Milieu(std::string_view texte, std::size_t colonne, std::size_t largeur) {
  return colonne > texte.size() ? std::string_view{} : texte.substr(colonne - 1, largeur);
}

namespace {

// A foreign character in a name: its point on eleven digits to the base of four between two marks, all of them bytes
// that the code page leaves undefined. Points beyond those of Unicode are bytes that are no UTF-8.
constexpr char kMarqueEtrangere = '\x81';
constexpr std::string_view kChiffresEtrangers = "\x8D\x8F\x90\x9D";
constexpr std::size_t kNombreDeChiffres = 11;
constexpr std::size_t kEtranger = kNombreDeChiffres + 2;
constexpr std::uint32_t kOctetBrut = 0x110000;

void AjouterEtranger(std::string& nom, std::uint32_t point) {
  nom += kMarqueEtrangere;
  for (std::size_t i = kNombreDeChiffres; i-- > 0;) nom += kChiffresEtrangers[point >> (2 * i) & 3];
  nom += kMarqueEtrangere;
}

// The point of the sequence that the text begins with.
std::optional<std::uint32_t> EtrangerEnTete(std::string_view texte) {
  if (texte.size() < kEtranger || texte.front() != kMarqueEtrangere || texte[kEtranger - 1] != kMarqueEtrangere)
    return std::nullopt;
  std::uint32_t point = 0;
  for (const char c : texte.substr(1, kNombreDeChiffres)) {
    const std::size_t chiffre = kChiffresEtrangers.find(c);
    if (chiffre == std::string_view::npos) return std::nullopt;
    point = point << 2 | static_cast<std::uint32_t>(chiffre);
  }
  return point < kOctetBrut + 256 ? std::optional(point) : std::nullopt;
}

}  // namespace

void AjouterUtf8(std::string& utf8, char32_t point) {
  const auto suite = [&](unsigned decalage) { utf8 += static_cast<char>(0x80 | ((point >> decalage) & 0x3F)); };
  if (point < 0x80) {
    utf8 += static_cast<char>(point);
  } else if (point < 0x800) {
    utf8 += static_cast<char>(0xC0 | (point >> 6));
    suite(0);
  } else if (point < 0x10000) {
    utf8 += static_cast<char>(0xE0 | (point >> 12));
    suite(6);
    suite(0);
  } else {
    utf8 += static_cast<char>(0xF0 | (point >> 18));
    suite(12);
    suite(6);
    suite(0);
  }
}

std::string VersUtf8(std::string_view texte) {
  std::string utf8;
  utf8.reserve(texte.size() + texte.size() / 8);
  const auto estTelQuel = [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != kMarqueEtrangere; };
  for (std::size_t i = 0; i < texte.size(); ++i) {
    const auto fin = std::find_if_not(texte.begin() + static_cast<std::ptrdiff_t>(i), texte.end(), estTelQuel);
    utf8.append(texte.begin() + static_cast<std::ptrdiff_t>(i), fin);
    i = static_cast<std::size_t>(fin - texte.begin());
    if (i == texte.size()) break;
    const auto octet = static_cast<unsigned char>(texte[i]);
    if (texte[i] == kMarqueEtrangere) {
      if (const std::optional<std::uint32_t> point = EtrangerEnTete(texte.substr(i))) {
        if (*point >= kOctetBrut) utf8 += static_cast<char>(*point - kOctetBrut);
        else AjouterUtf8(utf8, *point);
        i += kEtranger - 1;
        continue;
      }
    }
    AjouterUtf8(utf8, octet >= 0x80 && octet <= 0x9F ? kPointsDe80[octet - 0x80U] : octet);
  }
  return utf8;
}

std::string NomDepuisUtf8(std::string_view utf8) {
  std::string nom;
  while (!utf8.empty()) {
    const PointUtf8 lu = DecoderUtf8(utf8);
    const int octet = lu.longueur == 0 ? -1 : OctetDe(lu.point);
    if (lu.longueur == 0) AjouterEtranger(nom, kOctetBrut + static_cast<unsigned char>(utf8.front()));
    else if (octet < 0 || static_cast<char>(octet) == kMarqueEtrangere)
      AjouterEtranger(nom, static_cast<std::uint32_t>(lu.point));
    else nom += static_cast<char>(octet);
    utf8.remove_prefix(std::max<std::size_t>(lu.longueur, 1));
  }
  return nom;
}

std::string NomMontrable(std::string_view nom) {
  std::string texte;
  for (std::size_t i = 0; i < nom.size(); ++i) {
    const bool etranger = EtrangerEnTete(nom.substr(i)).has_value();
    texte += etranger ? '?' : nom[i];
    if (etranger) i += kEtranger - 1;
  }
  return texte;
}

bool AvecEtrangers(std::string_view nom) { return nom.find(kMarqueEtrangere) != std::string_view::npos; }

std::size_t EtrangerFinal(std::string_view nom) {
  return nom.size() >= kEtranger && EtrangerEnTete(nom.substr(nom.size() - kEtranger)) ? kEtranger : 0;
}

std::string DepuisUtf8(std::string_view utf8) {
  std::string texte;
  texte.reserve(utf8.size());
  while (!utf8.empty()) {
    const PointUtf8 lu = DecoderUtf8(utf8);
    const int octet = lu.longueur == 0 ? -1 : OctetDe(lu.point);
    texte += octet < 0 ? '?' : static_cast<char>(octet);
    utf8.remove_prefix(std::max<std::size_t>(lu.longueur, 1));
  }
  return texte;
}

bool OterMarqueUtf8(std::string_view& octets) {
  const bool marque = octets.starts_with(kMarqueUtf8);
  if (marque) octets.remove_prefix(kMarqueUtf8.size());
  return marque;
}

bool EstUtf8MultiOctet(std::string_view octets) {
  bool multiple = false;
  for (;;) {
    octets.remove_prefix(PremierHaut(octets));
    if (octets.empty()) break;
    const PointUtf8 lu = DecoderUtf8(octets);
    if (lu.longueur == 0) return false;
    multiple = true;
    octets.remove_prefix(lu.longueur);
  }
  return multiple;
}

bool EstUtf8(std::string_view octets) { return octets.starts_with(kMarqueUtf8) || EstUtf8MultiOctet(octets); }

}  // namespace quelvar
