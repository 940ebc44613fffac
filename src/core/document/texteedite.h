// A text file as the editor holds it: decoded to UTF-16 and encoded again without the loss of a byte, and saved whole
// or not at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/document/empreinte.h"
#include "core/fichiers/fichiers.h"

namespace quelvar {

enum class EncodageDuTexte { PageDeCode, Utf8 };
enum class FinsDeLigne { CrLf, Lf };

// What a file has besides its characters; a new file is one of the code page with CR LF.
struct FormeTexte {
  EncodageDuTexte encodage = EncodageDuTexte::PageDeCode;
  bool marqueUtf8 = false;  // starts with a byte-order mark
  FinsDeLigne fins = FinsDeLigne::CrLf;
  bool finsMelangees = false;  // some lines end the other way; each keeps its own end
  bool finale1A = false;       // ends with the byte 1A hex

  bool operator==(const FormeTexte&) const = default;
};

struct DocumentTexte {
  // Lines are ended by LF. Control bytes stand as their pictures (U+2400 and following, U+2421 for 7F), the undefined
  // bytes of the code page under their own number, its soft hyphen (AD hex) as U+2010. A line that ends otherwise than
  // the others has the picture of CR or LF before its end.
  std::u16string texte;
  FormeTexte forme;
};

// UTF-8 is taken for what it is when the bytes hold multi-byte sequences, no invalid one and no character that stands
// for something else here; everything else is read as the code page.
DocumentTexte DecoderTexte(std::string_view octets);
// The bytes of a text; characters that the encoding lacks become "?".
std::string EncoderTexte(std::u16string_view texte, const FormeTexte& forme);
// The text with each character that the encoding lacks replaced by "?".
std::u16string CaracteresAdmis(std::u16string_view texte, EncodageDuTexte encodage);

// What the text box of the editor can hold and stay usable.
struct Capacite {
  std::uintmax_t octets = std::uintmax_t{64} << 20;
  std::size_t lignes = 1'500'000;
  std::size_t longueurLigne = 100'000;
};
struct Mesure {
  std::uintmax_t octets = 0;
  std::size_t lignes = 0;
  std::size_t longueurLigne = 0;  // of the longest line
};
Mesure MesurerTexte(std::string_view octets);
bool Contient(const Capacite& capacite, const Mesure& mesure);
// The sentence for a file that exceeds the capacity, in the code page.
std::string TexteCapacite(std::string_view nom, const Mesure& mesure, const Capacite& capacite);

struct FichierOuvert {
  DocumentTexte document;
  Empreinte empreinte;
  Mesure mesure;  // when it exceeds the capacity the document is empty
};
// Raises a failure of reading.
FichierOuvert OuvrirDocument(const Chemin& chemin, const Capacite& capacite);
// Writes the file in one rename and returns what it is now. Raises a failure of writing: the file then stays what it
// was.
Empreinte EnregistrerDocument(const Chemin& chemin, std::u16string_view texte, const FormeTexte& forme);

// The lines longer than `longueur` broken into lines of that length, for a view that is not to stand still on them.
std::u16string CouperLignesLongues(std::u16string texte, std::size_t longueur);

}  // namespace quelvar
