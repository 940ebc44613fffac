// The picture of the factor plane.
#include <algorithm>
#include <cmath>
#include <random>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "factor/plan/plan.h"

namespace quelvar::factor {

namespace {

// Units of the window on each axis.
constexpr double kMarge = 60;         // by which it is widened on each side
constexpr double kMargeDuCadre = 55;  // of the box around it

// The page, points.
constexpr double kLargeurPage = 760;
constexpr double kMargeGauche = 36;
constexpr double kMargeDroite = 10;
constexpr double kMargeHaut = 36;
constexpr double kMargeBas = 34;
constexpr double kGraduation = 3;           // length of a tick
constexpr double kEcartDeGraduation = 1.5;  // from a tick to its number
constexpr double kRayonDuPoint = 1.7;       // of a mark with letters of the middle size
constexpr double kTraitDuPoint = 0.7;       // of its rim
constexpr double kEcartDuPoint = 3.6;       // from a mark to its label
constexpr double kBordDesEtiquettes = 2;    // labels stay so far inside the box
constexpr double kSousLeCadre = 22;         // base line of what stands below the numbers of the ticks
constexpr double kSurLeCadre = 4;           // and above the box
constexpr double kLigneDuTitre = 15;        // from the top of the page
constexpr Position kCoinDuMot{6, 12};       // from the upper right corner of the box to the word on a complete tree
constexpr double kGraduationsVoulues = 9;   // on an axis, or somewhat fewer
constexpr int kDecimalesDesGraduations = 6;
constexpr double kHalo = 0.9;                  // of labels over lines
constexpr std::size_t kEtiquettesAHalo = 200;  // beyond, the rims of labels would hide their neighbours

// Letters, in points.
constexpr double kCorpsPetit = 6.5;
constexpr double kCorpsMoyen = 8.5;
constexpr double kCorpsGrand = 11;
constexpr Police kPoliceTitre{.corps = kCorpsGrand, .gras = true};
constexpr Police kPoliceAxe{.corps = kCorpsMoyen};
constexpr Police kPoliceGraduation{.corps = kCorpsPetit, .couleur = Couleur::Gris};
constexpr Police kPoliceInformation{.corps = 7.5, .couleur = Couleur::Gris};
constexpr Plume kPlumeCadre{Couleur::Noir, 0.8};
constexpr Plume kPlumeAxe{Couleur::Gris, 0.6};
constexpr Police kPoliceValeur{.corps = 6,
                               .couleur = Couleur::RougeFonce,
                               .ancre = Ancre::Milieu,
                               .niveau = Niveau::Centre};
constexpr Police kPoliceDuMot{.corps = kCorpsMoyen, .couleur = Couleur::Rouge, .ancre = Ancre::Fin};
constexpr Plume kPlumeLien{Couleur::Rouge, 0.6, StyleTrait::Plein, 0.7};
constexpr Plume kPlumeClasse{Couleur::Noir, 0.6, StyleTrait::Plein, 0.6};  // in the colour of each class
constexpr Plume kPlumeArbreCah{Couleur::BleuFonce, 0.7, StyleTrait::Plein, 0.7};

constexpr std::array kCouleursDesClasses = {Couleur::Bleu, Couleur::Vert, Couleur::Rouge, Couleur::Magenta};

double CorpsDe(TailleTexte taille) {
  switch (taille) {
    case TailleTexte::Petite: return kCorpsPetit;
    case TailleTexte::Grande: return kCorpsGrand;
    case TailleTexte::Moyenne: break;
  }
  return kCorpsMoyen;
}

constexpr double kArrondi = 1e-9;  // relative, below which two steps are one
// Size of the letters of an element by its contribution, for one of the size chosen: from the least that print shows of
// the small size, up to 1.6 times the size, by the root, so that their area grows as the contribution.
constexpr double kTailleMinimale = 0.65;
constexpr double kEtendueDesTailles = 0.95;

// The next of 1, 2, 5, 10, 20...
double PasRond(double pas) {
  const double puissance = std::pow(10, std::floor(std::log10(pas)));
  for (const double facteur : {1.0, 2.0, 5.0})
    if (facteur * puissance >= pas * (1 - kArrondi)) return facteur * puissance;
  return 10 * puissance;
}

class TraceDuPlan {
 public:
  explicit TraceDuPlan(const EtatPlan& etat);

