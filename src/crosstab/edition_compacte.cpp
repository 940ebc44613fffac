#include "core/enquete/posfile.h"
#include "core/resultats/largeurfixe.h"
#include "crosstab/edition.h"

namespace quelvar::crosstab {

namespace {

constexpr std::size_t kLargeurEtiquette = 5;
constexpr int kLargeurEffectif = 5;
constexpr std::string_view kTotalLigne = " TOT ";
constexpr std::string_view kCent = " 100 ";

// Writes the compact bands of one table: each method adds a piece of the current line.
class BandesCompactes {
 public:
  BandesCompactes(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables)
      : rapport_(rapport),
        titre_(titre),
        tables_(tables),
        t_(titre.tableau),
        largeur_(LargeurDuNombre(t_.compte.marges.total, 0, kLargeurEffectif)) {
    for (const std::size_t j : t_.colonnes) {
      noms_ += Joindre({" ", titre.colonne.nom, " "});
      codes_ += Joindre({" ", CodeCaractere(static_cast<int>(t_.compte.rangsColonnes[j])), "   "});
      intitules_ += CadreGauche(CadreGauche(titre.IntituleColonne(j), kLargeurEtiquette - 1), kLargeurEtiquette);
    }
  }

  // A heading of 5 columns a column, each moved to the right as the counts under it are wider than that.
  std::string SurEffectifs(const std::string& enTete) const {
    std::string large;
    for (std::size_t i = 0; i < enTete.size(); i += kLargeurEtiquette)
      large += Elargissement() + enTete.substr(i, kLargeurEtiquette);
    return large;
  }
  std::string EcartDuTotal() const { return Elargissement(); }
  std::string TotalSurEffectifs() const { return Elargissement() + "TOT"; }

  const std::string& Noms() const { return noms_; }
  const std::string& Codes() const { return codes_; }
  const std::string& Intitules() const { return intitules_; }

  void Etiquette(std::string_view texte) {
    rapport_.Suite(texte);
    if (texte.size() < kLargeurEtiquette) rapport_.Suite(" ");
  }
  // Row by its rank in the tables; the last one is that of the totals.
  void Effectifs(std::size_t rang) {
    for (const Cellule& cellule : tables_.effectifs.rangees[rang].cellules)
      rapport_.Suite(TexteEnColonne({cellule.valeur, cellule.unite}, largeur_));
  }
  void Pourcentages(std::size_t rang) {
    for (const Cellule& cellule : tables_.pourcentages.rangees[rang].cellules)
      rapport_.Suite(cellule.decimales > 0 ? TextePourcentage(*cellule.valeur) : std::string(kCent));
  }
  void Signes(std::size_t rang) {
    rapport_.Suite("  ");
    for (const Cellule& cellule : tables_.pourcentages.rangees[rang].cellules)
      if (!cellule.marque.empty()) rapport_.Suite({"  ", cellule.marque, "  "});
  }

  // The band of signs, with its two heading lines.
  void BandeDeSignes() {
    rapport_.Ligne({"  COL:", noms_});
    rapport_.Ligne({"Modal.  ", codes_});
    for (std::size_t rang = 0; rang < t_.lignes.size(); ++rang) {
      Etiquette(titre_.IntituleLigne(t_.lignes[rang]));
      Signes(rang);
      rapport_.Ligne();
    }
  }

 private:
  std::string Elargissement() const { return std::string(static_cast<std::size_t>(largeur_ - kLargeurEffectif), ' '); }

  Rapport& rapport_;
  const TableauTitre& titre_;
  const TablesCroisees& tables_;
  const TableauCroise& t_;
  int largeur_;
  std::string noms_, codes_, intitules_;
};

void EcrireTroisBandes(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, bool ordrePem) {
  BandesCompactes bandes(rapport, titre, tables);
  const std::vector<std::size_t>& lignes = titre.tableau.lignes;
  const std::string& enTetes = ordrePem ? bandes.Intitules() : bandes.Codes();
  rapport.Ligne({" COL:", bandes.SurEffectifs(bandes.Noms())});
  rapport.Ligne({"Modal.  ", bandes.SurEffectifs(enTetes), bandes.TotalSurEffectifs()});
  for (std::size_t rang = 0; rang < lignes.size(); ++rang) {
    bandes.Etiquette(titre.IntituleLigne(lignes[rang]));
    bandes.Effectifs(rang);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.Effectifs(lignes.size());
  rapport.Ligne();
  rapport.Ligne();

  rapport.Ligne({"COL:", bandes.Noms()});
  rapport.Ligne({"Modal.  ", enTetes, "TOT"});
  for (std::size_t rang = 0; rang < lignes.size(); ++rang) {
    bandes.Etiquette(titre.IntituleLigne(lignes[rang]));
    bandes.Pourcentages(rang);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.Pourcentages(lignes.size());
  rapport.Ligne();
  rapport.Ligne();
  bandes.BandeDeSignes();
}

// Counts beside percentages; the signs beside them too, or in a band of their own.
void EcrireBandeDouble(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, Edition edition) {
  BandesCompactes bandes(rapport, titre, tables);
  const std::vector<std::size_t>& lignes = titre.tableau.lignes;
  const bool signesACote = edition == Edition::UneBande;
  rapport.Suite({"  COL: ", bandes.SurEffectifs(bandes.Noms()), bandes.EcartDuTotal(), "       ", bandes.Noms()});
  if (signesACote) rapport.Suite({"          ", bandes.Noms()});
  rapport.Ligne();
  rapport.Suite({"Modal.  ", bandes.SurEffectifs(bandes.Codes()), bandes.TotalSurEffectifs(), "    ", bandes.Codes()});
  if (signesACote) rapport.Suite({"TOT       ", bandes.Codes()});
  else rapport.Suite(" TOT");
  rapport.Ligne();
  for (std::size_t rang = 0; rang < lignes.size(); ++rang) {
    bandes.Etiquette(edition == Edition::Triangulaire ? titre.ligne.nom : titre.IntituleLigne(lignes[rang]));
    bandes.Effectifs(rang);
    rapport.Suite("  ");
    bandes.Pourcentages(rang);
    if (signesACote) bandes.Signes(rang);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.Effectifs(lignes.size());
  rapport.Suite("  ");
  bandes.Pourcentages(lignes.size());
  rapport.Ligne();
  if (signesACote) return;
  rapport.Ligne();
  bandes.BandeDeSignes();
}

}  // namespace

void EcrireEditionCompacte(Rapport& rapport, const TableauTitre& titre, const TablesCroisees& tables, Edition edition,
                           bool ordrePem) {
  if (edition == Edition::TroisBandes) EcrireTroisBandes(rapport, titre, tables, ordrePem);
  else EcrireBandeDouble(rapport, titre, tables, edition);
}

}  // namespace quelvar::crosstab
