#include "text/gestion/facteurs.h"

#include <algorithm>
#include <unordered_set>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/attention.h"
#include "factor/fichiers/coordonnees.h"
#include "factor/provenance/inerties.h"

namespace quelvar::text {

namespace {

void CompterLesAbsentes(FacteursDesLignes& facteurs, const TableGeree& table) {
  const std::unordered_set<std::string_view> connus(facteurs.intitules.begin(), facteurs.intitules.end());
  std::unordered_set<std::string_view> presents;
  for (const LigneDeTable& ligne : table.lignes) {
    presents.insert(IntituleDAnalyse(ligne));
    if (!connus.contains(IntituleDAnalyse(ligne))) ++facteurs.sansCoordonnees;
  }
  facteurs.sansLigne = std::ranges::count_if(facteurs.intitules,
                                             [&](const std::string& intitule) { return !presents.contains(intitule); });
}

// Files that can't be read as those of a table say nothing here.
bool SontDuTableau(const Contexte& contexte) {
  try {
    return factor::CoordonneesDesLignesSontDuTableau(contexte);
  } catch (const Erreur&) {
    return true;
  }
}

}  // namespace

std::optional<FacteursDesLignes> LireFacteurs(const Contexte& contexte, const TableGeree& table) {
  const std::optional<Chemin> faj = contexte.Chercher(".FAJ");
  const std::optional<Chemin> fai = contexte.Chercher(".FAI");
  if (!faj || !fai) return std::nullopt;
  const factor::ElementsFactoriels colonnes = factor::LireFaj(*faj);
  if (colonnes.Nombre() == 0) return std::nullopt;
  const factor::ElementsFactoriels lus = factor::LireFai(*fai, colonnes.Facteurs());
  FacteursDesLignes facteurs;
  for (const std::string& nom : colonnes.noms) facteurs.colonnes.emplace_back(Rogner(nom));
  for (const std::string& intitule : lus.intitules) facteurs.intitules.emplace_back(Rogner(intitule));
  for (std::size_t f = 0; f < lus.Facteurs(); ++f) {
    std::vector<double>& contributions = facteurs.contributions.emplace_back();
    for (std::size_t i = 0; i < lus.Nombre(); ++i)
      contributions.push_back(lus.coordonnees(f, i) < 0 ? -lus.cpf(f, i) : lus.cpf(f, i));
  }
  CompterLesAbsentes(facteurs, table);
  return facteurs;
}

std::string_view IntituleDAnalyse(const LigneDeTable& ligne) {
  return RognerDroite(Rogner(ligne.intitule).substr(0, kIntituleDeModaliteAuPlus));
}

std::string_view DUnAutreTableau(const FacteursDesLignes& facteurs, const TableGeree& table) {
  const auto connait = [](const std::vector<std::string>& connus, std::string_view cherche) {
    return std::ranges::find(connus, cherche) != connus.end();
  };
  if (std::ranges::none_of(table.lignes, [&](const LigneDeTable& ligne) {
        return connait(facteurs.intitules, IntituleDAnalyse(ligne));
      }))
    return "Les coordonnées factorielles sont celles d'un autre tableau : aucune de ses lignes n'y est"_w;
  if (std::ranges::none_of(table.mod.textes, [&](std::string_view colonne) {
        return connait(facteurs.colonnes, Rogner(colonne.substr(0, kLargeurDeModalite)));
      }))
    return "Les coordonnées factorielles sont celles d'un autre tableau : aucune de ses colonnes n'y est"_w;
  return {};
}

std::string EcartsDesCoordonnees(const Contexte& contexte, const FacteursDesLignes& facteurs) {
  if (facteurs.sansCoordonnees == 0 && facteurs.sansLigne == 0 && SontDuTableau(contexte)) return {};
  std::string ecarts;
  if (facteurs.sansCoordonnees > 0)
    ecarts += Joindre({", ", Nombre(facteurs.sansCoordonnees), " ligne(s) du tableau n'y sont pas"});
  if (facteurs.sansLigne > 0)
    ecarts += Joindre({", ", Nombre(facteurs.sansLigne), " de ses lignes ne sont pas dans le tableau"});
  return Joindre({kAttention, "les coordonnées de "_w, contexte.Nom(".FAI"), " ne sont pas celles du tableau ",
                  contexte.Nom(".BRT"), " et des statuts de ", contexte.Nom(".MOD"), ecarts,
                  " : le tri se fait sur elles. Pour l'ordre de ce tableau, relancez l'analyse factorielle"_w});
}

}  // namespace quelvar::text
