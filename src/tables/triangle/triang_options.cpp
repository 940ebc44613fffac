#include "tables/triangle/triang_options.h"

namespace quelvar::tables {

namespace {

using O = OptionsTriang;

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
    d.Texte("fichier", &O::fichier, "NOM.svg", "le graphique, en SVG")
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
        .Entier("largeur", &O::largeur, 20, 1000, "largeur du graphique, %")
        .Entier("hauteur", &O::hauteur, 20, 1000, "hauteur du graphique, %")
        .Entier("page", &O::fenetre, 20, 1000, "fenêtre d'impression, %"_w);
    return d;
  }();
  return description;
}

}  // namespace quelvar::tables
