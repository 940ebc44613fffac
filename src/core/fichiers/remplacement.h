// One file that another one takes the place of: the old file or the new one is there, never half of either.
#pragma once

#include <memory>
#include <string_view>

#include "core/fichiers/systeme/chemins.h"
#include "core/fichiers/systeme/ecriture.h"

namespace quelvar {

class Provisoire;

// One file written whole under a scratch name beside its target, then put in its place by one rename with the rights of
// the file that it replaces. Without Valider the scratch file disappears and the target stays what it was. A target
// that may not be written raises kPermissionRefusee. Several files that belong together go through JeuDeFichiers.
class Remplacement {
 public:
  Remplacement(const Chemin& repertoire, std::string_view nom, Nature nature = Nature::Refaisable);
  // The target by its path; one that is a link is followed.
  explicit Remplacement(const Chemin& cible, Nature nature = Nature::Refaisable);
  ~Remplacement();
  Remplacement(const Remplacement&) = delete;
  Remplacement& operator=(const Remplacement&) = delete;

  // The scratch file.
  Ecrivain& Fichier();
  // Closes the scratch file and keeps it, for a caller that reads it again.
  void Achever() { Fichier().Fermer(); }
  // Puts it in the place of the target. Raises a failure of writing: the target is then what it was.
  void Valider();
  // Where the bytes are until then; those that Fichier still holds in its buffer are not there.
  const Chemin& CheminProvisoire() const;

 private:
  std::unique_ptr<Provisoire> fichier_;
};

// Copies a file line by line, every line ended by CR LF. Raises the failures of LecteurLignes and of writing.
void CopierLignes(const Chemin& source, Ecrivain& copie);

}  // namespace quelvar
