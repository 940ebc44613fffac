#include "core/enquete/trgfile.h"

#include "core/programme/report.h"

namespace quelvar {

TeteTrg LireTeteTrg(LecteurLignes& lecteur) {
  TeteTrg tete;
  tete.titre = lecteur.LireObligatoire();
  for (std::string& sommet : tete.sommets) sommet = lecteur.LireObligatoire();
  return tete;
}

void EcrireTeteTrg(Ecrivain& fichier, const TeteTrg& tete) {
  fichier.Ligne(tete.titre);
  for (const std::string& sommet : tete.sommets) fichier.Ligne(sommet);
}

std::string LigneDePointTrg(std::string_view nom, const PartsTrg& parts, std::string_view intitule) {
  constexpr int kDecimales = 1;
  std::string ligne = CadreGauche(nom, kLargeurNomTrg);
  for (const double part : parts) ligne += NombreFixe(part, kLargeurPartTrg - kDecimales - 1, kDecimales);
  ligne += intitule;
  return ligne;
}

}  // namespace quelvar
