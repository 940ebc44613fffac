// The supplementary rows of an analysed table, possibly all individuals: single-precision numbers in a scratch file
// instead of memory.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "core/fichiers/fichiers.h"

namespace quelvar::factor {

class LignesSupplementaires {
 public:
  LignesSupplementaires(Chemin chemin, std::size_t colonnes);

  std::size_t Nombre() const { return nombre_; }
  // Adds one row of as many values as there are columns.
  void Ajouter(std::span<const float> ligne);

  // Gives every row in its order; what `traiter` changes in it comes back to the file.
  using Traiter = std::function<void(std::size_t rang, std::span<float> ligne)>;
  void Modifier(const Traiter& traiter);
  // The same for rows that are only read.
  using Examiner = std::function<void(std::size_t rang, std::span<const float> ligne)>;
  void Parcourir(const Examiner& examiner);

 private:
  void PourChaqueBloc(const Traiter& traiter, bool recopier);
  void ViderAjouts();

  FichierDeTravail fichier_;
  std::size_t colonnes_;
  std::size_t lignesParBloc_;
  std::size_t nombre_ = 0;
  std::size_t nombreEcrites_ = 0;
  std::vector<float> bloc_;  // rows added and not yet written, then the block under treatment
};

}  // namespace quelvar::factor
