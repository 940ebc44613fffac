// The name of a modality, and the question and the code that it stands for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/enquete/posfile.h"

namespace quelvar {

// Name of a modality: three characters of the question and the code character, or from kPremierCodeDouble on two
// characters and two digits. Raises kIndiceHorsSelection for a code above kDernierCodeNomme or below 0.
std::string NomDeModalite(std::string_view nomQuestion, int code);

struct CodeDeModalite {
  std::size_t question = 0;  // rank in the .POS
  int code = 0;              // beyond the code-max of its question when no code fits
};

enum class FauteDeNom { Aucune, Inconnue, HorsNorme, Partagee };

// The code of a name of four characters: a digit, or "A" to "Z" from 10 on, behind three characters of the question;
// two digits from 36 on behind two characters. Where several readings fit (NB36 is the code 36 of NBA and of NBB, and
// the code 6 of NB3), it is the next code of the question of the modality before it in the list (`precedente`), else
// another one of that question; Partagee when that question has none.
FauteDeNom LireNomDeModalite(const FichierPos& pos, std::string_view nom, std::optional<CodeDeModalite> precedente,
                             CodeDeModalite& lu);

}  // namespace quelvar
