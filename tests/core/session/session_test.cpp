#include "core/session/session.h"

#include <gtest/gtest.h>

#include "core/panne/erreur.h"
#include "core/session/recents.h"
#include "support/environnement.h"
#include "support/reglages.h"

namespace {

using namespace quelvar;

// A session on a directory of its own; the program's directory is another one.
struct Essai {
  essai::DossierTemporaire dossier;
  Chemin donnees = dossier.Chemin() / "Étude";
  Chemin programme = dossier.Chemin() / "programme";
  Reglages reglages = essai::ReglagesEnMemoire();
  Session session;

  Essai() {
    std::filesystem::create_directories(donnees);
    std::filesystem::create_directories(programme);
    session = DemarrerSession(programme).session;
    PrendreRepertoire(session, donnees);
  }
  void Ecrire(const char* nom, std::string_view octets) const { essai::EcrireOctets(donnees / nom, octets); }
  std::string Ini() const { return LireOctets(donnees / "qvr2.ini"); }
  std::string Titre(std::string_view texte) const { return Joindre({texte, TexteRepertoire(donnees)}); }
};

TEST(Session, AccueilSansPointeur) {
  const essai::DossierTemporaire programme;
  const Demarrage demarrage = DemarrerSession(programme.Chemin());
  EXPECT_FALSE(demarrage.aOuvrir);
  EXPECT_EQ(demarrage.texte,
            "Pas de fichier ouvert\r\n\r\n"
            "Pour une première utilisation : dans le menu 'Fichier de démarrage' prendre l'option "
            "'Première utilisation'\r\n\r\n"
            "   sinon utiliser au choix :\r\n"
            "          - les fichiers récents affichés sous 'quitter'\r\n"
            "          - soit un des menus (Précédent..., Chercher..., Afficher/...)du même 'Fichier de démarrage'\r\n"
            "            puis éventuellement l'entrée 'Générique' à droite de l'écran, \r\n"
            "Vous utilisez la version 5.3 de Quelvar\r\n"_w);
  EXPECT_EQ(demarrage.session.titre,
            Joindre({"Pas de générique en cours, niveau d'utilisateur non déterminé, répertoire="_w,
                     TexteDe(programme.Chemin()), "/"}));
  EXPECT_EQ(demarrage.session.ancien, "Non encore utilisé"_w);
  EXPECT_EQ(demarrage.session.niveau, 1);
}

TEST(Session, PointeurDUneSessionALAutre) {
  for (const char* nom : {"Enquête", "données–日本", "double  blanc"}) {
    const essai::DossierTemporaire dossier;
    const Chemin donnees = dossier.Chemin() / nom;
    std::filesystem::create_directories(donnees);
    Session session = DemarrerSession(dossier.Chemin()).session;
    PrendreRepertoire(session, donnees);
    EcrirePointeur(session.repertoireProgramme, session.initialisation);
    const Demarrage suivante = DemarrerSession(dossier.Chemin());
    EXPECT_TRUE(suivante.aOuvrir);
    EXPECT_EQ(suivante.session.repertoire, donnees);
    EXPECT_EQ(suivante.session.initialisation, donnees / "qvr2.ini");
    EXPECT_EQ(std::filesystem::current_path(), donnees) << "the working directory is that of the process";
    std::filesystem::current_path("/");
  }
}

TEST(Session, RepertoireDuProgrammeSeRabatSurCeluiDeLUtilisateur) {
  const essai::DossierTemporaire dossier;
  const Chemin utilisateur = dossier.Chemin() / "local" / "Quelvar";
  EXPECT_EQ(RepertoireDuProgramme(dossier.Chemin() / "quelvar", utilisateur), dossier.Chemin());
  EXPECT_FALSE(std::filesystem::exists(utilisateur));
  EXPECT_EQ(RepertoireDuProgramme(dossier.Chemin() / "absent" / "quelvar", utilisateur), utilisateur);
  EXPECT_TRUE(std::filesystem::is_directory(utilisateur));
}

TEST(Session, DerniereBarreDoubleOtee) {
  EXPECT_EQ(TexteRepertoire("/a/b"), "/a/b/");
  EXPECT_EQ(TexteRepertoire("/a/b/"), "/a/b/");
  EXPECT_EQ(TexteRepertoire("/a/b//"), "/a/b/");
  EXPECT_EQ(TexteRepertoire("/"), "/");
}

TEST(Session, OuvertureSelonLesFichiers) {
  struct Cas {
    const char* nom;
    const char* ini;  // nullptr: no file
    const char* pos;
    Ouverture ouverture;
    const char* generique;
    int niveau;
    double individus;
  };
  const Cas cas[] = {
      {"normal", "ENQ\r\n 2 \r\n", "Titre\r\n 300 \r\n", Ouverture::Normale, "ENQ", 2, 300},
      {"weighted, keywords behind the count", "ENQ\r\n 1 \r\n", "T\n 1 000 (100) POND\n", Ouverture::Normale, "ENQ", 1,
       1000},
      {"line feeds only, no end", "ENQ\n2", "T\n12", Ouverture::Normale, "ENQ", 2, 12},
      {"level 0 becomes 1", "ENQ\r\n 0 \r\n", "T\r\n5\r\n", Ouverture::Normale, "ENQ", 1, 5},
      {"level beyond 16 bits", "ENQ\r\n99999999999\r\n", "T\r\n5\r\n", Ouverture::Normale, "ENQ", 1, 5},
      {"level of letters", "ENQ\r\nmaximum\r\n", "T\r\n5\r\n", Ouverture::Normale, "ENQ", 1, 5},
      {"generic with its extension", "ENQ.POS\r\n1\r\n", "T\r\n5\r\n", Ouverture::Normale, "ENQ", 1, 5},
      {".pos of one line", "ENQ\r\n1\r\n", "T\r\n", Ouverture::Normale, "ENQ", 1, 0},
      {"count of letters", "ENQ\r\n1\r\n", "T\r\nbeaucoup\r\n", Ouverture::Normale, "ENQ", 1, 0},
      {"count beyond a double", "ENQ\r\n1\r\n", "T\r\n1e999\r\n", Ouverture::Normale, "ENQ", 1, 0},
      {"no .pos", "ENQ\r\n 2 \r\n", nullptr, Ouverture::SansPos, "ENQ", 2, 0},
      {"empty ini", "", nullptr, Ouverture::SansPos, "", 1, 0},
      {"no ini", nullptr, "T\r\n5\r\n", Ouverture::SansInitialisation, "", 1, 0},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.nom);
    Essai essai;
    if (c.ini) essai.Ecrire("QVR2.INI", c.ini);
    if (c.pos) essai.Ecrire("Enq.Pos", c.pos);
    PrendreRepertoire(essai.session, essai.donnees);
    const std::string texte = OuvrirGenerique(essai.session, essai.reglages);
    EXPECT_EQ(essai.session.ouverture, c.ouverture);
    EXPECT_EQ(essai.session.generique, c.generique);
    EXPECT_EQ(essai.session.niveau, c.niveau);
    EXPECT_EQ(essai.session.individus, c.individus);
    EXPECT_EQ(FichiersRecents(essai.reglages).size(), c.ouverture == Ouverture::Normale ? 1U : 0U);
    if (c.ouverture == Ouverture::SansPos)
      EXPECT_EQ(texte, Joindre({"Impossible d'ouvrir le fichier ", TexteRepertoire(essai.donnees),
                                std::string(c.generique), ".pos\r\n Afficher/modifier repertoire en cours\r\n"}));
    else EXPECT_EQ(texte, "");
  }
}

