#include "regression/varint/profils.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>

#include "core/calcul/tris.h"
#include "core/enquete/datfile.h"
#include "core/texte/nombres.h"
#include "crosstab/tableau/maximum.h"
#include "crosstab/tableau/premierfacteur.h"

namespace quelvar::regression {

namespace {

constexpr int kToursMax = 500;
constexpr std::size_t kCodes = kCodeMaxDeProfil + 1;

struct Marges {
  std::vector<double> lignes;
  std::vector<double> colonnes;
  double total = 0;
};

Marges MargesDe(const Matrice& effectifs) {
  Marges marges{std::vector<double>(effectifs.Lignes()), std::vector<double>(effectifs.Colonnes()), 0};
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i)
    for (std::size_t j = 0; j < effectifs.Colonnes(); ++j) {
      marges.lignes[i] += effectifs(i, j);
      marges.colonnes[j] += effectifs(i, j);
      marges.total += effectifs(i, j);
    }
  return marges;
}

// Codes that nobody has take no part in the order of a table, nor do they stand at its corners.
Matrice SansVides(const Matrice& effectifs) {
  const Marges marges = MargesDe(effectifs);
  const auto pleines = [](const std::vector<double>& totaux) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < totaux.size(); ++i)
      if (totaux[i] > 0) places.push_back(i);
    return places;
  };
  const std::vector<std::size_t> lignes = pleines(marges.lignes);
  const std::vector<std::size_t> colonnes = pleines(marges.colonnes);
  Matrice reduite(lignes.size(), colonnes.size());
  for (std::size_t i = 0; i < lignes.size(); ++i)
    for (std::size_t j = 0; j < colonnes.size(); ++j) reduite(i, j) = effectifs(lignes[i], colonnes[j]);
  return reduite;
}

std::vector<double> Parts(const std::vector<double>& totaux, double total) {
  std::vector<double> parts(totaux);
  for (double& part : parts) part /= total;
  return parts;
}

double EcartsPositifs(const Matrice& ecarts) {
  double somme = 0;
  for (const double ecart : ecarts.Valeurs())
    if (ecart > 0) somme += ecart;
  return somme;
}

Matrice EcartsDe(const Matrice& effectifs, const Marges& marges) {
  return crosstab::EcartsEnProportions(effectifs, marges.lignes, marges.colonnes, marges.total);
}

Matrice Ranger(const Matrice& table, const crosstab::PremierFacteur& facteur) {
  const std::vector<std::size_t> lignes = crosstab::OrdreDesScores(facteur.lignes);
  const std::vector<std::size_t> colonnes = crosstab::OrdreDesScores(facteur.colonnes);
  Matrice rangee(table.Lignes(), table.Colonnes());
  for (std::size_t i = 0; i < lignes.size(); ++i)
    for (std::size_t j = 0; j < colonnes.size(); ++j) rangee(i, j) = table(lignes[i], colonnes[j]);
  return rangee;
}

}  // namespace

Reponses LireReponses(const Chemin& donnees, const FichierPos& pos, std::int64_t individus, const Dialogue& ecran) {
  const std::vector<Champ> champs = ChampsDe(pos);
  Reponses reponses;
  reponses.codes.resize(champs.size());
  LecteurIndividus lecteur(donnees, LongueurUtile(champs));
  Progression progression(ecran, individus);
  while (reponses.individus < individus) {
    const char* ligne = lecteur.Lire();
    if (ligne == nullptr) break;
    for (std::size_t q = 0; q < champs.size(); ++q) {
      const int code = LireChampInterieur(ligne, champs[q]);
      const bool admis = code >= 0 && code <= pos.questions[q].codeMax;
      reponses.codes[q].push_back(static_cast<std::uint8_t>(admis ? code : 0));
    }
    ++reponses.individus;
    progression.Avancer();
  }
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
  const Matrice pleine = SansVides(effectifs);
  const Marges marges = MargesDe(pleine);
  if (marges.total == 0) throw Erreur(kDivisionParZero);
  const crosstab::PremierFacteur facteur =
      crosstab::ExtrairePremierFacteur(EcartsDe(pleine, marges), Parts(marges.lignes, marges.total),
                                       Parts(marges.colonnes, marges.total), {}, kToursMax);
  const Matrice rangee = Ranger(pleine, facteur);
  const Marges rangees = MargesDe(rangee);
  const Matrice ecarts = EcartsDe(rangee, rangees);
  const std::size_t i = rangee.Lignes() - 1;
  const std::size_t j = rangee.Colonnes() - 1;
  const crosstab::Diagonale diagonale =
      crosstab::ChoisirDiagonale(ecarts(0, 0), ecarts(0, j), ecarts(i, 0), ecarts(i, j));
  const Matrice maximum = crosstab::TableauMaximum(rangees.lignes, rangees.colonnes, diagonale);
  const double possible = EcartsPositifs(EcartsDe(maximum, rangees));
  return possible == 0 ? 0 : std::min(100.0, 100 * EcartsPositifs(ecarts) / possible);
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
  return profil;
}

std::vector<LienDeProfil> LiensTries(const Profil& profil) {
  std::vector<LienDeProfil> liens = profil.liens;
  TrierParTas(std::span(liens), [](const LienDeProfil& a, const LienDeProfil& b) { return a.pem > b.pem; });
  return liens;
}

}  // namespace quelvar::regression
