#include "capture/apercu/sorties/modalites.h"

#include <algorithm>
#include <set>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/parametres.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

// The label as a line keeps it; one that would be that of another code ends in a number.
std::string IntituleDistinct(std::string_view intitule, std::set<std::string>& donnes) {
  std::string coupe(RognerDroite(intitule.substr(0, kIntituleDeModaliteAuPlus)));
  for (int numero = 2; !donnes.insert(coupe).second; ++numero) {
    const std::string suite = Joindre({" (", Nombre(numero), ")"});
    coupe = Joindre({RognerDroite(intitule.substr(0, kIntituleDeModaliteAuPlus - suite.size())), suite});
  }
  return coupe;
}

// Lines of the former file for questions that got no labels now.
std::size_t GarderAnciens(Ecrivain& mod, const Chemin& ancien, const PlanDImport& plan,
                          const std::set<std::string>& ecrits) {
  std::set<std::string> questions;
  for (std::size_t k = 0; k < plan.colonnes.size(); ++k)
    if (plan.colonnes[k].DansPos() && plan.etiquettes[k].empty())
      questions.insert(CadreGauche(plan.colonnes[k].nomCourt, kLargeurDeQuestion));
  std::size_t gardes = 0;
  LecteurLignes lecteur(ancien);
  std::int64_t numero = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (++numero <= 2 || ligne.size() < kLargeurDeModalite ||
        ligne.substr(0, kLargeurDeModalite).find(kFinDeListe) != std::string_view::npos)
      continue;
    if (ecrits.contains(std::string(ligne.substr(0, kLargeurDeModalite))) ||
        !questions.contains(std::string(ligne.substr(0, kLargeurDeQuestion))))
      continue;
    if (gardes++ == 0) mod.Ligne(kFinDeListe);
    mod.Ligne(ligne);
  }
  return gardes;
}

}  // namespace

bool AvecIntitules(const PlanDImport& plan) {
  for (std::size_t k = 0; k < plan.colonnes.size(); ++k)
    if (!plan.etiquettes[k].empty() && plan.colonnes[k].DansPos()) return true;
  return false;
}

IntitulesPerdus EcrireModalites(Ecrivain& mod, std::string_view generique, const PlanDImport& plan,
                                const std::optional<Chemin>& ancien) {
  IntitulesPerdus perdus;
  std::set<std::string> ecrits;
  mod.Ligne(generique);
  mod.Ligne(LigneDeParametres({{"BRT=", 0}}));
  for (std::size_t k = 0; k < plan.colonnes.size(); ++k) {
    const ColonneImportee& colonne = plan.colonnes[k];
    if (!colonne.DansPos()) continue;
    std::set<std::string> intitules;
    for (const Etiquette& etiquette : plan.etiquettes[k]) {
      const std::string nom = NomDeModalite(colonne.nomCourt, etiquette.code);
      if (!ecrits.insert(nom).second) perdus.communs.push_back(nom);
      if (etiquette.intitule.size() > kIntituleDeModaliteAuPlus)
        perdus.coupes.push_back(Joindre({nom, " ", etiquette.intitule}));
      mod.Ligne(LigneModalite(nom, false, IntituleDistinct(etiquette.intitule, intitules)));
    }
  }
  if (ancien) perdus.gardes = GarderAnciens(mod, *ancien, plan, ecrits);
  return perdus;
}

void EcrireVariables(Ecrivain& mod, std::string_view generique, const PlanDImport& plan) {
  mod.Ligne(generique);
  mod.Ligne(LigneDeParametres({{"FMT=", plan.largeurNombres}}));
  for (const NombreGarde& nombre : plan.nombres)
    mod.Ligne(LigneModalite(CadreGauche(nombre.nom, kLargeurDeModalite), false, nombre.intitule));
}

}  // namespace quelvar::capture
