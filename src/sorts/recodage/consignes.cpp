#include "sorts/recodage/consignes.h"

#include <algorithm>

#include "core/enquete/datfile.h"
#include "core/enquete/noms.h"
#include "core/texte/nombres.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

using Indice = std::optional<std::size_t>;

// The reading in progress: each step adds to the instructions and writes its part of the report.
class Lecture {
 public:
  Lecture(const Contexte& contexte, const OptionsRecodage& options, Avertisseur& avertisseur)
      : contexte_(contexte), options_(options), avertisseur_(avertisseur), feuille_(avertisseur.Feuille()) {}

  void EcrireMode();
  void LireFichier(const Chemin& chemin);
  void LireQuestions();
  void ChercherPonderation();
  void LireVits();
  void CompterIndividus(const Chemin& donnees);
  void LireElementsFiltre();
  void VerifierRegles();

  Consignes Resultat() { return std::move(consignes_); }

 private:
  void ExigerIntitule(const Question& question);
  void AnnoncerAlphabetique(const Question& question);
  void LireVit(const Vit& vit, std::size_t numero);
  void LireElementVit(const Vit& vit, const ElementVit& element, VitDemandee& demandee);
  void LireElementFiltre(const ElementFiltre& element);
  Indice Seule(std::string_view nom, const std::vector<std::size_t>& rangs);
  std::vector<std::size_t> QuestionsDuFiltre(const std::string& type, const std::string& nom) const;
  bool EstGardee(std::size_t question) const;

  const Contexte& contexte_;
  const OptionsRecodage& options_;
  Avertisseur& avertisseur_;
  Rapport& feuille_;
  Consignes consignes_;
  ConsignesTaille taille_;
};

void Lecture::EcrireMode() {
  if (options_.seules) {
    consignes_.mode = ModeRecodage::Seules;
    feuille_.Ligne("Seules les variables recodees ou selectionnees sont conservees");
  } else {
    feuille_.Ligne("Toutes les variables sont conservees");
    if (options_.enFin) {
      consignes_.mode = ModeRecodage::EnFin;
      feuille_.Ligne("et les recodees sont mises en fin de fichier");
    }
  }
  feuille_.Ligne();
}

void Lecture::LireFichier(const Chemin& chemin) {
  feuille_.Ligne({"Impression des 2 premieres lignes de ", contexte_.Nom(".POS")});
  consignes_.pos = LirePos(chemin);
  feuille_.Ligne(consignes_.pos.titre);
  feuille_.Ligne(consignes_.pos.taille.texte);
  feuille_.Ligne();
  ExigerParentheses(consignes_.pos.taille, contexte_.Ecran());
  taille_ = LireConsignesTaille(consignes_.pos.taille.texte);
  if (taille_.deuxSens) avertisseur_.Avertir("Inclure et exclure presents en meme temps");
  consignes_.maximum = taille_.maximum;
}

void Lecture::ExigerIntitule(const Question& question) {
  if (!question.intituleOuvert) return;
  const std::string faute = FauteIntitule(question);
  contexte_.Ecran().demander(Joindre({faute, kCorrigezRelancez}), Boutons::Ok);
  avertisseur_.Avertir(faute);
}

void Lecture::AnnoncerAlphabetique(const Question& question) {
  feuille_.Ligne("*** Attention***");
  feuille_.Ligne({question.nom, " est une question alphabétique qui n'est pas susceptible de recodage"_w});
  feuille_.Ligne();
}

void Lecture::LireQuestions() {
  const std::vector<Question>& questions = consignes_.pos.questions;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const Question& question = questions[i];
    if (i == kQuestionsMaximum) {
      avertisseur_.Avertir("Plus de questions que le maximum possible");
      feuille_.Ligne("Arret pour trop de questions");
      throw Erreur(kArretAnnonce);
    }
    ExigerIntitule(question);
    if (question.alphabetique) {
      AnnoncerAlphabetique(question);
      continue;
    }
    // What follows a label that is not closed can't be told from the label.
    std::string regle = question.intituleOuvert ? std::string() : question.regle;
    if (regle.empty() && options_.toutesSelectionnees) regle = "S";
    if (!regle.empty()) consignes_.aRegle.push_back({i, std::move(regle), {}});
  }
  feuille_.Ligne({"Il y a ", NombreNu(questions.size()), " questions"});
  feuille_.Ligne();
}

