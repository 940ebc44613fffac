#include "sorts/preparation/preprecod.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/programme/rapport.h"
#include "sorts/regles/regles.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

constexpr int kLargeurTete = 10;

// A question line keeps its columns 1-10; a label that starts in column 10 is not one of them.
std::string TeteDe(const std::string& ligne) {
  std::string tete = CadreGauche(ligne, kLargeurTete);
  if (tete.back() == '$' || tete.back() == '&') tete.back() = ' ';
  return tete;
}

void PrendreTaille(EtatPrepRecod& etat, const std::string& ligneTaille) {
  const ConsignesTaille consignes = LireConsignesTaille(ligneTaille);
  etat.motsLus = MotsDeTaille(ligneTaille);
  if (consignes.ponderation) etat.ponderation = consignes.question.empty() ? kNomPonderation : consignes.question;
  etat.maximum = consignes.maximum;
  etat.filtre = etat.filtreAffiche = RognerDroite(consignes.filtre);
}

void PrendreVit(EtatPrepRecod& etat, const FichierPos& pos) {
  const std::span<const std::string> apres = std::span(pos.lignes).subspan(pos.premiereApres);
  const std::size_t lignes = LireBlocVit(pos).lignes;
  for (const std::string& ligne : apres.first(lignes))
    if (Rogner(ligne) != kMarqueVit) etat.vit.push_back(ligne);
  etat.vitAffichee = etat.vit;
  etat.suite.assign(apres.begin() + static_cast<std::ptrdiff_t>(lignes), apres.end());
}

std::string MessageDAccueil(const EtatPrepRecod& etat) {
  std::string message = Joindre(
      {"Cette fenêtre prépare 4 opérations qui seront mises en oeuvre dans le programme 'Modifier' 2) recoder, etc.\r\n"
       "Recoder : c'est la plus classique\r\n"
       "Pondérer : faire que chaque individu compte pour plusieurs en fonction d'une variable précise\r\n"
       "Filtrer : créer un nouveau fichier en excluant des individus ou en en sélectionnant\r\n"
       "VIT : créer des variables idéales-typiques\r\n"
       "\r\n"
       "Des boutons d'aide spécifiques à chaque opération sont disponibles. Pour les utilisateurs avertis, il est "
       "possible de créer toutes ses opérations et de faire des modifications sous l'éditeur de *.POS, voir la "
       "documentation"_w});
  if (!etat.ponderation.empty()) message += "\r\n\r\nUne question à déjà été prise comme pondération"_w;
  if (!etat.filtre.empty()) message += "\r\n\r\nUn filtre existe déjà"_w;
  return message;
}

struct LectureDesQuestions {
  EtatPrepRecod etat;
  std::string refus;  // why the file cannot be edited here; empty when it can
};

LectureDesQuestions Lire(const Chemin& chemin) {
  const FichierPos pos = LirePos(chemin);
  if (pos.taille.parenthesesFautives) return {{}, std::string(MessageParentheses())};
  EtatPrepRecod etat;
  etat.lues.assign(pos.lignes.begin() + 2, pos.lignes.end());
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    if (pos.questions[i].intituleOuvert) return {{}, Joindre({FauteIntitule(pos.questions[i]), kCorrigezRelancez})};
    etat.questions.push_back({pos.questions[i], TeteDe(pos.lignes[i + 2])});
  }
  PrendreTaille(etat, pos.taille.texte);
  PrendreVit(etat, pos);
  etat.message = MessageDAccueil(etat);
  return {std::move(etat), {}};
}

}  // namespace

std::optional<EtatPrepRecod> PreparerRecodage(const Contexte& contexte) {
  std::optional<LectureDesQuestions> lecture;
  std::optional<Erreur> panne;
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  try {
    if (pos) lecture = Lire(*pos);
  } catch (const Erreur& erreur) {
    panne = erreur;
  }
  if (lecture && lecture->refus.empty()) return std::move(lecture->etat);
  if (lecture) {
    contexte.Ecran().demander(lecture->refus, Boutons::Ok);
    return std::nullopt;
  }
  // Only what went wrong makes a report: an older .PRT is not emptied by looking at the questions.
  ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    ExigerFichiers(rapport, contexte.Ecran(), {{contexte.Nom(".POS"), pos.has_value()}}, kArretAbsence);
    throw Erreur(*panne);
  });
  return std::nullopt;
}

