// The record of a commit: what becomes of each file of the set, with sizes and digests. It stands beside the generic
// from before the first rename, so that the next program of the family can finish or undo what a kill has cut, and
// goes when everything is in place.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar {

enum class GenreDEntree { Nouveau, Remplace, Efface, Allonge };

// One file of the set. A file is known again by its size and digest, or, where it is of no use to read it, by the
// place and the time that the file system gave it.
struct EntreeDeReleve {
  GenreDEntree genre = GenreDEntree::Nouveau;
  Nature nature = Nature::Refaisable;
  std::uint64_t taille = 0;     // of the new file
  std::uint64_t empreinte = 0;  // of the new file; of the bytes behind the former ones (Allonge)
  std::uint64_t ancienne = 0;   // length of the former file (Allonge)
  std::uint64_t noeud = 0;      // of the former file (Efface)
  std::int64_t instant = 0;     // its time in nanoseconds
  Chemin cible;
  Chemin provisoire;  // the new file before its exchange with the target, the former one behind it; none (Allonge)
};

struct Releve {
  std::string amorce;  // what the system calls its present start
  std::vector<EntreeDeReleve> entrees;
};

// `.ENQ.jeu` in the directory; one name for all spellings of a generic.
Chemin CheminDeReleve(const Chemin& repertoire, std::string_view generique);
// Nothing when there is none, and when it is not whole (it then says nothing about any file).
std::optional<Releve> LireReleve(const Chemin& chemin);
// Puts it in place in one rename, on the disk when `synchroniser`. Raises a failure of writing.
void EcrireReleve(const Chemin& chemin, const Releve& releve, bool synchroniser);

// Takes the record of the generic away. Raises a failure of writing.
void EffacerReleve(const Chemin& repertoire, std::string_view generique);
// Takes away the bytes that an entry has added to its file (Allonge), whole or cut, unless somebody has written behind
// them. Raises a failure of reading or writing.
void RetirerAjout(const EntreeDeReleve& entree);

// Takes over node and time of a file; false when it is not there.
bool NoterEtat(const Chemin& chemin, std::uint64_t& noeud, std::int64_t& instant);

}  // namespace quelvar
