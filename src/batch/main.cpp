// quelvar-batch: runs one program as the menu or its option form would.
#include <cstdio>
#include <exception>

#include "batch/dialogue_batch.h"
#include "batch/ligne_de_commande.h"

namespace {

using namespace quelvar;
using namespace quelvar::batch;

enum CodeDeRetour { kFinNormale = 0, kArret = 1, kUsage = 2 };

void Montrer(std::string_view texte) { std::fputs(VersUtf8(texte).c_str(), stdout); }

int Executer(Demande& demande) {
  switch (demande.genre) {
    case Demande::Genre::Liste: Montrer(TexteListe()); return kFinNormale;
    case Demande::Genre::AideGenerale: Montrer(TexteAideGenerale()); return kFinNormale;
    case Demande::Genre::AideProgramme: Montrer(TexteAideProgramme(*demande.programme)); return kFinNormale;
    case Demande::Genre::Executer: break;
  }
  Dialogue dialogue = DialogueBatch(demande);
  const Contexte contexte{demande.repertoire, demande.generique, demande.niveau, &dialogue};
  const Fin fin = demande.programme->executer(contexte, demande.options);
  return std::fflush(stdout) == 0 && fin == Fin::Normale ? kFinNormale : kArret;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Demande demande = LireLigneDeCommande({argv + 1, argv + argc});
    return Executer(demande);
  } catch (const UsageIncorrect& erreur) {
    std::fprintf(stderr, "quelvar-batch : %s\n", VersUtf8(erreur.what()).c_str());
    return kUsage;
  } catch (const Erreur& erreur) {
    std::fprintf(stderr, "quelvar-batch : %s\n", VersUtf8(TexteErreur(erreur)).c_str());
    return kArret;
  }
}
