#include "modalities/regroupement/modifburt.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "modalities/regroupement/edition.h"
#include "modalities/regroupement/table.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kTitre = "Modification d'un tableau de Burt";
constexpr std::string_view kArretSansFichiers = "*** Arrêt du programme du à l'absence d'un ou de plusieurs fichiers"_w;

std::string ParametresDuGroupe(const ParametresMod& anciens, std::size_t colonnes, const BilanDeRegroupement& bilan,
                               int largeur) {
  if (anciens.burt > 1) return LigneDeParametres({{"BRT=", colonnes}, {"FMT=", largeur}});
  std::vector<CleDeParametre> cles = {{"LIGN=", bilan.rangees}, {"COL=", colonnes}, {"FMT=", largeur}};
  if (bilan.lignesSup > 0) cles.insert(cles.begin() + 1, {"LSUP=", bilan.lignesSup});
  if (anciens.burt == 1) cles.insert(cles.begin(), {"BRT=", 1});
  return LigneDeParametres(cles);
}

void EcrireMod(Ecrivain& sortie, const TableAGrouper& table, const PlanDeRegroupement& plan, const NomsDeGroupe& noms,
               const std::string& titre, const std::string& parametres) {
  sortie.Ligne(titre);
  sortie.Ligne(parametres);
  for (std::size_t j = 0; j < table.mod.modalites.size(); ++j)
    if (j >= plan.colonnes.size() || plan.colonnes[j] == 0) sortie.Ligne(table.mod.lignes[2 + j]);
  if (plan.AvecColonnes()) sortie.Ligne(LigneModalite(noms.colonne, false, noms.colonneLongue));
  for (std::size_t i = table.mod.premiereApres; i < table.mod.lignes.size(); ++i) sortie.Ligne(table.mod.lignes[i]);
}

// One pass after the other, each with cells one wider than the last, until every sum fits; returns the width.
int RegrouperJusquAuBout(Rapport& rapport, const Contexte& contexte, const TableAGrouper& table,
                         const PlanDeRegroupement& plan, const NomsDeGroupe& noms, const std::string& nouveau,
                         std::optional<JeuDeFichiers>& sorties, BilanDeRegroupement& bilan) {
  bool reitere = false;
  for (int largeur = plan.ancienneLargeur;; ++largeur, reitere = true) {
    if (largeur > std::numeric_limits<std::int16_t>::max()) throw Erreur(kDepassementCapacite);
    sorties.emplace(contexte.repertoire, nouveau);
    Ecrivain& brt = sorties->Ouvrir(nouveau + ".BRT", Nature::Refaisable);
    ImprimerColonnes(rapport, table, plan);
    bilan = Regrouper(table.brt, plan, largeur, brt);
    if (bilan.colonneTropLarge) continue;
    ImprimerLignes(rapport, plan, bilan, noms);
    if (bilan.ligneTropLarge) continue;
    ImprimerGroupeDeLignes(rapport, table, plan, bilan, noms);
    if (reitere) {
      rapport.Ligne(
          "*** Attention, le processus est réitéré pour tenir compte d'un effectif qui dépasse la largeur initiale"_w);
      rapport.Ligne("    de ce fait, des indications de regroupement sont dupliquées"_w);
    }
    return largeur;
  }
}

NomsDeGroupe NommerGroupes(const Contexte& contexte, const TableAGrouper& table, const OptionsModifBurt& options) {
  const auto couper = [&](const std::string& nom) {
    const std::string coupe = nom.substr(0, kNomDeGroupeLePlusLong);
    if (coupe.size() < nom.size())
      contexte.Ecran().demander(Joindre({"Nom de regroupement coupé à "_w, Nombre(kNomDeGroupeLePlusLong),
                                         " caractères : "_w, nom, " devient ", coupe}),
                                Boutons::Ok);
    return coupe;
  };
  const std::string colonne = couper(options.nomColonne);
  const std::string ligne = table.parametres.burt > 0 ? colonne : couper(options.nomLigne);
  return {NomCourtDeGroupe(colonne), colonne, NomCourtDeGroupe(ligne), ligne};
}

// The .MOD, the .BRT and, for a Burt table, the .POS; a file that lacks is told and stops the run (kArretAnnonce).
// Raises the failures of the readers, and those of ExigerTableDuMod.
TableAGrouper OuvrirTable(const Contexte& contexte, Rapport& rapport) {
  TableAGrouper table;
  const auto manque = [&](std::string_view extension) {
    const FichierObligatoire fichier = Obligatoire(contexte, extension, kLeFichierEnRelief);
    return ImprimerLesAbsents(rapport, std::span(&fichier, 1));
  };
  const bool sansMod = manque(".MOD");
  const bool sansBrt = manque(".BRT");
  if (!sansMod) {
    const Chemin mod = contexte.Exiger(".MOD");
    table.mod = LireMod(mod);
    table.parametres = LireParametres(table.mod.parametres, TexteDe(mod.filename()));
    rapport.Lignes(table.parametres.remarques);
  }
  const bool sansPos = table.parametres.burt > 0 && manque(".POS");
  if (sansMod || sansBrt || sansPos) AvertirEtArreter(rapport, contexte.Ecran(), kArretSansFichiers);
  table.brt = contexte.Exiger(".BRT");
  table.pos = contexte.Chercher(".POS");
  if (table.parametres.largeur > 0) ExigerTableDuMod(table.brt, table.mod, table.parametres);
  return table;
}

