#include "capture/apercu/octets/pages.h"

#include <algorithm>
#include <array>
#include <utility>

#include "capture/apercu/octets/cellule.h"
#include "capture/encodage/pagecode.h"
#include "core/fichiers/systeme/morceaux.h"
#include "core/panne/erreur.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

// ISO 8859-15 differs from the code page in eight signs.
unsigned char DeLatin9(unsigned char octet) {
  switch (octet) {
    case 0xA4: return 0x80;
    case 0xA6: return 0x8A;
    case 0xA8: return 0x9A;
    case 0xB4: return 0x8E;
    case 0xB8: return 0x9E;
    case 0xBC: return 0x8C;
    case 0xBD: return 0x9C;
    case 0xBE: return 0x9F;
    default: return octet;
  }
}

// What stands for a character that the code page lacks and that nobody would miss; 0 to leave it out, -1 for none.
int Remplacant(char32_t point) {
  // Spaces of other widths.
  if (point == 0x202F || (point >= 0x2000 && point <= 0x200A) || point == 0x205F || point == 0x3000)
    return static_cast<unsigned char>(kInsecable);
  // Hyphens, and the sign of the negative.
  if (point == 0x2010 || point == 0x2011 || point == 0x2212) return '-';
  // The ends of a line and of a paragraph within a cell.
  if (point == 0x2028 || point == 0x2029) return ' ';
  // What has no width: joiners, marks of direction, a mark of byte order in the text.
  if ((point >= 0x200B && point <= 0x200F) || point == 0x2060 || point == 0xFEFF) return 0;
  return -1;
}

// The letter of the code page that a letter and its combining accent make; 0 for none.
char Composer(char lettre, char32_t accent) {
  struct Serie {
    char32_t accent;
    std::string_view lettres;
    std::string_view composees;
  };
  static constexpr std::array<Serie, 6> kSeries = {{{0x300, "aeiouAEIOU", "àèìòùÀÈÌÒÙ"_w},
                                                    {0x301, "aeiouyAEIOUY", "áéíóúýÁÉÍÓÚÝ"_w},
                                                    {0x302, "aeiouAEIOU", "âêîôûÂÊÎÔÛ"_w},
                                                    {0x303, "anoANO", "ãñõÃÑÕ"_w},
                                                    {0x308, "aeiouyAEIOUY", "äëïöüÿÄËÏÖÜŸ"_w},
                                                    {0x327, "cC", "çÇ"_w}}};
  for (const Serie& serie : kSeries) {
    if (serie.accent != accent) continue;
    const std::size_t rang = serie.lettres.find(lettre);
    if (rang != std::string_view::npos) return serie.composees[rang];
  }
  return 0;
}

void DecoderUtf8(std::string_view octets, std::string& tampon, std::int64_t& etrangers) {
  for (std::size_t ascii = 0; ascii = PremierHaut(octets, 0), ascii < octets.size();) {
    tampon.append(octets.substr(0, ascii));
    octets.remove_prefix(ascii);
    // The letters of French: one byte of the code page for two.
    if (octets.size() > 1 && octets[0] == '\xC3' && (octets[1] & 0xC0) == 0x80) {
      tampon += static_cast<char>(octets[1] + 0x40);
      octets.remove_prefix(2);
      continue;
    }
    const PointUtf8 lu = quelvar::DecoderUtf8(octets);
    octets.remove_prefix(lu.longueur == 0 ? 1 : lu.longueur);
    int octet = lu.longueur == 0 ? -1 : OctetDe(lu.point);
    if (octet >= 0) {
      tampon += static_cast<char>(octet);
      continue;
    }
    if (lu.longueur != 0) {
      if (const char composee = tampon.empty() ? '\0' : Composer(tampon.back(), lu.point); composee != 0) {
        tampon.back() = composee;
        continue;
      }
      octet = Remplacant(lu.point);
      if (octet == 0) continue;
    }
    if (octet < 0) {
      ++etrangers;
      octet = kEtranger;
    }
    tampon += static_cast<char>(octet);
  }
  tampon.append(octets);
}

bool EstUtf16(EncodageDeTable encodage) {
  return encodage == EncodageDeTable::Utf16LE || encodage == EncodageDeTable::Utf16BE;
}

}  // namespace

std::string_view EnPageDeCode(std::string_view octets, EncodageDeTable encodage, std::string& tampon,
                              std::int64_t& etrangers) {
  if (encodage == EncodageDeTable::Windows1252 || EstAscii(octets)) return octets;
  tampon.clear();
  if (encodage == EncodageDeTable::Latin9) {
    for (const char c : octets) tampon += static_cast<char>(DeLatin9(static_cast<unsigned char>(c)));
  } else if (encodage == EncodageDeTable::Cp850) {
    const TableDOctets& table = TableDePage(PageDeCode::Dos850);
    for (const char c : octets) {
      tampon += table[static_cast<unsigned char>(c)];
      if (tampon.back() == kEtranger && c != kEtranger) ++etrangers;
    }
  } else {
    DecoderUtf8(octets, tampon, etrangers);
  }
  return tampon;
}

LignesDecodees::LignesDecodees(const Chemin& source, EncodageDeTable encodage)
    : source_(source),
      seize_(EstUtf16(encodage)),
      decodeur_(encodage == EncodageDeTable::Utf16BE ? Utf16::GrosBout : Utf16::PetitBout) {}

// Decodes one more piece; `finie_` when there is none behind it.
void LignesDecodees::Remplir() {
  tampon_.erase(0, debut_);
  debut_ = 0;
  const std::string lu = LireMorceau(source_, place_, kMorceau);
  place_ += lu.size();
  finie_ = lu.empty();
  if (!seize_) tampon_ += lu;
  else if (finie_) decodeur_.Finir(tampon_);
  else decodeur_.Ajouter(lu, tampon_);
}

bool LignesDecodees::Lire(std::string_view& ligne) {
  std::size_t fin = std::string::npos;
  for (std::size_t vus = 0;; Remplir()) {
    fin = tampon_.find_first_of("\r\n", debut_ + vus);
    // A CR that ends what is there may have its LF in the next piece.
    if (finie_ || (fin != std::string::npos && (tampon_[fin] == '\n' || fin + 1 < tampon_.size()))) break;
    vus = std::min(fin, tampon_.size()) - debut_;
    if (vus > LecteurLignes::kLigneAuPlus) throw Erreur(kMemoireInsuffisante);
  }
  if (fin == std::string::npos && debut_ == tampon_.size()) return false;
  ligne = std::string_view(tampon_).substr(debut_, std::min(fin, tampon_.size()) - debut_);
  debut_ += ligne.size();
  if (fin != std::string::npos) debut_ += tampon_.compare(fin, 2, "\r\n") == 0 ? std::size_t{2} : std::size_t{1};
  return true;
}

}  // namespace quelvar::capture
