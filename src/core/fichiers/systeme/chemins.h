// Paths and names: a name is looked up without regard to case.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quelvar {

using Chemin = std::filesystem::path;

// A text of the code page as a path, and back; the bytes of NomDepuisUtf8 stand for what the code page lacks.
Chemin CheminDe(std::string_view texte);
std::string TexteDe(const Chemin& chemin);

// The existing file (or directory) that a name of the directory stands for, without regard to case: the exact spelling
// wins, else the first in byte order. A name with directories in it has each component resolved so.
std::optional<Chemin> ChercherFichier(const Chemin& repertoire, std::string_view nom);
// Where a file of that name is written: over the file that exists under the name it has, else under the name given.
Chemin CheminDEcriture(const Chemin& repertoire, std::string_view nom);
// Whether two paths lead to one file; not when one of them leads nowhere.
bool EstLeMemeFichier(const Chemin& a, const Chemin& b);
// Length in bytes; raises kFichierIntrouvable, kPermissionRefusee or kAccesFichier.
std::uintmax_t LongueurFichier(const Chemin& chemin);
// Deletes the file if it is there; raises kPermissionRefusee or kAccesFichier.
void EffacerFichier(const Chemin& chemin);

}  // namespace quelvar
