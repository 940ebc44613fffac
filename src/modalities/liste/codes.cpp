#include "modalities/liste/codes.h"

#include "core/enquete/colonnes.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar::modalities {

namespace {

// The reading as the first code, 0 or 1, of a question.
std::optional<CodeDeModalite> LirePremierCode(const FichierPos& pos, std::string_view nom) {
  if (nom[3] != '0' && nom[3] != '1') return std::nullopt;
  for (std::size_t q = 0; q < pos.questions.size(); ++q)
    if (nom.starts_with(CadreGauche(pos.questions[q].nom, kLargeurDeQuestion))) return CodeDeModalite{q, nom[3] - '0'};
  return std::nullopt;
}

}  // namespace

bool EstEnDeuxChiffres(std::string_view nom) {
  if (nom.size() < kLargeurDeModalite || !EstChiffre(nom[2]) || !EstChiffre(nom[3])) return false;
  return 10 * (nom[2] - '0') + (nom[3] - '0') >= kPremierCodeDouble;
}

CodeLu LecteurDeCodes::Lire(std::string_view nom) {
  CodeDeModalite lu;
  FauteDeNom faute = LireNomDeModalite(pos_, nom, precedente_, lu);
  // Q361 that does not go on from a code of Q31 begins the question Q36.
  if (faute == FauteDeNom::Partagee)
    if (const std::optional<CodeDeModalite> premier = LirePremierCode(pos_, nom)) {
      lu = *premier;
      faute = FauteDeNom::Aucune;
    }
  // Codes go up within a question: a code of 36 on behind another question of these letters is more likely of that
  // one, which has fewer codes by now or is gone.
  const bool suitUneAutre = lettres_ == nom.substr(0, kLettresDUnCodeDouble) && lu.code >= kPremierCodeDouble &&
                            !(precedente_ && precedente_->question == lu.question);
  const bool douteuse = faute == FauteDeNom::Partagee || (faute == FauteDeNom::Aucune && suitUneAutre);
  lettres_ = nom.substr(0, kLettresDUnCodeDouble);
  precedente_ = faute == FauteDeNom::Aucune && !douteuse ? std::optional(lu) : std::nullopt;
  if (precedente_) return {Certitude::Sure, CadreGauche(pos_.questions[lu.question].nom, kLargeurDeQuestion), lu.code};
  return {douteuse ? Certitude::Douteuse : Certitude::Inconnue};
}

void LecteurDeCodes::Couper() {
  precedente_.reset();
  lettres_.clear();
}

}  // namespace quelvar::modalities
