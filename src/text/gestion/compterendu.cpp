#include "text/gestion/compterendu.h"

#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/programme/rapport.h"
#include "text/tableau/sorties.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kRetrait = "         ";

void AjouterLesLignes(const Regroupement& regroupement, std::vector<std::string>& lignes) {
  for (const Regroupement::Ligne& ligne : regroupement.lignes)
    lignes.push_back(Joindre({kRetrait, CadreGauche(ligne.nom, kLargeurFrequence), " ", Rogner(ligne.intitule)}));
}

}  // namespace

std::vector<std::string> CompteRenduDe(const Regroupement& regroupement) {
  std::vector<std::string> lignes;
  AjouterLesLignes(regroupement, lignes);
  for (int i = 0; i < regroupement.elargissements; ++i) {
    lignes.emplace_back(
        "*** Attention, le processus est réitéré pour tenir compte d'un effectif qui dépasse la largeur initiale"_w);
    lignes.emplace_back("    de ce fait, des indications de regroupement sont dupliquées"_w);
    AjouterLesLignes(regroupement, lignes);
  }
  lignes.push_back(Joindre({"Le regroupement des lignes précédentes a pour nom : "_w, regroupement.intitule,
                            " Sa fréquence est de "_w, NombreNu(regroupement.frequence)}));
  if (regroupement.plafonnees > 0)
    lignes.push_back(
        Joindre({kAttention, "cette fréquence est un minimum, "_w, Nombre(regroupement.plafonnees),
                 " ligne(s) regroupée(s) ayant "_w, Nombre(kFrequenceEcrite), ", le plus que portent ses 4 colonnes"}));
  if (regroupement.frequence > static_cast<double>(kFrequenceEcrite))
    lignes.push_back(Joindre({kAttention, "cette fréquence dépasse "_w, Nombre(kFrequenceEcrite),
                              ", que ses 4 colonnes du tableau portent à sa place"_w}));
  return lignes;
}

}  // namespace quelvar::text
