// The drawing of a crosstab: lays the two bands out in points, then turns them into marks.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "crosstab/graphe/graphe2.h"

namespace quelvar::crosstab {

namespace {

// Sizes of the page, points.
constexpr double kUniteInitiale = 480 / kLargeurInitialeGraphe2;  // of a point of percentage
constexpr double kUniteMinimum = 0.6;
constexpr double kLargeurVisee = 660;  // columns that are wider take smaller units: a page on its side holds them
constexpr double kPasDeLigne = 16;     // between two rows
constexpr double kMarge = 18;          // around the whole
constexpr double kGouttiereMaximum = 150;
constexpr double kMargeDesNoms = 30;  // between the row labels and the window
constexpr double kInterligne = 9.5;   // of the column labels
constexpr double kLargeurTete = 48;   // to which a column label is folded in a narrow column
constexpr double kLargeurTeteMaximum = 96;
constexpr std::size_t kLignesDeTete = 4;
constexpr double kInterligneTitre = 15;
constexpr double kInterligneLigne = 8;     // of the row labels
constexpr std::size_t kLignesDeTexte = 2;  // that a row label takes at most
constexpr double kSousEchelle = 20;
constexpr double kHauteurNomDeBande = 16;
constexpr double kEntreBandes = 22;
constexpr double kPiedDeBande = 12;  // shares of the columns, under the rows
constexpr double kDemiBarre = 3.4;
constexpr double kRayonDeMarque = 1.8;  // at the end of a bar
constexpr double kHorsDeMarque = 3.5;   // from there to the name
constexpr double kLigneDuTitre = 10;    // base of the first line of the title, and of the name of a band
constexpr double kSousLeTitre = 15;     // base of the scale, under the last line of the title
constexpr double kAvantEchelle = 10, kDerriereEchelle = 6;
constexpr double kSurLaBase = 3;           // the bar of the scale, over the base of its text
constexpr double kDemiTaquet = 3;          // at its two ends
constexpr double kAutourDUneTete = 3;      // on both sides of a column label
constexpr double kSousLesTetes = 6;        // between the column labels and the rows
constexpr double kSousUneTete = 1;         // between a column label and the line that goes down from it
constexpr double kFilSousLesTetes = 2;     // where that line begins when another label stands in its way
constexpr double kLargeurDuFil = 0.1;      // of that line, against the other labels
constexpr double kSurLePied = 2;           // between the rows and the share of a column
constexpr double kDroiteDesIntitules = 2;  // how far the row labels go into the room of the names
constexpr double kTraitDEchelle = 1.2, kTraitDeTaquet = 0.8, kTraitDeMargeDeColonne = 0.7, kTraitDeLigne = 0.4;
constexpr double kTeinteDeLigne = 0.6, kTeinteDeBarre = 0.55;
constexpr const char* kSuite = "...";  // of a text that was cut

constexpr Police kPoliceTitre{.corps = 12, .gras = true};
constexpr Police kPoliceEchelle{.corps = 9};
constexpr Police kPoliceLegende{.corps = 7.5, .couleur = Couleur::Gris};
constexpr Police kPoliceBande{.corps = 9, .gras = true};
constexpr Police kPoliceTete{.corps = 8, .gras = true, .ancre = Ancre::Milieu};
constexpr Police kPoliceLigne{.corps = 8, .ancre = Ancre::Fin, .niveau = Niveau::Centre};
constexpr Police kPoliceMarque{.corps = 6.5, .couleur = Couleur::Noir, .niveau = Niveau::Centre};
constexpr Police kPolicePied{.corps = 6.5, .couleur = Couleur::Gris, .ancre = Ancre::Milieu, .niveau = Niveau::Haut};

// The words of a text on lines of about that width, points.
std::vector<std::string> Plier(std::string_view texte, double largeur, const Police& police) {
  std::vector<std::string> lignes;
  while (!(texte = Rogner(texte)).empty()) {
    const std::string_view mot = texte.substr(0, texte.find(' '));
    texte.remove_prefix(mot.size());
    const std::string allongee = lignes.empty() ? std::string(mot) : Joindre({lignes.back(), " ", mot});
    if (lignes.empty() || LargeurTexte(allongee, police.corps, police.gras) > largeur) lignes.emplace_back(mot);
    else lignes.back() = allongee;
  }
  return lignes;
}

// At most that many of the lines, none wider than that; what is cut is marked.
std::vector<std::string> Couper(std::vector<std::string> lignes, std::size_t lignesMax, double largeur,
                                const Police& police) {
  const bool coupees = lignes.size() > lignesMax;
  if (coupees) lignes.resize(lignesMax);
  for (std::size_t k = 0; k < lignes.size(); ++k) {
    std::string& ligne = lignes[k];
    const bool tropLarge = LargeurTexte(ligne, police.corps, police.gras) > largeur;
    if (!tropLarge && !(coupees && k + 1 == lignes.size())) continue;
    while (ligne.size() > 1 && LargeurTexte(ligne + kSuite, police.corps, police.gras) > largeur) ligne.pop_back();
    ligne += kSuite;
  }
  return lignes;
}

// What names a row or a column on the picture.
const std::string& Libelle(const ElementGraphe2& element) {
  return element.texte.empty() ? element.nom : element.texte;
}

// Rectangles of the page that are taken.
class PlacesPrises {
 public:
  bool Libre(const Zone& zone) const {
    return std::none_of(zones_.begin(), zones_.end(), [&](const Zone& z) { return z.Touche(zone); });
  }
  void Prendre(const Zone& zone) { zones_.push_back(zone); }
  void Vider() { zones_.clear(); }

