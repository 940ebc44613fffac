#include "capture/apercu/octets/encodages.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/pages.h"
#include "capture/encodage/pagecode.h"
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/texte/caracteres.h"
#include "core/texte/listes.h"

namespace quelvar::capture {

namespace {

[[noreturn]] void Refuser(const Chemin& source, Texte raison) {
  throw Erreur(kIncompatibiliteType,
               Joindre({kArretDuProgramme, "le fichier ", TexteDe(source.filename()), " ", raison}));
}

struct Signature {
  std::string_view octets;
  std::string_view raison;
};
constexpr std::string_view kAnonyme = "n'est pas un texte : enregistrez le tableau en .csv, .ods ou .xlsx.";
constexpr std::array<Signature, 9> kSignatures = {{
    {"PK\x03\x04", "est un classeur ou une archive : donnez-lui l'extension .ods ou .xlsx qui est la sienne."},
    {"\xD0\xCF\x11\xE0", "est un classeur de l'ancien format .xls : enregistrez-le en .xlsx, .ods ou .csv."},
    {"%PDF", kAnonyme},
    {"\x89PNG", kAnonyme},
    {"\xFF\xD8\xFF", kAnonyme},
    {"GIF8", kAnonyme},
    {"{\\rtf", kAnonyme},
    {"\x1F\x8B", "est comprimé : décomprimez-le d'abord."_w},
    {"<?xml", kAnonyme},
}};

// Zero bytes show UTF-16 without a mark when they are nearly all on one side, else a file that is no text.
std::optional<EncodageDeTable> SelonZeros(const Chemin& source, std::string_view tete) {
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = 0; i < tete.size(); ++i)
    if (tete[i] == '\0') ++zeros[i % 2];
  if (zeros[0] + zeros[1] == 0) return std::nullopt;
  // Letters of Europe have a zero beside them: most signs of a table do, even where some are typographic ones.
  constexpr double kPartDesForts = 0.4;
  constexpr double kPartDesFaibles = 0.05;
  const std::size_t paires = tete.size() / 2;
  const auto moitie = static_cast<double>(paires);
  const auto cote = [&](std::size_t fort) {
    return static_cast<double>(zeros[fort]) > kPartDesForts * moitie &&
           static_cast<double>(zeros[1 - fort]) < kPartDesFaibles * moitie;
  };
  if (cote(1)) return EncodageDeTable::Utf16LE;
  if (cote(0)) return EncodageDeTable::Utf16BE;
  Refuser(source, kAnonyme);
}

void RefuserSignature(const Chemin& source, std::string_view tete) {
  if (tete.empty()) Refuser(source, "est vide.");
  for (const Signature& signature : kSignatures)
    if (tete.starts_with(signature.octets)) Refuser(source, signature.raison);
}

bool EstControle(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n' && c != '\0' && c != '\x1A';
}

// A file of bytes that no text holds; of UTF-16 those beside a zero, at every second place from `fort` on, are judged:
// elsewhere they are halves of letters such as "oe" in one sign.
void RefuserControles(const Chemin& source, std::string_view tete, std::optional<std::size_t> fort) {
  std::size_t controles = 0;
  if (!fort) controles = static_cast<std::size_t>(std::ranges::count_if(tete, EstControle));
  else
    for (std::size_t i = 0; i + 1 < tete.size(); i += 2)
      if (tete[i + *fort] == '\0' && EstControle(tete[i + 1 - *fort])) ++controles;
  constexpr std::size_t kUnSur = 100;  // of the bytes of a text may have slipped in
  if (controles * kUnSur > tete.size()) Refuser(source, kAnonyme);
}

bool EstLettre(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7);
}
bool EstPetite(unsigned char c) { return EstLettre(c) && Minuscule(static_cast<char>(c)) == static_cast<char>(c); }

// A sign between its neighbours, all of them as bytes of the code page.
struct Signe {
  unsigned char avant = ' ', lui = ' ', apres = ' ';