TEST(Session, InitialisationIllisible) {
  Essai essai;
  std::filesystem::create_directory(essai.donnees / "Qvr2.ini");  // something that no reading opens
  PrendreRepertoire(essai.session, essai.donnees);
  const std::string texte = OuvrirGenerique(essai.session, essai.reglages);
  EXPECT_EQ(essai.session.ouverture, Ouverture::SansInitialisation);
  EXPECT_NE(texte.find("ne peut pas être lu : Qvr2.ini est un répertoire et non un fichier"_w), std::string::npos)
      << texte;
}

TEST(Session, EtatDuRepertoire) {
  struct Cas {
    const char* nom;
    Ouverture ouverture;
    std::vector<const char*> fichiers;
    std::string_view texte;
    std::vector<const char*> choix;  // behind the line of "-"
  };
  const Cas cas[] = {
      {"no initialisation file",
       Ouverture::SansInitialisation,
       {},
       "*** Attention *** \r\nIl n'y a pas de fichier d'initialisation (Qvr2.ini) dans ce répertoire\r\n"
       "   il faut entrer un nouveau générique ou changer de répertoire\r\n\r\n"_w,
       {}},
      {"no .pos and nothing else",
       Ouverture::SansPos,
       {"notes.odt", "ENQ.TAP"},
       "*** Attention *** \r\nLe générique en cours dans ce répertoire (ENQ) n'a pas de fichier *.pos \r\n"
       "   il faut entrer des données\r\n\r\nIl n'y a pas d'autres génériques disponibles dans ce répertoire \r\n"_w,
       {}},
      {"no .pos, other generics",
       Ouverture::SansPos,
       {"AUTRE.TXT"},
       "*** Attention *** \r\nLe générique en cours dans ce répertoire (ENQ) n'a pas de fichier *.pos \r\n"
       "   vérifiez les fichiers disponibles par le menu 'affichage'\r\n\r\n"
       "D'autres génériques sont disponibles dans ce répertoire \r\nAUTRE\r\n"_w,
       {"AUTRE"}},
      {"opened",
       Ouverture::Normale,
       {"enq.mod", "ENQ.POS", "ENQ.DAT", "ENQ.CSV", "abc.brt", "Zoe.DBF", "ENQ-2.dat", "enq.tap", "Été.pos"},
       "Le générique en cours dans ce répertoire est : ENQ\r\n"
       "  il a été ouvert normalement et comporte 8403 individus\r\n"
       "Liste des génériques disponibles dans ce répertoire :\r\nabc\r\nENQ-2\r\nENQ\r\nZoe\r\nÉté\r\n"_w,
       {"abc", "ENQ-2", "ENQ", "Zoe", "Été"}},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.nom);
    Essai essai;
    for (const char* fichier : c.fichiers) essai.Ecrire(fichier, "x");
    std::filesystem::create_directory(essai.donnees / "dossier.dat");  // not a file
    essai.session.generique = "ENQ";
    essai.session.ouverture = c.ouverture;
    essai.session.individus = 8403;
    essai.session.vus = "UN;deux;";
    const RapportRepertoire rapport = EtatRepertoire(essai.session);
    EXPECT_EQ(rapport.texte, c.texte);
    EXPECT_EQ(rapport.attendGenerique, c.ouverture == Ouverture::SansInitialisation);
    std::vector<std::string> attendus = {"ENQ", "UN", "deux", "------------------"};
    for (const char* choix : c.choix) attendus.push_back(DepuisUtf8(choix));
    EXPECT_EQ(rapport.choix, attendus);
  }
}

