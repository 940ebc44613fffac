#include "crosstab/sorties.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/resultats/largeurfixe.h"

namespace quelvar::crosstab {

namespace {

constexpr int kLargeurCelluleIsolee = 5;
constexpr int kLargeurDuNombreDElements = 3;  // behind "Li=" and "Co="

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
  const auto elements = [](std::size_t nombre) {
    return EntierDroit(static_cast<std::int64_t>(nombre), kLargeurDuNombreDElements);
  };
  double plusGrand = 0;
  for (const double effectif : t.compte.effectifs.Valeurs()) plusGrand = std::max(plusGrand, effectif);
  const int largeur = LargeurDuNombre(plusGrand, 0, kLargeurCelluleIsolee);
  const std::vector<NomIsole> nomsLignes = NomsIsoles(enquete, titre.ligne);
  const std::vector<NomIsole> nomsColonnes = NomsIsoles(enquete, titre.colonne);

  Ecrivain& mod = sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique);
  mod.Ligne(contexte.generique);
  // The counts stand in columns of their own, unlike those of other parameters.
  mod.Ligne(Joindre({"Li=", elements(t.lignes.size()), " Co=", elements(t.lignes.size() + t.colonnes.size()),
                     " La=", Nombre(largeur)}));
  for (const std::size_t j : t.colonnes) {
    const NomIsole& colonne = nomsColonnes[t.compte.rangsColonnes[j]];
    mod.Ligne(colonne.intitule.empty() ? colonne.nom : LigneModalite(colonne.nom, false, colonne.intitule));
  }
  mod.FinDeLigne();

  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  for (const std::size_t i : t.lignes) {
    const NomIsole& ligne = nomsLignes[t.compte.rangsLignes[i]];
    std::vector<std::int64_t> effectifs;
    for (const std::size_t j : t.colonnes) effectifs.push_back(Entier64(t.compte.effectifs(i, j)));
    EcrireLigneBrt(brt, ligne.nom, effectifs, largeur,
                   ligne.intitule.empty() ? std::string() : Joindre({" ", ligne.intitule}));
  }
}

void AjouterAuTrg(const Contexte& contexte, const AjoutTrg& ajout, JeuDeFichiers& sorties) {
  if (ajout.points.empty()) return;
  const std::optional<Chemin> ancien = contexte.Chercher(".TRG");
  const std::string octets = ancien ? LireOctets(*ancien) : std::string();
  Ecrivain& trg = sorties.Ouvrir(contexte.Nom(".TRG"), Nature::Refaisable);
  trg.Ecrire(octets);
  if (octets.empty()) {
    EcrireTeteTrg(trg, {contexte.generique, ajout.sommets});
  } else if (octets.back() != '\n') {
    trg.FinDeLigne();
  }
  for (const std::string& point : ajout.points) trg.Ligne(point);
}

void RetenirPourTrg(AjoutTrg& ajout, const EnqueteCroisee& enquete, const TableauTitre& titre) {
  const TableauCroise& t = titre.tableau;
  if (t.colonnes.size() != kSommetsTrg) {
    ++ajout.tableauxRefuses;
    return;
  }
  if (ajout.points.empty()) {
    const std::vector<NomIsole> noms = NomsIsoles(enquete, titre.colonne);
    for (std::size_t k = 0; k < kSommetsTrg; ++k) {
      const NomIsole& colonne = noms[t.compte.rangsColonnes[t.colonnes[k]]];
      ajout.sommets[k] = colonne.intitule.empty() ? colonne.nom : colonne.intitule;
    }
  }
  const std::vector<std::string> noms = NomsDeModalites(titre.ligne);
  for (const std::size_t i : t.lignes) {
    const std::string& nom = noms[t.compte.rangsLignes[i]];
    PartsTrg parts;
    for (std::size_t k = 0; k < kSommetsTrg; ++k) parts[k] = AuDixieme(t.details.pourcentages(i, t.colonnes[k]));
    ajout.points.push_back(LigneDePointTrg(nom, parts, Joindre({" ", nom})));
  }
}

}  // namespace quelvar::crosstab
