#include "text/decoupage/mots.h"

#include <algorithm>
#include <cstring>

#include "core/texte/texte.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

namespace {

// At most `largeur` bytes of the text, then the filling.
char* Poser(char* place, std::string_view texte, std::size_t largeur) {
  const std::size_t pris = std::min(texte.size(), largeur);
  std::memcpy(place, texte.data(), pris);
  std::memset(place + pris, ' ', largeur - pris);
  return place + largeur;
}

std::string_view StimulusDe(const Gabarit& gabarit, std::string_view caracteristiques, std::string_view mot) {
  switch (gabarit.mode) {
    case ModeStimulus::Aucun: return {};
    case ModeStimulus::CaracteristiqueReportee:
    case ModeStimulus::Caracteristique: return Milieu(caracteristiques, gabarit.positionStimulus, 1);
    case ModeStimulus::FinDeMot:
    case ModeStimulus::FinDeMotSupprimee: break;
  }
  return mot.substr(mot.size() - 1);
}

}  // namespace

Concordance::Concordance(const Corpus& corpus, const Mot& mot) : gabarit_(corpus.gabarit) {
  const std::string_view enregistrement = corpus.Enregistrement(mot);
  caracteristiques_ = enregistrement.substr(0, gabarit_.caracteristiques);
  texte_ = enregistrement.substr(gabarit_.caracteristiques);
  place_ = mot.place - gabarit_.caracteristiques;
  mot_ = texte_.substr(place_, mot.longueur);
  stimulus_ = StimulusDe(gabarit_, caracteristiques_, mot_);
  if (gabarit_.mode == ModeStimulus::FinDeMotSupprimee) mot_.remove_suffix(1);
  longueur_ = mot_.size() + (gabarit_.mode == ModeStimulus::CaracteristiqueReportee ? stimulus_.size() : 0);
}

char* Concordance::EcrireMotLu(char* place) const {
  char* fin = Poser(place, mot_, kLargeurMot);
  if (gabarit_.mode == ModeStimulus::CaracteristiqueReportee && mot_.size() < kLargeurMot && !stimulus_.empty())
    place[mot_.size()] = stimulus_.front();
  return fin;
}

char* Concordance::EcrireMot(char* place) const {
  char* fin = EcrireMotLu(place);
  if (gabarit_.themes && *place == '$') *place = '_';
  return fin;
}

char* Concordance::EcrireCaracteristiques(char* place) const {
  place = Poser(place, caracteristiques_, gabarit_.caracteristiques);
  return gabarit_.StimulusEnFin() ? Poser(place, stimulus_, 1) : place;
}

char* Concordance::EcrireGauche(char* place) const {
  constexpr std::size_t kTexte = kContexteGauche - 1;
  std::string_view avant = RognerDroite(texte_.substr(0, place_));
  if (avant.size() > kTexte) avant.remove_prefix(avant.size() - kTexte);
  std::memset(place, '*', kTexte - avant.size());
  std::memcpy(place + (kTexte - avant.size()), avant.data(), avant.size());
  place[kTexte] = ' ';
  return place + kContexteGauche;
}

char* Concordance::EcrireDroite(char* place) const { return Poser(place, texte_.substr(place_), kContexteDroit); }

std::size_t LongueurConcordance(const Gabarit& gabarit) {
  return kLargeurMot + gabarit.Largeur() + kContexteGauche + kContexteDroit;
}

std::size_t LongueurDonnees(const Gabarit& gabarit) {
  return gabarit.Largeur() + kLargeurCode + kLargeurMot + kFinDeMot.size() + kContexteGauche + kContexteDroit;
}

}  // namespace quelvar::text
