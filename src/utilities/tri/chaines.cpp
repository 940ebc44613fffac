#include "utilities/tri/chaines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <span>
#include <utility>

#include "core/calcul/hachage.h"
#include "core/panne/erreur.h"

namespace quelvar::utilities {

namespace {

constexpr std::int64_t kPasDeSuivi = 1000;

// What the heap moves: eight bytes in place of a key of twenty.
struct RangEtIndice {
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

// Keys that differ in their first letters alone differ in the high bits: these come down first, for the product to see.
std::uint64_t Hacher(std::uint64_t valeur) { return Meler(valeur >> 32, valeur); }

// The distinct values of a part of the keys, in the order in which they are met, and the one of each record.
class ValeursDistinctes {
 public:
  explicit ValeursDistinctes(std::size_t records) { numeros.reserve(records); }

  void Ajouter(std::uint64_t valeur) {
    if ((valeurs.size() + 1) * 2 > cases_.size()) Agrandir();
    std::size_t place = Hacher(valeur) & (cases_.size() - 1);
    while (cases_[place] != kLibre && valeurs[cases_[place]] != valeur) place = (place + 1) & (cases_.size() - 1);
    if (cases_[place] == kLibre) {
      cases_[place] = static_cast<std::uint32_t>(valeurs.size());
      valeurs.push_back(valeur);
    }
    numeros.push_back(cases_[place]);
  }

  std::vector<std::uint64_t> valeurs;
  std::vector<std::uint32_t> numeros;

 private:
  static constexpr std::uint32_t kLibre = std::numeric_limits<std::uint32_t>::max();
  // Powers of two: a mask gives the place of a hash.
  static constexpr std::size_t kPremieresCases = 1024;
  static constexpr std::size_t kCroissance = 4;

  void Agrandir() {
    cases_.assign(std::max(kPremieresCases, cases_.size() * kCroissance), kLibre);
    for (std::size_t i = 0; i < valeurs.size(); ++i) {
      std::size_t place = Hacher(valeurs[i]) & (cases_.size() - 1);
      while (cases_[place] != kLibre) place = (place + 1) & (cases_.size() - 1);
      cases_[place] = static_cast<std::uint32_t>(i);
    }
  }

