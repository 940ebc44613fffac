#include "factor/plan/plan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar::factor {

namespace {

// Sides of a window, thousandths of a coordinate.
constexpr double kEtendueParDefaut = 100;  // half of one without any extent
constexpr double kEtendueMinimum = 0.01;   // far below and far above any plane, with digits left for its ticks
constexpr double kEtendueMaximum = 1e9;
// A move, units of the window: from hardly seen to half of it.
constexpr double kPasMinimum = 5;
constexpr double kPasMaximum = 500;

std::size_t Rang(const AxePlan& axe) { return static_cast<std::size_t>(axe.facteur - 1); }

class EtendueDesPoints {
 public:
  void Inclure(double valeur) {
    minimum_ = std::min(minimum_, valeur);
    maximum_ = std::max(maximum_, valeur);
  }
  double Milieu() const { return (minimum_ + maximum_) / 2; }
  double Longueur() const { return maximum_ - minimum_; }
  double Minimum() const { return minimum_; }
  double Maximum() const { return maximum_; }

 private:
  double minimum_ = 0;  // the origin is inside
  double maximum_ = 0;
};

Fenetre Autour(Position centre, double largeur, double hauteur) {
  return {centre.x - largeur / 2, centre.x + largeur / 2, centre.y + hauteur / 2, centre.y - hauteur / 2};
}

double Largeur(const Fenetre& f) { return f.droite - f.gauche; }
double Hauteur(const Fenetre& f) { return f.haut - f.bas; }

bool AUnAxeDeCpf(const ReglagesPlan& reglages) { return reglages.horizontal.cpf || reglages.vertical.cpf; }

Fenetre FenetreDe(const ReglagesPlan& reglages, const EtendueDesPoints& x, const EtendueDesPoints& y) {
  double largeur = x.Longueur() > 0 ? x.Longueur() : 2 * kEtendueParDefaut;
  double hauteur = y.Longueur() > 0 ? y.Longueur() : 2 * kEtendueParDefaut;
  if (!AUnAxeDeCpf(reglages)) {
    largeur = std::max(largeur, hauteur / kHauteurSurLargeur);
    hauteur = largeur * kHauteurSurLargeur;
  }
  return Autour({x.Milieu(), y.Milieu()}, largeur, hauteur);
}

void InclureContours(const EtatPlan& etat, EtendueDesPoints& x, EtendueDesPoints& y) {
  for (const EllipsesDeModalite& modalite : etat.ellipses)
    for (const GenreEllipse genre : modalite.genres)
      for (const Position& p : ContourDEllipse(modalite.centre, modalite.axes, Kappa(genre))) {
        x.Inclure(p.x);
        y.Inclure(p.y);
      }
}

// The drawing that the settings choose has individuals: those of their classification, none with links.
bool AvecIndividus(const DonneesPlan& donnees, const ReglagesPlan& reglages) {
  if (reglages.liens.actif) return false;
  return reglages.cah.actif && donnees.cah ? donnees.cah->individus : reglages.individus;
}

// The places of the elements shown, or of every element; false when there is none.
bool InclurePlaces(const EtatPlan& etat, bool tous, EtendueDesPoints& x, EtendueDesPoints& y) {
  bool vus = false;
  for (std::size_t i = 0; i < etat.donnees.points.size(); ++i) {
    if (!etat.donnees.points[i].place || (!tous && !EstMontre(etat, i))) continue;
    const Position p = PlaceDe(etat, i);
    x.Inclure(p.x);
    y.Inclure(p.y);
    vus = true;
  }
  return vus;
}

void Elargir(EtatPlan& etat, EtendueDesPoints& x, EtendueDesPoints& y) {
  const Fenetre& f = etat.cadre.limites;
  if (x.Minimum() >= f.gauche && x.Maximum() <= f.droite && y.Minimum() >= f.bas && y.Maximum() <= f.haut) return;
  for (const double bord : {f.gauche, f.droite}) x.Inclure(bord);
  for (const double bord : {f.bas, f.haut}) y.Inclure(bord);
  etat.cadre.limites = FenetreDe(etat.reglages, x, y);
}

// The window grown or shrunk about a point of its own; a window that would leave the bounds stays.
Fenetre Grandie(const Fenetre& f, double facteurX, double facteurY, Position fixe) {
  const Fenetre nouvelle{fixe.x + (f.gauche - fixe.x) * facteurX, fixe.x + (f.droite - fixe.x) * facteurX,
                         fixe.y + (f.haut - fixe.y) * facteurY, fixe.y + (f.bas - fixe.y) * facteurY};
  const double petit = std::min(Largeur(nouvelle), Hauteur(nouvelle));
  const double grand = std::max(Largeur(nouvelle), Hauteur(nouvelle));
  return petit >= kEtendueMinimum && grand <= kEtendueMaximum ? nouvelle : f;
}

Position Centre(const Fenetre& f) { return {(f.gauche + f.droite) / 2, (f.haut + f.bas) / 2}; }

bool DansLEnsemble(EnsemblePoints ensemble, const PointPlan& point) {
  return ensemble == EnsemblePoints::Tous || (ensemble == EnsemblePoints::Supplementaires) == point.supplementaire;
}

// "1 lien", "2 liens".
std::string Compte(std::size_t nombre, std::string_view nom) {
  return Joindre({Nombre(nombre), " ", nom, std::string_view(nombre > 1 ? "s" : "")});
}

}  // namespace

