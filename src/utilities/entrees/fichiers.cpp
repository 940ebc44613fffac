#include "utilities/entrees/fichiers.h"

#include <algorithm>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/programme/arret.h"
#include "utilities/entrees/tableau.h"

namespace quelvar::utilities {

std::string NomDuRapport(const Contexte& contexte) {
  return contexte.generique.empty() ? std::string(kRapportSansNom) : contexte.Nom(".prt");
}

std::string NomAffiche(std::string_view fichier) { return TexteDe(CheminDe(fichier).filename()); }

EntreeChoisie ChercherEntree(const Contexte& contexte, std::string_view fichier) {
  return {NomAffiche(fichier), ChercherFichier(contexte.repertoire, fichier)};
}

void ExigerEntrees(Rapport& rapport, const Contexte& contexte, std::initializer_list<EntreeChoisie> entrees) {
  bool manque = false;
  for (const EntreeChoisie& entree : entrees) {
    if (entree.chemin) continue;
    rapport.Ligne({"*** Le fichier ", entree.nom, " n'existe pas"});
    manque = true;
  }
  if (manque) AvertirEtArreter(rapport, contexte.Ecran(), kArretSansFichiers);
}

void ExigerTableau(Rapport& rapport, const Contexte& contexte) {
  const std::vector<std::string> manques = FichiersManquants(contexte);
  rapport.Lignes(manques);
  if (!manques.empty()) AvertirEtArreter(rapport, contexte.Ecran(), kArretSansFichiers);
}

void ExigerFormat(Rapport& rapport, const Contexte& contexte, const TableauDuGenerique& tableau) {
  rapport.Lignes(tableau.parametres.remarques);
  if (tableau.AUnFormat()) return;
  contexte.Ecran().demander("Erreur : pas de FMT= : il faut corriger le fichier *.MOD", Boutons::Ok);
  throw Erreur(kArretAnnonce);
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

std::int64_t NombreTape(std::string_view texte) {
  constexpr double kAuDelaDeTout = 1e15;
  return Entier64(std::clamp(ValeurDe(texte), -kAuDelaDeTout, kAuDelaDeTout));
}

}  // namespace quelvar::utilities
