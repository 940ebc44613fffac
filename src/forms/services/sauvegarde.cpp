#include "forms/services/sauvegarde.h"

#include <string>

#include "core/panne/annonce.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

void RemplacerFichier(const Chemin& fichier, std::string_view octets, Nature nature) {
  Remplacement remplacement(fichier, nature);
  remplacement.Fichier().Ecrire(octets);
  remplacement.Valider();
}

GeneriqueTenu TenirEnLeDisant(const Services& services, const Contexte& contexte, std::string_view extension) {
  GeneriqueTenu tenu(contexte.repertoire, contexte.generique, contexte.Nom(extension));
  std::string reparations;
  for (const std::string& ligne : tenu.Recit()) reparations += ligne + "\r\n";
  if (!reparations.empty()) services.ecran.demander(reparations, Boutons::Ok);
  return tenu;
}

Sauvegarde SauverSur(const Services& services, const Contexte& contexte, std::string_view extension,
                     const std::function<void(const Contexte&)>& sauver) {
  Sauvegarde sauvegarde;
  services.Lancer([&](const Contexte&) {
    try {
      const GeneriqueTenu tenu = TenirEnLeDisant(services, contexte, extension);
      sauver(contexte);
      sauvegarde.faite = true;
    } catch (const Erreur& erreur) {
      sauvegarde.echec = erreur;
    }
  });
  return sauvegarde;
}

QString TexteDeLaSauvegarde(const Sauvegarde& sauvegarde, std::string_view reussite) {
  if (sauvegarde.echec) return VersQt(kTitreErreur) + '\n' + VersQt(TexteErreur(*sauvegarde.echec));
  return sauvegarde.faite ? VersQt(reussite) : QString();
}

}  // namespace quelvar::forms
