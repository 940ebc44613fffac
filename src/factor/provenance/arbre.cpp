#include "factor/provenance/arbre.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "core/enquete/modfile.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kElementsAuPlus = 5000;  // of a tree that is made again
constexpr std::size_t kPairesAuPlus = 20000;   // of one whose first step is looked at
constexpr std::chrono::seconds kUnRun{2};      // a tree is written with its coordinates, a later analysis takes longer

// The first merging of a tree is that of the two nearest points.
bool PremiereEtapeConvient(const Matrice& points, const EtapeWard& etape) {
  constexpr double kArrondi = 1e-9;  // relative: far above the rounding of sums of squares in doubles
  const auto distance = [&](std::size_t i, std::size_t j) {
    double somme = 0;
    for (std::size_t f = 0; f < points.Lignes(); ++f) somme += std::pow(points(f, j) - points(f, i), 2);
    return somme;
  };
  const double premiere =
      distance(static_cast<std::size_t>(etape.premier) - 1, static_cast<std::size_t>(etape.second) - 1);
  for (std::size_t i = 0; i < points.Colonnes(); ++i)
    for (std::size_t j = i + 1; j < points.Colonnes(); ++j)
      if (distance(i, j) < premiere - kArrondi * (1 + premiere)) return false;
  return true;
}

bool EstAnterieur(const Chemin& fichier, const Chemin& autre) {
  std::error_code sien;
  std::error_code autreCode;
  const auto date = std::filesystem::last_write_time(fichier, sien);
  const auto autreDate = std::filesystem::last_write_time(autre, autreCode);
  return !sien && !autreCode && autreDate - date > kUnRun;
}

bool EtapesConviennent(Matrice points, const std::vector<EtapeWard>& etapes) {
  for (double& x : points.Valeurs()) x /= kMilliemesParUnite;
  const auto memeEtape = [](const EtapeWard& une, const EtapeWard& autre) {
    return une.premier == autre.premier && une.second == autre.second;
  };
  return std::ranges::any_of(std::vector{MethodeWard::Distances, MethodeWard::Carres}, [&](MethodeWard methode) {
    return std::ranges::equal(ClasserPoints(points, methode, [](std::int64_t) {}), etapes, memeEtape);
  });
}

bool ArbreConvient(const Contexte& contexte, const ArbreCah& arbre) {
  const std::size_t elements = arbre.etapes.size() + 1;
  const std::optional<Chemin> fichier = contexte.Chercher(arbre.individus ? ".FI2" : ".FJ2");
  const std::optional<Chemin> faj = contexte.Chercher(".FAJ");
  const std::optional<Chemin> cah = contexte.Chercher(".CAH");
  if (!fichier || !faj || !cah || elements < 2) return true;
  if (elements > kElementsAuPlus && EstAnterieur(*cah, *fichier)) return false;
  if (elements > kPairesAuPlus) return true;
  const std::size_t facteurs = LireFaj(*faj).Facteurs();
  const Matrice points = LirePoints(*fichier, facteurs, elements).coordonnees;
  if (points.Colonnes() != elements) return false;
  if (elements > kElementsAuPlus) return PremiereEtapeConvient(points, arbre.etapes.front());
  return EtapesConviennent(points, arbre.etapes);
}

}  // namespace

bool ArbreEstDesCoordonnees(const Contexte& contexte, const ArbreCah& arbre) {
  try {
    return ArbreConvient(contexte, arbre);
  } catch (const Erreur&) {  // coordinates that can't be read say nothing of the tree
    return true;
  }
}

bool CoordonneesSontDesModalites(const Contexte& contexte) {
  const std::optional<Chemin> fj2 = contexte.Chercher(".FJ2");
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  if (!fj2 || !mod) return true;
  const std::vector<std::string> noms = LirePoints(*fj2, 0).noms;
  return std::ranges::equal(noms, LireMod(*mod).modalites, {}, {}, &Modalite::nom);
}

}  // namespace quelvar::factor
