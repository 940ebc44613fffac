// The filter part of the preparation of a recoding: what builds, checks and stores the displayed expression.
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "sorts/preparation/preprecod.h"

namespace quelvar::sorts {

namespace {

// Names of the questions in the displayed filter, the last one with or without its code.
std::vector<ElementFiltre> ElementsAffiches(const EtatPrepRecod& etat) {
  return LireFiltre(etat.filtreAffiche).elements;
}

}  // namespace

void ChoisirSens(EtatPrepRecod& etat, SensFiltre sens) {
  etat.message.clear();
  etat.filtreAffiche = sens == SensFiltre::Inclure ? "INCL " : sens == SensFiltre::Exclure ? "EXCL " : "";
  if (sens != SensFiltre::Aucun) return;
  etat.modifie = etat.modifie || !etat.filtre.empty();
  etat.filtre.clear();
}

SensFiltre SensAffiche(const EtatPrepRecod& etat) { return LireConsignesTaille(etat.filtreAffiche).sens; }

bool AjouterQuestionAuFiltre(EtatPrepRecod& etat) {
  const Question* question = QuestionCourante(etat);
  if (question == nullptr) {
    etat.message = "Cliquer sur une question à prendre comme filtre";
    return false;
  }
  if (SensAffiche(etat) == SensFiltre::Aucun) return false;
  etat.message = FauteDeCasse(etat, *question);
  if (!etat.message.empty()) return false;
  const std::string nom = Majuscules(Rogner(question->nom));
  const std::vector<ElementFiltre> elements = ElementsAffiches(etat);
  if (std::ranges::any_of(elements, [&](const ElementFiltre& e) { return e.egal && Majuscules(e.nom) == nom; })) {
    etat.filtreAffiche.clear();
    etat.modifie = etat.modifie || !etat.filtre.empty();
    etat.filtre.clear();
    etat.message =
        "La question a déjà été utilisée : aucune individu ne peut logiquement avoir deux codes différents. Le filtre "
        "est annulé"_w;
    return false;
  }
  if (elements.empty()) etat.filtreAffiche += ' ';  // the keyword stands alone
  else if (elements.back().egal) etat.filtreAffiche += " + ";
  else etat.filtreAffiche.erase(etat.filtreAffiche.find_last_of(" +&") + 1);
  etat.filtreAffiche += nom;
  etat.message.clear();
  return true;
}

void AjouterCodeAuFiltre(EtatPrepRecod& etat, int code) {
  const std::vector<ElementFiltre> elements = ElementsAffiches(etat);
  if (elements.empty() || elements.back().nom.empty()) return;
  if (elements.back().egal) etat.filtreAffiche.erase(etat.filtreAffiche.rfind('='));
  etat.filtreAffiche += "=" + Nombre(code);
}

void AjouterExpression(EtatPrepRecod& etat) {
  const std::vector<ElementFiltre> elements = ElementsAffiches(etat);
  if (!elements.empty() && elements.back().egal) etat.filtreAffiche += " + ";
  etat.message = "Recommencer à choisir une question"_w;
}

bool ValiderFiltre(EtatPrepRecod& etat) {
  const std::vector<ElementFiltre> elements = ElementsAffiches(etat);
  const bool complet = !elements.empty() && std::ranges::all_of(elements, [](const ElementFiltre& element) {
    return !element.nom.empty() && !element.code.empty();
  });
  if (!complet && !Rogner(etat.filtreAffiche).empty()) {
    etat.message = "Le filtre affiché est incomplet, il n'est pas validé : à chaque question il faut une modalité"_w;
    return false;
  }
  etat.filtre = Rogner(etat.filtreAffiche);
  etat.modifie = true;
  etat.message = "Le filtre affiché est validé (mais non enregistré)"_w;
  return true;
}

bool ResteUnFiltre(const EtatPrepRecod& etat) {
  if (Rogner(etat.filtreAffiche) == etat.filtre) return false;
  return !etat.filtre.empty() || !ElementsAffiches(etat).empty();
}

}  // namespace quelvar::sorts
