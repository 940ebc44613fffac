// Any bytes as a dBase file: the imports end, a stopped run leaves the former files whole, and what a normal end leaves
// can be sorted. Input: one byte of options (1 a table), then the bytes of the source.
#include <cstdint>
#include <cstdlib>

#include "capture/dbase/import.h"
#include "capture/dbase/tableau.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

namespace {

constexpr std::string_view kAncienPos = "ANCIEN\r\n 1 \r\nAAA   1 9\r\n";
constexpr std::string_view kAncien = "7\r\n";

// Records without a byte cost the file nothing: a million of them, the reader's own bound, take ten seconds under the
// detectors and teach nothing more than a few.
bool ForceEnregistrementsVides(std::string_view source) {
  if (source.size() < 12 || source[10] != 0 || source[11] != 0) return false;
  return source[6] != 0 || source[7] != 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::Entree entree(donnees, taille, 1);
  if (ForceEnregistrementsVides(entree.Reste())) return 0;
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  dossier.Ecrire("ENQ.DBF", entree.Reste());
  dossier.Ecrire("ENQ.POS", kAncienPos);
  dossier.Ecrire("ENQ.DAT", kAncien);
  dossier.Ecrire("ENQ.BRT", kAncien);

  const bool tableau = (entree.Option() & 1) != 0;
  const quelvar::Contexte contexte = dossier.Contexte();
  const quelvar::Fin fin =
      tableau ? quelvar::capture::ImportTableau(contexte, {}) : quelvar::capture::ImportDbf(contexte, {});
  if (!dossier.Existe("ENQ.IMP")) std::abort();
  if (fin == quelvar::Fin::Arret || tableau) {
    if (dossier.Lire("ENQ.POS") != kAncienPos || dossier.Lire("ENQ.DAT") != kAncien) std::abort();
    if (fin == quelvar::Fin::Arret && dossier.Lire("ENQ.BRT") != kAncien) std::abort();
    return 0;
  }
  if (dossier.Lire("ENQ.PO2") != kAncienPos) std::abort();
  quelvar::sorts::Triapl(contexte, {});
  return 0;
}
