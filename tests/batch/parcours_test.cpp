// Every program of the companion, walked through by one table: cut at each system call of its writing, each of these
// calls failing, each of its files damaged. What it read and what it wrote before stay whole.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <set>

#include "batch/chantier.h"
#include "batch/programmes.h"
#include "core/fichiers/generiquetenu.h"
#include "core/fichiers/systeme/appels.h"
#include "core/texte/texte.h"
#include "support/environnement.h"

namespace quelvar::batch {
namespace {

namespace fs = std::filesystem;
using essai::Chantier;
using essai::Contenu;
using essai::Part;
using essai::PartieDe;

int appelsVus = 0;
int appelVise = 0;

void TuerAuRangVise() {
  appelsVus = 0;
  appels::PoserSonde([](const char*) {
    if (++appelsVus == appelVise) ::kill(::getpid(), SIGKILL);
    return 0;
  });
}

void RemplirLeDisqueAuRangVise() {
  appelsVus = 0;
  appels::PoserSonde([](const char* appel) {
    const bool ecriture = std::string_view(appel) == "creer" || std::string_view(appel) == "ecrire";
    return ecriture && ++appelsVus >= appelVise ? ENOSPC : 0;
  });
}

class Parcours : public testing::TestWithParam<std::string> {
 protected:
  // The runs of the program, each in its turn.
  static void Parcourir(const std::function<void(const Chantier&)>& essayer) {
    const std::vector<Chantier> chantiers = essai::ChantiersDe(GetParam());
    ASSERT_FALSE(chantiers.empty());
    for (const Chantier& chantier : chantiers) {
      SCOPED_TRACE(chantier.nom);
      essayer(chantier);
    }
  }

  const fs::path& Dossier() const { return dossier_.Chemin(); }

  // What a run may leave, reports aside: the former files or the new ones. A program that puts several sets in place
  // one behind the other may also have come to the end of one of them: of a launch that has fewer options.
  std::vector<Contenu> EtatsPermis(const Chantier& chantier) const {
    std::vector<Contenu> permis = {PartieDe(chantier.avant, Part::Reste)};
    const std::size_t options = 2;
    Chantier debut = chantier;
    std::size_t premiere = chantier.arguments.front() == "nomemod" ? options + 1 : chantier.arguments.size();
    for (; premiere <= chantier.arguments.size(); ++premiere) {
      debut.arguments.assign(chantier.arguments.begin(),
                             chantier.arguments.begin() + static_cast<std::ptrdiff_t>(premiere));
      essai::Remettre(Dossier(), chantier.avant);
      if (essai::Executer(debut, Dossier()) == 0) permis.push_back(PartieDe(essai::Lire(Dossier()), Part::Reste));
    }
    return permis;
  }
  static bool EstPermis(const std::vector<Contenu>& permis, const Contenu& contenu) {
    return std::find(permis.begin(), permis.end(), contenu) != permis.end();
  }

  // As the next programs of every generic of the directory would find it.
  void Reprendre() const {
    std::set<std::string> generiques;
    for (const auto& f : fs::directory_iterator(Dossier())) {
      const std::string nom = f.path().filename();
      const std::size_t debut = nom.starts_with('.') ? 1 : 0;
      generiques.insert(Majuscules(NomDepuisUtf8(nom.substr(debut, nom.find('.', debut) - debut))));
    }
    for (const std::string& generique : generiques) const GeneriqueTenu tenu(Dossier(), generique, "suite");
  }

  // How two contents differ, by names.
  static std::string Ecarts(const Contenu& a, const Contenu& b) {
    std::string noms;
    for (const auto& [nom, octets] : a)
      if (!b.contains(nom)) noms += " -" + nom;
      else if (b.at(nom) != octets) noms += " ~" + nom;
    for (const auto& [nom, octets] : b)
      if (!a.contains(nom)) noms += " +" + nom;
    return noms;
  }

