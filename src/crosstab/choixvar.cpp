#include "crosstab/choixvar.h"

#include <utility>

#include "core/chiffres/nombres.h"

namespace quelvar::crosstab {

namespace {

std::vector<bool>& Drapeaux(EtatChoixVar& etat, RoleQuestion role) {
  return etat.drapeaux[static_cast<std::size_t>(role)];
}

void Marquer(EtatChoixVar& etat, RoleQuestion role, std::span<const std::size_t> questions, bool valeur,
             const Dialogue& dialogue) {
  for (const std::size_t question : questions) Drapeaux(etat, role).at(question) = valeur;
  Recompter(etat, dialogue);
}

double CompterTableaux(const EtatChoixVar& etat) {
  const double paires = static_cast<double>(QuestionsDuRole(etat, RoleQuestion::Ligne).size()) *
                        static_cast<double>(QuestionsDuRole(etat, RoleQuestion::Colonne).size());
  if (!etat.troisDimensions) return paires;
  double modalites = 0;
  for (const std::size_t question : QuestionsDuRole(etat, RoleQuestion::Filtre))
    modalites += etat.codesMax[question] + 1;
  return modalites * paires;
}

}  // namespace

EtatChoixVar NouveauChoix(const EnqueteCroisee& enquete) {
  EtatChoixVar etat;
  for (const QuestionCroisee& question : enquete.questions) etat.codesMax.push_back(question.codeMax);
  for (std::vector<bool>& drapeaux : etat.drapeaux) drapeaux.resize(etat.codesMax.size());
  Recompter(etat, Dialogue());
  return etat;
}

std::vector<std::size_t> QuestionsDuRole(const EtatChoixVar& etat, RoleQuestion role) {
  const std::vector<bool>& drapeaux = etat.drapeaux[static_cast<std::size_t>(role)];
  std::vector<std::size_t> questions;
  for (std::size_t i = 0; i < drapeaux.size(); ++i)
    if (drapeaux[i]) questions.push_back(i);
  return questions;
}

void Recompter(EtatChoixVar& etat, const Dialogue& dialogue) {
  etat.nombreTableaux = CompterTableaux(etat);
  etat.titre = Joindre({"Nombre de tableaux demandés : "_w, Nombre(etat.nombreTableaux)});
  etat.infobulle =
      etat.troisDimensions
          ? "Somme des codes max  (+1 pour la valeur zéro)  des filtres x nombre de lignes x nombre de colonnes"_w
          : "Nombre de lignes x nombre de colonnes";
  etat.isolePossible = etat.nombreTableaux == 1;
  etat.lancerPossible = etat.nombreTableaux > 0;
  if (etat.nombreTableaux == 0) {
    etat.titre = "Sélectionner une question"_w;
  } else if (etat.unSeul && etat.nombreTableaux > 1) {
    dialogue.biper();
    etat.titre = "Ne sélectionner qu'une ligne et une seule colonne"_w;
    etat.lancerPossible = false;
  }
}

void AjouterAuRole(EtatChoixVar& etat, RoleQuestion role, std::span<const std::size_t> questions,
                   const Dialogue& dialogue) {
  Marquer(etat, role, questions, true, dialogue);
}

void EnleverDuRole(EtatChoixVar& etat, RoleQuestion role, std::span<const std::size_t> questions,
                   const Dialogue& dialogue) {
  Marquer(etat, role, questions, false, dialogue);
}

void InverserLignesEtColonnes(EtatChoixVar& etat, const Dialogue& dialogue) {
  Drapeaux(etat, RoleQuestion::Ligne).swap(Drapeaux(etat, RoleQuestion::Colonne));
  Recompter(etat, dialogue);
}

void ToutEffacer(EtatChoixVar& etat, const Dialogue& dialogue) {
  for (std::vector<bool>& drapeaux : etat.drapeaux) drapeaux.assign(drapeaux.size(), false);
  Recompter(etat, dialogue);
}

void ChoisirDeuxDimensions(EtatChoixVar& etat, const Dialogue& dialogue) {
  etat.troisDimensions = false;
  etat.unSeul = false;
  Recompter(etat, dialogue);
}

void ChoisirTroisDimensions(EtatChoixVar& etat, const Dialogue& dialogue) {
  etat.troisDimensions = true;
  etat.unSeul = false;
  Recompter(etat, dialogue);
}

void ChoisirUnSeul(EtatChoixVar& etat, bool unSeul, const Dialogue& dialogue) {
  etat.unSeul = unSeul;
  Recompter(etat, dialogue);
}

void ChoisirEdition(EtatChoixVar& etat, ChoixEdition edition) {
  etat.edition = edition;
  if (edition == ChoixEdition::Compacte) etat.tailleVisible = false;
  else if (edition == ChoixEdition::Etendue) etat.tailleVisible = true;
}

void ChoisirCaractere(EtatChoixVar& etat, int points) {
  etat.colonnesParPage = points == kPetitCaractere ? kPageEnPetit.colonnes : kPageUsuelle.colonnes;
  etat.lignesParPage = points == kPetitCaractere ? kPageEnPetit.lignes : kPageUsuelle.lignes;
}

void CocherTableauIsole(EtatChoixVar& etat, bool coche, const Contexte& contexte) {
  etat.tableauIsole = coche;
  if (!coche) return;
  const bool existe = contexte.Chercher(".MOD").has_value() || contexte.Chercher(".BRT").has_value();
  if (existe && contexte.Ecran().demander("Attention : le nouveau fichier va effacer des fichiers existants (*.MOD "
                                          "*.BRT) : acceptez-vous cette éventualité ?"_w,
                                          Boutons::NonOui) != Reponse::Oui) {
    etat.tableauIsole = false;
    etat.isolePossible = false;
    contexte.Ecran().demander("Le tableau isolé ne sera pas sauvegardé"_w, Boutons::Ok);
  }
}

bool FiltreVisible(const EtatChoixVar& etat, int niveau) { return niveau >= kNiveauAvance && etat.troisDimensions; }

bool OrdreVisible(const EtatChoixVar& etat, int niveau) { return niveau >= kNiveauAvance && !etat.troisDimensions; }

std::string_view TexteLancer(const EtatChoixVar& etat) {
  return std::string_view(etat.unSeul ? "Lancer le tri" : "Lancer les tris");
}

std::optional<DemandeCroise> PreparerLancement(EtatChoixVar& etat, const Dialogue& dialogue) {
  Recompter(etat, dialogue);
  if (etat.nombreTableaux == 0) {
    dialogue.biper();
    return std::nullopt;
  }
  if (!etat.lancerPossible) return std::nullopt;
  if (etat.troisDimensions) etat.ordrePem = false;
  DemandeCroise demande;
  demande.troisDimensions = etat.troisDimensions;
  demande.filtres = QuestionsDuRole(etat, RoleQuestion::Filtre);
  demande.lignes = QuestionsDuRole(etat, RoleQuestion::Ligne);
  demande.colonnes = QuestionsDuRole(etat, RoleQuestion::Colonne);
  demande.ordre = {etat.ordrePem, etat.inverserLignes, etat.inverserColonnes};
  demande.nonReponses = etat.nonReponses;
  demande.edition.choix = etat.edition;
  demande.edition.detailKhi2 = etat.detailKhi2;
  demande.edition.colonnesParPage = etat.colonnesParPage;
  demande.edition.lignesParPage = etat.lignesParPage;
  demande.tableauIsole = etat.tableauIsole;
  demande.retenir = etat.unSeul;
  return demande;
}

void ApresLancement(EtatChoixVar& etat, const ResultatLancement& resultat) {
  if (resultat.isoleEcrit) etat.tableauIsole = false;
}

}  // namespace quelvar::crosstab
