#include "capture/apercu/sorties/compterendu.h"

#include "capture/apercu/choix/devenir.h"
#include "capture/apercu/sorties/remarques.h"
#include "capture/apercu/sorties/tableau.h"
#include "capture/noms/courts.h"
#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/resultats/rangees.h"

namespace quelvar::capture {

namespace {

// The places of TableauDesFaits.
FormeEnRangees FormeDesFaits() {
  constexpr auto kTexte = Elargissement::DerriereUnTexte;
  constexpr int kNomCourt = static_cast<int>(kNomCourtLePlusLong);
  constexpr int kContenuLePlusLong = 23;
  constexpr auto kADroite = TitreDeColonne::ADroite;
  constexpr auto kAGauche = TitreDeColonne::AGauche;
  return {.places = {{.entiers = 5, .elargissement = kTexte, .titre = kADroite},
                     {.avant = " ", .entiers = kNomCourt, .titre = kAGauche, .avantTitre = " "},
                     {.avant = " ", .entiers = kContenuLePlusLong, .titre = kAGauche, .avantTitre = " "},
                     {.entiers = 12, .elargissement = kTexte, .titre = kADroite},
                     {.entiers = 8, .elargissement = kTexte, .titre = kADroite},
                     {.avant = " ", .avantTitre = " "},
                     {.avant = " : ", .avantTitre = " : "}}};
}

}  // namespace

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
