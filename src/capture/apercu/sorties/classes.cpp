#include "capture/apercu/sorties/classes.h"

#include <algorithm>
#include <cmath>

#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

// The number with a comma, as labels have it.
std::string EnTexte(double valeur, int decimales) {
  std::string texte = Nombre(Arrondir(valeur, decimales));
  std::ranges::replace(texte, '.', ',');
  return texte;
}

constexpr int kDecimalesAuPlus = 6;
constexpr double kMemePlace = 1e-6;  // of the grid: what rounding may bring

// The values of a column stand on a grid of its decimals.
class Grille {
 public:
  explicit Grille(int decimales)
      : decimales_(std::min(decimales, kDecimalesAuPlus)), facteur_(std::pow(10.0, decimales_)) {}

  // The first value of the grid that is not below the limit.
  double Premiere(double limite) const {
    const double places = limite * facteur_;
    const double proche = std::nearbyint(places);
    return (std::abs(places - proche) < kMemePlace ? proche : std::ceil(places)) / facteur_;
  }
  double Avant(double valeur) const { return valeur - 1 / facteur_; }
  std::string Intitule(double debut, double fin) const {
    const std::string a = EnTexte(debut, decimales_);
    const std::string b = EnTexte(fin, decimales_);
    return a == b ? a : Joindre({a, "-", b});
  }

 private:
  int decimales_;
  double facteur_;
};

}  // namespace

Classes ClassesSelonBornes(const std::vector<double>& bornes, const FaitsDeColonne& colonne) {
  Classes classes;
  const Grille grille(colonne.decimales);
  std::vector<double> debuts;
  if (bornes.empty() || colonne.minimum < bornes.front()) debuts.push_back(colonne.minimum);
  for (const double borne : bornes) debuts.push_back(borne);
  // A last bound above all values only closes the class before it.
  const bool fermee = debuts.size() > 1 && colonne.maximum < debuts.back();
  const double fin = fermee ? grille.Avant(grille.Premiere(debuts.back())) : colonne.maximum;
  if (fermee) debuts.pop_back();
  for (std::size_t i = 0; i < debuts.size(); ++i) {
    const double haut = i + 1 < debuts.size() ? grille.Avant(grille.Premiere(debuts[i + 1])) : fin;
    classes.etiquettes.push_back({static_cast<int>(i + 1), grille.Intitule(grille.Premiere(debuts[i]), haut)});
  }
  classes.limites.assign(debuts.begin() + 1, debuts.end());
  return classes;
}

std::vector<double> BornesDeGroupes(std::vector<double> valeurs, int groupes) {
  std::ranges::sort(valeurs);
  std::vector<double> bornes;
  const auto nombre = valeurs.size();
  for (int k = 1; k < groupes; ++k) {
    // The limit that splits off the k-th part; equal values stay together, on the side that errs less.
    const std::size_t rang = nombre * static_cast<std::size_t>(k) / static_cast<std::size_t>(groupes);
    if (rang == 0 || rang >= nombre) continue;
    const double valeur = valeurs[rang];
    const auto debut = static_cast<std::size_t>(std::ranges::lower_bound(valeurs, valeur) - valeurs.begin());
    const auto fin = static_cast<std::size_t>(std::ranges::upper_bound(valeurs, valeur) - valeurs.begin());
    const bool avant = debut > 0 && (rang - debut <= fin - rang || fin >= nombre);
    if (!avant && fin >= nombre) continue;
    const double borne = avant ? valeur : valeurs[fin];
    if (bornes.empty() || borne > bornes.back()) bornes.push_back(borne);
  }
  return bornes;
}

std::vector<std::string> LibellesDesClasses(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<std::string> libelles;
  std::vector<double> bornes = choix.bornes;
  if (bornes.empty() && choix.groupes == 0) return libelles;
  if (bornes.empty()) {
    constexpr std::int64_t kNombresAuPlus = 200000;  // looked at while the user waits
    if (colonne.valeurs.empty() || colonne.remplies > kNombresAuPlus) return libelles;
    std::vector<double> valeurs;
    for (const ValeurComptee& valeur : colonne.valeurs) {
      if (EstParmi(choix.nonReponses, valeur.valeur)) continue;
      if (const std::optional<NombreDeCellule> nombre = LireNombre(valeur.valeur, colonne.signes))
        valeurs.insert(valeurs.end(), static_cast<std::size_t>(valeur.effectif), ValeurDe(nombre->Normalise()));
    }
    if (valeurs.empty()) return libelles;
    bornes = BornesDeGroupes(std::move(valeurs), choix.groupes);
  }
  for (const Etiquette& etiquette : ClassesSelonBornes(bornes, colonne).etiquettes)
    libelles.push_back(etiquette.intitule);
  return libelles;
}

}  // namespace quelvar::capture
