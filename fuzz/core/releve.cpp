// Any bytes as the record of a commit: a record that is not whole says nothing, and the next program of the generic
// goes on with the files as they stand, whatever it says.
#include "core/fichiers/releve.h"

#include <cstdint>
#include <cstdlib>

#include "core/fichiers/jeu.h"
#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  constexpr std::string_view kFait = "fait\r\n";
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const quelvar::Chemin releve = quelvar::CheminDeReleve(dossier.Chemin(), "ENQ");
  dossier.Ecrire(releve.filename().native(), {reinterpret_cast<const char*>(donnees), taille});
  dossier.Ecrire("ENQ.POS", kFait);
  dossier.Ecrire("AUTRE.POS", kFait);
  quelvar::LireReleve(releve);
  try {
    quelvar::JeuDeFichiers jeu(dossier.Chemin(), "ENQ");
    jeu.Ouvrir("ENQ.DAT", quelvar::Nature::Unique).Ligne("1");
    jeu.Valider();
  } catch (const quelvar::Erreur&) {
    return 0;
  }
  if (dossier.Lire("ENQ.DAT") != "1\r\n" || dossier.Lire("AUTRE.POS") != kFait) std::abort();
  return 0;
}
