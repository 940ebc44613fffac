// Every program that writes several files, cut at each of its system calls: after the next program of the generic has
// taken it, the set is the former one or the new one, and so is each report.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <set>

#include "batch/ligne_de_commande.h"
#include "core/fichiers/appels.h"
#include "core/fichiers/generiquetenu.h"
#include "support/environnement.h"

namespace quelvar::batch {
namespace {

using Contenu = std::map<std::string, std::string>;

int appelsVus = 0;
int appelVise = 0;

int TuerAuRang(const char*) {
  if (++appelsVus == appelVise) ::kill(::getpid(), SIGKILL);
  return 0;
}

// Reports, and the copy that an import keeps before it begins.
const std::set<std::string> kRapports = {".PO2", ".IMP", ".PRT", ".REC", ".TCR", ".PRO", ".AFC", ".ANA", ".TAP"};

struct Cas {
  const char* nom;
  std::vector<std::vector<std::string>> avant;  // commands that make what the run starts from
  std::vector<std::string> commande;
  std::vector<std::string> changes;  // files that the run must have changed, lest the case says nothing
};

class Interruptions : public testing::TestWithParam<Cas> {
 protected:
  Interruptions() {
    std::string csv = "NUM;SEX;AGE;CSP\r\n";
    for (int i = 1; i <= 40; ++i)
      csv += std::to_string(1000 + i) + ';' + std::to_string(1 + i % 2) + ';' + std::to_string(1 + i % 3) + ';' +
             std::to_string(1 + i * i % 4) + "\r\n";
    essai::EcrireOctets(dossier_.Chemin() / "ENQ.CSV", csv);
    Executer({"import-csv", "ENQ"});
    essai::EcrireOctets(dossier_.Chemin() / "ENQ.PEL", "12345678");
    essai::EcrireOctets(dossier_.Chemin() / "ENR.POS", "ancien\r\n 1 \r\nAAA   1 2\r\n");
    essai::EcrireOctets(dossier_.Chemin() / "ENR.DAT", "1\r\n");
  }

  void Executer(std::vector<std::string> mots) const {
    mots.insert(mots.begin(), {"-C", dossier_.Chemin().string()});
    Demande demande = LireLigneDeCommande(mots);
    Dialogue dialogue;
    dialogue.horloge = [] { return DateHeure{2017, 5, 2, 14, 30, 0}; };
    dialogue.demander = [](std::string_view, Boutons boutons) {
      return boutons == Boutons::NonOui ? Reponse::Oui : PremierBouton(boutons);
    };
    demande.programme->executer({demande.repertoire, demande.generique, 1, &dialogue}, demande.options);
  }

  Contenu Lire() const {
    Contenu contenu;
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin()))
      if (f.path().extension() != ".jeu" && f.path().extension() != ".verrou")
        contenu[f.path().filename()] = LireOctets(f.path());
    return contenu;
  }

  void Remettre(const Contenu& contenu) const {
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin())) std::filesystem::remove(f);
    for (const auto& [nom, octets] : contenu) essai::EcrireOctets(dossier_.Chemin() / nom, octets);
  }

  // Whether the run was cut before its end.
  bool Couper(int appel) const {
    const pid_t enfant = fork();
    if (enfant == 0) {
      appelsVus = 0;
      appelVise = appel;
      appels::PoserSonde(TuerAuRang);
      Executer(GetParam().commande);
      _exit(0);
    }
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFSIGNALED(etat);
  }

  static Contenu Partie(const Contenu& tout, bool rapports) {
    Contenu partie;
    for (const auto& [nom, octets] : tout)
      if (kRapports.contains(Chemin(nom).extension()) == rapports) partie[nom] = octets;
    return partie;
  }

  essai::DossierTemporaire dossier_;
};

TEST_P(Interruptions, LeaveTheFormerSetOrTheNewOne) {
  for (const auto& commande : GetParam().avant) Executer(commande);
  const Contenu avant = Lire();
  ASSERT_FALSE(Couper(-1));
  const Contenu apres = Lire();
  for (const std::string& nom : GetParam().changes)
    EXPECT_TRUE(!apres.contains(nom) || !avant.contains(nom) || apres.at(nom) != avant.at(nom)) << nom;
  ASSERT_NE(Partie(avant, false), Partie(apres, false));
  bool ancienVu = false, nouveauVu = false;
  for (int appel = 1; Remettre(avant), Couper(appel); ++appel) {
    for (const char* generique : {"ENQ", "ENR"}) const GeneriqueTenu tenu(dossier_.Chemin(), generique, "suite");
    const Contenu suite = Lire();
    const bool ancien = Partie(suite, false) == Partie(avant, false);
    const bool nouveau = Partie(suite, false) == Partie(apres, false);
    EXPECT_TRUE(ancien || nouveau) << "cut at call " << appel;
    ancienVu = ancienVu || ancien;
    nouveauVu = nouveauVu || nouveau;
    for (const auto& [nom, octets] : Partie(suite, true)) {
      const bool entier = (avant.contains(nom) && avant.at(nom) == octets) || apres.at(nom).starts_with(octets);
      EXPECT_TRUE(entier && !octets.empty()) << nom << " cut at call " << appel;
    }
  }
  EXPECT_TRUE(ancienVu && nouveauVu);
}

const std::vector<std::string> kPosmod = {"posmod", "ENQ", "actives=SEX,AGE,CSP", "individus=oui"};

INSTANTIATE_TEST_SUITE_P(
    EachWriter, Interruptions,
    testing::Values(Cas{"import", {kPosmod}, {"import-csv", "ENQ"}, {"ENQ.PO2"}},
                    Cas{"posmod", {{"posmod", "ENQ", "actives=SEX,AGE"}}, kPosmod, {"ENQ.BRT", "ENQ.MOD", "ENQ.CDG"}},
                    Cas{"croise",
                        {kPosmod},
                        {"croise", "ENQ", "tableauisole=oui", "lignes=SEX", "colonnes=AGE"},
                        {"ENQ.BRT", "ENQ.MOD"}},
                    Cas{"ecapem", {kPosmod}, {"ecapem", "ENQ"}, {"ENQ.PEM", "ENQ.PEL"}},
                    Cas{"anecar", {kPosmod}, {"anecar", "ENQ", "cah=ward1"}, {"ENQ.FAJ", "ENQ.CAH", "ENQ.MOD"}},
                    Cas{"recodage", {kPosmod}, {"recodage", "ENQ"}, {"ENR.DAT", "ENR.POS", "ENR.MOD"}},
                    Cas{"coupe",
                        {kPosmod, {"anecar", "ENQ", "cah=ward1", "individus=oui"}},
                        {"ward-coupe", "ENQ", "niveau=3", "remplacer=oui"},
                        {"ENR.DAT", "ENR.POS", "ENR.MOD"}}),
    [](const auto& cas) { return cas.param.nom; });

}  // namespace
}  // namespace quelvar::batch