EtatPlan NouveauPlan(DonneesPlan donnees) {
  EtatPlan etat;
  etat.donnees = std::move(donnees);
  ReglagesPlan& reglages = etat.reglages;
  if (etat.donnees.facteurs < 2) reglages.vertical = {1, true, false};
  if (etat.donnees.facteurs < 3) reglages.troisieme = 0;
  if (etat.donnees.cah) reglages.cah.niveau = etat.donnees.cah->etapes.size();
  reglages.marques.assign(etat.donnees.points.size(), 0);
  Caler(etat);
  return etat;
}

double Coordonnee(const DonneesPlan& donnees, const AxePlan& axe, std::size_t element) {
  const double valeur = (axe.cpf ? donnees.cpf : donnees.coordonnees)(Rang(axe), element);
  return axe.inverse ? -valeur : valeur;
}

Position PlaceDe(const EtatPlan& etat, std::size_t element) {
  return {Coordonnee(etat.donnees, etat.reglages.horizontal, element),
          Coordonnee(etat.donnees, etat.reglages.vertical, element)};
}

bool EstMontre(const EtatPlan& etat, std::size_t element) {
  const DonneesPlan& donnees = etat.donnees;
  const ReglagesPlan& reglages = etat.reglages;
  const PointPlan& point = donnees.points[element];
  if (!point.place || !DansLEnsemble(reglages.ensemble, point)) return false;
  if (element >= donnees.colonnes && donnees.Individus() && !AvecIndividus(donnees, reglages)) return false;
  return CpfDuPoint(etat, element) >= reglages.niveauCpf;
}

double CpfDuPoint(const EtatPlan& etat, std::size_t element) {
  const Matrice& cpf = etat.donnees.cpf;
  return std::max(cpf(Rang(etat.reglages.horizontal), element), cpf(Rang(etat.reglages.vertical), element));
}

std::string_view TexteDuPoint(const ReglagesPlan& reglages, const PointPlan& point) {
  const std::string_view intitule = Rogner(point.intitule);
  return reglages.intitulesLongs && !intitule.empty() ? intitule : Rogner(point.nom);
}

void Caler(EtatPlan& etat) {
  EtendueDesPoints x;
  EtendueDesPoints y;
  if (!InclurePlaces(etat, false, x, y)) InclurePlaces(etat, true, x, y);
  InclureContours(etat, x, y);
  etat.cadre.limites = FenetreDe(etat.reglages, x, y);
}

void InclureEllipses(EtatPlan& etat) {
  EtendueDesPoints x;
  EtendueDesPoints y;
  InclureContours(etat, x, y);
  Elargir(etat, x, y);
}

void InclurePoints(EtatPlan& etat) {
  EtendueDesPoints x;
  EtendueDesPoints y;
  InclurePlaces(etat, false, x, y);
  Elargir(etat, x, y);
}

void ChangerEchelle(EtatPlan& etat, bool plus) {
  const double facteur = plus ? 1 / FacteurDeTaille(etat.coefficient) : FacteurDeTaille(etat.coefficient);
  Fenetre& limites = etat.cadre.limites;
  limites = Grandie(limites, etat.dimension == DimensionPlan::Hauteur ? 1 : facteur,
                    etat.dimension == DimensionPlan::Largeur ? 1 : facteur, Centre(limites));
}

void ChangerPage(EtatPlan& etat, bool plus) {
  const double voulue =
      etat.cadre.page * (plus ? FacteurDeTaille(etat.coefficient) : 1 / FacteurDeTaille(etat.coefficient));
  const double page = std::clamp(voulue, kPageMinimum, kPageMaximum);
  const double facteur = page / etat.cadre.page;
  Fenetre& limites = etat.cadre.limites;
  limites = Grandie(limites, facteur, facteur, Centre(limites));
  etat.cadre.page = page;
}

