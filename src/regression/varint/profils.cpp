#include "regression/varint/profils.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/calcul/tris.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "crosstab/tableau/ordre.h"
#include "crosstab/tableau/statistiques.h"

namespace quelvar::regression {

namespace {

constexpr int kToursMax = 500;  // each question has a table with each other one, of which the order alone is wanted
constexpr std::size_t kCodes = kCodeMaxDeProfil + 1;

}  // namespace

Reponses LireReponses(const Chemin& donnees, const FichierPos& pos, std::int64_t individus, const Dialogue& ecran) {
  const std::vector<Champ> champs = ChampsDe(pos);
  Reponses reponses;
  reponses.codes.resize(champs.size());
  LecteurIndividus lecteur(donnees, LongueurUtile(champs));
  Progression progression(ecran, individus);
  reponses.individus = Parcourir(lecteur, individus, [&](const char* ligne, std::int64_t) {
    for (std::size_t q = 0; q < champs.size(); ++q) {
      const int code = LireChampInterieur(ligne, champs[q]);
      const bool admis = code >= 0 && code <= pos.questions[q].codeMax;
      reponses.codes[q].push_back(static_cast<std::uint8_t>(admis ? code : 0));
    }
    progression.Avancer();
  });
  return reponses;
}

Matrice CroiserQuestions(const Reponses& reponses, const FichierPos& pos, std::size_t ligne, std::size_t colonne) {
  // Two counts side by side: neighbours with the same codes do not wait for each other.
  std::array<std::array<std::uint32_t, kCodes * kCodes>, 2> comptes{};
  const std::vector<std::uint8_t>& a = reponses.codes[ligne];
  const std::vector<std::uint8_t>& b = reponses.codes[colonne];
  std::size_t i = 0;
  for (; i + 2 <= a.size(); i += 2) {
    ++comptes[0][a[i] * kCodes + b[i]];
    ++comptes[1][a[i + 1] * kCodes + b[i + 1]];
  }
  if (i < a.size()) ++comptes[0][a[i] * kCodes + b[i]];

  Matrice table(static_cast<std::size_t>(std::max(pos.questions[ligne].codeMax, 0)),
                static_cast<std::size_t>(std::max(pos.questions[colonne].codeMax, 0)));
  for (std::size_t r = 0; r < table.Lignes(); ++r)
    for (std::size_t c = 0; c < table.Colonnes(); ++c) {
      const std::size_t place = (r + 1) * kCodes + c + 1;
      table(r, c) = static_cast<double>(comptes[0][place]) + static_cast<double>(comptes[1][place]);
    }
  return table;
}

double PemDeTable(const Matrice& effectifs) {
  constexpr auto kBords = crosstab::Bords::Tous;
  const crosstab::Marges marges = crosstab::MargesDe(effectifs);
  // Codes that nobody has take no part in the order of a table, nor do they stand at its corners.
  crosstab::TableauCompte table = crosstab::Reordonner(
      crosstab::Compter(effectifs), crosstab::PlacesPleines(marges.lignes), crosstab::PlacesPleines(marges.colonnes));
  const crosstab::PremierFacteur facteur = crosstab::FacteurDe(table, kBords, kToursMax);
  table =
      crosstab::Reordonner(table, crosstab::OrdreDesScores(facteur.lignes), crosstab::OrdreDesScores(facteur.colonnes));
  const auto positifs = [&](const Matrice& cellules) {
    return crosstab::SommerEcarts(cellules, table.marges, crosstab::Echelle::Proportions).positifs;
  };
  const double possible = positifs(crosstab::MaximumDe(table, kBords));
  return possible == 0 ? 0 : std::min(100.0, 100 * positifs(table.effectifs) / possible);
}

Profil CalculerProfil(const Reponses& reponses, const FichierPos& pos, std::size_t question) {
  Profil profil;
  profil.question = question;
  profil.pems.resize(pos.questions.size());
  for (std::size_t autre = 0; autre < pos.questions.size(); ++autre) {
    if (autre == question) continue;
    const Matrice table = CroiserQuestions(reponses, pos, question, autre);
    const std::span<const double> cellules = table.Valeurs();
    if (std::all_of(cellules.begin(), cellules.end(), [](double n) { return n == 0; })) {
      profil.vides.push_back(autre);
      continue;
    }
    profil.pems[autre] = PemDeTable(table);
    profil.liens.push_back({autre, Arrondir(profil.pems[autre], 0)});
  }
  TrierParTas(std::span(profil.liens), [](const LienDeProfil& a, const LienDeProfil& b) { return a.pem > b.pem; });
  return profil;
}

}  // namespace quelvar::regression
