#include "core/document/empreinte.h"

#include <gtest/gtest.h>

#include <chrono>

#include "support/environnement.h"

namespace quelvar {
namespace {

TEST(Empreinte, ContentDecides) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "ENQ.POS";
  essai::EcrireOctets(fichier, "un\r\n");
  Empreinte connue = EmpreinteDe(fichier, "un\r\n");
  const auto instant = connue.instant;
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, true), SurDisque::Inchange);

  // Only touched: not a change, and the next look is quick again.
  std::filesystem::last_write_time(fichier, instant + std::chrono::seconds(5));
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Inchange);
  EXPECT_EQ(connue.instant, instant + std::chrono::seconds(5));

  // Same size, same time: only a thorough look finds it.
  essai::EcrireOctets(fichier, "de\r\n");
  std::filesystem::last_write_time(fichier, connue.instant);
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Inchange);
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, true), SurDisque::Modifie);

  std::filesystem::last_write_time(fichier, instant + std::chrono::seconds(9));
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Modifie);
  essai::EcrireOctets(fichier, "trois\r\n");
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Modifie);
  std::filesystem::remove(fichier);
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Disparu);
}

TEST(Empreinte, WithoutContentTheTimeDecides) {
  const essai::DossierTemporaire dossier;
  const Chemin fichier = dossier.Chemin() / "LONG.TCR";
  essai::EcrireOctets(fichier, "un\r\n");
  Empreinte connue = EmpreinteSansContenu(fichier);
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, true), SurDisque::Inchange);
  std::filesystem::last_write_time(fichier, connue.instant + std::chrono::seconds(5));
  EXPECT_EQ(ComparerAvecDisque(fichier, connue, false), SurDisque::Modifie);
}

}  // namespace
}  // namespace quelvar
