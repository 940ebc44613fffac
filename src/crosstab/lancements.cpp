// The run of the crosstabs without their form: each request is done on the state of the form as a user would.
#include <optional>
#include <utility>

#include "core/dessin/svg.h"
#include "core/enquete/noms.h"
#include "core/programme/ancienrapport.h"
#include "core/programme/refus.h"
#include "core/resultats/fichiers.h"
#include "crosstab/croise.h"
#include "crosstab/croise_options.h"
#include "crosstab/graphe/graphe2.h"

namespace quelvar::crosstab {

namespace {

struct FormeCroise {
  const Contexte& contexte;
  const EnqueteCroisee& enquete;
  EtatChoixVar etat;
  bool garderTableaux = false;
  std::vector<TableauEdite> tableaux = {};
  bool lance = false;

  const Dialogue& Ecran() const { return contexte.Ecran(); }
};

// A request that cannot be launched: the box that ends the run has these words, and the place of the fault if it is in
// a file.
Erreur Refuser(std::string phrase) { return {kArgumentIncorrect, std::move(phrase)}; }

// The questions of those names, "*" for all. Raises a refusal for a name that no question of the survey has, or more
// than one.
std::vector<std::size_t> Trouver(const FormeCroise& forme, const std::vector<std::string>& noms) {
  const std::vector<QuestionCroisee>& questions = forme.enquete.questions;
  std::vector<std::size_t> trouvees;
  for (const std::string& nom : noms) {
    if (nom == "*") {
      for (std::size_t i = 0; i < questions.size(); ++i) trouvees.push_back(i);
      continue;
    }
    const std::vector<std::size_t> rangs = RangsDuNom(questions, nom);
    const std::string pos = forme.contexte.Nom(".POS");
    if (rangs.empty()) throw Refuser(Joindre({"La question ", nom, " n'existe pas dans ", pos}));
    if (rangs.size() > 1)
      throw Refuser(FauteHomonymes(nom, questions, rangs)).Situer({pos, LigneDansLaListe(rangs[1])});
    trouvees.push_back(rangs.front());
  }
  return trouvees;
}

// Puts these questions, and no others, into a role.
void Poser(FormeCroise& forme, RoleQuestion role, const std::vector<std::string>& noms) {
  const std::vector<std::size_t> questions = Trouver(forme, noms);
  EnleverDuRole(forme.etat, role, QuestionsDuRole(forme.etat, role), forme.Ecran());
  AjouterAuRole(forme.etat, role, questions, forme.Ecran());
}

void Preparer(FormeCroise& forme, const RequeteCroise& requete) {
  if (std::string refus = RefusDEcrire(forme.contexte, requete.graphique); !refus.empty())
    throw Refuser(std::move(refus));
  EtatChoixVar& etat = forme.etat;
  if (requete.filtres.empty()) ChoisirDeuxDimensions(etat, forme.Ecran());
  else ChoisirTroisDimensions(etat, forme.Ecran());
  Poser(forme, RoleQuestion::Filtre, requete.filtres);
  Poser(forme, RoleQuestion::Ligne, requete.lignes);
  Poser(forme, RoleQuestion::Colonne, requete.colonnes);
  ChoisirUnSeul(etat, !requete.graphique.empty(), forme.Ecran());
  ChoisirEdition(etat, requete.edition);
  ChoisirCaractere(etat, requete.points);
  etat.nonReponses = requete.nonReponses;
  etat.ordrePem = requete.ordrePem;
  etat.inverserLignes = requete.inverserLignes;
  etat.inverserColonnes = requete.inverserColonnes;
  etat.detailKhi2 = requete.detailKhi2;
  if (requete.tableauIsole) CocherTableauIsole(etat, true, forme.contexte);
}

void EcrireGraphique(const FormeCroise& forme, std::string_view nom, const TableauRetenu& tableau) {
  EcrireSvg(forme.contexte.repertoire, nom, DessinerGraphe2(NouveauGraphe2(PreparerGraphe2(tableau))));
}

void Lancer(FormeCroise& forme, const RequeteCroise& requete) {
  Preparer(forme, requete);
  std::optional<DemandeCroise> demande = PreparerLancement(forme.etat, forme.Ecran());
  if (!demande) throw Refuser(forme.etat.titre);
  demande->tableaux = forme.garderTableaux;
  forme.lance = true;
  std::optional<ResultatLancement> resultat = LancerCroise(forme.contexte, forme.enquete, *demande);
  if (!resultat) throw Erreur(kArretAnnonce);  // its report is shown, with the failure
  ApresLancement(forme.etat, *resultat);
  for (TableauEdite& tableau : resultat->tableaux) forme.tableaux.push_back(std::move(tableau));
  if (resultat->retenu) EcrireGraphique(forme, requete.graphique, *resultat->retenu);
}

}  // namespace

Fin ExecuterCroise(const Contexte& contexte, const OptionsCroise& options) {
  std::optional<Affichage> dernier;
  Dialogue ecran = contexte.Ecran();
  ecran.afficher = [&](const Affichage& affichage) { dernier = affichage; };
  Contexte muet = contexte;
  muet.dialogue = &ecran;
  Fin fin = Fin::Arret;
  const AncienRapport ancien(contexte, ".TCR");
  if (const std::optional<EnqueteCroisee> enquete = PreparerCroise(muet, options.fichierDonnees)) {
    FormeCroise forme{muet, *enquete, NouveauChoix(*enquete), options.sortie != SortieDeTableaux::Aucune};
    try {
      for (const RequeteCroise& requete : options.lancements) Lancer(forme, requete);
      EcrireTableaux(contexte, contexte.Nom(".TCR"), forme.tableaux, options.sortie);
      fin = Fin::Normale;
    } catch (const Erreur& erreur) {
      if (erreur.Numero() != kArretAnnonce) ecran.demander(TexteErreur(erreur), Boutons::Ok);
    }
    if (!forme.lance) {
      dernier = FinProgramme(muet, contexte.Nom(".TCR"), {});
      ancien.Remettre();
    }
  }
  if (dernier) contexte.Ecran().afficher(*dernier);
  else MontrerRapport(contexte, contexte.Nom(".TCR"));
  return fin;
}

}  // namespace quelvar::crosstab
