#include "core/programme/anciennecopie.h"

#include "core/fichiers/sauvegarde.h"

namespace quelvar {

void ConserverSauvegarde(Rapport& rapport, const Chemin& fichier, const std::string& sauvegarde,
                         JeuDeFichiers& sorties) {
  const std::string nom = ConserverSauvegarde(sorties, fichier, sauvegarde);
  if (!nom.empty()) rapport.Ligne({"L'ancienne sauvegarde "_w, sauvegarde, " est conservée sous le nom "_w, nom});
}

}  // namespace quelvar
