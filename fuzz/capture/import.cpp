// Any file to the import of any table: it ends, an import that stops leaves the former files whole and tells what
// stopped it, and what a normal end leaves is a survey. Input: a byte of options, then the file.
#include "capture/apercu/import.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"
#include "sorts/triapl/triapl.h"

namespace {

constexpr std::string_view kAncienPos = "ANCIEN\r\n 1 \r\nAAA   1 9\r\n";
constexpr std::string_view kAncienDat = "7\r\n";
constexpr std::string_view kImc = "A=textes;AAA;zero=NR\nB=classes;BBB;groupes=3\nC=longs\nD=multiple;DDD;liste=|\n";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  dossier.Ecrire("x.csv", entree.Reste());
  dossier.Ecrire("x.imc", kImc);
  dossier.Ecrire("ENQ.POS", kAncienPos);
  dossier.Ecrire("ENQ.DAT", kAncienDat);

  quelvar::capture::OptionsImport options;
  options.fichier = "x.csv";
  if ((choix & 1) != 0) options.fichierChoix = "x.imc";
  if ((choix & 2) != 0) options.lecture.guillemets = false;
  if ((choix & 4) != 0) options.lecture.titres = (choix & 8) != 0;
  if ((choix & 16) != 0) options.lecture.separateur = ',';
  if ((choix & 32) != 0) options.lecture.decimale = '.';
  const quelvar::Contexte contexte = dossier.Contexte();
  const quelvar::Fin fin = quelvar::capture::Importer(contexte, options);
  const std::string rapport = dossier.Lire("ENQ.IMP");
  // A number without words of its own would leave the user alone.
  if (rapport.find("\n notez le numero = ") != std::string::npos) std::abort();
  if (fin == quelvar::Fin::Arret) {
    if (dossier.Lire("ENQ.POS") != kAncienPos || dossier.Lire("ENQ.DAT") != kAncienDat) std::abort();
    return 0;
  }
  if (dossier.Lire("ENQ.PO2") != kAncienPos || !dossier.Existe("ENQ.IMC")) std::abort();
  quelvar::sorts::Triapl(contexte, {});
  return 0;
}
