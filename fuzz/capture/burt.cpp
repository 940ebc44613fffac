// Any text as a counted table: a stopped import leaves the former files whole, what it made can be analysed, and a
// table, imported or not, gives individuals that can be sorted. Input: one byte of options, then the bytes of the text,
// or of .MOD and .BRT with FF hex between them.
#include <cstdint>
#include <cstdlib>

#include "capture/burt/import.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"
#include "tables/ecapem.h"
#include "utilities/gendat.h"

namespace {

constexpr std::string_view kAncien = "ANCIEN\r\n";
constexpr std::size_t kLongueurLaPlusGrande = 1 << 12;  // a cell may ask for a million individuals

void Donner(const fuzz::DossierMemoire& dossier, const quelvar::Contexte& contexte) {
  quelvar::utilities::Gendat(contexte, {});
  if (!dossier.Existe("ENQ.prt")) std::abort();
  if (dossier.Existe("ENQ.DAT") && dossier.Existe("ENQ.POS")) quelvar::sorts::Triapl(contexte, {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille > kLongueurLaPlusGrande) return 0;
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  const quelvar::Contexte contexte = dossier.Contexte();
  if ((choix & 1) != 0) {
    dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.BRT"});
    Donner(dossier, contexte);
    return 0;
  }
  dossier.Ecrire("TABLE.LST", entree.Reste());
  for (const char* nom : {"ENQ.BRT", "ENQ.MOD", "ENQ.POS"}) dossier.Ecrire(nom, kAncien);
  quelvar::capture::OptionsImportBurt options;
  options.fichier = "TABLE.LST";
  if ((choix & 2) != 0) options.noms = quelvar::capture::NomsCourts::Utilisateur;
  const quelvar::Fin fin = quelvar::capture::ImportBurt(contexte, options);
  if (fin == quelvar::Fin::Arret) {
    for (const char* nom : {"ENQ.BRT", "ENQ.MOD", "ENQ.POS"})
      if (dossier.Lire(nom) != kAncien) std::abort();
    return 0;
  }
  if (dossier.Lire("ENQ.BR2") != kAncien || dossier.Lire("ENQ.MO2") != kAncien) std::abort();
  quelvar::tables::Ecapem(contexte, {});
  Donner(dossier, contexte);
  return 0;
}
