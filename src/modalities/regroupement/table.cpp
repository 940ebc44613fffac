#include "modalities/regroupement/table.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

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
    const std::optional<std::size_t> rang = SeuleModalite(table.mod.modalites, nom);
    if (!rang || *rang >= marques.size()) return PhraseInconnue(nom);
    marques[*rang] = 1;
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

// The same for rows, of which there may be many: blanks around a name count for nothing, and several rows of one name
// must all be marked.
std::string MarquerLignes(const TableAGrouper& table, const std::vector<std::string>& noms,
                          std::vector<char>& marques) {
  if (noms.empty()) return {};
  const std::vector<std::string> lignes = NomsDesLignes(table);
  std::unordered_map<std::string_view, std::vector<std::size_t>> demandes;  // ranks among the names, the first one last
  for (std::size_t i = noms.size(); i-- > 0;) demandes[Rogner(noms[i])].push_back(i);
  std::unordered_map<std::string_view, std::size_t> presentes;
  for (const std::string& ligne : lignes) ++presentes[Rogner(ligne)];
  for (const std::string& nom : noms)
    if (const std::size_t homonymes = presentes[Rogner(nom)]; homonymes > demandes[Rogner(nom)].size())
      throw Erreur(kIncompatibiliteType,
                   Joindre({kArretDuProgrammeSansAccents, "le nom ", nom, " est celui de ", Nombre(homonymes),
                            " lignes du tableau : donnez-leur des noms différents, ou marquez-les toutes"_w}));
  std::vector<char> trouves(noms.size(), 0);
  for (const std::string& ligne : lignes) {
    const auto demande = demandes.find(Rogner(ligne));
    const bool marquee = demande != demandes.end() && !demande->second.empty();
    marques.push_back(marquee ? char{1} : char{0});
    if (!marquee) continue;
    trouves[demande->second.back()] = 1;
    demande->second.pop_back();
  }
  const auto absent = std::ranges::find(trouves, char{0});
  if (absent == trouves.end()) return {};
  return Joindre({"La ligne ", noms[static_cast<std::size_t>(absent - trouves.begin())], " n'est pas dans le tableau"});
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
  if (plan.GroupeActif()) rendus.lignes = std::count(plan.FinDesActives(), plan.lignes.end(), 1);
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