void DeplacerImage(EtatPlan& etat, int versLaDroite, int versLeHaut) {
  const Fenetre& f = etat.cadre.limites;
  const Position centre = Centre(f);
  const double x = versLaDroite * etat.pas * Largeur(f) / kUnitesDeFenetre;
  const double y = versLeHaut * etat.pas * Hauteur(f) / kUnitesDeFenetre;
  Glisser(etat, centre, {centre.x + x, centre.y + y});
}

void ChangerPas(EtatPlan& etat, bool plus) {
  etat.pas = std::clamp(plus ? etat.pas * 2 : etat.pas / 2, kPasMinimum, kPasMaximum);
}

void ReinitialiserCadre(EtatPlan& etat) {
  etat.cadre.page = 1;
  Caler(etat);
}

void ZoomerAutour(EtatPlan& etat, double facteur, Position place) {
  etat.cadre.limites = Grandie(etat.cadre.limites, 1 / facteur, 1 / facteur, place);
}

void Glisser(EtatPlan& etat, Position de, Position vers) {
  Fenetre& f = etat.cadre.limites;
  const double x = vers.x - de.x;
  const double y = vers.y - de.y;
  if (std::fabs(f.gauche - x) + std::fabs(f.haut - y) > kEtendueMaximum) return;
  f = {f.gauche - x, f.droite - x, f.haut - y, f.bas - y};
}

bool FixerAxe(const DonneesPlan& donnees, AxePlan& axe, std::string_view texte) {
  std::string_view reste = Rogner(texte);
  const bool cpf = !reste.empty() && Majuscule(reste.front()) == 'C';
  if (cpf) reste = RognerGauche(reste.substr(1));
  int facteur = axe.facteur;
  if (!cpf || !reste.empty()) {
    if (!SontChiffres(reste) || reste.size() > kChiffresDUnFacteur) return false;
    facteur = static_cast<int>(ValeurDe(reste));
  }
  if (facteur < 1 || static_cast<std::size_t>(facteur) > donnees.facteurs) return false;
  axe.facteur = facteur;
  axe.cpf = cpf;
  return true;
}

std::string TexteAxe(const AxePlan& axe) { return axe.cpf ? "C" : Nombre(axe.facteur); }

void EchangerAxes(EtatPlan& etat) { std::swap(etat.reglages.horizontal, etat.reglages.vertical); }

LiensDuGraphe LiensMontres(const EtatPlan& etat, bool pajek) {
  const DonneesPlan& donnees = etat.donnees;
  const ReglagesPlan& reglages = etat.reglages;
  std::vector<SommetArbre> sommets;
  sommets.reserve(donnees.points.size());
  for (std::size_t i = 0; i < donnees.points.size(); ++i)
    sommets.push_back({donnees.points[i].supplementaire, reglages.marques[i] != 0,
                       static_cast<std::int16_t>(donnees.cpf(Rang(reglages.horizontal), i)),
                       static_cast<std::int16_t>(donnees.cpf(Rang(reglages.vertical), i)), EstMontre(etat, i)});
  OptionsArbre options;
  options.mode = reglages.liens.mode.value_or(
      reglages.ensemble == EnsemblePoints::Actifs ? ModeArbre::SaufSupplementaires : ModeArbre::TousLesLiens);
  options.ecMin = reglages.liens.ecMin;
  options.ecSup = reglages.liens.ecSup;
  options.arbre = reglages.liens.arbre;
  options.pajek = pajek;
  options.progressif = reglages.liens.progressif;
  options.niveauCpf = reglages.niveauCpf;
  const std::size_t lies = donnees.Individus() ? donnees.colonnes : sommets.size();
  options.aCouvrir =
      static_cast<std::size_t>(std::count_if(sommets.begin(), sommets.begin() + static_cast<std::ptrdiff_t>(lies),
                                             [](const SommetArbre& s) { return s.montre; }));
  return ArbreMaximum(reglages.liens.lignes ? donnees.liensLignes : donnees.liens, sommets, options);
}

std::optional<std::size_t> ElementDeCah(const DonneesPlan& donnees, std::int32_t item) {
  auto rang = static_cast<std::size_t>(item - 1);
  if (donnees.cah->individus) {
    if (donnees.points.size() > donnees.colonnes) {
      rang += donnees.colonnes;
    } else {  // the rows of a square table are its active modalities
      std::size_t i = 0;
      for (; i < donnees.colonnes; ++i)
        if (!donnees.points[i].supplementaire && rang-- == 0) break;
      rang = i;
    }
  }
  return rang < donnees.points.size() ? std::optional(rang) : std::nullopt;
}

