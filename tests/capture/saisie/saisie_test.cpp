#include "capture/saisie/saisie.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>

#include "capture/saisie/descripteur.h"
#include "capture/saisie/ecran.h"
#include "capture/saisie/rejeu.h"
#include "capture/saisie/touches.h"
#include "core/chiffres/nombres.h"
#include "core/fichiers/systeme/appels.h"
#include "support/programme.h"

using namespace quelvar;
using namespace quelvar::capture;

namespace {

DescriptionDeQuestion Numerique(const char* nom, int codeMax) {
  return {CadreGauche(nom, 7), codeMax, false, false, false, {}, ""};
}
DescriptionDeQuestion Alpha(const char* nom, int largeur, bool numerique = false) {
  return {CadreGauche(nom, 7), largeur, true, numerique, false, {}, ""};
}
DescriptionDeQuestion AvecSaut(DescriptionDeQuestion question, char signe, const char* valeur, int nombre) {
  question.saut = SautConditionnel{signe, valeur, nombre};
  return question;
}

// The keys of the text, one after the other; returns the number of beeps.
int Frapper(EtatSaisie& etat, std::string_view touches) {
  int bips = 0;
  const LigneDeTouches lue = LireTouches(touches);
  EXPECT_EQ(lue.faute, "");
  for (const Frappe& frappe : lue.frappes) bips += capture::Frapper(etat, frappe.touche).bip ? 1 : 0;
  return bips;
}

int appelsVus = 0;
int appelVise = 0;

int TuerALAppelVise(const char*) {
  if (++appelsVus == appelVise) ::kill(::getpid(), SIGKILL);
  return 0;
}

class SaisieTest : public essai::RunDeProgramme {
 protected:
  void SetUp() override { Ecrire("ENQ.DES", "SEX     2     \r\nAGE    99     \r\nNOM     5A    \r\n"); }

  Fin Rejouer(const std::string& texte, ModeDEntree mode = ModeDEntree::Touches) {
    OptionsSaisie options;
    options.entree = mode;
    const auto lire = [&texte, place = std::size_t{0}](std::string& ligne) mutable {
      if (place >= texte.size()) return false;
      const std::size_t fin = std::min(texte.find('\n', place), texte.size());
      ligne = texte.substr(place, fin - place);
      place = fin + 1;
      return true;
    };
    return Saisie(contexte_, options, lire);
  }
};

}  // namespace

// Where a skip test lands, and that each fires once for an individual: a jump of 3 on the fifth question leads to the
// eighth.
TEST(EtatSaisie, Sauts) {
  struct Cas {
    char signe;
    const char* valeur;
    int nombre;
    const char* touches;
    std::size_t attendue;  // current question, from 0
  };
  const Cas cas[] = {{'=', "2", 3, "Bas*4 Droite*2 Bas", 7},
                     {'=', "2", 3, "Bas*4 Droite Bas", 5},
                     {'<', "3", 3, "Bas*4 Droite*2 Bas", 7},
                     {'>', "1", 2, "Bas*4 Droite*2 Bas", 6},
                     {'=', "2", 1, "Bas*4 Droite*2 Bas", 5},
                     {'=', "2", 30, "Bas*4 Droite*2 Bas", 9},
                     {'=', "2", 3, "Bas*4 Droite*2 Bas Haut*2 Suppr Haut Bas", 5},
                     {'=', "2", 3, "Bas*4 Droite*2 Bas Haut*3 Bas", 5}};
  for (const Cas& c : cas) {
    SCOPED_TRACE(std::string(1, c.signe) + c.valeur + " " + c.touches);
    Descripteur descripteur;
    for (int i = 0; i < 9; ++i) descripteur.descriptions.push_back(Numerique("Q", 9));
    descripteur.descriptions[4] = AvecSaut(Numerique("Q5", 9), c.signe, c.valeur, c.nombre);
    EtatSaisie etat = NouvelleSaisie(descripteur, 0);
    Frapper(etat, c.touches);
    EXPECT_EQ(etat.courante, c.attendue);
  }
}

