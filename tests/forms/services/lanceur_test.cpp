// The queue behind a running program: what is asked for during a run comes after it, in its turn, and is never lost;
// and the report that a launch goes on with.
#include "forms/services/lanceur.h"

#include <gtest/gtest.h>

#include "core/programme/annulation.h"
#include "forms/pilote.h"
#include "forms/services/brouillon.h"

namespace {

using essai::Bureau;
using quelvar::Contexte;
using quelvar::Erreur;

TEST(LancerEnsuite, ChacunASonTourQuoiQueFassentLesAutres) {
  QStringList faits;
  Formes formes;
  quelvar::Dialogue ecran;
  Lanceur lanceur(
      formes,
      [&] {
        return Contexte{"/", "ENQ", 2, &ecran};
      },
      [&](const Erreur& erreur) { faits << QStringLiteral("echec %1").arg(erreur.Numero()); }, [] { return true; });
  const auto noter = [&](const char* nom) { return [&faits, nom](const Contexte&) { faits << nom; }; };
  EXPECT_TRUE(lanceur.Lancer([&](const Contexte&) {
    faits << "debut";
    lanceur.LancerEnsuite([&](const Contexte& contexte) {
      faits << QString::fromStdString(contexte.generique);
      lanceur.LancerEnsuite(noter("dernier"));  // behind those that wait already
      throw Erreur(quelvar::kFichierIntrouvable);
    });
    lanceur.LancerEnsuite([](const Contexte&) { throw quelvar::Annulation(); });
    lanceur.LancerEnsuite(noter("troisieme"));
    QCoreApplication::processEvents();  // as the progress display does
    EXPECT_FALSE(lanceur.Lancer(noter("refuse"))) << "told at once, and not kept";
    faits << "fin";
  }));
  EXPECT_EQ(faits, QStringList({"debut", "fin"})) << "not before the handler has come back";
  for (int tour = 0; tour < 10; ++tour) QCoreApplication::processEvents();  // each hands over by an event
  EXPECT_EQ(faits, QStringList({"debut", "fin", "ENQ", QStringLiteral("echec %1").arg(quelvar::kFichierIntrouvable),
                                QStringLiteral("echec %1").arg(quelvar::kArretAnnonce), "troisieme", "dernier"}));
  EXPECT_FALSE(lanceur.EnCours());
}

// Its run ends what it had begun, on its own data set.
struct FormeQuiPart : Forme {
  FormeQuiPart(Services& services, QStringList& faits) : Forme(services) {
    AuDepart([&faits](const Contexte& contexte) { faits << QString::fromStdString(contexte.generique); });
  }
};

TEST(LancerEnsuite, UneFormeQuitteePendantUneExecutionFinitSurSonEnquete) {
  Bureau bureau(2);
  Services& services = bureau.Fenetre().ServicesDesFormes();
  QStringList faits;
  auto* forme = new FormeQuiPart(services, faits);
  services.formes.Presenter(*forme);
  services.Lancer([&](const Contexte&) {
    forme->reject();
    services.session.generique = "AUTRE";
    QCoreApplication::processEvents();
    faits << "fin";
  });
  delete forme;  // it is gone, and the session elsewhere
  QCoreApplication::processEvents();
  EXPECT_EQ(faits, QStringList({"fin", "ENQ"}));
}

// A launch that another run keeps from beginning leaves what the one before has written of their report.
TEST(Brouillon, UnLancementRefuseLaisseLeRapportDuPrecedent) {
  Bureau bureau(2);
  bureau.Ecrire("ENQ.TCR", "d'avant\r\n");
  Lanceur& lanceur = bureau.Fenetre().ServicesDesFormes().lanceur;
  Brouillon rapport(bureau.Fenetre().ServicesDesFormes().ContexteEnCours(), ".TCR", "prepare\r\n");
  EXPECT_FALSE(rapport.Continuer(lanceur, [](const Contexte&) { throw quelvar::Annulation(); }));
  EXPECT_EQ(bureau.Lire("ENQ.TCR"), "d'avant\r\n") << "given up";
  EXPECT_TRUE(rapport.Continuer(lanceur, [](const Contexte&) {}));
  EXPECT_EQ(bureau.Lire("ENQ.TCR"), "prepare\r\n");
  lanceur.Lancer([&](const Contexte&) { EXPECT_FALSE(rapport.Continuer(lanceur, [](const Contexte&) {})); });
  EXPECT_EQ(bureau.Lire("ENQ.TCR"), "prepare\r\n");
}

}  // namespace
