#include "tables/triangle/triang_options.h"

namespace quelvar::tables {

namespace {

using O = OptionsTriang;

using Reglages = std::vector<std::pair<std::string, std::string>>;

// Settings of single texts, "NOM=REGLAGE"; the name may be as long as that of a vertex, and the
// last sign parts them: a setting holds none.
Description<O>::Poser PoserUnReglage(const char* option, Reglages O::*membre) {
  return [option, membre](O& options, const std::string& valeur) {
    const std::size_t egal = valeur.rfind('=');
    if (egal == std::string::npos || egal == 0) RefuserValeur(option, "NOM=REGLAGE", valeur);
    (options.*membre).emplace_back(valeur.substr(0, egal), valeur.substr(egal + 1));
  };
}

std::string NomDuReglage(std::string_view valeur) { return std::string(valeur.substr(0, valeur.rfind('='))); }

Description<O>::Ecrire EcrireReglages(Reglages O::*membre) {
  return [membre](const O& options) {
    std::vector<std::string> textes;
    for (const auto& [nom, reglage] : options.*membre) textes.push_back(Joindre({nom, "=", reglage}));
    return textes;
  };
}

void DecrireDessin(Description<O>& description) {
  description.Image("fichier", &O::fichier, "NOM.svg", "le graphique, en SVG")
      .Defaut("GENERIQUETrg.svg")
      .Choix(
          "forme", [](auto& o) -> auto& { return o.reglages.forme; },
          {{"triangulaire", FormeTriangle::Triangulaire}, {"angledroit", FormeTriangle::AngleDroit}},
          "triangle équilatéral, ou angle droit"_w)
      .Bouton("Option4", "triangulaire")
      .Bouton("Option5", "angledroit")
      .Choix(
          "caracteres", [](auto& o) -> auto& { return o.reglages.taille; },
          {{"moyens", TailleTriangle::Moyenne}, {"petits", TailleTriangle::Petite}, {"grands", TailleTriangle::Grande}},
          "taille des caractères"_w)
      .Bouton("Option6", "petits")
      .Bouton("Option7", "moyens")
      .Bouton("Option8", "grands");
}

void DecrireAffichage(Description<O>& description) {
  description
      .OuiNon(
          "longs", [](auto& o) -> auto& { return o.reglages.intitulesLongs; }, "intitulés longs"_w)
      .Montre("CheckLong")
      .OuiNon(
          "centre", [](auto& o) -> auto& { return o.reglages.centre; }, "affiche le centre")
      .Montre("ChkCentre")
      .OuiNon(
          "troisieme", [](auto& o) -> auto& { return o.reglages.troisieme; }, "affiche la 3e coordonnée"_w)
      .Montre("ChkGauche")
      .OuiNon(
          "traits", [](auto& o) -> auto& { return o.reglages.traits; },
          "trait entre modalités dont les trois premiers caractères sont identiques"_w)
      .Montre("ChkTrait")
      .OuiNon(
          "gras", [](auto& o) -> auto& { return o.reglages.gras; }, "caractères gras"_w)
      .Montre("Check1");
}

// No control holds these: buttons and the mouse move them, step by step, and the marks of the form are those of the
// text that is chosen there.
void DecrireGestes(Description<O>& description) {
  constexpr double kToutLeCote = 100;
  constexpr double kPlusPetite = 100 * kPlusPetiteTaille;
  constexpr double kPlusGrande = 100 * kPlusGrandeTaille;
  description
      .Reel(
          "gauche", [](auto& o) -> auto& { return o.cotes.gauche; }, 0, kToutLeCote, "place du côté gauche"_w)
      .Reel(
          "bas", [](auto& o) -> auto& { return o.cotes.bas; }, 0, kToutLeCote, "place du côté inférieur"_w)
      .Reel(
          "droit", [](auto& o) -> auto& { return o.cotes.droit; }, 0, kToutLeCote, "place du côté droit"_w)
      .Entier("marque", &O::marque, 0, kDerniereMarque, "marque des points : 0 *, sinon taille du cercle")
      .Libre("marques", "NOM=0..5", "marque d'un point seulement ; peut être répété"_w,
             PoserUnReglage("marques", &O::marques), EcrireReglages(&O::marques))
      .RepetableParNom(NomDuReglage)
      .Noms("invisibles", &O::invisibles, "textes et points cachés : titre, sommet1 à sommet3, noms des points"_w)
      .Libre("deplaces", "NOM=DX/DY", "place d'un texte, en points vers la droite et vers le bas ; peut être répété"_w,
             PoserUnReglage("deplaces", &O::deplaces), EcrireReglages(&O::deplaces))
      .RepetableParNom(NomDuReglage)
      .Reel("largeur", &O::largeur, kPlusPetite, kPlusGrande, "largeur du graphique, %")
      .Reel("hauteur", &O::hauteur, kPlusPetite, kPlusGrande, "hauteur du graphique, %")
      .Reel("page", &O::fenetre, kPlusPetite, kPlusGrande, "fenêtre d'impression, %"_w);
}

}  // namespace

const Description<OptionsTriang>& DescriptionTriang() {
  static const Description<O> description = [] {
    Description<O> d("triang", "Graphique triangulaire d'un fichier .TRG (SVG, rapport .prt)", Triang);
    DecrireDessin(d);
    DecrireAffichage(d);
    DecrireGestes(d);
    return d;
  }();
  return description;
}

}  // namespace quelvar::tables
