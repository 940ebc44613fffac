// The page of the help as it is published: without the notices of programs that are there.
#include "forms/publication/avisperimes.h"

#include <gtest/gtest.h>

namespace {

TEST(AvisPerimes, NoticesGoWithTheProgramsThatArrive) {
  const QString page =
      "<p class=\"etat\" data-menu=\"mnuTriapl\">pas\nencore</p>\n<p>un</p><p class=\"etat\" "
      "data-menu=\"mnuRien\">non</p>";
  EXPECT_EQ(quelvar::forms::SansAvisPerimes(page), "<p>un</p><p class=\"etat\" data-menu=\"mnuRien\">non</p>");
  EXPECT_EQ(quelvar::forms::SansAvisPerimes("<p>rien</p>"), "<p>rien</p>");
}

}  // namespace
