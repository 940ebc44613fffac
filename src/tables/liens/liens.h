// Link files .PEM and .PEL: records of two nodes and a value, their reading and writing, and the sorts that decide the
// order of profiles and of drawn lines.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/dialogue.h"

namespace quelvar::tables {

// Nodes are numbered from 1 in the order of the files: in a rectangular table of C columns, columns 1 to C and row i
// as C + i; in a Burt table the modalities of the .MOD.
struct Lien {
  std::int16_t premier = 0;
  std::int16_t second = 0;
  float valeur = 0;  // PEM in percent (.PEM), or proximity index from 0 to 100 (.PEL)
};

// Bytes of a record in the file: the two nodes and the value, little-endian.
inline constexpr std::size_t kOctetsDUnLien = 8;

// Number of a node; raises kDepassementCapacite beyond 32767.
std::int16_t NumeroDeNoeud(std::size_t numero);

// The records of the file in their order; none when there is no file. Bytes behind the last whole record are left out.
// Raises kErreurPeripherique, kPermissionRefusee or kAccesFichier.
std::vector<Lien> LireLiens(const std::optional<Chemin>& chemin);

// Writes the records behind each other.
void EcrireLiens(Ecrivain& fichier, std::span<const Lien> liens);

// Key of the heap sort: the value, descending; the first node, ascending; the second node, ascending.
enum class ModeTri { NBR, LIGN, COL };

// Sorts the records by TrierParTas, whose steps settle the order of equal keys; the progress display of the dialogue
// runs meanwhile.
void TrierLiens(std::span<Lien> liens, ModeTri mode, const Dialogue& dialogue);

// Sorts the records of one profile by value, descending; two equal values are exchanged whenever they are compared.
// Source: D. L. Shell, "A High-Speed Sorting Procedure", Communications of the ACM 2 (1959), gaps n/2, n/4, ... 1.
void TrierProfil(std::span<Lien> profil);

}  // namespace quelvar::tables
