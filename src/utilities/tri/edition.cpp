#include "utilities/tri/edition.h"

#include "core/chiffres/nombres.h"

namespace quelvar::utilities {

void ImprimerTeteDuTri(Rapport& rapport, std::string_view source, std::string_view resultat) {
  ImprimerBandeau(rapport, "Tri de fichiers");
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, source});
  rapport.Ligne({"Le nom du fichier trié est "_w, resultat});
}

void ImprimerCompteDuTri(Rapport& rapport, const CompteDeTri& compte) {
  if (compte.trie) {
    rapport.Ligne({"Début du champ de tri en position "_w, compte.position});
    rapport.Ligne({"Largeur du champ de tri : ", compte.largeur});
    rapport.Ligne(compte.sens == SensDeTri::Croissant ? "Le tri se fait en ordre croissant"_w
                                                      : "Le tri se fait en ordre décroissant"_w);
  } else {
    rapport.Ligne("Aucun tri n'est fait");
  }
  if (compte.rogne) rapport.Ligne("Les blancs à droite sont éliminés"_w);
  const LongueursDeLignes& longueurs = compte.longueurs;
  constexpr int kEntiersDUneMesure = 5;
  const auto mesure = [](double longueur) { return NombreFixe(longueur, kEntiersDUneMesure, 1); };
  rapport.Ligne({"Nombre d'enregistrement dans le fichier résultant :"_w, NombreNu(longueurs.lignes)});
  if (longueurs.minimum == longueurs.maximum) {
    rapport.Ligne({"Tous les enregistrements ont", NombreNu(longueurs.maximum), " caractères"_w});
  } else {
    rapport.Ligne({"Les enregistrements ont en moyenne ", mesure(longueurs.Moyenne()), " caractères"_w});
    rapport.Ligne({"Longueur min = ", NombreNu(longueurs.minimum)});
    rapport.Ligne({"Longueur max = ", NombreNu(longueurs.maximum)});
    rapport.Ligne({"Ecart-type   = ", mesure(longueurs.EcartType())});
  }
  rapport.Ligne("Programme normalement terminé"_w);
}

}  // namespace quelvar::utilities
