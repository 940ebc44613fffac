// A set of files that is cut or fails at any system call of its commit is the former set or the new one, and the next
// program of the generic finds it so.
#include "core/fichiers/jeu.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <functional>
#include <map>

#include "core/fichiers/reprise.h"
#include "core/fichiers/signaux.h"
#include "core/fichiers/systeme/appels.h"
#include "support/environnement.h"
#include "support/erreur.h"

namespace quelvar {
namespace {

using Contenu = std::map<std::string, std::string>;

int appelsVus = 0;
int appelVise = 0;
int codeVise = 0;  // errno of the call aimed at; 0 kills the process there
bool sansEchange = false;
bool sansRetour = false;  // no file can be cut back

int Compter(const char* appel) {
  if (++appelsVus == appelVise) {
    if (codeVise == 0) ::kill(::getpid(), SIGKILL);
    return codeVise;
  }
  if (sansRetour && std::string_view(appel) == "raccourcir") return EIO;
  return sansEchange && std::string_view(appel) == "echanger" ? ENOSYS : 0;
}

class Jeu : public testing::Test {
 protected:
  Jeu() {
    avant_ = {{"ENQ.BRT", "ancienne table"},
              {"ENQ.MOD", "anciens noms"},
              {"ENQ.PEM", "anciens liens"},
              {"enq.pos", "meme dictionnaire"}};
    apres_ = {{"ENQ.BRT", std::string(300000, 'b')},
              {"ENQ.MOD", "nouveaux noms"},
              {"ENQ.CDG", "codage"},
              {"enq.pos", "meme dictionnaire"}};
  }
  ~Jeu() override {
    appels::PoserSonde(nullptr);
    sansEchange = false;
    sansRetour = false;
  }

  void Preparer() {
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin())) std::filesystem::remove(f);
    for (const auto& [nom, octets] : avant_) essai::EcrireOctets(dossier_.Chemin() / nom, octets);
  }

  void Ecrire() const {
    JeuDeFichiers jeu(dossier_.Chemin(), "ENQ");
    jeu.Ouvrir("ENQ.BRT", Nature::Refaisable).Ecrire(apres_.at("ENQ.BRT"));
    jeu.Ouvrir("ENQ.CDG", Nature::Refaisable).Ecrire(apres_.at("ENQ.CDG"));
    jeu.Ouvrir("ENQ.MOD", Nature::Unique).Ecrire(apres_.at("ENQ.MOD"));
    jeu.Ouvrir("ENQ.POS", Nature::Unique).Ecrire(apres_.at("enq.pos"));
    jeu.Effacer("ENQ.PEM");
    jeu.Effacer("ENQ.PEL");
    if (allongee_) jeu.Allonger("ENQ.DAT", "un autre individu\r\n", Nature::Unique);
    jeu.Valider();
  }

  // The set has a file that grows at its end besides.
  void Allonger() {
    allongee_ = true;
    avant_["ENQ.DAT"] = "un individu\r\n";
    apres_["ENQ.DAT"] = "un individu\r\nun autre individu\r\n";
  }

  // Every file but the record, which a set of results leaves for a while.
  Contenu Lire() const {
    Contenu contenu;
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin()))
      if (f.path().filename() != ".ENQ.jeu") contenu[f.path().filename()] = LireOctets(f.path());
    return contenu;
  }

  // The state of a process that writes the set and is cut, or fails, at the given call.
  int EcrireAilleurs(int appel, int code) const {
    const pid_t enfant = fork();
    if (enfant == 0) {
      appelsVus = 0;
      appelVise = appel;
      codeVise = code;
      appels::PoserSonde(Compter);
      const int numero = essai::NumeroLeve([this] { Ecrire(); });
      _exit(appelsVus < appel ? 100 : numero);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return etat;
  }

  essai::DossierTemporaire dossier_;
  Contenu avant_, apres_;
  bool allongee_ = false;
};

TEST_F(Jeu, AKillAtAnyCallIsRepairedByTheNextProgram) {
  for (const char* tour : {"echange", "etapes", "ajout"}) {
    sansEchange = std::string_view(tour) == "etapes";
    if (std::string_view(tour) == "ajout") Allonger();
    bool avantVu = false, apresVu = false, finie = false, annulee = false;
    int appel = 1;
    for (;; ++appel) {
      Preparer();
      if (const int etat = EcrireAilleurs(appel, 0); WIFEXITED(etat)) {
        ASSERT_EQ(WEXITSTATUS(etat), 100);
        break;
      }
      const GeneriqueTenu tenu(dossier_.Chemin(), "enq", "ENQ.PRT");
      Contenu repare = Lire();
      repare.erase(".ENQ.verrou");
      EXPECT_TRUE(repare == avant_ || repare == apres_) << "killed at call " << appel;
      avantVu = avantVu || repare == avant_;
      apresVu = apresVu || repare == apres_;
      for (const std::string& ligne : tenu.Recit()) {
        finie = finie || ligne.find(
                             "achev\xE9"
                             "e") != std::string::npos;
        annulee = annulee || ligne.find(
                                 "annul\xE9"
                                 "e") != std::string::npos;
      }
    }
    EXPECT_GT(appel, 15);
    EXPECT_TRUE(avantVu && apresVu && finie);
    EXPECT_EQ(annulee, allongee_) << "the bytes of a growing file are nowhere else";
  }
}

