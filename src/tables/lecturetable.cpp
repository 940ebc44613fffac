#include "tables/lecturetable.h"

#include <limits>
#include <utility>

#include "core/enquete/datfile.h"
#include "core/panne/erreur.h"

namespace quelvar::tables {

namespace {

int NombreDeCellules(std::size_t colonnes) {
  if (colonnes > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw Erreur(kDepassementCapacite);
  return static_cast<int>(colonnes);
}

}  // namespace

TableLue LireTable(const Chemin& brt, std::size_t lignes, std::size_t colonnes, int largeur) {
  TableLue table;
  std::vector<double> cellules;
  LecteurLignes lecteur(brt);
  LigneBrt ligne;
  for (std::size_t i = 0; i < lignes; ++i) {
    Situer(lecteur, [&] { LireLigneBrt(lecteur.LireObligatoire(), NombreDeCellules(colonnes), largeur, ligne); });
    cellules.insert(cellules.end(), ligne.cellules.begin(), ligne.cellules.end());
    table.lignes.push_back(NommerLigne(ligne));
  }
  table.effectifs = Matrice(lignes, colonnes, std::move(cellules));
  return table;
}

DemiBurt LireDemiBurt(const Chemin& brt, std::size_t modalites, int largeur, const std::vector<NomDElement>& noms) {
  DemiBurt burt;
  LecteurLignes lecteur(brt);
  LigneBrt ligne;
  ControleDeBurt controle(brt, modalites, largeur);
  for (std::size_t i = 0; i < modalites; ++i) {
    const std::string_view texte = lecteur.LireObligatoire();
    controle.Voir(texte, noms[i].court);
    Situer(lecteur, [&] { LireLigneBrt(texte, NombreDeCellules(modalites), largeur, ligne); });
    burt.totaux.push_back(ligne.cellules[i]);
    burt.cellules.insert(burt.cellules.end(), ligne.cellules.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                         ligne.cellules.end());
  }
  controle.Conclure();
  return burt;
}

std::int64_t IndividusDuBurt(const Contexte& contexte, const LigneTaille& taille) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  return donnees ? AnnoncesOuComptes(taille, *donnees) : taille.individus;
}

}  // namespace quelvar::tables
