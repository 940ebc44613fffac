#include "sorts/recodage/posneuf.h"

#include "core/enquete/colonnes.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

std::string DebutDeLigne(std::string_view nom, int position, int codeMax) {
  return LigneDeQuestion(nom, position, TexteCodeMax(codeMax));
}

void EcrireQuestion(Ecrivain& sortie, std::string_view debut, const Question& question,
                    std::string_view devantLIntitule = {}) {
  sortie.Ecrire(debut);
  sortie.Ecrire(question.type);
  if (!question.intitule.empty())
    sortie.Ecrire(Joindre({" ", EntreDollars(Joindre({devantLIntitule, question.intitule})), " "}));
  sortie.Ligne(MarqueDe(question.statut));
}

void EcrireAnciennes(Ecrivain& sortie, const Consignes& consignes, const PlanDeRecodage& plan) {
  std::size_t suivant = 0;
  for (std::size_t i = 0; i < consignes.pos.questions.size(); ++i) {
    const Question& question = consignes.pos.questions[i];
    const bool recodee = suivant < plan.champs.size() && plan.champs[suivant].question == i;
    const int codeMax =
        recodee && consignes.mode == ModeRecodage::SurPlace ? plan.champs[suivant].codeMax : question.codeMax;
    if (recodee) ++suivant;
    EcrireQuestion(sortie, DebutDeLigne(question.nom, question.position, codeMax), question);
  }
}

void EcrireRecodees(Ecrivain& sortie, const Consignes& consignes, const PlanDeRecodage& plan) {
  const std::string_view devantLIntitule = consignes.mode == ModeRecodage::EnFin ? " Rec " : "";
  for (const ChampNeuf& champ : plan.champs) {
    const Question& question = consignes.pos.questions[champ.question];
    EcrireQuestion(sortie, DebutDeLigne(NomNeuf(question, consignes.mode), champ.position, champ.codeMax), question,
                   devantLIntitule);
  }
}

// The lines behind the question list; the block of VIT that they open is not to be carried out again.
void EcrireSuite(Ecrivain& sortie, const FichierPos& pos) {
  for (std::size_t i = pos.premiereApres; i < pos.lignes.size(); ++i) {
    std::string ligne = pos.lignes[i];
    const std::size_t marque = i == pos.premiereApres ? ligne.find(kMarqueVit) : std::string::npos;
    if (marque != std::string::npos) ligne.replace(marque, kMarqueVit.size(), kFinDeListe);
    sortie.Ligne(ligne);
  }
}

}  // namespace

std::string NomNeuf(const Question& question, ModeRecodage mode) {
  return mode == ModeRecodage::EnFin ? "*" + question.nom.substr(0, kLargeurDeQuestion - 1) : question.nom;
}

void EcrirePosNeuf(Ecrivain& sortie, const Consignes& consignes, const PlanDeRecodage& plan, const TailleNeuve& taille,
                   const std::string& generique) {
  sortie.Ligne(Joindre({consignes.pos.titre, " Recode en ", generique}));
  sortie.Ligne(LigneDeTaille(taille.individus, taille.avantPonderation));
  if (consignes.mode != ModeRecodage::Seules) EcrireAnciennes(sortie, consignes, plan);
  if (consignes.mode != ModeRecodage::SurPlace) EcrireRecodees(sortie, consignes, plan);
  for (const VitNeuve& vit : plan.vits)
    sortie.Ligne(DebutDeLigne(consignes.vits[vit.demandee].nom, vit.position, vit.codeMax));
  if (consignes.mode != ModeRecodage::Seules) EcrireSuite(sortie, consignes.pos);
}

}  // namespace quelvar::sorts