TEST(Session, RepertoireDisparu) {
  Essai essai;
  std::filesystem::remove_all(essai.donnees);
  EXPECT_NE(EtatRepertoire(essai.session).texte.find("ne peut pas être lu : Chemin d'accès introuvable"_w),
            std::string::npos);
  const Acceptation acceptation = AccepterGenerique(essai.session, essai.reglages, "ENQ");
  EXPECT_TRUE(acceptation.acceptee);
  EXPECT_NE(acceptation.texte.find("ne peut pas être écrit : Chemin d'accès introuvable"_w), std::string::npos)
      << acceptation.texte;
  EXPECT_EQ(essai.session.generique, "ENQ");
}

TEST(Session, NomsAcceptes) {
  struct Cas {
    std::string_view saisi;
    std::string_view generique;  // empty: refused
  };
  const Cas cas[] = {{"ENQ", "ENQ"},     {"ENQ.POS", "ENQ"}, {"a.b.c", "a"},
                     {"", ""},           {"   ", ""},        {".POS", ""},
                     {"a/b", ""},        {"a\\b", ""},       {"------------------", ""},
                     {"-----", "-----"}, {"a\nb", ""},       {"Été 2"_w, "Été 2"_w}};
  for (const Cas& c : cas) {
    SCOPED_TRACE(std::string(c.saisi));
    Essai essai;
    const Acceptation acceptation = AccepterGenerique(essai.session, essai.reglages, c.saisi);
    EXPECT_EQ(acceptation.acceptee, !c.generique.empty());
    EXPECT_EQ(essai.session.generique, c.generique);
    if (c.generique.empty()) {
      EXPECT_TRUE(acceptation.texte.ends_with(": recommencer\r\n"));
      EXPECT_FALSE(std::filesystem::exists(essai.donnees / "qvr2.ini"));
    } else {
      EXPECT_EQ(essai.Ini(), Joindre({c.generique, "\r\n 1 \r\n"}));
    }
  }
}

TEST(Session, ChaineDesGeneriques) {
  Essai essai;
  Session& session = essai.session;
  const auto accepter = [&](std::string_view nom) { AccepterGenerique(session, essai.reglages, nom); };
  accepter("ENQ");
  EXPECT_EQ(session.ancien, "Non encore utilisé"_w);
  EXPECT_EQ(session.vus, "Non encore utilisé;"_w);
  accepter("ENQA");
  EXPECT_EQ(session.ancien, "ENQ");
  accepter("enq");
  accepter("AUTRE");
  EXPECT_EQ(session.ancien, "enq");
  EXPECT_EQ(session.vus, "Non encore utilisé;ENQ;ENQA;"_w) << "seen once, whatever its case";
  essai.Ecrire("AUTRF.POS", "T\r\n 40 \r\n");
  EXPECT_EQ(AdopterGenerique(session, essai.reglages, "AUTRF"), "");
  EXPECT_EQ(session.ancien, "AUTRE");
  EXPECT_EQ(session.individus, 40);
  EXPECT_EQ(essai.Ini(), "AUTRF\r\n 1 \r\n");
  EXPECT_EQ(session.titre, essai.Titre(" Générique en cours= AUTRF, niveau d'utilisateur=1, répertoire en cours ="_w));
}

