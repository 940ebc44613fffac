#include "factor/ellipses/ellipses.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/enquete/datfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/parametres.h"
#include "core/texte/nombres.h"
#include "factor/coordonnees.h"
#include "factor/ellipses/lecture.h"

namespace quelvar::factor {

namespace {

constexpr double kArrondi = -1E-9;  // a second eigenvalue above that part of the first is negative by rounding only
constexpr double kMilliemes = 1000;
constexpr int kCordes = 100;
constexpr double kDemiPas = 0.031415926535;  // half the angle of a chord: pi / 100, with ten digits

struct TextesDuGenre {
  std::string_view titre;
  std::string_view legende;
};

TextesDuGenre TextesDe(GenreEllipse genre) {
  switch (genre) {
    case GenreEllipse::Concentration: return {"Ellipse de concentration", " de concentration "};
    case GenreEllipse::Mediane: return {"Ellipse médiane"_w, " médiane "_w};
    case GenreEllipse::Indicatrice: break;
  }
  return {"Ellipse indicatrice", " indicatrice "};
}

}  // namespace

double Kappa(GenreEllipse genre) {
  switch (genre) {
    case GenreEllipse::Concentration: return 2;
    case GenreEllipse::Mediane: return std::sqrt(-2 * std::log(1 - 0.5));
    case GenreEllipse::Indicatrice: break;
  }
  return 1;
}

double PourcentageDIndividus(double kappa) { return 100 * (1 - std::exp(-kappa * kappa / 2)); }

bool ChoixEllipses::Voulue(GenreEllipse genre) const {
  return genre == GenreEllipse::Concentration ? concentration : genre == GenreEllipse::Mediane ? mediane : indicatrice;
}

std::string SuiteDuTitre(const ChoixEllipses& choix) {
  if (choix.Aucune()) return {};
  std::string suite = "  Ellipse(s) ";
  for (const GenreEllipse genre : kGenresEllipse)
    if (choix.Voulue(genre)) suite += TextesDe(genre).legende;
  return suite;
}

void Nuage::Ajouter(double x, double y) {
  ++effectif;
  sx += x;
  sxx += x * x;
  sy += y;
  syy += y * y;
  sxy += x * y;
  points.push_back({x, y});
}

Position Nuage::Centre() const {
  const auto n = static_cast<double>(effectif);
  return {sx / n, sy / n};
}

double PourcentageObserve(const Nuage& nuage, const AxesDInertie& axes, double kappa) {
  constexpr double kBord = 1 + 1E-9;
  const Position centre = nuage.Centre();
  const double cosinus = std::cos(axes.angle);
  const double sinus = std::sin(axes.angle);
  // Along an axis without extent every point is at the centre but for rounding.
  const auto part = [](double ecart, double lambda) { return lambda > 0 ? ecart * ecart / lambda : 0; };
  std::int64_t dedans = 0;
  for (const Position& point : nuage.points) {
    const double x = point.x - centre.x;
    const double y = point.y - centre.y;
    const double distance = part(x * cosinus + y * sinus, axes.lambda1) + part(y * cosinus - x * sinus, axes.lambda2);
    if (distance <= kappa * kappa * kBord) ++dedans;
  }
  return 100 * static_cast<double>(dedans) / static_cast<double>(nuage.effectif);
}

std::optional<AxesDInertie> AxesDuNuage(const Nuage& nuage) {
  const auto n = static_cast<double>(nuage.effectif);
  const double vx = nuage.sxx / n - (nuage.sx / n) * (nuage.sx / n);
  const double vy = nuage.syy / n - (nuage.sy / n) * (nuage.sy / n);
  const double c = nuage.sxy / n - (nuage.sx / n) * (nuage.sy / n);
  const double racine = std::sqrt((vy - vx) * (vy - vx) + 4 * c * c);
  AxesDInertie axes{(vx + vy + racine) / 2, (vx + vy - racine) / 2, 0};
  if (axes.lambda2 < 0 && axes.lambda2 > kArrondi * axes.lambda1) axes.lambda2 = 0;
  if (!(axes.lambda2 >= 0) || !std::isfinite(axes.lambda1)) return std::nullopt;
  // The direction arctan(c / (lambda1 - vy)), in a form that loses no digits when c is small.
  axes.angle = c != 0 ? std::atan2(2 * c, vx - vy) / 2 : vy > vx ? std::numbers::pi / 2 : 0;
  return axes;
}

std::vector<Position> ContourDEllipse(Position centre, const AxesDInertie& axes, double kappa) {
  const double a = kappa * std::sqrt(axes.lambda1);
  const double b = kappa * std::sqrt(axes.lambda2);
  const double cosinus = std::cos(axes.angle);
  const double sinus = std::sin(axes.angle);
  std::vector<Position> points;
  points.reserve(kCordes + 1);
  for (int k = 0; k <= kCordes; ++k) {
    const double t = 2 * k * kDemiPas;
    points.push_back({centre.x + kMilliemes * (a * std::cos(t) * cosinus - b * std::sin(t) * sinus),
                      centre.y + kMilliemes * (a * std::cos(t) * sinus + b * std::sin(t) * cosinus)});
  }
  return points;
}

namespace {

[[noreturn]] void Refuser(Rapport& rapport, const Contexte& contexte, Texte texte) {
  Avertir(rapport, contexte.Ecran(), texte);
  throw Erreur(kArretAnnonce);
}

std::size_t NombreDeclare(double valeur) {
  const std::int64_t nombre = Entier64(valeur);
  if (nombre < 0) throw Erreur(kIndiceHorsSelection);
  return static_cast<std::size_t>(nombre);
}

// The individuals are the last lines of the .FI2, all of them after an analysis of the logical coding.
std::vector<Position> PointsDesIndividus(const Contexte& contexte, const DemandeEllipses& demande,
                                         std::size_t individus, bool& codageLogique) {
  const auto h = static_cast<std::size_t>(demande.horizontal.facteur);
  const auto v = static_cast<std::size_t>(demande.vertical.facteur);
  const Matrice lignes = LirePoints(contexte.Exiger(".FI2"), std::max(h, v)).coordonnees;
  if (lignes.Colonnes() < individus) throw Erreur(kFinDeFichierDepassee);
  codageLogique = lignes.Colonnes() == individus;
  std::vector<Position> points;
  points.reserve(individus);
  for (std::size_t i = lignes.Colonnes() - individus; i < lignes.Colonnes(); ++i)
    points.push_back({(demande.horizontal.inverse ? -1 : 1) * demande.echelle * lignes(h - 1, i),
                      (demande.vertical.inverse ? -1 : 1) * demande.echelle * lignes(v - 1, i)});
  return points;
}

// Where the modalities are told, once the lines of the coordinates have told which analysis made them; nothing after
// the message box on a missing .CDG.
std::optional<LignesDIndividus> LignesDe(const Contexte& contexte, const ParametresMod& parametres,
                                         bool codageLogique) {
  if (!codageLogique)
    return LignesDIndividus{contexte.Exiger(".BRT"), NombreDeclare(parametres.colonnes),
                            static_cast<std::size_t>(parametres.largeur), NombreDeclare(parametres.colonnes)};
  const std::optional<Chemin> cdg = contexte.Chercher(".CDG");
  if (cdg) return LignesDIndividus{*cdg, 0, 1, NombreDeclare(parametres.colonnes)};
  contexte.Ecran().demander("Le fichier en codage logique n'existe pas, vérifiez et relancez"_w, Boutons::Ok);
  return std::nullopt;
}

std::vector<std::size_t> PlacesDansLaLigne(const FichierMod& mod, std::span<const ModaliteMarquee> modalites) {
  std::vector<std::size_t> places;
  for (const ModaliteMarquee& modalite : modalites) {
    const std::optional<std::size_t> place = SeuleModalite(mod.modalites, modalite.nom);
    if (!place) throw Erreur(kIndiceHorsSelection);
    places.push_back(*place);
  }
  return places;
}

// As many lines of coordinates as individuals: their logical coding was the table.
bool EstCodageLogique(const Contexte& contexte) {
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  const std::optional<Chemin> fi2 = contexte.Chercher(".FI2");
  if (!mod || !fi2) return false;
  const double individus = LireParametres(LireMod(*mod).parametres).lignesSup;
  return static_cast<double>(CompterLignes(*fi2)) == individus;
}

// The table of the individuals is asked for where they are read from it; the report is that of the analysis done last.
void ExigerFichiersDesEllipses(Rapport& rapport, const Contexte& contexte, std::string_view analyse) {
  const auto exigence = [&](std::string_view extension) {
    return FichierObligatoire{contexte.Nom(extension), contexte.Chercher(extension).has_value()};
  };
  const FichierObligatoire table = EstCodageLogique(contexte) ? FichierObligatoire{{}, true} : exigence(".BRT");
  ExigerFichiers(rapport, contexte.Ecran(), {exigence(".MOD"), exigence(analyse), exigence(".FI2"), table},
                 kArretAbsence);
}

void Situer(const Nuage& nuage, const AxesDInertie& axes, const ChoixEllipses& choix, EllipsesDeModalite& modalite) {
  const Position centre = nuage.Centre();
  modalite.effectif = nuage.effectif;
  modalite.centre = {kMilliemes * centre.x, kMilliemes * centre.y};
  modalite.axes = axes;
  for (const GenreEllipse genre : kGenresEllipse) {
    if (!choix.Voulue(genre)) continue;
    modalite.genres.push_back(genre);
    modalite.observes.push_back(PourcentageObserve(nuage, axes, Kappa(genre)));
  }
}

// The rows that the modalities are read from must be those of the coordinates.
void ExigerLesMemesIndividus(Rapport& rapport, const Contexte& contexte, const FichierMod& mod,
                             const LignesDIndividus& lignes, std::size_t individus) {
  const Chemin fi2 = contexte.Exiger(".FI2");
  const std::optional<Chemin> fj2 = contexte.Chercher(".FJ2");
  const std::optional<Chemin> faj = contexte.Chercher(".FAJ");
  const std::size_t presentes = LirePoints(fi2, 0).noms.size();
  const std::string_view relance = " : refaites les modalités et les facteurs"_w;
  if (presentes != individus && presentes != individus + lignes.colonnes)
    Refuser(rapport, contexte,
            Joindre({"*** Arret du programme : ", contexte.Nom(".FI2"), " n'a pas les individus de ",
                     TexteDe(lignes.fichier.filename()), relance}));
  if (!faj) return;
  const std::size_t facteurs = LireFaj(*faj).Facteurs();
  std::vector<bool> actives;
  for (const Modalite& modalite : mod.modalites) actives.push_back(!modalite.supplementaire);
  actives.resize(lignes.colonnes);
  std::optional<Matrice> colonnes;
  if (fj2 && DerniereAnalyse(contexte) == ".AFC") colonnes = LirePoints(*fj2, facteurs).coordonnees;
  const std::optional<std::int64_t> deplace = PremierDeplace(
      lignes, actives, LirePoints(fi2, facteurs, individus).coordonnees, colonnes ? &*colonnes : nullptr);
  if (deplace)
    Refuser(
        rapport, contexte,
        Joindre({"*** Arret du programme : l'individu ", Nombre(*deplace), " de ", TexteDe(lignes.fichier.filename()),
                 " n'a pas les coordonnées de "_w, contexte.Nom(".FI2"), relance}));
}

std::vector<EllipsesDeModalite> Calculer(Rapport& rapport, const Contexte& contexte, const DemandeEllipses& demande) {
  const std::string_view analyse = DerniereAnalyse(contexte);
  ExigerFichiersDesEllipses(rapport, contexte, analyse);
  EcrireBandeau(rapport, "Graphique factoriel + Ellipse(s)");
  for (const std::string& remarque : demande.remarques) rapport.Ligne({"*** Attention : ", remarque});
  const FichierMod mod = LireMod(contexte.Exiger(".MOD"));
  const ParametresMod parametres = LireParametres(mod.parametres);
  rapport.Lignes(parametres.remarques);
  if (parametres.burt != 1)
    Refuser(rapport, contexte, "*** Arret du programme : les ellipses demandent un tableau avec les individus (BRT=1)");
  if (parametres.largeur < 1)
    Refuser(rapport, contexte, Joindre({"Erreur : pas de parametre FMT= dans le fichier ", contexte.Nom(".MOD")}));

  const std::vector<double> racines = RacinesDesValeursPropres(contexte.Exiger(analyse));
  for (const int facteur : {demande.horizontal.facteur, demande.vertical.facteur})
    if (facteur < 1 || static_cast<std::size_t>(facteur) > racines.size()) throw Erreur(kIndiceHorsSelection);
  std::vector<EllipsesDeModalite> resultat;
  for (const ModaliteMarquee& modalite : demande.modalites)
    resultat.push_back({modalite.nom, modalite.intitule, 0, {}, {}, {}, {}});
  bool codageLogique = false;
  const std::vector<Position> points =
      PointsDesIndividus(contexte, demande, NombreDeclare(parametres.lignesSup), codageLogique);
  const std::optional<LignesDIndividus> lignes = LignesDe(contexte, parametres, codageLogique);
  if (!lignes) return {};
  ExigerLesMemesIndividus(rapport, contexte, mod, *lignes, points.size());
  const std::vector<Nuage> nuages = LireNuages(*lignes, PlacesDansLaLigne(mod, demande.modalites), points);

  std::vector<EllipsesDeModalite> tracees;
  for (std::size_t m = 0; m < nuages.size(); ++m) {
    if (nuages[m].effectif == 0) continue;
    const std::optional<AxesDInertie> axes = AxesDuNuage(nuages[m]);
    if (!axes) {
      contexte.Ecran().demander("calcul impossible. Relancez ellipse", Boutons::Ok);
      continue;
    }
    EllipsesDeModalite& modalite = resultat[m];
    Situer(nuages[m], *axes, demande.choix, modalite);
    ImprimerEllipses(rapport, modalite);
    tracees.push_back(std::move(modalite));
  }
  return tracees;
}

}  // namespace

std::string_view DerniereAnalyse(const Contexte& contexte) {
  const std::optional<Chemin> afc = contexte.Chercher(".AFC");
  const std::optional<Chemin> acp = contexte.Chercher(".ACP");
  if (!acp) return ".AFC";
  return !afc || std::filesystem::last_write_time(*acp) > std::filesystem::last_write_time(*afc) ? ".ACP" : ".AFC";
}

std::optional<std::vector<EllipsesDeModalite>> CalculerEllipses(const Contexte& contexte,
                                                                const DemandeEllipses& demande) {
  std::vector<EllipsesDeModalite> tracees;
  if (!PreparerProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{},
                         [&](Rapport& rapport) { tracees = Calculer(rapport, contexte, demande); }))
    return std::nullopt;
  return tracees;
}

