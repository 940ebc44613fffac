#include "modalities/regroupement/table.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/noms.h"
#include "core/panne/annonce.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

namespace {

std::size_t NombreDeColonnes(const TableAGrouper& table) {
  if (table.parametres.burt > 1) return static_cast<std::size_t>(table.parametres.burt);
  return table.mod.modalites.size();
}

// Marks columns by their names; returns what is said of one that the list does not hold, or nothing.
std::string MarquerColonnes(const TableAGrouper& table, const std::vector<std::string>& noms,
                            std::vector<char>& marques) {
  for (const std::string& nom : noms) {
    const auto& modalites = table.mod.modalites;
    const std::vector<std::size_t> rangs = RangsDuNom(modalites, nom);
    if (rangs.size() > 1) throw Erreur(kIncompatibiliteType, FauteModalitesHomonymes(nom, rangs.size()));
    if (rangs.empty() || rangs.front() >= marques.size()) return PhraseInconnue(nom);
    marques[rangs.front()] = 1;
  }
  return {};
}

// Rows of a .BRT that hold something.
std::int64_t CompterRangees(const Chemin& brt) {
  std::int64_t rangees = 0;
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (!Rogner(ligne).empty()) ++rangees;
  return rangees;
}

std::vector<std::string> NomsDesLignes(const TableAGrouper& table) {
  std::vector<std::string> noms;
  LecteurLignes lecteur(table.brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) noms.emplace_back(ligne.substr(0, kLargeurDeModalite));
  return noms;
}

// The same for rows.
std::string MarquerLignes(const TableAGrouper& table, std::vector<std::string> noms, std::vector<char>& marques) {
  if (noms.empty()) return {};
  const std::vector<std::string> lignes = NomsDesLignes(table);
  for (const std::string& nom : noms) {
    const auto homonymes = [&](const std::vector<std::string>& autres) {
      return std::count_if(autres.begin(), autres.end(),
                           [&](const std::string& autre) { return Rogner(autre) == Rogner(nom); });
    };
    if (homonymes(lignes) > std::max<std::ptrdiff_t>(homonymes(noms), 1))
      throw Erreur(kIncompatibiliteType,
                   Joindre({kArretDuProgrammeSansAccents, "le nom ", nom, " est celui de ",
                            Nombre(std::int64_t{homonymes(lignes)}),
                            " lignes du tableau : donnez-leur des noms différents, ou marquez-les toutes"_w}));
  }
  LecteurLignes lecteur(table.brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    const auto trouvee = std::find_if(noms.begin(), noms.end(), [&](const std::string& nom) {
      return RognerDroite(nom) == RognerDroite(ligne.substr(0, kLargeurDeModalite));
    });
    marques.push_back(trouvee == noms.end() ? char{0} : char{1});
    if (trouvee != noms.end()) noms.erase(trouvee);
  }
  return noms.empty() ? std::string() : Joindre({"La ligne ", noms.front(), " n'est pas dans le tableau"});
}

}  // namespace

std::optional<std::int64_t> RangeesEnTrop(const TableAGrouper& table) {
  if (table.parametres.burt > 1 || table.parametres.lignes <= 0) return std::nullopt;
  const std::int64_t rangees = CompterRangees(table.brt);
  return static_cast<double>(rangees) > table.parametres.lignes ? std::optional(rangees) : std::nullopt;
}

ElementsRendusActifs CompterRendusActifs(const TableAGrouper& table, const PlanDeRegroupement& plan) {
  ElementsRendusActifs rendus;
  for (std::size_t j = 0; j < plan.colonnes.size() && j < table.mod.modalites.size(); ++j)
    if (plan.colonnes[j] != 0 && table.mod.modalites[j].supplementaire) ++rendus.colonnes;
  const auto actives = std::min(plan.lignes.size(), static_cast<std::size_t>(plan.lignesActives));
  const auto fin = plan.lignes.begin() + static_cast<std::ptrdiff_t>(actives);
  const bool groupeActif = std::find(plan.lignes.begin(), fin, 1) != fin;
  if (groupeActif) rendus.lignes = std::count(fin, plan.lignes.end(), 1);
  return rendus;
}

std::string Planifier(const TableAGrouper& table, const OptionsModifBurt& options, PlanDeRegroupement& plan) {
  plan.ancienneLargeur = table.parametres.largeur;
  plan.colonnes.assign(NombreDeColonnes(table), 0);
  std::string refus = MarquerColonnes(table, options.colonnes, plan.colonnes);
  if (!refus.empty()) return refus;
  if (table.parametres.burt > 0) {
    refus = MarquerColonnes(table, options.lignes, plan.colonnes);
    plan.lignes = plan.colonnes;
    plan.lignesActives = static_cast<std::int64_t>(plan.colonnes.size());
    return refus;
  }
  refus = MarquerLignes(table, options.lignes, plan.lignes);
  if (!refus.empty()) return refus;
  plan.lignesActives = CompterRangees(table.brt) - Entier64(std::max(table.parametres.lignesSup, 0.0));
  return {};
}

std::string RefusDuNom(const TableAGrouper& table, OptionsModifBurt options) {
  std::vector<std::string> colonnes;
  for (const Modalite& modalite : table.mod.modalites) colonnes.push_back(modalite.nom);
  std::vector<std::string> lignes;
  if (table.parametres.burt > 0) {
    options.colonnes.insert(options.colonnes.end(), options.lignes.begin(), options.lignes.end());
    options.lignes.clear();
  } else if (!options.lignes.empty()) {
    lignes = NomsDesLignes(table);
  }
  return RefusDuNom(options, colonnes, lignes);
}

}  // namespace quelvar::modalities
