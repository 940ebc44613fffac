// A set of output files that changes as one: scratch files written whole, every target checked and held before the
// first rename, all of them put in place or none.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/generiquetenu.h"
#include "core/fichiers/provisoire.h"
#include "core/fichiers/releve.h"

namespace quelvar {

class JeuDeFichiers {
 public:
  // Outputs of that generic in the directory; the generic is held while the object lives, unless the run of a program
  // holds it already. Raises a sentence (kPermissionRefusee) when another process holds it.
  JeuDeFichiers(const Chemin& repertoire, std::string_view generique);
  ~JeuDeFichiers();
  JeuDeFichiers(const JeuDeFichiers&) = delete;
  JeuDeFichiers& operator=(const JeuDeFichiers&) = delete;

  // A new output under a scratch name; the writer lives as long as the set. Raises what Provisoire raises.
  Ecrivain& Ouvrir(std::string_view nom, Nature nature);
  // An output that has the bytes of a file there is. Raises a failure of reading or writing, and what Provisoire
  // raises.
  void Copier(const Chemin& source, std::string_view nom, Nature nature);
  // A file that is there gets these bytes behind those it has. Raises kFichierIntrouvable when it is not there.
  void Allonger(std::string_view nom, std::string_view octets, Nature nature);
  // Ends an output that was opened and returns where its bytes are until the commit, for a caller that reads them
  // again.
  const Chemin& Achever(std::string_view nom);
  // The file of that name goes with the commit, if there is one.
  void Effacer(std::string_view nom);

  // Puts everything in place. Raises a failure of writing: everything is then what it was before. A kill at any instant
  // leaves a record by which the next program of the generic finishes or undoes.
  void Valider();

  // What had to be repaired when the generic was taken, for the report; empty when the run of a program holds it.
  const std::vector<std::string>& Recit() const { return tenu_.Recit(); }

 private:
  struct Ajout {
    Chemin cible;
    std::string octets;
    Nature nature;
  };

  void OublierInchangees();
  void Tenir();
  void TenirAjouts();
  // Puts the next output in place and counts it as soon as there is something to undo.
  void Poser(std::size_t& poses);
  void Defaire(std::size_t rang);
  void PoserTout();

  Chemin repertoire_;
  std::string generique_;
  GeneriqueTenu tenu_;
  std::vector<std::unique_ptr<Provisoire>> sorties_;
  std::vector<std::string> noms_;  // of the outputs, as they were asked
  std::vector<Chemin> effaces_;
  std::vector<Ajout> ajouts_;
  std::vector<EntreeDeReleve> entrees_;
};

// Deletes those of these files that are there, as one: all of them are gone, or all are there. Raises as Valider does.
void EffacerEnsemble(const Chemin& repertoire, std::string_view generique, const std::vector<std::string>& noms);

}  // namespace quelvar
