// What the form Graphe shows as options, and the options as the state of the form.
#include <algorithm>
#include <array>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/options/option.h"
#include "tables/triangle/triang.h"

namespace quelvar::tables {

namespace {

// The name of each entry of the list.
std::vector<std::string> NomsDesEntrees(const EtatTriangle& etat) {
  std::vector<std::string> noms = {"titre", "sommet1", "sommet2", "sommet3"};
  std::unordered_map<std::string, int> vus;
  for (const PointTriangle& point : etat.trg.points) {
    const std::string nom(Rogner(point.nom));
    const int fois = ++vus[nom];
    noms.push_back(fois == 1 ? nom : Joindre({nom, "#", Nombre(fois)}));
  }
  return noms;
}

class RangsDesNoms {
 public:
  explicit RangsDesNoms(const EtatTriangle& etat) {
    std::size_t rang = 0;
    for (std::string& nom : NomsDesEntrees(etat)) rangs_.emplace(std::move(nom), rang++);
  }
  std::size_t Rang(std::string_view nom) const {
    const auto trouve = rangs_.find(std::string(Rogner(nom)));
    if (trouve == rangs_.end()) throw UsageIncorrect(Joindre({"Le texte ", nom, " n'est pas dans le graphique"}));
    return trouve->second;
  }

 private:
  std::unordered_map<std::string, std::size_t> rangs_;
};

[[noreturn]] void Refuser(std::string_view option, const std::pair<std::string, std::string>& couple,
                          std::string_view attendu) {
  throw UsageIncorrect(Joindre({option, "=", couple.first, "=", couple.second, " : on attend ", attendu}));
}

int MarqueDe(const std::pair<std::string, std::string>& couple) {
  const double marque = EstNombre(couple.second) ? ValeurDe(couple.second) : -1;
  for (int permise = 0; permise <= kDerniereMarque; ++permise)
    if (marque == permise) return permise;
  Refuser("marques", couple, "une marque de 0 à 5"_w);
}

Position DeplacementDe(const std::pair<std::string, std::string>& couple) {
  const std::size_t barre = couple.second.find('/');
  const std::string dx = couple.second.substr(0, barre);
  const std::string dy = barre == std::string::npos ? std::string() : couple.second.substr(barre + 1);
  if (!EstNombre(dx) || !EstNombre(dy)) Refuser("deplaces", couple, "DX/DY");
  return {ValeurDe(dx), ValeurDe(dy)};
}

}  // namespace

OptionsTriang OptionsDuTriangle(const EtatTriangle& etat) {
  OptionsTriang options;
  options.reglages = etat.reglages;
  options.cotes = etat.cotes;
  options.largeur = etat.largeur * 100;
  options.hauteur = etat.hauteur * 100;
  options.fenetre = etat.fenetre * 100;
  // The mark that most points have is that of all.
  std::array<std::size_t, kDerniereMarque + 1> fois = {};
  for (std::size_t i = kEntreeDuPremierPoint; i < etat.entrees.size(); ++i)
    ++fois[static_cast<std::size_t>(etat.entrees[i].marque)];
  if (etat.entrees.size() > kEntreeDuPremierPoint)
    options.marque = static_cast<int>(std::max_element(fois.begin(), fois.end()) - fois.begin());
  const std::vector<std::string> noms = NomsDesEntrees(etat);
  for (std::size_t i = 0; i < etat.entrees.size(); ++i) {
    const EntreeTriangle& entree = etat.entrees[i];
    if (entree.invisible) options.invisibles.push_back(noms[i]);
    if (i >= kEntreeDuPremierPoint && entree.marque != options.marque)
      options.marques.emplace_back(noms[i], Nombre(entree.marque));
    if (entree.deplacee)
      options.deplaces.emplace_back(noms[i],
                                    Joindre({Nombre(entree.deplacement.x), "/", Nombre(entree.deplacement.y)}));
  }
  return options;
}

EtatTriangle ReglerTriangle(const OptionsTriang& options, FichierTrg trg) {
  EtatTriangle etat = NouveauTriangle(std::move(trg));
  etat.reglages = options.reglages;
  etat.cotes = options.cotes;
  etat.largeur = options.largeur / 100;
  etat.hauteur = options.hauteur / 100;
  etat.fenetre = options.fenetre / 100;
  for (EntreeTriangle& entree : etat.entrees) entree.marque = options.marque;
  const RangsDesNoms noms(etat);
  for (const std::string& nom : options.invisibles) etat.entrees[noms.Rang(nom)].invisible = true;
  for (const auto& couple : options.marques) etat.entrees[noms.Rang(couple.first)].marque = MarqueDe(couple);
  for (const auto& couple : options.deplaces) {
    EntreeTriangle& entree = etat.entrees[noms.Rang(couple.first)];
    entree.deplacement = DeplacementDe(couple);
    entree.deplacee = true;
  }
  return etat;
}

}  // namespace quelvar::tables
