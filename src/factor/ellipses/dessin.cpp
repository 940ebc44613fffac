#include "factor/ellipses/dessin.h"

namespace quelvar::factor {

namespace {

std::string_view LegendeDe(GenreEllipse genre) {
  switch (genre) {
    case GenreEllipse::Concentration: return " de concentration ";
    case GenreEllipse::Mediane: return " médiane "_w;
    case GenreEllipse::Indicatrice: break;
  }
  return " indicatrice ";
}

}  // namespace

std::string SuiteDuTitre(const ChoixEllipses& choix) {
  if (choix.Aucune()) return {};
  std::string suite = "  Ellipse(s) ";
  for (const GenreEllipse genre : kGenresEllipse)
    if (choix.Voulue(genre)) suite += LegendeDe(genre);
  return suite;
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
