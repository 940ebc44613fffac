// The different texts of a column with their counts, in the order in which they come: a table that costs one look at a
// text that it knows.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "core/calcul/hachage.h"

namespace quelvar::capture {

namespace detail {

template <typename Mot>
std::uint64_t Charger(const char* p) {
  Mot mot = 0;
  std::memcpy(&mot, p, sizeof mot);
  return mot;
}

// The bytes of a text of at most eight, told apart together with its length.
inline std::uint64_t Court(const char* p, std::size_t taille) {
  if (taille >= 4) return Charger<std::uint32_t>(p) | (Charger<std::uint32_t>(p + taille - 4) << 32);
  std::uint64_t mot = 0;
  for (std::size_t i = 0; i < taille; ++i)
    mot |= static_cast<std::uint64_t>(static_cast<unsigned char>(p[i])) << (8 * i);
  return mot;
}

// Texts of one length.
inline bool Egaux(const char* a, const char* b, std::size_t taille) {
  if (taille < 8) return Court(a, taille) == Court(b, taille);
  for (std::size_t i = 0; i + 8 < taille; i += 8)
    if (Charger<std::uint64_t>(a + i) != Charger<std::uint64_t>(b + i)) return false;
  return Charger<std::uint64_t>(a + taille - 8) == Charger<std::uint64_t>(b + taille - 8);
}

}  // namespace detail

// Eight bytes at a time.
inline std::uint64_t CondenseDeTexte(std::string_view texte) {
  std::uint64_t h = texte.size() * kNombreDOr;
  const char* p = texte.data();
  const std::size_t taille = texte.size();
  std::uint64_t dernier = 0;
  if (taille >= 8) {
    for (std::size_t i = 0; i + 8 < taille; i += 8) h = Meler(h, detail::Charger<std::uint64_t>(p + i));
    dernier = detail::Charger<std::uint64_t>(p + taille - 8);
  } else {
    dernier = detail::Court(p, taille);
  }
  return Meler(h, dernier);
}

// Of a table that holds anything; twice as many whenever half of them are taken.
inline constexpr std::size_t kPlacesAuDepart = 64;

class TableDeTextes {
 public:
  static constexpr std::uint32_t kAbsent = 0xFFFFFFFFU;

  std::size_t Nombre() const { return entrees_.size(); }
  std::string_view Texte(std::size_t rang) const {
    return std::string_view(octets_).substr(entrees_[rang].debut, entrees_[rang].longueur);
  }
  std::int64_t Effectif(std::size_t rang) const { return entrees_[rang].effectif; }
  void Compter(std::size_t rang) { ++entrees_[rang].effectif; }

  // Rank of the text, kAbsent when it is not there.
  std::uint32_t Chercher(std::string_view texte, std::uint64_t condense) const {
    if (places_.empty()) return kAbsent;
    const std::size_t masque = places_.size() - 1;
    for (std::size_t i = condense & masque;; i = (i + 1) & masque) {
      const std::uint32_t rang = places_[i];
      if (rang == kAbsent) return kAbsent;
      const Entree& entree = entrees_[rang];
      if (entree.condense == condense && entree.longueur == texte.size() &&
          detail::Egaux(octets_.data() + entree.debut, texte.data(), texte.size()))
        return rang;
    }
  }
  std::uint32_t Chercher(std::string_view texte) const { return Chercher(texte, CondenseDeTexte(texte)); }

  // Adds a text that is not there, with a count of 0.
  std::uint32_t Ajouter(std::string_view texte, std::uint64_t condense) {
    if ((entrees_.size() + 1) * 2 > places_.size()) Agrandir();
    const auto rang = static_cast<std::uint32_t>(entrees_.size());
    entrees_.push_back({condense, octets_.size(), texte.size(), 0});
    octets_.append(texte);
    Placer(rang);
    return rang;
  }
  std::uint32_t ChercherOuAjouter(std::string_view texte) {
    const std::uint64_t condense = CondenseDeTexte(texte);
    const std::uint32_t rang = Chercher(texte, condense);
    return rang != kAbsent ? rang : Ajouter(texte, condense);
  }

 private:
  struct Entree {
    std::uint64_t condense;
    std::size_t debut;
    std::size_t longueur;
    std::int64_t effectif;
  };

  void Placer(std::uint32_t rang) {
    const std::size_t masque = places_.size() - 1;
    std::size_t i = entrees_[rang].condense & masque;
    while (places_[i] != kAbsent) i = (i + 1) & masque;
    places_[i] = rang;
  }
  void Agrandir() {
    places_.assign(places_.empty() ? kPlacesAuDepart : places_.size() * 2, kAbsent);
    for (std::uint32_t rang = 0; rang < entrees_.size(); ++rang) Placer(rang);
  }

  std::vector<std::uint32_t> places_;  // ranks; a power of two of them
  std::vector<Entree> entrees_;
  std::string octets_;
};

// Digests kept to tell whether all texts of a column differ: of eight bytes each, two MiB a column at the most.
inline constexpr std::size_t kCondensesAuPlus = 100000;

// Whether texts that come are all different: by their digests, of the first kCondensesAuPlus of them.
class Uniques {
 public:
  // False once a text came twice.
  bool Voir(std::uint64_t condense) {
    if (!uniques_ || nombre_ >= kCondensesAuPlus) return uniques_;
    if ((nombre_ + 1) * 2 > places_.size()) Agrandir();
    condense |= 1;  // 0 is a free place
    for (std::size_t i = (condense >> 1) & (places_.size() - 1);; i = (i + 1) & (places_.size() - 1)) {
      if (places_[i] == condense) {
        uniques_ = false;
        places_ = {};
        return false;
      }
      if (places_[i] != 0) continue;
      places_[i] = condense;
      ++nombre_;
      return true;
    }
  }
  std::int64_t Nombre() const { return static_cast<std::int64_t>(nombre_); }

 private:
  void Agrandir() {
    std::vector<std::uint64_t> anciennes(places_.empty() ? kPlacesAuDepart : places_.size() * 2, 0);
    anciennes.swap(places_);
    for (const std::uint64_t c : anciennes) {
      if (c == 0) continue;
      std::size_t i = (c >> 1) & (places_.size() - 1);
      while (places_[i] != 0) i = (i + 1) & (places_.size() - 1);
      places_[i] = c;
    }
  }

  std::vector<std::uint64_t> places_;
  std::size_t nombre_ = 0;
  bool uniques_ = true;
};

}  // namespace quelvar::capture
