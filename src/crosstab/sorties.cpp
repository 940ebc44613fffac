#include "crosstab/sorties.h"

#include <algorithm>

#include "core/resultats/largeurfixe.h"
#include "core/texte/nombres.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurCelluleIsolee = 5;
constexpr std::size_t kColonnesTriangulaires = 3;

// The four characters that name a modality and its label in the .MOD of the survey.
struct NomIsole {
  std::string nom;
  std::string intitule;
};

std::vector<NomIsole> NomsIsoles(const EnqueteCroisee& enquete, const QuestionCroisee& question) {
  std::vector<NomIsole> noms;
  for (std::string& nom : NomsDeModalites(question)) {
    const std::string* intitule = enquete.intitules.Chercher(nom);
    noms.push_back({std::move(nom), intitule == nullptr ? std::string() : std::string(RognerDroite(*intitule))});
  }
  return noms;
}

}  // namespace

void EcrireTableauIsole(const Contexte& contexte, const EnqueteCroisee& enquete, const TableauTitre& titre,
                        JeuDeFichiers& sorties) {
  const TableauCroise& t = titre.tableau;
  const auto lignes = static_cast<double>(t.lignes.size());
  const auto colonnes = static_cast<double>(t.colonnes.size());
  double plusGrand = 0;
  for (const double effectif : t.compte.effectifs.Valeurs()) plusGrand = std::max(plusGrand, effectif);
  const int largeur = LargeurDuNombre(plusGrand, 0, kLargeurCelluleIsolee);
  const std::vector<NomIsole> nomsLignes = NomsIsoles(enquete, titre.ligne);
  const std::vector<NomIsole> nomsColonnes = NomsIsoles(enquete, titre.colonne);

  Ecrivain& mod = sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique);
  mod.Ligne(contexte.generique);
  mod.Ligne(Joindre({"Li=", NombreFixe(lignes, 3, 0), " Co=", NombreFixe(lignes + colonnes, 3, 0),
                     " La=", Nombre(static_cast<std::int64_t>(largeur))}));
  for (const std::size_t j : t.colonnes) {
    const NomIsole& colonne = nomsColonnes[t.compte.rangsColonnes[j]];
    mod.Ligne(colonne.intitule.empty() ? colonne.nom : LigneModalite(colonne.nom, false, colonne.intitule));
  }
  mod.FinDeLigne();

  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  for (const std::size_t i : t.lignes) {
    const NomIsole& ligne = nomsLignes[t.compte.rangsLignes[i]];
    brt.Ecrire(CadreGauche(ligne.nom, 4));
    for (const std::size_t j : t.colonnes) brt.Ecrire(NombreFixe(t.compte.effectifs(i, j), largeur, 0));
    if (!ligne.intitule.empty()) brt.Ecrire(Joindre({" ", ligne.intitule}));
    brt.FinDeLigne();
  }
}

// The former lines, then these, each a line of its own.
void AjouterAuTrg(const Contexte& contexte, const AjoutTrg& ajout, JeuDeFichiers& sorties) {
  if (ajout.points.empty()) return;
  const std::optional<Chemin> ancien = contexte.Chercher(".TRG");
  const std::string octets = ancien ? LireOctets(*ancien) : std::string();
  Ecrivain& trg = sorties.Ouvrir(contexte.Nom(".TRG"), Nature::Refaisable);
  trg.Ecrire(octets);
  if (octets.empty()) {
    trg.Ligne(contexte.generique);
    for (const std::string& sommet : ajout.sommets) trg.Ligne(sommet);
  } else if (octets.back() != '\n') {
    trg.FinDeLigne();
  }
  for (const std::string& point : ajout.points) trg.Ligne(point);
}

void RetenirPourTrg(AjoutTrg& ajout, const EnqueteCroisee& enquete, const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  if (t.colonnes.size() != kColonnesTriangulaires) {
    ++ajout.tableauxRefuses;
    return;
  }
  if (ajout.sommets.empty()) {
    const std::vector<NomIsole> noms = NomsIsoles(enquete, titre.colonne);
    for (const std::size_t j : t.colonnes) {
      const NomIsole& colonne = noms[t.compte.rangsColonnes[j]];
      ajout.sommets.push_back(colonne.intitule.empty() ? colonne.nom : colonne.intitule);
    }
  }
  for (std::string& point : LignesTriangulaires(t, titre.ligne)) ajout.points.push_back(std::move(point));
}

}  // namespace quelvar::crosstab
