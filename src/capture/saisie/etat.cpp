#include "capture/saisie/etat.h"

#include <algorithm>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kPage = 10;  // questions that a Page key moves over
constexpr std::size_t kChiffresDeCode = 2;
constexpr int kPlusGrandeReponse = 99;  // what they can tell

// Every character that the code page prints.
bool EstImprimable(char c) {
  constexpr char kEffacement = '\x7F';  // a control among the printed ones
  return static_cast<unsigned char>(c) >= ' ' && c != kEffacement;
}

std::string ReponseVide(const DescriptionDeQuestion& question) { return EstCourte(question) ? " 0" : ""; }
std::string ReponseCourte(int code) { return EntierDroit(code, static_cast<int>(kChiffresDeCode)); }
int CodeDe(std::string_view reponse) { return static_cast<int>(ValeurDe(reponse)); }

// Columns of the field in .DAT.
std::size_t LargeurDeChamp(const DescriptionDeQuestion& question) {
  return static_cast<std::size_t>(std::max(question.Largeur(), 0));
}

// The plain decimal form of digits: no zeros in front. All of them count, however many they are.
std::string Decimale(std::string_view chiffres) {
  chiffres = Rogner(chiffres);
  const std::size_t premier = chiffres.find_first_not_of('0');
  return premier == std::string_view::npos ? "0" : std::string(chiffres.substr(premier));
}

// --- moves ---

void Aller(EtatSaisie& etat, std::size_t question) {
  etat.courante = std::min(question, etat.questions.size());
  if (!etat.SurFin()) etat.sautees[etat.courante] = 0;
}

void Reculer(EtatSaisie& etat, std::size_t questions) {
  Aller(etat, etat.courante - std::min(etat.courante, questions));
}

void Tabuler(EtatSaisie& etat) {
  std::size_t question = etat.courante;
  do ++question;
  while (question < etat.questions.size() && !etat.questions[question].tabulation);
  Aller(etat, question);
}

// --- answers ---

// Held at the bounds, where a record that was made elsewhere may be beyond them.
void Decaler(EtatSaisie& etat, int pas, SuiteDeFrappe& effet) {
  const int code = CodeDe(etat.reponses[etat.courante]) + pas;
  const int tenu = std::clamp(code, 0, etat.Courante().nombre);
  effet.bip = tenu != code;
  etat.reponses[etat.courante] = ReponseCourte(tenu);
}

// A digit on a short numeric question: it is the answer, or its second digit when the first one waits for it.
void RepondreDirectement(EtatSaisie& etat, int chiffre, bool attendu, SuiteDeFrappe& effet) {
  const int codeMax = etat.Courante().nombre;
  const int code = attendu ? 10 * CodeDe(etat.reponses[etat.courante]) + chiffre : chiffre;
  if (code > codeMax) {
    effet.bip = true;
    etat.chiffreAttendu = attendu;
    return;
  }
  etat.reponses[etat.courante] = ReponseCourte(code);
  if (!attendu && codeMax >= 10 && 10 * code <= codeMax) etat.chiffreAttendu = true;
  else Aller(etat, etat.courante + 1);
}

void Ecrire(EtatSaisie& etat, char caractere, SuiteDeFrappe& effet) {
  const DescriptionDeQuestion& question = etat.Courante();
  if (EstLongue(question) && !EstChiffre(caractere)) return;
  std::string& reponse = etat.reponses[etat.courante];
  // A long number left and come back to has its blanks behind it; the 0 that a look at nothing made is no digit typed.
  if (EstLongue(question)) reponse = reponse.starts_with("0 ") ? std::string() : std::string(RognerDroite(reponse));
  reponse += etat.majuscules ? Majuscule(caractere) : Minuscule(caractere);
  if (reponse.size() <= LargeurDeChamp(question)) return;
  effet.bip = true;
  reponse.resize(LargeurDeChamp(question));
}

void EcrireCaractere(EtatSaisie& etat, char caractere, bool chiffreAttendu, SuiteDeFrappe& effet) {
  if (!EstImprimable(caractere)) return;
  if (!EstCourte(etat.Courante())) Ecrire(etat, caractere, effet);
  else if (etat.directe && EstChiffre(caractere)) RepondreDirectement(etat, caractere - '0', chiffreAttendu, effet);
}

