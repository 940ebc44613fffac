#include "capture/apercu/sorties/compterendu.h"

#include "capture/apercu/choix/devenir.h"
#include "capture/apercu/sorties/remarques.h"
#include "capture/apercu/sorties/tableau.h"
#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"

namespace quelvar::capture {

void ImprimerLecture(Rapport& rapport, std::string_view fichier, const SourceDeTable& source,
                     const Reconnaissance& table) {
  rapport.Ligne({"Lecture du fichier ", fichier, " : ", DireLecture(source, table.lecture)});
  if (const std::string autres = DireAutresFeuilles(source); !autres.empty()) rapport.Ligne(autres);
  for (const std::string& doute : table.doutes) rapport.Ligne({kAttention, doute});
}

void ImprimerTableDesColonnes(Rapport& rapport, const Reconnaissance& table) {
  rapport.Ligne(
      {"Il y a", NombreNu(table.faits.individus), "individus et", NombreNu(table.faits.colonnes.size()), "colonnes"});
  rapport.Ligne();
  ImprimerRangees(rapport, TableauDesFaits(table), FormeDesFaits());
  rapport.Ligne();
}

void ImprimerDevenir(Rapport& rapport, const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits,
                     const PlanDImport& plan, const Bilan& bilan) {
  if (ToutEstCodes(choix)) return;
  rapport.Ligne();
  rapport.Ligne("Ce que devient chaque colonne");
  rapport.Ligne();
  for (std::size_t j = 0; j < choix.size(); ++j) {
    rapport.Ligne({"Colonne", NumeroEtNom(j, faits.colonnes[j]), " : ", Devenir(choix[j], faits.colonnes[j])});
    for (const CodeFait& code : CodesFaits(j, faits, plan, bilan)) {
      if (code.code == 0) rapport.Ligne({"    ", code.nom, " code 0 non-réponse :"_w, NombreBlanc(code.effectif)});
      else
        rapport.Ligne(
            {"    ", code.nom, " code", NombreNu(code.code), code.intitule, " :", NombreBlanc(code.effectif)});
    }
  }
}

}  // namespace quelvar::capture