TEST(Session, PremierGeneriqueDUneNouvelleUtilisation) {
  Essai essai;
  essai.session.titre = kTitreNouvelleUtilisation;
  const Acceptation premiere = AccepterGenerique(essai.session, essai.reglages, "ENQ");
  EXPECT_TRUE(premiere.premiere);
  EXPECT_EQ(premiere.texte,
            Joindre({"Le répertoire est "_w, TexteRepertoire(essai.donnees),
                     " et le générique est ENQ\r\n"
                     "Pour changer de répertoire utilisez menu Afficher/modifier répertoire en cours \r\n"
                     "Utilisez saisie ou import (dans menu Nouvelles données)\r\n"_w}));
  const Acceptation seconde = AccepterGenerique(essai.session, essai.reglages, "ENQB");
  EXPECT_FALSE(seconde.premiere);
  EXPECT_EQ(seconde.texte,
            Joindre({"Le répertoire est "_w, TexteRepertoire(essai.donnees), " et le générique est ENQB\r\n"_w}));
}

TEST(Session, NiveauEcritSeulementAvecUnGenerique) {
  Essai essai;
  EXPECT_EQ(ChangerNiveau(essai.session, 2), "");
  EXPECT_FALSE(std::filesystem::exists(essai.donnees / "qvr2.ini"));
  EXPECT_EQ(essai.session.titre, " Pas de générique en cours, niveau d'utilisateur=2"_w);
  AccepterGenerique(essai.session, essai.reglages, "ENQ");
  EXPECT_EQ(essai.Ini(), "ENQ\r\n 2 \r\n");
  ChangerNiveau(essai.session, 1);
  EXPECT_EQ(essai.Ini(), "ENQ\r\n 1 \r\n");
}

TEST(Session, UneAutreFenetreNEstPasEffaceeEnSilence) {
  Essai essai;
  AccepterGenerique(essai.session, essai.reglages, "ENQ");
  essai.Ecrire("qvr2.ini", "AUTRE\r\n 2 \r\n");
  const std::string texte = ChangerNiveau(essai.session, 2);
  EXPECT_NE(texte.find("le générique AUTRE (niveau d'utilisateur=2)"_w), std::string::npos) << texte;
  EXPECT_EQ(essai.Ini(), "ENQ\r\n 2 \r\n");
  EXPECT_EQ(ChangerNiveau(essai.session, 1), "") << "told once";
}

TEST(Session, QuatreFichiersRecents) {
  Essai essai;
  std::filesystem::create_directories(essai.donnees / "Un");
  essai::EcrireOctets(essai.donnees / "Un" / "qvr2.ini", "Été\r\n1\r\n"_w);
  const std::string haut = (essai.donnees / "x").parent_path().native();
  for (const char* nom : {"un", "deux", "trois", "quatre", "TROIS", "cinq"})
    AjouterFichierRecent(essai.reglages, essai.donnees / nom / "qvr2.ini");
  const auto chemins = [&] {
    std::vector<std::string> noms;
    for (const EntreeRecente& entree : FichiersRecents(essai.reglages)) noms.push_back(entree.chemin);
    return noms;
  };
  EXPECT_EQ(chemins(), (std::vector<std::string>{haut + "/cinq/qvr2.ini", haut + "/TROIS/qvr2.ini",
                                                 haut + "/quatre/qvr2.ini", haut + "/trois/qvr2.ini"}))
      << "two directories whose names differ in case are two";
  AjouterFichierRecent(essai.reglages, essai.donnees / "Un" / "qvr2.ini");
  const std::vector<EntreeRecente> entrees = FichiersRecents(essai.reglages);
  EXPECT_EQ(entrees[0].generique, "Été"_w);
  EXPECT_EQ(entrees[0].fichier, essai.donnees / "Un" / "qvr2.ini");
  EXPECT_EQ(entrees[1].generique, "indéterminé"_w) << "a directory that vanished";
  EXPECT_FALSE(entrees[1].fichier.has_value());
  // As an earlier version kept it.
  AjouterRecent(essai.reglages, kRecentsPrincipal, MajusculesUtf8((essai.donnees / "Un" / "qvr2.ini").native()));
  EXPECT_EQ(FichiersRecents(essai.reglages)[0].fichier, essai.donnees / "Un" / "qvr2.ini");
}

}  // namespace
