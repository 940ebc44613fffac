#include "utilities/lancement.h"
#include "utilities/options.h"

namespace quelvar::utilities {

const Description<OptionsExportation>& DescriptionExporter() {
  using O = OptionsExportation;
  static const Description<O> description =
      Description<O>("exporter", "Exportation d'une zone d'un fichier de colonnes fixes, ou de son complémentaire"_w,
                     Verifier<O, ManqueExportation, Exporter>)
          .Fichier("a", &O::a, "FICHIER", "fichier d'origine")
          .Fichier("c", &O::c, "FICHIER", "fichier résultant"_w)
          // Positions are texts: the report shows them as typed, and one that is no number is a 0, refused there.
          .Texte("debut", &O::debut, "N", "position initiale de la zone")
          .Montre("TextDebut")
          .Texte("fin", &O::fin, "N", "position finale de la zone")
          .Montre("TextFin")
          .Choix("mode", &O::complementaire, {{"zone", false}, {"complementaire", true}},
                 "exporte la zone, ou tout le reste")
          .Bouton("OptExport1", "zone")
          .Bouton("OptExport2", "complementaire");
  return description;
}

}  // namespace quelvar::utilities
