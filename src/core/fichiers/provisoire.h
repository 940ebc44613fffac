// Scratch files: a name of its own for each, made exclusively and never through a link, removed unless it takes the
// place of its target.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/systeme/chemins.h"
#include "core/fichiers/systeme/condense.h"
#include "core/fichiers/systeme/ecriture.h"
#include "core/panne/erreur.h"

namespace quelvar {

// A scratch file beside its target. It is locked (flock) as long as the object lives: one that nobody has locked was
// left by a run that was killed.
class Provisoire {
 public:
  // The target may be a link to a file elsewhere: the scratch file lies beside that file. Raises kPermissionRefusee for
  // a target that may not be written or replaced, kAccesFichier for one that is no ordinary file, a failure of writing
  // for the scratch file.
  Provisoire(const Chemin& cible, Nature nature);
  ~Provisoire();
  Provisoire(const Provisoire&) = delete;
  Provisoire& operator=(const Provisoire&) = delete;

  Ecrivain& Fichier() { return ecrivain_; }
  // No byte is written behind this.
  void Achever() { ecrivain_.Fermer(); }
  // The bytes are on the disk when it returns.
  void Synchroniser() const;
  // Marks the file as one that nobody waits for.
  void Marquer() const;
  // Looks at the target again and gives the scratch file its rights. Raises as the constructor.
  void Tenir();
  // Takes the place of the target in one rename.
  void Placer();
  // The file belongs to whoever has taken it over: nothing is removed any more.
  void Lacher();

  const Chemin& Cible() const { return cible_; }
  const Chemin& Emplacement() const { return chemin_; }
  Nature SaNature() const { return nature_; }
  std::uint64_t Taille() const { return condense_.Taille(); }
  std::uint64_t Empreinte() const { return condense_.Valeur(); }
  bool CibleExiste() const { return existe_; }
  // Whether the target holds these very bytes.
  bool MemesOctets() const;

 private:
  Chemin cible_;
  Chemin chemin_;
  Nature nature_;
  bool existe_ = false;
  int descripteur_ = -1;
  CondenseDOctets condense_;
  Ecrivain ecrivain_;
  int inscription_ = -1;  // place in the table of what a signal removes
};

// A name for a scratch file beside the file, which nothing bears yet.
Chemin NomProvisoire(const Chemin& cible);
// Whether a name was made by NomProvisoire.
bool EstNomProvisoire(std::string_view nom);
// The number of the process that made such a name; empty for any other.
std::string_view ProcessusDuProvisoire(std::string_view nom);
// Removes a scratch file that nobody holds; leaves the others. Never raises.
void EffacerSiAbandonne(const Chemin& chemin);

// Length and digest of a file; nothing when it cannot be read.
struct MesureDeFichier {
  std::uint64_t taille = 0;
  std::uint64_t empreinte = 0;
  bool operator==(const MesureDeFichier&) const = default;
};
std::optional<MesureDeFichier> MesurerFichier(const Chemin& chemin);

// Raises a sentence (kAccesFichier) for what is no ordinary file, kPermissionRefusee for a file that this user may not
// replace in its directory. Returns whether there is a file.
bool VerifierCible(const Chemin& cible);

}  // namespace quelvar
