#include "core/dessin/dessin.h"

#include <gtest/gtest.h>

#include "core/dessin/svg.h"
#include "core/texte/texte.h"

namespace quelvar {
namespace {

// A page of 200 x 100 whose inner zone shows x from 0 to 10 and y upwards from -1 to 1.
Dessin PageDEssai() { return {200, 100, {.gauche = 0, .droite = 10, .haut = 1, .bas = -1}, {20, 10, 160, 80}}; }

TEST(Dessin, EchelleDansLesDeuxSens) {
  const Dessin dessin = PageDEssai();
  const Position page = dessin.VersPage({5, 0.5});
  EXPECT_DOUBLE_EQ(page.x, 100);
  EXPECT_DOUBLE_EQ(page.y, 30);
  const Position retour = dessin.VersUtilisateur(page);
  EXPECT_DOUBLE_EQ(retour.x, 5);
  EXPECT_DOUBLE_EQ(retour.y, 0.5);
}

// The last mark drawn wins; a line is hit along its length only, a hidden layer not at all.
TEST(Dessin, ElementSous) {
  Dessin dessin(100, 100);
  dessin.Designer(1);
  dessin.Ligne({10, 10}, {90, 90});
  dessin.Calquer("points");
  dessin.Designer(2);
  dessin.Cercle({50, 50}, 4, {});
  dessin.Designer(-1);
  dessin.Rectangle({0, 0}, {100, 100}, {});
  EXPECT_EQ(dessin.ElementSous({52, 50}, 1), 2);
  EXPECT_EQ(dessin.ElementSous({20, 21}, 1), 1);
  EXPECT_EQ(dessin.ElementSous({20, 40}, 1), std::nullopt);  // inside the rectangle around the line, far from it
  dessin.Designer(3);
  dessin.Texte({50, 20}, "abc", {.corps = 10, .ancre = Ancre::Fin, .niveau = Niveau::Centre});
  EXPECT_EQ(dessin.ElementSous({45, 20}, 0), 3);
  EXPECT_EQ(dessin.ElementSous({55, 20}, 0), std::nullopt);
}

// A layer that is cut shows nothing outside its zone, and the group of the file says so.
TEST(Dessin, CalqueCoupe) {
  Dessin dessin(100, 100);
  dessin.Calquer("plan");
  dessin.Couper({10, 20, 30, 40});
  dessin.Designer(4);
  dessin.Ligne({0, 50}, {100, 50});
  EXPECT_EQ(dessin.ElementSous({25, 50}, 1), 4);
  EXPECT_EQ(dessin.ElementSous({60, 50}, 1), std::nullopt);
  EXPECT_NE(TexteSvg(dessin).find("<clipPath id=\"coupe1\"><rect x=\"10\" y=\"20\" width=\"30\" height=\"40\"/>"
                                  "</clipPath>\n<g class=\"plan\" clip-path=\"url(#coupe1)\">"),
            std::string::npos);
}

// "Été" in 10 points: E 667, accented letters as the plain ones, t 278, e 556.
TEST(Dessin, MesureDesTextes) {
  EXPECT_NEAR(LargeurTexte("Été"_w, 10), 15.01, 1e-9);
  EXPECT_EQ(LargeurTexte("ÆÐØÞßæðøþ×÷ŸŒ\x7F"_w, 10), LargeurTexte("MDOPsmdop00000", 10))
      << "the nearest letter, or a digit";
  EXPECT_GT(LargeurTexte("abc", 10, true), LargeurTexte("abc", 10));
  const Zone zone = ZoneDuTexte({100, 50}, "00", {.corps = 10, .ancre = Ancre::Milieu, .niveau = Niveau::Haut});
  EXPECT_NEAR(zone.x, 100 - 5.56, 1e-9);
  EXPECT_NEAR(zone.y, 50, 1e-9);
}

TEST(DessinSvg, UneFormeDeChaqueGenre) {
  Dessin dessin(200, 100, {0, 10, 1, -1}, {20, 10, 160, 80});
  dessin.Ligne({0, 0}, {10, 0}, {Couleur::Noir, 0.5, StyleTrait::Tirets});
  dessin.Calquer("points");
  dessin.Designer(7);
  dessin.Cercle({5, 0.5}, 2, {Couleur::Blanc, 1}, {.epaisseur = 0});
  dessin.Texte({5, 0.5}, "Été <\"&>\x01"_w, {.corps = 10, .gras = true, .ancre = Ancre::Fin, .niveau = Niveau::Haut},
               {3, -1});
  EXPECT_EQ(TexteSvg(dessin),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"200pt\" height=\"100pt\" viewBox=\"0 0 200 100\" "
            "font-family=\"Liberation Sans, Arial, Helvetica, sans-serif\">\n"
            "<rect width=\"200\" height=\"100\" fill=\"#ffffff\"/>\n"
            "<g>\n"
            "<polyline points=\"20,50 180,50\" fill=\"none\" stroke=\"#000000\" stroke-width=\"0.5\" "
            "stroke-dasharray=\"4 2\"/>\n"
            "</g>\n"
            "<g class=\"points\">\n"
            "<circle data-id=\"7\" cx=\"100\" cy=\"30\" r=\"2\" fill=\"#ffffff\" stroke=\"none\"/>\n"
            "<text data-id=\"7\" x=\"103\" y=\"36.3\" font-size=\"10\" fill=\"#000000\" font-weight=\"bold\" "
            "text-anchor=\"end\">\xC3\x89t\xC3\xA9 &lt;&quot;&amp;&gt;</text>\n"
            "</g>\n"
            "</svg>\n");
}

}  // namespace
}  // namespace quelvar
