#include "capture/apercu/apercu.h"

#include "capture/apercu/observation/examen.h"
#include "capture/apercu/octets/cellule.h"

namespace quelvar::capture {

Apercu LireApercu(const Chemin& source, const Lecture& lecture) {
  Apercu apercu;
  apercu.lecture = lecture;
  apercu.octets = LongueurFichier(source);
  LecteurDeRangees lecteur(source, lecture);
  ExamenDeTable examen(lecture);
  examen.LireTitres(lecteur);
  std::string_view rangee;
  while (apercu.lignes.size() < kLignesApercu && lecteur.Lire(rangee)) {
    examen.Voir(rangee, lecteur);
    if (lecteur.SansValeur(rangee)) continue;
    LigneApercu ligne{lecteur.Ligne(), {}};
    LigneDeTableur cellules = lecteur.Cellules(rangee);
    for (std::string_view cellule; cellules.Suivante(cellule);) ligne.cellules.emplace_back(RognerCellule(cellule));
    apercu.lignes.push_back(std::move(ligne));
  }
  const bool tout = apercu.octets <= kApercuEntier;
  examen.LireRangees(lecteur, tout ? ExamenDeTable::kToutes : examen.Individus() + 1);
  apercu.entier = examen.Finie();
  apercu.faits = examen.Conclure(lecteur);
  for (const FaitsDeColonne& colonne : apercu.faits.colonnes) apercu.intitules.push_back(colonne.intitule);
  return apercu;
}

}  // namespace quelvar::capture
