#include "capture/apercu/observation/apercu.h"

#include <algorithm>

#include "capture/apercu/observation/examen.h"
#include "capture/apercu/octets/cellule.h"

namespace quelvar::capture {

namespace {

// The rows that are shown.
void LirePremieres(LecteurDeRangees& lecteur, ExamenDeTable& examen, std::vector<LigneApercu>& lignes) {
  std::string_view rangee;
  while (lignes.size() < kLignesApercu && lecteur.Lire(rangee)) {
    examen.Voir(rangee, lecteur);
    if (lecteur.SansValeur(rangee)) continue;
    LigneApercu ligne{lecteur.Ligne(), {}};
    LigneDeTableur cellules = lecteur.Cellules(rangee);
    for (std::string_view cellule; cellules.Suivante(cellule);) ligne.cellules.emplace_back(RognerCellule(cellule));
    lignes.push_back(std::move(ligne));
  }
}

}  // namespace

Apercu LireApercu(const Chemin& source, const Lecture& lecture, std::int64_t individus) {
  Apercu apercu;
  apercu.lecture = lecture;
  apercu.octets = LongueurFichier(source);
  LecteurDeRangees lecteur(source, lecture);
  ExamenDeTable examen(lecture);
  Situer(
      [&] {
        return Lieu{{}, lecteur.Ligne()};
      },
      [&] {
        examen.LireTitres(lecteur);
        LirePremieres(lecteur, examen, apercu.lignes);
        const bool tout = apercu.octets <= kApercuEntier;
        examen.LireRangees(lecteur, tout ? ExamenDeTable::kToutes : std::max(individus, examen.Individus() + 1));
      });
  apercu.entier = examen.Finie();
  apercu.faits = examen.Conclure(lecteur);
  for (const FaitsDeColonne& colonne : apercu.faits.colonnes) apercu.intitules.push_back(colonne.intitule);
  return apercu;
}

}  // namespace quelvar::capture
