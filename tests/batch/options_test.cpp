// The law of the tables of options, for every program: reading what was written gives the same options, and the order
// in which they are typed never matters.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include "batch/commande.h"

namespace quelvar::batch {
namespace {

using Hasard = std::mt19937;
using Textes = std::vector<std::string>;

std::size_t Tirer(Hasard& hasard, std::size_t nombre) {
  return std::uniform_int_distribution<std::size_t>(0, nombre - 1)(hasard);
}
const std::string& Parmi(Hasard& hasard, const Textes& textes) { return textes[Tirer(hasard, textes.size())]; }

// Values of the options that have a reading of their own; a "@" stands for any name, a "#" for that of a question whose
// code or sign follows it.
const std::map<std::string, Textes> kLibres = {
    {"preprecod regle", {"@=1-3=1/4-8=2", "SEX=", "@=b c"}},
    {"preprecod ponderation", {"PDS", "non", "NON", "\\Non"}},
    {"preprecod filtre", {"non", "incl:", "incl:SEX=1", "excl:@=1,@=012", "plus:SEX=1"}},
    {"preprecod textevit", {"$$CUL|LEC     1 2|AGE     +", "$$CUL", "$$A|SEX     1||", "$$A\\|B|\\C\\\\|D\\"}},
    {"preprecod vit", {"non", "@=", "CUL=#=12*2,SEX=1", "@=AGE+,#+*-1.5"}},
    {"modifmod supplementaires", {"SEX", "@,AGE2", " "}},
    {"modifmod actives", {"PCS", "@,@,LIE"}},
    {"modifmod intitule", {"@=Homme", "AGE2="}},
    {"anatab image", {"effets.svg", "mes effets.SVG"}},
    {"varint image", {"profils.svg"}},
    {"modifmodr intitule", {"@=Homme", "AGE2="}},
    {"nomemod intitule", {"@=l'homme seul", "AGE2="}},
    {"nomquest intitule", {"@=Sexe = genre", "AGE="}},
    {"anecar seuillignes", {"moyenne", "0", "12", "-1"}},
    {"anecar seuilcolonnes", {"Moyenne", "9999", "-32768", "32767"}},
    {"anecar inversions", {"1", "3,1", "1,2,3"}},
    {"graphe fichier", {"plan.svg", "mon plan.SVG"}},
    {"graphe horizontal", {"1", "c", "C3"}},
    {"graphe vertical", {"2", "C", "12"}},
    {"graphe niveau", {"0", "12"}},
    {"graphe ellipses", {"mediane", "i,c", "concentration,indicatrice,mediane"}},
    {"suplmot colonnes-sup", {"SEX1", "@,AGE2"}},
    {"suplmot colonnes-actives", {"PCS1", "SEX2,AGE2"}},
    {"suplmot lignes-sup", {"travail", "vie,@"}},
    {"suplmot lignes-actives", {"", "de"}},
    {"suplmot intitule-colonne", {"@=Hommes", "SEX2="}},
    {"suplmot intitule-ligne", {"travail=le travail", "@=a=b", "="}},
    {"tabmotagreg agreger", {"@=de,@", "vide=", "= "}},
    {"tabmotagreg tri", {"frequence", "alphabetique,decroissant", "facteur2,croissant", "Facteur"}},
    {"croise graphique", {"", "g.svg"}},
    {"modifburt colonnes", {"SEX1", "SEX1,AGE2"}},
    {"modifburt lignes", {"OUV", "OUV,CAD"}},
    {"profilmod intitule", {"@=Homme", "AGE2="}},
    {"profilmod fichier", {"profils.svg"}},
    {"triang fichier", {"triangle.Svg"}},
    {"triang marques", {"SEX1=0", "titre=5"}},
    {"triang deplaces", {"SEX1=3.5/-2", "sommet1=0/0"}},
};

// A name that a user may have given, and the same as it is typed where names stand: whatever parts it from others
// behind a "\\". It has no outer blanks, which are none of a name.
std::string Nom(Hasard& hasard) {
  constexpr std::string_view kSignes = "AB=,|\\*+ \xE9";
  std::string nom = "N";
  for (std::size_t reste = Tirer(hasard, 4); reste > 0; --reste) nom += kSignes[Tirer(hasard, kSignes.size())];
  return std::string(Rogner(nom));
}
std::string Tape(std::string_view nom, std::string_view signes) {
  std::string tape;
  for (const char c : nom) {
    if (signes.find(c) != std::string_view::npos) tape += '\\';
    tape += c;
  }
  return tape;
}

std::string AvecDesNoms(Hasard& hasard, std::string_view modele) {
  std::string valeur;
  for (const char c : modele) {
    if (c == '@') valeur += Tape(Nom(hasard), ",=\\");
    else if (c == '#') valeur += Tape(Nom(hasard), ",=+*\\");
    else valeur += c;
  }
  return valeur;
}

std::string Valeur(Hasard& hasard, const std::string& programme, const Option& option) {
  switch (option.genre) {
    case Option::Genre::Mots: return Parmi(hasard, option.mots);
    case Option::Genre::Entier:
      return Nombre(std::uniform_int_distribution<int>(option.minimum, option.maximum)(hasard));
    case Option::Genre::Reel:
      if (std::isfinite(option.plusPetit) && std::isfinite(option.plusGrand))
        return EcrireReel(std::uniform_real_distribution<double>(option.plusPetit, option.plusGrand)(hasard));
      return Parmi(hasard, {"0", "-1.5", "0.1", "1e-7", "90", "123456789.25"});
    case Option::Genre::Texte: return Parmi(hasard, {"", "A.DAT", "un nom 'long'", "a=b", "\xE9t\xE9"});
    case Option::Genre::Noms: return AvecDesNoms(hasard, Parmi(hasard, {"", " ", "SEX", "SEX,@", "*", " A,@,"}));
    case Option::Genre::Libre: break;
  }
  const auto valeurs = kLibres.find(programme + " " + option.nom);
  if (valeurs == kLibres.end()) throw std::logic_error("no values for " + programme + " " + option.nom);
  return AvecDesNoms(hasard, Parmi(hasard, valeurs->second));
}

// Each option by one of its names.
ValeurDOption Typee(Hasard& hasard, const std::string& programme, const Option& option) {
  const std::size_t nom = Tirer(hasard, option.autresNoms.size() + 1);
  if (nom == 0) return {option.nom, Valeur(hasard, programme, option)};
  const AutreNom& autre = option.autresNoms[nom - 1];
  if (autre.mots.empty()) return {autre.nom, Valeur(hasard, programme, option)};
  return {autre.nom, autre.mots[Tirer(hasard, autre.mots.size())].first};
}

// Whether the value given last says another thing than one before it: of the same name, or what `cah=non` leaves no
// place for. Such a line is refused in any order.
bool SeContredit(const Programme& programme, const LigneDOptions& ligne) {
  try {
    programme.recrire(ligne);
    return false;
  } catch (const UsageIncorrect& refus) {
    const Option& option = programme.options[TrouverOption(programme.options, ligne.back(), programme.nom).rang];
    EXPECT_TRUE(option.nomDe || programme.nom == "anecar") << programme.nom << " : " << refus.what();
    EXPECT_THROW(programme.recrire({ligne.rbegin(), ligne.rend()}), UsageIncorrect) << refus.what();
    return true;
  }
}

LigneDOptions UnLancement(Hasard& hasard, const Programme& programme) {
  LigneDOptions ligne;
  for (const Option& option : programme.options) {
    if (option.nom == "lancer") continue;
    const std::size_t fois = Tirer(hasard, option.repetable ? 4 : 2);
    for (std::size_t i = 0; i < fois; ++i) {
      ligne.push_back(Typee(hasard, programme.nom, option));
      if (SeContredit(programme, ligne)) ligne.pop_back();
    }
  }
  return ligne;
}

// In any order but that of the values of an option that may be repeated, which is its own, and that of what is done
// one after the other.
LigneDOptions Melangee(Hasard& hasard, const Programme& programme, const LigneDOptions& ligne) {
  const auto rang = [&](const ValeurDOption& typee) {
    const std::size_t trouve = TrouverOption(programme.options, typee, programme.nom).rang;
    return programme.options[trouve].geste ? programme.options.size() : trouve;
  };
  LigneDOptions melangee = ligne;
  std::shuffle(melangee.begin(), melangee.end(), hasard);
  for (std::size_t option = 0; option <= programme.options.size(); ++option) {
    auto source = ligne.begin();
    for (ValeurDOption& typee : melangee) {
      if (rang(typee) != option) continue;
      while (rang(*source) != option) ++source;
      typee = *source++;
    }
  }
  return melangee;
}

// The words of a line of the shell.
Textes Mots(std::string_view ligne) {
  Textes mots(1);
  bool entre = false;
  for (std::size_t i = 0; i < ligne.size(); ++i) {
    if (ligne[i] == '\'') entre = !entre;
    else if (ligne[i] == '\\' && !entre) mots.back() += ligne[++i];
    else if (ligne[i] == ' ' && !entre) mots.emplace_back();
    else mots.back() += ligne[i];
  }
  return mots;
}

TEST(OptionsDesProgrammes, ReadingWhatWasWrittenGivesTheSameOptions) {
  constexpr int kEssais = 300;
  Hasard hasard(1);
  for (const Programme& programme : Programmes()) {
    const bool parEtapes = std::any_of(programme.options.begin(), programme.options.end(),
                                       [](const Option& option) { return option.nom == "lancer"; });
    for (int essai = 0; essai < kEssais; ++essai) {
      LigneDOptions ligne = UnLancement(hasard, programme);
      if (parEtapes)
        for (std::size_t reste = Tirer(hasard, 3); reste > 0; --reste) {
          ligne.emplace_back("lancer", "oui");
          for (ValeurDOption& typee : UnLancement(hasard, programme)) ligne.push_back(std::move(typee));
        }
      const LigneDOptions ecrite = programme.recrire(ligne);
      ASSERT_TRUE(programme.memes(ligne, ecrite)) << CommandeEcrite(programme.nom, "ENQ", 1, ligne) << "\n"
                                                  << CommandeEcrite(programme.nom, "ENQ", 1, ecrite);
      Textes mots = Mots(CommandeEcrite(programme.nom, "ENQ", 2, ecrite));
      for (std::string& mot : mots) mot = VersUtf8(mot);
      const LigneDeCommande demande = LireLigneDeCommande({mots.begin() + 1, mots.end()});
      EXPECT_EQ(demande.options, ecrite);
      EXPECT_EQ(demande.niveau, 2);
    }
  }
}

// A picture that the companion can't write is refused before the run whose figures it shows.
TEST(OptionsDesProgrammes, APictureIsAnSvg) {
  for (const Programme& programme : Programmes())
    for (const Option& option : programme.options) {
      if (option.valeurs.find(".svg") == std::string::npos) continue;
      for (const char* const nom : {"x.png", "ENQ.DAT", "svg"})
        EXPECT_THROW(programme.recrire({{option.nom, nom}}), UsageIncorrect) << programme.nom << " " << nom;
    }
}

TEST(OptionsDesProgrammes, TheirOrderNeverMatters) {
  constexpr int kEssais = 300;
  Hasard hasard(2);
  for (const Programme& programme : Programmes())
    for (int essai = 0; essai < kEssais; ++essai) {
      const LigneDOptions ligne = UnLancement(hasard, programme);
      const LigneDOptions melangee = Melangee(hasard, programme, ligne);
      ASSERT_TRUE(programme.memes(ligne, melangee)) << CommandeEcrite(programme.nom, "ENQ", 1, melangee);
    }
}

}  // namespace
}  // namespace quelvar::batch