void ArreterSurRefus(const Contexte& contexte, Rapport& rapport, std::string_view relief, const std::string& refus) {
  if (!refus.empty()) AvertirEtArreter(rapport, contexte.Ecran(), Joindre({relief, refus}));
}

// A Burt table of which all is marked would be one cell.
void ExigerDesColonnes(const Contexte& contexte, Rapport& rapport, const TableAGrouper& table,
                       const PlanDeRegroupement& plan) {
  if (table.parametres.burt <= 1 || !plan.AvecColonnes() ||
      std::count(plan.colonnes.begin(), plan.colonnes.end(), 0) > 0)
    return;
  AvertirEtArreter(rapport, contexte.Ecran(),
                   "*** Toutes les modalités sont marquées : il n'en resterait qu'une, et pas de tableau"_w);
}

// `libre` when nothing that counts stands under the new generic.
void Modifier(Rapport& rapport, const Contexte& contexte, const OptionsModifBurt& options, const std::string& nouveau,
              bool libre) {
  ImprimerBandeau(rapport, kTitre);
  const TableAGrouper table = OuvrirTable(contexte, rapport);
  if (table.parametres.largeur < 1)
    AvertirEtArreter(rapport, contexte.Ecran(), FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::SansLeFichier));
  PlanDeRegroupement plan;
  ArreterSurRefus(contexte, rapport, "", Planifier(table, options, plan));
  const NomsDeGroupe noms = NommerGroupes(contexte, table, options);
  plan.nomCourt = noms.ligne;
  ArreterSurRefus(contexte, rapport, "*** ", RefusDuNom(table, options));
  ExigerDesColonnes(contexte, rapport, table, plan);
  PrevenirDuNomLaisse(contexte, table, options, noms);

  // The new table beside the old one, one column wider at each sum that does not fit.
  ExigerPlace(contexte, rapport,
              {0, LongueurFichier(table.brt) * (static_cast<std::uint64_t>(plan.ancienneLargeur) + 1) /
                      static_cast<std::uint64_t>(plan.ancienneLargeur)});
  std::optional<JeuDeFichiers> sorties;
  BilanDeRegroupement bilan;
  const int largeur = RegrouperJusquAuBout(rapport, contexte, table, plan, noms, nouveau, sorties, bilan);
  const auto restantes = static_cast<std::size_t>(std::count(plan.colonnes.begin(), plan.colonnes.end(), 0));
  EcrireMod(sorties->Ouvrir(nouveau + ".MOD", Nature::Unique), table, plan, noms, nouveau,
            ParametresDuGroupe(table.parametres, restantes + (plan.AvecColonnes() ? 1 : 0), bilan, largeur));
  if (table.pos) CopierLignes(*table.pos, sorties->Ouvrir(nouveau + ".POS", Nature::Unique));
  EcrireInitialisation(*sorties, nouveau, contexte.niveau);
  if (!libre) ImprimerRemplacementDuGenerique(rapport, contexte, nouveau);
  sorties->Valider();
  if (const std::optional<std::int64_t> rangees = RangeesEnTrop(table))
    PrevenirDesLignesEnPlus(contexte, table, *rangees);
  PrevenirDesSupplementairesActives(contexte, CompterRendusActifs(table, plan));
  PrevenirDesCellulesDouteuses(contexte, bilan.douteuses);
  ImprimerFin(contexte, rapport, nouveau);
}

}  // namespace

Fin ModifierBurt(const Contexte& contexte, const OptionsModifBurt& options) {
  const bool deja = !contexte.generique.empty() &&
                    NAQueLeRapportDUnArret(contexte.repertoire, GeneriqueSuivant(contexte.generique), kTitre);
  const std::optional<std::string> nouveau = DemanderGeneriqueLibre(contexte, options.remplacer || deja);
  if (!nouveau) return Fin::Arret;
  const Fin fin = ExecuterProgramme(contexte, *nouveau + ".PRT", LibellesErreur{},
                                    [&](Rapport& rapport) { Modifier(rapport, contexte, options, *nouveau, deja); });
  if (fin == Fin::Normale && options.nouveau != nullptr) *options.nouveau = *nouveau;
  return fin;
}

}  // namespace quelvar::modalities
