// What a signal that ends the process removes, and the moments when it has to wait.
#pragma once

#include <csignal>

#include "core/fichiers/fichiers.h"

namespace quelvar {

// From here on an interrupt, a hang-up or a termination removes the scratch files of the process before it ends, and a
// file that grows beyond the limit of the process or a reader that goes away is a failed write.
void EffacerAuxSignaux();

// Enters a file among those to remove; returns its place, -1 when there is none left.
int InscrireProvisoire(const Chemin& chemin);
void RayerProvisoire(int place);
// Whether this process has entered that file.
bool EstInscrit(const Chemin& chemin);

// While it lives the signals wait: what has been begun is ended.
class SansSignaux {
 public:
  SansSignaux();
  ~SansSignaux();
  SansSignaux(const SansSignaux&) = delete;
  SansSignaux& operator=(const SansSignaux&) = delete;

 private:
  sigset_t avant_{};
};

}  // namespace quelvar
