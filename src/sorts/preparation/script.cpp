#include "sorts/preparation/script.h"

#include "core/enquete/noms.h"
#include "sorts/preparation/preprecod.h"

namespace quelvar::sorts {

namespace {

// One run of the script: the state of the form, and the report of what it answered.
class Script {
 public:
  Script(EtatPrepRecod& etat, Rapport& rapport) : etat_(etat), rapport_(rapport) {}

  void Executer(const OptionsPrepRecod& options) {
    for (const auto& [question, regle] : options.regles) PoserRegle(question, regle);
    if (options.ponderation) PoserPonderation(*options.ponderation);
    if (options.maximum) ChoisirEffectif(etat_, *options.maximum);
    if (options.filtre) PoserFiltre(*options.filtre);
    if (options.supprimerVit) {
      SupprimerVit(etat_);
      Dire("VIT");
    }
    for (const VitDeScript& vit : options.vits) AjouterVit(vit);
    if (fautif_) throw Erreur(kArretAnnonce);
  }

 private:
  void Dire(std::string_view sujet) { rapport_.Ligne({sujet, " : ", etat_.message}); }

  bool Choisir(std::string_view nom) {
    std::vector<Question> questions;
    for (const QuestionPreparee& preparee : etat_.questions) questions.push_back(preparee.question);
    const std::vector<std::size_t> rangs = RangsDuNom(questions, nom, Casse::Indifferente);
    if (rangs.size() == 1) {
      ChoisirQuestion(etat_, rangs.front());
      return true;
    }
    fautif_ = true;
    if (rangs.empty()) rapport_.Ligne({nom, " : la question n'est pas dans le fichier *.POS"});
    else rapport_.Ligne(FauteHomonymes(nom, questions, rangs));
    return false;
  }

  void PoserRegle(std::string_view question, std::string_view regle) {
    if (!Choisir(question)) return;
    if (Rogner(regle).empty()) EffacerRegle(etat_);
    else if (!ValiderRegle(etat_, regle)) fautif_ = true;
    Dire(question);
  }

  void PoserPonderation(const std::string& question) {
    if (question.empty()) EffacerPonderation(etat_);
    else if (Choisir(question)) ValiderPonderation(etat_);
  }

  void PoserFiltre(const FiltreDeScript& filtre) {
    ChoisirSens(etat_, filtre.sens);
    if (filtre.sens == SensFiltre::Aucun) return;
    for (const auto& [question, code] : filtre.expressions) {
      if (!Choisir(question)) continue;
      if (!AjouterQuestionAuFiltre(etat_)) {
        fautif_ = true;
        Dire(question);
        return;
      }
      AjouterCodeAuFiltre(etat_, code);
    }
    if (!ValiderFiltre(etat_)) fautif_ = true;
    Dire(etat_.filtreAffiche);
  }

  void AjouterVit(const VitDeScript& vit) {
    CommencerVit(etat_, vit.nom);
    for (const ElementDeScript& element : vit.elements) {
      if (!Choisir(element.question) || !AjouterQuestionALaVit(etat_)) continue;
      if (element.code) AjouterCodeALaVit(etat_, *element.code);
      AjouterScoreALaVit(etat_, element.code ? std::string_view(element.score) : "+");
    }
    if (!ValiderVit(etat_)) fautif_ = true;
    Dire(vit.nom);
  }

  EtatPrepRecod& etat_;
  Rapport& rapport_;
  bool fautif_ = false;
};

}  // namespace

Fin PreparerParScript(const Contexte& contexte, const OptionsPrepRecod& options) {
  std::optional<EtatPrepRecod> etat = PreparerRecodage(contexte);
  if (!etat) return Fin::Arret;
  return ExecuterProgramme(contexte, "$$$.prt", LibellesErreur{}, [&](Rapport& rapport) {
    Script(*etat, rapport).Executer(options);
    if (!EnregistrerPrepRecod(*etat, contexte)) {
      rapport.Ligne(etat->message);
      throw Erreur(kArretAnnonce);
    }
    rapport.Ligne("Fin normale du programme");
  });
}

}  // namespace quelvar::sorts
