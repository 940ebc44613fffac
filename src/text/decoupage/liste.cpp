#include "text/decoupage/liste.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "utilities/tri/chaines.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kRacine = 3;  // columns that words of one running number share
constexpr int kLargeurFrequence = 4;

// Key of each word: the first columns of its line of concordance.
std::vector<utilities::CleDeTri> ClesDe(const Corpus& corpus) {
  const std::size_t tete = kLargeurMot + corpus.gabarit.Largeur();
  std::string ligne(tete + kContexteGauche, ' ');
  std::vector<utilities::CleDeTri> cles;
  cles.reserve(corpus.mots.size());
  for (const Mot& mot : corpus.mots) {
    const Concordance concordance(corpus, mot);
    char* place = concordance.EcrireCaracteristiques(concordance.EcrireMot(ligne.data()));
    if (tete < utilities::kLargeurCle) concordance.EcrireGauche(place);
    cles.push_back(utilities::CleDe(ligne));
  }
  return cles;
}

// The ten columns of the word, in a key.
bool MemeMot(const utilities::CleDeTri& a, const utilities::CleDeTri& b) {
  constexpr int kHorsDuMot = 48;  // bits of columns 11 to 16
  return a.debut == b.debut && (a.milieu >> kHorsDuMot) == (b.milieu >> kHorsDuMot);
}

}  // namespace

std::array<char, kLargeurCode> Codeur::Coder(std::string_view mot) {
  const bool meme = !precedent_.empty() && mot.substr(0, kRacine) == std::string_view(precedent_).substr(0, kRacine);
  numero_ = meme ? numero_ + 1 : 0;
  precedent_ = mot;
  std::array<char, kLargeurCode> code{};
  const std::string numero = numero_ == 0 ? std::string() : Nombre(numero_);
  const std::size_t chiffres = std::min(numero.size(), kLargeurCode);
  mot.copy(code.data(), kLargeurCode - chiffres);
  numero.copy(code.data() + (kLargeurCode - chiffres), chiffres, numero.size() - chiffres);
  return code;
}

std::vector<MotDistinct> TrierEtCoder(Corpus& corpus, const Dialogue& dialogue) {
  const std::vector<utilities::CleDeTri> cles = ClesDe(corpus);
  const std::vector<std::uint32_t> ordre =
      utilities::TriChaines(cles, utilities::SensDeTri::Croissant, [&](std::int64_t reste) {
        dialogue.montrerIteration(Joindre({"Il reste ", Nombre(reste), " à trier"_w}));
      });
  std::vector<Mot> tries(ordre.size());
  std::vector<MotDistinct> distincts;
  Codeur codeur;
  for (std::size_t i = 0; i < ordre.size(); ++i) {
    tries[i] = corpus.mots[ordre[i]];
    if (i == 0 || !MemeMot(cles[ordre[i]], cles[ordre[i - 1]])) {
      MotDistinct& distinct = distincts.emplace_back();
      Concordance(corpus, tries[i]).EcrireMot(distinct.mot.data());
      distinct.code = codeur.Coder(distinct.Mot());
    }
    ++distincts.back().frequence;
  }
  corpus.mots = std::move(tries);
  return distincts;
}

void EcrireConcordances(Ecrivain& fichier, const Corpus& corpus) {
  std::string ligne(LongueurConcordance(corpus.gabarit), ' ');
  for (const Mot& mot : corpus.mots) {
    const Concordance concordance(corpus, mot);
    char* place = concordance.EcrireCaracteristiques(concordance.EcrireMot(ligne.data()));
    concordance.EcrireDroite(concordance.EcrireGauche(place));
    fichier.Ligne(ligne);
  }
}

void EcrireDonnees(Ecrivain& fichier, const Corpus& corpus, const std::vector<MotDistinct>& distincts) {
  std::string ligne(LongueurDonnees(corpus.gabarit), ' ');
  char* const motCode = ligne.data() + corpus.gabarit.Largeur();
  char* const contexte = motCode + kLargeurCode + kLargeurMot + kFinDeMot.size();
  kFinDeMot.copy(contexte - kFinDeMot.size(), kFinDeMot.size());
  const Mot* mot = corpus.mots.data();
  for (const MotDistinct& distinct : distincts) {
    distinct.Code().copy(motCode, kLargeurCode);
    distinct.Mot().copy(motCode + kLargeurCode, kLargeurMot);
    for (std::int64_t i = 0; i < distinct.frequence; ++i, ++mot) {
      const Concordance concordance(corpus, *mot);
      concordance.EcrireCaracteristiques(ligne.data());
      concordance.EcrireDroite(concordance.EcrireGauche(contexte));
      fichier.Ligne(ligne);
    }
  }
}

void EcrireEdition(Ecrivain& fichier, const std::vector<MotDistinct>& distincts) {
  for (const MotDistinct& distinct : distincts) {
    fichier.Ecrire(distinct.Mot());
    fichier.Ecrire(distinct.Code());
    fichier.Ligne(NombreFixe(static_cast<double>(distinct.frequence), kLargeurFrequence, 0));
  }
}

TableauEdite TableauDesMots(const std::vector<MotDistinct>& distincts) {
  TableauEdite tableau;
  tableau.colonnes.resize(1);
  tableau.rangees.reserve(distincts.size());
  for (const MotDistinct& distinct : distincts)
    tableau.rangees.push_back(
        {{}, std::string(distinct.Mot()), {{static_cast<double>(distinct.frequence), Unite::Effectif, 0, {}}}});
  return tableau;
}

}  // namespace quelvar::text
