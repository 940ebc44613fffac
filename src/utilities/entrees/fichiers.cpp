#include "utilities/entrees/fichiers.h"

namespace quelvar::utilities {

std::string NomDuRapport(const Contexte& contexte) {
  return contexte.generique.empty() ? std::string(kRapportSansNom) : contexte.Nom(".prt");
}

std::string NomAffiche(std::string_view fichier) { return TexteDe(CheminDe(fichier).filename()); }

EntreeChoisie ChercherEntree(const Contexte& contexte, std::string_view fichier) {
  return {NomAffiche(fichier), ChercherFichier(contexte.repertoire, fichier)};
}

bool MemeFichier(const Contexte& contexte, std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return false;
  const Chemin premier = CheminDEcriture(contexte.repertoire, a);
  const Chemin second = CheminDEcriture(contexte.repertoire, b);
  if (EstLeMemeFichier(premier, second)) return true;
  return EgalSansCasse(TexteDe(premier.lexically_normal()), TexteDe(second.lexically_normal()));
}

std::string EntreeEcrasee(const Contexte& contexte, std::initializer_list<std::string_view> entrees) {
  const std::string rapport = NomDuRapport(contexte);
  for (const std::string_view entree : entrees)
    if (MemeFichier(contexte, entree, rapport))
      return Joindre({"Le fichier ", NomAffiche(entree),
                      " est celui où ce programme imprime : il serait perdu. Changez son nom avant de relancer"_w});
  return {};
}

}  // namespace quelvar::utilities
