// A recoding that is cut at any point leaves its inputs whole, and the new generic as it was, absent, or complete.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <random>

#include "core/fichiers/fichiers.h"
#include "core/fichiers/generiquetenu.h"
#include "sorts/recodage/recodage.h"
#include "support/environnement.h"

using namespace quelvar::sorts;

namespace quelvar {
namespace {

using Contenu = std::map<std::string, std::string>;

constexpr int kLignes = 3000;

class Interruption : public ::testing::Test {
 protected:
  Interruption() {
    std::string donnees;
    for (int i = 0; i < kLignes; ++i) donnees += std::to_string(100000 + i) + "1212121212121212121212121212121212\r\n";
    entrees_ = {
        {"ENQ.DAT", donnees},
        {"ENQ.MOD", "ENQ\r\n\r\nAAA1   un\r\n"},
        {"ENQ.POS", "ENQ\r\n " + std::to_string(kLignes) +
                        " \r\nAAA   1 9 1=2\r\nBBB   7 2 1=2/2=1\r\nCCC   8 2\r\n$$VIT\r\nAAA     2\r\n$$\r\n"}};
    ancienne_ = {{"ENR.DAT", "1\r\n"}, {"ENR.MOD", "ancien"}, {"ENR.POS", "ancien\r\n 1 \r\nAAA   1 9\r\n"}};
  }

  // Puts the inputs in place, and the former new generic where there is one.
  void Preparer(bool avecAncienne) {
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin())) std::filesystem::remove(f);
    for (const auto& [nom, octets] : entrees_) essai::EcrireOctets(dossier_.Chemin() / nom, octets);
    if (!avecAncienne) return;
    for (const auto& [nom, octets] : ancienne_) essai::EcrireOctets(dossier_.Chemin() / nom, octets);
  }

  Fin Executer() const {
    Dialogue dialogue;
    const Contexte contexte{dossier_.Chemin(), "ENQ", 1, &dialogue};
    return Recodage(contexte, {});
  }

  // Runs in a process of its own, prepared by `avant`; returns its id.
  pid_t Lancer(const std::function<void()>& avant) const {
    const pid_t enfant = fork();
    if (enfant != 0) return enfant;
    avant();
    _exit(Executer() == Fin::Normale ? 0 : 1);
  }

  Contenu Lire() const {
    Contenu contenu;
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin()))
      contenu[f.path().filename()] = LireOctets(f.path());
    return contenu;
  }

  static bool Contient(const Contenu& tout, const Contenu& partie) {
    return std::ranges::all_of(partie, [&](const auto& f) {
      const auto trouve = tout.find(f.first);
      return trouve != tout.end() && trouve->second == f.second;
    });
  }

  void Verifier(const Contenu& complete, bool avecAncienne, const std::string& quand) const {
    // The next program of the new generic finishes or undoes a set that was cut.
    for (const char* generique : {"ENQ", "ENR"}) const GeneriqueTenu suivant(dossier_.Chemin(), generique, "suite");
    const Contenu etat = Lire();
    EXPECT_TRUE(Contient(etat, entrees_)) << quand;
    const bool ancienne = avecAncienne && Contient(etat, ancienne_);
    EXPECT_TRUE(ancienne || !etat.contains("ENR.POS") || Contient(etat, complete)) << quand;
  }

  // The files of the new generic after a run that nothing stops, and its duration.
  Contenu Complete(std::chrono::duration<double>& duree) {
    Preparer(true);
    const auto debut = std::chrono::steady_clock::now();
    int etat = 0;
    waitpid(Lancer([] {}), &etat, 0);
    duree = std::chrono::steady_clock::now() - debut;
    EXPECT_EQ(etat, 0);
    Contenu complete = Lire();
    std::erase_if(complete, [](const auto& f) {
      return f.first != "ENR.DAT" && f.first != "ENR.POS" && f.first != "ENR.MOD" && f.first != "ENR.MO2";
    });
    EXPECT_EQ(complete.size(), 4U);
    return complete;
  }

  essai::DossierTemporaire dossier_;
  Contenu entrees_, ancienne_;
};

TEST_F(Interruption, KilledAtAnyInstant) {
  std::chrono::duration<double> duree{};
  Contenu complete = Complete(duree);
  complete.erase("ENR.MO2");
  std::mt19937 hasard(20170502);
  // One instant drawn in each of equal slices of the run: forking is what costs, above all under the sanitizers.
  constexpr int instants = 50;
  std::uniform_real_distribution<double> dansLaTranche(0, 1.1 / instants);
  for (int i = 0; i < instants; ++i) {
    const bool avecAncienne = i % 2 == 0;
    Preparer(avecAncienne);
    const auto attente =
        std::chrono::duration_cast<std::chrono::microseconds>((1.1 * i / instants + dansLaTranche(hasard)) * duree);
    const pid_t enfant = Lancer([] {});
    usleep(static_cast<useconds_t>(attente.count()));
    kill(enfant, SIGKILL);
    waitpid(enfant, nullptr, 0);
    Verifier(complete, avecAncienne, "killed after " + std::to_string(attente.count()) + " microseconds");
  }
}

TEST_F(Interruption, NoRoomOnTheDisk) {
  std::chrono::duration<double> duree{};
  const Contenu complete = Complete(duree);
  const std::size_t taille = complete.at("ENR.DAT").size();
  for (const std::size_t place : {std::size_t{0}, std::size_t{10}, std::size_t{1000}, taille / 2, taille - 1}) {
    Preparer(true);
    int etat = 0;
    waitpid(Lancer([place] {
              signal(SIGXFSZ, SIG_IGN);
              const rlimit limite{place, place};
              setrlimit(RLIMIT_FSIZE, &limite);
            }),
            &etat, 0);
    EXPECT_TRUE(WIFEXITED(etat) && WEXITSTATUS(etat) == 1) << place;
    const Contenu apres = Lire();
    EXPECT_TRUE(Contient(apres, entrees_) && Contient(apres, ancienne_)) << place;
    EXPECT_LE(apres.size(), 7U) << "a scratch file stays: " << place;
  }
}

TEST_F(Interruption, DirectoryThatCannotBeWritten) {
  Preparer(true);
  const Contenu avant = Lire();
  chmod(dossier_.Chemin().c_str(), 0555);
  int etat = 0;
  waitpid(Lancer([] {
            if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
          }),
          &etat, 0);
  chmod(dossier_.Chemin().c_str(), 0755);
  EXPECT_TRUE(WIFEXITED(etat) && WEXITSTATUS(etat) == 1);
  EXPECT_EQ(Lire(), avant);
}

}  // namespace
}  // namespace quelvar
