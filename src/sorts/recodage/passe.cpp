#include "sorts/recodage/passe.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"

namespace quelvar::sorts {

namespace {

// Lines read, those that the filter keeps, and lines that the weights make of these.
struct SommeDesPoids {
  std::int64_t entree = 0, retenus = 0, sortie = 0;
};

SommeDesPoids SommerPoids(const Traduction& traduction, const Chemin& donnees, std::int64_t maximum) {
  LecteurIndividus lecteur(donnees, traduction.LongueurLue());
  SommeDesPoids somme;
  somme.entree = Parcourir(lecteur, maximum, [&](const char* individu, std::int64_t) {
    if (!traduction.Retenu(individu)) return;
    ++somme.retenus;
    somme.sortie += traduction.Poids(individu);
  });
  return somme;
}

// What a reduced output holds, about: so many times the lines that the filter keeps.
constexpr double kFoisLesRetenus = 10;

// One line in so many goes into it.
std::int64_t PasDeReduction(const SommeDesPoids& somme) {
  if (somme.retenus == 0) return 1;
  const double rapport = static_cast<double>(somme.sortie) / (kFoisLesRetenus * static_cast<double>(somme.retenus));
  return std::max<std::int64_t>(Entier64(rapport), 1);
}

// Multiples of `pas` among the first `lignes` ranks, counted from 0.
std::int64_t Multiples(std::int64_t lignes, std::int64_t pas) { return (lignes + pas - 1) / pas; }

}  // namespace

BilanDePasse PasserIndividus(const Consignes& consignes, const PlanDeRecodage& plan, const Chemin& donnees,
                             Ecrivain& sortie, const TemoinsDePasse& temoins, const Dialogue& ecran) {
  Traduction traduction(consignes, plan);
  BilanDePasse bilan;
  if (consignes.ponderation && !consignes.maximum)
    bilan.pas = PasDeReduction(SommerPoids(traduction, donnees, consignes.individus));
  LecteurIndividus lecteur(donnees, traduction.LongueurLue());
  Progression progression(ecran, consignes.individus);
  bilan.entree = Parcourir(lecteur, consignes.individus, [&](const char* individu, std::int64_t numero) {
    progression.Avancer();
    const std::string_view ligne = traduction.Traduire(individu, lecteur.Ligne().size(), numero, temoins);
    if (!traduction.Retenu(individu)) return;
    ++bilan.retenus;
    bilan.sortie += traduction.Poids(individu);
    for (const std::int64_t voulues = Multiples(bilan.sortie, bilan.pas); bilan.ecrites < voulues; ++bilan.ecrites)
      sortie.Ecrire(ligne);
  });
  return bilan;
}

std::int64_t LongueurDesLignes(const Chemin& donnees, std::int64_t maximum) {
  LecteurLignes lecteur(donnees);
  std::size_t longueur = 0;
  std::string_view ligne;
  for (std::int64_t i = 0; i < maximum && lecteur.Lire(ligne); ++i) longueur = std::max(longueur, ligne.size());
  return static_cast<std::int64_t>(longueur);
}

}  // namespace quelvar::sorts
