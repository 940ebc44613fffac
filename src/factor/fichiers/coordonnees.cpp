#include "factor/fichiers/coordonnees.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/datfile.h"
#include "core/programme/rapport.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kColonneInertie = 5;
constexpr std::size_t kPremierBloc = 10;  // column of the first factor
constexpr std::size_t kLargeurCpf = 5;
constexpr std::size_t kLargeurEntiere = 7;  // of a coordinate without decimals
constexpr std::size_t kLargeurFine = 12;    // with four decimals
constexpr std::size_t kBlocEntier = kLargeurEntiere + kLargeurCpf;
constexpr std::size_t kBlocFin = kLargeurFine + kLargeurCpf;

double ValeurDuChamp(std::string_view ligne, std::size_t colonne, std::size_t largeur) {
  return ValeurDe(Milieu(ligne, colonne, largeur));
}

}  // namespace

std::string DebutDeLigne(std::string_view nom, double inertie) {
  return CadreGauche(nom, kLargeurDeModalite) + NombreFixe(inertie, kPremierBloc - kColonneInertie, 0);
}

void AjouterFacteur(std::string& ligne, double coordonnee, int cpf, Precision precision) {
  ligne += NombreFixe(coordonnee, kLargeurEntiere, static_cast<int>(precision));
  ligne += EntierDroit(cpf, kLargeurCpf);
}

std::size_t FacteursDUneLigne(std::string_view ligneFaj) {
  if (ligneFaj.size() < kPremierBloc) return 0;
  return std::min<std::size_t>((ligneFaj.size() - kPremierBloc + 1) / kBlocEntier, kFacteursAuPlus);
}

ElementsFactoriels LireFaj(const Chemin& chemin) {
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (!Rogner(ligne).empty()) return LireFai(chemin, FacteursDUneLigne(ligne));
  return {};
}

ElementsFactoriels LireFai(const Chemin& chemin, std::size_t facteurs) {
  ElementsFactoriels elements;
  elements.coordonnees = elements.cpf = Matrice(facteurs, static_cast<std::size_t>(CompterLignes(chemin)));
  LecteurLignes lecteur(chemin);
  Situer(lecteur, [&] {
    std::int64_t place = 0;
    for (std::string_view ligne; lecteur.Lire(ligne);) {
      ++place;
      if (Rogner(ligne).empty()) continue;
      const std::size_t i = elements.noms.size();
      elements.places.push_back(place);
      elements.noms.push_back(CadreGauche(ligne, kLargeurDeModalite));
      elements.inerties.push_back(ValeurDuChamp(ligne, kColonneInertie, kPremierBloc - kColonneInertie));
      for (std::size_t f = 0; f < facteurs; ++f) {
        const std::size_t bloc = kPremierBloc + kBlocEntier * f;
        elements.coordonnees(f, i) = ValeurDuChamp(ligne, bloc, kLargeurEntiere);
        elements.cpf(f, i) = ValeurDuChamp(ligne, bloc + kLargeurEntiere, kLargeurCpf);
      }
      elements.intitules.emplace_back(Milieu(ligne, kPremierBloc + kBlocEntier * facteurs));
    }
  });
  return elements;
}

PointsFactoriels LirePoints(const Chemin& chemin, std::size_t facteurs, std::size_t derniers) {
  const auto lignes = static_cast<std::size_t>(CompterLignes(chemin));
  const std::size_t nombre = std::min(lignes, derniers);
  PointsFactoriels points;
  points.coordonnees = Matrice(facteurs, nombre);
  LecteurLignes lecteur(chemin);
  for (std::size_t i = 0; i < lignes - nombre; ++i) lecteur.LireObligatoire();
  Situer(lecteur, [&] {
    for (std::size_t i = 0; i < nombre; ++i) {
      const std::string_view ligne = lecteur.LireObligatoire();
      points.noms.push_back(CadreGauche(ligne, kLargeurDeModalite));
      for (std::size_t f = 0; f < facteurs; ++f)
        points.coordonnees(f, i) = ValeurDuChamp(ligne, kPremierBloc + kBlocFin * f, kLargeurFine);
      points.intitules.emplace_back(Milieu(ligne, kPremierBloc + kBlocFin * facteurs + 1));
    }
  });
  return points;
}

}  // namespace quelvar::factor
