#include <algorithm>
#include <optional>

#include "batch/programmes.h"
#include "core/dessin/svg.h"
#include "core/enquete/noms.h"
#include "crosstab/choixvar.h"
#include "crosstab/croise.h"
#include "crosstab/graphe/graphe2.h"

namespace quelvar::batch {

namespace {

// The form and the survey that the options of the command line act on, one after the other.
struct FormeCroise {
  const Contexte& contexte;
  const crosstab::EnqueteCroisee& enquete;
  crosstab::EtatChoixVar etat;
  std::string graphique;  // file of the picture of a single table

  const Dialogue& Ecran() const { return contexte.Ecran(); }
};

struct LigneCroise {
  std::string donnees;
  std::vector<std::function<void(FormeCroise&)>> gestes;
  bool aLancer = true;  // something was asked behind the last launch
};

using Mots = std::vector<std::string>;

// Words that an option takes, each with its rank; the first ones are those of the help.
using Choix = std::vector<std::pair<std::string_view, std::size_t>>;

std::size_t RangDuMot(std::string_view option, const Choix& choix, std::string_view valeurs,
                      const std::string& valeur) {
  for (const auto& [mot, rang] : choix)
    if (mot == Minuscules(valeur)) return rang;
  throw UsageIncorrect(Joindre({"l'option ", option, " attend ", valeurs, " et non \"", valeur, "\""}));
}

// The questions of those names, "*" for all; a name that the survey has not stops the run.
std::vector<std::size_t> Trouver(FormeCroise& forme, const Mots& noms) {
  const std::vector<crosstab::QuestionCroisee>& questions = forme.enquete.questions;
  std::vector<std::size_t> trouvees;
  for (const std::string& nom : noms) {
    if (nom == "*") {
      for (std::size_t i = 0; i < questions.size(); ++i) trouvees.push_back(i);
      continue;
    }
    const std::vector<std::size_t> rangs = RangsDuNom(questions, nom);
    if (rangs.size() != 1) {
      forme.Ecran().demander(rangs.empty()
                                 ? Joindre({"La question ", nom, " n'existe pas dans ", forme.contexte.Nom(".POS")})
                                 : FauteHomonymes(nom, questions, rangs),
                             Boutons::Ok);
      throw Erreur(kArretAnnonce);
    }
    trouvees.push_back(rangs.front());
  }
  return trouvees;
}

// Puts these questions, and no others, into a role.
void Poser(FormeCroise& forme, crosstab::RoleQuestion role, const Mots& noms) {
  crosstab::EnleverDuRole(forme.etat, role, crosstab::QuestionsDuRole(forme.etat, role), forme.Ecran());
  if (role == crosstab::RoleQuestion::Filtre && noms.empty())
    crosstab::ChoisirDeuxDimensions(forme.etat, forme.Ecran());
  else if (role == crosstab::RoleQuestion::Filtre) crosstab::ChoisirTroisDimensions(forme.etat, forme.Ecran());
  crosstab::AjouterAuRole(forme.etat, role, Trouver(forme, noms), forme.Ecran());
}

void Lancer(FormeCroise& forme) {
  const std::optional<crosstab::DemandeCroise> demande = crosstab::PreparerLancement(forme.etat, forme.Ecran());
  if (!demande) {
    forme.Ecran().demander(forme.etat.titre, Boutons::Ok);
    throw Erreur(kArretAnnonce);
  }
  const std::optional<crosstab::ResultatLancement> resultat =
      crosstab::LancerCroise(forme.contexte, forme.enquete, *demande);
  if (!resultat) throw Erreur(kArretAnnonce);
  crosstab::ApresLancement(forme.etat, *resultat);
  if (!resultat->retenu) return;
  Remplacement fichier(forme.contexte.repertoire, forme.graphique);
  fichier.Fichier().Ecrire(
      TexteSvg(crosstab::DessinerGraphe2(crosstab::NouveauGraphe2(crosstab::PreparerGraphe2(*resultat->retenu)))));
  fichier.Valider();
}

// The report is shown once, when the last launch is over.
Fin Executer(const Contexte& contexte, const LigneCroise& ligne) {
  std::optional<Affichage> dernier;
  Dialogue ecran = contexte.Ecran();
  ecran.afficher = [&](const Affichage& affichage) { dernier = affichage; };
  Contexte muet = contexte;
  muet.dialogue = &ecran;
  Fin fin = Fin::Arret;
  if (const std::optional<crosstab::EnqueteCroisee> enquete = crosstab::PreparerCroise(muet, ligne.donnees)) {
    try {
      FormeCroise forme{muet, *enquete, crosstab::NouveauChoix(*enquete), {}};
      for (const auto& geste : ligne.gestes) geste(forme);
      if (ligne.aLancer) Lancer(forme);
      fin = Fin::Normale;
    } catch (const Erreur& erreur) {
      if (erreur.Numero() != kArretAnnonce) ecran.demander(TexteErreur(erreur), Boutons::Ok);
    }
  }
  if (dernier) contexte.Ecran().afficher(*dernier);
  else MontrerRapport(contexte, contexte.Nom(".TCR"));
  return fin;
}

void Ajouter(LigneCroise& ligne, std::function<void(FormeCroise&)> geste) {
  ligne.gestes.push_back(std::move(geste));
  ligne.aLancer = true;
}

// An option that sets a role of the request.
auto Role(crosstab::RoleQuestion role) {
  return [role](LigneCroise& ligne, const std::string& valeur) {
    Ajouter(ligne, [role, noms = NomsSepares(valeur)](FormeCroise& forme) { Poser(forme, role, noms); });
  };
}

using Geste = std::function<void(FormeCroise&, std::size_t)>;

// The options of the program, each a gesture on the form.
class OptionsDeLaForme {
 public:
  OptionsDeLaForme()
      : description_("croise", "Tris croisés à deux et trois dimensions (.TCR) ; les options agissent dans l'ordre"_w,
                     Executer) {}

