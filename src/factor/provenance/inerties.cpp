#include "factor/provenance/inerties.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "factor/analyse/facteurs.h"
#include "factor/analyse/fichiers.h"
#include "factor/fichiers/coordonnees.h"
#include "factor/provenance/table.h"

namespace quelvar::factor {

namespace {

constexpr double kInertiesAuPlus = 16'000'000;  // cells of a table whose inertias are summed once

// An inertia and what a line has of it, rounded.
bool MemeInertie(double inertie, double lue) {
  constexpr double kArrondi = 0.5 + 1e-6;  // half of a whole number, and what sums in another order differ by
  return std::fabs(inertie - lue) <= kArrondi;
}

// Whether each of these rows is in .FAI by its label with that inertia, per mille.
bool InertiesDesLignesConviennent(const ElementsFactoriels& fai, const ElementsAnecar& lignes,
                                  const std::vector<double>& inerties, double total) {
  std::unordered_multimap<std::string_view, double> lues;
  for (std::size_t i = 0; i < fai.Nombre(); ++i) lues.emplace(Rogner(fai.intitules[i]), fai.inerties[i]);
  for (std::size_t i = 0; i < inerties.size(); ++i) {
    const auto [debut, fin] = lues.equal_range(Rogner(lignes.intitules[i]));
    const double inertie = InertiePourMille(inerties[i], total);
    if (std::none_of(debut, fin, [&](const auto& ligne) { return MemeInertie(inertie, ligne.second); })) return false;
  }
  return true;
}

// The inertias of the columns, per mille, as .FAJ has them, and those of the active rows as .FAI has them when it is
// asked for: those of the table, or of its individuals.
bool InertiesSontDuTableau(const TablePresente& table, const ElementsFactoriels& faj, const ElementsFactoriels* fai,
                           TypeAnalyse type, bool codageLogique) {
  PlanAnecar plan = PlanifierTableau(table.parametres, table.mod, codageLogique);
  if (plan.genre == GenreTableau::BurtEtIndividus) {  // without the individuals
    plan.genre = GenreTableau::BurtCarre;
    plan.lignes = static_cast<std::int64_t>(plan.positions.size());
  }
  if (plan.genre == GenreTableau::Rectangulaire) plan.lignes = plan.lignesActives;
  if (plan.lignes < 1 || plan.lignesActives < 1 || plan.colonnes.noms != faj.noms) return false;
  if (static_cast<double>(plan.lignes) * static_cast<double>(table.colonnes) > kInertiesAuPlus) return true;
  TableauAnecar tableau = LireTableau(table.brt, plan, {});
  if (EffectifTotal(tableau.actives) == 0) return false;
  const AnalyseAnecar analyse = CommencerAnalyse(tableau, type);
  const double total = analyse.ecarts.Inertie(type);
  for (std::size_t j = 0; j < faj.inerties.size(); ++j)
    if (!MemeInertie(InertiePourMille(analyse.ecarts.colonnes.inertie[j], total), faj.inerties[j])) return false;
  return fai == nullptr || InertiesDesLignesConviennent(*fai, tableau.lignes, analyse.ecarts.lignes.inertie, total);
}

bool InertiesSontDuTableau(const TablePresente& table, const ElementsFactoriels& faj, const ElementsFactoriels* fai) {
  for (const bool codageLogique : {false, true})
    for (const TypeAnalyse type : {TypeAnalyse::Afc, TypeAnalyse::Acp})
      if ((!codageLogique || table.parametres.burt == 1) &&
          Convient([&] { return InertiesSontDuTableau(table, faj, fai, type, codageLogique); }))
        return true;
  return false;
}

}  // namespace

bool CoordonneesSontDuTableau(const Contexte& contexte) {
  const std::optional<TablePresente> table = LireTablePresente(contexte);
  if (!table || table->Trop()) return true;
  return InertiesSontDuTableau(*table, LireFaj(contexte.Exiger(".FAJ")), nullptr);
}

bool CoordonneesDesLignesSontDuTableau(const Contexte& contexte) {
  const std::optional<TablePresente> table = LireTablePresente(contexte);
  if (!table || table->Trop()) return true;
  const ElementsFactoriels faj = LireFaj(contexte.Exiger(".FAJ"));
  const ElementsFactoriels fai = LireFai(contexte.Exiger(".FAI"), faj.Facteurs());
  return InertiesSontDuTableau(*table, faj, &fai);
}

}  // namespace quelvar::factor
