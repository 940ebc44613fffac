// The request of a series of crosstabs as the form ChoixVar holds it: the questions chosen for each role, the options,
// the count of tables, and what each control does to them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/programme/dialogue.h"
#include "crosstab/croise.h"

namespace quelvar::crosstab {

enum class RoleQuestion { Filtre, Ligne, Colonne };

struct EtatChoixVar {
  std::vector<int> codesMax;                     // of the questions of the survey
  std::array<std::vector<bool>, 3> drapeaux;     // by role, then by question
  bool troisDimensions = false;                  // BoutTri3; else BoutQvr2
  bool unSeul = false;                           // BoutUnSeul; else BoutSerie
  bool ordrePem = false;                         // BoutOrdreAFC; else BoutOrdreOri
  bool inverserLignes = false;                   // captioned "InvLign"
  bool inverserColonnes = false;                 // captioned "InvCol"
  bool nonReponses = true;                       // BoutNROui; else BoutNRNon
  bool detailKhi2 = false;                       // CaseDetKhi2
  ChoixEdition edition = ChoixEdition::Etendue;  // EditCompact, EditLarge, OptTRG
  bool tailleVisible = true;                     // FrmTaille
  int colonnesParPage = kPageUsuelle.colonnes;
  int lignesParPage = kPageUsuelle.lignes;
  bool tableauIsole = false;  // CaseBRT

  // What the recount leaves.
  double nombreTableaux = 0;
  std::string titre;      // TitreNbTab
  std::string infobulle;  // its tool tip
  bool lancerPossible = false;
  bool isolePossible = false;
};

// Nothing chosen, options as the form loads them.
EtatChoixVar NouveauChoix(const EnqueteCroisee& enquete);

// The questions of a role in question order, which is the order of its list.
std::vector<std::size_t> QuestionsDuRole(const EtatChoixVar& etat, RoleQuestion role);

// Counts the tables asked for; beeps when one table with its graph is wanted and there are more.
void Recompter(EtatChoixVar& etat, const Dialogue& dialogue);

// The handlers. Each ends with the recount where the count may change.
void AjouterAuRole(EtatChoixVar& etat, RoleQuestion role, std::span<const std::size_t> questions,
                   const Dialogue& dialogue);
void EnleverDuRole(EtatChoixVar& etat, RoleQuestion role, std::span<const std::size_t> questions,
                   const Dialogue& dialogue);
void InverserLignesEtColonnes(EtatChoixVar& etat, const Dialogue& dialogue);
void ToutEffacer(EtatChoixVar& etat, const Dialogue& dialogue);
void ChoisirDeuxDimensions(EtatChoixVar& etat, const Dialogue& dialogue);
void ChoisirTroisDimensions(EtatChoixVar& etat, const Dialogue& dialogue);
void ChoisirUnSeul(EtatChoixVar& etat, bool unSeul, const Dialogue& dialogue);
// Cells are as wide as the largest count wants them, so that no size of a survey shuts an edition out.
void ChoisirEdition(EtatChoixVar& etat, ChoixEdition edition);
// The two character sizes: 10 points make pages of 5 columns and 18 rows, 8 points pages of 6 and 24.
void ChoisirCaractere(EtatChoixVar& etat, int points);
// Ticked, asks whether existing files may be replaced by the launch; without a yes the box is cleared and disabled, and
// this is told.
void CocherTableauIsole(EtatChoixVar& etat, bool coche, const Contexte& contexte);

// What the form shows.
bool FiltreVisible(const EtatChoixVar& etat, int niveau);  // FrmBloc
bool OrdreVisible(const EtatChoixVar& etat, int niveau);   // FrmAFC and FrmGraphe
std::string_view TexteLancer(const EtatChoixVar& etat);    // caption of BoutLancerTri

// The request that the launch button sends, none when the recount forbids it. A filtered series goes back to the
// original order.
std::optional<DemandeCroise> PreparerLancement(EtatChoixVar& etat, const Dialogue& dialogue);

// One isolated table only is saved by a launch.
void ApresLancement(EtatChoixVar& etat, const ResultatLancement& resultat);

}  // namespace quelvar::crosstab
