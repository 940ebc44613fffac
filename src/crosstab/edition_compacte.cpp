#include "core/enquete/posfile.h"
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
  BandesCompactes(Rapport& rapport, const TableauTitre& titre)
      : rapport_(rapport),
        titre_(titre),
        t_(titre.tableau),
        largeur_(LargeurDesEffectifs(t_.compte.marges.total, 0, kLargeurEffectif)) {
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
  void Effectifs(std::size_t i) {
    for (const std::size_t j : t_.colonnes) Effectif(t_.compte.effectifs(i, j));
    Effectif(t_.compte.marges.lignes[i]);
  }
  void TotauxColonnes() {
    for (const std::size_t j : t_.colonnes) Effectif(t_.compte.marges.colonnes[j]);
    Effectif(t_.compte.marges.total);
  }
  void Pourcentages(std::size_t i) {
    for (const std::size_t j : t_.colonnes) rapport_.Suite(TextePourcentage(t_.details.pourcentages(i, j)));
    rapport_.Suite({kCent, TextePourcentage(t_.details.partsLignes[i])});
  }
  void PartsColonnes() {
    for (const std::size_t j : t_.colonnes) rapport_.Suite(TextePourcentage(t_.details.partsColonnes[j]));
    rapport_.Suite({kCent, kCent});
  }
  void Signes(std::size_t i) {
    rapport_.Suite("  ");
    for (const std::size_t j : t_.colonnes) rapport_.Suite(std::string_view(t_.AuDessus(i, j) ? "  +  " : "  -  "));
  }

  // The band of signs, with its two heading lines.
  void BandeDeSignes() {
    rapport_.Ligne({"  COL:", noms_});
    rapport_.Ligne({"Modal.  ", codes_});
    for (const std::size_t i : t_.lignes) {
      Etiquette(titre_.IntituleLigne(i));
      Signes(i);
      rapport_.Ligne();
    }
  }

 private:
  std::string Elargissement() const { return std::string(static_cast<std::size_t>(largeur_ - kLargeurEffectif), ' '); }
  void Effectif(double effectif) { rapport_.Suite(NombreFixe(effectif, largeur_, 0)); }

  Rapport& rapport_;
  const TableauTitre& titre_;
  const TableauCroise& t_;
  int largeur_;
  std::string noms_, codes_, intitules_;
};

void EcrireTroisBandes(Rapport& rapport, const TableauTitre& titre, bool ordrePem) {
  BandesCompactes bandes(rapport, titre);
  const std::string& enTetes = ordrePem ? bandes.Intitules() : bandes.Codes();
  rapport.Ligne({" COL:", bandes.SurEffectifs(bandes.Noms())});
  rapport.Ligne({"Modal.  ", bandes.SurEffectifs(enTetes), bandes.TotalSurEffectifs()});
  for (const std::size_t i : titre.tableau.lignes) {
    bandes.Etiquette(titre.IntituleLigne(i));
    bandes.Effectifs(i);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.TotauxColonnes();
  rapport.Ligne();
  rapport.Ligne();

  rapport.Ligne({"COL:", bandes.Noms()});
  rapport.Ligne({"Modal.  ", enTetes, "TOT"});
  for (const std::size_t i : titre.tableau.lignes) {
    bandes.Etiquette(titre.IntituleLigne(i));
    bandes.Pourcentages(i);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.PartsColonnes();
  rapport.Ligne();
  rapport.Ligne();
  bandes.BandeDeSignes();
}

// Counts beside percentages; the signs beside them too, or in a band of their own.
void EcrireBandeDouble(Rapport& rapport, const TableauTitre& titre, Edition edition) {
  BandesCompactes bandes(rapport, titre);
  const bool signesACote = edition == Edition::UneBande;
  rapport.Suite({"  COL: ", bandes.SurEffectifs(bandes.Noms()), bandes.EcartDuTotal(), "       ", bandes.Noms()});
  if (signesACote) rapport.Suite({"          ", bandes.Noms()});
  rapport.Ligne();
  rapport.Suite({"Modal.  ", bandes.SurEffectifs(bandes.Codes()), bandes.TotalSurEffectifs(), "    ", bandes.Codes()});
  if (signesACote) rapport.Suite({"TOT       ", bandes.Codes()});
  else rapport.Suite(" TOT");
  rapport.Ligne();
  for (const std::size_t i : titre.tableau.lignes) {
    bandes.Etiquette(edition == Edition::Triangulaire ? titre.ligne.nom : titre.IntituleLigne(i));
    bandes.Effectifs(i);
    rapport.Suite("  ");
    bandes.Pourcentages(i);
    if (signesACote) bandes.Signes(i);
    rapport.Ligne();
  }
  rapport.Suite(kTotalLigne);
  bandes.TotauxColonnes();
  rapport.Suite("  ");
  bandes.PartsColonnes();
  rapport.Ligne();
  if (signesACote) return;
  rapport.Ligne();
  bandes.BandeDeSignes();
}

}  // namespace

void EcrireEditionCompacte(Rapport& rapport, const TableauTitre& titre, Edition edition, bool ordrePem) {
  if (edition == Edition::TroisBandes) EcrireTroisBandes(rapport, titre, ordrePem);
  else EcrireBandeDouble(rapport, titre, edition);
}

}  // namespace quelvar::crosstab