std::size_t ClassesAuNiveau(const ArbreCah& cah, std::size_t niveau) {
  const std::size_t etapes = std::min(niveau, cah.etapes.size());
  return etapes == 0 ? 0 : static_cast<std::size_t>(BilanDesEtapes(cah.etapes)[etapes - 1].classes);
}

std::optional<std::size_t> NiveauDesClasses(const ArbreCah& cah, std::size_t classes) {
  std::optional<std::size_t> niveau;
  const std::vector<BilanDEtape> bilans = BilanDesEtapes(cah.etapes);
  for (std::size_t s = 0; s < bilans.size(); ++s)
    if (static_cast<std::size_t>(bilans[s].classes) == classes) niveau = s + 1;
  return niveau;
}

ExigencesGraphe FichiersMontres(const EtatPlan& etat) {
  const ReglagesLiens& liens = etat.reglages.liens;
  return {liens.actif && !liens.lignes, liens.actif && liens.lignes, etat.reglages.cah.actif};
}

DemandeEllipses EllipsesDemandees(const EtatPlan& etat) {
  const ReglagesPlan& reglages = etat.reglages;
  DemandeEllipses demande;
  if (AUnAxeDeCpf(reglages)) return demande;
  demande.horizontal = {reglages.horizontal.facteur, reglages.horizontal.inverse};
  demande.vertical = {reglages.vertical.facteur, reglages.vertical.inverse};
  demande.echelle = etat.donnees.echelle;
  demande.remarques = RemarquesDesEllipses(etat.donnees.discordances);
  for (std::string& remarque : RemarquesDesFichiers(etat.donnees.discordances, FichiersMontres(etat)))
    demande.remarques.push_back(std::move(remarque));
  demande.choix = reglages.ellipses;
  for (std::size_t i = 0; i < etat.donnees.points.size(); ++i) {
    if (reglages.marques[i] != kMarqueColonne || !etat.donnees.points[i].place) continue;
    demande.modalites.push_back({etat.donnees.points[i].nom, etat.donnees.points[i].intitule,
                                 etat.donnees.coordonnees(Rang(reglages.horizontal), i),
                                 etat.donnees.coordonnees(Rang(reglages.vertical), i)});
  }
  return demande;
}

std::string LigneDuPlan(const EtatPlan& etat, std::size_t liensTraces) {
  const DonneesPlan& donnees = etat.donnees;
  const ReglagesPlan& reglages = etat.reglages;
  std::size_t montres = 0;
  for (std::size_t i = 0; i < donnees.points.size(); ++i) montres += EstMontre(etat, i) ? 1U : 0U;
  std::string ligne = Joindre({Compte(montres, "point"), " sur ", Nombre(donnees.points.size())});
  if (reglages.ensemble == EnsemblePoints::Actifs) ligne += ", actifs seuls";
  if (reglages.ensemble == EnsemblePoints::Supplementaires) ligne += Joindre({", supplémentaires seuls"_w});
  if (reglages.niveauCpf > 0) ligne += Joindre({", CPF d'au moins ", Nombre(reglages.niveauCpf)});
  if (reglages.liens.actif) {
    ligne += Joindre({", ", Compte(liensTraces, "lien"), std::string_view(reglages.liens.arbre ? " de l'arbre" : ""),
                      " de ", Nombre(reglages.liens.ecMin), " à "_w, Nombre(reglages.liens.ecSup)});
  } else if (reglages.cah.actif && donnees.cah) {
    ligne += Joindre({", ", Compte(ClassesAuNiveau(*donnees.cah, reglages.cah.niveau), "classe"), " au niveau ",
                      Nombre(reglages.cah.niveau)});
  }
  return ligne;
}

std::string LigneDInformation(const EtatPlan& etat, std::size_t element) {
  const DonneesPlan& donnees = etat.donnees;
  const PointPlan& point = donnees.points[element];
  std::string ligne = Joindre({Rogner(point.nom), "  ", Rogner(point.intitule), "\r\n"});
  std::vector<int> facteurs = {etat.reglages.horizontal.facteur, etat.reglages.vertical.facteur,
                               etat.reglages.troisieme};
  for (auto facteur = facteurs.begin(); facteur != facteurs.end(); ++facteur) {
    if (*facteur == 0 || std::find(facteurs.begin(), facteur, *facteur) != facteur) continue;
    const auto rang = static_cast<std::size_t>(*facteur - 1);
    ligne += Joindre({std::string_view(facteur == facteurs.begin() ? "" : "   "), "F", Nombre(*facteur), "=",
                      Nombre(donnees.coordonnees(rang, element)), " CPF=", Nombre(donnees.cpf(rang, element))});
  }
  return ligne;
}

}  // namespace quelvar::factor
