#include "capture/apercu/sorties/tableau.h"

#include "capture/apercu/choix/devenir.h"
#include "core/resultats/cellules.h"

namespace quelvar::capture {

TableauEdite TableauDesFaits(const Reconnaissance& table) {
  TableauEdite tableau;
  for (const std::string_view titre :
       {"No"_w, "Nom"_w, "Contenu"_w, "Différentes"_w, "Vides"_w, "Intitulé"_w, "devenir"_w})
    tableau.colonnes.push_back({std::string(titre)});
  for (std::size_t j = 0; j < table.faits.colonnes.size(); ++j) {
    const FaitsDeColonne& colonne = table.faits.colonnes[j];
    const std::string_view intitule = colonne.intitule.empty() ? kSansIntitule : std::string_view(colonne.intitule);
    tableau.rangees.push_back({.titre = {},
                               .intitule = {},
                               .cellules = {CelluleEntiere(j + 1), CelluleTexte(table.choix[j].nom),
                                            CelluleTexte(NomContenu(colonne.contenu)),
                                            CelluleEffectif(colonne.differentes), CelluleEffectif(colonne.vides),
                                            CelluleTexte(intitule), CelluleTexte(Devenir(table.choix[j], colonne))}});
  }
  return tableau;
}

std::vector<CodeFait> CodesFaits(std::size_t colonne, const FaitsDeTable& faits, const PlanDImport& plan,
                                 const Bilan& bilan) {
  std::vector<CodeFait> codes;
  const ColonneLue& lue = plan.lues[colonne];
  for (std::size_t k = lue.premiere; k < lue.premiere + lue.nombre; ++k) {
    const std::string& nom = plan.colonnes[k].nomCourt;
    for (const Etiquette& etiquette : plan.etiquettes[k])
      codes.push_back(
          {nom, etiquette.code, etiquette.intitule, bilan.effectifs[k][static_cast<std::size_t>(etiquette.code)]});
    if (lue.regle != Regle::Texte && lue.regle != Regle::Classe) continue;
    const std::int64_t zeros = bilan.effectifs[k].empty() ? 0 : bilan.effectifs[k][0];
    if (const std::int64_t nuls = zeros + faits.colonnes[colonne].vides; nuls > 0) codes.push_back({nom, 0, {}, nuls});
  }
  return codes;
}

}  // namespace quelvar::capture