TEST(EtatSaisie, NombresLongs) {
  EtatSaisie etat = NouvelleSaisie(
      {{AvecSaut(Numerique("Q", 9), '=', "1", 2), Alpha("CP", 5, true), Alpha("NUM", 20, true)}, {}, 0}, 0);
  EXPECT_EQ(Frapper(etat, "Bas 0 0 7 x Bas"), 0) << "a letter is not taken, without a beep";
  EXPECT_EQ(etat.reponses[1], "7    ");
  EXPECT_EQ(Frapper(etat, "Haut 5 1 2 3 4"), 1) << "the fifth digit behind a 7";
  EXPECT_EQ(etat.reponses[1], "75123");
  Frapper(etat, "Bas \"12345678901234567890\" Bas");
  EXPECT_EQ(etat.reponses[2], "12345678901234567890") << "no digit is lost beyond those of a double";
  RecommencerIndividu(etat);
  EXPECT_EQ(Frapper(etat, "Bas Bas Haut \"75012\""), 0) << "a number passed without an answer takes all its digits";
  EXPECT_EQ(etat.reponses[1], "75012");
  RecommencerIndividu(etat);
  Frapper(etat, "Droite Bas Retour");
  EXPECT_EQ(etat.courante, 2U);
  EXPECT_EQ(etat.reponses[1], "") << "a question jumped keeps its empty answer";
  EXPECT_EQ(Enregistrement(etat), "1     " + std::string(20, ' '));
}

TEST(EtatSaisie, CaracteresDesQuestionsAlphabetiques) {
  EtatSaisie etat = NouvelleSaisie({{Alpha("NOM", 10)}, {}, 0}, 0);
  Frapper(etat, Joindre({"\"L'Étœ a\"\"€\""_w}));
  EXPECT_EQ(etat.reponses[0], "l'étœ a\"€"_w);
  Frapper(etat, Joindre({"Suppr VerrMaj \"été ÿ\""_w}));
  EXPECT_EQ(etat.reponses[0], "ÉTÉ Ÿ"_w);
  EXPECT_EQ(Frapper(etat, "Droite \"123456\""), 2) << "Right, and the eleventh character";
  EXPECT_EQ(Frapper(etat, "Fin Droite a 1 Suppr Retour Gauche"), 0) << "the end mark only moves";
}

// With direct entry: what digits give on a code-max, and whether the cursor goes on.
TEST(EtatSaisie, SaisieDirecte) {
  struct Cas {
    int codeMax;
    const char* touches;
    const char* reponse;
    std::size_t courante;
    int bips;
  };
  const Cas cas[] = {{5, "3", " 3", 1, 0},           {5, "7", " 0", 0, 1},      {5, "0", " 0", 1, 0},
                     {25, "3", " 3", 1, 0},          {25, "2", " 2", 0, 0},     {25, "2 5", "25", 1, 0},
                     {25, "2 6", " 2", 0, 1},        {25, "2 6 4", "24", 1, 1}, {25, "0 7", " 7", 1, 0},
                     {25, "2 Droite 5", " 5", 1, 0}, {10, "1", " 1", 0, 0},     {25, "2 Bas", " 2", 1, 0}};
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.touches);
    EtatSaisie etat = NouvelleSaisie({{Numerique("Q", c.codeMax), Numerique("R", 9)}, {}, 0}, 0);
    EXPECT_EQ(Frapper(etat, c.touches[0] == '2' ? "5" : "1"), 0) << "off at the start: a digit does nothing";
    EXPECT_EQ(etat.reponses[0], " 0");
    etat.directe = true;
    EXPECT_EQ(Frapper(etat, c.touches), c.bips);
    EXPECT_EQ(etat.reponses[0], c.reponse);
    EXPECT_EQ(etat.courante, c.courante);
  }
}

