#include "capture/saisie/ecran.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/nomdemodalite.h"

namespace quelvar::capture {

std::string_view IntituleDeReponse(const EtatSaisie& etat, std::size_t question, const IntitulesModalites& intitules) {
  const DescriptionDeQuestion& description = etat.questions[question];
  if (!EstCourte(description)) return {};
  const double code = ValeurDe(etat.reponses[question]);
  if (code < 1 || code > kDernierCodeNomme) return {};
  const std::string* intitule = intitules.Chercher(NomDeModalite(description.nom, static_cast<int>(code)));
  return intitule == nullptr ? std::string_view{} : Rogner(*intitule);
}

std::string TexteDeQuestion(const EtatSaisie& etat, int decalage, const IntitulesModalites& intitules) {
  const auto place = static_cast<std::ptrdiff_t>(etat.courante) + decalage;
  if (place < 0 || place > static_cast<std::ptrdiff_t>(etat.questions.size())) return {};
  const auto question = static_cast<std::size_t>(place);
  if (question == etat.questions.size()) return "FIN";
  const std::string_view intitule = IntituleDeReponse(etat, question, intitules);
  return Joindre({etat.questions[question].nom, "  ", etat.reponses[question],
                  std::string_view(intitule.empty() ? "" : "  "), intitule});
}

std::string NomCourant(const EtatSaisie& etat) {
  return etat.SurFin() ? std::string("FIN") : std::string(RognerDroite(etat.Courante().nom));
}

std::string ReponseCourante(const EtatSaisie& etat) {
  return etat.SurFin() ? std::string() : etat.reponses[etat.courante];
}

std::string TypeCourant(const EtatSaisie& etat) {
  if (etat.SurFin()) return {};
  const DescriptionDeQuestion& question = etat.Courante();
  return Joindre({EstCourte(question) ? " Numérique de code-max ="_w : std::string_view(" Alphanum. de longueur max ="),
                  Nombre(question.nombre)});
}

std::string_view ConseilCourant(const EtatSaisie& etat) {
  if (etat.SurFin()) return {};
  const DescriptionDeQuestion& question = etat.Courante();
  if (!EstVide(question, etat.reponses[etat.courante])) return " Pour modifier, effacer avec Suppr";
  return EstCourte(question) || EstLongue(question) ? " Vide : utiliser le clavier numérique"_w
                                                    : std::string_view(" Vide : utiliser le clavier");
}

std::string_view TexteDesMajuscules(bool majuscules) {
  return majuscules ? "Chiffres actifs. Lettres en MAJUSCULES" : "Chiffres actifs.  Lettres en minuscules";
}

}  // namespace quelvar::capture
