// File sort: orders the lines of any text file by a field of fixed columns, or only trims them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/programme.h"
#include "utilities/tri/chaines.h"

namespace quelvar::utilities {

// The field that orders the lines.
struct ChampDeTri {
  std::int64_t position = 0;  // first column, from 1; 0 for no sort
  std::int64_t largeur = 0;   // columns; those behind the twentieth do not count
  SensDeTri sens = SensDeTri::Croissant;
};

// Ranks (from 0) of the lines in the order of the field. Raises kArgumentIncorrect for a negative position or width.
std::vector<std::uint32_t> OrdreDesLignes(const std::vector<std::string_view>& lignes, const ChampDeTri& champ,
                                          const Dialogue& dialogue);

struct OptionsTriFichier {
  std::string fichierA{};  // input, as typed
  std::string fichierC{};  // result, as typed; may be the input
  std::string position{};  // as typed; what is no number counts as 0
  std::string largeur{};   // as typed
  SensDeTri sens = SensDeTri::Croissant;
  bool rogner = false;  // trailing blanks of each line go

  bool operator==(const OptionsTriFichier&) const = default;
};

// What the user still has to give before a sort can start; empty when nothing is missing. "A" and "C" being one file
// is a question for the form, not a refusal.
std::string_view RefusDeTrier(const OptionsTriFichier& options);
// The same for the form, whose field is one to ten columns wide.
std::string_view RefusDuFormulaire(const OptionsTriFichier& options);

// Asked before a sort whose result takes the place of its input.
inline constexpr std::string_view kTriSurPlace =
    "*** Attention : le résultat du tri sera mis dans le fichier d'origine, c'est possible mais fait perdre "
    "l'ordre d'origine. L'acceptez-vous ?"_w;

// Runs the sort with its account in the .prt of the generic. C is replaced at the normal end only.
Fin TriFichier(const Contexte& contexte, const OptionsTriFichier& options);
// The same as a program of the form Utilitaires, with the words that these have for an unexpected error.
Fin TriDesUtilitaires(const Contexte& contexte, const OptionsTriFichier& options);

}  // namespace quelvar::utilities
