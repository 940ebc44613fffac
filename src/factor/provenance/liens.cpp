#include "factor/provenance/liens.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

#include "core/enquete/posfile.h"
#include "crosstab/tableau/statistiques.h"
#include "factor/provenance/table.h"
#include "tables/diagonalisation.h"
#include "tables/lecturetable.h"
#include "tables/liens/liaisons.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kLignesLiees = 1000;  // of links between rows

// Values of links by their nodes.
class ValeursDesLiens {
 public:
  explicit ValeursDesLiens(std::span<const tables::Lien> liens) {
    for (const tables::Lien& lien : liens) valeurs_.emplace(Cle(lien), lien.valeur);
  }
  bool Contient(const tables::Lien& lien) const {
    constexpr float kArrondi = 0.001F;  // of 100: single precision, and sums in another order
    const auto trouve = valeurs_.find(Cle(lien));
    return trouve != valeurs_.end() && std::fabs(trouve->second - lien.valeur) <= kArrondi;
  }
  bool ContientTous(std::span<const tables::Lien> liens) const {
    return std::ranges::all_of(liens, [&](const tables::Lien& lien) { return Contient(lien); });
  }
  bool SontTous(std::span<const tables::Lien> liens) const {
    return liens.size() == valeurs_.size() && ContientTous(liens);
  }

 private:
  static std::uint32_t Cle(const tables::Lien& lien) {
    return std::uint32_t{static_cast<std::uint16_t>(lien.premier)} << 16 | static_cast<std::uint16_t>(lien.second);
  }
  std::unordered_map<std::uint32_t, float> valeurs_;
};

bool LiensSontDuBurt(const Contexte& contexte, const TablePresente& table, std::span<const tables::Lien> liens) {
  std::vector<tables::NomDElement> noms;
  for (const Modalite& modalite : table.mod.modalites) noms.push_back(tables::NommerModalite(modalite));
  const tables::DemiBurt burt = tables::LireDemiBurt(table.brt, table.colonnes, table.parametres.largeur, noms).burt;
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  if (!pos) return true;
  const auto individus = static_cast<double>(tables::IndividusDuBurt(contexte, LirePos(*pos).taille));
  return ValeursDesLiens(tables::LiensDuBurt(burt, individus)).SontTous(liens);
}

// Whether what is asked holds for the observed table, or for its maximum table in one of the orders that can be chosen.
bool PourUneDesTables(const TablePresente& table,
                      const std::function<bool(const crosstab::TableauCompte&, const Matrice& pem)>& convient) {
  const crosstab::TableauCompte observee =
      crosstab::Compter(tables::LireTable(table.brt, table.lignes, table.colonnes, table.parametres.largeur).effectifs);
  if (convient(observee, crosstab::CalculerAttractions(observee).pem)) return true;
  for (const tables::OrdresTries tries : {tables::OrdresTries{true, true}, tables::OrdresTries{false, true},
                                          tables::OrdresTries{true, false}, tables::OrdresTries{false, false}}) {
    tables::Diagonalisee diagonalisee = tables::Diagonalisation(observee, tries);
    diagonalisee.table.effectifs = diagonalisee.maximum;
    if (convient(diagonalisee.table, crosstab::CalculerAttractions(diagonalisee.table).pem)) return true;
  }
  return false;
}

}  // namespace

bool LiensSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens) {
  const std::optional<TablePresente> table = LireTablePresente(contexte);
  if (!table || table->Trop()) return true;
  return Convient([&] {
    if (table->parametres.burt >= 1) return LiensSontDuBurt(contexte, *table, liens);
    return PourUneDesTables(*table, [&](const crosstab::TableauCompte& compte, const Matrice& pem) {
      return ValeursDesLiens(tables::LiensDesCellules(compte, pem)).SontTous(liens);
    });
  });
}

bool LiensDeLignesSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens) {
  const std::optional<TablePresente> table = LireTablePresente(contexte);
  const auto deClique = [](const tables::Lien& lien) { return lien.valeur == tables::kValeurDansUneClique; };
  if (!table || table->Trop() || table->lignes > kLignesLiees || table->parametres.burt >= 1 ||
      std::ranges::all_of(liens, deClique))
    return true;
  return Convient([&] {
    return PourUneDesTables(*table, [&](const crosstab::TableauCompte& compte, const Matrice& pem) {
      // The order of the rows decides which of two is named first.
      std::vector<tables::Lien> attendus = tables::LiensEntreLignes(compte, pem);
      for (std::size_t i = 0, n = attendus.size(); i < n; ++i)
        attendus.push_back({attendus[i].second, attendus[i].premier, attendus[i].valeur});
      return ValeursDesLiens(attendus).ContientTous(liens);
    });
  });
}

}  // namespace quelvar::factor
