#include "tables/liens/profils.h"

#include <algorithm>
#include <numeric>

#include "core/texte/nombres.h"

namespace quelvar::tables {

namespace {

constexpr std::size_t kItemsDunBloc = 16;
constexpr int kLargeurCompacte = 4;
constexpr int kLargeurLongue = 10;
constexpr std::size_t kDixiemesDe100 = 1000;

std::string TexteDeValeur(double valeur) { return NombreFixe(valeur, 3, 1); }

}  // namespace

LiensParNoeud::LiensParNoeud(std::span<const Lien> liens, Bout bout, std::size_t noeuds)
    : debuts_(noeuds + 2), liens_(bout == Bout::LesDeux ? 2 * liens.size() : liens.size()) {
  const auto visiter = [&](const auto& faire) {
    for (const Lien& lien : liens) {
      if (bout != Bout::Second) faire(static_cast<std::size_t>(lien.premier), lien.second, lien.valeur);
      if (bout != Bout::Premier) faire(static_cast<std::size_t>(lien.second), lien.premier, lien.valeur);
    }
  };
  visiter([&](std::size_t noeud, std::int16_t, float) { ++debuts_[noeud + 1]; });
  std::partial_sum(debuts_.begin(), debuts_.end(), debuts_.begin());
  std::vector<std::size_t> places(debuts_.begin(), debuts_.end() - 1);
  visiter([&](std::size_t noeud, std::int16_t autre, float valeur) {
    liens_[places[noeud]++] = {autre, static_cast<std::int16_t>(noeud), valeur};
  });
}

ImprimeurDeProfils::ImprimeurDeProfils(Rapport& rapport, std::span<const std::string_view> intitules,
                                       LargeurDeProfil largeur)
    : rapport_(rapport), suite_(largeur == LargeurDeProfil::Compacte ? "" : "      "), textes_(kDixiemesDe100 + 1) {
  const int colonnes = largeur == LargeurDeProfil::Compacte ? kLargeurCompacte : kLargeurLongue;
  for (const std::string_view intitule : intitules) intitules_.push_back(CadreGauche(intitule, colonnes) + ' ');
}

void ImprimeurDeProfils::Imprimer(std::span<Lien> profil) {
  TrierProfil(profil);
  for (std::size_t i = 0; i < profil.size(); i += kItemsDunBloc)
    ImprimerBloc(profil.subspan(i, std::min(kItemsDunBloc, profil.size() - i)));
}

void ImprimeurDeProfils::ImprimerBloc(std::span<const Lien> bloc) {
  ligneIntitules_ = " ";
  ligneValeurs_.clear();
  for (const Lien& lien : bloc) {
    ligneIntitules_ += intitules_[static_cast<std::size_t>(lien.premier) - 1];
    AjouterValeur(lien.valeur);
  }
  rapport_.Ligne(ligneIntitules_);
  rapport_.Ligne(ligneValeurs_);
  rapport_.Ligne();
  rapport_.Ligne();
}

void ImprimeurDeProfils::AjouterValeur(float valeur) {
  const double dixiemes = ArrondirPair(static_cast<double>(valeur) * 10);
  if (dixiemes >= 0 && dixiemes <= static_cast<double>(kDixiemesDe100)) {
    std::string& texte = textes_[static_cast<std::size_t>(dixiemes)];
    if (texte.empty()) texte = TexteDeValeur(dixiemes / 10);
    ligneValeurs_ += texte;
  } else {
    ligneValeurs_ += TexteDeValeur(static_cast<double>(valeur));
  }
  ligneValeurs_ += suite_;
}

}  // namespace quelvar::tables