  OptionsDeLaForme& Questions(std::string nom, std::string controle, crosstab::RoleQuestion role,
                              std::string_view aide) {
    description_.Libre(std::move(nom), "SEX,AGE,...|*", "", aide, Role(role)).Alias({std::move(controle)});
    return *this;
  }

  // One of a few words; the gesture receives the rank of the one typed.
  OptionsDeLaForme& Parmi(std::string_view nom, std::string_view valeurs, std::string_view defaut, const Choix& choix,
                          std::string_view aide, const Geste& geste) {
    description_.Libre(std::string(nom), valeurs, defaut, aide, [=](LigneCroise& ligne, const std::string& valeur) {
      const std::size_t rang = RangDuMot(nom, choix, valeurs, valeur);
      Ajouter(ligne, [geste, rang](FormeCroise& forme) { geste(forme, rang); });
    });
    return *this;
  }

  // A box of the form.
  OptionsDeLaForme& Case(std::string_view nom, std::string controle, std::string_view aide, const Geste& geste) {
    Parmi(nom, "oui|non", "non", {{"non", 0}, {"oui", 1}}, aide, geste);
    description_.Alias({std::move(controle)});
    return *this;
  }
  OptionsDeLaForme& Case(std::string_view nom, std::string controle, std::string_view aide,
                         bool crosstab::EtatChoixVar::*membre) {
    return Case(nom, std::move(controle), aide,
                [membre](FormeCroise& forme, std::size_t rang) { forme.etat.*membre = rang == 1; });
  }