// --- the list of questions and the rule ---

void ChoisirQuestion(EtatPrepRecod& etat, std::size_t question) {
  etat.courante = question < etat.questions.size() ? std::optional(question) : std::nullopt;
}

std::string_view LibelleEnCours(const EtatPrepRecod& etat) {
  return etat.courante ? std::string_view("Question en cours") : std::string_view("Pas de question en cours");
}

bool ValiderRegle(EtatPrepRecod& etat, std::string_view texte) {
  const Question* question = QuestionCourante(etat);
  if (question == nullptr) {
    etat.message = "Cliquer sur une question à recoder"_w;
    return false;
  }
  std::string regle(Rogner(texte));
  std::erase(regle, '$');  // the sign of the label
  etat.message.clear();
  if (regle.empty()) {
    etat.message = "Pas de recodage";
  } else if (question->alphabetique) {
    etat.message = Joindre({question->nom, " est une question alphabétique qui n'est pas susceptible de recodage"_w});
    return false;
  } else if (regle == "S" || regle == "s") {
    etat.message = "Recodage standard";
  } else {
    const RegleVerifiee verifiee = VerifierRegle(LireRegle(regle), {question->codeMax, 0}, UsageRegle::Formulaire);
    for (const FauteTrouvee& faute : verifiee.fautes) etat.message += Joindre({TexteFauteFormulaire(faute), "\r\n"});
    if (!verifiee.fautes.empty()) {
      etat.message += "***Attention erreur à corriger***"_w;
      return false;
    }
    etat.message = "La question est validée"_w;
  }
  etat.questions[*etat.courante].question.regle = regle;
  etat.modifie = true;
  return true;
}

void EffacerRegle(EtatPrepRecod& etat) {
  if (!etat.courante) {
    etat.message = "Cliquer sur une question à recoder"_w;
    return;
  }
  etat.questions[*etat.courante].question.regle.clear();
  etat.modifie = true;
  etat.message = "La question est validée sans recodage"_w;
}

// --- weighting ---

std::string FauteDeCasse(const EtatPrepRecod& etat, const Question& question) {
  for (const QuestionPreparee& autre : etat.questions) {
    if (&autre.question == &question || !EgalSansCasse(Rogner(autre.question.nom), Rogner(question.nom))) continue;
    return Joindre({"Les questions ", Rogner(question.nom), " et ", Rogner(autre.question.nom),
                    " ont le même nom en majuscules : donnez-leur des noms différents dans le fichier *.POS"_w});
  }
  return {};
}

bool ValiderPonderation(EtatPrepRecod& etat) {
  const Question* question = QuestionCourante(etat);
  etat.message = question == nullptr ? std::string("Cliquer sur une question à prendre comme pondération"_w)
                                     : FauteDeCasse(etat, *question);
  if (!etat.message.empty()) return false;
  etat.ponderation = Majuscules(question->nom);
  etat.modifie = true;
  return true;
}

void EffacerPonderation(EtatPrepRecod& etat) {
  etat.ponderation.clear();
  etat.modifie = true;
  etat.message = "Choisir une nouvelle question pour la pondération"_w;
}

void ChoisirEffectif(EtatPrepRecod& etat, bool maximum) {
  etat.modifie = etat.modifie || etat.maximum != maximum;
  etat.maximum = maximum;
}

bool ResteAValider(const EtatPrepRecod& etat) { return ResteUnFiltre(etat) || ResteUneVit(etat); }

bool ValiderLAffiche(EtatPrepRecod& etat) {
  if (ResteUnFiltre(etat) && !ValiderFiltre(etat)) return false;
  return !ResteUneVit(etat) || ValiderVit(etat);
}

namespace {

std::vector<int> CodesJusqua(int maximum) {
  std::vector<int> codes;
  for (int code = 0; code <= maximum; ++code) codes.push_back(code);
  return codes;
}

}  // namespace

std::vector<int> CodesPourFiltre(const EtatPrepRecod& etat) {
  const Question* question = QuestionCourante(etat);
  return question == nullptr ? std::vector<int>{} : CodesJusqua(question->codeMax);
}

std::vector<int> CodesPourVit(const EtatPrepRecod& etat) {
  const Question* question = QuestionCourante(etat);
  return question == nullptr ? std::vector<int>{} : CodesJusqua(std::min(question->codeMax, kCodeVitMaximum));
}

}  // namespace quelvar::sorts
