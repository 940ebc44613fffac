#include "factor/coordonnees.h"

#include <algorithm>
#include <functional>

#include "core/enquete/datfile.h"
#include "core/programme/report.h"
#include "core/texte/nombres.h"

namespace quelvar::factor {

namespace {

constexpr int kLargeurNom = 4;
constexpr std::size_t kColonneInertie = 5;
constexpr std::size_t kPremierBloc = 10;  // column of the first factor
constexpr std::size_t kLargeurCpf = 5;
constexpr std::size_t kLargeurEntiere = 7;  // of a coordinate without decimals
constexpr std::size_t kLargeurFine = 12;    // with four decimals
constexpr std::size_t kBlocEntier = kLargeurEntiere + kLargeurCpf;
constexpr std::size_t kBlocFin = kLargeurFine + kLargeurCpf;

// Gives the last lines of the file by their rank, at most `derniers`, once `preparer` has been told their number.
void ParcourirDernieres(const Chemin& chemin, std::size_t derniers, const std::function<void(std::size_t)>& preparer,
                        const std::function<void(std::size_t, std::string_view)>& traiter) {
  const auto lignes = static_cast<std::size_t>(CompterLignes(chemin));
  const std::size_t nombre = std::min(lignes, derniers);
  preparer(nombre);
  LecteurLignes lecteur(chemin);
  for (std::size_t i = 0; i < lignes - nombre; ++i) lecteur.LireObligatoire();
  for (std::size_t i = 0; i < nombre; ++i) traiter(i, lecteur.LireObligatoire());
}

double ValeurDuChamp(std::string_view ligne, std::size_t colonne, std::size_t largeur) {
  return ValeurDe(Milieu(ligne, colonne, largeur));
}

}  // namespace

std::size_t FacteursDUneLigne(std::string_view ligneFaj) {
  return ligneFaj.size() < kPremierBloc ? 0 : (ligneFaj.size() - kPremierBloc + 1) / kBlocEntier;
}

ElementsFactoriels LireFaj(const Chemin& chemin) {
  std::string_view ligne;
  LecteurLignes lecteur(chemin);
  return lecteur.Lire(ligne) ? LireFai(chemin, FacteursDUneLigne(ligne)) : ElementsFactoriels{};
}

ElementsFactoriels LireFai(const Chemin& chemin, std::size_t facteurs, std::size_t derniers) {
  ElementsFactoriels elements;
  const auto preparer = [&](std::size_t nombre) {
    elements.coordonnees = Matrice(facteurs, nombre);
    elements.cpf = Matrice(facteurs, nombre);
  };
  ParcourirDernieres(chemin, derniers, preparer, [&](std::size_t i, std::string_view ligne) {
    elements.noms.push_back(CadreGauche(ligne, kLargeurNom));
    elements.inerties.push_back(ValeurDuChamp(ligne, kColonneInertie, kPremierBloc - kColonneInertie));
    for (std::size_t f = 0; f < facteurs; ++f) {
      const std::size_t bloc = kPremierBloc + kBlocEntier * f;
      elements.coordonnees(f, i) = ValeurDuChamp(ligne, bloc, kLargeurEntiere);
      elements.cpf(f, i) = ValeurDuChamp(ligne, bloc + kLargeurEntiere, kLargeurCpf);
    }
    elements.intitules.emplace_back(Milieu(ligne, kPremierBloc + kBlocEntier * facteurs));
  });
  return elements;
}

PointsFactoriels LirePoints(const Chemin& chemin, std::size_t facteurs, std::size_t derniers) {
  PointsFactoriels points;
  const auto preparer = [&](std::size_t nombre) { points.coordonnees = Matrice(facteurs, nombre); };
  ParcourirDernieres(chemin, derniers, preparer, [&](std::size_t i, std::string_view ligne) {
    points.noms.push_back(CadreGauche(ligne, kLargeurNom));
    for (std::size_t f = 0; f < facteurs; ++f)
      points.coordonnees(f, i) = ValeurDuChamp(ligne, kPremierBloc + kBlocFin * f, kLargeurFine);
    points.intitules.emplace_back(Milieu(ligne, kPremierBloc + kBlocFin * facteurs + 1));
  });
  return points;
}

}  // namespace quelvar::factor
