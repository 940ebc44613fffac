#include "utilities/edition.h"

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/session/generiquelibre.h"
#include "core/texte/listes.h"
#include "utilities/entrees/fichiers.h"

namespace quelvar::utilities {

void ImprimerTeteDesCaracteres(Rapport& rapport, std::string_view source) {
  ImprimerBandeau(rapport, "Affichage d'un fichier caractère par caracactère"_w);
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, source});
  rapport.Ligne("Tables  : code décimal et charactères imprimables "_w);
}

void ImprimerTeteDeLExportation(Rapport& rapport, const OptionsExportation& options) {
  ImprimerBandeau(rapport, "Exportation de fichiers");
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, NomAffiche(options.a)});
  rapport.Ligne({"Le nom du fichier exporté est "_w, NomAffiche(options.c)});
  rapport.Ligne({"Début de la zone d'exportation "_w, options.debut});
  rapport.Ligne({"Fin de la zone d'exportation ", options.fin});
}

void ImprimerBilanDeLExportation(Rapport& rapport, std::int64_t lignes, bool complementaire) {
  rapport.Ligne({"Nombre d'enregistrement dans le fichier résultant :"_w, NombreNu(lignes)});
  rapport.Ligne();
  rapport.Ligne(complementaire ? "Le fichier exporté est le complémentaire de la zone définie"_w
                               : "Le fichier exporté est celui correspondant à la zone définie"_w);
  rapport.Ligne();
  rapport.Ligne("Programme normalement terminé"_w);
}

void ImprimerTeteDeGendat(Rapport& rapport, const Contexte& contexte) {
  ImprimerBandeau(rapport, "  Gendat 3 dim .DAT à partir d'un tableau"_w);
  rapport.Ligne({"Le nom du fichier de Burt est ", contexte.Nom(".BRT")});
  rapport.Ligne({"Le nom du fichier de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Les impressions se font sur ", NomDuRapport(contexte)});
  rapport.Ligne({"Le fichier des nouvelles données est "_w, contexte.Nom(".DAT")});
}

void ImprimerReservesDeGendat(Rapport& rapport, const BilanGendat& bilan) {
  std::vector<std::string> remarques;
  bilan.negatives.Dire("négatives, qui n'engendrent aucun individu"_w, remarques);
  bilan.fractionnaires.Dire("fractionnaires, qui sont arrondies", remarques);
  rapport.Lignes(remarques);
  rapport.Lignes(bilan.autres.Remarques());
  if (bilan.lignesLaissees > 0)
    rapport.Ligne({kAttention, "lignes de la fin du tableau qui ne font pas un bloc entier et sont laissées :"_w,
                   NombreNu(bilan.lignesLaissees)});
}

void ImprimerReservesDeLInversion(Rapport& rapport, const ReservesDeLInversion& reserves) {
  rapport.Lignes(reserves.cellules);
  if (!reserves.nomsRepetes.empty())
    rapport.Ligne({kAttention, "lignes de même nom, que rien ne distinguera plus en colonnes : "_w,
                   Enumerer(reserves.nomsRepetes)});
  if (reserves.lignesLaissees > 0)
    rapport.Ligne({kAttention, "lignes du tableau au-delà de celles qui sont annoncées, laissées :"_w,
                   NombreNu(reserves.lignesLaissees)});
}

void ImprimerFinDeLInversion(Rapport& rapport, const Contexte& contexte, std::string_view nouveau) {
  ImprimerChangementDeGenerique(rapport, contexte, nouveau, true);
  rapport.Ligne();
  rapport.Ligne("Programme normalement terminé"_w);
}

}  // namespace quelvar::utilities