TEST(EtatSaisie, CorrigerGardeCeQuOnNeTouchePas) {
  EtatSaisie etat =
      NouvelleSaisie({{Numerique("Q", 9), Numerique("R", 99), Alpha("CP", 4, true), Numerique("S", 9)}, {}, 0}, 3);
  PrendreEnregistrement(etat, 2, "X 7007  suite");
  EXPECT_EQ(Enregistrement(etat), "X 7007  suite");
  Frapper(etat, "Bas Droite Bas Bas");
  EXPECT_EQ(Enregistrement(etat), "X 8007  suite") << "only the answer that was changed";
  EXPECT_EQ(capture::Frapper(etat, {NomDeTouche::Echappement}).demande, DemandeDeSaisie::LaisserLaCorrection);
  EXPECT_EQ(Enregistrement(etat), "X 8007  suite") << "who asks may stay";
  PrendreEnregistrement(etat, 2, "X 7007  suite");
  EXPECT_EQ(capture::Frapper(etat, {NomDeTouche::Echappement}).demande, DemandeDeSaisie::Rien);
  EXPECT_FALSE(etat.corrige) << "Escape leaves the correction, not the entry";
}

TEST(EtatSaisie, CodeAuDelaDuCodeMax) {
  EtatSaisie etat = NouvelleSaisie({{Numerique("Q", 3), Numerique("R", 3)}, {}, 0}, 1);
  PrendreEnregistrement(etat, 1, "77");
  EXPECT_EQ(Frapper(etat, "Gauche Bas Droite"), 2);
  EXPECT_EQ(etat.reponses, (std::vector<std::string>{" 3", " 3"})) << "held at the bound, from either side";
}

TEST(EtatSaisie, EcranDeLaQuestion) {
  Descripteur descripteur{{Numerique("SEX", 2), Numerique("AGE", 40), Alpha("NOM", 5), Alpha("CP", 5, true)}, {}, 0};
  EtatSaisie etat = NouvelleSaisie(descripteur, 0);
  IntitulesModalites intitules;
  intitules.Ajouter("SEX2", "Femme ");
  intitules.Ajouter("AG36", "36 ans");
  EXPECT_EQ(TypeCourant(etat), " Numérique de code-max =2"_w);
  EXPECT_EQ(ConseilCourant(etat), " Vide : utiliser le clavier numérique"_w);
  Frapper(etat, "Droite*2 Bas Droite*36");
  EXPECT_EQ(TexteDeQuestion(etat, -1, intitules), "SEX       2  Femme");
  EXPECT_EQ(IntituleDeReponse(etat, 1, intitules), "36 ans");
  EXPECT_EQ(TexteDeQuestion(etat, 3, intitules), "FIN");
  EXPECT_EQ(TexteDeQuestion(etat, 4, intitules) + TexteDeQuestion(etat, -2, intitules), "");
  Frapper(etat, "Bas");
  EXPECT_EQ(TypeCourant(etat), " Alphanum. de longueur max =5");
  EXPECT_EQ(ConseilCourant(etat), " Vide : utiliser le clavier");
  Frapper(etat, "a");
  EXPECT_EQ(ConseilCourant(etat), " Pour modifier, effacer avec Suppr");
  Frapper(etat, "Bas*2");
  EXPECT_EQ(NomCourant(etat) + TypeCourant(etat) + ReponseCourante(etat), "FIN");
}

