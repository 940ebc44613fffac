#include "factor/ellipses/lecture.h"

#include <cmath>
#include <string_view>

#include "core/programme/erreur.h"
#include "core/programme/report.h"
#include "core/texte/nombres.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kColonneFacteurs = 40;
constexpr std::size_t kColonneValeur = 16;
constexpr std::size_t kPremiereCellule = 5;
constexpr double kMilliemes = 1000;

[[noreturn]] void Refuser(const Chemin& fichier, Texte raison) {
  throw Erreur(kIncompatibiliteType, Joindre({"*** Arret du programme : ", TexteDe(fichier.filename()), " ", raison,
                                              " : refaites les modalités et les facteurs"_w}));
}

}  // namespace

std::vector<double> RacinesDesValeursPropres(const Chemin& rapport) {
  double facteurs = 0;
  std::vector<double> racines;
  LecteurLignes lecteur(rapport);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (ligne.starts_with("Le nombre de facteurs a extraire est de"))
      facteurs = ValeurDe(Milieu(ligne, kColonneFacteurs));
    if (!ligne.starts_with("Valeur propre =") || static_cast<double>(racines.size()) >= facteurs) continue;
    const double valeur = ValeurDe(Milieu(ligne, kColonneValeur));
    if (valeur < 0) throw Erreur(kArgumentIncorrect);
    racines.push_back(std::sqrt(valeur));
  }
  return racines;
}

std::vector<Nuage> LireNuages(const LignesDIndividus& lignes, std::span<const std::size_t> places,
                              std::span<const Position> points) {
  std::vector<Nuage> nuages(places.size());
  LecteurLignes lecteur(lignes.fichier);
  for (std::size_t i = 0; i < lignes.sautees; ++i) lecteur.LireObligatoire();
  const std::size_t longueur = kPremiereCellule - 1 + lignes.colonnes * lignes.largeur;
  for (const Position point : points) {
    const std::string_view ligne = lecteur.LireObligatoire();
    if (ligne.size() < longueur) Refuser(lignes.fichier, "a moins de colonnes que le fichier n'a de modalités"_w);
    for (std::size_t m = 0; m < places.size(); ++m)
      if (ValeurDe(Milieu(ligne, kPremiereCellule + places[m] * lignes.largeur, lignes.largeur)) != 0)
        nuages[m].Ajouter(point.x / kMilliemes, point.y / kMilliemes);
  }
  if (std::string_view reste; lecteur.Lire(reste) && !Rogner(reste).empty())
    Refuser(lignes.fichier, "a plus d'individus que les coordonnées"_w);
  return nuages;
}

}  // namespace quelvar::factor
