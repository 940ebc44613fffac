#include "core/fichiers/systeme/echecs.h"

#include <cerrno>

namespace quelvar {

Erreur EchecDuFichier(const Chemin& chemin, int numero) {
  return Erreur(numero).Situer({.fichier = TexteDe(chemin.filename())});
}

Erreur PasUnFichier(const Chemin& chemin) {
  std::error_code ignoree;
  const std::string_view genre = std::filesystem::is_directory(chemin, ignoree)
                                     ? " est un répertoire et non un fichier : "_w
                                     : " est un tube ou un périphérique et non un fichier : "_w;
  return {kAccesFichier, Joindre({TexteDe(chemin.filename()), genre, TexteErreur(kAccesFichier)})};
}

void LeverErrno(const Chemin& chemin, int codeErrno) { throw EchecDuFichier(chemin, NumeroDErrno(codeErrno)); }

void LeverErrnoDeCreation(const Chemin& chemin, int codeErrno) {
  if (codeErrno == ENOENT) throw EchecDuFichier(chemin, kCheminIntrouvable);
  LeverErrno(chemin, codeErrno);
}

}  // namespace quelvar