TEST(DescripteurDeSaisie, RefusDansLOrdre) {
  EtatDescripteur etat;
  const auto valider = [&](const char* nom, const char* codeMax, GenreDescription genre) {
    return std::string(ValiderQuestion(etat, nom, codeMax, genre));
  };
  constexpr auto kCourte = GenreDescription::NumeriqueCourte;
  constexpr auto kAlpha = GenreDescription::Alphabetique;
  EXPECT_EQ(valider("", "", kCourte), "Nom vide");
  EXPECT_EQ(valider("AB", "", kCourte), "Code max non défini"_w);
  EXPECT_EQ(valider("AB", "", kAlpha), "Largeur non définie"_w);
  EXPECT_EQ(valider("AB", "5", kAlpha), "Le nom n'a pas 3 caractères"_w);
  EXPECT_EQ(valider("ABC", "21", kAlpha), "La largeur est un nombre de 1 à 20"_w);
  for (const char* faux : {"0", "100", "abc", "-1"}) EXPECT_NE(valider("ABC", faux, kCourte), "") << faux;
  EXPECT_EQ(valider("ABC", "25", kCourte), "");
  EXPECT_EQ(valider("ABC", "2", kCourte), "Ce nom est déjà celui d'une autre question"_w);
  EXPECT_EQ(valider("NOM", "5", kAlpha), "");
  EXPECT_EQ(valider("NUM", "12", GenreDescription::NumeriqueLongue), "");
  etat.corrigee = 0;
  EXPECT_EQ(valider("ABC", "3", kCourte), "") << "a question keeps its own name";
  std::string lignes;
  for (const DefinitionDeQuestion& question : etat.questions) lignes += LigneDuDescripteur(question) + "|";
  EXPECT_EQ(lignes, "ABC     3     |NOM     5A    |NUM    12A NUM|");
}

TEST_F(SaisieTest, RepriseEtCorrection) {
  Ecrire("ENQ.DAT", "1 7DURAN\r\n\r\n2 9\r\n");
  EXPECT_EQ(Rejouer("Droite Entree\nEnregistrement=1 Bas Droite Entree\n"), Fin::Normale);
  ASSERT_EQ(boites_.size(), 1U);
  EXPECT_TRUE(boites_[0].ends_with("est de 3")) << "the last record is shorter than the descriptor";
  // The first record written drops the empty line; the correction changes one line.
  EXPECT_EQ(Lire("ENQ.DAT"), "1 8DURAN\r\n2 9\r\n1 0     \r\n");
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 3 \r\nSEX   1 2\r\nAGE   299\r\nNOM   4 5A\r\n");
  EXPECT_TRUE(Dit("faits = 4 \r\n")) << "the lines at the start, the empty one too, and the new one";
}

