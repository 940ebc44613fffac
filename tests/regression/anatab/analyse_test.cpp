// Sorting of records, pairs of situations and their measures, against their definitions.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <tuple>

#include "core/calcul/tris.h"
#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/resultats/colonnedenombres.h"
#include "regression/anatab.h"
#include "regression/anatab/fiches.h"
#include "regression/anatab/souseffets.h"
#include "regression/logistique/indistincts.h"
#include "support/environnement.h"
#include "support/erreur.h"
#include "support/programme.h"

namespace quelvar::regression {

namespace {

// `questions` explanatory questions of `modalites` modalities, the second the reference, and an explained one.
Modele ModeleDe(std::size_t questions, std::size_t modalites) {
  std::vector<Modalite> lignes;
  for (std::size_t q = 0; q < questions; ++q)
    for (std::size_t m = 0; m < modalites; ++m) {
      const std::string nom = "Q" + Nombre(q) + "_" + Nombre(m);
      lignes.push_back(LireLigneModalite(nom + (m == 1 ? " R " : " X ") + nom));
    }
  lignes.push_back(LireLigneModalite("OUI1 Y oui"));
  lignes.push_back(LireLigneModalite("OUI2   non"));
  std::vector<ModaliteCodee> codage = LireCodage(lignes);
  std::vector<QuestionCodee> questionsCodees = QuestionsDe(codage);
  return ConstruireModele(std::move(codage), std::move(questionsCodees));
}

Individus IndividusAuHasard(const Modele& modele, std::size_t nombre, unsigned graine) {
  std::mt19937 hasard(graine);
  Individus individus(modele.LargeurFiche());
  for (std::size_t i = 0; i < nombre; ++i) {
    std::string fiche(modele.LargeurFiche(), '0');
    for (const QuestionCodee& question : modele.explicantes)
      fiche[question.premiere + hasard() % question.nombre] = '1';
    const bool oui = hasard() % 2 == 0;
    fiche[fiche.size() - (oui ? 2 : 1)] = '1';
    individus.fiche.push_back(individus.fiches.Ranger(fiche));
  }
  return individus;
}

TEST(Fiches, LOrdreEstCeluiDuTriParTasSurLesValeurs) {
  // 10 characters are exact in a double; 30 are not: several records share a value.
  for (const std::size_t questions : {std::size_t{2}, std::size_t{7}}) {
    const Modele modele = ModeleDe(questions, 4);
    const Individus individus = IndividusAuHasard(modele, 3000, 11);
    struct Cle {
      double valeur;
      NumeroFiche fiche;
    };
    std::vector<Cle> cles;
    for (const NumeroFiche f : individus.fiche) cles.push_back({ValeurDe(individus.fiches[f]), f});
    TrierParTas(std::span(cles), [](const Cle& a, const Cle& b) { return a.valeur > b.valeur; });
    const std::vector<NumeroFiche> triees = TrierFiches(individus, Dialogue{});
    for (std::size_t i = 0; i < cles.size(); ++i) ASSERT_EQ(triees[i], cles[i].fiche) << questions << " at " << i;
  }
}

TEST(SousEffets, SontToutesLesPairesQuiNeDifferentQueParUneReference) {
  const Modele modele = ModeleDe(4, 3);
  const Individus individus = IndividusAuHasard(modele, 400, 5);
  const std::vector<Comptee> comptees =
      GarderLesPaires(CompterVoisines(TrierFiches(individus, Dialogue{})), individus.fiches);
  const TableSituations table = FormerSituations(comptees, individus.fiches, modele);
  const std::vector<CelluleDeSituation> cellules = CellulesDe(modele);
  const Voisinages voisinages = VoisinagesDe(table, cellules);
  std::vector<SousEffet> trouves;
  const auto prendre = [&](const SousEffet& sousEffet) { trouves.push_back(sousEffet); };
  ParcourirSousEffets(table, cellules, voisinages, prendre);
  std::size_t rang = 0;
  for (std::uint32_t i = 0; i < table.situations.size(); ++i)
    for (std::uint32_t j = i; j < table.situations.size(); ++j) {
      std::vector<std::uint32_t> differentes;
      for (std::uint32_t c = 0; c < table.questions; ++c)
        if (table.Modalites(i)[c] != table.Modalites(j)[c]) differentes.push_back(c);
      if (differentes.size() != 1) continue;
      const bool premiere = cellules[table.Modalites(i)[differentes[0]]].reference;
      if (!premiere && !cellules[table.Modalites(j)[differentes[0]]].reference) continue;
      ASSERT_LT(rang, trouves.size());
      EXPECT_EQ(trouves[rang].premiere, i);
      EXPECT_EQ(trouves[rang].seconde, j);
      EXPECT_EQ(trouves[rang].question, differentes[0]);
      EXPECT_EQ(trouves[rang].Reference(), premiere ? i : j);
      ++rang;
    }
  EXPECT_EQ(rang, trouves.size());
  EXPECT_GT(rang, 50U);
  // By modality: the same ones in the same order.
  for (std::size_t k = 0; k < modele.Explicatives(); ++k) {
    std::vector<SousEffet> attendus;
    std::copy_if(trouves.begin(), trouves.begin() + static_cast<std::ptrdiff_t>(rang), std::back_inserter(attendus),
                 [&](const SousEffet& paire) {
                   return cellules[table.Modalites(paire.Comparee())[paire.question]].designee == k;
                 });
    trouves.resize(rang);
    ParcourirSousEffets(table, cellules, voisinages, k, prendre);
    ASSERT_EQ(trouves.size() - rang, attendus.size());
    for (std::size_t i = 0; i < attendus.size(); ++i)
      EXPECT_EQ(std::tie(trouves[rang + i].premiere, trouves[rang + i].seconde),
                std::tie(attendus[i].premiere, attendus[i].seconde));
  }
}

// Profiles of four parameters: each row lists those that it holds.
TEST(ParametresIndistincts, SontCeuxQueLesProfilsNeSeparentPas) {
  const struct {
    std::vector<std::vector<std::uint32_t>> profils;
    std::vector<std::size_t> indistincts;
  } cas[] = {
      {{{}, {0}, {1}, {2}, {3}}, {}},
      {{{}, {0, 2}, {1}, {3}}, {0, 2}},                      // always together
      {{{}, {0, 2}, {1, 2}, {3}, {0}}, {}},                  // together, and one alone
      {{{}, {0}, {1}, {0, 1}}, {}},                          // two that nobody has are no matter of sharing
      {{{}, {0, 2}, {0, 3}, {1, 2}, {1, 3}}, {0, 1, 2, 3}},  // the sum of the first two is that of the others
  };
  for (const auto& [profils, indistincts] : cas) {
    Observations observations;
    observations.parametres = 4;
    for (const std::vector<std::uint32_t>& profil : profils) {
      for (const std::uint32_t rang : profil) observations.termes.push_back({rang, 1});
      observations.departs.push_back(observations.termes.size());
    }
    EXPECT_EQ(ParametresIndistincts(observations), indistincts) << profils.size();
  }
}

// The order of the records, as given here, keeps situations together, takes them apart, or turns them round.
TEST(Melange, EstVuLaOuLOrdreSepareCeQuiVaEnsemble) {
  const struct {
    std::vector<std::string> ordre;  // a situation of two characters, then yes ("10") or no ("01")
    bool mele;
    std::size_t morceaux, inversees;
    std::int64_t population;
  } cas[] = {
      {{"1010", "1010", "1001", "0110", "0101"}, false, 0, 0, 0},
      {{"1010", "0101"}, false, 0, 0, 0},  // no pair, and nothing apart
      {{"1010", "1001", "1010", "0110", "0101"}, true, 2, 1, 5},
      {{"1001", "1010", "0110"}, true, 2, 1, 2},          // the second has no "no": an exact order leaves it out too
      {{"1010", "0110", "1001", "0101"}, true, 4, 0, 4},  // all four records there can be
  };
  for (const auto& [ordre, mele, morceaux, inversees, population] : cas) {
    Individus individus(4);
    for (const std::string& fiche : ordre) individus.fiche.push_back(individus.fiches.Ranger(fiche));
    const std::optional<Melange> melange = MelangeDesFiches(individus, CompterVoisines(individus.fiche), 4);
    ASSERT_EQ(melange.has_value(), mele);
    if (!melange) continue;
    EXPECT_EQ(melange->situations, 2U);
    EXPECT_EQ(melange->morceaux, morceaux);
    EXPECT_EQ(melange->inversees, inversees);
    EXPECT_EQ(melange->population, population);
  }
}

// A column is as wide as its largest number asks for, with a blank where a number stands in front of it.
TEST(ColonneDeNombres, SElargitPourCeQuiNYTientPas) {
  ColonneDeNombres libre(3, 1);
  ColonneDeNombres derriere(3, 1, Voisin::Nombre);
  for (ColonneDeNombres* colonne : {&libre, &derriere}) colonne->Voir(123.4);
  EXPECT_EQ(libre(5), "  5.0");
  EXPECT_EQ(libre.Ajout(), "");
  EXPECT_EQ(derriere(123.4), " 123.4");
  EXPECT_EQ(derriere.Ajout(), " ");
  EXPECT_EQ(Figure(-0.0361, 1, 4), "-0.0361");
  // At the end of a line, the same text.
  for (const int decimales : {0, 1, 2, 3})
    for (const double valeur :
         {0.0, -0.04, -0.05, 0.05, 0.15, 0.25, -0.3, 9.96, 12.345, -123.4, 99999.5, 1e9, -1e16, 3e20}) {
      ColonneDeNombres colonne(4, decimales);
      for (const bool vue : {false, true}) {
        if (vue) colonne.Voir(valeur);
        std::string ligne = "x";
        colonne.Ajouter(ligne, valeur);
        EXPECT_EQ(ligne, "x" + colonne(valeur)) << decimales;
      }
    }
  EXPECT_EQ(Figure(1234567, 5, 0), "1234567");
  EXPECT_EQ(Figure(35742151557327244.0, 8, 4), "35742151557327244.0000");
}

// The worked example of a 2 x 2 table: 20 of 30 against 10 of 50; by hand N(ad-bc)^2 / (products of the margins).
TEST(KhiPaire, EstLeKhiDeuxDuTableauDeDeuxLignes) {
  const Khi2Paire paire = KhiPaire(30, 50, 20, 10);
  EXPECT_NEAR(paire.khi2, 80.0 * 700 * 700 / (30.0 * 50 * 30 * 50), 1e-12);
  EXPECT_EQ(paire.classe, 3);
  EXPECT_EQ(KhiPaire(30, 50, 15, 25).classe, 0);
  const auto marque = [](double khi2) { return khi2 > 6.64 ? 3 : khi2 > 3.84 ? 2 : khi2 > 2.71 ? 1 : 0; };
  for (double y = 1; y < 60; ++y) {
    const Khi2Paire k = KhiCellule(200, 80, 60, y);
    EXPECT_EQ(k.classe, marque(k.khi2));
  }
  for (const double oui : {0.0, 200.0})
    EXPECT_EQ(essai::NumeroLeve([&] { KhiCellule(200, oui, 60, oui > 0 ? 60 : 0); }), kDivisionParZero);
}

}  // namespace

class RunAnatab : public essai::RunDeProgramme {};

// Two runs of one name: the tabular part would take two questions, the experimental effect one.
TEST_F(RunAnatab, QuestionsDeMemeNom) {
  std::string donnees;
  for (const char* const ligne : {"101010", "100110", "101001", "100101", "011010", "010110", "011001", "010101"})
    donnees += Joindre({"    ", std::string_view(ligne), "\n"});
  Ecrire("ENQ.CDG", donnees);
  const auto fin = [&](std::string_view nom) {
    Ecrire("ENQ.MOD", Joindre({"ENQ\n FMT=1\nAAA1 R un\nAAA2 X deux\nYYY1 Y oui\nYYY2   non\n", nom, "3 R trois\n", nom,
                               "4 X quatre\n**\n"}));
    return Anatab(contexte_);
  };
  EXPECT_EQ(fin("BBB"), Fin::Normale) << montre_;
  EXPECT_EQ(fin("AAA"), Fin::Arret);
  EXPECT_TRUE(Dit("renommez leurs modalit\xE9s (AAA)")) << montre_;
}

// An empty or cut coding has the sentences of the analysis; one of another survey the sentence of the files.
TEST_F(RunAnatab, CodagesQuiNeVontPas) {
  Ecrire("ENQ.MOD", "ENQ\n BRT=1 LIGN=6 LSUP=2 COL=4 FMT=1\nAAA1 R un\nAAA2 X deux\nYYY1 Y oui\nYYY2   non\n**\n");
  const std::pair<const char*, std::string_view> cas[] = {
      {"", "*** Le fichier ENQ.CDG est vide. Arr\xEAt du programme"},
      {"    10\n    01\n", "*** L'individu     2 n'a pas une r\xE9ponse \xE0 chaque question"},
      {"    1010\n    10\n", "*** Nombre d'individus fautifs =     1"},
      {"   110101\n   201101\n", "ses lignes ont plus de 4 chiffres"},
      {"    1010\n", "il a 1 individus au lieu de 2"}};
  for (const auto& [codage, phrase] : cas) {
    Ecrire("ENQ.CDG", codage);
    EXPECT_EQ(Anatab(contexte_), Fin::Arret);
    EXPECT_TRUE(Dit(phrase)) << montre_;
  }
}

}  // namespace quelvar::regression
