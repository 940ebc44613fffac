#include "capture/apercu/sorties/tableau.h"

#include "capture/apercu/choix/devenir.h"

namespace quelvar::capture {

namespace {

Cellule Effectif(std::int64_t valeur) { return {.valeur = static_cast<double>(valeur), .unite = Unite::Effectif}; }
Cellule EnTexte(std::string_view texte) { return {.marque = std::string(texte)}; }

}  // namespace

TableauEdite TableauDesFaits(const Reconnaissance& table) {
  TableauEdite tableau;
  tableau.titres.emplace_back("   No Nom Contenu                 Différentes   Vides Intitulé : devenir"_w);
  tableau.colonnes.resize(5);
  for (std::size_t j = 0; j < table.faits.colonnes.size(); ++j) {
    const FaitsDeColonne& colonne = table.faits.colonnes[j];
    const std::string_view intitule = colonne.intitule.empty() ? kSansIntitule : std::string_view(colonne.intitule);
    tableau.rangees.push_back(
        {.titre = {},
         .intitule = Joindre({intitule, " : ", Devenir(table.choix[j], colonne)}),
         .cellules = {Cellule{.valeur = static_cast<double>(j + 1)}, EnTexte(table.choix[j].nom),
                      EnTexte(NomContenu(colonne.contenu)), Effectif(colonne.differentes), Effectif(colonne.vides)}});
  }
  return tableau;
}

FormeEnRangees FormeDesFaits() {
  constexpr auto kTexte = Elargissement::DerriereUnTexte;
  constexpr int kContenuLePlusLong = 23;
  return {.places = {{"", 5, kTexte},
                     {" ", static_cast<int>(kNomCourtLePlusLong)},
                     {" ", kContenuLePlusLong},
                     {"", 12, kTexte},
                     {"", 8, kTexte}},
          .avantIntitule = " "};
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
