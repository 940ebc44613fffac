#include "factor/profil/noms.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "core/enquete/noms.h"
#include "core/texte/texte.h"
#include "factor/profil/choix.h"

namespace quelvar::factor {

namespace {

// The modalities by their names, blanks around them aside: a choice may name thousands of them.
class Annuaire {
 public:
  explicit Annuaire(const std::vector<Modalite>& modalites) : modalites_(modalites) {
    for (std::size_t i = 0; i < modalites.size(); ++i) rangs_[Rogner(modalites[i].nom)].push_back(i);
  }

  // As SeuleModalite finds them.
  std::optional<std::size_t> Chercher(std::string_view nom) const {
    const auto trouve = rangs_.find(Rogner(nom));
    if (trouve == rangs_.end() || trouve->first.empty()) return std::nullopt;
    if (trouve->second.size() > 1) return SeuleModalite(modalites_, nom);
    return trouve->second.front();
  }

 private:
  const std::vector<Modalite>& modalites_;
  std::unordered_map<std::string_view, std::vector<std::size_t>> rangs_;
};

}  // namespace

ModalitesChoisies TrouverChoisies(const std::vector<Modalite>& modalites, const std::string& choix) {
  ModalitesChoisies choisies;
  if (choix.empty()) choisies.fautes.emplace_back("Erreur : nom de MOD= non trouvé"_w);
  const Annuaire annuaire(modalites);
  for (const std::string& nom : NomsDuChoix(choix)) {
    if (const std::optional<std::size_t> rang = annuaire.Chercher(nom)) choisies.rangs.push_back(*rang);
    else choisies.fautes.push_back(Joindre({"Erreur : ", nom, " non trouvé"_w}));
  }
  choisies.sansIntitule =
      std::ranges::any_of(choisies.rangs, [&](std::size_t rang) { return Rogner(modalites[rang].intitule).empty(); });
  return choisies;
}

CodesDesModalites TrouverCodes(const std::vector<Modalite>& modalites, const FichierPos& pos) {
  CodesDesModalites trouves;
  std::vector<bool> vues(pos.questions.size());
  std::optional<CodeDeModalite> precedente;
  for (const Modalite& modalite : modalites) {
    CodeDeModalite& code = trouves.codes.emplace_back();
    const FauteDeNom faute = LireNomDeModalite(pos, modalite.nom, precedente, code);
    precedente = faute == FauteDeNom::Aucune ? std::optional(code) : std::nullopt;
    if (faute != FauteDeNom::Aucune && trouves.fautes.empty())
      trouves.ou.ligne = LigneDansLaListe(trouves.codes.size() - 1);
    switch (faute) {
      case FauteDeNom::Aucune: break;
      case FauteDeNom::Inconnue:
        trouves.fautes.push_back(Joindre({"Erreur : ", modalite.nom, " non trouvé"_w}));
        continue;
      case FauteDeNom::HorsNorme:
        trouves.fautes.push_back(Joindre({"Erreur : valeur de modalité "_w, modalite.nom, " hors norme"}));
        continue;
      case FauteDeNom::Partagee:
        trouves.fautes.push_back(
            Joindre({"Erreur : ", modalite.nom,
                     " peut être une modalité de plusieurs questions, dont les noms commencent de même : "
                     "changez le nom de l'une dans le fichier *.POS"_w}));
        continue;
    }
    if (vues[code.question]) continue;
    vues[code.question] = true;
    const std::string& nom = pos.questions[code.question].nom;
    const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, nom);
    if (rangs.size() < 2) continue;
    trouves.homonymes = FauteHomonymes(nom, pos.questions, rangs);
    trouves.ou = LieuDeLaQuestion(pos, rangs[1]);
    break;
  }
  return trouves;
}

}  // namespace quelvar::factor
