#include "sorts/recodage/consignes.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/noms.h"
#include "core/panne/attention.h"
#include "core/texte/caracteres.h"
#include "sorts/recodage/edition.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

using Indice = std::optional<std::size_t>;

// The reading in progress: each step adds to the instructions and tells its part.
class LecteurDeConsignes {
 public:
  LecteurDeConsignes(const OptionsRecodage& options, LectureDesConsignes& lues)
      : options_(options), lues_(lues), consignes_(lues.consignes), constats_(lues.constats) {}

  void DireMode();
  void LireFichier(const Chemin& chemin, std::string_view nom);
  void LireQuestions();
  void ChercherPonderation();
  void LireVits();
  void CompterIndividus(const Chemin& donnees);
  void LireElementsFiltre();
  void VerifierRegles();

 private:
  // `suite`: what the line behind it tells.
  void Avertir(Texte texte, Lieu ou, std::string_view suite = {});
  Lieu LigneDeux() const { return {consignes_.pos.nom, 2}; }  // weighting and filter
  Lieu LieuDe(std::size_t question) const { return LieuDeLaQuestion(consignes_.pos, question); }
  void ExigerIntitule(std::size_t rang);
  void AnnoncerAlphabetique(const Question& question);
  void LireVit(const Vit& vit, std::size_t numero);
  void LireElementVit(const Vit& vit, const ElementVit& element, VitDemandee& demandee);
  void LireElementFiltre(const ElementFiltre& element);
  Indice Seule(std::string_view nom, const std::vector<std::size_t>& rangs);
  std::vector<std::size_t> QuestionsDuFiltre(const std::string& type, const std::string& nom) const;
  bool EstGardee(std::size_t question) const;

  const OptionsRecodage& options_;
  LectureDesConsignes& lues_;
  Consignes& consignes_;
  Constats& constats_;
  ConsignesTaille taille_;
};

void LecteurDeConsignes::Avertir(Texte texte, Lieu ou, std::string_view suite) {
  constats_.Ligne();
  constats_.Alerte(Joindre({kFaute, texte}));
  lues_.fautes.Compter(Joindre({texte.Vue(), suite}), std::move(ou));
}

void LecteurDeConsignes::DireMode() {
  if (options_.seules) {
    consignes_.mode = ModeRecodage::Seules;
    constats_.Ligne("Seules les variables recodees ou selectionnees sont conservees");
  } else {
    constats_.Ligne("Toutes les variables sont conservees");
    if (options_.enFin) {
      consignes_.mode = ModeRecodage::EnFin;
      constats_.Ligne("et les recodees sont mises en fin de fichier");
    }
  }
  constats_.Ligne();
}

void LecteurDeConsignes::LireFichier(const Chemin& chemin, std::string_view nom) {
  constats_.Ligne({"Impression des 2 premieres lignes de ", nom});
  consignes_.pos = LirePos(chemin);
  constats_.Ligne(consignes_.pos.titre);
  constats_.Ligne(consignes_.pos.taille.texte);
  constats_.Ligne();
  if (consignes_.pos.taille.parenthesesFautives) {
    constats_.Boite(MessageParentheses());  // which names the line
    throw Erreur(kArretAnnonce);
  }
  taille_ = LireConsignesTaille(consignes_.pos.taille.texte);
  if (taille_.deuxSens) Avertir("Inclure et exclure presents en meme temps", LigneDeux());
  consignes_.maximum = taille_.maximum;
}

void LecteurDeConsignes::ExigerIntitule(std::size_t rang) {
  const Question& question = consignes_.pos.questions[rang];
  if (!question.intituleOuvert) return;
  const std::string faute = FauteIntitule(question);
  constats_.Boite(Joindre({faute, kCorrigezRelancez}));
  Avertir(faute, LieuDe(rang));
}

void LecteurDeConsignes::AnnoncerAlphabetique(const Question& question) {
  constats_.Ligne("*** Attention***");
  constats_.Ligne({question.nom, " est une question alphabétique qui n'est pas susceptible de recodage"_w});
  constats_.Ligne();
}

