#include "capture/compterendu/fichiers.h"

#include <string>
#include <system_error>

#include "core/session/generiquelibre.h"

namespace quelvar::capture {

void ImprimerEtat(Rapport& rapport, std::string_view nom, Texte etat) { rapport.Ligne({"Le fichier ", nom, etat}); }

void ImprimerEtatDeSortie(Rapport& rapport, std::string_view nom, bool present, bool lisible) {
  ImprimerEtat(rapport, nom, !present ? kSeraCree : lisible ? kRemplace : kExiste);
}

void ArreterSansSource(Rapport& rapport, bool autres) {
  rapport.Ligne();
  rapport.Ligne(autres ? "Arrêt du programme car il n'y a pas de données"_w
                       : "Arrêt du programme car aucun fichier n'existe"_w);
  throw Erreur(kArretAnnonce);
}

void SauvegarderAncien(Rapport& rapport, std::string_view nom, const Chemin& fichier, JeuDeFichiers& sauvegardes,
                       Texte suite) {
  ImprimerEtat(rapport, nom, " existe déjà"_w);
  ConserverSauvegarde(rapport, fichier, NomDeSauvegarde(nom), sauvegardes);
  rapport.Ligne({"Il est sauvegardé sous le nom "_w, CopierSousLeNomUsuel(sauvegardes, fichier, nom), suite});
}

void PrevenirDesTableaux(const Contexte& contexte, JeuDeFichiers& sorties) {
  const std::string remarque =
      RemarqueSurLesTableaux(contexte, contexte.generique, sorties.Achever(contexte.Nom(".DAT")));
  if (!remarque.empty()) contexte.Ecran().demander(remarque, Boutons::Ok);
}

void ImprimerFinDImport(Rapport& rapport, int niveau) {
  if (niveau >= kNiveauAvance) {
    rapport.Ligne("Fin normale du programme");
    return;
  }
  rapport.Ligne("   +----------------------------------------------------------------+");
  rapport.Ligne("   +    Fin normale du programme.  Vous disposez  maintenant d'un   +");
  rapport.Ligne("   +    ensemble  cohérent  de  fichiers *.DAT (données)  et *.POS  +"_w);
  rapport.Ligne("   + (noms, positions et codes-max) ainsi que du tri à plat relatif +"_w);
  rapport.Ligne("   +    à ces données *.IMP où * représente votre générique.        +"_w);
}

}  // namespace quelvar::capture
