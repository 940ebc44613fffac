#include "factor/analyse/tableau.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/datfile.h"
#include "core/panne/erreur.h"

namespace quelvar::factor {

namespace {

std::int64_t Taille(double declaree) {
  const std::int64_t taille = Entier64(declaree);
  if (taille < 0) throw Erreur(kIndiceHorsSelection);
  return taille;
}

// Columns take their positions in file order, active ones from the first, supplementary ones behind them.
void PlacerColonnes(const FichierMod& mod, std::size_t nombre, PlanAnecar& plan) {
  ElementsAnecar& colonnes = plan.colonnes;
  for (std::size_t j = 0; j < nombre; ++j)
    if (!mod.modalites[j].supplementaire) ++colonnes.actifs;
  colonnes.noms.resize(nombre);
  colonnes.intitules.resize(nombre);
  std::size_t active = 0;
  std::size_t supplementaire = colonnes.actifs;
  for (std::size_t j = 0; j < nombre; ++j) {
    plan.positions.push_back(mod.modalites[j].supplementaire ? supplementaire++ : active++);
    colonnes.noms[plan.positions.back()] = mod.modalites[j].nom;
  }
}

// Puts the cells of one row where they belong.
class Repartition {
 public:
  Repartition(const PlanAnecar& plan, TableauAnecar& tableau)
      : plan_(plan), tableau_(tableau), simples_(plan.colonnes.actifs) {}

  void Active(std::size_t position, const std::vector<double>& cellules) {
    const std::size_t actives = plan_.colonnes.actifs;
    for (std::size_t j = 0; j < cellules.size(); ++j) {
      const std::size_t colonne = plan_.positions[j];
      if (colonne < actives) tableau_.actives(position, colonne) = cellules[j];
      else tableau_.colonnesSup(position, colonne - actives) = cellules[j];
    }
  }
  void Supplementaire(const std::vector<double>& cellules) {
    for (std::size_t j = 0; j < cellules.size(); ++j)
      if (plan_.positions[j] < simples_.size()) simples_[plan_.positions[j]] = Simple(cellules[j]);
    tableau_.lignesSup->Ajouter(simples_);
  }

 private:
  const PlanAnecar& plan_;
  TableauAnecar& tableau_;
  std::vector<float> simples_;
};

}  // namespace

PlanAnecar PlanifierTableau(const ParametresMod& parametres, const FichierMod& mod, bool codageLogique) {
  PlanAnecar plan;
  plan.burt = parametres.burt;
  plan.largeur = parametres.largeur;
  plan.decimales = parametres.de;
  plan.lignes = Entier64(parametres.lignes);  // below 0 there is no active row
  std::int64_t lignesSup = Taille(parametres.lignesSup);
  std::int64_t colonnes = Taille(parametres.colonnes);
  if (codageLogique) {
    plan.lignes = lignesSup;
    lignesSup = 0;
  }
  if (plan.burt > 1) plan.lignes = colonnes = plan.burt;
  else if (codageLogique) plan.lignesSautees = colonnes;
  if (plan.burt < 1) colonnes = static_cast<std::int64_t>(mod.modalites.size());
  if (colonnes > static_cast<std::int64_t>(mod.modalites.size()))
    throw Erreur(kFinDeFichierDepassee).Situer({{}, static_cast<std::int64_t>(mod.premiereApres)});

  PlacerColonnes(mod, static_cast<std::size_t>(colonnes), plan);
  plan.lignesActives = plan.lignes - lignesSup;
  if (plan.burt > 1) {
    plan.genre = GenreTableau::BurtCarre;
    plan.lignesActives = static_cast<std::int64_t>(plan.colonnes.actifs);
  } else if (plan.burt == 1 && !codageLogique) {
    if (plan.lignes > 0 && plan.lignes < colonnes) throw Erreur(kIndiceHorsSelection);
    plan.genre = GenreTableau::BurtEtIndividus;
    plan.lignesActives = plan.lignes > 0 ? static_cast<std::int64_t>(plan.colonnes.actifs) : 0;
  }
  return plan;
}

std::vector<std::string> AttribuerIntitules(const FichierMod& mod, PlanAnecar& plan) {
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t position = 0; position < plan.colonnes.Nombre(); ++position)
    rangs.emplace(plan.colonnes.noms[position], position);
  std::vector<std::string> inconnus;
  for (const Modalite& modalite : mod.modalites) {
    const auto rang = rangs.find(modalite.nom);
    if (rang == rangs.end()) inconnus.push_back(modalite.nom);
    else plan.colonnes.intitules[rang->second] = Rogner(modalite.intitule);
  }
  return inconnus;
}

TableauAnecar LireTableau(const Chemin& brt, const PlanAnecar& plan, const Chemin& travail) {
  // The sizes are believed only once the file is known to hold as many lines.
  const std::int64_t presentes = CompterLignes(brt);
  if (presentes < plan.lignesSautees + plan.lignes)
    throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(brt.filename()), presentes});
  const auto lignes = static_cast<std::size_t>(plan.lignes);
  const auto actives = static_cast<std::size_t>(plan.lignesActives);
  const bool carre = plan.genre == GenreTableau::BurtCarre;

  TableauAnecar tableau;
  tableau.actives = Matrice(actives, plan.colonnes.actifs);
  tableau.colonnesSup = Matrice(actives, plan.colonnes.Supplementaires());
  tableau.lignes.actifs = actives;
  tableau.lignes.noms.resize(carre ? actives : lignes);
  tableau.lignes.intitules.resize(tableau.lignes.noms.size());
  if (!carre && lignes > actives)
    tableau.lignesSup = std::make_unique<LignesSupplementaires>(travail, plan.colonnes.actifs);

  LecteurLignes lecteur(brt);
  for (std::int64_t i = 0; i < plan.lignesSautees; ++i) lecteur.LireObligatoire();
  Repartition repartition(plan, tableau);
  LigneBrt ligne;
  const std::size_t burt = plan.genre == GenreTableau::Rectangulaire ? 0 : std::min(lignes, plan.colonnes.Nombre());
  ControleDeBurt controle(brt, plan.colonnes.Nombre(), plan.largeur);
  ExamenDesCellules douteuses(burt > 0 ? CellulesAttendues::Effectifs : CellulesAttendues::Nombres,
                              plan.colonnes.Nombre(), plan.largeur);
  for (std::size_t i = 0; i < lignes; ++i) {
    const std::string_view texte = lecteur.LireObligatoire();
    if (i < burt) controle.Voir(texte, plan.colonnes.noms[plan.positions[i]]);
    if (i + 1 == burt) controle.Conclure();
    const std::size_t position = plan.PositionLigne(i);
    if (position >= tableau.lignes.Nombre()) continue;
    Situer(lecteur, [&] { LireLigneBrt(texte, static_cast<int>(plan.colonnes.Nombre()), plan.largeur, ligne); });
    douteuses.Voir(texte, plan.lignesSautees + static_cast<std::int64_t>(i) + 1);
    tableau.lignes.noms[position] = ligne.nom;
    tableau.lignes.intitules[position] = ligne.intitule;
    if (position < actives) repartition.Active(position, ligne.cellules);
    else repartition.Supplementaire(ligne.cellules);
  }
  for (std::string_view texte; !carre && lecteur.Lire(texte);) douteuses.VoirAuDela(texte);
  douteuses.Dire(TexteDe(brt.filename()), tableau.constats);
  return tableau;
}

}  // namespace quelvar::factor
