// The programs of the form Utilitaires, and the export for a spreadsheet.
#include "batch/programmes.h"
#include "utilities/caracteres.h"
#include "utilities/exportation.h"
#include "utilities/exportcsv.h"
#include "utilities/fusion.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"

namespace quelvar::batch {

namespace {

using namespace utilities;

// What the form would ask for before it starts the program.
template <typename Options, std::string (*Manque)(const Contexte&, const Options&),
          Fin (*Entree)(const Contexte&, const Options&)>
Fin Verifier(const Contexte& contexte, const Options& options) {
  if (const std::string manque = Manque(contexte, options); !manque.empty()) throw UsageIncorrect(manque);
  return Entree(contexte, options);
}

// A program on the files of the current generic.
template <typename Options, Fin (*Entree)(const Contexte&, const Options&)>
Fin AvecGenerique(const Contexte& contexte, const Options& options) {
  if (contexte.generique.empty())
    throw UsageIncorrect(std::string("Cet utilitaire, à la différence des autres, requiert un nom générique"_w));
  return Entree(contexte, options);
}

}  // namespace

Programme ProgrammeExporter() {
  using O = OptionsExportation;
  return Description<O>("exporter", "Exportation d'une zone d'un fichier de colonnes fixes, ou de son complémentaire"_w,
                        Verifier<O, ManqueExportation, Exporter>)
      .Texte("a", &O::a, "FICHIER", "fichier d'origine")
      .Texte("c", &O::c, "FICHIER", "fichier résultant"_w)
      .Texte("debut", &O::debut, "N", "position initiale de la zone")
      .Texte("fin", &O::fin, "N", "position finale de la zone")
      .Choix<bool>("mode", &O::complementaire, {{"zone", false}, {"complementaire", true}},
                   "exporte la zone, ou tout le reste");
}

Programme ProgrammeCaracteres() {
  using O = OptionsCaracteres;
  return Description<O>("caracteres", "Affichage d'un fichier caractère par caractère, avec les codes décimaux"_w,
                        Verifier<O, ManqueCaracteres, ListerCaracteres>)
      .Texte("a", &O::a, "FICHIER", "fichier à regarder"_w);
}

Programme ProgrammeFusionner() {
  using O = OptionsFusion;
  return Description<O>("fusionner", "Fusion de deux fichiers de colonnes fixes"_w,
                        Verifier<O, ManqueFusion, Fusionner>)
      .Texte("a", &O::a, "FICHIER", "premier fichier")
      .Texte("b", &O::b, "FICHIER", "deuxième fichier"_w)
      .Texte("c", &O::c, "FICHIER", "fichier résultant"_w)
      .Choix<TypeFusion>("type", &O::type,
                         {{"merge", TypeFusion::CoteACote},
                          {"append", TypeFusion::ALaSuite},
                          {"choixind", TypeFusion::Appareillement}},
                         "côte à côte, à la suite, ou appareillement par numéro individuel"_w)
      .OuiNon("verification", &O::verifier, "côte à côte : compare les numéros des individus"_w)
      .Alias({"optverify"})
      .Texte("positiona", &O::positionA, "N", "position du numéro dans le fichier A"_w)
      .Texte("positionb", &O::positionB, "N", "position du numéro dans le fichier B"_w)
      .Texte("largeur", &O::largeur, "N", "largeur commune des numéros"_w)
      .OuiNon("pos", &O::pos, "les *.POS existent : le résultat en a un"_w)
      .Alias({"checkpos"});
}

Programme ProgrammeGendat() {
  using O = OptionsGendat;
  return Description<O>("gendat", "Création d'un fichier de données (.DAT, .POS) à partir d'un tableau"_w,
                        AvecGenerique<O, Gendat>);
}

Programme ProgrammeInversion() {
  using O = OptionsInversion;
  return Description<O>("inversion", "Inversion des lignes et des colonnes d'un tableau, sous un nouveau générique"_w,
                        AvecGenerique<O, Inverser>)
      .OuiNon("trg", &O::trg, "le tableau va dans un fichier .TRG pour le graphique triangulaire"_w)
      .Alias({"checktrg"});
}

Programme ProgrammeExportCsv() {
  using O = OptionsExportCsv;
  return Description<O>("export-csv", "Données et intitulés pour un tableur (.csv)"_w, AvecGenerique<O, ExporterCsv>)
      .Choix<bool>("separateur", &O::tabulation, {{"pointvirgule", false}, {";", false}, {"tabulation", true}},
                   "sépare les cellules"_w)
      .Choix<bool>("codage", &O::utf8, {{"windows-1252", false}, {"utf-8", true}}, "codage des caractères"_w)
      .Choix<bool>("contenu", &O::codes, {{"intitules", false}, {"codes", true}},
                   "intitulés des modalités, ou codes sous des titres qui commencent par le nom de la question"_w);
}

}  // namespace quelvar::batch
