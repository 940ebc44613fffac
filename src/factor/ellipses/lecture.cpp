#include "factor/ellipses/lecture.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"
#include "factor/fichiers/cellules.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

[[noreturn]] void Refuser(const Chemin& fichier, Texte raison) {
  throw Erreur(kIncompatibiliteType,
               Joindre({kArretDuProgrammeSansAccents, TexteDe(fichier.filename()), " ", raison, kRelancerLesFacteurs}));
}

}  // namespace

std::vector<Nuage> LireNuages(const LignesDIndividus& lignes, std::span<const std::size_t> places,
                              std::span<const Position> points) {
  std::vector<Nuage> nuages(places.size());
  const std::size_t longueur = kLargeurDeModalite + lignes.colonnes * lignes.largeur;
  LecteurLignes lecteur(lignes.fichier);
  Situer(lecteur, [&] {
    for (std::size_t i = 0; i < lignes.sautees; ++i) lecteur.LireObligatoire();
    for (const Position point : points) {
      const std::string_view ligne = lecteur.LireObligatoire();
      if (ligne.size() < longueur) Refuser(lignes.fichier, "a moins de colonnes que le fichier n'a de modalités"_w);
      for (std::size_t m = 0; m < places.size(); ++m)
        if (ValeurDe(CelluleDeLigne(ligne, places[m], lignes.largeur)) != 0)
          nuages[m].Ajouter(point.x / kMilliemesParUnite, point.y / kMilliemesParUnite);
    }
    if (std::string_view reste; lecteur.Lire(reste) && !Rogner(reste).empty())
      Refuser(lignes.fichier, "a plus d'individus que les coordonnées"_w);
  });
  return nuages;
}

namespace {

// The active cells of each individual, as a text of 0 and 1.
std::vector<std::string> Profils(const LignesDIndividus& lignes, const std::vector<bool>& actives,
                                 std::size_t individus) {
  std::vector<std::string> profils;
  LecteurLignes lecteur(lignes.fichier);
  Situer(lecteur, [&] {
    for (std::size_t i = 0; i < lignes.sautees; ++i) lecteur.LireObligatoire();
    while (profils.size() < individus) {
      const std::string_view ligne = lecteur.LireObligatoire();
      std::string& profil = profils.emplace_back(actives.size(), '0');
      for (std::size_t j = 0; j < actives.size(); ++j)
        if (actives[j] && ValeurDe(CelluleDeLigne(ligne, j, lignes.largeur)) != 0) profil[j] = '1';
    }
  });
  return profils;
}

double LaPlusGrande(std::span<const double> valeurs) {
  double grande = 0;
  for (const double valeur : valeurs) grande = std::max(grande, std::fabs(valeur));
  return grande;
}

// Rounding of the files, and of deviations in single precision.
constexpr double kEcartDeFichier = 0.001;
constexpr double kEcartRelatif = 0.01;

// The first who is not at the mean of his columns, at the scale that fits all best.
std::optional<std::int64_t> HorsDeLaMoyenne(const std::vector<std::string>& profils, std::span<const double> valeurs,
                                            std::span<const double> colonnes) {
  std::vector<double> moyennes;
  for (const std::string& profil : profils) {
    double somme = 0;
    double nombre = 0;
    for (std::size_t j = 0; j < profil.size(); ++j)
      if (profil[j] == '1') somme += colonnes[j], ++nombre;
    moyennes.push_back(nombre > 0 ? somme / nombre : 0);
  }
  double produits = 0;
  double carres = 0;
  for (std::size_t i = 0; i < moyennes.size(); ++i) {
    produits += moyennes[i] * valeurs[i];
    carres += moyennes[i] * moyennes[i];
  }
  if (carres == 0) return std::nullopt;
  const double permis = kEcartDeFichier + kEcartRelatif * LaPlusGrande(valeurs);
  for (std::size_t i = 0; i < moyennes.size(); ++i)
    if (moyennes[i] != 0 && std::fabs(valeurs[i] - produits / carres * moyennes[i]) > permis)
      return static_cast<std::int64_t>(i) + 1;
  return std::nullopt;
}

}  // namespace

std::optional<std::int64_t> PremierDeplace(const LignesDIndividus& lignes, const std::vector<bool>& actives,
                                           const Matrice& coordonnees, const Matrice* colonnes) {
  constexpr std::size_t kPeuDIndividus = 30;  // fewer may have been typed
  const std::size_t individus = coordonnees.Colonnes();
  if (individus < kPeuDIndividus) return std::nullopt;
  const std::vector<std::string> profils = Profils(lignes, actives, individus);
  std::unordered_map<std::string_view, std::size_t> premiers;
  for (std::size_t i = 0; i < individus; ++i) {
    const std::size_t premier = premiers.emplace(profils[i], i).first->second;
    for (std::size_t f = 0; f < coordonnees.Lignes(); ++f)
      if (std::fabs(coordonnees(f, i) - coordonnees(f, premier)) > kEcartDeFichier)
        return static_cast<std::int64_t>(i) + 1;
  }
  if (colonnes == nullptr || colonnes->Colonnes() != actives.size() || premiers.size() < individus) return std::nullopt;
  for (std::size_t f = 0; f < coordonnees.Lignes(); ++f)
    if (const auto hors = HorsDeLaMoyenne(profils, coordonnees.Ligne(f), colonnes->Ligne(f))) return hors;
  return std::nullopt;
}

}  // namespace quelvar::factor
