#include "utilities/options.h"

#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

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

// What the form checks before it starts the sort.
template <Fin (*Trier)(const Contexte&, const OptionsTriFichier&)>
Fin LancerTri(const Contexte& contexte, const OptionsTriFichier& options) {
  if (const std::string_view refus = RefusDeTrier(options); !refus.empty()) throw UsageIncorrect(std::string(refus));
  return Trier(contexte, options);
}

// The same with the question of the form.
Fin LancerTriDuFormulaire(const Contexte& contexte, const OptionsTriFichier& options) {
  if (const std::string_view refus = RefusDuFormulaire(options); !refus.empty())
    throw UsageIncorrect(std::string(refus));
  if (MemeFichier(contexte, options.fichierA, options.fichierC) &&
      contexte.Ecran().demander(kTriSurPlace, Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  return LancerTri<TriDesUtilitaires>(contexte, options);
}

Description<OptionsTriFichier> DecrireTri(std::string nom, std::string_view resume,
                                          Description<OptionsTriFichier>::Entree entree) {
  using O = OptionsTriFichier;
  return Description<O>(std::move(nom), resume, std::move(entree))
      .Texte("a", &O::fichierA, "FICHIER", "fichier à trier"_w)
      .Alias({"fichiera", "entree"})
      .Texte("c", &O::fichierC, "FICHIER", "fichier résultant ; ce peut être le même"_w)
      .Alias({"fichierc", "sortie"})
      .Texte("position", &O::position, "0..", "première colonne du champ ; 0 : pas de tri"_w)
      .Texte("largeur", &O::largeur, "1..20", "largeur du champ ; 10 au plus au formulaire")
      .Choix("ordre", &O::sens, {{"croissant", SensDeTri::Croissant}, {"decroissant", SensDeTri::Decroissant}},
             "ordre du tri")
      .Alias("croissant", {{"oui", "croissant"}, {"non", "decroissant"}})
      .Alias("decroissant", {{"oui", "decroissant"}, {"non", "croissant"}})
      .OuiNon("rogner", &O::rogner, "supprime les blancs à droite"_w)
      .Alias({"checktrim"});
}

}  // namespace

const Description<OptionsTriFichier>& DescriptionTriFichier() {
  static const Description<OptionsTriFichier> description =
      DecrireTri("trifichier", "Tri des lignes d'un fichier sur un champ (.prt)", LancerTri<TriFichier>);
  return description;
}

const Description<OptionsTriFichier>& DescriptionTri() {
  static const Description<OptionsTriFichier> description =
      DecrireTri("tri", "Le même tri, qui demande avant de remplacer le fichier d'origine"_w, LancerTriDuFormulaire);
  return description;
}

const Description<OptionsExportation>& DescriptionExporter() {
  using O = OptionsExportation;
  static const Description<O> description =
      Description<O>("exporter", "Exportation d'une zone d'un fichier de colonnes fixes, ou de son complémentaire"_w,
                     Verifier<O, ManqueExportation, Exporter>)
          .Texte("a", &O::a, "FICHIER", "fichier d'origine")
          .Texte("c", &O::c, "FICHIER", "fichier résultant"_w)
          .Texte("debut", &O::debut, "N", "position initiale de la zone")
          .Texte("fin", &O::fin, "N", "position finale de la zone")
          .Choix("mode", &O::complementaire, {{"zone", false}, {"complementaire", true}},
                 "exporte la zone, ou tout le reste");
  return description;
}

const Description<OptionsCaracteres>& DescriptionCaracteres() {
  using O = OptionsCaracteres;
  static const Description<O> description =
      Description<O>("caracteres", "Affichage d'un fichier caractère par caractère, avec les codes décimaux"_w,
                     Verifier<O, ManqueCaracteres, ListerCaracteres>)
          .Texte("a", &O::a, "FICHIER", "fichier à regarder"_w);
  return description;
}

const Description<OptionsFusion>& DescriptionFusionner() {
  using O = OptionsFusion;
  static const Description<O> description =
      Description<O>("fusionner", "Fusion de deux fichiers de colonnes fixes"_w, Verifier<O, ManqueFusion, Fusionner>)
          .Texte("a", &O::a, "FICHIER", "premier fichier")
          .Texte("b", &O::b, "FICHIER", "deuxième fichier"_w)
          .Texte("c", &O::c, "FICHIER", "fichier résultant"_w)
          .Choix("type", &O::type,
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
  return description;
}

const Description<OptionsGendat>& DescriptionGendat() {
  static const Description<OptionsGendat> description(
      "gendat", "Création d'un fichier de données (.DAT, .POS) à partir d'un tableau"_w,
      AvecGenerique<OptionsGendat, Gendat>);
  return description;
}

const Description<OptionsInversion>& DescriptionInversion() {
  using O = OptionsInversion;
  static const Description<O> description =
      Description<O>("inversion", "Inversion des lignes et des colonnes d'un tableau, sous un nouveau générique"_w,
                     AvecGenerique<O, Inverser>)
          .OuiNon("trg", &O::trg, "le tableau va dans un fichier .TRG pour le graphique triangulaire"_w)
          .Alias({"checktrg"})
          .OuiNon("remplacer", &O::remplacer,
                  "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
  return description;
}

const Description<OptionsExportCsv>& DescriptionExportCsv() {
  using O = OptionsExportCsv;
  static const Description<O> description =
      Description<O>("export-csv", "Données et intitulés pour un tableur (.csv)"_w, AvecGenerique<O, ExporterCsv>)
          .Choix("separateur", &O::tabulation, {{"pointvirgule", false}, {";", false}, {"tabulation", true}},
                 "sépare les cellules"_w)
          .Choix("codage", &O::utf8, {{"windows-1252", false}, {"utf-8", true}}, "codage des caractères"_w)
          .Choix("contenu", &O::codes, {{"intitules", false}, {"codes", true}},
                 "intitulés des modalités, ou codes sous des titres qui commencent par le nom de la question"_w)
          .OuiNon("choix", &O::choix, "écrit aussi le .IMC avec lequel une importation retrouve noms et codes"_w)
          .Montre("CheckChoix");
  return description;
}

}  // namespace quelvar::utilities
