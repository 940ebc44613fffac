#include "modalities/regroupement/table.h"

#include <algorithm>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/noms.h"
#include "core/panne/annonce.h"
#include "core/programme/arret.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kArret = "*** Arrêt du programme du à l'absence d'un ou de plusieurs fichiers"_w;

std::size_t NombreDeColonnes(const TableAGrouper& table) {
  if (table.parametres.burt > 1) return static_cast<std::size_t>(table.parametres.burt);
  return table.mod.modalites.size();
}

// Marks a column by its name; a name that the list does not hold stops the run.
void MarquerColonnes(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                     const std::vector<std::string>& noms, std::vector<char>& marques) {
  for (const std::string& nom : noms) {
    const std::optional<std::size_t> rang = SeuleModalite(table.mod.modalites, nom);
    if (!rang || *rang >= marques.size()) AvertirEtArreter(rapport, contexte.Ecran(), PhraseInconnue(nom));
    marques[*rang] = 1;
  }
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

// The rows of a name: how many the table has, how often it is asked for, and how many are marked.
struct LignesDUnNom {
  std::int64_t presentes = 0;
  std::int64_t demandees = 0;
  std::int64_t marquees = 0;
};

// Marks a row for each name, as often as it is given: a choice may name thousands of them.
void MarquerLignes(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                   const std::vector<std::string>& noms, std::vector<char>& marques) {
  if (noms.empty()) return;
  const std::vector<std::string> lignes = NomsDesLignes(table);
  std::unordered_map<std::string_view, LignesDUnNom> parNom;
  for (const std::string& nom : noms) ++parNom[Rogner(nom)].demandees;
  for (const std::string& ligne : lignes)
    if (const auto demandees = parNom.find(Rogner(ligne)); demandees != parNom.end()) ++demandees->second.presentes;
  for (const std::string& nom : noms) {
    const LignesDUnNom& sienne = parNom[Rogner(nom)];
    if (sienne.presentes <= std::max<std::int64_t>(sienne.demandees, 1)) continue;
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgrammeSansAccents, "le nom ", nom, " est celui de ", Nombre(sienne.presentes),
                          " lignes du tableau : donnez-leur des noms différents, ou marquez-les toutes"_w}));
  }
  // No row of an asked name is left out: it has not more of them than are asked for.
  for (const std::string& ligne : lignes) marques.push_back(parNom.contains(Rogner(ligne)) ? char{1} : char{0});
  for (const std::string& nom : noms)
    if (LignesDUnNom& sienne = parNom[Rogner(nom)]; ++sienne.marquees > sienne.presentes)
      AvertirEtArreter(rapport, contexte.Ecran(), Joindre({"La ligne ", nom, " n'est pas dans le tableau"}));
}

}  // namespace

TableAGrouper OuvrirTable(const Contexte& contexte, Rapport& rapport) {
  TableAGrouper table;
  bool manque = false;
  const auto chercher = [&](std::string_view extension, bool exige) {
    std::optional<Chemin> chemin = contexte.Chercher(extension);
    if (!chemin && exige) {
      rapport.Ligne(PhraseDAbsence(contexte.Nom(extension), kLeFichierEnRelief));
      manque = true;
    }
    return chemin;
  };
  const std::optional<Chemin> mod = chercher(".MOD", true);
  const std::optional<Chemin> brt = chercher(".BRT", true);
  if (mod) {
    table.mod = LireMod(*mod);
    table.parametres = LireParametres(table.mod.parametres, TexteDe(mod->filename()));
    rapport.Lignes(table.parametres.remarques);
  }
  table.pos = chercher(".POS", table.parametres.burt > 0);
  if (manque) AvertirEtArreter(rapport, contexte.Ecran(), kArret);
  table.brt = *brt;
  if (table.parametres.largeur > 0) ExigerTableDuMod(table.brt, table.mod, table.parametres);
  return table;
}

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

PlanDeRegroupement Planifier(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                             const OptionsModifBurt& options) {
  PlanDeRegroupement plan;
  plan.ancienneLargeur = table.parametres.largeur;
  plan.colonnes.assign(NombreDeColonnes(table), 0);
  MarquerColonnes(contexte, rapport, table, options.colonnes, plan.colonnes);
  if (table.parametres.burt > 0) {
    MarquerColonnes(contexte, rapport, table, options.lignes, plan.colonnes);
    plan.lignes = plan.colonnes;
    plan.lignesActives = static_cast<std::int64_t>(plan.colonnes.size());
    return plan;
  }
  MarquerLignes(contexte, rapport, table, options.lignes, plan.lignes);
  plan.lignesActives = CompterRangees(table.brt) - Entier64(std::max(table.parametres.lignesSup, 0.0));
  return plan;
}

void ExigerNomsLibres(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                      OptionsModifBurt options) {
  std::vector<std::string> colonnes;
  for (const Modalite& modalite : table.mod.modalites) colonnes.push_back(modalite.nom);
  std::vector<std::string> lignes;
  if (table.parametres.burt > 0) {
    options.colonnes.insert(options.colonnes.end(), options.lignes.begin(), options.lignes.end());
    options.lignes.clear();
  } else if (!options.lignes.empty()) {
    lignes = NomsDesLignes(table);
  }
  const std::string refus = RefusDuNom(options, colonnes, lignes);
  if (refus.empty()) return;
  AvertirEtArreter(rapport, contexte.Ecran(), Joindre({"*** ", refus}));
}

}  // namespace quelvar::modalities