 private:
  std::vector<Zone> zones_;
};

// The label of a column: its lines, how high above the rows its lowest line stands, and what it covers, upwards from
// the rows.
struct Tete {
  std::vector<std::string> lignes;
  double elevation = 0;
  Zone zone;
};

// One band with its places on the page.
struct BandePlacee {
  const BandeGraphe2& bande;
  std::string_view nom;
  std::vector<Tete> tetes;
  double hauteurTetes = 0;
  double haut = 0;  // of the band on the page
  double LigneDe(std::size_t i) const {
    return haut + kHauteurNomDeBande + hauteurTetes + pas * (static_cast<double>(i) + 0.5);
  }
  double pas = kPasDeLigne;
  double Bas(std::size_t lignes) const { return LigneDe(lignes) - pas / 2; }
};

class Trace {
 public:
  explicit Trace(const EtatGraphe2& etat);

  Dessin Dessiner();

 private:
  double X(double unites) const { return gauche_ + unites * unite_; }
  double YEchelle() const { return kMarge + kSousLeTitre + kInterligneTitre * static_cast<double>(titre_.size()); }
  double DebutEchelle() const {
    return kMarge + LargeurTexte(TexteEchelle(etat_), kPoliceEchelle.corps) + kAvantEchelle;
  }
  double Largeur() const;
  void PlacerColonnes();
  void PlacerTetes(BandePlacee& placee) const;
  void Titres(Dessin& dessin) const;
  void Tetes(Dessin& dessin, const BandePlacee& placee) const;
  void Lignes(Dessin& dessin, const BandePlacee& placee) const;
  void Noms(Dessin& dessin, const BandePlacee& placee, std::size_t i, PlacesPrises& occupation) const;
  Position Deplacement(std::size_t entree) const { return etat_.entrees[entree].deplacement; }
  std::size_t EntreeLigne(std::size_t i) const { return kEntreeDeLaPremiereLigne + i; }
  std::size_t EntreeColonne(std::size_t j) const { return EntreeLigne(donnees_.lignes.size()) + j; }

