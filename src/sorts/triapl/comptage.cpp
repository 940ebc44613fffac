#include "sorts/triapl/comptage.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/enquete/datfile.h"

namespace quelvar::sorts {

namespace {

bool ToutesPositionsPossibles(const FichierPos& pos) {
  return std::all_of(pos.questions.begin(), pos.questions.end(), [](const Question& q) { return q.position >= 1; });
}

std::size_t LongueurDesChampsPossibles(const FichierPos& pos) {
  std::size_t longueur = 0;
  for (const Question& question : pos.questions)
    if (question.position >= 1)
      longueur = std::max(longueur, static_cast<std::size_t>(question.position - 1 + question.largeur));
  return longueur;
}

// Values that one, two and three columns can hold.
constexpr std::size_t kValeursDUn = 10;
constexpr std::size_t kValeursDeDeux = 100;
constexpr std::size_t kValeursDeTrois = kCodeMaxL3 + 1;

// Counters of the questions of one width: every value that the width can hold has its place, so that the pass compares
// nothing; the code-max is applied once, at the end.
template <std::size_t places>
struct Compteurs {
  std::vector<std::uint32_t> debuts;    // first byte of each field
  std::vector<std::size_t> questions;   // index of each question
  std::vector<std::int64_t> effectifs;  // `places` a question

  void Ajouter(std::size_t question, std::uint32_t debut) {
    questions.push_back(question);
    debuts.push_back(debut);
    effectifs.resize(effectifs.size() + places);
  }

  void Verser(const FichierPos& pos, Comptage& comptage) const {
    for (std::size_t i = 0; i < questions.size(); ++i) {
      std::vector<std::int64_t>& cibles = comptage.effectifs[questions[i]];
      const auto codeMax = static_cast<std::size_t>(std::max(pos.questions[questions[i]].codeMax, 0));
      for (std::size_t code = 0; code < places; ++code)
        cibles[code <= codeMax ? code : 0] += effectifs[i * places + code];
    }
  }
};

class PasseRapide {
 public:
  explicit PasseRapide(const FichierPos& pos) : pos_(pos) {
    for (std::size_t i = 0; i < pos.questions.size(); ++i) {
      const Champ champ = ChampDe(pos.questions[i]);
      if (champ.largeur == 1) un_.Ajouter(i, champ.debut);
      else if (champ.largeur == 2) deux_.Ajouter(i, champ.debut);
      else trois_.Ajouter(i, champ.debut);
    }
  }

  void Compter(const char* ligne) {
    const std::array<std::uint8_t, 256>& valeurs = ValeursDUnOctet();
    std::int64_t* effectifs = un_.effectifs.data();
    for (const std::uint32_t debut : un_.debuts) {
      ++effectifs[valeurs[static_cast<unsigned char>(ligne[debut])]];
      effectifs += kValeursDUn;
    }
    effectifs = deux_.effectifs.data();
    for (const std::uint32_t debut : deux_.debuts) {
      const std::size_t octets =
          static_cast<unsigned char>(ligne[debut]) + 256U * static_cast<unsigned char>(ligne[debut + 1]);
      ++effectifs[std::max<int>(deuxOctets_[octets], 0)];
      effectifs += kValeursDeDeux;
    }
    effectifs = trois_.effectifs.data();
    for (const std::uint32_t debut : trois_.debuts) {
      const int valeur = LireChampInterieur(ligne, {debut, 3});
      ++effectifs[valeur < 0 || valeur > kCodeMaxL3 ? 0 : valeur];
      effectifs += kValeursDeTrois;
    }
  }

  void Verser(Comptage& comptage) const {
    un_.Verser(pos_, comptage);
    deux_.Verser(pos_, comptage);
    trois_.Verser(pos_, comptage);
  }

 private:
  const FichierPos& pos_;
  const std::array<std::int8_t, 65536>& deuxOctets_ = ValeursDeDeuxOctets();
  Compteurs<kValeursDUn> un_;
  Compteurs<kValeursDeDeux> deux_;
  Compteurs<kValeursDeTrois> trois_;
};

// The pass that tells overflows in their order, and meets impossible fields where they stand.
void CompterAvecControle(const char* ligne, const FichierPos& pos, const SignalerDepassement& signaler,
                         Comptage& comptage) {
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    if (question.position < 1) throw ChampImpossible(pos, i);
    int valeur = LireChampInterieur(ligne, ChampDe(question));
    if (valeur > question.codeMax) {
      if (signaler) signaler(i, comptage.individus, valeur);
      valeur = 0;
    }
    ++comptage.effectifs[i][static_cast<std::size_t>(std::max(valeur, 0))];
  }
}

}  // namespace

Comptage CompterCodes(const Chemin& donnees, const FichierPos& pos, std::int64_t maximum,
                      const SignalerDepassement& signaler, Progression& progression) {
  Comptage comptage;
  for (const Question& question : pos.questions)
    comptage.effectifs.emplace_back(static_cast<std::size_t>(std::max(question.codeMax, 0)) + 1, 0);

  LecteurIndividus lecteur(donnees, LongueurDesChampsPossibles(pos));
  std::optional<PasseRapide> passe;
  if (!signaler && ToutesPositionsPossibles(pos)) passe.emplace(pos);
  Parcourir(lecteur, maximum, [&](const char* ligne, std::int64_t numero) {
    comptage.individus = numero;
    progression.Avancer();
    if (passe) passe->Compter(ligne);
    else CompterAvecControle(ligne, pos, signaler, comptage);
  });
  if (passe) passe->Verser(comptage);
  return comptage;
}

}  // namespace quelvar::sorts