// The question found, if there is one; a name that several share is a fault.
Indice Lecture::Seule(std::string_view nom, const std::vector<std::size_t>& rangs) {
  if (rangs.empty()) return std::nullopt;
  if (rangs.size() > 1) avertisseur_.Avertir(FauteHomonymes(nom, consignes_.pos.questions, rangs));
  return rangs.front();
}

bool Lecture::EstGardee(std::size_t question) const {
  return consignes_.mode != ModeRecodage::Seules ||
         std::ranges::find(consignes_.aRegle, question, &QuestionARegle::question) != consignes_.aRegle.end();
}

void Lecture::ChercherPonderation() {
  if (!taille_.ponderation) return;
  const auto& questions = consignes_.pos.questions;
  const std::vector<std::size_t> nommees = RangsDuNom(questions, taille_.commeTapee, Casse::Indifferente);
  const std::vector<std::size_t> parDefaut = RangsDuNom(questions, kNomPonderation, Casse::Indifferente);
  consignes_.ponderation = nommees.empty() ? Seule(kNomPonderation, parDefaut) : Seule(taille_.question, nommees);
  if (!consignes_.ponderation) {
    feuille_.Ligne("*** Attention, une pondération est demandée sans question de nom PON"_w);
    feuille_.Ligne("    (ou avec une question absente de la liste)");
    feuille_.Ligne("    cette demande est ignorée"_w);
  } else if (!nommees.empty() && !parDefaut.empty() && nommees.front() != parDefaut.front()) {
    feuille_.Ligne("*** Attention, une pondération est demandée et il y a une question nommée PON"_w);
    feuille_.Ligne({"    la question marquée en 2e ligne POND="_w, taille_.question, " est prioritaire"});
  }
}

void Lecture::LireVits() {
  if (consignes_.pos.fin != FinDeListe::Dollars) return;
  const BlocVit bloc = LireBlocVit(std::span(consignes_.pos.lignes).subspan(consignes_.pos.premiereApres));
  for (std::size_t i = 0; i < bloc.vits.size(); ++i) LireVit(bloc.vits[i], i + 1);
  for (const Vit& vit : bloc.vits)
    if (vit.PlusOublie()) avertisseur_.Avertir("oubli de signe + ");
}

void Lecture::LireVit(const Vit& vit, std::size_t numero) {
  feuille_.Ligne(
      {"VIT numero ", EntierDroit(static_cast<std::int64_t>(numero), 2), " de nom ", CadreGauche(vit.nom, 4)});
  VitDemandee demandee{vit.nom, vit.Additive(), {}};
  for (const ElementVit& element : vit.elements) LireElementVit(vit, element, demandee);
  consignes_.vits.push_back(std::move(demandee));
}

void Lecture::LireElementVit(const Vit& vit, const ElementVit& element, VitDemandee& demandee) {
  feuille_.Ligne({"    ", element.ligne});
  if (element.sansCode) {
    avertisseur_.Avertir(Joindre({"un élément de la nouvelle variable "_w, vit.nom}));
    feuille_.Ligne("n'a pas de valeur définie à la ligne ci-dessous"_w);
    feuille_.Ligne(element.ligne);
  }
  const Indice question = Seule(element.nom, RangsDuNom(consignes_.pos.questions, element.nom));
  if (!question) {
    avertisseur_.Avertir(Joindre({"Nom de l'element VIT non trouve =", element.nom}));
    return;
  }
  if (!EstGardee(*question)) avertisseur_.Avertir("un element de VIT n'est pas conserve");
  demandee.elements.push_back({*question, element.code, element.score});
}