  // An accented letter that texts in French, or names of their neighbours, have at such a place.
  bool EstLettreVraisemblable() const {
    static constexpr std::string_view kLettres = "àâçéèêëîïôùûüœöäáíóúñÀÂÇÉÈÊËÎÏÔÙÛÜŒ"_w;
    if (kLettres.find(static_cast<char>(lui)) == std::string_view::npos) return false;
    const bool petite = Minuscule(static_cast<char>(lui)) == static_cast<char>(lui);
    if (EstLettre(avant) || EstLettre(apres))
      return petite || (!EstPetite(avant) && !(EstLettre(avant) && EstPetite(apres)));
    static constexpr std::string_view kSeules = "àôÀÔ"_w;
    return kSeules.find(static_cast<char>(lui)) != std::string_view::npos;
  }
  // Another sign where it may stand: quotes and dashes at the edges of words, an apostrophe between letters...
  bool EstSigneVraisemblable() const {
    static constexpr std::string_view kDedans = "’·"_w;
    static constexpr std::string_view kApres = "…’”»°ªº²³™®©‰†‡€$%"_w;
    static constexpr std::string_view kAvant = "“«‘„‚§©–—¿¡"_w;
    const char c = static_cast<char>(lui);
    if (c == kInsecable) return true;
    if (EstLettre(avant) && EstLettre(apres)) return kDedans.find(c) != std::string_view::npos;
    if (EstLettre(apres)) return kAvant.find(c) != std::string_view::npos;
    if (EstLettre(avant)) return kApres.find(c) != std::string_view::npos;
    return true;
  }
  bool EstVraisemblable() const {
    if (lui == 0x81 || lui == 0x8D || lui == 0x8F || lui == 0x90 || lui == 0x9D) return false;  // no sign at all
    // A lone point of suspension has no blank behind it.
    if (lui == 0x85 && !EstLettre(avant) && apres == ' ') return false;
    return EstLettre(lui) || lui == 0x9C || lui == 0x8C ? EstLettreVraisemblable() : EstSigneVraisemblable();
  }
};

// Bytes above 127 by what they would be in each 8-bit encoding of French: those that make sense in one only.
struct Indices {
  std::int64_t page = 0;
  std::int64_t cp850 = 0;
  std::int64_t latin9 = 0;  // signs that only Latin-9 has use for
  std::int64_t c1 = 0;      // bytes that Latin-9 leaves to controls

  void Voir(std::string_view texte, std::size_t i) {
    const auto en = [&](std::size_t place) {
      return static_cast<unsigned char>(place < texte.size() ? texte[place] : ' ');
    };
    const unsigned char octet = en(i);
    const unsigned char avant = i > 0 ? en(i - 1) : static_cast<unsigned char>(' ');
    const unsigned char apres = en(i + 1);
    if (octet >= 0x80 && octet < 0xA0) ++c1;
    const bool enPage = Signe{avant, octet, apres}.EstVraisemblable();
    const TableDOctets& deCp850 = TableDePage(PageDeCode::Dos850);
    const auto traduit = [&](unsigned char o) { return static_cast<unsigned char>(deCp850[o]); };
    const bool enCp850 = Signe{traduit(avant), traduit(octet), traduit(apres)}.EstVraisemblable();
    if (enPage && !enCp850) ++page;
    if (enCp850 && !enPage) ++cp850;
    if (octet == 0xA4 || ((octet == 0xBD || octet == 0xBC) && (EstLettre(avant) || EstLettre(apres)))) ++latin9;
  }
  EncodageDeTable Choix() const {
    if (cp850 > page) return EncodageDeTable::Cp850;
    if (latin9 > 0 && c1 == 0) return EncodageDeTable::Latin9;
    return EncodageDeTable::Windows1252;
  }
};

// Place of the first byte that is not valid UTF-8; npos when all are. A sequence cut at the end is none.
std::size_t PremierInvalide(std::string_view octets) {
  for (std::size_t i = 0; i = PremierHaut(octets, i), i < octets.size();) {
    const PointUtf8 lu = DecoderUtf8(octets.substr(i));
    if (lu.longueur == 0) return i;
    i += lu.longueur;
  }
  return std::string_view::npos;
}

// Looks at a file piece by piece, cut behind line ends.
struct ExamenDOctets {
  static constexpr std::int64_t kCitees = 20;  // lines told by their number
  bool multiple = false;                       // valid sequences of UTF-8 were met, before what is not valid
  std::int64_t suites = 0;                     // valid sequences from the first invalid piece on
  std::int64_t isoles = 0;                     // bytes that are none
  std::int64_t lignes = 0;                     // lines before the piece
  std::int64_t ligneInvalide = 0;              // first line that is not valid UTF-8
  std::int64_t invalides = 0;                  // such lines
  std::vector<std::string> citees;             // the numbers of the first of them
  Indices indices;

  void Voir(std::string_view morceau) {
    if (!EstAscii(morceau)) {
      if (const std::size_t i = PremierInvalide(morceau); i == std::string_view::npos) {
        multiple = true;
      } else if (ligneInvalide == 0) {
        ligneInvalide = lignes + 1 + std::ranges::count(morceau.substr(0, i), '\n');
        multiple = multiple || EstUtf8MultiOctet(morceau.substr(0, i));
      }
      if (ligneInvalide != 0) CompterSuites(morceau);
      if (ligneInvalide != 0) CompterLignes(morceau);
      if (ligneInvalide != 0)
        for (std::size_t i = PremierHaut(morceau, 0); i < morceau.size(); i = PremierHaut(morceau, i + 1))
          indices.Voir(morceau, i);
    }
    lignes += std::ranges::count(morceau, '\n');
  }
  void CompterLignes(std::string_view morceau) {
    std::int64_t numero = lignes;
    for (std::size_t fin = 0; !morceau.empty(); morceau.remove_prefix(std::min(fin + 1, morceau.size()))) {
      fin = std::min(morceau.find('\n'), morceau.size());
      ++numero;
      if (PremierInvalide(morceau.substr(0, fin)) == std::string_view::npos) continue;
      if (++invalides <= kCitees) citees.push_back(Nombre(numero));
    }
  }
  void CompterSuites(std::string_view morceau) {
    for (std::size_t i = 0; i = PremierHaut(morceau, i), i < morceau.size();) {
      const std::size_t longueur = DecoderUtf8(morceau.substr(i)).longueur;
      ++(longueur == 0 ? isoles : suites);
      i += std::max<std::size_t>(longueur, 1);
    }
  }
  // UTF-8 with stray bytes in it. A few sequences among many such bytes come by chance ("CAFÉ" and a hard blank).
  bool EstMele() const { return multiple || suites > isoles; }
  std::string LignesInvalides() const { return Enumerer(citees) + (invalides > kCitees ? "..." : ""); }
};

