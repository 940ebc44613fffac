// quelvar-batch: runs one program as the menu or its option form would.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "batch/commande.h"
#include "batch/execution.h"
#include "core/fichiers/signaux.h"
#include "core/programme/annulation.h"

namespace {

using namespace quelvar;
using namespace quelvar::batch;

enum CodeDeRetour { kFinNormale = 0, kArret = 1, kUsage = 2 };

void Montrer(std::string_view texte) { std::fputs(VersUtf8(texte).c_str(), stdout); }

void Plaindre(std::string_view texte) { std::fprintf(stderr, "quelvar-batch : %s\n", VersUtf8(texte).c_str()); }

int Executer(LigneDeCommande& demande) {
  switch (demande.genre) {
    case LigneDeCommande::Genre::Liste: Montrer(TexteListe()); return kFinNormale;
    case LigneDeCommande::Genre::AideGenerale: Montrer(TexteAideGenerale()); return kFinNormale;
    case LigneDeCommande::Genre::AideProgramme: Montrer(TexteAideProgramme(*demande.programme)); return kFinNormale;
    case LigneDeCommande::Genre::Executer: break;
  }
  return ExecuterCommande(demande) == Fin::Normale ? kFinNormale : kArret;
}

// A standard file that the caller has closed must not become a file of the survey: nothing comes from it, and what is
// written to it fails.
void OccuperLesEntreesFermees() {
  for (const int descripteur : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    while (::fcntl(descripteur, F_GETFD) < 0)
      if (::open(descripteur == STDIN_FILENO ? "/dev/null" : "/dev/full", O_RDWR) < 0) return;
}

// What was shown and did not arrive is a failure, whatever the program came to.
int Achever(int code) {
  errno = 0;
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
  const int cause = errno != 0 ? errno : EIO;
  Plaindre(Joindre({"la sortie standard n'a pas pu être écrite : "_w, TexteErreur(NumeroDErrno(cause))}));
  return code == kUsage ? kUsage : kArret;
}

}  // namespace

int main(int argc, char** argv) {
  OccuperLesEntreesFermees();
  EffacerAuxSignaux();
  try {
    LigneDeCommande demande = LireLigneDeCommande({argv + 1, argv + argc});
    return Achever(Executer(demande));
  } catch (const UsageIncorrect& erreur) {
    Plaindre(erreur.what());
    return kUsage;
  } catch (const Annulation&) {
    Plaindre(kArretVolontaire);
  } catch (...) {
    Plaindre(TexteErreur(ErreurEnCours()));
  }
  return kArret;
}
