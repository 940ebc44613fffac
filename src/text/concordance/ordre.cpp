#include "text/concordance/ordre.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>

#include "core/texte/texte.h"

namespace quelvar::text {

namespace {

// The words before, from the nearest to the farthest.
std::string CleDeGauche(const LigneDeConcordance& ligne) {
  std::string cle;
  std::string_view reste = RognerDroite(ligne.gauche);
  while (!reste.empty()) {
    const std::size_t blanc = reste.rfind(' ');
    const std::size_t debut = blanc == std::string_view::npos ? 0 : blanc + 1;
    cle += Minuscules(reste.substr(debut));
    cle += ' ';
    reste = RognerDroite(reste.substr(0, debut));
  }
  return cle;
}

}  // namespace

std::vector<std::uint32_t> RangsDansLOrdre(const Concordances& concordances, OrdreDeConcordance ordre) {
  std::vector<std::uint32_t> rangs(concordances.lignes.size());
  std::iota(rangs.begin(), rangs.end(), 0U);
  if (ordre == OrdreDeConcordance::Fichier) return rangs;
  std::vector<std::string> cles;
  cles.reserve(rangs.size());
  for (const LigneDeConcordance& ligne : concordances.lignes)
    cles.push_back(ordre == OrdreDeConcordance::Gauche ? CleDeGauche(ligne) : Minuscules(ligne.droite));
  std::stable_sort(rangs.begin(), rangs.end(), [&](std::uint32_t a, std::uint32_t b) { return cles[a] < cles[b]; });
  return rangs;
}

}  // namespace quelvar::text
