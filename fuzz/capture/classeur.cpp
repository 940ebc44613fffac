// Any bytes as a workbook: reading ends, and the CSV that it writes has a line for each row of its sheet. Input: one
// byte (0 the archive itself, 1 the content of a .ods, 2 the sheet of a .xlsx), then the bytes.
#include "capture/classeur/classeur.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "capture/classeur/ods.h"
#include "capture/classeur/xlsx.h"
#include "fuzz/support/dossier_memoire.h"
#include "support/classeurs.h"

namespace {

using namespace quelvar::capture::classeur;

// A small input may repeat its rows without end, which is only slow.
struct Assez {};
constexpr std::int64_t kAssez = 1000;

// The rows of each sheet. Throws Assez at a sheet of kAssez rows.
std::vector<std::int64_t> CompterLesRangees(const quelvar::Chemin& classeur) {
  const Archive archive(classeur);
  const bool xlsx = EstXlsx(archive);
  const ClasseurXlsx ouvert = xlsx ? OuvrirXlsx(archive) : ClasseurXlsx{};
  std::vector<std::int64_t> rangees(xlsx ? ouvert.feuilles.size() : FeuillesOds(archive).size());
  for (std::size_t rang = 0; rang < rangees.size(); ++rang) {
    const RecevoirLigne compter = [&](auto) {
      if (++rangees[rang] == kAssez) throw Assez();
    };
    Rangees recues(compter);
    if (xlsx) LireXlsx(archive, ouvert, rang, recues);
    else LireOds(archive, rang, recues);
  }
  return rangees;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const fuzz::Entree entree(donnees, taille, 1);
  const unsigned forme = entree.Option() % 3;
  const std::string octets(entree.Reste());
  const quelvar::Chemin classeur = dossier.Chemin() / "ENQ.ods";
  const quelvar::Chemin csv = dossier.Chemin() / "ENQ.CSV";
  if (forme == 0) dossier.Ecrire("ENQ.ods", octets);
  if (forme == 1) essai::EcrireOds(classeur, octets);
  if (forme == 2)
    essai::EcrireXlsx(classeur, {{"name=\"F\"", octets}}, "<si><t>Oui</t></si><si><r><t>Non</t></r></si>");
  std::int64_t lignes = 0;
  try {
    const std::vector<std::int64_t> rangees = CompterLesRangees(classeur);
    lignes = rangees.at(quelvar::capture::EcrireFeuilleEnCsv(classeur, {}, csv).rang);
  } catch (const Assez&) {
    return 0;
  } catch (const quelvar::Erreur& erreur) {
    if (erreur.Phrase().empty()) std::abort();
    return 0;
  }
  const std::string ecrit = quelvar::LireOctets(csv);
  if (std::count(ecrit.begin(), ecrit.end(), '\n') != lignes) std::abort();
  return 0;
}
