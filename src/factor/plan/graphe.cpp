#include "factor/plan/graphe.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/panne/annonce.h"
#include "core/programme/ancienrapport.h"
#include "core/programme/arret.h"
#include "core/programme/refus.h"
#include "factor/plan/graphe_options.h"

namespace quelvar::factor {

namespace {

// Applies an axis; what is not one of the factors is told.
std::string ReglerAxe(const DonneesPlan& donnees, AxePlan& axe, std::string_view nom, std::string_view texte) {
  if (texte.empty() || FixerAxe(donnees, axe, texte)) return {};
  return Joindre({kArretDuProgramme, "l'axe ", nom, " demande le facteur "_w, texte, ", le fichier en a "_w,
                  Nombre(donnees.facteurs)});
}

std::string ReglerCah(const OptionsGraphe& options, EtatPlan& etat) {
  if (options.cah == CahDuGraphe::Aucune) return {};
  ReglagesCah& reglages = etat.reglages.cah;
  const ArbreCah& cah = *etat.donnees.cah;
  if (options.niveauCah >= 0) reglages.niveau = static_cast<std::size_t>(options.niveauCah);
  if (reglages.niveau > cah.etapes.size())
    return Joindre({kArretDuProgramme, "les niveaux de la classification vont de 0 à "_w, Nombre(cah.etapes.size())});
  if (options.tirage > 0) reglages.hasard = static_cast<std::uint32_t>(options.tirage);
  if (options.classes == 0) return {};
  const std::optional<std::size_t> niveau = NiveauDesClasses(cah, static_cast<std::size_t>(options.classes));
  if (!niveau)
    return Joindre(
        {kArretDuProgramme, "aucun niveau de la classification ne laisse ", Nombre(options.classes), " classes"});
  reglages.niveau = *niveau;
  return {};
}

std::string Marquer(const std::vector<std::string>& noms, EtatPlan& etat) {
  const std::optional<std::string> absent = MarquerParNoms(etat, noms);
  return absent ? Joindre({kArretDuProgramme, "aucun élément n'a le nom "_w, *absent}) : std::string();
}

// Each option that is a setting of the points as it stands, with that setting.
template <class Options, class Reglages, class Poser>
void PourChaqueCoche(Options& options, Reglages& reglages, const Poser& poser) {
  poser(options.pointExact, reglages.pointExact);
  poser(options.contributions, reglages.parContribution);
  poser(options.longs, reglages.intitulesLongs);
  poser(options.information, reglages.information);
  poser(options.individus, reglages.individus);
  poser(options.ensemble, reglages.ensemble);
  poser(options.taille, reglages.taille);
  poser(options.gras, reglages.gras);
}

// The options that no box stands for. The tree and the network file alone draw the links too: a script ticks no box
// before.
void ReglerLiens(const OptionsGraphe& options, ReglagesLiens& reglages) {
  reglages.actif = DemandeDesLiens(options);
  reglages.mode = options.mode;
  if (options.progressif > 0) reglages.progressif = static_cast<std::size_t>(options.progressif);
  reglages.ecMin = options.ecMin.value_or(options.liensDeLignes ? kEcMinDesLiensDeLignes : 0);
  reglages.ecSup = options.ecSup;
}

// The settings of the options; the first that the data refuse is told.
std::string Regler(const Contexte& contexte, const OptionsGraphe& options, EtatPlan& etat) {
  ReglagesPlan& reglages = etat.reglages;
  PoserLesCoches(options, reglages);
  ReglerLiens(options, reglages.liens);
  reglages.niveauCpf = options.niveauCpf;
  reglages.horizontal.inverse = options.inverserX;
  reglages.vertical.inverse = options.inverserY;
  std::string refus = RefusDEcrire(contexte, options.fichier);
  if (refus.empty()) refus = ReglerAxe(etat.donnees, reglages.horizontal, "horizontal", options.horizontal);
  if (refus.empty()) refus = ReglerAxe(etat.donnees, reglages.vertical, "vertical", options.vertical);
  if (refus.empty()) refus = ReglerCah(options, etat);
  if (refus.empty()) refus = Marquer(options.marques, etat);
  if (options.echanger) EchangerAxes(etat);
  return refus;
}

void ReglerCadre(const OptionsGraphe& options, EtatPlan& etat) {
  Caler(etat);
  Fenetre& f = etat.cadre.limites;
  etat.cadre.page = options.page / 100.0;
  const double x = etat.cadre.page * 100 / options.zoomLargeur;
  const double y = etat.cadre.page * 100 / options.zoomHauteur;
  const Position centre{(f.gauche + f.droite) / 2, (f.haut + f.bas) / 2};
  f = {centre.x + (f.gauche - centre.x) * x, centre.x + (f.droite - centre.x) * x, centre.y + (f.haut - centre.y) * y,
       centre.y + (f.bas - centre.y) * y};
  Glisser(etat, {},
          {options.versLaDroite * (f.droite - f.gauche) / kUnitesDeFenetre,
           options.versLeHaut * (f.haut - f.bas) / kUnitesDeFenetre});
}

void EcrireImage(const Contexte& contexte, const EtatPlan& etat, const OptionsGraphe& options) {
  const std::string nom = options.fichier.empty() ? contexte.Nom("Fac.svg") : options.fichier;
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireSvg(sorties, nom, DessinerPlan(etat));
  if (options.pajek) EcrireReseau(contexte, etat, sorties);
  sorties.Valider();
  contexte.Ecran().demander(Joindre({"Graphique enregistré sous le nom : "_w, nom}), Boutons::Ok);
}

Fin Continuer(const Contexte& contexte, const std::function<void(Rapport&)>& corps) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, corps, ModeEcriture::Suite);
}

}  // namespace

