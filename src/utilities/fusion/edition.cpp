#include "utilities/fusion/edition.h"

#include "core/chiffres/nombres.h"

namespace quelvar::utilities {

void ImprimerTeteDeFusion(Rapport& rapport, const EntreeChoisie& a, const EntreeChoisie& b, std::string_view resultat) {
  ImprimerBandeau(rapport, "Fusion de fichiers");
  rapport.Ligne({"Le nom du fichier d'entrée A est "_w, a.nom});
  rapport.Ligne({"Le nom du fichier d'entrée B est "_w, b.nom});
  rapport.Ligne({"Le nom du fichier des données jointes est "_w, resultat});
}

void ImprimerEffectif(Rapport& rapport, const FichierMesure& mesure) {
  constexpr int kEntiersDesIndividus = 6;
  rapport.Ligne({" Le nombre d'individus du fichier ", mesure.entree.nom, " est de ",
                 NombreFixe(static_cast<double>(mesure.lignes), kEntiersDesIndividus, 0)});
}

void ImprimerEffectifsInegaux(const TravailDeFusion& travail) {
  travail.rapport.Ligne("*** Erreur : les deux fichiers n'ont pas le même nombre d'individus"_w);
  ImprimerEffectif(travail.rapport, travail.a);
  ImprimerEffectif(travail.rapport, travail.b);
}

void ImprimerDifference(Rapport& rapport, std::int64_t individu, std::string_view a, std::string_view b) {
  rapport.Ligne(
      {"*** Identité différente à l'individu numéro "_w, NombreNu(individu), " Ident A= ", a, " Ident B= ", b});
}

void ImprimerAppareillement(Rapport& rapport, const BilanAppareillement& bilan) {
  if (bilan.resteDeA || bilan.resteDeB) {
    rapport.Ligne(bilan.resteDeA ? "*** Le Fichier B est terminé avant le fichier A"_w
                                 : "*** ERREUR Fichier B non terminé"_w);
    return;
  }
  rapport.Ligne({"Nombre d'enregistrement résultant :"_w, NombreNu(bilan.lignes)});
  rapport.Ligne({"Nombre d'enregistrement B incomplets :", NombreNu(bilan.incomplets)});
}

}  // namespace quelvar::utilities
