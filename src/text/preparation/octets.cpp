#include "text/preparation/octets.h"

#include <cstdint>
#include <string_view>

namespace quelvar::text {

namespace {

constexpr unsigned kVersMinuscule = 'a' - 'A';
constexpr int kEsperluettesQuiGardent = 3;  // a line end behind so many "&" stays

bool Entre(unsigned c, unsigned bas, unsigned haut) { return c >= bas && c <= haut; }

// Letters of the code page by their accented forms, capitals then small ones.
unsigned SansAccent(unsigned c) {
  if (Entre(c, 192, 198) || Entre(c, 224, 229)) return 'a';
  if (Entre(c, 200, 203) || Entre(c, 232, 235)) return 'e';
  if (Entre(c, 204, 207) || Entre(c, 236, 239)) return 'i';
  if (Entre(c, 210, 214) || Entre(c, 242, 246) || c == 216 || c == 248) return 'o';
  if (Entre(c, 217, 220) || Entre(c, 249, 252)) return 'u';
  if (c == 231 || c == 199) return 'c';
  return c;
}

unsigned SansPonctuation(unsigned c) {
  constexpr unsigned kHorsAscii = 128;
  constexpr unsigned kLigatureMajuscule = 140;  // the ligature of o and e
  constexpr unsigned kLigatureMinuscule = 156;
  constexpr std::string_view kSignes = "!\"'(),-.:;<>?[]`\t";
  if (c < kHorsAscii && kSignes.find(static_cast<char>(c)) != std::string_view::npos) return ' ';
  if (c == kLigatureMajuscule) return kLigatureMinuscule;
  return Entre(c, 123, 155) || Entre(c, 157, 191) ? ' ' : c;
}

}  // namespace

std::array<char, 256> TableDe(const OptionsPrepText& options) {
  std::array<char, 256> table{};
  for (unsigned octet = 0; octet < table.size(); ++octet) {
    unsigned c = octet;
    if (options.accents) c = SansAccent(c);
    if (options.ponctuation) c = SansPonctuation(c);
    if (options.majusculesEnMin && Entre(c, 'A', 'Z')) c += kVersMinuscule;
    if (options.minusculesEnMaj && Entre(c, 'a', '~')) c -= kVersMinuscule;
    table[octet] = static_cast<char>(c);
  }
  return table;
}

void TransformerOctets(std::string& texte, const OptionsPrepText& options) {
  const std::array<char, 256> table = TableDe(options);
  std::int64_t esperluettes = 0;
  for (char& c : texte) {
    if (options.finsDeLigne) {
      if (c == '&') ++esperluettes;
      if (c == '\n' && esperluettes == kEsperluettesQuiGardent) {
        esperluettes = 0;
        continue;
      }
      if (c == '\r' || c == '\n') c = ' ';
    }
    c = table[static_cast<unsigned char>(c)];
  }
}

}  // namespace quelvar::text
