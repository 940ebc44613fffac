#include "batch/programmes.h"
#include "utilities/trifichier.h"
#include "utilities/utilitaires.h"

namespace quelvar::batch {

namespace {

// What the form checks before it starts the sort.
Fin LancerTri(const Contexte& contexte, const utilities::OptionsTriFichier& options) {
  if (const std::string_view refus = utilities::RefusDeTrier(options); !refus.empty())
    throw UsageIncorrect(std::string(refus));
  return utilities::TriFichier(contexte, options);
}

// The same with the question of the form.
Fin LancerTriDuFormulaire(const Contexte& contexte, const utilities::OptionsTriFichier& options) {
  if (utilities::MemeFichier(contexte, options.fichierA, options.fichierC) &&
      contexte.Ecran().demander(utilities::kTriSurPlace, Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  return LancerTri(contexte, options);
}

Programme Decrire(std::string nom, std::string_view resume, Description<utilities::OptionsTriFichier>::Entree entree) {
  using O = utilities::OptionsTriFichier;
  using utilities::SensDeTri;
  return Description<O>(std::move(nom), resume, entree)
      .Texte("a", &O::fichierA, "FICHIER", "fichier à trier"_w)
      .Alias({"fichiera", "entree"})
      .Texte("c", &O::fichierC, "FICHIER", "fichier résultant ; ce peut être le même"_w)
      .Alias({"fichierc", "sortie"})
      .Texte("position", &O::position, "0..", "première colonne du champ ; 0 : pas de tri"_w)
      .Texte("largeur", &O::largeur, "1..10", "largeur du champ")
      .Choix<SensDeTri>("ordre", &O::sens,
                        {{"croissant", SensDeTri::Croissant}, {"decroissant", SensDeTri::Decroissant}}, "ordre du tri")
      .Libre("croissant", "oui|non", "oui", "la case du formulaire : ordre croissant",
             [](O& options, const std::string& valeur) {
               options.sens = LireOuiNon("croissant", valeur) ? SensDeTri::Croissant : SensDeTri::Decroissant;
             })
      .Libre("decroissant", "oui|non", "non", "la case du formulaire : ordre décroissant"_w,
             [](O& options, const std::string& valeur) {
               options.sens = LireOuiNon("decroissant", valeur) ? SensDeTri::Decroissant : SensDeTri::Croissant;
             })
      .OuiNon("rogner", &O::rogner, "supprime les blancs à droite"_w)
      .Alias({"checktrim"});
}

}  // namespace

Programme ProgrammeTriFichier() {
  return Decrire("trifichier", "Tri des lignes d'un fichier sur un champ (.prt)", LancerTri);
}

Programme ProgrammeTri() {
  return Decrire("tri", "Le même tri, qui demande avant de remplacer le fichier d'origine"_w, LancerTriDuFormulaire);
}

}  // namespace quelvar::batch
