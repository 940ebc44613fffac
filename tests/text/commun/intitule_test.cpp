#include "text/commun/intitule.h"

#include <gtest/gtest.h>

#include "core/texte/texte.h"

using namespace quelvar::text;

namespace quelvar {
namespace {

TEST(MotsDeLIntitule, ACodeIsTakenOffOnlyWhereItsWordCanHaveIt) {
  using Mots = std::vector<std::string>;
  const struct {
    std::string intitule;
    std::string_view mot;
    Mots cherches;
  } cas[] = {
      {"tra1travailler", "travailler", {"travailler"}},
      {"tr12travail   ", "travail", {"travail"}},
      {"1024zone      ", "zone", {"zone"}},
      {"vie vie       ", "vie", {"vie"}},
      {"et/oet/ou     ", "et/ou", {"et/ou"}},
      {"_arg_argent*", "_argent", {"_argent"}},
      {"_   _*", "_", {"_"}},
      {"_arg_argentine*", "_argentine", {"_argentine"}},
      {"de", "de", {"de"}},
      {std::string("données"_w), "données"_w, {std::string("données"_w)}},
      {"travailler", "travailler", {"travailler"}},
      {"image/images", "image/images", {"image", "images"}},
      {"le chat, la souris", "le chat, la souris", {"le", "chat", "la", "souris"}},
  };
  for (const auto& [intitule, mot, cherches] : cas) {
    EXPECT_EQ(MotDeLIntitule(intitule), mot);
    EXPECT_EQ(MotsDeLIntitule(intitule), cherches);
  }
}

}  // namespace
}  // namespace quelvar
