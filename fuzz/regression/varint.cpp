// Any questions and any data: every profile ends, a stopped run leaves the former table whole. Input: the bytes of the
// .POS, FF hex, those of the .DAT.
#include "regression/varint/varint.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "core/enquete/posfile.h"
#include "fuzz/support/dossier_memoire.h"

namespace {

constexpr std::size_t kQuestionsAuPlus = 4;
constexpr std::string_view kAncienMod = "ANCIEN\r\n BRT=1 FMT=4\r\nAAA    ancien\r\n**\r\nsuite\r\n";

std::vector<std::string> PremieresQuestions(const quelvar::Contexte& contexte) {
  std::vector<std::string> noms;
  try {
    for (const quelvar::Question& question : quelvar::LirePos(contexte.repertoire / "ENQ.POS").questions)
      if (noms.size() < kQuestionsAuPlus) noms.push_back(question.nom);
  } catch (const quelvar::Erreur&) {
    // The run tells what is wrong with the file.
  }
  return noms;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 0);
  const std::string_view tout = entree.Reste();
  dossier.Distribuer(entree, {"ENQ.POS", "ENQ.DAT"});
  dossier.Ecrire("ENQ.MOD", kAncienMod);

  const quelvar::Contexte contexte = dossier.Contexte();
  quelvar::regression::OptionsVarint options;
  options.questions = PremieresQuestions(contexte);
  std::vector<quelvar::GroupeDeBarres> profils;
  if (quelvar::regression::Varint(contexte, options, profils) != quelvar::Fin::Normale) {
    if (dossier.Lire("ENQ.MOD") != kAncienMod) std::abort();
    return 0;
  }
  if (dossier.Lire("ENQ.TRF").find("nan") != std::string::npos && tout.find("nan") == tout.npos) std::abort();
  for (const quelvar::GroupeDeBarres& profil : profils)
    for (const quelvar::Barre& barre : profil.barres)
      if (barre.pourCent < 0 || barre.pourCent > 100) std::abort();
  return 0;
}
