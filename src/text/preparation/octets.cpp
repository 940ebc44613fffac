#include "text/preparation/octets.h"

#include <cstdint>
#include <string_view>

#include "core/texte/texte.h"

namespace quelvar::text {

namespace {

constexpr unsigned kVersMinuscule = 'a' - 'A';
constexpr int kEsperluettesQuiGardent = 3;  // a line end behind so many "&" stays

bool Entre(unsigned c, unsigned bas, unsigned haut) { return c >= bas && c <= haut; }

// What becomes of each letter that has an accent: the forms that it has in the code page. Not what SansAccent makes of
// them: a capital gives a small letter here, Æ an a and Ø an o, while ñ, ý and ÿ stay.
struct FormesAccentuees {
  char lettre;
  std::string_view formes;
};
constexpr FormesAccentuees kAccentuees[] = {{'a', "ÀÁÂÃÄÅÆàáâãäå"_w}, {'e', "ÈÉÊËèéêë"_w}, {'i', "ÌÍÎÏìíîï"_w},
                                            {'o', "ÒÓÔÕÖØòóôõöø"_w},  {'u', "ÙÚÛÜùúûü"_w}, {'c', "Çç"_w}};

unsigned SansAccentDuTexte(unsigned c) {
  for (const FormesAccentuees& accentuees : kAccentuees)
    if (accentuees.formes.find(static_cast<char>(c)) != std::string_view::npos)
      return static_cast<unsigned char>(accentuees.lettre);
  return c;
}

unsigned SansPonctuation(unsigned c) {
  constexpr std::string_view kSignes = "!\"'(),-.:;<>?[]`\t";
  constexpr unsigned kLigatureMajuscule = 0x8C;  // of o and e
  constexpr unsigned kLigatureMinuscule = 0x9C;
  // From the braces on: signs only, up to the accented letters.
  constexpr unsigned kPremierSigne = '{';
  constexpr unsigned kDernierSigne = 0xBF;
  if (c < kPremierSigne) return kSignes.find(static_cast<char>(c)) == std::string_view::npos ? c : ' ';
  if (c == kLigatureMajuscule) return kLigatureMinuscule;
  return Entre(c, kPremierSigne, kDernierSigne) && c != kLigatureMinuscule ? ' ' : c;
}

}  // namespace

std::array<char, 256> TableDe(const OptionsPrepText& options) {
  std::array<char, 256> table{};
  for (unsigned octet = 0; octet < table.size(); ++octet) {
    unsigned c = octet;
    if (options.accents) c = SansAccentDuTexte(c);
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
