#include "tables/triangle/triang_options.h"

namespace quelvar::tables {

namespace {

using O = OptionsTriang;

using Reglages = std::vector<std::pair<std::string, std::string>>;

// Settings of single texts, "NOM=REGLAGE"; the name may be as long as that of a vertex.
Description<O>::Poser PoserUnReglage(const char* option, Reglages O::*membre) {
  return [option, membre](O& options, const std::string& valeur) {
    const std::size_t egal = valeur.rfind('=');
    if (egal == std::string::npos || egal == 0) RefuserValeur(option, "NOM=REGLAGE", valeur);
    (options.*membre).emplace_back(valeur.substr(0, egal), valeur.substr(egal + 1));
  };
}

Description<O>::Ecrire EcrireReglages(Reglages O::*membre) {
  return [membre](const O& options) {
    std::vector<std::string> textes;
    for (const auto& [nom, reglage] : options.*membre) textes.push_back(Joindre({nom, "=", reglage}));
    return textes;
  };
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

}  // namespace

const Description<OptionsTriang>& DescriptionTriang() {
  static const Description<O> description = [] {
    Description<O> d("triang", "Graphique triangulaire d'un fichier .TRG (SVG, rapport .prt)", Triang);
    d.Image("fichier", &O::fichier, "NOM.svg", "le graphique, en SVG")
        .Defaut("GENERIQUETrg.svg")
        .Choix(
            "forme", [](auto& o) -> auto& { return o.reglages.forme; },
            {{"triangulaire", FormeTriangle::Triangulaire}, {"angledroit", FormeTriangle::AngleDroit}},
            "triangle équilatéral, ou angle droit"_w)
        .Choix(
            "caracteres", [](auto& o) -> auto& { return o.reglages.taille; },
            {{"moyens", TailleTriangle::Moyenne},
             {"petits", TailleTriangle::Petite},
             {"grands", TailleTriangle::Grande}},
            "taille des caractères"_w);
    DecrireAffichage(d);
    d.Reel(
         "gauche", [](auto& o) -> auto& { return o.cotes.gauche; }, "place du côté gauche, de 0 à 100"_w)
        .Reel(
            "bas", [](auto& o) -> auto& { return o.cotes.bas; }, "place du côté inférieur, de 0 à 100"_w)
        .Reel(
            "droit", [](auto& o) -> auto& { return o.cotes.droit; }, "place du côté droit, de 0 à 100"_w)
        .Entier("marque", &O::marque, 0, 5, "marque des points : 0 *, sinon taille du cercle")
        .Libre("marques", "NOM=0..5", "marque d'un point seulement ; peut être répété"_w,
               PoserUnReglage("marques", &O::marques), EcrireReglages(&O::marques))
        .Repetable()
        .Noms("invisibles", &O::invisibles, "textes et points cachés : titre, sommet1 à sommet3, noms des points"_w)
        .Libre("deplaces", "NOM=DX/DY",
               "place d'un texte, en points vers la droite et vers le bas ; peut être répété"_w,
               PoserUnReglage("deplaces", &O::deplaces), EcrireReglages(&O::deplaces))
        .Repetable()
        .Reel("largeur", &O::largeur, "largeur du graphique, %")
        .Reel("hauteur", &O::hauteur, "hauteur du graphique, %")
        .Reel("page", &O::fenetre, "fenêtre d'impression, %"_w);
    return d;
  }();
  return description;
}

}  // namespace quelvar::tables
