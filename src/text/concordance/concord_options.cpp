#include "text/concordance/concord_options.h"

namespace quelvar::text {

const Description<OptionsConcordance>& DescriptionConcordance() {
  using O = OptionsConcordance;
  static const Description<O> description =
      Description<O>("concordance", "Concordance de mots du dernier découpage, le mot dans une colonne"_w, Concord)
          .Noms("mots", &O::mots, "mots cherchés, sur 10 caractères"_w)
          .Noms("lignes", &O::lignes, "lignes du tableau, les agrégées avec tous leurs mots"_w)
          .Choix("ordre", &O::ordre,
                 {{"fichier", OrdreDeConcordance::Fichier},
                  {"gauche", OrdreDeConcordance::Gauche},
                  {"droite", OrdreDeConcordance::Droite}},
                 "lignes dans l'ordre du fichier, du contexte gauche ou du contexte droit")
          .Bouton("OptFichier", "fichier")
          .Bouton("OptGauche", "gauche")
          .Bouton("OptDroite", "droite")
          .Fichier("sortie", &O::sortie, "FICHIER", "fichier où le texte est enregistré"_w)
          .OuiNon("remplacer", &O::remplacer, "remplace ce fichier s'il existe, sans le demander");
  return description;
}

}  // namespace quelvar::text
