// The small functions that every report and every reader calls millions of times.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "core/nombres.h"
#include "core/report.h"
#include "core/texte.h"

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

}  // namespace

BENCHMARK_MAIN();
