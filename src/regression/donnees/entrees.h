// What the regressions share in front of their method, as data: the files that they read, and the individuals whose
// lines cannot be used.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/panne/erreur.h"
#include "core/programme/programme.h"

namespace quelvar::regression {

struct EntreesDeRegression {
  std::optional<Chemin> donnees;  // .CDG
  std::optional<Chemin> mod;
};
EntreesDeRegression TrouverEntrees(const Contexte& contexte);

// Ranks of individuals at fault that the report promises: beyond so many it says that these are the first.
inline constexpr std::int64_t kFautifsDits = 50;

// Individuals whose lines cannot be used: how many, the ranks of the first of them, and where the first one is.
struct Fautifs {
  std::vector<std::int64_t> rangs;  // from 1
  std::int64_t nombre = 0;
  Lieu premier = {};

  // `cites`: how many ranks are kept.
  void Noter(std::int64_t rang, std::int64_t cites, const Lieu& ou);
};

}  // namespace quelvar::regression
