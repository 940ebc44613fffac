#include "factor/plan/arbre.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/chiffres/nombres.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kZone = 14;  // columns of a print zone

// The components of the tree so far, as a forest of elements with the number of elements under each root.
//
// Source: R. E. Tarjan, "Efficiency of a Good But Not Linear Set Union Algorithm", Journal of the ACM 22 (1975).
class Composantes {
 public:
  // Complete as soon as one component has `entiere` elements.
  Composantes(std::size_t elements, std::size_t entiere)
      : parents_(elements), tailles_(elements, 1), entiere_(entiere) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
  }

  // False when the two stand in one component already.
  bool Reunir(std::size_t a, std::size_t b) {
    a = Racine(a);
    b = Racine(b);
    if (a == b) return false;
    if (tailles_[a] < tailles_[b]) std::swap(a, b);
    parents_[b] = a;
    tailles_[a] += tailles_[b];
    complete_ = complete_ || tailles_[a] == entiere_;
    return true;
  }
  bool Complete() const { return complete_; }

 private:
  std::size_t Racine(std::size_t element) {
    while (parents_[element] != element) element = parents_[element] = parents_[parents_[element]];
    return element;
  }

  std::vector<std::size_t> parents_;
  std::vector<std::size_t> tailles_;
  std::size_t entiere_;
  bool complete_ = false;
};

bool EstEcarte(ModeArbre mode, const SommetArbre& a, const SommetArbre& b) {
  switch (mode) {
    case ModeArbre::TousLesLiens: return false;
    case ModeArbre::SaufEntreSupplementaires: return a.supplementaire && b.supplementaire;
    case ModeArbre::SaufSupplementaires: return a.supplementaire || b.supplementaire;
  }
  return false;
}

// What is written next stands in the print zone behind the one where the text ends.
void AllerALaZoneSuivante(std::string& ligne) { ligne.resize((ligne.size() / kZone + 1) * kZone, ' '); }

}  // namespace

LiensDuGraphe ArbreMaximum(std::span<const tables::Lien> liens, std::span<const SommetArbre> sommets,
                           const OptionsArbre& options) {
  const auto sousLeNiveau = [&](const SommetArbre& sommet) {
    return sommet.cpfHorizontal < options.niveauCpf && sommet.cpfVertical < options.niveauCpf;
  };
  const auto surLeGraphe = [&](std::int16_t noeud) {
    return noeud >= 1 && static_cast<std::size_t>(noeud) <= sommets.size();
  };
  const bool desChoisis = std::any_of(sommets.begin(), sommets.end(), [](const SommetArbre& s) { return s.choisi; });
  // The limits have the precision of the values, so that a link of 33.3 passes a limit of 33.3.
  const auto ecMin = static_cast<float>(options.ecMin);
  const auto ecSup = static_cast<float>(options.ecSup);

  LiensDuGraphe resultat;
  resultat.atteints.resize(sommets.size());
  Composantes composantes(options.arbre ? sommets.size() : 0, options.aCouvrir.value_or(sommets.size()));
  for (const tables::Lien& lien : liens) {
    if (options.progressif && resultat.lus >= *options.progressif) break;
    if (!std::isfinite(lien.valeur) || lien.valeur < 0 || lien.valeur < ecMin) break;
    if (lien.valeur > ecSup || !surLeGraphe(lien.premier) || !surLeGraphe(lien.second)) continue;
    const auto i = static_cast<std::size_t>(lien.premier) - 1;
    const auto j = static_cast<std::size_t>(lien.second) - 1;
    if (EstEcarte(options.mode, sommets[i], sommets[j])) continue;
    ++resultat.lus;
    if (options.pajek) resultat.pajek.push_back(lien);
    if (options.arbre) {
      if (composantes.Complete()) {
        resultat.complet = true;
        break;
      }
      if (!sommets[i].montre || !sommets[j].montre || !composantes.Reunir(i, j)) continue;
    }
    if (desChoisis && !sommets[i].choisi && !sommets[j].choisi) continue;
    resultat.atteints[i] = resultat.atteints[j] = true;
    if (!sousLeNiveau(sommets[i]) && !sousLeNiveau(sommets[j])) resultat.traces.push_back(lien);
  }
  return resultat;
}

void EcrirePajek(Ecrivain& fichier, std::span<const std::string> intitules, std::span<const tables::Lien> liens) {
  std::string ligne = "*Vertices";
  AllerALaZoneSuivante(ligne);
  fichier.Ligne(ligne + NombreNu(intitules.size()));
  for (std::size_t i = 0; i < intitules.size(); ++i) {
    ligne = NombreNu(i + 1);
    AllerALaZoneSuivante(ligne);
    std::string intitule(RognerDroite(intitules[i]));
    std::ranges::replace(intitule, '"', '\'');
    fichier.Ligne(Joindre({ligne, "\"", intitule, "\""}));
  }
  fichier.Ligne("*Edges");
  for (const tables::Lien& lien : liens) {
    ligne = NombreNu(static_cast<std::int64_t>(lien.premier));
    AllerALaZoneSuivante(ligne);
    ligne += NombreNu(static_cast<std::int64_t>(lien.second));
    AllerALaZoneSuivante(ligne);
    fichier.Ligne(ligne + NombreNu(lien.valeur));
  }
}

}  // namespace quelvar::factor