void ImprimerEllipses(Rapport& rapport, const EllipsesDeModalite& modalite) {
  rapport.Ligne({"Modalité= "_w, modalite.nom, " effectif=", NombreFixe(static_cast<double>(modalite.effectif), 4, 0),
                 " ", modalite.intitule});
  for (std::size_t i = 0; i < modalite.genres.size(); ++i) {
    const double kappa = Kappa(modalite.genres[i]);
    const std::string attendu = NombreFixe(PourcentageDIndividus(kappa), 2, 1);
    const std::string observe(Rogner(NombreFixe(modalite.observes[i], 3, 1)));
    rapport.Ligne(TextesDe(modalite.genres[i]).titre);
    rapport.Suite({"Kappa=", NombreFixe(kappa, 1, 2), " Pourcentage d'individus : ", attendu, "%"});
    if (observe != attendu) rapport.Suite({" (observé : "_w, observe, "%)"});
    rapport.Ligne();
    rapport.Ligne();
  }
}

void TracerEllipses(Dessin& dessin, std::span<const EllipsesDeModalite> modalites) {
  for (const EllipsesDeModalite& modalite : modalites)
    for (const GenreEllipse genre : modalite.genres)
      dessin.Ligne(ContourDEllipse(modalite.centre, modalite.axes, Kappa(genre)), {Couleur::BleuFonce});
}

void TracerCentres(Dessin& dessin, std::span<const EllipsesDeModalite> modalites, bool intitulesLongs, Police police) {
  constexpr double rayon = 2;         // of the mark, points
  constexpr Position decalage{4, 3};  // of the text from the mark, points
  police.couleur = Couleur::BleuFonce;
  for (const EllipsesDeModalite& modalite : modalites) {
    dessin.Cercle(modalite.centre, rayon, {Couleur::BleuFonce, 1}, {Couleur::BleuFonce});
    dessin.Texte(modalite.centre, Joindre({"PM", intitulesLongs ? modalite.intitule : modalite.nom}), police, decalage);
  }
}

}  // namespace quelvar::factor
