#include "modalities/regroupement/edition.h"

#include "core/chiffres/nombres.h"
#include "core/session/generiquelibre.h"

namespace quelvar::modalities {

void ImprimerColonnes(Rapport& rapport, const TableAGrouper& table, const PlanDeRegroupement& plan) {
  rapport.Ligne("Traitement des colonnes du tableau");
  for (std::size_t j = 0; j < plan.colonnes.size() && j < table.mod.modalites.size(); ++j)
    if (plan.colonnes[j] != 0)
      rapport.Ligne({"La colonne ", table.mod.modalites[j].nom, " fait l'objet d'un regroupement"});
}

void ImprimerLignes(Rapport& rapport, const PlanDeRegroupement& plan, const BilanDeRegroupement& bilan,
                    const NomsDeGroupe& noms) {
  if (plan.AvecColonnes()) rapport.Ligne({"Le regroupement de colonnes à pour nouveau nom : "_w, noms.colonneLongue});
  else rapport.Ligne("*** Absence de traitement des colonnes ");
  rapport.Ligne("Traitement des lignes du tableau");
  for (const LigneGroupee& ligne : bilan.lignes)
    rapport.Ligne({"La ligne ", ligne.nom, " fait l'objet d'un regroupement : ", NombreNu(ligne.frequence)});
}

void ImprimerGroupeDeLignes(Rapport& rapport, const TableAGrouper& table, const PlanDeRegroupement& plan,
                            const BilanDeRegroupement& bilan, const NomsDeGroupe& noms) {
  if (!plan.AvecLignes()) rapport.Ligne("*** Absence de traitement des lignes");
  else if (table.parametres.burt > 0)
    rapport.Ligne({"Le regroupement a pour nom : ", noms.ligne, " Sa fréquence est de "_w, NombreNu(bilan.frequence)});
  else rapport.Ligne({"Le regroupement de lignes a pour nouveau nom ", noms.ligneLongue});
}

void ImprimerFin(const Contexte& contexte, Rapport& rapport, const std::string& nouveau) {
  ImprimerChangementDeGenerique(rapport, contexte, nouveau);
  rapport.Ligne("Vous pouvez lancer directement l'analyse factorielle");
  if (contexte.niveau == kNiveauAvance) rapport.Ligne("Vous pouvez passer en niveau 1 pour accélérer le processus"_w);
  rapport.Ligne("Fin normale du programme");
  contexte.Ecran().biper();
}

void PrevenirDuNomLaisse(const Contexte& contexte, const TableAGrouper& table, const OptionsModifBurt& options,
                         const NomsDeGroupe& noms) {
  if (table.parametres.burt <= 0 || options.nomLigne.empty() || options.nomLigne == options.nomColonne) return;
  contexte.Ecran().demander(
      Joindre({"Nom de ligne laissé : "_w, options.nomLigne,
               ". Les lignes d'un tableau de Burt prennent le nom de ses colonnes, "_w, noms.ligne}),
      Boutons::Ok);
}

void PrevenirDesLignesEnPlus(const Contexte& contexte, const TableAGrouper& table, std::int64_t rangees) {
  contexte.Ecran().demander(Joindre({contexte.Nom(".BRT"), " a ", Nombre(rangees), " lignes au lieu de ",
                                     Nombre(Entier64(table.parametres.lignes)), " (LIGN= de ", contexte.Nom(".MOD"),
                                     "). Toutes sont gardées : vérifiez que ces deux fichiers vont ensemble"_w}),
                            Boutons::Ok);
}

void PrevenirDesCellulesDouteuses(const Contexte& contexte, const CellulesDouteuses& douteuses) {
  if (douteuses.nombre == 0) return;
  contexte.Ecran().demander(
      Joindre({"Cellules regroupées qui ne sont pas des nombres entiers positifs ou nuls, ou sont coupées : "_w,
               Nombre(douteuses.nombre), ", la première "_w, douteuses.premiere,
               ". Un texte ou ce qui manque compte pour 0, un nombre négatif est retranché, et les sommes sont "
               "arrondies : vérifiez "_w,
               contexte.Nom(".BRT")}),
      Boutons::Ok);
}

void PrevenirDesSupplementairesActives(const Contexte& contexte, const ElementsRendusActifs& rendus) {
  if (rendus.colonnes == 0 && rendus.lignes == 0) return;
  contexte.Ecran().demander(Joindre({"Éléments supplémentaires que le regroupement rend actifs : "_w,
                                     Nombre(rendus.colonnes), " colonnes, "_w, Nombre(rendus.lignes),
                                     " lignes. Rétablissez le statut du regroupement avant d'analyser"_w}),
                            Boutons::Ok);
}

}  // namespace quelvar::modalities
