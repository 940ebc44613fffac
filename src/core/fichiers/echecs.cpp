#include "core/fichiers/echecs.h"

#include <cerrno>

namespace quelvar {

Erreur EchecDuFichier(const Chemin& chemin, int numero) {
  return Erreur(numero).Situer({.fichier = TexteDe(chemin.filename())});
}

void LeverErrno(const Chemin& chemin, int codeErrno) { throw EchecDuFichier(chemin, NumeroDErrno(codeErrno)); }

void LeverErrnoDeCreation(const Chemin& chemin, int codeErrno) {
  if (codeErrno == ENOENT) throw EchecDuFichier(chemin, kCheminIntrouvable);
  LeverErrno(chemin, codeErrno);
}

}  // namespace quelvar
