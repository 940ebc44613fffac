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
  ExamenDesCellules douteuses(CellulesAttendues::Nombres, colonnes, largeur);
  std::string_view texte;
  for (std::size_t i = 0; i < lignes; ++i) {
    texte = lecteur.LireObligatoire();
    Situer(lecteur, [&] { LireLigneBrt(texte, NombreDeCellules(colonnes), largeur, ligne); });
    douteuses.Voir(texte, static_cast<std::int64_t>(i + 1));
    cellules.insert(cellules.end(), ligne.cellules.begin(), ligne.cellules.end());
    table.lignes.push_back(NommerLigne(ligne));
  }
  while (lecteur.Lire(texte)) douteuses.VoirAuDela(texte);
  douteuses.Dire(TexteDe(brt.filename()), table.constats);
  table.effectifs = Matrice(lignes, colonnes, std::move(cellules));
  return table;
}

BurtLu LireDemiBurt(const Chemin& brt, std::size_t modalites, int largeur, const std::vector<NomDElement>& noms) {
  BurtLu lu;
  DemiBurt& burt = lu.burt;
  ExamenDesCellules douteuses(CellulesAttendues::Effectifs, modalites, largeur);
  LecteurLignes lecteur(brt);
  LigneBrt ligne;
  ControleDeBurt controle(brt, modalites, largeur);
  for (std::size_t i = 0; i < modalites; ++i) {
    const std::string_view texte = lecteur.LireObligatoire();
    controle.Voir(texte, noms[i].court);
    Situer(lecteur, [&] { LireLigneBrt(texte, NombreDeCellules(modalites), largeur, ligne); });
    douteuses.Voir(texte, static_cast<std::int64_t>(i + 1));
    burt.totaux.push_back(ligne.cellules[i]);
    burt.cellules.insert(burt.cellules.end(), ligne.cellules.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                         ligne.cellules.end());
  }
  controle.Conclure();
  douteuses.Dire(TexteDe(brt.filename()), lu.constats);
  return lu;
}

std::int64_t IndividusDuBurt(const Contexte& contexte, const LigneTaille& taille) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  return donnees ? AnnoncesOuComptes(taille, *donnees) : taille.individus;
}

}  // namespace quelvar::tables
