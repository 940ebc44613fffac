// Small files as spreadsheets and web surveys write them, each beside what an import must make of it.
//
// corpus/NAME.csv is the file, byte for byte; NAME.attendu, in UTF-8, tells line by line what must come out:
//   dat, pos, mod, txt, cdg, var   a line of ENQ.DAT, of ENQ.POS and ENQ.MOD behind the first two, of ENQ.TXT, of
//                                  ENQN.CDG, of ENQN.MOD behind the first two: all of them, and none that is not told
//   dit        stands somewhere in the account
//   refus      stands in the account of an import that stops and writes nothing else
//   option     an option of the command ("decimale=point"); choix a line of the file of choices
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "capture/apercu/options.h"
#include "support/programme.h"

using namespace quelvar::capture;

namespace quelvar {
namespace {

struct Attendu {
  std::map<std::string, std::vector<std::string>> lignes;  // by first word
  LigneDOptions options;
  std::string choix;
};

Attendu LireAttendu(const Chemin& chemin) {
  Attendu attendu;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    const std::size_t mot = std::min(ligne.find(' '), ligne.size());
    const std::string genre(ligne.substr(0, mot));
    const std::string_view reste = ligne.substr(std::min(mot + 1, ligne.size()));
    if (genre == "option")
      attendu.options.emplace_back(reste.substr(0, reste.find('=')), reste.substr(reste.find('=') + 1));
    else if (genre == "choix") attendu.choix.append(reste).append("\n");
    else attendu.lignes[genre].push_back(DepuisUtf8(reste));
  }
  return attendu;
}

std::vector<Chemin> Corpus() {
  std::vector<Chemin> fichiers;
  for (const auto& entree : std::filesystem::directory_iterator(QUELVAR_CORPUS))
    if (entree.path().extension() == ".csv") fichiers.push_back(entree.path());
  std::sort(fichiers.begin(), fichiers.end());
  return fichiers;
}

class CorpusDImport : public essai::RunDeProgramme, public testing::WithParamInterface<Chemin> {
 protected:
  // The lines of a file behind the first `sautees`; none without the file.
  std::vector<std::string> Lignes(const std::string& nom, std::size_t sautees) const {
    std::vector<std::string> lignes;
    if (!Existe(nom)) return lignes;
    LecteurLignes lecteur(dossier_.Chemin() / nom);
    for (std::string_view ligne; lecteur.Lire(ligne);) lignes.emplace_back(ligne);
    lignes.erase(lignes.begin(), lignes.begin() + static_cast<std::ptrdiff_t>(std::min(sautees, lignes.size())));
    return lignes;
  }
};

TEST_P(CorpusDImport, ComesOutAsTold) {
  Attendu attendu = LireAttendu(Chemin(GetParam()).replace_extension(".attendu"));
  ASSERT_FALSE(attendu.lignes.empty());
  Ecrire("source.csv", LireOctets(GetParam()));
  attendu.options.emplace_back("fichier", "source.csv");
  if (!attendu.choix.empty()) {
    Ecrire("choix.imc", attendu.choix);
    attendu.options.emplace_back("choix", "choix.imc");
  }
  const bool refus = attendu.lignes.contains("refus");
  const Fin fin = DescriptionImport().Executer(contexte_, DescriptionImport().Lire(attendu.options));
  EXPECT_EQ(fin, refus ? Fin::Arret : Fin::Normale);
  for (const char* const genre : {"dit", "refus"})
    for (const std::string& texte : attendu.lignes[genre])
      EXPECT_TRUE(Dit(texte)) << VersUtf8(texte) << "\n" << VersUtf8(montre_);
  const struct {
    const char* genre;
    const char* fichier;
    std::size_t sautees;
  } fichiers[] = {{"dat", "ENQ.DAT", 0}, {"pos", "ENQ.POS", 2},  {"mod", "ENQ.MOD", 2},
                  {"txt", "ENQ.TXT", 0}, {"cdg", "ENQN.CDG", 0}, {"var", "ENQN.MOD", 2}};
  for (const auto& [genre, fichier, sautees] : fichiers)
    EXPECT_EQ(Lignes(fichier, sautees), attendu.lignes[genre]) << fichier << "\n" << VersUtf8(montre_);
  EXPECT_EQ(Existe("ENQ.POS"), !refus);
}

INSTANTIATE_TEST_SUITE_P(Fichiers, CorpusDImport, testing::ValuesIn(Corpus()), [](const auto& cas) {
  std::string nom = cas.param.stem();
  std::replace(nom.begin(), nom.end(), '-', '_');
  return nom;
});

}  // namespace
}  // namespace quelvar
