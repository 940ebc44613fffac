#include "tables/triangle/triangle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "core/dessin/svg.h"
#include "support/programme.h"
#include "tables/triangle/triang_options.h"

namespace quelvar {

using namespace quelvar::tables;

namespace {

FichierTrg TrgDe(std::initializer_list<std::array<float, 3>> parts) {
  FichierTrg trg{"Titre", {"Un", "Deux", "Trois"}, {}, {}, {}};
  for (const std::array<float, 3>& p : parts)
    trg.points.push_back({"P" + std::to_string(trg.points.size()) + "  ", "point", p, {}});
  return trg;
}

// Where the mark of a point stands in the drawing; nothing when it is left out.
std::optional<Position> MarqueDe(const EtatTriangle& etat, std::size_t point) {
  const Dessin dessin = DessinerTriangle(etat);
  for (const FormeDessinee& forme : dessin.Formes())
    if (forme.genre == GenreForme::Cercle && forme.id == static_cast<int>(point + kEntreeDuPremierPoint))
      return dessin.Points(forme)[0];
  return std::nullopt;
}

std::size_t TextesDe(const Dessin& dessin, std::string_view texte) {
  std::size_t nombre = 0;
  for (const FormeDessinee& forme : dessin.Formes())
    nombre += forme.genre == GenreForme::Texte && forme.texte == texte ? 1U : 0U;
  return nombre;
}

TEST(ProjeterTriangle, PutsTheVerticesWhereTheyBelong) {
  const Position sommet = ProjeterTriangle(FormeTriangle::Triangulaire, 0, 100);
  EXPECT_DOUBLE_EQ(sommet.x, 50);
  EXPECT_DOUBLE_EQ(sommet.y, 86.6025404);
  EXPECT_DOUBLE_EQ(ProjeterTriangle(FormeTriangle::AngleDroit, 30, 20).x, 30);
  EXPECT_DOUBLE_EQ(ProjeterTriangle(FormeTriangle::AngleDroit, 30, 20).y, 20);
}

TEST(DessinerTriangle, PointsStandAtTheirPercentages) {
  EtatTriangle etat = NouveauTriangle(TrgDe({{0, 0, 100}, {100, 0, 0}, {0, 100, 0}, {20, 30, 50}, {0, 0, 0}}));
  etat.reglages.forme = FormeTriangle::AngleDroit;
  const Position attendues[] = {{0, 0}, {100, 0}, {0, 100}, {20, 30}, {0, 0}};
  for (std::size_t i = 0; i < std::size(attendues); ++i) {
    const std::optional<Position> place = MarqueDe(etat, i);
    ASSERT_TRUE(place) << i;
    EXPECT_DOUBLE_EQ(place->x, attendues[i].x);
    EXPECT_DOUBLE_EQ(place->y, attendues[i].y);
  }
  etat.axes = {2, 0, 1};
  EXPECT_DOUBLE_EQ(MarqueDe(etat, 3)->x, 50);
  EXPECT_DOUBLE_EQ(MarqueDe(etat, 3)->y, 20);
}

// Of an oblique triangle the left side bears the third percentage, of an upright one the second, which is its height.
TEST(DessinerTriangle, TheLeftSideOfARightAngleIsItsOrdinate) {
  for (const FormeTriangle forme : {FormeTriangle::Triangulaire, FormeTriangle::AngleDroit}) {
    EtatTriangle etat = NouveauTriangle(TrgDe({}));
    etat.reglages.forme = forme;
    const Dessin dessin = DessinerTriangle(etat);
    std::string valeurs;
    for (const FormeDessinee& f : dessin.Formes())
      if (f.genre == GenreForme::Texte && f.police.ancre == Ancre::Fin)
        valeurs +=
            f.texte + "@" + std::to_string(std::lround(dessin.Points(f)[0].y / ProjeterTriangle(forme, 0, 1).y)) + " ";
    EXPECT_EQ(valeurs.substr(0, 17), forme == FormeTriangle::AngleDroit ? "0@0 10@10 20@20 3" : "0@100 10@90 20@80");
  }
}

TEST(DessinerTriangle, SidesMovedInwardLeaveOutPointsBeyondThem) {
  // Percentages that round to more than 100 stay inside a side that nobody moved.
  EtatTriangle etat = NouveauTriangle(TrgDe({{5, 50, 45}, {50, 5, 45}, {60, 40.1F, 0}, {40, 30, 30}}));
  const auto montres = [&] {
    std::string texte;
    for (std::size_t i = 0; i < 4; ++i) texte += MarqueDe(etat, i) ? '1' : '0';
    return texte;
  };
  EXPECT_EQ(montres(), "1111");
  etat.coefficient = Coefficient::Fort;
  DeplacerCote(etat, CoteTriangle::Gauche, true);
  EXPECT_EQ(montres(), "0111");
  DeplacerCote(etat, CoteTriangle::Bas, true);
  EXPECT_EQ(montres(), "0011");
  DeplacerCote(etat, CoteTriangle::Droit, true);
  EXPECT_EQ(montres(), "0001");
  for (int i = 0; i < 20; ++i) DeplacerCote(etat, CoteTriangle::Droit, true);
  EXPECT_DOUBLE_EQ(etat.cotes.droit - etat.cotes.gauche - etat.cotes.bas, 1);
  for (const CoteTriangle cote : {CoteTriangle::Gauche, CoteTriangle::Bas, CoteTriangle::Droit})
    for (int i = 0; i < 20; ++i) DeplacerCote(etat, cote, false);
  EXPECT_EQ(etat.cotes, CotesTriangle());
}

TEST(DessinerTriangle, LabelsDoNotCoverEachOther) {
  FichierTrg trg{"Titre", {"Un", "Deux", "Trois"}, {}, {}, {}};
  std::mt19937 hasard(3);
  for (int i = 0; i < 40; ++i) {
    const auto a = static_cast<float>(30 + hasard() % 12);
    const auto b = static_cast<float>(30 + hasard() % 12);
    trg.points.push_back({"Q" + std::to_string(10 + i) + " ", "point", {a, b, 100 - a - b}, {}});
  }
  const Dessin dessin = DessinerTriangle(NouveauTriangle(trg));
  std::vector<Zone> zones;
  int recouvrements = 0;
  for (const FormeDessinee& forme : dessin.Formes()) {
    if (forme.genre != GenreForme::Texte || forme.id < static_cast<int>(kEntreeDuPremierPoint)) continue;
    const Zone zone = dessin.Etendue(forme);
    for (const Zone& autre : zones) recouvrements += autre.Touche(zone) ? 1 : 0;
    zones.push_back(zone);
  }
  EXPECT_EQ(zones.size(), 40U);
  EXPECT_EQ(recouvrements, 0);
}

TEST(DessinerTriangle, ALabelIsMovedFromWhereItIsSeen) {
  EtatTriangle etat = NouveauTriangle(TrgDe({{20, 30, 50}, {20, 30, 50}, {20, 30, 50}}));
  etat.choisie = kEntreeDuPremierPoint + 2;
  const auto place = [&] {
    const Dessin dessin = DessinerTriangle(etat);
    for (const FormeDessinee& forme : dessin.Formes())
      if (forme.genre == GenreForme::Texte && forme.id == static_cast<int>(etat.choisie)) return dessin.Etendue(forme);
    return Zone{};
  };
  const Zone avant = place();
  DeplacerTexte(etat, SensTriangle::Droite);
  DeplacerTexte(etat, SensTriangle::Haut);
  EXPECT_NEAR(place().x, avant.x + 5, 1e-9);
  EXPECT_NEAR(place().y, avant.y - 5, 1e-9);
}

TEST(DessinerTriangle, OptionsShowWhatTheySay) {
  EtatTriangle etat = NouveauTriangle(TrgDe({{20, 30, 50}, {10, 10, 80}}));
  etat.trg.points[0].nom = "AGE1";
  etat.trg.points[1].nom = "AGE2";
  EXPECT_EQ(TextesDe(DessinerTriangle(etat), "AGE1"), 1U);
  EXPECT_EQ(TextesDe(DessinerTriangle(etat), "+"), 0U);
  const auto lignes = [&] {
    const Dessin dessin = DessinerTriangle(etat);
    return std::count_if(dessin.Formes().begin(), dessin.Formes().end(), [](const FormeDessinee& f) {
      return f.genre == GenreForme::Ligne && f.plume.couleur == Couleur::Rouge;
    });
  };
  EXPECT_EQ(lignes(), 0);
  etat.reglages = {.intitulesLongs = true, .centre = true, .troisieme = true, .traits = true};
  EXPECT_EQ(TextesDe(DessinerTriangle(etat), "point (50)"), 1U);
  EXPECT_EQ(TextesDe(DessinerTriangle(etat), "+"), 1U);
  EXPECT_EQ(lignes(), 1);
  etat.entrees[kEntreeDuPremierPoint].invisible = true;
  EXPECT_EQ(TextesDe(DessinerTriangle(etat), "point (50)"), 0U);
  EXPECT_EQ(lignes(), 0);
  ReinitialiserTriangle(etat);
  EXPECT_EQ(etat.reglages, ReglagesTriangle());
  EXPECT_TRUE(MarqueDe(etat, 0));
}

TEST(OptionsDuTriangle, WhatTheFormShowsIsDrawnAgain) {
  EtatTriangle etat = NouveauTriangle(TrgDe({{20, 30, 50}, {20, 30, 50}, {10, 10, 80}, {60, 30, 10}}));
  etat.trg.points[0].nom = etat.trg.points[1].nom = "AGE1";
  etat.reglages = {.forme = FormeTriangle::AngleDroit, .intitulesLongs = true, .traits = true};
  etat.dimension = DimensionTriangle::Largeur;
  for (int i = 0; i < 3; ++i) ChangerTaille(etat, true);
  ChangerFenetreTriangle(etat, true);
  DeplacerCote(etat, CoteTriangle::Bas, true);
  etat.entrees[0].invisible = true;
  etat.entrees[5].marque = 0;
  for (const std::size_t rang : {2U, 5U}) {
    etat.choisie = rang;
    DeplacerTexte(etat, Position{3.25, -7});
  }
  const OptionsTriang options = OptionsDuTriangle(etat);
  EXPECT_EQ(options.invisibles, std::vector<std::string>{"titre"});
  EXPECT_EQ(options.marques, (std::vector<std::pair<std::string, std::string>>{{"AGE1#2", "0"}}));
  EXPECT_EQ(TexteSvg(DessinerTriangle(ReglerTriangle(options, etat.trg))), TexteSvg(DessinerTriangle(etat)));
}

TEST(OptionsDuTriangle, WhatThePictureLacksIsRefused) {
  const FichierTrg trg = TrgDe({{20, 30, 50}});
  const OptionsTriang refusees[] = {
      {.invisibles = {"AGE9"}}, {.marques = {{"titre", "6"}}}, {.deplaces = {{"sommet1", "5"}}}};
  for (const OptionsTriang& options : refusees) EXPECT_THROW(ReglerTriangle(options, trg), UsageIncorrect);
  OptionsTriang options;
  for (const auto& [nom, valeur] : {std::pair("gauche", "-1"), {"droit", "101"}, {"largeur", "19.5"}, {"page", "1001"}})
    EXPECT_THROW(DescriptionTriang().PoserUne(options, nom, valeur), UsageIncorrect) << nom;
}

class RunTriang : public essai::RunDeProgramme {};

TEST_F(RunTriang, TheReportEndsBehindThePicture) {
  Ecrire("ENQ.TRG", "T\r\nA\r\nB\r\nC\r\n AGE 10.0 20.0 60.0 Age\r\nAB\r\n\r\nhors liste\r\n");
  ASSERT_EQ(Triang(contexte_, {}), Fin::Normale);
  const std::string rapport = Lire("ENQ.prt");
  EXPECT_EQ(
      rapport.substr(rapport.find("Titre")),
      std::string("Titre : T\r\nIntitulés des sommets \r\nA\r\nB\r\nC\r\nListe des valeurs\r\n AGE  10.0 20.0 60.0 "
                  "Age\r\nAB   \r\nFin normale du programme\r\n"_w));
  EXPECT_TRUE(Existe("ENQTrg.svg"));
  ASSERT_EQ(boites_.size(), 3U);  // what is wrong with the points, and the name of the picture
  EXPECT_TRUE(boites_[0].starts_with(
      "Points dont un pourcentage n'est pas un nombre : 1, le premier ligne 6, colonne 5, AB (absent)."));
  EXPECT_TRUE(
      boites_[1].starts_with("Points dont les trois pourcentages ne font pas 100 : 1, le premier ligne 5, AGE (90)."));
  Ecrire("ENQ.TRG", "T\r\nA\r\nB\r\nC\r\nAGE1 10.0 20.0 70.0\r\nAGE2 12,5 37.5 50.0\r\nAGE3 abc  20.0 80.0\r\n");
  boites_.clear();
  ASSERT_EQ(Triang(contexte_, {}), Fin::Normale);
  EXPECT_TRUE(boites_[0].starts_with(
      "Points dont un pourcentage n'est pas un nombre : 2, le premier ligne 6, colonne 5, AGE2 (12,5)."));
  Ecrire("ENQ.TRG", "T\r\nA\r\nB\r\nC\r\nAGE1 60.0 50.0-10.0\r\nAGE2  0.0 -0.5100.5\r\n");
  boites_.clear();
  ASSERT_EQ(Triang(contexte_, {}), Fin::Normale);
  EXPECT_EQ(boites_[0],
            "Points dont un pourcentage est négatif : 2, le premier ligne 5, AGE1 (-10). Ils sont hors du triangle. "
            "Vérifiez le fichier ENQ.TRG"_w);
  Ecrire("ENQ.TRG", "T\r\nA\r\nB\r\nC\r\n");
  boites_.clear();
  OptionsTriang options;
  options.cotes.droit = 0;
  EXPECT_EQ(Triang(contexte_, options), Fin::Arret);
  EXPECT_EQ(boites_.size(), 1U);  // no point at all
}

}  // namespace
}  // namespace quelvar