TEST_F(Jeu, AFailureAtAnyCallPutsAllBack) {
  for (const char* tour : {"echange", "etapes", "ajout"}) {
    sansEchange = std::string_view(tour) == "etapes";
    if (std::string_view(tour) == "ajout") Allonger();
    for (int appel = 1;; ++appel) {
      Preparer();
      const int etat = EcrireAilleurs(appel, EIO);
      ASSERT_TRUE(WIFEXITED(etat)) << appel;
      if (WEXITSTATUS(etat) == 100) break;
      Contenu suite = Lire();
      if (WEXITSTATUS(etat) != 0) {
        EXPECT_TRUE(suite == avant_) << "failed at call " << appel;
      } else {  // the former files could not be removed, or not recorded: the new ones are there
        const GeneriqueTenu tenu(dossier_.Chemin(), "ENQ", "ENQ.PRT");
        suite = Lire();
        suite.erase(".ENQ.verrou");
        // A scratch file that could not be removed stays under its own name until the next sweep.
        std::erase_if(suite, [](const auto& fichier) { return EstNomProvisoire(fichier.first); });
        EXPECT_TRUE(suite == apres_) << "failed at call " << appel;
      }
    }
  }
}

TEST_F(Jeu, BytesThatCannotBeTakenBackAreLeftToTheNextProgram) {
  Allonger();
  sansRetour = true;
  int laisses = 0;
  for (int appel = 1;; ++appel) {
    Preparer();
    const int etat = EcrireAilleurs(appel, EIO);
    ASSERT_TRUE(WIFEXITED(etat)) << appel;
    if (WEXITSTATUS(etat) == 100) break;
    const bool laisse = WEXITSTATUS(etat) != 0 && Lire().at("ENQ.DAT") != avant_.at("ENQ.DAT");
    laisses += laisse ? 1 : 0;
    const GeneriqueTenu tenu(dossier_.Chemin(), "ENQ", "ENQ.PRT");
    EXPECT_EQ(tenu.Recit().empty(), !laisse) << "failed at call " << appel;
    Contenu suite = Lire();
    suite.erase(".ENQ.verrou");
    std::erase_if(suite, [](const auto& fichier) { return EstNomProvisoire(fichier.first); });
    EXPECT_TRUE(suite == avant_ || (suite == apres_ && (laisse || WEXITSTATUS(etat) == 0)))
        << "failed at call " << appel;
  }
  EXPECT_GT(laisses, 1) << "at the sync of the bytes, and behind it";
}

TEST_F(Jeu, ATargetThatMayNotBeReplacedStopsBeforeTheFirstRename) {
  Preparer();
  std::filesystem::remove(dossier_.Chemin() / "ENQ.MOD");
  std::filesystem::create_directory(dossier_.Chemin() / "ENQ.MOD");
  JeuDeFichiers jeu(dossier_.Chemin(), "ENQ");
  jeu.Ouvrir("ENQ.BRT", Nature::Refaisable).Ecrire("nouvelle");
  EXPECT_EQ(essai::NumeroLeve([&] { jeu.Ouvrir("ENQ.MOD", Nature::Unique); }), kAccesFichier);
  EXPECT_EQ(LireOctets(dossier_.Chemin() / "ENQ.BRT"), "ancienne table");
}

// What a stop of the machine may leave: the mark tells of another start, and the file is not what was written.
TEST_F(Jeu, AResultThatTheMachineHasLostIsRefused) {
  Preparer();
  Ecrire();
  EXPECT_FALSE(std::filesystem::exists(CheminDeReleve(dossier_.Chemin(), "ENQ")));
  const Chemin brt = dossier_.Chemin() / "ENQ.BRT";
  std::array<char, 256> marque{};
  if (::getxattr(brt.c_str(), "user.quelvar.resultat", marque.data(), marque.size()) <= 0)
    GTEST_SKIP() << "no extended attributes here";
  const auto redemarrer = [&] {
    marque[0] = marque[0] == 'x' ? 'y' : 'x';
    ::setxattr(brt.c_str(), "user.quelvar.resultat", marque.data(), std::strlen(marque.data()), 0);
  };
  redemarrer();
  EXPECT_TRUE(LireOctets(brt) == apres_.at("ENQ.BRT")) << "a whole result is left in peace";
  EXPECT_LT(::getxattr(brt.c_str(), "user.quelvar.resultat", nullptr, 0), 0) << "and loses its mark";

  redemarrer();
  const auto instant = std::filesystem::last_write_time(brt);
  std::filesystem::resize_file(brt, 4096);
  std::filesystem::last_write_time(brt, instant);
  try {
    LireOctets(brt);
    ADD_FAILURE() << "a torn result was read";
  } catch (const Erreur& erreur) {
    EXPECT_NE(erreur.Phrase().find("(4096 octets, il devait en avoir 300000)"), std::string::npos) << erreur.Phrase();
  }
  essai::EcrireOctets(brt, "corrige par l'utilisateur");
  EXPECT_EQ(LireOctets(brt), "corrige par l'utilisateur");
}