  std::vector<std::uint32_t> cases_;
};

// Dense ranks (from 0) of values, a record each, and how many bits they take.
struct Rangs {
  std::vector<std::uint32_t> rangs;
  unsigned bits = 0;
};

// A part of the keys has few distinct values: each is looked up, and only they are sorted.
template <typename Partie>
Rangs RangsDe(const std::vector<CleDeTri>& cles, Partie CleDeTri::*partie) {
  ValeursDistinctes distinctes(cles.size());
  for (const CleDeTri& cle : cles) distinctes.Ajouter(cle.*partie);
  std::vector<std::pair<std::uint64_t, std::uint32_t>> ordre(distinctes.valeurs.size());
  for (std::size_t i = 0; i < ordre.size(); ++i) ordre[i] = {distinctes.valeurs[i], static_cast<std::uint32_t>(i)};
  std::sort(ordre.begin(), ordre.end());
  std::vector<std::uint32_t> rangs(ordre.size());
  for (std::size_t i = 0; i < ordre.size(); ++i) rangs[ordre[i].second] = static_cast<std::uint32_t>(i);
  Rangs resultat{std::move(distinctes.numeros), static_cast<unsigned>(std::bit_width(ordre.size() - 1))};
  for (std::uint32_t& rang : resultat.rangs) rang = rangs[rang];
  return resultat;
}

struct Numerotee {
  std::uint64_t valeur;
  std::uint32_t indice;
};

// Sorts by the lowest bits of the values, a digit of eleven bits a pass.
void TrierParChiffres(std::vector<Numerotee>& valeurs, unsigned bits) {
  constexpr unsigned kBits = 11;
  constexpr std::size_t kChiffres = std::size_t{1} << kBits;
  std::vector<Numerotee> autre(valeurs.size());
  for (unsigned decalage = 0; decalage < bits; decalage += kBits) {
    const auto chiffre = [decalage](const Numerotee& n) { return (n.valeur >> decalage) & (kChiffres - 1); };
    std::array<std::size_t, kChiffres> places{};
    for (const Numerotee& n : valeurs) ++places[chiffre(n)];
    std::size_t debut = 0;
    for (std::size_t& place : places) debut += std::exchange(place, debut);
    for (const Numerotee& n : valeurs) autre[places[chiffre(n)]++] = n;
    valeurs.swap(autre);
  }
}

// The ranks of pairs of ranks.
Rangs Combiner(const Rangs& haut, const Rangs& bas) {
  if (bas.bits == 0) return haut;
  if (haut.bits == 0) return bas;
  std::vector<Numerotee> valeurs(haut.rangs.size());
  for (std::size_t i = 0; i < valeurs.size(); ++i)
    valeurs[i] = {std::uint64_t{haut.rangs[i]} << bas.bits | bas.rangs[i], static_cast<std::uint32_t>(i)};
  TrierParChiffres(valeurs, haut.bits + bas.bits);
  Rangs resultat{std::vector<std::uint32_t>(valeurs.size()), 0};
  std::uint32_t rang = 0;
  for (std::size_t i = 0; i < valeurs.size(); ++i) {
    if (i > 0 && valeurs[i].valeur != valeurs[i - 1].valeur) ++rang;
    resultat.rangs[valeurs[i].indice] = rang;
  }
  resultat.bits = static_cast<unsigned>(std::bit_width(rang));
  return resultat;
}

// Each record with the dense rank of its key, counted from the greatest one for the downward order: comparing ranks is
// comparing keys.
std::vector<RangEtIndice> ElementsDe(const std::vector<CleDeTri>& cles, SensDeTri sens) {
  if (cles.empty()) return {};
  const Rangs fin = Combiner(RangsDe(cles, &CleDeTri::milieu), RangsDe(cles, &CleDeTri::fin));
  const Rangs rangs = Combiner(RangsDe(cles, &CleDeTri::debut), fin);
  std::vector<RangEtIndice> elements(cles.size());
  const std::uint32_t plusGrand = sens == SensDeTri::Croissant ? 0 : std::numeric_limits<std::uint32_t>::max();
  for (std::size_t i = 0; i < elements.size(); ++i)
    elements[i] = {rangs.rangs[i] ^ plusGrand, static_cast<std::uint32_t>(i)};
  return elements;
}

// Puts the element where the sift of TrierParTas puts it, by another way: the last child of each pair rises down to the
// bottom without a look at the element, which then climbs back above those that do not stand behind it. The choice of a
// child is no branch, and its own children are fetched ahead.
// Source: I. Wegener, "Bottom-up heapsort", Theoretical Computer Science 118 (1993).
void Enfoncer(std::span<RangEtIndice> tas, std::size_t haut, RangEtIndice element) {
  std::size_t place = haut;
  std::size_t fils = 2 * place + 1;
  for (; fils + 1 < tas.size(); fils = 2 * place + 1) {
    __builtin_prefetch(tas.data() + std::min(4 * fils + 7, tas.size() - 1));
    fils += tas[fils].rang < tas[fils + 1].rang ? 1U : 0U;
    tas[place] = tas[fils];
    place = fils;
  }
  if (fils < tas.size()) {
    tas[place] = tas[fils];
    place = fils;
  }
  for (std::size_t pere = (place - 1) / 2; place > haut && element.rang >= tas[pere].rang; pere = (place - 1) / 2) {
    tas[place] = tas[pere];
    place = pere;
  }
  tas[place] = element;
}

// The heap sort of TrierParTas, which leaves equal ranks in the same order.
template <typename Suivi>
void Trier(std::span<RangEtIndice> elements, const Suivi& suivre) {
  for (std::size_t place = elements.size() / 2; place-- > 0;) Enfoncer(elements, place, elements[place]);
  for (std::size_t reste = elements.size(); reste-- > 1;) {
    suivre(reste);
    const RangEtIndice dernier = elements[reste];
    elements[reste] = elements[0];
    Enfoncer(elements.first(reste), 0, dernier);
  }
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
  std::vector<RangEtIndice> elements = ElementsDe(cles, sens);
  Trier(elements, [&suivre](std::size_t reste) {
    if (suivre && reste % kPasDeSuivi == 0) suivre(static_cast<std::int64_t>(reste));
  });
  std::vector<std::uint32_t> ordre(elements.size());
  std::transform(elements.begin(), elements.end(), ordre.begin(), [](RangEtIndice e) { return e.indice; });
  return ordre;
}

}  // namespace quelvar::utilities
