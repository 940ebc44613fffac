// Any spreadsheet: the import ends, a stopped run leaves the former files whole, and what a normal end leaves can be
// sorted. Input: one byte of options (1 no titles, 2 .TXT), then the bytes of the source.
#include <cstdint>
#include <cstdlib>

#include "capture/csv/import.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

namespace {

constexpr std::string_view kAncienPos = "ANCIEN\r\n 1 \r\nAAA   1 9\r\n";
constexpr std::string_view kAncienDat = "7\r\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  dossier.Ecrire((choix & 2) != 0 ? "ENQ.TXT" : "ENQ.CSV", entree.Reste());
  dossier.Ecrire("ENQ.POS", kAncienPos);
  dossier.Ecrire("ENQ.DAT", kAncienDat);

  const quelvar::Contexte contexte = dossier.Contexte();
  const bool sansIntitules = (choix & 1) != 0;
  const quelvar::Fin fin = quelvar::capture::ImportCsv(contexte, {.sansIntitules = sansIntitules});
  if (!dossier.Existe("ENQ.IMP") || dossier.Lire("ENQ.PO2") != kAncienPos) std::abort();
  if (fin == quelvar::Fin::Arret) {
    if (dossier.Lire("ENQ.POS") != kAncienPos || dossier.Lire("ENQ.DAT") != kAncienDat) std::abort();
    return 0;
  }
  if (dossier.Existe("ENQ.POS") == sansIntitules) std::abort();
  quelvar::sorts::Triapl(contexte, {});
  return 0;
}