// A scratch file that the stop of the machine has emptied cannot finish the set.
TEST_F(Jeu, ACommitWhoseScratchFilesAreTornIsUndone) {
  for (int appel = 1;; ++appel) {
    Preparer();
    if (WIFEXITED(EcrireAilleurs(appel, 0))) break;
    const std::optional<Releve> lu = LireReleve(CheminDeReleve(dossier_.Chemin(), "ENQ"));
    if (!lu) continue;
    const bool nonPose = std::filesystem::exists(lu->entrees.front().provisoire) &&
                         LireOctets(lu->entrees.front().cible) == avant_.at("ENQ.BRT");
    if (!nonPose) continue;
    std::filesystem::resize_file(lu->entrees.front().provisoire, 0);
    const GeneriqueTenu tenu(dossier_.Chemin(), "ENQ", "ENQ.PRT");
    ASSERT_EQ(tenu.Recit().size(), 3U);
    EXPECT_EQ(tenu.Recit()[1],
              "    elle a été annulée, ces fichiers sont ceux d'avant : ENQ.BRT ENQ.CDG ENQ.MOD ENQ.PEM"_w);
    Contenu suite = Lire();
    suite.erase(".ENQ.verrou");
    EXPECT_TRUE(suite == avant_) << appel;
    return;
  }
  FAIL() << "no kill before the first exchange";
}

TEST_F(Jeu, OneWriterAtATime) {
  Preparer();
  int tube[2];
  ASSERT_EQ(pipe(tube), 0);
  const pid_t enfant = fork();
  if (enfant == 0) {
    const GeneriqueTenu tenu(dossier_.Chemin(), "ENQ", "ENQ.TAP");
    if (write(tube[1], "x", 1) != 1) _exit(1);
    pause();
    _exit(0);
  }
  char recu = 0;
  ASSERT_EQ(read(tube[0], &recu, 1), 1);
  try {
    const JeuDeFichiers jeu(dossier_.Chemin(), "enq");
    ADD_FAILURE() << "the generic was taken twice";
  } catch (const Erreur& erreur) {
    EXPECT_EQ(erreur.Numero(), kPermissionRefusee);
    const std::string attendu = Joindre({"Le générique enq est en cours d'écriture par un autre programme (ENQ.TAP, "_w,
                                         "processus ", std::to_string(enfant), " de "});
    EXPECT_TRUE(erreur.Phrase().starts_with(attendu)) << erreur.Phrase();
  }
  ::kill(enfant, SIGKILL);
  waitpid(enfant, nullptr, 0);
  essai::EcrireOctets(dossier_.Chemin() / "ENQ.BRT.~1-1", "reste");
  Ecrire();
  EXPECT_TRUE(Lire() == apres_) << "the lock of a dead process is taken over, its scratch files are gone";
}

TEST_F(Jeu, ASignalRemovesTheScratchFiles) {
  Preparer();
  const pid_t enfant = fork();
  if (enfant == 0) {
    EffacerAuxSignaux();
    JeuDeFichiers jeu(dossier_.Chemin(), "ENQ");
    jeu.Ouvrir("ENQ.BRT", Nature::Refaisable).Ecrire("nouvelle");
    jeu.Ouvrir("ENQ.MOD", Nature::Unique).Ecrire("nouveaux");
    ::raise(SIGTERM);
    _exit(0);
  }
  int etat = 0;
  waitpid(enfant, &etat, 0);
  EXPECT_TRUE(WIFSIGNALED(etat) && WTERMSIG(etat) == SIGTERM);
  EXPECT_TRUE(Lire() == avant_);
}

TEST_F(Jeu, AScratchNameIsNeverFollowed) {
  const Chemin victime = dossier_.Chemin() / "victime";
  essai::EcrireOctets(victime, "intacte");
  Preparer();
  essai::EcrireOctets(victime, "intacte");
  // The next names of this process, whatever they are, are links.
  for (int i = 1; i < 200; ++i)
    std::filesystem::create_symlink(
        victime, dossier_.Chemin() / ("ENQ.MOD.~" + std::to_string(getpid()) + "-" + std::to_string(i)));
  Remplacement fichier(dossier_.Chemin(), "ENQ.MOD");
  fichier.Fichier().Ecrire("neuf");
  fichier.Valider();
  EXPECT_EQ(LireOctets(victime), "intacte");
  EXPECT_EQ(LireOctets(dossier_.Chemin() / "ENQ.MOD"), "neuf");
}

}  // namespace
}  // namespace quelvar