// Whether a CR stands there that no LF follows.
bool AvecCrSeul(std::string_view morceau) {
  for (std::size_t i = morceau.find('\r'); i != std::string_view::npos; i = morceau.find('\r', i + 1))
    if (i + 1 < morceau.size() && morceau[i + 1] != '\n') return true;
  return false;
}

// The same of the file from that place on.
bool AvecCrSeul(const Chemin& source, std::string morceau, EtendueDeLecture etendue) {
  for (std::uintmax_t place = 0; !morceau.empty(); morceau = LireMorceau(source, place, kTete)) {
    if (AvecCrSeul(std::string_view(morceau))) return true;
    // A CR at its end may have its LF in the next piece.
    place += morceau.size() > 1 && morceau.back() == '\r' ? morceau.size() - 1 : morceau.size();
    if (etendue == EtendueDeLecture::Tete) break;
  }
  return false;
}

// The bytes up to the last line end; all of them without any.
std::string_view JusquaLaLigne(std::string_view octets) {
  const std::size_t fin = octets.rfind('\n');
  return fin == std::string_view::npos ? octets : octets.substr(0, fin + 1);
}

}  // namespace

EncodageDetecte DetecterEncodage(const Chemin& source, EtendueDeLecture etendue) {
  std::string morceau = LireMorceau(source, 0, kTete);
  if (morceau.starts_with(kMarqueUtf8))
    return {EncodageDeTable::Utf8AvecMarque, AvecCrSeul(source, std::move(morceau), etendue), {}};
  if (morceau.starts_with(std::string_view("\xFF\xFE\0\0", 4))) Refuser(source, kAnonyme);
  if (const std::optional<Utf16> ordre = MarqueUtf16(morceau))
    return {*ordre == Utf16::PetitBout ? EncodageDeTable::Utf16LE : EncodageDeTable::Utf16BE, false, {}};
  RefuserSignature(source, morceau);
  if (const std::optional<EncodageDeTable> seize = SelonZeros(source, morceau)) {
    RefuserControles(source, morceau, *seize == EncodageDeTable::Utf16LE ? 1 : 0);
    return {*seize, false, {}};
  }
  RefuserControles(source, morceau, std::nullopt);

  EncodageDetecte detecte;
  ExamenDOctets examen;
  for (std::uintmax_t place = 0; !morceau.empty(); morceau = LireMorceau(source, place, kTete)) {
    const std::string_view vu = morceau.size() < kTete ? std::string_view(morceau) : JusquaLaLigne(morceau);
    examen.Voir(vu);
    detecte.crSeuls = detecte.crSeuls || AvecCrSeul(vu);
    place += vu.size();
    if (etendue == EtendueDeLecture::Tete) break;
  }
  if (examen.ligneInvalide == 0) {
    if (examen.multiple) detecte.encodage = EncodageDeTable::Utf8;
    return detecte;
  }
  // Bytes of UTF-8 make sense as cp850 by chance only: a stray byte among them is no sign of it.
  detecte.encodage = examen.EstMele() ? EncodageDeTable::Windows1252 : examen.indices.Choix();
  if (!examen.EstMele() && examen.indices.page > 0 && examen.indices.cp850 > 0)
    detecte.doutes.push_back(
        Joindre({"Des accents sont de windows-1252 ("_w, Nombre(examen.indices.page), "), d'autres de cp850 (",
                 Nombre(examen.indices.cp850), ") : l'encodage n'est pas sûr. Vérifiez les accents."_w}));
  if (examen.EstMele())
    detecte.doutes.push_back(
        Joindre({"Le fichier mêle deux encodages, il est lu en windows-1252 : "_w, Nombre(examen.invalides),
                 " ligne(s) ne sont pas en UTF-8 (ligne ", examen.LignesInvalides(),
                 ") alors que d'autres le sont. Vérifiez les accents."_w}));
  return detecte;
}

}  // namespace quelvar::capture
