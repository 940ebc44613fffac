// Any survey, any request: the crosstab ends with a report that holds what was there before the launch, and leaves what
// it read alone. Input: one byte of options, the bytes of the .POS, FF hex, those of the .DAT, FF hex, those of the
// .MOD, FF hex, those of the .TRG.
#include "crosstab/croise.h"

#include <cstdint>
#include <cstdlib>
#include <numeric>

#include "fuzz/support/dossier_memoire.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  const fuzz::Contenus lus = dossier.Distribuer(entree, {"ENQ.POS", "ENQ.DAT"});
  dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.TRG"}, fuzz::PieceVide::Absent);

  const quelvar::Contexte contexte = dossier.Contexte();
  const auto enquete = quelvar::crosstab::PreparerCroise(contexte, {});
  if (!dossier.Existe("ENQ.TCR")) std::abort();
  if (!enquete || enquete->questions.empty()) return 0;
  quelvar::crosstab::DemandeCroise demande;
  // A few questions: what many cost is not what is sought here.
  demande.lignes.resize(std::min<std::size_t>(enquete->questions.size(), 3));
  std::iota(demande.lignes.begin(), demande.lignes.end(), std::size_t{0});
  demande.colonnes = demande.lignes;
  demande.troisDimensions = (choix & 1) != 0;
  if (demande.troisDimensions) demande.filtres = {demande.lignes.back()};
  demande.nonReponses = (choix & 2) == 0;
  demande.ordre.pourPem = (choix & 4) != 0;
  if ((choix & 8) != 0) demande.edition.choix = quelvar::crosstab::ChoixEdition::Compacte;
  if ((choix & 16) != 0) demande.edition.choix = quelvar::crosstab::ChoixEdition::Triangulaire;
  demande.edition.detailKhi2 = (choix & 32) != 0;
  demande.tableauIsole = (choix & 64) != 0;
  demande.retenir = (choix & 128) != 0;
  const std::string avant = dossier.Lire("ENQ.TCR");
  const auto resultat = quelvar::crosstab::LancerCroise(contexte, *enquete, demande);
  if (!dossier.Lire("ENQ.TCR").starts_with(avant)) std::abort();
  if (resultat && resultat->isoleEcrit != (dossier.Existe("ENQ.BRT") && demande.tableauIsole)) std::abort();
  dossier.ExigerIntacts(lus);
  return 0;
}
