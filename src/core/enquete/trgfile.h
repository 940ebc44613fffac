// The file of the triangular graph, .TRG: a title, the names of the three vertices, and a line for each point.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/programme/rapport.h"

namespace quelvar {

inline constexpr std::size_t kSommetsTrg = 3;

// The lines before the points.
struct TeteTrg {
  std::string titre;
  std::array<std::string, kSommetsTrg> sommets;
};
inline constexpr std::size_t kLignesDeTeteTrg = 1 + kSommetsTrg;

// Raises kFinDeFichierDepassee for less than four lines, and the failures of LecteurLignes.
inline TeteTrg LireTeteTrg(LecteurLignes& lecteur) {
  TeteTrg tete;
  tete.titre = lecteur.LireObligatoire();
  for (std::string& sommet : tete.sommets) sommet = lecteur.LireObligatoire();
  return tete;
}

// Raises the failures of writing.
inline void EcrireTeteTrg(Ecrivain& fichier, const TeteTrg& tete) {
  fichier.Ligne(tete.titre);
  for (const std::string& sommet : tete.sommets) fichier.Ligne(sommet);
}

// Columns of a point: its name, three shares in percent with one decimal, and its label, which takes the rest.
inline constexpr int kLargeurNomTrg = 4;
inline constexpr int kLargeurPartTrg = 5;
using PartsTrg = std::array<double, kSommetsTrg>;

// The shares of three counts in percent of their sum; zeros without any count.
inline PartsTrg PourcentagesTrg(PartsTrg effectifs) {
  const double somme = effectifs[0] + effectifs[1] + effectifs[2];
  for (double& part : effectifs) part = somme == 0 ? 0 : 100 * part / somme;
  return effectifs;
}

inline std::string LigneDePointTrg(std::string_view nom, const PartsTrg& parts, std::string_view intitule) {
  constexpr int kDecimales = 1;
  std::string ligne = CadreGauche(nom, kLargeurNomTrg);
  for (const double part : parts) ligne += NombreFixe(part, kLargeurPartTrg - kDecimales - 1, kDecimales);
  ligne += intitule;
  return ligne;
}

}  // namespace quelvar
