#include "sorts/recodage/plan.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"

namespace quelvar::sorts {

namespace {

int LargeurEnPlace(int largeur, int codeMax) { return largeur == 1 ? 1 : std::min(largeur, LargeurNeuve(codeMax)); }

// Largest value that a VIT can take: the sum of its scores, or of the code-maxes of the questions that it adds up.
std::int64_t CodeMaxTheorique(const VitDemandee& vit, const Consignes& consignes,
                              const std::vector<ChampNeuf>& champs) {
  std::int64_t scores = 0;
  std::int64_t codeMaxes = 0;
  for (const Comparaison& element : vit.elements) {
    const auto champ = std::ranges::find(champs, element.question, &ChampNeuf::question);
    const int codeMax = champ == champs.end() ? consignes.pos.questions[element.question].codeMax : champ->codeMax;
    scores += std::max(element.score, 0);
    codeMaxes += std::max(codeMax, 0);
  }
  return vit.additive ? std::max(scores, codeMaxes) : scores;
}

// Hands out columns one field after the other.
class Colonnes {
 public:
  explicit Colonnes(std::int64_t occupees) : occupees_(occupees) {}

  int Prendre(int largeur) {
    const std::int64_t position = occupees_ + 1;
    occupees_ += largeur;
    if (position > kDernierePosition) throw Erreur(kDepassementCapacite);
    return static_cast<int>(position);
  }

 private:
  std::int64_t occupees_;
};

}  // namespace

std::vector<ChampNeuf> CompleterChamps(const Consignes& consignes) {
  std::vector<ChampNeuf> champs;
  champs.reserve(consignes.aRegle.size());
  for (const QuestionARegle& aRegle : consignes.aRegle) {
    const Question& question = consignes.pos.questions[aRegle.question];
    ChampNeuf champ;
    champ.question = aRegle.question;
    champ.table = CompleterTable(aRegle.verifiee);
    champ.codeMax = *std::ranges::max_element(champ.table);
    champ.largeur = LargeurNeuve(champ.codeMax);
    if (consignes.mode == ModeRecodage::SurPlace) {
      champ.largeur = LargeurEnPlace(question.largeur, champ.codeMax);
      champ.liberees = question.largeur - champ.largeur;
    }
    champ.tropLarge = std::ranges::any_of(
        champ.table, [&](int code) { return static_cast<int>(Nombre(code).size()) > champ.largeur; });
    champs.push_back(std::move(champ));
  }
  return champs;
}

std::int64_t LongueurEnregistrement(const std::vector<Question>& questions, std::int64_t longueurLignes) {
  std::int64_t longueur = longueurLignes;
  for (const Question& question : questions) {
    const int largeur = question.alphabetique ? ColonnesAlphabetiques(question.codeMax) : question.largeur;
    longueur = std::max<std::int64_t>(longueur, question.position + std::int64_t{largeur} - 1);
  }
  return longueur;
}

PlanDeRecodage Disposer(const Consignes& consignes, std::vector<ChampNeuf> champs, std::int64_t longueur) {
  PlanDeRecodage plan;
  plan.champs = std::move(champs);
  plan.longueur = consignes.mode == ModeRecodage::Seules ? 0 : longueur;
  Colonnes colonnes(plan.longueur);
  for (ChampNeuf& champ : plan.champs) {
    champ.position = consignes.mode == ModeRecodage::SurPlace ? consignes.pos.questions[champ.question].position
                                                              : colonnes.Prendre(champ.largeur);
  }
  for (std::size_t i = 0; i < consignes.vits.size(); ++i) {
    const std::int64_t theorique = CodeMaxTheorique(consignes.vits[i], consignes, plan.champs);
    VitNeuve vit;
    vit.demandee = i;
    vit.ramene = theorique > kCodeMaximum;
    vit.codeMax = static_cast<int>(std::min<std::int64_t>(theorique, kCodeMaximum));
    vit.largeur = LargeurNeuve(vit.codeMax);
    vit.position = colonnes.Prendre(vit.largeur);
    plan.vits.push_back(vit);
  }
  return plan;
}

}  // namespace quelvar::sorts