void Lecture::CompterIndividus(const Chemin& donnees) {
  consignes_.individus = AnnoncesOuComptes(consignes_.pos.taille, donnees);
  if (consignes_.pos.taille.individus <= 0) feuille_.Ligne(LigneDesIndividus(consignes_.individus));
}

void Lecture::LireElementsFiltre() {
  if (taille_.sens == SensFiltre::Aucun || taille_.deuxSens) return;
  consignes_.sens = taille_.sens;
  const ExpressionFiltre filtre = LireFiltre(taille_.filtre);
  if (filtre.sansBlanc) {
    avertisseur_.Avertir("expression vide dans le filtre");
    return;
  }
  feuille_.Ligne("Element(s) du filtre");
  for (const ElementFiltre& element : filtre.elements) LireElementFiltre(element);
}

// Those of exactly that name, as typed or in upper case; else those whose name contains it. The blanks of a filter are
// gone, so those of the names don't count.
std::vector<std::size_t> Lecture::QuestionsDuFiltre(const std::string& type, const std::string& nom) const {
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

void Lecture::LireElementFiltre(const ElementFiltre& element) {
  if (element.vide) {
    avertisseur_.Avertir("Expression vide dans le filtre");
    return;
  }
  if (!element.egal) {
    avertisseur_.Avertir("STOP : defaut de signe egal dans le filtre");
    return;
  }
  const std::string nom = Majuscules(element.nom);
  if (nom != element.nom) feuille_.Ligne("Le filtre a été converti en majuscules"_w);
  if (element.code.empty() || element.code.find_first_not_of("0123456789") != std::string::npos) {
    avertisseur_.Avertir(
        Joindre({"STOP : le code '", element.code, "' de l'élément du filtre "_w, nom, " n'est pas un nombre entier"}));
    return;
  }
  const int code = Entier16(ValeurDe(element.code));
  feuille_.Ligne({nom, NombreNu(code)});
  const Indice question = Seule(nom, QuestionsDuFiltre(element.nom, nom));
  if (!question) {
    avertisseur_.Avertir(Joindre({"STOP : Nom de l'élément du filtre non trouvé ="_w, nom}));
    return;
  }
  if (!EstGardee(*question)) avertisseur_.Avertir("STOP : un élément du filtre n'est pas conservé"_w);
  consignes_.filtre.push_back({*question, code});
}

// An alphabetic question counts with its columns.
int CodeMaxPourRecodage(const Question& question) {
  return question.alphabetique ? ColonnesAlphabetiques(question.codeMax) : question.codeMax;
}

void Lecture::VerifierRegles() {
  const std::vector<Question>& questions = consignes_.pos.questions;
  const int codeMaxFichier =
      questions.empty() ? 0 : CodeMaxPourRecodage(*std::ranges::max_element(questions, {}, CodeMaxPourRecodage));
  for (QuestionARegle& aRegle : consignes_.aRegle) {
    const Question& question = questions[aRegle.question];
    aRegle.verifiee = VerifierRegle(LireRegle(aRegle.regle), {question.codeMax, codeMaxFichier}, UsageRegle::Moteur);
    for (const FauteTrouvee& faute : aRegle.verifiee.fautes) avertisseur_.Avertir(TexteFaute(faute, question.nom));
    if (aRegle.verifiee.arret) throw Erreur(kArretAnnonce);
  }
}

}  // namespace

Consignes LireConsignes(const Contexte& contexte, const OptionsRecodage& options, const Chemin& pos,
                        const Chemin& donnees, Avertisseur& avertisseur) {
  Lecture lecture(contexte, options, avertisseur);
  lecture.EcrireMode();
  lecture.LireFichier(pos);
  lecture.LireQuestions();
  lecture.ChercherPonderation();
  lecture.LireVits();
  lecture.CompterIndividus(donnees);
  lecture.LireElementsFiltre();
  lecture.VerifierRegles();
  return lecture.Resultat();
}

}  // namespace quelvar::sorts