TEST_F(SaisieTest, RegarderNeChangeRien) {
  Ecrire("ENQ.DAT", "2 3\r\n        \r\n");
  EXPECT_EQ(Rejouer("Enregistrement=1 Bas Entree Enregistrement=2 Entree\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "2 3\r\n        \r\n") << "a shorter line stays short, a blank one blank";
  EXPECT_TRUE(boites_.empty());
}

TEST_F(SaisieTest, LigneViergeCorrigee) {
  Ecrire("ENQ.DAT", "1 7DURAN\r\n        \r\n");
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2\r\nAGE   299\r\nNOM   4 5A\r\n");
  EXPECT_EQ(Rejouer("Enregistrement=2 Droite Entree\n"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "1 7DURAN\r\n1       \r\n");
  EXPECT_TRUE(Lire("ENQ.POS").starts_with("ENQ\r\n 2 \r\n")) << "one record more";
}

TEST_F(SaisieTest, EnregistrementsEnTexte) {
  EXPECT_EQ(Rejouer("1;34;MARC\n2;;\n0;0;\n\n3;1;X\n", ModeDEntree::Enregistrements), Fin::Arret);
  EXPECT_EQ(Lire("ENQ.DAT"), "134MARC \r\n2 0     \r\n") << "an empty record is not kept, a wrong one stops";
  ASSERT_EQ(boites_.size(), 2U);
  EXPECT_EQ(boites_[0], "Enregistrements vides non conservés : 2 (le premier à la ligne 3)"_w);
  EXPECT_EQ(boites_[1], "Ligne 5 : la question SEX attend un code de 0 à 2 et non \"3\""_w);
  EXPECT_TRUE(Dit(boites_[1]) && !Dit("Fin normale")) << montre_;
  boites_.clear();
  EXPECT_EQ(Rejouer("Droite Entree Droite*2 Bas\n"), Fin::Normale);
  EXPECT_EQ(boites_, std::vector<std::string>{std::string(
                         "Réponses non validées par Entrée, non conservées : celles de l'enregistrement 4"_w)});
}

// A record that comes as a whole is what its keys would have made: the long number loses its zeros, and what a skip
// test does not let one answer is kept and told.
TEST_F(SaisieTest, EnregistrementsCommeAuClavier) {
  Ecrire("ENQ.DES", "SEX     2 Si =2+2\r\nAGE     9 \r\nNUM     6A NUM\r\n");
  EXPECT_EQ(Rejouer("1;3;0012\n1;3;\n2;;7\n2;4;012\n1;5;000\n", ModeDEntree::Enregistrements), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.DAT"), "1312    \r\n13      \r\n207     \r\n2412    \r\n150     \r\n");
  EXPECT_EQ(boites_,
            std::vector<std::string>{std::string(
                "Enregistrements dont un nombre long est récrit sans les zéros de devant : 3 (le premier à la "
                "ligne 1, question NUM)\r\nEnregistrements qui gardent une réponse à une question que saute un "
                "test du descripteur : 1 (le premier à la ligne 4, question AGE)"_w)});
  boites_.clear();
  EXPECT_EQ(Rejouer("Enregistrement=1 Droite Echap\nEnregistrement=2 Echap\n"), Fin::Normale);
  EXPECT_EQ(boites_,
            std::vector<std::string>{std::string(
                "Enregistrements corrigés puis laissés par Echap, non changés : 1 (le premier à la ligne 1)"_w)});
  boites_.clear();
  EXPECT_EQ(Rejouer(NomDepuisUtf8("Bas*2 \"\xE6\x97\xA5\"\n")), Fin::Arret);
  EXPECT_TRUE(boites_.front().starts_with("Ligne 1 : le caractère 8, "_w)) << boites_.front();
}

TEST_F(SaisieTest, RienNEstPerdu) {
  Ecrire("ENQ.POS", "ENQ\r\n 1 \r\nSEX   1 2 $Sexe$\r\n");
  Ecrire("ENQ.PO2", "avant\r\n");
  Ecrire("ENQ.DAT", "1 7DURAN");  // without its end
  const std::optional<SaisieEnCours> saisie = CommencerSaisie(contexte_, Synchronisation::Non);
  ASSERT_TRUE(saisie);
  EXPECT_NE(saisie->fautes.find("\r\nL'ancienne sauvegarde ENQ.PO2 sera conservée sous le nom ENQ.PO3"_w),
            std::string::npos);
  EXPECT_EQ(Rejouer("Entree"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.POS"), "ENQ\r\n 1 \r\nSEX   1 2 $Sexe$\r\n") << "an empty record touches no file";
  {
    const essai::DisquePlein disque(12);
    EXPECT_EQ(Rejouer("Droite Entree"), Fin::Arret);
  }
  EXPECT_EQ(Lire("ENQ.DAT"), "1 7DURAN");
  EXPECT_EQ(Rejouer("Droite Entree"), Fin::Normale);
  EXPECT_EQ(Lire("ENQ.PO2"), "ENQ\r\n 1 \r\nSEX   1 2 $Sexe$\r\n") << "labels that the descriptor does not know";
  EXPECT_EQ(Lire("ENQ.PO3"), "avant\r\n");
  EXPECT_EQ(Lire("ENQ.DAT"), "1 7DURAN\r\n1 0     \r\n");
}

TEST_F(SaisieTest, PositionsQuePosNeDitPas) {
  std::string des;
  for (int i = 100; i < 600; ++i) des += std::to_string(i) + "    20A    \r\n";
  Ecrire("ENQ.DES", des + "ZZZ     2     \r\nZZY     9     \r\n");
  const std::optional<SaisieEnCours> saisie = CommencerSaisie(contexte_, Synchronisation::Non);
  ASSERT_TRUE(saisie);
  EXPECT_EQ(saisie->fautes,
            "*** Attention cette question et les suivantes sont au-delà de la position 9999, *.POS ne peut pas les "
            "désigner Question ZZZ    "_w);
  EXPECT_EQ(Rejouer("PageSuivante*50 Droite*2 Entree"), Fin::Normale);
  EXPECT_TRUE(Lire("ENQ.POS").ends_with("599998120A\r\n")) << "none runs over the next columns";
}

TEST_F(SaisieTest, UnAutreProgrammeChangeLesDonnees) {
  std::optional<SaisieEnCours> saisie = CommencerSaisie(contexte_, Synchronisation::Non);
  ASSERT_TRUE(saisie);
  Frapper(saisie->etat, "Droite");
  Enregistrer(*saisie);
  std::filesystem::rename(dossier_.Chemin() / "ENQ.DAT", dossier_.Chemin() / "AVANT");
  Ecrire("ENQ.DAT", "2 0     \r\n2 1     \r\n");
  Frapper(saisie->etat, "Droite");
  Enregistrer(*saisie);
  EXPECT_EQ(Lire("ENQ.DAT"), "2 0     \r\n2 1     \r\n1 0     \r\n");
  EXPECT_TRUE(Lire("ENQ.POS").starts_with("ENQ\r\n 3 \r\n"));
  EXPECT_EQ(Lire("AVANT"), "1 0     \r\n");
}

// An entry of three records that is killed at each of its system calls: the data are whole lines, none that was
// acknowledged is missing, and whatever program comes next finds a .POS that matches.
TEST_F(SaisieTest, TueeAChacunDeSesAppels) {
  constexpr std::int64_t kEnregistrements = 3;
  std::set<std::int64_t> vus;
  for (appelVise = 1;; ++appelVise) {
    for (const auto& f : std::filesystem::directory_iterator(dossier_.Chemin()))
      if (f.path().filename() != "ENQ.DES") std::filesystem::remove(f);
    int tube[2];
    ASSERT_EQ(pipe(tube), 0);
    const pid_t enfant = fork();
    if (enfant == 0) {
      appels::PoserSonde(TuerALAppelVise);
      std::optional<SaisieEnCours> saisie = CommencerSaisie(contexte_, Synchronisation::Non);
      for (std::int64_t n = 0; n < kEnregistrements; ++n) {
        Repondre(saisie->etat, 0, "1");
        Repondre(saisie->etat, 2, "ABCDE");
        Enregistrer(*saisie);
        if (write(tube[1], ".", 1) != 1) _exit(1);
      }
      _exit(0);
    }
    close(tube[1]);
    std::int64_t acquis = 0;
    for (char fait = 0; read(tube[0], &fait, 1) == 1;) ++acquis;
    close(tube[0]);
    int etat = 0;
    waitpid(enfant, &etat, 0);
    if (WIFEXITED(etat)) {
      EXPECT_EQ(WEXITSTATUS(etat), 0);
      break;
    }
    SCOPED_TRACE("killed at call " + std::to_string(appelVise));
    const quelvar::GeneriqueTenu suivant(dossier_.Chemin(), "ENQ", "ENQ.TAP");
    const std::string dat = Existe("ENQ.DAT") ? Lire("ENQ.DAT") : "";
    const auto lignes = static_cast<std::int64_t>(dat.size() / 10);
    vus.insert(lignes);
    EXPECT_TRUE(lignes == acquis || lignes == acquis + 1) << lignes << " of " << acquis;
    std::string attendu;
    for (std::int64_t n = 0; n < lignes; ++n) attendu += "1 0ABCDE\r\n";
    EXPECT_EQ(dat, attendu);
    if (lignes > 0) {
      EXPECT_EQ(Lire("ENQ.POS"),
                Joindre({"ENQ\r\n", NombreNu(lignes), "\r\nSEX   1 2\r\nAGE   299\r\nNOM   4 5A\r\n"}));
    }
  }
  EXPECT_EQ(vus, (std::set<std::int64_t>{0, 1, 2, 3}));
}
