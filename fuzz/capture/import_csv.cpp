// Any spreadsheet: the import ends, a stopped run leaves the former files whole, and what a normal end leaves can be
// sorted. Input: one byte of options (1 no titles, 2 .TXT), then the bytes of the source.
#include "capture/import_csv.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

namespace {

constexpr std::string_view kAncienPos = "ANCIEN\r\n 1 \r\nAAA   1 9\r\n";
constexpr std::string_view kAncienDat = "7\r\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const std::string_view source(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  dossier.Ecrire((donnees[0] & 2) != 0 ? "ENQ.TXT" : "ENQ.CSV", source);
  dossier.Ecrire("ENQ.POS", kAncienPos);
  dossier.Ecrire("ENQ.DAT", kAncienDat);

  quelvar::Dialogue dialogue;
  const bool sansIntitules = (donnees[0] & 1) != 0;
  const quelvar::Fin fin = quelvar::capture::ImportCsv(dossier.Contexte(dialogue), {.sansIntitules = sansIntitules});
  if (!dossier.Existe("ENQ.IMP") || dossier.Lire("ENQ.PO2") != kAncienPos) std::abort();
  if (fin == quelvar::Fin::Arret) {
    if (dossier.Lire("ENQ.POS") != kAncienPos || dossier.Lire("ENQ.DAT") != kAncienDat) std::abort();
    return 0;
  }
  if (dossier.Existe("ENQ.POS") == sansIntitules) std::abort();
  quelvar::sorts::Triapl(dossier.Contexte(dialogue), {});
  return 0;
}