bool ActualiserEllipses(const Contexte& contexte, EtatPlan& etat) {
  etat.ellipses.clear();
  const DemandeEllipses demande = EllipsesDemandees(etat);
  if (demande.choix.Aucune()) return true;
  std::optional<std::vector<EllipsesDeModalite>> ellipses = CalculerEllipses(contexte, demande);
  if (!ellipses) return false;
  etat.ellipses = std::move(*ellipses);
  return true;
}

void EcrireReseau(const Contexte& contexte, const EtatPlan& etat, JeuDeFichiers& sorties) {
  std::vector<std::string> intitules;
  for (std::size_t i = 0; i < etat.donnees.points.size(); ++i) {
    const PointPlan& point = etat.donnees.points[i];
    const bool individu = etat.donnees.Individus() && i >= etat.donnees.colonnes;
    const std::string nom = individu ? Nombre(static_cast<std::int64_t>(i - etat.donnees.colonnes + 1)) : point.nom;
    intitules.push_back(etat.reglages.intitulesLongs && !(individu && point.intitule.empty()) ? point.intitule : nom);
  }
  EcrirePajek(sorties.Ouvrir(contexte.Nom(".net"), Nature::Refaisable), intitules, LiensMontres(etat, true).pajek);
}

void EcrireReseau(const Contexte& contexte, const EtatPlan& etat) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireReseau(contexte, etat, sorties);
  sorties.Valider();
}

void PoserLesCoches(const OptionsGraphe& options, ReglagesPlan& reglages) {
  PourChaqueCoche(options, reglages, [](const auto& option, auto& reglage) { reglage = option; });
  reglages.liens.actif = options.liens || options.liensDeLignes;
  reglages.liens.lignes = options.liensDeLignes;
  reglages.liens.values = options.values;
  reglages.liens.arbre = options.arbre;
  reglages.cah.actif = options.cah != CahDuGraphe::Aucune;
  if (reglages.cah.actif)
    reglages.cah.trace = options.cah == CahDuGraphe::Lignes ? TraceCah::Lignes : TraceCah::Couleurs;
  const auto demande = [&](char lettre) { return Majuscules(options.ellipses).find(lettre) != std::string::npos; };
  reglages.ellipses = {demande('C'), demande('M'), demande('I')};
}

bool DemandeDesLiens(const OptionsGraphe& options) {
  return options.liens || options.liensDeLignes || options.arbre || options.pajek;
}

Fin Graphe(const Contexte& contexte, const OptionsGraphe& options) {
  const AncienRapport ancien(contexte, ".PRT");
  std::optional<DonneesPlan> donnees = PrepGraphe(
      contexte,
      {DemandeDesLiens(options) && !options.liensDeLignes, options.liensDeLignes, options.cah != CahDuGraphe::Aucune});
  if (!donnees) return Fin::Arret;
  EtatPlan etat = NouveauPlan(std::move(*donnees));
  if (const std::string refus = Regler(contexte, options, etat); !refus.empty()) {
    const Fin fin = Continuer(contexte, [&](Rapport& rapport) { AvertirEtArreter(rapport, contexte.Ecran(), refus); });
    if (ancien.Existait()) ancien.Remettre();
    return fin;
  }
  if (!ActualiserEllipses(contexte, etat)) return Fin::Arret;
  ReglerCadre(options, etat);
  return Continuer(contexte, [&](Rapport&) { EcrireImage(contexte, etat, options); });
}