void Effacer(EtatSaisie& etat, bool tout) {
  const DescriptionDeQuestion& question = etat.Courante();
  std::string& reponse = etat.reponses[etat.courante];
  if (EstCourte(question) || tout) {
    reponse = ReponseVide(question);
    return;
  }
  if (EstLongue(question)) reponse = RognerDroite(reponse);
  if (!reponse.empty()) reponse.pop_back();
}

// Keys that change an answer; none of them does anything on the end mark.
void Modifier(EtatSaisie& etat, Touche touche, bool chiffreAttendu, SuiteDeFrappe& effet) {
  if (etat.SurFin()) return;
  switch (touche.nom) {
    case NomDeTouche::Gauche:
      if (EstCourte(etat.Courante())) Decaler(etat, -1, effet);
      break;
    case NomDeTouche::Droite:
      if (EstCourte(etat.Courante())) Decaler(etat, +1, effet);
      else effet.bip = true;
      break;
    case NomDeTouche::Retour: Effacer(etat, false); break;
    case NomDeTouche::Suppr: Effacer(etat, true); break;
    default: EcrireCaractere(etat, touche.caractere, chiffreAttendu, effet); break;
  }
}

// --- what every key ends with ---

bool Satisfait(const SautConditionnel& saut, std::string_view reponse) {
  const double valeur = ValeurDe(reponse);
  const double seuil = ValeurDe(saut.valeur);
  return saut.signe == '<' ? valeur < seuil : saut.signe == '>' ? valeur > seuil : valeur == seuil;
}

// The look at the question before the current one: its jump, and the plain form of a long number.
void RegarderPrecedente(EtatSaisie& etat) {
  if (etat.courante == 0) return;
  const std::size_t precedente = etat.courante - 1;
  const DescriptionDeQuestion& question = etat.questions[precedente];
  std::string& reponse = etat.reponses[precedente];
  const bool inchangee = etat.corrige && reponse == etat.reponsesCorrigees[precedente];
  if (EstLongue(question) && etat.sautees[precedente] == 0 && !inchangee)
    reponse = CadreGauche(Decimale(reponse), static_cast<int>(LargeurDeChamp(question)));
  if (!question.saut || etat.sautsFaits[precedente] != 0 || !Satisfait(*question.saut, reponse)) return;
  etat.sautsFaits[precedente] = 1;
  const std::size_t arrivee = etat.courante + static_cast<std::size_t>(std::max(question.saut->nombre - 1, 0));
  for (std::size_t i = etat.courante; i < std::min(arrivee, etat.questions.size()); ++i) etat.sautees[i] = 1;
  Aller(etat, arrivee);
}

}  // namespace

EtatSaisie NouvelleSaisie(const Descripteur& descripteur, std::int64_t faits) {
  EtatSaisie etat;
  etat.questions = descripteur.descriptions;
  if (!etat.questions.empty()) etat.questions.front().tabulation = true;
  etat.faits = faits;
  RecommencerIndividu(etat);
  return etat;
}

void RecommencerIndividu(EtatSaisie& etat) {
  etat.reponses.clear();
  for (const DescriptionDeQuestion& question : etat.questions) etat.reponses.push_back(ReponseVide(question));
  etat.sautsFaits.assign(etat.questions.size(), 0);
  etat.sautees.assign(etat.questions.size(), 0);
  etat.corrige.reset();
  etat.chiffreAttendu = false;
  etat.courante = 0;
}

