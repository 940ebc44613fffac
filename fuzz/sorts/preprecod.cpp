// Any instructions on any .POS: the preparation ends with a report that is not kept; a .POS that it wrote has the
// questions that it had, and one that it refused is as it was. Input: the bytes of the .POS, then, with FF hex between
// them, the weighting, a filter question, and pairs of a question and its rule.
#include <cstdint>
#include <cstdlib>

#include "core/enquete/posfile.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/preparation/script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 0);
  const std::string pos(entree.Suivant());
  dossier.Ecrire("ENQ.POS", pos);
  quelvar::sorts::OptionsPrepRecod options;
  if (const std::string_view nom = entree.Suivant(); !nom.empty()) options.ponderation = std::string(nom);
  if (const std::string_view nom = entree.Suivant(); !nom.empty())
    options.filtre = {quelvar::sorts::SensFiltre::Inclure, {{std::string(nom), 1}}};
  for (int i = 0; i < 8; ++i) {
    const std::string_view question = entree.Suivant();
    const std::string_view regle = entree.Suivant();
    if (!question.empty()) options.regles.emplace_back(question, regle);
  }
  const quelvar::Contexte contexte = dossier.Contexte();
  const bool fini = quelvar::sorts::PreparerParScript(contexte, options) == quelvar::Fin::Normale;
  if (!fini) {
    dossier.ExigerIntacts({{"ENQ.POS", pos}});
    return 0;
  }
  const std::size_t questions = quelvar::LirePos(contexte.Exiger(".POS")).questions.size();
  dossier.Ecrire("ENQ.POS", pos);
  if (questions != quelvar::LirePos(contexte.Exiger(".POS")).questions.size()) std::abort();
  return 0;
}
