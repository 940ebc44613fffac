// Any instructions on any .POS: the preparation ends with a report that is not kept; a .POS that it wrote has the
// questions that it had, and one that it refused is as it was. Input: the bytes of the .POS, then, with FF hex between
// them, the weighting, a filter question, and pairs of a question and its rule.
#include <cstdint>
#include <cstdlib>

#include "core/enquete/posfile.h"
#include "fuzz/support/dossier_memoire.h"
#include "sorts/preparation/script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  const std::string_view entree(reinterpret_cast<const char*>(donnees), taille);
  fuzz::Morceaux morceaux(entree);
  const std::string pos(morceaux.Suivant());
  dossier.Ecrire("ENQ.POS", pos);
  quelvar::sorts::OptionsPrepRecod options;
  if (const std::string_view nom = morceaux.Suivant(); !nom.empty()) options.ponderation = std::string(nom);
  if (const std::string_view nom = morceaux.Suivant(); !nom.empty())
    options.filtre = {quelvar::sorts::SensFiltre::Inclure, {{std::string(nom), 1}}};
  for (int i = 0; i < 8; ++i) {
    const std::string_view question = morceaux.Suivant();
    const std::string_view regle = morceaux.Suivant();
    if (!question.empty()) options.regles.emplace_back(question, regle);
  }
  quelvar::Dialogue dialogue;
  const quelvar::Contexte contexte = dossier.Contexte(dialogue);
  const bool fini = quelvar::sorts::PreparerParScript(contexte, options) == quelvar::Fin::Normale;
  if (!fini && dossier.Lire("ENQ.POS") != pos) std::abort();
  if (!fini) return 0;
  std::string apres = dossier.Lire("ENQ.POS");
  const std::size_t questions = quelvar::LirePos(contexte.Exiger(".POS")).questions.size();
  dossier.Ecrire("ENQ.POS", pos);
  if (questions != quelvar::LirePos(contexte.Exiger(".POS")).questions.size()) std::abort();
  return 0;
}
