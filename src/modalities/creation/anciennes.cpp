#include "modalities/creation/anciennes.h"

#include <unordered_map>

#include "core/enquete/modfile.h"
#include "core/programme/report.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kMarqueActive = "   ";
constexpr std::string_view kMarqueSupplementaire = " S ";
constexpr std::size_t kLargeurIntitule = 25;

void DonnerMarqueUsuelle(ModaliteCreee& modalite, bool nommer) {
  const bool ecartee = EstEcartee(modalite);
  modalite.marque = ecartee && !nommer ? kMarqueSupplementaire : kMarqueActive;
  if (ecartee && nommer) modalite.intitule = "NonRéponse"_w;
}

}  // namespace

std::vector<AncienneModalite> LireAnciennes(const Chemin& chemin) {
  std::vector<AncienneModalite> anciennes;
  LecteurLignes lecteur(chemin);
  lecteur.LireObligatoire();
  lecteur.LireObligatoire();
  for (std::string_view ligne; lecteur.Lire(ligne);)
    anciennes.push_back({std::string(ligne), CadreGauche(ligne, 4), FinitLesModalites(ligne)});
  return anciennes;
}

void ReprendreAnciennes(std::vector<ModaliteCreee>& modalites, std::vector<AncienneModalite>& anciennes, bool oublier,
                        bool nommer) {
  std::unordered_map<std::string_view, AncienneModalite*> premieres;
  for (AncienneModalite& ancienne : anciennes)
    if (!ancienne.reprise) premieres.emplace(ancienne.nom, &ancienne);

  for (ModaliteCreee& modalite : modalites) {
    const auto trouvee = premieres.find(modalite.nom);
    if (trouvee != premieres.end()) trouvee->second->reprise = true;
    if (trouvee == premieres.end() || oublier) {
      DonnerMarqueUsuelle(modalite, nommer);
    } else {
      const Modalite lue = LireLigneModalite(trouvee->second->ligne);
      modalite.marque = CadreGauche(lue.marque, 3);
      modalite.intitule = lue.intitule.substr(0, kLargeurIntitule);
    }
  }
}

}  // namespace quelvar::modalities