SuiteDeFrappe Frapper(EtatSaisie& etat, Touche touche) {
  SuiteDeFrappe effet;
  etat.message.clear();
  const bool chiffreAttendu = std::exchange(etat.chiffreAttendu, false);
  switch (touche.nom) {
    case NomDeTouche::Entree: effet.demande = DemandeDeSaisie::Enregistrer; return effet;
    case NomDeTouche::Echappement:
      if (!etat.corrige) effet.demande = DemandeDeSaisie::Quitter;
      else if (EstEntame(etat)) effet.demande = DemandeDeSaisie::LaisserLaCorrection;
      else RecommencerIndividu(etat);
      return effet;
    case NomDeTouche::VerrMaj:
      etat.majuscules = !etat.majuscules;
      etat.chiffreAttendu = chiffreAttendu;
      break;
    case NomDeTouche::Tabulation:
    case NomDeTouche::Fin: Tabuler(etat); break;
    case NomDeTouche::PageSuivante: Aller(etat, etat.courante + kPage); break;
    case NomDeTouche::PagePrecedente: Reculer(etat, kPage); break;
    case NomDeTouche::Bas: Aller(etat, etat.courante + 1); break;
    case NomDeTouche::Haut: Reculer(etat, 1); break;
    default: Modifier(etat, touche, chiffreAttendu, effet); break;
  }
  RegarderPrecedente(etat);
  return effet;
}

bool EstEntame(const EtatSaisie& etat) {
  return etat.corrige ? etat.reponses != etat.reponsesCorrigees : Enregistrement(etat).has_value();
}

bool EstVide(const DescriptionDeQuestion& question, std::string_view reponse) {
  if (EstCourte(question)) return ValeurDe(reponse) == 0;
  if (EstLongue(question)) return Decimale(reponse) == "0";
  return Rogner(reponse).empty();
}

std::optional<std::string> Enregistrement(const EtatSaisie& etat) {
  std::string ligne;
  bool vide = true;
  for (std::size_t i = 0; i < etat.questions.size(); ++i) {
    const DescriptionDeQuestion& question = etat.questions[i];
    const std::string& reponse = etat.reponses[i];
    const auto largeur = static_cast<int>(LargeurDeChamp(question));
    vide = vide && EstVide(question, reponse);
    if (etat.corrige && reponse == etat.reponsesCorrigees[i])
      ligne += CadreGauche(Milieu(etat.ligneCorrigee, ligne.size() + 1), largeur);
    else ligne += EstCourte(question) ? EntierDroit(CodeDe(reponse), largeur) : CadreGauche(reponse, largeur);
  }
  if (vide) return std::nullopt;
  if (etat.corrige) ligne += Milieu(etat.ligneCorrigee, ligne.size() + 1);
  return ligne;
}

void PrendreEnregistrement(EtatSaisie& etat, std::int64_t numero, std::string_view ligne) {
  RecommencerIndividu(etat);
  std::size_t debut = 0;
  for (std::size_t i = 0; i < etat.questions.size(); ++i) {
    const DescriptionDeQuestion& question = etat.questions[i];
    const std::size_t largeur = LargeurDeChamp(question);
    const std::string_view champ = Milieu(ligne, debut + 1, largeur);
    debut += largeur;
    // Whatever the field holds, a code has its two characters; the line itself is kept for what nobody changes.
    if (EstCourte(question)) etat.reponses[i] = ReponseCourte(std::clamp(CodeDe(champ), 0, kPlusGrandeReponse));
    else etat.reponses[i] = RognerDroite(champ);
  }
  etat.corrige = numero;
  etat.ligneCorrigee = ligne;
  etat.reponsesCorrigees = etat.reponses;
}

bool Repondre(EtatSaisie& etat, std::size_t question, std::string_view reponse) {
  const DescriptionDeQuestion& description = etat.questions[question];
  if (!EstCourte(description)) {
    const bool chiffres = std::all_of(reponse.begin(), reponse.end(), EstChiffre);
    if (reponse.size() > LargeurDeChamp(description) || (EstLongue(description) && !chiffres) ||
        !std::all_of(reponse.begin(), reponse.end(), EstImprimable))
      return false;
    etat.reponses[question] = reponse;
    return true;
  }
  reponse = Rogner(reponse);
  if (reponse.size() > kChiffresDeCode || !std::all_of(reponse.begin(), reponse.end(), EstChiffre)) return false;
  const int code = CodeDe(reponse);
  if (code > description.nombre) return false;
  etat.reponses[question] = ReponseCourte(code);
  return true;
}

}  // namespace quelvar::capture