void LecteurDeConsignes::LireQuestions() {
  const std::vector<Question>& questions = consignes_.pos.questions;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const Question& question = questions[i];
    if (i == kQuestionsARecoder) {
      constexpr std::string_view kTropDeQuestions = "Plus de questions que le maximum possible";
      Avertir(kTropDeQuestions, LieuDe(i));
      constats_.Ligne("Arret pour trop de questions");
      throw Erreur(FauteSituee{std::string(kTropDeQuestions), LieuDe(i)});
    }
    ExigerIntitule(i);
    if (question.alphabetique) {
      AnnoncerAlphabetique(question);
      continue;
    }
    // What follows a label that is not closed can't be told from the label.
    std::string regle = question.intituleOuvert ? std::string() : question.regle;
    if (regle.empty() && options_.toutesSelectionnees) regle = "S";
    if (!regle.empty()) consignes_.aRegle.push_back({i, std::move(regle), {}});
  }
  constats_.Ligne({"Il y a ", NombreNu(questions.size()), " questions"});
  constats_.Ligne();
}

// The question found, if there is one; a name that several share is a fault.
Indice LecteurDeConsignes::Seule(std::string_view nom, const std::vector<std::size_t>& rangs) {
  if (rangs.empty()) return std::nullopt;
  if (rangs.size() > 1) Avertir(FauteHomonymes(nom, consignes_.pos.questions, rangs), LieuDe(rangs[1]));
  return rangs.front();
}

bool LecteurDeConsignes::EstGardee(std::size_t question) const {
  return consignes_.mode != ModeRecodage::Seules ||
         std::ranges::find(consignes_.aRegle, question, &QuestionARegle::question) != consignes_.aRegle.end();
}

void LecteurDeConsignes::ChercherPonderation() {
  if (!taille_.ponderation) return;
  const auto& questions = consignes_.pos.questions;
  const std::vector<std::size_t> nommees = RangsDuNom(questions, taille_.commeTapee, Casse::Indifferente);
  const std::vector<std::size_t> parDefaut = RangsDuNom(questions, kNomPonderation, Casse::Indifferente);
  consignes_.ponderation = nommees.empty() ? Seule(kNomPonderation, parDefaut) : Seule(taille_.question, nommees);
  if (!consignes_.ponderation) {
    constats_.Ligne("*** Attention, une pondération est demandée sans question de nom PON"_w);
    constats_.Ligne("    (ou avec une question absente de la liste)");
    constats_.Ligne("    cette demande est ignorée"_w);
  } else if (nommees.empty() && !taille_.question.empty() && !EgalSansCasse(taille_.question, kNomPonderation)) {
    constats_.Boite(
        Joindre({kAttention, "la ligne 2 demande POND="_w, taille_.question,
                 ", qu'aucune question ne porte : la pondération est celle de la question "_w, kNomPonderation}));
  } else if (!nommees.empty() && !parDefaut.empty() && nommees.front() != parDefaut.front()) {
    constats_.Ligne("*** Attention, une pondération est demandée et il y a une question nommée PON"_w);
    constats_.Ligne({"    la question marquée en 2e ligne POND="_w, taille_.question, " est prioritaire"});
  }
}

void LecteurDeConsignes::LireVits() {
  const BlocVit bloc = LireBlocVit(consignes_.pos);
  for (std::size_t i = 0; i < bloc.vits.size(); ++i) LireVit(bloc.vits[i], i + 1);
  for (const Vit& vit : bloc.vits)
    if (const ElementVit* const element = vit.PlusOublie()) Avertir("oubli de signe + ", element->ou);
}

void LecteurDeConsignes::LireVit(const Vit& vit, std::size_t numero) {
  constats_.Ligne(LigneDeVit(numero, vit.nom));
  VitDemandee demandee{vit.nom, vit.Additive(), {}};
  for (const ElementVit& element : vit.elements) LireElementVit(vit, element, demandee);
  consignes_.vits.push_back(std::move(demandee));
}

void LecteurDeConsignes::LireElementVit(const Vit& vit, const ElementVit& element, VitDemandee& demandee) {
  constats_.Ligne({"    ", element.ligne});
  if (element.sansCode) {
    Avertir(Joindre({"un élément de la nouvelle variable "_w, vit.nom}), element.ou, " n'a pas de valeur définie"_w);
    constats_.Ligne("n'a pas de valeur définie à la ligne ci-dessous"_w);
    constats_.Ligne(element.ligne);
  }
  const Indice question = Seule(element.nom, RangsDuNom(consignes_.pos.questions, element.nom));
  if (!question) {
    Avertir(Joindre({"Nom de l'element VIT non trouve =", element.nom}), element.ou);
    return;
  }
  if (!EstGardee(*question)) Avertir("un element de VIT n'est pas conserve", element.ou);
  demandee.elements.push_back({*question, element.code, element.score});
}

void LecteurDeConsignes::CompterIndividus(const Chemin& donnees) {
  consignes_.individus = AnnoncesOuComptes(consignes_.pos.taille, donnees);
  if (consignes_.pos.taille.individus <= 0) constats_.Ligne(LigneDesIndividus(consignes_.individus));
}

