#include "factor/provenance/table.h"

namespace quelvar::factor {

namespace {

constexpr double kCellulesAuPlus = 4'000'000;

}  // namespace

bool TablePresente::Trop() const {
  return static_cast<double>(lignes) * static_cast<double>(colonnes) > kCellulesAuPlus;
}

std::optional<TablePresente> LireTablePresente(const Contexte& contexte) {
  const std::optional<Chemin> brt = contexte.Chercher(".BRT");
  const std::optional<Chemin> chemin = contexte.Chercher(".MOD");
  if (!brt || !chemin) return std::nullopt;
  TablePresente table{*brt, LireMod(*chemin), {}, 0, 0};
  table.parametres = LireParametres(table.mod.parametres, TexteDe(chemin->filename()));
  table.colonnes = table.mod.modalites.size();
  const double lignes = table.parametres.burt >= 1 ? static_cast<double>(table.colonnes) : table.parametres.lignes;
  if (table.parametres.largeur < 1 || table.colonnes == 0 || lignes < 1 || lignes > kCellulesAuPlus)
    return std::nullopt;
  table.lignes = static_cast<std::size_t>(lignes);
  return table;
}

bool Convient(const std::function<bool()>& repondre) {
  try {
    return repondre();
  } catch (const Erreur&) {
    return false;
  }
}

}  // namespace quelvar::factor
