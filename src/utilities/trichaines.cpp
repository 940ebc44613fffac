#include "utilities/trichaines.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <span>

#include "core/calcul/tris.h"
#include "core/programme/erreur.h"

namespace quelvar::utilities {

namespace {

constexpr std::int64_t kPasDeSuivi = 1000;

// What the heap moves: eight bytes in place of a key of twenty.
struct Element {
  std::uint32_t rang;    // of the key among the distinct keys, from 0
  std::uint32_t indice;  // of the record
};

template <typename Entier>
Entier GrosBoutiste(const char* octets) {
  Entier valeur = 0;
  for (std::size_t i = 0; i < sizeof valeur; ++i)
    valeur = static_cast<Entier>(valeur << 8) | static_cast<unsigned char>(octets[i]);
  return valeur;
}

std::uint64_t Hacher(const CleDeTri& cle) {
  std::uint64_t h = cle.debut * 0x9E3779B97F4A7C15ULL;
  h = (h ^ (h >> 32) ^ cle.milieu) * 0xD6E8FEB86659FD93ULL;
  h = (h ^ (h >> 32) ^ cle.fin) * 0x9E3779B97F4A7C15ULL;
  return h ^ (h >> 29);
}

// The distinct keys, in the order in which they are met, and the number of the key of each record.
class ClesDistinctes {
 public:
  explicit ClesDistinctes(std::size_t records) { numeros.reserve(records); }

  void Ajouter(const CleDeTri& cle) {
    if ((cles.size() + 1) * 2 > cases_.size()) Agrandir();
    std::size_t place = Hacher(cle) & (cases_.size() - 1);
    while (cases_[place] != kLibre && cles[cases_[place]] != cle) place = (place + 1) & (cases_.size() - 1);
    if (cases_[place] == kLibre) {
      cases_[place] = static_cast<std::uint32_t>(cles.size());
      cles.push_back(cle);
    }
    numeros.push_back(cases_[place]);
  }

  std::vector<CleDeTri> cles;
  std::vector<std::uint32_t> numeros;

 private:
  static constexpr std::uint32_t kLibre = std::numeric_limits<std::uint32_t>::max();

  void Agrandir() {
    cases_.assign(std::max<std::size_t>(1024, cases_.size() * 4), kLibre);
    for (std::size_t i = 0; i < cles.size(); ++i) {
      std::size_t place = Hacher(cles[i]) & (cases_.size() - 1);
      while (cases_[place] != kLibre) place = (place + 1) & (cases_.size() - 1);
      cases_[place] = static_cast<std::uint32_t>(i);
    }
  }

  std::vector<std::uint32_t> cases_;
};

// Each record with the dense rank of its key: comparing ranks is comparing keys.
std::vector<Element> ElementsDe(const std::vector<CleDeTri>& cles) {
  ClesDistinctes distinctes(cles.size());
  for (const CleDeTri& cle : cles) distinctes.Ajouter(cle);
  std::vector<std::uint32_t> ordre(distinctes.cles.size());
  for (std::size_t i = 0; i < ordre.size(); ++i) ordre[i] = static_cast<std::uint32_t>(i);
  std::sort(ordre.begin(), ordre.end(),
            [&](std::uint32_t a, std::uint32_t b) { return distinctes.cles[a] < distinctes.cles[b]; });
  std::vector<std::uint32_t> rangs(ordre.size());
  for (std::size_t i = 0; i < ordre.size(); ++i) rangs[ordre[i]] = static_cast<std::uint32_t>(i);
  std::vector<Element> elements(cles.size());
  for (std::size_t i = 0; i < elements.size(); ++i)
    elements[i] = {rangs[distinctes.numeros[i]], static_cast<std::uint32_t>(i)};
  return elements;
}

}  // namespace

CleDeTri CleDe(std::string_view texte) {
  std::array<char, kLargeurCle> octets;
  octets.fill(' ');
  texte.copy(octets.data(), octets.size());
  return {GrosBoutiste<std::uint64_t>(octets.data()), GrosBoutiste<std::uint64_t>(octets.data() + 8),
          GrosBoutiste<std::uint32_t>(octets.data() + 16)};
}

std::vector<std::uint32_t> TriChaines(const std::vector<CleDeTri>& cles, SensDeTri sens, const SuiviDeTri& suivre) {
  if (cles.size() >= std::numeric_limits<std::uint32_t>::max()) throw Erreur(kMemoireInsuffisante);
  std::vector<Element> elements = ElementsDe(cles);
  const auto dire = [&suivre](std::size_t reste) {
    if (suivre && reste % kPasDeSuivi == 0) suivre(static_cast<std::int64_t>(reste));
  };
  const std::span<Element> tas(elements);
  if (sens == SensDeTri::Croissant)
    TrierParTas(
        tas, [](Element a, Element b) { return a.rang < b.rang; }, dire);
  else
    TrierParTas(
        tas, [](Element a, Element b) { return a.rang > b.rang; }, dire);
  std::vector<std::uint32_t> ordre(elements.size());
  std::transform(elements.begin(), elements.end(), ordre.begin(), [](Element e) { return e.indice; });
  return ordre;
}

}  // namespace quelvar::utilities