  Dessin Tracer();

 private:
  void Cadre();
  void Axes();
  void Graduer(bool horizontale);
  void NommerAxes();
  void Liens();
  void ArbreCah();
  void ClassesCah();
  void Points();
  bool AvecEllipses() const { return !etat_.ellipses.empty() && !reglages_.horizontal.cpf && !reglages_.vertical.cpf; }
  void Ellipses();
  void Centres();
  void Titre();
  void Calquer(std::string_view nom);
  void Element(std::size_t i, Couleur couleur);
  Police AvecHalo(Police police) const {
    police.halo = halo_;
    return police;
  }
  void Etiquette(Position place, std::string_view texte, Police police);
  Couleur CouleurDe(std::size_t i) const { return static_cast<Couleur>(etat_.reglages.marques[i]); }
  double Taille(std::size_t i) const;
  std::string NomDAxe(const AxePlan& axe) const;
  bool DansLeCadre(Position p) const { return cadre_.Contient(dessin_.VersPage(p)); }

  const EtatPlan& etat_;
  const DonneesPlan& donnees_;
  const ReglagesPlan& reglages_;
  Dessin dessin_;
  Zone cadre_;  // the box, on the page
  double cpfMaximum_ = 1;
  double halo_ = 0;
  std::size_t liens_ = 0;
};

Dessin PageDuPlan(const CadrePlan& cadre) {
  const double largeur = kLargeurPage * cadre.page;
  const double utile = largeur - kMargeGauche - kMargeDroite;
  const Fenetre& f = cadre.limites;
  const double x = kMarge * (f.droite - f.gauche) / kUnitesDeFenetre;
  const double y = kMarge * (f.haut - f.bas) / kUnitesDeFenetre;
  return {largeur,
          utile * kHauteurSurLargeur + kMargeHaut + kMargeBas,
          {f.gauche - x, f.droite + x, f.haut + y, f.bas - y},
          {kMargeGauche, kMargeHaut, utile, utile * kHauteurSurLargeur}};
}

TraceDuPlan::TraceDuPlan(const EtatPlan& etat)
    : etat_(etat), donnees_(etat.donnees), reglages_(etat.reglages), dessin_(PageDuPlan(etat.cadre)) {
  const Fenetre& f = etat.cadre.limites;
  const double x = kMargeDuCadre * (f.droite - f.gauche) / kUnitesDeFenetre;
  const double y = kMargeDuCadre * (f.haut - f.bas) / kUnitesDeFenetre;
  const Position coin = dessin_.VersPage({f.gauche - x, f.haut + y});
  const Position oppose = dessin_.VersPage({f.droite + x, f.bas - y});
  cadre_ = {coin.x, coin.y, oppose.x - coin.x, oppose.y - coin.y};
  std::size_t montres = 0;
  for (std::size_t i = 0; i < donnees_.points.size(); ++i) {
    if (!EstMontre(etat_, i)) continue;
    ++montres;
    cpfMaximum_ = std::max(cpfMaximum_, CpfDuPoint(etat_, i));
  }
  const bool traits = reglages_.liens.actif || reglages_.cah.actif || !etat_.ellipses.empty();
  if (traits && montres <= kEtiquettesAHalo) halo_ = kHalo;
}

void TraceDuPlan::Calquer(std::string_view nom) {
  dessin_.Calquer(nom);
  dessin_.Couper(cadre_);
}

void TraceDuPlan::Cadre() {
  dessin_.Calquer("cadre");
  dessin_.Rectangle(dessin_.VersUtilisateur({cadre_.x, cadre_.y}),
                    dessin_.VersUtilisateur({cadre_.x + cadre_.largeur, cadre_.y + cadre_.hauteur}), {}, kPlumeCadre);
}

void TraceDuPlan::Graduer(bool horizontale) {
  const Position coin = dessin_.VersUtilisateur({cadre_.x, cadre_.y});
  const Position oppose = dessin_.VersUtilisateur({cadre_.x + cadre_.largeur, cadre_.y + cadre_.hauteur});
  const double debut = horizontale ? coin.x : oppose.y;
  const double fin = horizontale ? oppose.x : coin.y;
  const double pas = PasRond((fin - debut) / kGraduationsVoulues);
  Police police = kPoliceGraduation;
  police.ancre = horizontale ? Ancre::Milieu : Ancre::Fin;
  police.niveau = horizontale ? Niveau::Haut : Niveau::Centre;
  for (double rang = std::ceil(debut / pas); rang * pas <= fin; ++rang) {
    const double valeur = Arrondir(rang * pas, kDecimalesDesGraduations);
    const Position bord = dessin_.VersPage(horizontale ? Position{valeur, oppose.y} : Position{coin.x, valeur});
    const Position bout = horizontale ? Position{bord.x, bord.y + kGraduation} : Position{bord.x - kGraduation, bord.y};
    dessin_.Ligne(dessin_.VersUtilisateur(bord), dessin_.VersUtilisateur(bout), kPlumeAxe);
    dessin_.Texte(dessin_.VersUtilisateur(bout), Nombre(valeur), police,
                  horizontale ? Position{0, kEcartDeGraduation} : Position{-kEcartDeGraduation, 0});
  }
}

// Through zero, across the whole box.
void TraceDuPlan::Axes() {
  Calquer("axes");
  const Position coin = dessin_.VersUtilisateur({cadre_.x, cadre_.y});
  const Position oppose = dessin_.VersUtilisateur({cadre_.x + cadre_.largeur, cadre_.y + cadre_.hauteur});
  dessin_.Ligne({coin.x, 0}, {oppose.x, 0}, kPlumeAxe);
  dessin_.Ligne({0, coin.y}, {0, oppose.y}, kPlumeAxe);
  dessin_.Calquer("graduations");
  for (const bool horizontale : {true, false}) Graduer(horizontale);
}

std::string TraceDuPlan::NomDAxe(const AxePlan& axe) const {
  std::string nom = Joindre({std::string_view(axe.cpf ? "CPF du facteur " : "Facteur "), Nombre(axe.facteur)});
  const auto rang = static_cast<std::size_t>(axe.facteur - 1);
  if (rang < donnees_.parts.size()) nom += Joindre({" (", Rogner(NombreFixe(donnees_.parts[rang], 3, 1)), " %)"});
  if (axe.inverse) nom += Joindre({", signe inversé"_w});
  return nom;
}

void TraceDuPlan::NommerAxes() {
  dessin_.Calquer("titres");
  Police police = kPoliceAxe;
  police.ancre = Ancre::Fin;
  dessin_.Texte(dessin_.VersUtilisateur({cadre_.x + cadre_.largeur, cadre_.y + cadre_.hauteur + kSousLeCadre}),
                NomDAxe(reglages_.horizontal), police);
  const std::string nom = NomDAxe(reglages_.vertical);
  const double demi = LargeurTexte(nom, police.corps) / 2;
  const double x = std::clamp(dessin_.VersPage({0, 0}).x, cadre_.x + demi,
                              std::max(cadre_.x + demi, cadre_.x + cadre_.largeur - demi));
  police.ancre = Ancre::Milieu;
  dessin_.Texte(dessin_.VersUtilisateur({x, cadre_.y - kSurLeCadre}), nom, police);
}

double TraceDuPlan::Taille(std::size_t i) const {
  const double corps = CorpsDe(reglages_.taille);
  if (!reglages_.parContribution) return corps;
  return corps * (kTailleMinimale + kEtendueDesTailles * std::sqrt(CpfDuPoint(etat_, i) / cpfMaximum_));
}

// At its place, but whole: one that the box would cut is moved inside.
void TraceDuPlan::Etiquette(Position place, std::string_view texte, Police police) {
  Position decalage;
  police.niveau = Niveau::Centre;
  police.ancre = reglages_.pointExact ? Ancre::Debut : Ancre::Milieu;
  const Position page = dessin_.VersPage(place);
  const double bord = cadre_.x + cadre_.largeur - kBordDesEtiquettes;
  if (reglages_.pointExact) {
    decalage.x = kEcartDuPoint;
    const double largeur = LargeurTexte(texte, police.corps, police.gras) + kEcartDuPoint;
    if (page.x + largeur > bord && page.x - largeur > cadre_.x) {
      police.ancre = Ancre::Fin;
      decalage.x = -kEcartDuPoint;
    }
  }
  const Zone zone = ZoneDuTexte({page.x + decalage.x, page.y}, texte, police);
  decalage.x += std::max(0.0, cadre_.x + kBordDesEtiquettes - zone.x) - std::max(0.0, zone.x + zone.largeur - bord);
  decalage.y += std::max(0.0, cadre_.y + kBordDesEtiquettes - zone.y) -
                std::max(0.0, zone.y + zone.hauteur - (cadre_.y + cadre_.hauteur - kBordDesEtiquettes));
  dessin_.Texte(place, texte, police, decalage);
}

// Supplementary elements are in italics, their marks hollow.
void TraceDuPlan::Element(std::size_t i, Couleur couleur) {
  const Position place = PlaceDe(etat_, i);
  if (!DansLeCadre(place)) return;
  const PointPlan& point = donnees_.points[i];
  const double corps = Taille(i);
  dessin_.Designer(static_cast<std::int32_t>(i));
  if (reglages_.pointExact)
    dessin_.Cercle(place, kRayonDuPoint * corps / CorpsDe(TailleTexte::Moyenne),
                   {point.supplementaire ? Couleur::Blanc : couleur, 1}, {couleur, kTraitDuPoint});
  Etiquette(
      place, TexteDuPoint(reglages_, point),
      {.corps = corps, .gras = reglages_.gras, .italique = point.supplementaire, .couleur = couleur, .halo = halo_});
  dessin_.Designer(-1);
}

// Individuals lie under the modalities, which they would hide.
void TraceDuPlan::Points() {
  Calquer("points");
  const std::size_t nombre = donnees_.points.size();
  const std::size_t dessous = donnees_.Individus() ? donnees_.colonnes : 0;
  for (std::size_t rang = 0; rang < nombre; ++rang) {
    const std::size_t i = (rang + dessous) % nombre;
    if (EstMontre(etat_, i)) Element(i, CouleurDe(i));
  }
}

void TraceDuPlan::Liens() {
  Calquer("liens");
  const LiensDuGraphe liens = LiensMontres(etat_);
  std::vector<bool> montres(donnees_.points.size());
  for (std::size_t i = 0; i < montres.size(); ++i) montres[i] = EstMontre(etat_, i);
  for (const tables::Lien& lien : liens.traces) {
    const auto a = static_cast<std::size_t>(lien.premier - 1);
    const auto b = static_cast<std::size_t>(lien.second - 1);
    if (!montres[a] || !montres[b]) continue;
    const Position de = PlaceDe(etat_, a);
    const Position vers = PlaceDe(etat_, b);
    dessin_.Ligne(de, vers, kPlumeLien);
    ++liens_;
    if (reglages_.liens.values)
      dessin_.Texte({(de.x + vers.x) / 2, (de.y + vers.y) / 2}, Rogner(NombreFixe(lien.valeur, 3, 1)),
                    AvecHalo(kPoliceValeur));
  }
  Calquer("points");
  for (std::size_t i = 0; i < montres.size(); ++i)
    if (montres[i] && liens.atteints[i]) Element(i, CouleurDe(i));
  if (!liens.complet) return;
  dessin_.Texte(dessin_.VersUtilisateur({cadre_.x + cadre_.largeur - kCoinDuMot.x, cadre_.y + kCoinDuMot.y}),
                kArbreComplet, AvecHalo(kPoliceDuMot));
}

// Each step joins the points of its two items and keeps the one between them, whatever the sizes.
void TraceDuPlan::ArbreCah() {
  const std::vector<EtapeWard>& etapes = donnees_.cah->etapes;
  const std::size_t niveau = std::min(reglages_.cah.niveau, etapes.size());
  std::vector<std::optional<Position>> gardes(niveau);
  std::vector<std::size_t> ecrits;
  Calquer("cah");
  for (std::size_t s = 0; s < niveau; ++s) {
    std::array<std::optional<Position>, 2> bouts;
    bool trait = true;
    for (const std::size_t k : {0U, 1U}) {
      const std::int32_t item = k == 0 ? etapes[s].itemPremier : etapes[s].itemSecond;
      if (item < 0) {
        bouts[k] = gardes[static_cast<std::size_t>(-item) - 1];
        continue;
      }
      const std::optional<std::size_t> element = ElementDeCah(donnees_, item);
      if (!element || !donnees_.points[*element].place) continue;
      bouts[k] = PlaceDe(etat_, *element);
      if (EstMontre(etat_, *element)) ecrits.push_back(*element);
      else trait = false;
    }
    if (!bouts[0] || !bouts[1]) {
      gardes[s] = bouts[0] ? bouts[0] : bouts[1];
      continue;
    }
    if (trait) dessin_.Ligne(*bouts[0], *bouts[1], kPlumeArbreCah);
    gardes[s] = {(bouts[0]->x + bouts[1]->x) / 2, (bouts[0]->y + bouts[1]->y) / 2};
  }
  Calquer("points");
  for (const std::size_t i : ecrits) Element(i, CouleurDe(i));
}

// Each class is a star from its first member.
void TraceDuPlan::ClassesCah() {
  const std::vector<EtapeWard>& etapes = donnees_.cah->etapes;
  const MembresWard membres = MembresDesEtapes(etapes);
  constexpr unsigned kBitsLaisses = 30;  // of 32: the two that are left draw one of four colours
  std::mt19937 hasard(reglages_.cah.hasard.value_or(0));
  std::vector<std::pair<std::size_t, Couleur>> ecrits;
  std::size_t classe = 0;
  Calquer("cah");
  for (const std::size_t etape : EtapesRestantes(etapes, std::min(reglages_.cah.niveau, etapes.size()))) {
    const std::size_t choix = reglages_.cah.hasard ? hasard() >> kBitsLaisses : classe;
    const Couleur couleur = kCouleursDesClasses[choix % kCouleursDesClasses.size()];
    Plume plume = kPlumeClasse;
    plume.couleur = couleur;
    ++classe;
    std::optional<Position> premier;
    for (const std::int32_t membre : membres.DeLEtape(etape)) {
      const std::optional<std::size_t> element = ElementDeCah(donnees_, membre);
      if (!element || !EstMontre(etat_, *element)) continue;
      const Position place = PlaceDe(etat_, *element);
      if (premier) dessin_.Ligne(place, *premier, plume);
      else premier = place;
      ecrits.emplace_back(*element, couleur);
    }
  }
  Calquer("points");
  for (const auto& [element, couleur] : ecrits) Element(element, couleur);
}

void TraceDuPlan::Ellipses() {
  if (!AvecEllipses()) return;
  Calquer("ellipses");
  TracerEllipses(dessin_, etat_.ellipses);
}

void TraceDuPlan::Centres() {
  if (!AvecEllipses()) return;
  Calquer("centres");
  TracerCentres(dessin_, etat_.ellipses, reglages_.intitulesLongs,
                {.corps = CorpsDe(reglages_.taille), .gras = reglages_.gras, .halo = halo_});
}

void TraceDuPlan::Titre() {
  dessin_.Calquer("titres");
  dessin_.Texte(dessin_.VersUtilisateur({kMargeGauche, kLigneDuTitre}),
                Joindre({Rogner(donnees_.titre), SuiteDuTitre(reglages_.ellipses)}), kPoliceTitre);
  if (reglages_.information)
    dessin_.Texte(dessin_.VersUtilisateur({kMargeGauche, cadre_.y + cadre_.hauteur + kSousLeCadre}),
                  LigneDuPlan(etat_, liens_), kPoliceInformation);
}

// The labels come after the lines, which would run through them.
Dessin TraceDuPlan::Tracer() {
  Cadre();
  if (!reglages_.liens.actif) Axes();
  Ellipses();
  if (reglages_.liens.actif) Liens();
  else if (!reglages_.cah.actif || !donnees_.cah) Points();
  else if (reglages_.cah.trace == TraceCah::Lignes) ArbreCah();
  else ClassesCah();
  Centres();
  NommerAxes();
  Titre();
  return std::move(dessin_);
}

}  // namespace

Dessin DessinerPlan(const EtatPlan& etat) { return TraceDuPlan(etat).Tracer(); }

}  // namespace quelvar::factor