void LecteurDeConsignes::LireElementsFiltre() {
  if (taille_.sens == SensFiltre::Aucun || taille_.deuxSens) return;
  consignes_.sens = taille_.sens;
  const ExpressionFiltre filtre = LireFiltre(taille_.filtre);
  if (filtre.sansBlanc) {
    Avertir("expression vide dans le filtre", LigneDeux());
    return;
  }
  constats_.Ligne("Element(s) du filtre");
  for (const ElementFiltre& element : filtre.elements) LireElementFiltre(element);
}

// Those of exactly that name, as typed or in upper case; else those whose name contains it. The blanks of a filter are
// gone, so those of the names don't count.
std::vector<std::size_t> LecteurDeConsignes::QuestionsDuFiltre(const std::string& type, const std::string& nom) const {
  struct Nom {
    std::string nom;
  };
  std::vector<Nom> noms;
  for (const Question& question : consignes_.pos.questions) {
    noms.push_back({question.nom});
    std::erase(noms.back().nom, ' ');
  }
  std::vector<std::size_t> rangs = RangsDuNom(noms, type, Casse::Indifferente);
  if (!rangs.empty()) return rangs;
  for (std::size_t i = 0; i < noms.size(); ++i)
    if (!nom.empty() && Majuscules(noms[i].nom).find(nom) != std::string::npos) rangs.push_back(i);
  return rangs;
}

void LecteurDeConsignes::LireElementFiltre(const ElementFiltre& element) {
  if (element.vide) {
    Avertir("Expression vide dans le filtre", LigneDeux());
    return;
  }
  if (!element.egal) {
    Avertir("STOP : defaut de signe egal dans le filtre", LigneDeux());
    return;
  }
  const std::string nom = Majuscules(element.nom);
  if (nom != element.nom) constats_.Ligne("Le filtre a été converti en majuscules"_w);
  if (!SontChiffres(element.code)) {
    Avertir(
        Joindre({"STOP : le code '", element.code, "' de l'élément du filtre "_w, nom, " n'est pas un nombre entier"}),
        LigneDeux());
    return;
  }
  const int code = Entier16(ValeurDe(element.code));
  constats_.Ligne({nom, NombreNu(code)});
  const Indice question = Seule(nom, QuestionsDuFiltre(element.nom, nom));
  if (!question) {
    Avertir(Joindre({"STOP : Nom de l'élément du filtre non trouvé ="_w, nom}), LigneDeux());
    return;
  }
  if (!EstGardee(*question)) Avertir("STOP : un élément du filtre n'est pas conservé"_w, LigneDeux());
  consignes_.filtre.push_back({*question, code});
}

// An alphabetic question counts with its columns.
int CodeMaxPourRecodage(const Question& question) {
  return question.alphabetique ? ColonnesAlphabetiques(question.codeMax) : question.codeMax;
}

void LecteurDeConsignes::VerifierRegles() {
  const std::vector<Question>& questions = consignes_.pos.questions;
  const int codeMaxFichier =
      questions.empty() ? 0 : CodeMaxPourRecodage(*std::ranges::max_element(questions, {}, CodeMaxPourRecodage));
  for (QuestionARegle& aRegle : consignes_.aRegle) {
    const Question& question = questions[aRegle.question];
    aRegle.verifiee = VerifierRegle(LireRegle(aRegle.regle), {question.codeMax, codeMaxFichier}, UsageRegle::Moteur);
    const Lieu ou = LieuDe(aRegle.question);
    for (const FauteTrouvee& faute : aRegle.verifiee.fautes) Avertir(TexteFaute(faute, question.nom), ou);
    if (aRegle.verifiee.arret) throw Erreur(FauteSituee{TexteFaute(aRegle.verifiee.fautes.back(), question.nom), ou});
  }
}

}  // namespace

LectureDesConsignes LireConsignes(const OptionsRecodage& options, const Chemin& pos, std::string_view nomPos,
                                  const Chemin& donnees) {
  LectureDesConsignes lues;
  LecteurDeConsignes lecture(options, lues);
  try {
    lecture.DireMode();
    lecture.LireFichier(pos, nomPos);
    lecture.LireQuestions();
    lecture.ChercherPonderation();
    lecture.LireVits();
    lecture.CompterIndividus(donnees);
    lecture.LireElementsFiltre();
    lecture.VerifierRegles();
  } catch (const Erreur& erreur) {
    lues.arret = erreur;
  }
  return lues;
}

}  // namespace quelvar::sorts
