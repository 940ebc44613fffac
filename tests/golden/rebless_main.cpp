// Rewrites the expected files of the cases that are named; tests/golden/rebless calls it and shows the difference.
#include <cstdio>
#include <exception>

#include "golden/cas.h"

int main(int argc, char** argv) try {
  for (int i = 1; i < argc; ++i) {
    const golden::Cas cas = golden::LireCas(argv[i]);
    for (const std::string& remarque : golden::Reecrire(cas, golden::ExecuterCas(cas, QUELVAR_BATCH)))
      std::printf("%s/commande: %s\n", argv[i], remarque.c_str());
  }
  return 0;
} catch (const std::exception& e) {
  std::fprintf(stderr, "%s\n", e.what());
  return 1;
}
