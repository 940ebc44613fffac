// A drawing as bytes of a file, and as it is seen under the mouse.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

#include "core/panne/erreur.h"
#include "forms/images/rendudessin.h"
#include "forms/images/vuedessin.h"

using namespace quelvar::forms;

namespace {

TEST(RenduDessin, QuatreFormats) {
  quelvar::Dessin dessin(100, 50);
  dessin.Texte({10, 20}, "abc");
  const std::pair<const char*, std::string_view> debuts[] = {
      {"a.bmp", "BM"}, {"a.png", "\x89PNG"}, {"a.SVG", "<?xml"}, {"a.pdf", "%PDF"}};
  for (const auto& [fichier, debut] : debuts)
    EXPECT_TRUE(OctetsDuDessin(fichier, dessin).starts_with(debut)) << fichier;
  EXPECT_THROW(OctetsDuDessin("a.gif", dessin), quelvar::Erreur);
}

TEST(VueDessin, ZoomAutourDeLaSouris) {
  VueDessin vue;
  vue.resize(400, 300);
  vue.Montrer(quelvar::Dessin(800, 600));
  vue.show();
  EXPECT_LT(vue.Echelle(), 0.52);  // shown whole
  vue.Zoomer(8);
  const QPointF place(120, 80);
  const QPointF avant = vue.VersPage(place);
  QWheelEvent molette(place, vue.viewport()->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
  QApplication::sendEvent(vue.viewport(), &molette);
  EXPECT_NEAR(vue.VersPage(place).x(), avant.x(), 1);
  EXPECT_NEAR(vue.VersPage(place).y(), avant.y(), 1);
  QTest::keyClick(&vue, Qt::Key_0);
  EXPECT_LT(vue.Echelle(), 0.52);
}

}  // namespace
