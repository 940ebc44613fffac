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
  if (taille == 0 || taille > kTouchesAuPlus) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  fuzz::Morceaux morceaux(std::string_view(reinterpret_cast<const char*>(donnees) + 1, taille - 1));
  dossier.Ecrire("ENQ.DES", morceaux.Suivant());
  const std::string ancien(morceaux.Suivant());
  if (!ancien.empty()) dossier.Ecrire("ENQ.DAT", ancien);
  dossier.Ecrire("ENQ.MOD", morceaux.Suivant());

  quelvar::capture::OptionsSaisie options;
  options.synchroniser = false;
  options.directe = (donnees[0] & 1) != 0;
  if ((donnees[0] & 2) != 0) options.entree = quelvar::capture::ModeDEntree::Enregistrements;

  quelvar::Dialogue dialogue;
  const quelvar::Contexte contexte = dossier.Contexte(dialogue);
  quelvar::capture::Saisie(contexte, options, LignesDe(morceaux.Suivant()));
  if (!dossier.Existe("ENQ.DAT")) return 0;
  const std::string faits = dossier.Lire("ENQ.DAT");
  if (faits != ancien && !faits.empty() && !faits.ends_with("\r\n")) std::abort();
  if (dossier.Existe("ENQ.POS")) quelvar::sorts::Triapl(contexte, {});
  return 0;
}
