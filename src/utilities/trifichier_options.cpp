#include "utilities/entrees/fichiers.h"
#include "utilities/options.h"

namespace quelvar::utilities {

namespace {

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
      .Fichier("a", &O::fichierA, "FICHIER", "fichier à trier"_w)
      .Alias({"fichiera", "entree"})
      .Fichier("c", &O::fichierC, "FICHIER", "fichier résultant ; ce peut être le même"_w)
      .Alias({"fichierc", "sortie"})
      // Texts: the report shows both as typed, and what is no number counts as 0.
      .Texte("position", &O::position, "0..", "première colonne du champ ; 0 : pas de tri"_w)
      .Montre("TextPosTri")
      .Texte("largeur", &O::largeur, "COLONNES",
             "largeur du champ, dont 20 colonnes comptent ; 10 au plus au formulaire")
      .Montre("TextLargTri")
      .Choix("ordre", &O::sens, {{"croissant", SensDeTri::Croissant}, {"decroissant", SensDeTri::Decroissant}},
             "ordre du tri")
      .Bouton("Croissant", "croissant")
      .Bouton("Decroissant", "decroissant")
      .Alias("croissant", {{"oui", "croissant"}, {"non", "decroissant"}})
      .Alias("decroissant", {{"oui", "decroissant"}, {"non", "croissant"}})
      .OuiNon("rogner", &O::rogner, "supprime les blancs à droite"_w)
      .Montre("CheckTrim");
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

}  // namespace quelvar::utilities
