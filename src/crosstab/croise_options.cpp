#include "crosstab/croise_options.h"

#include "core/options/sortie.h"
#include "crosstab/croise.h"

namespace quelvar::crosstab {

namespace {

using O = OptionsCroise;

// A member of the launch that the options are for.
template <typename T>
auto Du(T RequeteCroise::*membre) {
  return [membre](auto& options) -> auto& { return options.lancements.back().*membre; };
}

void DecrireQuestions(Description<O>& description) {
  description.Noms("lignes", Du(&RequeteCroise::lignes), "questions en ligne ; * pour toutes")
      .Valeurs("SEX,AGE,...|*")
      .Montre("ListVar2")
      .Noms("colonnes", Du(&RequeteCroise::colonnes), "questions en colonne ; * pour toutes")
      .Valeurs("SEX,AGE,...|*")
      .Montre("ListVar3")
      .Noms("filtres", Du(&RequeteCroise::filtres),
            "questions filtre d'un tri à trois dimensions ; vide : deux dimensions"_w)
      .Valeurs("SEX,AGE,...|*")
      .Montre("ListVar0");
}

void DecrireEdition(Description<O>& description) {
  description
      .Choix("nonreponses", Du(&RequeteCroise::nonReponses),
             {{"prises", true}, {"exclues", false}, {"oui", true}, {"non", false}},
             "les non-réponses (code zéro) font une ligne et une colonne"_w)
      .Bouton("BoutNROui", "prises")
      .Bouton("BoutNRNon", "exclues")
      .Choix("edition", Du(&RequeteCroise::edition),
             {{"etendue", ChoixEdition::Etendue},
              {"compacte", ChoixEdition::Compacte},
              {"triangulaire", ChoixEdition::Triangulaire},
              {"compactee", ChoixEdition::Compacte},
              {"large", ChoixEdition::Etendue},
              {"trg", ChoixEdition::Triangulaire}},
             "édition étendue avec modalités, compactée, ou pour le graphique triangulaire (ajoute au .TRG)"_w)
      .Bouton("EditLarge", "etendue")
      .Bouton("EditCompact", "compacte")
      .Bouton("OptTRG", "triangulaire")
      .Choix("caracteres", Du(&RequeteCroise::points), {{"10", kCaractereUsuel}, {"8", kPetitCaractere}},
             "taille des caractères de l'édition étendue : pages de 5 x 18 ou 6 x 24 cases"_w)
      .Bouton("Option1", "10")
      .Bouton("Option2", "8");
}

void DecrireTableaux(Description<O>& description) {
  description
      .Choix("ordre", Du(&RequeteCroise::ordrePem), {{"origine", false}, {"pem", true}, {"afc", true}},
             "ordre des lignes et colonnes : d'origine, ou en vue du PEM")
      .Bouton("BoutOrdreOri", "origine")
      .Bouton("BoutOrdreAFC", "pem")
      .OuiNon("invlign", Du(&RequeteCroise::inverserLignes), "inverse l'ordre des lignes en vue du PEM")
      .Montre("INVC")
      .OuiNon("invcol", Du(&RequeteCroise::inverserColonnes), "inverse l'ordre des colonnes en vue du PEM")
      .Montre("INVL")
      .OuiNon("detailkhi2", Du(&RequeteCroise::detailKhi2), "détail des cases d'effectif théorique inférieur à 1"_w)
      .Montre("CaseDetKhi2")
      .OuiNon("tableauisole", Du(&RequeteCroise::tableauIsole), "sauvegarde le premier tableau en .MOD et .BRT")
      .Montre("CaseBRT");
}

void PoserGraphique(O& options, const std::string& valeur) {
  if (!valeur.empty()) ExigerSvg("graphique", valeur);  // a later launch may want none
  options.lancements.back().graphique = valeur;
}

std::vector<std::string> EcrireGraphique(const O& options) { return {options.lancements.back().graphique}; }

// A launch unticks the isolated table.
void Avancer(O& options) {
  options.lancements.push_back(options.lancements.back());
  options.lancements.back().tableauIsole = false;
}

std::vector<O> Lancements(const O& options) {
  std::vector<O> lancements;
  for (std::size_t i = 0; i < options.lancements.size(); ++i) {
    lancements.push_back(options);
    lancements.back().lancements.resize(i + 1);
  }
  return lancements;
}

Description<O> Decrire() {
  Description<O> description(
      "croise", "Tris croisés à deux et trois dimensions (.TCR) ; lancer=oui sépare plusieurs lancements"_w,
      ExecuterCroise);
  DecrireQuestions(description);
  DecrireEdition(description);
  DecrireTableaux(description);
  description
      .Libre("graphique", "FICHIER.svg", "tri individuel : le graphique du tableau dans ce fichier"_w, PoserGraphique,
             EcrireGraphique)
      .NommeUnFichier()
      .Alias({"boutunseul"})
      .Fichier("donnees", &O::fichierDonnees, "FICHIER", "autre fichier de données que le .DAT du générique"_w)
      .Choix("sortie", &O::sortie, MotsDesSorties(), kAideSortie)
      .Etape("lancer", "lance les tris demandés jusqu'ici ; ce qui suit prépare le lancement suivant"_w, Avancer,
             Lancements)
      .Alias({"boutlancertri"});
  return description;
}

std::vector<std::string> NomsDuRole(const EtatChoixVar& etat, const EnqueteCroisee& enquete, RoleQuestion role) {
  std::vector<std::string> noms;
  for (const std::size_t question : QuestionsDuRole(etat, role))
    noms.emplace_back(Rogner(enquete.questions[question].nom));
  return noms;
}

}  // namespace

RequeteCroise RequeteDeLEtat(const EtatChoixVar& etat, const EnqueteCroisee& enquete, std::string_view graphique) {
  RequeteCroise requete;
  requete.lignes = NomsDuRole(etat, enquete, RoleQuestion::Ligne);
  requete.colonnes = NomsDuRole(etat, enquete, RoleQuestion::Colonne);
  if (etat.troisDimensions) requete.filtres = NomsDuRole(etat, enquete, RoleQuestion::Filtre);
  requete.nonReponses = etat.nonReponses;
  requete.edition = etat.edition;
  requete.points = etat.lignesParPage == kPageEnPetit.lignes ? kPetitCaractere : kCaractereUsuel;
  requete.ordrePem = etat.ordrePem && !etat.troisDimensions;
  requete.inverserLignes = etat.inverserLignes;
  requete.inverserColonnes = etat.inverserColonnes;
  requete.detailKhi2 = etat.detailKhi2;
  requete.tableauIsole = etat.tableauIsole;
  if (etat.unSeul) requete.graphique = graphique;
  return requete;
}

const Description<OptionsCroise>& DescriptionCroise() {
  static const Description<OptionsCroise> description = Decrire();
  return description;
}

}  // namespace quelvar::crosstab
