#include "factor/classement/tableur.h"

#include "core/programme/rapport.h"

namespace quelvar::factor {

void EcrireTableur(Ecrivain& fichier, std::span<const BilanDEtape> bilans) {
  constexpr int kNumero = 4;
  constexpr int kClasses = 3;
  fichier.Ligne(kTitreDuTableur);
  for (std::size_t s = 0; s < bilans.size(); ++s)
    fichier.Ligne(NombreFixe(static_cast<double>(s + 1), kNumero, 0) + ';' +
                  NombreFixe(bilans[s].classes, kClasses, 0));
}

}  // namespace quelvar::factor
