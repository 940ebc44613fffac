#include "modalities/creation/anciennes.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <unordered_map>

#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/programme/rapport.h"

namespace quelvar::modalities {

namespace {

void DonnerMarqueUsuelle(ModaliteCreee& modalite, bool nommer) {
  const bool ecartee = EstEcartee(modalite);
  modalite.marque = ecartee && !nommer ? kMarqueSupplementaire : kMarqueActive;
  if (ecartee && nommer) modalite.intitule = "NonRéponse"_w;
}

}  // namespace

std::vector<AncienneModalite> LireAnciennes(const Chemin& chemin, const FichierPos& pos) {
  std::vector<AncienneModalite> anciennes;
  LecteurLignes lecteur(chemin);
  lecteur.LireObligatoire();
  lecteur.LireObligatoire();
  LecteurDeCodes codes(pos);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    AncienneModalite ancienne{std::string(ligne), CadreGauche(ligne, kLargeurDeModalite), FinitLesModalites(ligne)};
    if (ancienne.reprise) codes.Couper();
    else ancienne.lu = codes.Lire(ancienne.nom);
    anciennes.push_back(std::move(ancienne));
  }
  return anciennes;
}

namespace {

// The old lines by what they are of: the first of each.
class Repertoire {
 public:
  explicit Repertoire(const std::vector<AncienneModalite>& anciennes) {
    for (std::size_t i = 0; i < anciennes.size(); ++i) {
      const AncienneModalite& ancienne = anciennes[i];
      if (ancienne.reprise) continue;
      if (ancienne.lu.certitude == Certitude::Sure) sures_.emplace(Cle{ancienne.lu.question, ancienne.lu.code}, i);
      else douteuses_.emplace(ancienne.nom, i);
    }
  }

  std::optional<std::size_t> Sure(const ModaliteCreee& modalite) const {
    const auto trouvee = sures_.find(Cle{modalite.question, modalite.code});
    return trouvee == sures_.end() ? std::nullopt : std::optional(trouvee->second);
  }
  std::optional<std::size_t> Douteuse(const ModaliteCreee& modalite) const {
    const auto trouvee = douteuses_.find(modalite.nom);
    return trouvee == douteuses_.end() ? std::nullopt : std::optional(trouvee->second);
  }

 private:
  using Cle = std::pair<std::string_view, int>;
  std::map<Cle, std::size_t> sures_;
  std::unordered_map<std::string_view, std::size_t> douteuses_;
};

}  // namespace

std::vector<std::string> ReprendreAnciennes(std::vector<ModaliteCreee>& modalites,
                                            std::vector<AncienneModalite>& anciennes, bool oublier, bool nommer) {
  const Repertoire repertoire(anciennes);
  std::vector<std::string> douteuses;
  for (ModaliteCreee& modalite : modalites) {
    const std::optional<std::size_t> sure = repertoire.Sure(modalite);
    const std::optional<std::size_t> trouvee = sure ? sure : repertoire.Douteuse(modalite);
    if (trouvee) anciennes[*trouvee].reprise = true;
    if (!trouvee || oublier) {
      DonnerMarqueUsuelle(modalite, nommer);
      continue;
    }
    const Modalite lue = LireLigneModalite(anciennes[*trouvee].ligne);
    modalite.marque = CadreGauche(lue.marque, kLargeurDeMarque);
    modalite.intitule = lue.intitule.substr(0, kIntituleDeModaliteAuPlus);
    if (!sure && (modalite.marque != kMarqueActive || !modalite.intitule.empty()))
      douteuses.push_back(Joindre({modalite.nom, " (", Rogner(modalite.question), ")"}));
  }
  return douteuses;
}

namespace {

// The modalities of a question, code 0 first when it is one.
template <class P>
auto ModalitesDe(P& plan, const QuestionChoisie& question) {
  const std::size_t nombre = static_cast<std::size_t>(std::max(question.codeMax, 0)) + (plan.codesZero ? 1 : 0);
  return std::span(plan.modalites).subspan(question.premiere, nombre);
}

}  // namespace

std::vector<std::size_t> QuestionsPasseesDeLAutreCote(const PlanModalites& plan,
                                                      const std::vector<AncienneModalite>& anciennes) {
  const Repertoire repertoire(anciennes);
  std::vector<std::size_t> changees;
  for (std::size_t q = 0; q < plan.questions.size(); ++q) {
    std::size_t connues = 0;
    std::size_t autres = 0;
    for (const ModaliteCreee& modalite : ModalitesDe(plan, plan.questions[q])) {
      if (modalite.nom.ends_with('0')) continue;
      const std::optional<std::size_t> ancienne = repertoire.Sure(modalite);
      if (!ancienne) continue;
      ++connues;
      if (LireLigneModalite(anciennes[*ancienne].ligne).supplementaire != modalite.supplementaire) ++autres;
    }
    if (connues > 0 && autres == connues) changees.push_back(q);
  }
  return changees;
}

void MarquerSelonLeChoix(PlanModalites& plan, const std::vector<std::size_t>& questions) {
  for (const std::size_t q : questions)
    for (ModaliteCreee& modalite : ModalitesDe(plan, plan.questions[q])) DonnerMarqueUsuelle(modalite, false);
}

}  // namespace quelvar::modalities
