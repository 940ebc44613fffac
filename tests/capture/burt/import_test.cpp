#include "capture/burt/import.h"

#include "core/programme/annulation.h"
#include "support/programme.h"

using namespace quelvar;
using namespace quelvar::capture;

using ImportBurtTest = essai::RunDeProgramme;

TEST_F(ImportBurtTest, CopiesDesAnciens) {
  for (const char* nom : {"ENQ.BRT", "ENQ.MOD", "ENQ.POS", "ENQ.MO2", "ENQ.IMP"})
    Ecrire(nom, std::string(nom) + "\r\n");
  Ecrire("SAS.TXT", "a 4 0\r\nb 0 6\r\n");
  const auto avant = Fichiers();
  dialogue_.saisir = [](std::string_view, std::string_view) -> std::string { throw Annulation(); };
  EXPECT_THROW(ImportBurt(contexte_, {"SAS.TXT"}), Annulation);
  EXPECT_EQ(Fichiers(), avant) << "one who gives up leaves no trace";

  Ecrire("SAS.TXT", "a 4 0\r\nb x 6\r\n");
  EXPECT_EQ(ImportBurt(contexte_, {"SAS.TXT"}), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.BR2") + Lire("ENQ.MO2") + Lire("ENQ.PO2"), "ENQ.BRT\r\nENQ.MOD\r\nENQ.POS\r\n")
      << "a table that can't be read leaves the copies that the report tells";
  EXPECT_EQ(Lire("ENQ.MO3"), "ENQ.MO2\r\n");
  EXPECT_EQ(Lire("ENQ.MOD"), "ENQ.MOD\r\n");
  EXPECT_TRUE(Dit("Il est sauvegardé sous le nom ENQ.BR2\r\n"_w)) << montre_;
}
