#include "factor/profil/dessin.h"

#include "core/dessin/barres.h"
#include "core/texte/texte.h"
#include "crosstab/tableau/khi2.h"

namespace quelvar::factor {

namespace {

constexpr int kClasseSure = 2;  // of crosstab::ClasseKhi2: from 5 % on

GroupeDeBarres BarresDe(const ProfilDeModalite& profil) {
  GroupeDeBarres groupe{Joindre({"Profil de la modalité "_w, profil.nom, " ", profil.intitule}), {}};
  for (const LigneDeProfil& ligne : profil.lignes)
    groupe.barres.push_back({ligne.intitule.empty() ? ligne.nom : Joindre({ligne.nom, "  ", ligne.intitule}),
                             ligne.attraction.pem,
                             crosstab::ClasseKhi2(ligne.attraction.khi2, crosstab::Borne::Comprise) >= kClasseSure});
  return groupe;
}

}  // namespace

Dessin DessinerProfils(std::span<const ProfilDeModalite> profils) {
  std::vector<GroupeDeBarres> groupes;
  for (const ProfilDeModalite& profil : profils) groupes.push_back(BarresDe(profil));
  return DessinerBarres(groupes, Joindre({"PEM en % ; barre pleine : écart sûr à 95 %"_w}));
}

}  // namespace quelvar::factor
