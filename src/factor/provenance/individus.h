// Whether the individuals of the data are still those of the table: their codes are read again, and compared.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/programme/programme.h"

namespace quelvar::factor {

// The first individual of the .DAT that the table, or the logical coding, does not have with the code of a question.
struct IndividuDiscordant {
  std::int64_t numero = 0;  // line of the .DAT
  std::string question;
  std::string fichier;  // .BRT or .CDG
};
// Nothing when all of them agree, or when a file that it takes is not there. Raises the failures of reading.
std::optional<IndividuDiscordant> ChercherIndividuDiscordant(const Contexte& contexte);

}  // namespace quelvar::factor