  essai::DossierTemporaire dossier_;
};

// All but the keyed entry, which changes its files at every record: its test stands beside it.
class ParcoursDUnJeu : public Parcours {};

TEST_P(ParcoursDUnJeu, ACutAtAnyCallLeavesTheFormerFilesOrTheNewOnes) {
  Parcourir([this](const Chantier& chantier) {
    essai::Remettre(Dossier(), chantier.avant);
    appelVise = -1;
    ASSERT_EQ(essai::Executer(chantier, Dossier()), 0);
    const Contenu apres = essai::Lire(Dossier());
    const std::vector<Contenu> permis = EtatsPermis(chantier);
    for (appelVise = 1;; ++appelVise) {
      essai::Remettre(Dossier(), chantier.avant);
      if (essai::Executer(chantier, Dossier(), TuerAuRangVise) != -SIGKILL) break;
      Reprendre();
      const Contenu suite = essai::Lire(Dossier());
      const Contenu reste = PartieDe(suite, Part::Reste);
      EXPECT_TRUE(EstPermis(permis, reste))
          << "cut at call " << appelVise << ", from the former:" << Ecarts(permis.front(), reste)
          << ", from the new:" << Ecarts(permis.back(), reste);
      for (const auto& [nom, octets] : PartieDe(suite, Part::Rapports)) {
        if (essai::EstFichierDeTravail(nom)) continue;
        // A program of several runs may have been cut behind the report of the first.
        const bool entier = octets.ends_with("\r\n");
        const bool ancienRapport = chantier.avant.contains(nom) && chantier.avant.at(nom) == octets;
        const bool nouveauRapport = apres.contains(nom) && apres.at(nom).starts_with(octets) && !octets.empty();
        EXPECT_TRUE(entier || ancienRapport || nouveauRapport) << nom << " cut at call " << appelVise;
      }
    }
    EXPECT_GT(appelVise, 1);
  });
}

TEST_P(ParcoursDUnJeu, AFullDiskAtAnyCallIsTheStateAndChangesNothing) {
  Parcourir([this](const Chantier& chantier) {
    essai::Remettre(Dossier(), chantier.avant);
    ASSERT_EQ(essai::Executer(chantier, Dossier()), 0);
    const Contenu nouveau = PartieDe(essai::Lire(Dossier()), Part::Reste);
    const std::vector<Contenu> permis = EtatsPermis(chantier);
    int etat = 1;
    for (appelVise = 1; etat != 0; ++appelVise) {
      ASSERT_LT(appelVise, 1000);
      essai::Remettre(Dossier(), chantier.avant);
      etat = essai::Executer(chantier, Dossier(), RemplirLeDisqueAuRangVise);
      const Contenu suite = PartieDe(essai::Lire(Dossier()), Part::Reste);
      EXPECT_TRUE(etat == 0 || etat == 1) << "state " << etat << " at call " << appelVise;
      // A run that could write everything but the end of its report has failed, too, with the new files in place.
      EXPECT_TRUE(suite == nouveau || (etat == 1 && EstPermis(permis, suite)))
          << "full at call " << appelVise << ", from the former:" << Ecarts(permis.front(), suite)
          << ", from the new:" << Ecarts(nouveau, suite);
    }
  });
}

// Nobody writes where nobody may, root apart.
TEST_P(Parcours, ADirectoryThatCannotBeWrittenIsTheStateAndChangesNothing) {
  Parcourir([this](const Chantier& chantier) {
    essai::Remettre(Dossier(), chantier.avant);
    ::chmod(Dossier().c_str(), 0555);
    const int etat = essai::Executer(chantier, Dossier(), [] {
      constexpr uid_t kNobody = 65534;
      if (::geteuid() == 0 && ::setuid(kNobody) != 0) _exit(3);
    });
    ::chmod(Dossier().c_str(), 0755);
    EXPECT_EQ(etat, 1);
    EXPECT_EQ(Ecarts(chantier.avant, essai::Lire(Dossier())), "");
  });
}

TEST_P(Parcours, ADamagedInputChangesNothingElse) {
  Parcourir([this](const Chantier& chantier) {
    struct Dommage {
      const char* nom;
      std::function<void(const fs::path&)> faire;
    };
    const std::vector<Dommage> dommages = {
        {"absent", [](const fs::path& f) { fs::remove(f); }},
        {"vide", [](const fs::path& f) { essai::EcrireOctets(f, ""); }},
        {"coupé", [](const fs::path& f) { fs::resize_file(f, fs::file_size(f) / 2); }},
        {"répertoire", [](const fs::path& f) { fs::remove(f), fs::create_directory(f); }},
        {"tube", [](const fs::path& f) { fs::remove(f), ::mkfifo(f.c_str(), 0600); }},
        {"boucle", [](const fs::path& f) { fs::remove(f), fs::create_symlink(f.filename(), f); }},
    };
    for (const auto& [nom, octets] : PartieDe(chantier.avant, Part::Reste)) {
      for (const Dommage& dommage : dommages) {
        SCOPED_TRACE(nom + " " + dommage.nom);
        essai::Remettre(Dossier(), chantier.avant);
        dommage.faire(Dossier() / nom);
        Contenu avant = PartieDe(essai::Lire(Dossier()), Part::Reste);
        const int etat = essai::Executer(chantier, Dossier());
        EXPECT_TRUE(etat == 0 || etat == 1) << "state " << etat;
        const Contenu suite = PartieDe(essai::Lire(Dossier()), Part::Reste);
        EXPECT_EQ(etat == 1 ? Ecarts(avant, suite) : "", "");
      }
    }
  });
}

// Two that start together: each comes to its end or stops before the other, the files are those of one run, or of one
// behind the other.
TEST_P(Parcours, TwoAtOnceAreOneOrOneBehindTheOther) {
  const char* voulues = std::getenv("QUELVAR_PAIRES");
  const int paires = voulues != nullptr ? std::atoi(voulues) : 4;
  Parcourir([&](const Chantier& chantier) {
    essai::Remettre(Dossier(), chantier.avant);
    ASSERT_EQ(essai::Executer(chantier, Dossier()), 0);
    const Contenu une = essai::Lire(Dossier());
    essai::Executer(chantier, Dossier());
    const Contenu deux = essai::Lire(Dossier());
    for (int i = 0; i < paires; ++i) {
      essai::Remettre(Dossier(), chantier.avant);
      const pid_t premiere = essai::Demarrer(chantier, Dossier());
      const pid_t seconde = essai::Demarrer(chantier, Dossier());
      const int a = essai::Attendre(premiere);
      const int b = essai::Attendre(seconde);
      EXPECT_TRUE(std::min(a, b) == 0 && std::max(a, b) <= 1) << a << ' ' << b;
      const Contenu suite = essai::Lire(Dossier());
      EXPECT_TRUE(suite == une || suite == deux)
          << "from one:" << Ecarts(une, suite) << ", from two:" << Ecarts(deux, suite);
    }
  });
}

std::vector<std::string> Noms(bool dUnJeu) {
  std::vector<std::string> noms;
  for (const Programme& programme : Programmes())
    if (!dUnJeu || programme.nom != "saisie") noms.push_back(programme.nom);
  return noms;
}

std::string NomDuCas(const testing::TestParamInfo<std::string>& cas) {
  std::string nom = cas.param;
  for (char& c : nom)
    if (c == '-') c = '_';
  return nom;
}

INSTANTIATE_TEST_SUITE_P(EachProgram, Parcours, testing::ValuesIn(Noms(false)), NomDuCas);
INSTANTIATE_TEST_SUITE_P(EachProgram, ParcoursDUnJeu, testing::ValuesIn(Noms(true)), NomDuCas);

}  // namespace
}  // namespace quelvar::batch