  const EtatGraphe2& etat_;
  const DonneesGraphe2& donnees_;
  double unite_;   // points for a point of percentage
  double gauche_;  // of the window on the page
  // Margin of each column and the right end of the window, in units. A column stands at the same place in both bands,
  // wide enough for both, so that the eye goes from what is observed to what the margins allow.
  std::vector<double> zeros_;
  std::vector<double> largeurs_;
  double largeur_ = 0;
  double fenetre_ = 0;  // width of the window, units: the columns or more
  std::vector<std::string> titre_;
  std::vector<BandePlacee> bandes_;
  // Entry of the long text of each row, then of each column; 0 without one.
  std::vector<std::size_t> entreesDesTextes_;
};

std::vector<std::string> LignesDuNom(const ElementGraphe2& ligne) {
  return Couper(Plier(Libelle(ligne), kGouttiereMaximum, kPoliceLigne), kLignesDeTexte, kGouttiereMaximum,
                kPoliceLigne);
}

double LargeurGouttiere(const DonneesGraphe2& donnees) {
  double largeur = 0;
  for (const ElementGraphe2& element : donnees.lignes)
    for (const std::string& ligne : LignesDuNom(element))
      largeur = std::max(largeur, LargeurTexte(ligne, kPoliceLigne.corps));
  return largeur;
}

Trace::Trace(const EtatGraphe2& etat) : etat_(etat), donnees_(etat.donnees) {
  gauche_ = kMarge + LargeurGouttiere(donnees_) + kMargeDesNoms;
  PlacerColonnes();
  fenetre_ = std::max(largeur_, AgrandissementGraphe2(donnees_) * kLargeurInitialeGraphe2);
  unite_ = std::clamp(kLargeurVisee / fenetre_, kUniteMinimum, kUniteInitiale) * etat.echelle;
  titre_ = Plier(donnees_.titre, std::max(X(fenetre_), kLargeurVisee), kPoliceTitre);
  std::size_t entree = EntreeColonne(donnees_.colonnes.size());
  for (const auto* elements : {&donnees_.lignes, &donnees_.colonnes})
    for (const ElementGraphe2& element : *elements) entreesDesTextes_.push_back(element.texte.empty() ? 0 : entree++);
  bandes_.push_back({donnees_.observe, "Tableau observé"_w, {}, {}});
  bandes_.push_back({donnees_.maximum, "Tableau d'écart maximum"_w, {}, {}});
  double haut = YEchelle() + kSousEchelle;
  for (BandePlacee& placee : bandes_) {
    placee.pas = kPasDeLigne * etat.echelle;
    PlacerTetes(placee);
    placee.haut = haut;
    haut = placee.Bas(donnees_.lignes.size()) + kPiedDeBande + kEntreBandes;
  }
}

void Trace::PlacerColonnes() {
  const BandeGraphe2& observe = donnees_.observe;
  const BandeGraphe2& maximum = donnees_.maximum;
  largeur_ = kEcartementGraphe2;
  for (std::size_t j = 0; j < donnees_.colonnes.size(); ++j) {
    const double petit = std::min(observe.plusPetits[j], maximum.plusPetits[j]);
    const double grand = std::max(observe.plusGrands[j], maximum.plusGrands[j]);
    zeros_.push_back(largeur_ - petit);
    largeurs_.push_back(grand - petit + kEcartementGraphe2);
    largeur_ += largeurs_.back();
  }
}

// Labels over their columns, each as low as its neighbours let it.
void Trace::PlacerTetes(BandePlacee& placee) const {
  PlacesPrises occupation;
  for (std::size_t j = 0; j < donnees_.colonnes.size(); ++j) {
    Tete tete;
    const double largeurVisee = std::max(largeurs_[j] * unite_, kLargeurTete);
    tete.lignes = Couper(Plier(Libelle(donnees_.colonnes[j]), largeurVisee, kPoliceTete), kLignesDeTete,
                         std::max(largeurVisee, kLargeurTeteMaximum), kPoliceTete);
    double largeur = 0;
    for (const std::string& ligne : tete.lignes)
      largeur = std::max(largeur, LargeurTexte(ligne, kPoliceTete.corps, kPoliceTete.gras));
    const double hauteur = kInterligne * static_cast<double>(tete.lignes.size());
    tete.zone = {X(zeros_[j]) - largeur / 2 - kAutourDUneTete, -hauteur, largeur + 2 * kAutourDUneTete, hauteur};
    for (; !occupation.Libre(tete.zone); tete.elevation += kInterligne) tete.zone.y -= kInterligne;
    occupation.Prendre(tete.zone);
    placee.hauteurTetes = std::max(placee.hauteurTetes, tete.elevation + hauteur);
    placee.tetes.push_back(tete);
  }
  placee.hauteurTetes += kSousLesTetes;
}

std::string LegendeEchelle(const EtatGraphe2& etat) {
  return Joindre({Nombre(etat.valeurEchelle), " points d'écart à la marge"_w});
}

// Columns with the names beside their marks, or what stands over them.
double Trace::Largeur() const {
  double droite = X(fenetre_) + kMargeDesNoms;
  for (const std::string& ligne : titre_)
    droite = std::max(droite, kMarge + LargeurTexte(ligne, kPoliceTitre.corps, kPoliceTitre.gras) + kMarge);
  const double echelle = DebutEchelle() + etat_.valeurEchelle * unite_ + kDerriereEchelle;
  return std::max(droite, echelle + LargeurTexte(LegendeEchelle(etat_), kPoliceLegende.corps) + kMarge);
}

void Trace::Titres(Dessin& dessin) const {
  dessin.Calquer("titres");
  dessin.Designer(static_cast<std::int32_t>(kEntreeDuTitre));
  for (std::size_t k = 0; k < titre_.size(); ++k)
    dessin.Texte({kMarge, kMarge + kLigneDuTitre + kInterligneTitre * static_cast<double>(k)}, titre_[k], kPoliceTitre,
                 Deplacement(kEntreeDuTitre));
  dessin.Designer(static_cast<std::int32_t>(kEntreeDeLEchelle));
  const double y = YEchelle();
  const Position d = Deplacement(kEntreeDeLEchelle);
  dessin.Texte({kMarge, y}, TexteEchelle(etat_), kPoliceEchelle, d);
  const double debut = DebutEchelle() + d.x;
  const double fin = debut + etat_.valeurEchelle * unite_;
  const double trait = y - kSurLaBase + d.y;
  dessin.Ligne({debut, trait}, {fin, trait}, {.epaisseur = kTraitDEchelle});
  for (const double x : {debut, fin})
    dessin.Ligne({x, trait - kDemiTaquet}, {x, trait + kDemiTaquet}, {.epaisseur = kTraitDeTaquet});
  dessin.Texte({fin + kDerriereEchelle, y + d.y}, LegendeEchelle(etat_), kPoliceLegende);
  dessin.Designer(-1);
}

void Trace::Tetes(Dessin& dessin, const BandePlacee& placee) const {
  dessin.Calquer("colonnes");
  const double base = placee.haut + kHauteurNomDeBande + placee.hauteurTetes - kSousLesTetes;
  const double bas = placee.Bas(donnees_.lignes.size());
  PlacesPrises occupation;
  for (std::size_t j = 0; j < donnees_.colonnes.size(); ++j) {
    const Tete& tete = placee.tetes[j];
    const double x = X(zeros_[j]);
    const Zone fil{x, -tete.elevation + kSousUneTete, kLargeurDuFil, tete.elevation};
    const bool traverse =
        std::any_of(placee.tetes.begin(), placee.tetes.end(), [&](const Tete& t) { return t.zone.Touche(fil); });
    dessin.Ligne({x, base + kFilSousLesTetes - (traverse ? 0 : tete.elevation)}, {x, bas},
                 {Couleur::Gris, kTraitDeMargeDeColonne});
    const std::size_t texte = entreesDesTextes_[donnees_.lignes.size() + j];
    const std::size_t entree = texte == 0 ? EntreeColonne(j) : texte;
    dessin.Designer(static_cast<std::int32_t>(entree));
    for (std::size_t k = 0; k < tete.lignes.size(); ++k)
      dessin.Texte(
          {x, base - tete.elevation - kInterligne * static_cast<double>(tete.lignes.size() - 1 - k) - kSousUneTete},
          tete.lignes[k], kPoliceTete, Deplacement(entree));
    dessin.Designer(-1);
    const std::string part = Joindre({TexteDePourcentage(donnees_.colonnes[j].part), "%"});
    const Position sousLesLignes{x, bas + kSurLePied};
    const Zone pied = ZoneDuTexte(sousLesLignes, part, kPolicePied);
    if (!occupation.Libre(pied)) continue;
    occupation.Prendre(pied);
    dessin.Texte(sousLesLignes, part, kPolicePied);
  }
}

// Names of one row beside its marks: at the end of the bar, else on the other side of the margin, else none.
void Trace::Noms(Dessin& dessin, const BandePlacee& placee, std::size_t i, PlacesPrises& occupation) const {
  const double y = placee.LigneDe(i);
  const std::string& nom = donnees_.lignes[i].nom;
  dessin.Designer(static_cast<std::int32_t>(EntreeLigne(i)));
  for (std::size_t j = 0; j < donnees_.colonnes.size(); ++j) {
    const double ecart = placee.bande.ecarts(i, j);
    const double zero = X(zeros_[j]);
    const double bout = X(zeros_[j] + ecart);
    const bool positif = ecart >= 0;
    for (const bool auBout : {true, false}) {
      Police police = kPoliceMarque;
      const bool aDroite = auBout == positif;
      police.ancre = aDroite ? Ancre::Debut : Ancre::Fin;
      const Position place{(auBout ? bout : zero) + (aDroite ? kHorsDeMarque : -kHorsDeMarque), y};
      const Zone zone = ZoneDuTexte(place, nom, police);
      if (!occupation.Libre(zone)) continue;
      occupation.Prendre(zone);
      dessin.Texte(place, nom, police, Deplacement(EntreeLigne(i)));
      break;
    }
  }
  dessin.Designer(-1);
}

void Trace::Lignes(Dessin& dessin, const BandePlacee& placee) const {
  PlacesPrises occupation;
  for (std::size_t i = 0; i < donnees_.lignes.size(); ++i) {
    const double y = placee.LigneDe(i);
    dessin.Calquer("lignes");
    dessin.Ligne({gauche_, y}, {X(largeur_), y},
                 {Couleur::GrisClair, kTraitDeLigne, StyleTrait::Plein, kTeinteDeLigne});
    const ElementGraphe2& ligne = donnees_.lignes[i];
    const std::size_t texte = entreesDesTextes_[i];
    const std::size_t entree = texte == 0 ? EntreeLigne(i) : texte;
    dessin.Designer(static_cast<std::int32_t>(entree));
    const std::vector<std::string> nom = LignesDuNom(ligne);
    for (std::size_t k = 0; k < nom.size(); ++k) {
      const double decalage = kInterligneLigne * (static_cast<double>(k) - static_cast<double>(nom.size() - 1) / 2);
      dessin.Texte({gauche_ - kMargeDesNoms + kDroiteDesIntitules, y + decalage}, nom[k], kPoliceLigne,
                   Deplacement(entree));
    }
    dessin.Designer(-1);
    dessin.Calquer("marques");
    occupation.Vider();
    for (std::size_t j = 0; j < donnees_.colonnes.size(); ++j) {
      const double ecart = placee.bande.ecarts(i, j);
      const double zero = X(zeros_[j]);
      const double bout = X(zeros_[j] + ecart);
      const Couleur couleur = ecart >= 0 ? Couleur::Bleu : Couleur::Rouge;
      dessin.Rectangle({zero, y - kDemiBarre}, {bout, y + kDemiBarre}, {couleur, kTeinteDeBarre});
      dessin.Cercle({bout, y}, kRayonDeMarque, {couleur, 1}, {.epaisseur = 0});
      const double debut = std::min(zero, bout) - kRayonDeMarque;
      occupation.Prendre({debut, y - kDemiBarre, std::fabs(bout - zero) + 2 * kRayonDeMarque, 2 * kDemiBarre});
    }
    dessin.Calquer("noms");
    Noms(dessin, placee, i, occupation);
  }
}

Dessin Trace::Dessiner() {
  const double droite = Largeur();
  const double bas = bandes_.back().Bas(donnees_.lignes.size()) + kPiedDeBande + kMarge;
  const double largeur = droite * etat_.fenetre;
  const double hauteur = bas * etat_.fenetre;
  const double x = (droite - largeur) / 2;
  const double y = (bas - hauteur) / 2;
  Dessin dessin(largeur, hauteur, {x, x + largeur, y, y + hauteur}, {0, 0, largeur, hauteur});
  Titres(dessin);
  for (const BandePlacee& placee : bandes_) {
    dessin.Calquer("titres");
    dessin.Texte({kMarge, placee.haut + kLigneDuTitre}, placee.nom, kPoliceBande);
    Tetes(dessin, placee);
    Lignes(dessin, placee);
  }
  return dessin;
}

}  // namespace

Dessin DessinerGraphe2(const EtatGraphe2& etat) { return Trace(etat).Dessiner(); }

}  // namespace quelvar::crosstab
