// Any text: the cutting ends, a stopped run leaves the former files whole, and what a normal end leaves makes a lexical
// table. Input: four bytes of options (end of the characteristics, mode, lines of an individual, marks), then the text.
#include "text/decoupage/saisiemot.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "text/tableau/tabmot.h"

namespace {

constexpr std::string_view kAncienPos = "ANCIEN\r\n 1 \r\nAAA   1 9 &ACT&\r\n";
constexpr std::string_view kAncienDat = "1mot mot       $$\r\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const fuzz::Entree entree(donnees, taille, 4);
  dossier.Ecrire("ENQ.TXT", entree.Reste());
  dossier.Ecrire("ENQ.POS", kAncienPos);
  dossier.Ecrire("ENQ.DAT", kAncienDat);

  quelvar::text::OptionsSaisieMot options;
  const auto option = [&](std::size_t rang) { return static_cast<int>(entree.Option(rang)); };
  options.position = 1 + option(0) % 30;
  options.mode = static_cast<quelvar::text::ModeStimulus>(1 + option(1) % 5);
  options.positionStimulus = 1 + option(1) / 5 % options.position;
  options.lignesMax = 1 + option(2) % 3;
  options.themes = (option(3) & 1) != 0;
  options.auxiliaires = (option(3) & 2) != 0;
  if ((option(3) & 4) != 0) options.vide = quelvar::text::ReponseVide::Supprimee;

  const quelvar::Contexte contexte = dossier.Contexte();
  const quelvar::Fin fin = quelvar::text::SaisieMot(contexte, options);
  if (!dossier.Existe("ENQ.IMP")) std::abort();
  if (fin == quelvar::Fin::Arret) {
    if (dossier.Lire("ENQ.POS") != kAncienPos || dossier.Lire("ENQ.DAT") != kAncienDat) std::abort();
    return 0;
  }
  if (quelvar::text::TabMot(contexte, {}) == quelvar::Fin::Normale && !dossier.Existe("ENQ.BRT")) std::abort();
  return 0;
}
