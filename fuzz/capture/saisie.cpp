// Any descriptor with any text of keys or records: the replay ends, whole lines stand in .DAT, and what was keyed can
// be sorted. Input: one byte of options, then the bytes of .DES, of a former .DAT, of a .MOD and of the
// text, with FF hex between them.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "capture/saisie/rejeu.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

namespace {

constexpr std::size_t kTouchesAuPlus = 1 << 12;

quelvar::capture::LectureDeLigne LignesDe(std::string_view texte) {
  return [texte](std::string& ligne) mutable {
    if (texte.empty()) return false;
    const std::size_t fin = texte.find('\n');
    ligne = texte.substr(0, fin);
    texte.remove_prefix(fin == std::string_view::npos ? texte.size() : fin + 1);
    return true;
  };
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille > kTouchesAuPlus) return 0;
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  dossier.Distribuer(entree, {"ENQ.DES"});
  const std::string ancien(entree.Suivant());
  if (!ancien.empty()) dossier.Ecrire("ENQ.DAT", ancien);
  dossier.Distribuer(entree, {"ENQ.MOD"});

  quelvar::capture::OptionsSaisie options;
  options.synchroniser = false;
  options.directe = (entree.Option() & 1) != 0;
  if ((entree.Option() & 2) != 0) options.entree = quelvar::capture::ModeDEntree::Enregistrements;

  const quelvar::Contexte contexte = dossier.Contexte();
  quelvar::capture::Saisie(contexte, options, LignesDe(entree.Suivant()));
  if (!dossier.Existe("ENQ.DAT")) return 0;
  const std::string faits = dossier.Lire("ENQ.DAT");
  if (faits != ancien && !faits.empty() && !faits.ends_with("\r\n")) std::abort();
  if (dossier.Existe("ENQ.POS")) quelvar::sorts::Triapl(contexte, {});
  return 0;
}
