// From the lines of a text to the words of each individual: check of the lines, records, cutting.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/decoupage/mots.h"

namespace quelvar::text {

enum class ReponseVide { NonReponse, Supprimee };

struct ConsignesDeCoupe {
  Gabarit gabarit;
  ReponseVide vide = ReponseVide::NonReponse;
  std::int64_t lignesMax = 1;  // lines of an individual
};

// What the report is told, in its order.
struct TemoinsDeCoupe {
  std::function<void(std::int64_t ligne, std::string_view texte)> incomplete;  // shorter than the characteristics
  std::function<void(std::string_view caracteristiques)> tropDeLignes;         // once a record
  std::function<void()> sansEtoile;                                            // the text ends inside a record
  std::function<void(const Concordance& mot)> motLong;                         // longer than its field
  std::function<void(std::string_view etape, std::int64_t nombre)> etape;      // every thousand lines or records
};

struct BilanDeCoupe {
  std::int64_t lignes = 0;  // kept by the check
  std::int64_t mots = 0;    // of all records
  std::int64_t motsLongs = 0;
  std::int64_t erreurs = 0;
  std::int64_t premiereErreur = 0;       // number in the text of the line of the first of them
  std::int64_t etoilesAvant = 0;         // lines with a star among their characteristics, where it ends nothing
  std::int64_t premiereEtoileAvant = 0;  // number of the first of them in the text
};

// Cuts the text; `corpus` gets its individuals and words (with themes, those that begin with "$" only).
// Raises kMemoireInsuffisante beyond 2^32 bytes in one record or 2^32 words.
BilanDeCoupe CouperTexte(std::string_view texte, const ConsignesDeCoupe& consignes, const TemoinsDeCoupe& temoins,
                         Corpus& corpus);

}  // namespace quelvar::text
