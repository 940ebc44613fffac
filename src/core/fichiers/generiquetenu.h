// A generic that a writing program holds: one at a time, told with who holds it since when; whoever takes it first
// repairs what a killed run has left.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar {

class GeneriqueTenu {
 public:
  // Nothing is held.
  GeneriqueTenu() = default;
  // Takes the generic for this process; `ouvrage` is what it is going to write, for whoever comes meanwhile. A generic
  // that this process holds already stays with its holder. A directory where nothing can be written holds nothing: the
  // first output will tell. Raises a sentence (kPermissionRefusee) when another process holds it. The lock of a killed
  // process is taken over, its scratch files are removed, and its cut commit is finished or undone. A holder of several
  // runs (`Duree::PlusieursRuns`) leaves the lines on the repair to the first of them.
  enum class Duree { UnRun, PlusieursRuns };
  GeneriqueTenu(const Chemin& repertoire, std::string_view generique, std::string_view ouvrage,
                Duree duree = Duree::UnRun);
  ~GeneriqueTenu();
  GeneriqueTenu(GeneriqueTenu&& autre) noexcept;
  GeneriqueTenu& operator=(GeneriqueTenu&& autre) noexcept;

  // Lines on what was repaired, for the next report.
  const std::vector<std::string>& Recit() const { return recit_; }

 private:
  Chemin verrou_;
  int descripteur_ = -1;
  int inscription_ = -1;
  std::vector<std::string> recit_;
};

}  // namespace quelvar