namespace {

// A "C" alone keeps the factor that the axis begins with.
std::string TexteDOption(const AxePlan& axe, const AxePlan& depart) {
  return axe.cpf && axe.facteur != depart.facteur ? Joindre({"C", Nombre(axe.facteur)}) : TexteAxe(axe);
}

void DireLesLiens(const ReglagesLiens& liens, OptionsGraphe& options) {
  options.liens = liens.actif && !liens.lignes;
  options.liensDeLignes = liens.actif && liens.lignes;
  if (!liens.actif) return;
  options.values = liens.values;
  options.arbre = liens.arbre;
  options.mode = liens.mode;
  options.progressif = static_cast<int>(liens.progressif.value_or(0));
  if (liens.ecMin != (liens.lignes ? kEcMinDesLiensDeLignes : 0)) options.ecMin = liens.ecMin;
  options.ecSup = liens.ecSup;
}

// The limits beside those that the points ask for.
void DireLeCadre(const EtatPlan& etat, OptionsGraphe& options) {
  EtatPlan cale = etat;
  Caler(cale);
  const Fenetre& depart = cale.cadre.limites;
  const Fenetre& f = etat.cadre.limites;
  const double largeur = f.droite - f.gauche;
  const double hauteur = f.haut - f.bas;
  // What the sums of a move and its return leave is none; what is left lies far below a dot of the picture.
  constexpr int kDecimales = 9;
  const auto zoom = [&](double agrandissement) {
    return Arrondir(std::clamp(100 * etat.cadre.page * agrandissement, kZoomAuMoins, kZoomAuPlus), kDecimales);
  };
  const auto pas = [](double fenetres) {
    return Arrondir(std::clamp(kUnitesDeFenetre * fenetres, -kDeplacementAuPlus, kDeplacementAuPlus), kDecimales);
  };
  options.page = Arrondir(100 * etat.cadre.page, kDecimales);
  options.zoomLargeur = zoom((depart.droite - depart.gauche) / largeur);
  options.zoomHauteur = zoom((depart.haut - depart.bas) / hauteur);
  options.versLaDroite = pas((depart.droite + depart.gauche - f.droite - f.gauche) / 2 / largeur);
  options.versLeHaut = pas((depart.haut + depart.bas - f.haut - f.bas) / 2 / hauteur);
}

}  // namespace

OptionsGraphe OptionsDuPlan(const EtatPlan& etat, bool pajek) {
  const ReglagesPlan& reglages = etat.reglages;
  OptionsGraphe options;
  const ReglagesPlan depart;
  options.horizontal = TexteDOption(reglages.horizontal, depart.horizontal);
  const bool usuel = reglages.vertical.facteur == 2 && !reglages.vertical.cpf;
  if (!usuel) options.vertical = TexteDOption(reglages.vertical, depart.vertical);
  options.inverserX = reglages.horizontal.inverse;
  options.inverserY = reglages.vertical.inverse;
  PourChaqueCoche(options, reglages, [](auto& option, const auto& reglage) { option = reglage; });
  options.niveauCpf = reglages.niveauCpf;
  DireLesLiens(reglages.liens, options);
  options.pajek = pajek && reglages.liens.actif;
  if (reglages.cah.actif) {
    options.cah = reglages.cah.trace == TraceCah::Lignes ? CahDuGraphe::Lignes : CahDuGraphe::Couleurs;
    if (etat.donnees.cah && reglages.cah.niveau != etat.donnees.cah->etapes.size())
      options.niveauCah = static_cast<int>(reglages.cah.niveau);
    if (options.cah == CahDuGraphe::Couleurs) options.tirage = static_cast<int>(reglages.cah.hasard.value_or(0));
  }
  options.ellipses = std::string(reglages.ellipses.concentration ? "c" : "") + (reglages.ellipses.mediane ? "m" : "") +
                     (reglages.ellipses.indicatrice ? "i" : "");
  options.marques = NomsMarques(etat);
  DireLeCadre(etat, options);
  return options;
}

}  // namespace quelvar::factor
