#include "factor/classement/cah.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"

namespace quelvar::factor {

namespace {

constexpr int kLargeurEtape = 4;  // of the number of a step, and of a member
constexpr int kLargeurItem = 5;   // of the elements and items of a step

std::string NumeroDEtape(std::size_t etape) { return NombreFixe(static_cast<double>(etape + 1), kLargeurEtape, 0); }

// The two numbers that end a step line, in five places each; a sixth stands when a step from 10000 on is taken over.
std::array<std::int32_t, 2> LireItems(std::string_view items) {
  constexpr std::size_t kItem = kLargeurItem;
  const bool deSix = items.size() > 2 * kItem + 1 || (items.size() > 2 * kItem && items[kItem] != '-');
  const std::size_t premier = deSix ? kItem + 1 : kItem;
  return {Entier32(ValeurDe(items.substr(0, std::min(premier, items.size())))),
          Entier32(ValeurDe(Milieu(items, premier + 1)))};
}

EtapeWard LireEtape(std::string_view ligne, std::size_t etape, std::size_t elements) {
  const std::size_t debut = NumeroDEtape(etape).size() + 1;
  EtapeWard lue;
  lue.premier = Entier32(ValeurDe(Milieu(ligne, debut, kLargeurItem)));
  lue.second = Entier32(ValeurDe(Milieu(ligne, debut + kLargeurItem, kLargeurItem)));
  const auto [premier, second] = LireItems(Milieu(ligne, debut + 2 * std::size_t{kLargeurItem}));
  lue.itemPremier = premier;
  lue.itemSecond = second;
  for (const std::int32_t item : {premier, second})
    if (item == 0 || item > static_cast<std::int64_t>(elements) ||
        -static_cast<std::int64_t>(item) > static_cast<std::int64_t>(etape))
      throw Erreur(kIndiceHorsSelection);
  return lue;
}

// The items that have stood in a step: one that stands again would make the classes overlap.
class ItemsPris {
 public:
  explicit ItemsPris(std::size_t etapes) : elements_(etapes + 2, 0), classes_(etapes + 1, 0) {}

  void Prendre(std::int32_t item) {
    char& pris = item > 0 ? elements_[static_cast<std::size_t>(item)] : classes_[static_cast<std::size_t>(-item)];
    if (pris != 0) throw Erreur(kIndiceHorsSelection);
    pris = 1;
  }

 private:
  std::vector<char> elements_;
  std::vector<char> classes_;
};

}  // namespace

void EcrireCah(Ecrivain& fichier, const ArbreCah& arbre) {
  fichier.Ligne(std::string_view(arbre.individus ? "INDIV = OUI" : "INDIV = NON"));
  for (std::size_t s = 0; s < arbre.etapes.size(); ++s) {
    const EtapeWard& etape = arbre.etapes[s];
    fichier.Ecrire(NumeroDEtape(s));
    for (const std::int32_t valeur : {etape.premier, etape.second, etape.itemPremier, etape.itemSecond})
      fichier.Ecrire(NombreFixe(valeur, kLargeurItem, 0));
    fichier.FinDeLigne();
  }
  const MembresWard membres = MembresDesEtapes(arbre.etapes);
  for (std::size_t s = 0; s < arbre.etapes.size(); ++s) {
    fichier.Ecrire(NumeroDEtape(s));
    fichier.Ecrire(' ');
    for (const std::int32_t element : membres.DeLEtape(s)) fichier.Ecrire(NombreFixe(element, kLargeurEtape, 0));
    fichier.FinDeLigne();
  }
}

ArbreCah LireCah(const Chemin& chemin) {
  std::vector<std::string> lignes;
  LecteurLignes lecteur(chemin);
  ArbreCah arbre;
  arbre.individus = lecteur.LireObligatoire().find("OUI") != std::string_view::npos;
  for (std::string_view ligne; lecteur.Lire(ligne);) lignes.emplace_back(ligne);
  // As many lines of members follow the lines of steps.
  const std::size_t etapes = lignes.size() / 2;
  Lieu lieu = lecteur.Ou();
  const auto ou = [&] { return lieu; };
  for (std::size_t s = 0; s < etapes; ++s) {
    lieu.ligne = static_cast<std::int64_t>(s) + 2;
    Situer(ou, [&] { arbre.etapes.push_back(LireEtape(lignes[s], s, etapes + 1)); });
  }
  ItemsPris pris(etapes);
  for (std::size_t s = 0; s < etapes; ++s) {
    lieu.ligne = static_cast<std::int64_t>(s) + 2;
    Situer(ou, [&] {
      pris.Prendre(arbre.etapes[s].itemPremier);
      pris.Prendre(arbre.etapes[s].itemSecond);
    });
  }
  return arbre;
}

}  // namespace quelvar::factor
