#include "sorts/preparation/script.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/noms.h"
#include "core/programme/arret.h"
#include "core/texte/caracteres.h"
#include "sorts/preparation/preprecod.h"

namespace quelvar::sorts {

namespace {

// One run of the script: the state of the form, and the report of what it answered.
class Script {
 public:
  Script(EtatPrepRecod& etat, Rapport& rapport) : etat_(etat), rapport_(rapport) {}

  // False when something was refused.
  bool Executer(const OptionsPrepRecod& options) {
    for (const auto& [question, regle] : options.regles) PoserRegle(question, regle);
    if (options.ponderation) PoserPonderation(*options.ponderation);
    if (options.maximum) ChoisirEffectif(etat_, *options.maximum);
    if (options.filtre) PoserFiltre(*options.filtre);
    if (options.supprimerVit) {
      SupprimerVit(etat_);
      Imprimer("VIT");
    }
    if (options.texteVit) PoserTexteVit(*options.texteVit);
    for (const VitDeScript& vit : options.vits) AjouterVit(vit);
    return !fautif_;
  }

  // A question chosen twice has emptied the filter: the file has none any more.
  bool FiltreAnnule() const { return filtreAnnule_; }

 private:
  void Imprimer(std::string_view sujet) { rapport_.Ligne({sujet, " : ", etat_.message}); }

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
    Imprimer(question);
  }

  void PoserPonderation(const std::string& question) {
    if (question.empty()) return EffacerPonderation(etat_);
    if (!Choisir(question) || ValiderPonderation(etat_)) return;
    fautif_ = true;
    Imprimer(question);
  }

  void PoserFiltre(const FiltreDeScript& filtre) {
    const bool ajout = filtre.sens == SensFiltre::Aucun && !filtre.expressions.empty();
    if (!ajout) ChoisirSens(etat_, filtre.sens);
    if (!ajout && filtre.sens == SensFiltre::Aucun) return;
    if (ajout && SensAffiche(etat_) == SensFiltre::Aucun) {
      fautif_ = true;
      rapport_.Ligne("Il n'y a pas de filtre auquel ajouter : commencez-le par incl: ou excl:"_w);
      return;
    }
    for (const auto& [question, code] : filtre.expressions) {
      if (!Choisir(question)) continue;
      if (!AjouterQuestionAuFiltre(etat_)) {
        (SensAffiche(etat_) == SensFiltre::Aucun ? filtreAnnule_ : fautif_) = true;
        Imprimer(question);
        return;
      }
      AjouterCodeAuFiltre(etat_, code);
    }
    if (!ValiderFiltre(etat_)) fautif_ = true;
    Imprimer(etat_.filtreAffiche);
  }

  // As the editor of the form leaves it.
  void PoserTexteVit(const std::vector<std::string>& lignes) {
    std::string texte;
    for (const std::string& ligne : lignes) texte += (texte.empty() ? "" : "\n") + ligne;
    ReprendreTexteVit(etat_, texte);
    if (!ValiderVit(etat_)) fautif_ = true;
    Imprimer("VIT");
  }

  void AjouterVit(const VitDeScript& vit) {
    CommencerVit(etat_, vit.nom);
    for (const ElementDeScript& element : vit.elements) {
      if (!Choisir(element.question) || !AjouterQuestionALaVit(etat_)) continue;
      if (element.code) AjouterCodeALaVit(etat_, *element.code);
      AjouterScoreALaVit(etat_, element.code ? std::string_view(element.score) : "+");
    }
    if (!ValiderVit(etat_)) fautif_ = true;
    Imprimer(vit.nom);
  }

  EtatPrepRecod& etat_;
  Rapport& rapport_;
  bool fautif_ = false;
  bool filtreAnnule_ = false;
};

}  // namespace

Fin PreparerParScript(const Contexte& contexte, const OptionsPrepRecod& options) {
  std::optional<EtatPrepRecod> etat = PreparerRecodage(contexte);
  if (!etat) return Fin::Arret;
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    Script script(*etat, rapport);
    if (!script.Executer(options))
      Arreter(rapport,
              Joindre({"Rien n'est enregistré, le fichier "_w, contexte.Nom(".POS"), " reste tel qu'il était"_w}));
    if (!EnregistrerPrepRecod(*etat, contexte)) Arreter(rapport, etat->message);
    if (script.FiltreAnnule()) {
      // A script does not go on to recode everybody.
      Arreter(rapport, Joindre({"Le fichier "_w, contexte.Nom(".POS"), " est enregistré sans filtre"_w}));
    }
    rapport.Ligne("Fin normale du programme");
  });
}

namespace {

using Expressions = std::vector<std::pair<std::string, int>>;

// The expressions of a filter; nothing when one of them is more than a question and a code.
std::optional<Expressions> ExpressionsDe(std::string_view filtre) {
  Expressions expressions;
  for (const ElementFiltre& element : LireFiltre(filtre).elements) {
    if (!SontChiffres(element.code)) return std::nullopt;
    expressions.emplace_back(Rogner(element.nom), static_cast<int>(ValeurDe(element.code)));
  }
  return expressions;
}

FiltreDeScript FiltreEntre(const std::string& ouvert, const std::string& voulu) {
  if (voulu.empty()) return {};
  const std::string_view debut = "INCL ";
  if (!ouvert.empty() && voulu.starts_with(ouvert + " + "))
    if (const auto ajoutees = ExpressionsDe(Joindre({debut, std::string_view(voulu).substr(ouvert.size() + 3)})))
      return {SensFiltre::Aucun, *ajoutees};
  return {LireConsignesTaille(voulu).sens, ExpressionsDe(voulu).value_or(Expressions())};
}

}  // namespace

OptionsPrepRecod OptionsDeLEtat(const EtatPrepRecod& ouvert, const EtatPrepRecod& etat) {
  OptionsPrepRecod options;
  for (std::size_t i = 0; i < etat.questions.size(); ++i) {
    const Question& question = etat.questions[i].question;
    if (question.regle != ouvert.questions[i].question.regle)
      options.regles.emplace_back(Rogner(question.nom), question.regle);
  }
  if (etat.ponderation != ouvert.ponderation) options.ponderation = std::string(Rogner(etat.ponderation));
  if (etat.maximum != ouvert.maximum) options.maximum = etat.maximum;
  if (etat.filtre != ouvert.filtre) options.filtre = FiltreEntre(ouvert.filtre, etat.filtre);
  if (etat.vit == ouvert.vit) return options;
  if (etat.vit.empty()) options.supprimerVit = true;
  else options.texteVit = etat.vit;
  return options;
}

}  // namespace quelvar::sorts
