// Any bytes as a workbook: reading ends, and the CSV that it writes has a line for each row. Input: one byte (0 the
// archive itself, 1 the content of a .ods, 2 the sheet of a .xlsx), then the bytes.
#include "capture/classeur/classeur.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "support/classeurs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille == 0) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const std::string octets(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
  const quelvar::Chemin classeur = dossier.Chemin() / "ENQ.ods";
  const quelvar::Chemin csv = dossier.Chemin() / "ENQ.CSV";
  if (donnees[0] % 3 == 0) dossier.Ecrire("ENQ.ods", octets);
  if (donnees[0] % 3 == 1) essai::EcrireOds(classeur, octets);
  if (donnees[0] % 3 == 2)
    essai::EcrireXlsx(classeur, {{"name=\"F\"", octets}}, "<si><t>Oui</t></si><si><r><t>Non</t></r></si>");
  std::int64_t lignes = 0;
  try {
    // A small input may repeat its rows without end, which is only slow.
    constexpr std::int64_t kAssez = 1000;
    quelvar::capture::LireFeuille(classeur, {}, [&](auto) { return ++lignes < kAssez; });
    if (lignes == kAssez) return 0;
    quelvar::capture::EcrireFeuilleEnCsv(classeur, {}, csv);
  } catch (const quelvar::Erreur& erreur) {
    if (erreur.Phrase().empty()) std::abort();
    return 0;
  }
  const std::string ecrit = quelvar::LireOctets(csv);
  if (std::count(ecrit.begin(), ecrit.end(), '\n') != lignes) std::abort();
  return 0;
}
