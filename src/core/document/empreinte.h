// Notices that a file has changed on the disk since it was read or written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

#include "core/fichiers/fichiers.h"

namespace quelvar {

// What is remembered of a file to notice that another program has changed it.
struct Empreinte {
  std::uintmax_t taille = 0;
  std::filesystem::file_time_type instant{};
  std::optional<std::uint64_t> contenu;  // digest; nothing when size and time are to be enough
};
// Of a file whose bytes have been read or written.
Empreinte EmpreinteDe(const Chemin& chemin, std::string_view octets);
// Without a look at the content. Raises kFichierIntrouvable, kPermissionRefusee or kAccesFichier.
Empreinte EmpreinteSansContenu(const Chemin& chemin);

enum class SurDisque { Inchange, Modifie, Disparu };
// Compares the file with what is remembered of it. The content decides as soon as the size or the time differs, and
// always when `toujoursLire`; a file that only has another time is unchanged and its time is taken over. A file that
// cannot be read counts as gone.
SurDisque ComparerAvecDisque(const Chemin& chemin, Empreinte& connue, bool toujoursLire);

}  // namespace quelvar
