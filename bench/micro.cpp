// The small functions that every report and every reader calls millions of times, and the picture of a large plane.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "core/texte/texte.h"
#include "factor/plan/plan.h"

namespace {

void LireUneValeur(benchmark::State& etat) {
  const std::vector<std::string> champs = {"5", " 12", "1234567", "-3.25", "  1e3", "abc"};
  std::size_t i = 0;
  for (auto _ : etat) {
    benchmark::DoNotOptimize(quelvar::ValeurDe(champs[i]));
    i = i + 1 < champs.size() ? i + 1 : 0;
  }
}
BENCHMARK(LireUneValeur);

void EcrireUnNombreFixe(benchmark::State& etat) {
  const std::vector<double> valeurs = {0, 8403, -0.3, 1234.5678, 99.96, 1e9};
  std::size_t i = 0;
  for (auto _ : etat) {
    benchmark::DoNotOptimize(quelvar::NombreFixe(valeurs[i], 4, 1));
    i = i + 1 < valeurs.size() ? i + 1 : 0;
  }
}
BENCHMARK(EcrireUnNombreFixe);

void CadrerUnIntitule(benchmark::State& etat) {
  const std::string intitule = "Ouvrier non qualifi\xE9";
  for (auto _ : etat) benchmark::DoNotOptimize(quelvar::CadreDroit(intitule, 10));
}
BENCHMARK(CadrerUnIntitule);

void ConvertirEnUtf8(benchmark::State& etat) {
  const std::string rapport(100000, '\xE9');
  for (auto _ : etat) benchmark::DoNotOptimize(quelvar::VersUtf8(rapport));
  etat.SetBytesProcessed(etat.iterations() * static_cast<std::int64_t>(rapport.size()));
}
BENCHMARK(ConvertirEnUtf8);

// A plane of 3,500 elements with 20,000 links, as it is drawn anew at each turn of the wheel.
quelvar::factor::EtatPlan GrandPlan() {
  constexpr std::size_t elements = 3500;
  std::mt19937 hasard(1);
  std::normal_distribution<double> nuage(0, 300);
  quelvar::factor::DonneesPlan donnees;
  donnees.titre = "Plan";
  donnees.facteurs = 2;
  donnees.colonnes = elements;
  donnees.coordonnees = quelvar::Matrice(2, elements);
  donnees.cpf = quelvar::Matrice(2, elements);
  for (double& coordonnee : donnees.coordonnees.Valeurs()) coordonnee = nuage(hasard);
  for (std::size_t i = 0; i < elements; ++i)
    donnees.points.push_back({quelvar::CadreGauche(quelvar::Nombre(i), 4), "Modalite", i % 5 == 0, true});
  const auto element = [&] { return static_cast<std::int16_t>(1 + hasard() % elements); };
  for (int k = 0; k < 20000; ++k) donnees.liens.push_back({element(), element(), 100 - static_cast<float>(k) / 200});
  quelvar::factor::EtatPlan etat = quelvar::factor::NouveauPlan(std::move(donnees));
  etat.reglages.liens.actif = true;
  return etat;
}

void DessinerUnPlan(benchmark::State& mesure) {
  const quelvar::factor::EtatPlan etat = GrandPlan();
  for (auto _ : mesure) benchmark::DoNotOptimize(quelvar::factor::DessinerPlan(etat));
}
BENCHMARK(DessinerUnPlan)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