  Programme Achever() {
    description_
        .Libre(
            "graphique", "FICHIER.svg", "", "tri individuel : le graphique du tableau dans ce fichier"_w,
            [](LigneCroise& ligne, const std::string& valeur) {
              if (!valeur.empty() &&
                  !EgalSansCasse(Milieu(valeur, valeur.size() - std::min<std::size_t>(valeur.size(), 4) + 1), ".svg"))
                throw UsageIncorrect(Joindre({"l'option graphique attend un fichier .svg et non \"", valeur, "\""}));
              Ajouter(ligne, [valeur](FormeCroise& forme) {
                forme.graphique = valeur;
                crosstab::ChoisirUnSeul(forme.etat, !valeur.empty(), forme.Ecran());
              });
            })
        .Alias({"boutunseul"})
        .Texte("donnees", &LigneCroise::donnees, "FICHIER", "autre fichier de données que le .DAT du générique"_w)
        .Libre("lancer", "oui", "", "lance les tris demandés jusqu'ici ; ce qui suit prépare le lancement suivant"_w,
               [](LigneCroise& ligne, const std::string& valeur) {
                 RangDuMot("lancer", {{"oui", 1}}, "oui", valeur);
                 ligne.gestes.emplace_back(Lancer);
                 ligne.aLancer = false;
               })
        .Alias({"boutlancertri"});
    return description_;
  }

 private:
  Description<LigneCroise> description_;
};

}  // namespace

Programme ProgrammeCroise() {
  OptionsDeLaForme options;
  options.Questions("lignes", "listvar2", crosstab::RoleQuestion::Ligne, "questions en ligne ; * pour toutes")
      .Questions("colonnes", "listvar3", crosstab::RoleQuestion::Colonne, "questions en colonne ; * pour toutes")
      .Questions("filtres", "listvar0", crosstab::RoleQuestion::Filtre,
                 "questions filtre d'un tri à trois dimensions ; vide : deux dimensions"_w)
      .Parmi("nonreponses", "prises|exclues", "prises", {{"prises", 1}, {"exclues", 0}, {"oui", 1}, {"non", 0}},
             "les non-réponses (code zéro) font une ligne et une colonne"_w,
             [](FormeCroise& forme, std::size_t rang) { forme.etat.nonReponses = rang == 1; })
      .Parmi("edition", "etendue|compacte|triangulaire", "etendue",
             {{"compacte", 0}, {"etendue", 1}, {"triangulaire", 2}, {"compactee", 0}, {"large", 1}, {"trg", 2}},
             "édition étendue avec modalités, compactée, ou pour le graphique triangulaire (ajoute au .TRG)"_w,
             [](FormeCroise& forme, std::size_t rang) {
               crosstab::ChoisirEdition(forme.etat, static_cast<crosstab::ChoixEdition>(rang));
             })
      .Parmi(
          "caracteres", "10|8", "10", {{"10", 10}, {"8", 8}},
          "taille des caractères de l'édition étendue : pages de 5 x 18 ou 6 x 24 cases"_w,
          [](FormeCroise& forme, std::size_t rang) { crosstab::ChoisirCaractere(forme.etat, static_cast<int>(rang)); })
      .Parmi("ordre", "origine|pem", "origine", {{"origine", 0}, {"pem", 1}, {"afc", 1}},
             "ordre des lignes et colonnes : d'origine, ou en vue du PEM",
             [](FormeCroise& forme, std::size_t rang) { forme.etat.ordrePem = rang == 1; })
      .Case("invlign", "invc", "inverse l'ordre des lignes en vue du PEM", &crosstab::EtatChoixVar::inverserLignes)
      .Case("invcol", "invl", "inverse l'ordre des colonnes en vue du PEM", &crosstab::EtatChoixVar::inverserColonnes)
      .Case("detailkhi2", "casedetkhi2", "détail des cases d'effectif théorique inférieur à 1"_w,
            &crosstab::EtatChoixVar::detailKhi2)
      .Case("tableauisole", "casebrt", "sauvegarde le premier tableau en .MOD et .BRT",
            [](FormeCroise& forme, std::size_t rang) {
              crosstab::CocherTableauIsole(forme.etat, rang == 1, forme.contexte);
            });
  return options.Achever();
}

}  // namespace quelvar::batch
