// Room on the disk for what a run does not hold in memory.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/fichiers/systeme/chemins.h"

namespace quelvar {

// A scratch file of bytes read and written at any place. It has no name, so that nothing stays of it whatever happens.
// Raises the failures of writing, and kFinDeFichierDepassee for bytes that are not there.
class FichierDeTravail {
 public:
  // In the directory of that path, on whose name its own is made.
  explicit FichierDeTravail(const Chemin& chemin);
  ~FichierDeTravail();
  FichierDeTravail(const FichierDeTravail&) = delete;
  FichierDeTravail& operator=(const FichierDeTravail&) = delete;

  // `taille` bytes at a place counted from 0.
  void Lire(std::uint64_t place, void* octets, std::size_t taille) const;
  void Ecrire(std::uint64_t place, const void* octets, std::size_t taille);

 private:
  Chemin voisin_;  // for its failures
  int descripteur_;
};

}  // namespace quelvar
