#include "factor/plan/graphe_options.h"

#include <array>

#include "core/texte/caracteres.h"

namespace quelvar::factor {

namespace {

using O = OptionsGraphe;
using Textes = std::vector<std::string>;

constexpr int kEntierAuPlus = 999999999;  // as many digits as an option takes
constexpr int kClassesAuPlus = 99999;     // more than a tree that fits the memory leaves
// The limits of the picture.
constexpr double kPageAuMoins = 100 * kPageMinimum;
constexpr double kPageAuPlus = 100 * kPageMaximum;
constexpr std::array<std::string_view, 3> kEllipses = {"concentration", "mediane", "indicatrice"};

// A text of the struct that is empty when the option is not given.
Description<O>::Ecrire EcrireTexte(std::string O::*membre) {
  return [membre](const O& options) { return (options.*membre).empty() ? Textes() : Textes{options.*membre}; };
}

Description<O>::Poser PoserAxe(std::string nom, std::string O::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    const std::string_view chiffres = std::string_view(valeur).substr(Majuscules(valeur).starts_with("C") ? 1 : 0);
    const bool nombre = chiffres.empty() || (SontChiffres(chiffres) && chiffres.size() <= kChiffresDUnFacteur);
    if (valeur.empty() || !nombre) RefuserValeur(nom, "le numéro d'un facteur, C ou C et ce numéro,"_w, valeur);
    options.*membre = valeur;
  };
}

void PoserNiveau(O& options, const std::string& valeur) {
  options.niveauCah = LireEntier("niveau", valeur, 0, kEtapesAuPlus);
}

Textes EcrireNiveau(const O& options) { return options.niveauCah < 0 ? Textes() : Textes{Nombre(options.niveauCah)}; }

void PoserEllipses(O& options, const std::string& valeur) {
  options.ellipses.clear();
  for (const std::string& nom : NomsSepares(Minuscules(valeur))) {
    bool connue = false;
    for (const std::string_view genre : kEllipses)
      if (!nom.empty() && genre.starts_with(nom)) {
        options.ellipses += genre.front();
        connue = true;
      }
    if (!connue) RefuserValeur("ellipses", "concentration, mediane, indicatrice", nom);
  }
}

Textes EcrireEllipses(const O& options) {
  Textes noms;
  for (const char lettre : options.ellipses)
    for (const std::string_view genre : kEllipses)
      if (genre.front() == lettre) noms.emplace_back(genre);
  return noms.empty() ? Textes() : Textes{NomsJoints(noms)};
}

void DecrirePoints(Description<O>& description) {
  description.Image("fichier", &O::fichier, "NOM.svg", "le graphique, en SVG")
      .Defaut("GENERIQUEFac.svg")
      .Libre("horizontal", "N|C|CN", "facteur en abscisse ; C : son CPF", PoserAxe("horizontal", &O::horizontal),
             EcrireTexte(&O::horizontal))
      .Montre("TextFH")
      .Libre("vertical", "N|C|CN", "facteur en ordonnée ; C : son CPF"_w, PoserAxe("vertical", &O::vertical),
             EcrireTexte(&O::vertical))
      .Defaut("2")
      .Montre("TextFV")
      .OuiNon("inverserx", &O::inverserX, "renverse l'axe horizontal")
      .Montre("CheckInvX")
      .OuiNon("inversery", &O::inverserY, "renverse l'axe vertical")
      .Montre("CheckInvY")
      .OuiNon("echanger", &O::echanger, "échange les deux axes"_w)
      .Montre("InvXY")
      .OuiNon("pointexact", &O::pointExact, "marque la place exacte, l'intitulé à côté"_w)
      .Montre("PointExact")
      .OuiNon("contributions", &O::contributions, "taille selon la contribution")
      .Montre("CheckContrib")
      .OuiNon("longs", &O::longs, "intitulés longs"_w)
      .Montre("CheckLong")
      .OuiNon("information", &O::information, "ligne d'information sous le graphique")
      .Montre("CheckInfo")
      .OuiNon("individus", &O::individus, "place aussi les individus (BRT=1)")
      .Montre("CheckIndiv")
      .Choix("points", &O::ensemble,
             {{"tous", EnsemblePoints::Tous},
              {"actifs", EnsemblePoints::Actifs},
              {"supplementaires", EnsemblePoints::Supplementaires}},
             "actifs et supplémentaires, ou les uns seulement"_w)
      .Bouton("Opt1", "tous")
      .Bouton("Opt2", "actifs")
      .Bouton("Opt3", "supplementaires")
      .Entier("niveaucpf", &O::niveauCpf, 0, kNiveauCpfAuPlus, "CPF minimum d'un point")
      .Montre("TextBoxVal")
      .Choix("caracteres", &O::taille,
             {{"moyens", TailleTexte::Moyenne}, {"petits", TailleTexte::Petite}, {"grands", TailleTexte::Grande}},
             "taille des caractères"_w)
      .Bouton("Option1", "petits")
      .Bouton("Option2", "moyens")
      .Bouton("Option3", "grands")
      .OuiNon("gras", &O::gras, "caractères gras"_w)
      .Montre("Check1");
}

void DecrireLiens(Description<O>& description) {
  description.OuiNon("pem", &O::liens, "liens du fichier .PEM")
      .Montre("CheckPEM")
      .OuiNon("lignes", &O::liensDeLignes, "liens entre lignes, du fichier .PEL")
      .Montre("ChkLgnPEM")
      .Entier("progressif", &O::progressif, 0, kEntierAuPlus, "nombre de liens montrés, 0 pour tous"_w)
      .Montre("CheckProg")
      .OuiNon("value", &O::values, "écrit la valeur des liens"_w)
      .Montre("BtVal")
      .Bouton("BtNVal", "non")
      .Reel("ecmin", &O::ecMin, -kLimiteDeLienAuPlus, kLimiteDeLienAuPlus, "valeur minimum des liens")
      .Defaut("0, ou 90 pour les liens entre lignes")
      .Montre("EcMinVal")
      .Reel("ecsup", &O::ecSup, -kLimiteDeLienAuPlus, kLimiteDeLienAuPlus, "valeur maximum des liens")
      .Montre("EcSupVal")
      .Choix("mode", &O::mode,
             {{"0", ModeArbre::TousLesLiens},
              {"1", ModeArbre::SaufEntreSupplementaires},
              {"2", ModeArbre::SaufSupplementaires}},
             "liens : 0 tous, 1 sauf entre supplémentaires, 2 sauf avec un supplémentaire"_w)
      .Defaut("selon points")
      .OuiNon("arbre", &O::arbre, "arbre maximum des liens")
      .Montre("CheckArbrMin")
      .OuiNon("pajek", &O::pajek, "écrit les liens dans le fichier Pajek .net"_w)
      .Montre("FichPajek");
}

void DecrireClasses(Description<O>& description) {
  description
      .Choix("cah", &O::cah,
             {{"non", CahDuGraphe::Aucune}, {"lignes", CahDuGraphe::Lignes}, {"couleurs", CahDuGraphe::Couleurs}},
             "arbre de la classification, ou ses classes en couleurs")
      .Montre("CheckCAH")
      .Bouton("BtCouleursNon", "lignes")
      .Bouton("BtCouleursOui", "couleurs")
      .Libre("niveau", "N", "nombre d'étapes de la classification"_w, PoserNiveau, EcrireNiveau)
      .Defaut("toutes les étapes"_w)
      .Montre("ValCAH")
      .Entier("classes", &O::classes, 0, kClassesAuPlus, "niveau qui laisse tant de classes, 0 : celui de niveau="_w)
      .Montre("ValNCla")
      .Entier("tirage", &O::tirage, 0, kEntierAuPlus, "tirage des couleurs des classes au hasard, 0 : à tour de rôle"_w)
      .Libre("ellipses", "concentration,mediane,indicatrice", "ellipses des modalités marquées"_w, PoserEllipses,
             EcrireEllipses)
      .Defaut("aucune")
      .Bouton("CheckEllipseC", "concentration")
      .Bouton("CheckEllipseM", "mediane")
      .Bouton("CheckEllipseI", "indicatrice")
      .Noms("marques", &O::marques, "éléments marqués, par leurs noms ; NOM:2 : le deuxième de ce nom"_w)
      .Defaut("aucune")
      .Montre("TextMarques");
}

void DecrireCadre(Description<O>& description) {
  const std::string zooms = Joindre({Nombre(kZoomAuMoins), "..", Nombre(kZoomAuPlus)});
  const std::string deplacements = Joindre({Nombre(-kDeplacementAuPlus), "..", Nombre(kDeplacementAuPlus)});
  description.Reel("zoomlargeur", &O::zoomLargeur, kZoomAuMoins, kZoomAuPlus, "agrandissement en largeur, %")
      .Valeurs(zooms)
      .Reel("zoomhauteur", &O::zoomHauteur, kZoomAuMoins, kZoomAuPlus, "agrandissement en hauteur, %")
      .Valeurs(zooms)
      .Reel("page", &O::page, kPageAuMoins, kPageAuPlus, "taille de la page autour du graphique, %")
      .Reel("droite", &O::versLaDroite, -kDeplacementAuPlus, kDeplacementAuPlus,
            "déplace l'image vers la droite, millièmes de sa largeur"_w)
      .Valeurs(deplacements)
      .Reel("haut", &O::versLeHaut, -kDeplacementAuPlus, kDeplacementAuPlus,
            "déplace l'image vers le haut, millièmes de sa hauteur"_w)
      .Valeurs(deplacements);
}

Description<O> Decrire() {
  Description<O> description("graphe", "Graphique factoriel : points, liens, classes et ellipses (SVG, rapport .PRT)"_w,
                             Graphe);
  DecrirePoints(description);
  DecrireLiens(description);
  DecrireClasses(description);
  DecrireCadre(description);
  return description;
}

}  // namespace

const Description<OptionsGraphe>& DescriptionGraphe() {
  static const Description<OptionsGraphe> description = Decrire();
  return description;
}

}  // namespace quelvar::factor
