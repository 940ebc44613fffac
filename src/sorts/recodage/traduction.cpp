#include "sorts/recodage/traduction.h"

#include <cstring>
#include <limits>
#include <string>

namespace quelvar::sorts {

namespace {

constexpr std::string_view kLettresLiberees = "XYZTU";
constexpr std::size_t kBloc = 16;                 // bytes compared at once
constexpr unsigned char kToutChiffrePasse = 255;  // largest "digit" of a column that nothing is asked of

TexteCode TexteDuCode(const ChampNeuf& champ, int code) {
  TexteCode texte{' ', ' ', ' ', ' '};
  const std::string chiffres = Nombre(code);
  std::copy(chiffres.begin(), chiffres.end(),
            texte.begin() + (champ.largeur - static_cast<std::ptrdiff_t>(chiffres.size())));
  kLettresLiberees.copy(texte.data() + champ.largeur, static_cast<std::size_t>(champ.liberees));
  return texte;
}

bool GardeTout(const ChampNeuf& champ) {
  for (std::size_t code = 0; code < champ.table.size(); ++code)
    if (champ.table[code] != static_cast<int>(code)) return false;
  return true;
}

}  // namespace

Traduction::Traduction(const Consignes& consignes, const PlanDeRecodage& plan)
    : consignes_(consignes), lus_(ChampsDe(consignes.pos)), sens_(consignes.sens) {
  const std::vector<Question>& questions = consignes.pos.questions;
  alignee_ = consignes.mode == ModeRecodage::EnFin || !plan.vits.empty();
  base_ = static_cast<std::size_t>(plan.longueur);
  for (const ChampNeuf& champ : plan.champs) {
    PreparerChamp(questions[champ.question], champ);
    surveilles_.emplace_back(champ.question, Apres(champ.question, plan));
    if (consignes.mode != ModeRecodage::SurPlace) ajoutees_ += static_cast<std::size_t>(champ.largeur);
  }
  for (const VitNeuve& vit : plan.vits) PreparerVit(consignes.vits[vit.demandee], vit, plan);
  for (const VitDemandee& vit : consignes.vits)
    for (const Comparaison& c : vit.elements) Surveiller(c.question, plan);
  for (const Comparaison& c : consignes.filtre) {
    filtre_.push_back({Apres(c.question, plan), c.code, 1});
    Surveiller(c.question, plan);
  }
  if (consignes.ponderation) {
    const Question& question = questions[*consignes.ponderation];
    ponderee_ = true;
    poids_ = Apres(*consignes.ponderation, plan);
    if (question.alphabetique) {
      poids_.champ.largeur = static_cast<std::uint32_t>(ColonnesAlphabetiques(question.codeMax));
      poids_.codeMax = std::numeric_limits<int>::max();
    } else {
      Surveiller(*consignes.ponderation, plan);
    }
  }
  utile_ = std::max<std::size_t>(LongueurUtile(lus_), poids_.champ.debut + poids_.champ.largeur);
  lue_ = (utile_ + kBloc - 1) / kBloc * kBloc;
  maxima_.resize(lue_, kToutChiffrePasse);
}

ValeurApres Traduction::Apres(std::size_t question, const PlanDeRecodage& plan) const {
  const auto champ = std::ranges::find(plan.champs, question, &ChampNeuf::question);
  const int codeMax = std::max(consignes_.pos.questions[question].codeMax, 0);
  return {lus_[question], codeMax, champ == plan.champs.end() ? nullptr : &champ->table};
}

// A value above its code-max counts for 0 in a filter, a VIT or a weighting as it does in a rule, and is told like it.
void Traduction::Surveiller(std::size_t question, const PlanDeRecodage& plan) {
  const auto meme = [question](const auto& lue) { return lue.first == question; };
  if (std::ranges::any_of(surveilles_, meme) || std::ranges::any_of(lues_, meme)) return;
  lues_.emplace_back(question, Apres(question, plan));
}

// Questions with the same table share their answers: most questions of a survey have one of a few code-maxes.
const char* Traduction::Reponses(const ChampNeuf& champ) {
  const auto [place, nouvelle] = reponses_.try_emplace(champ.table);
  if (nouvelle) {
    for (unsigned octet = 0; octet < kOctets; ++octet) {
      const std::size_t code = ValeursDUnOctet()[octet];
      place->second[octet] = code < champ.table.size() ? TexteDuCode(champ, champ.table[code])[0] : '\0';
    }
  }
  return place->second.data();
}

void Traduction::PreparerChamp(const Question& question, const ChampNeuf& champ) {
  const Champ source = lus_[champ.question];
  const auto sortie = static_cast<std::uint32_t>(champ.position - 1);
  const auto largeur = static_cast<std::uint32_t>(champ.largeur + champ.liberees);
  finDesChamps_ = std::max<std::size_t>(finDesChamps_, sortie + largeur);
  if (source.largeur == 1 && champ.largeur == 1) {
    const bool garde = consignes_.mode == ModeRecodage::SurPlace && GardeTout(champ);
    if (garde) {
      if (maxima_.size() <= sortie) maxima_.resize(sortie + 1, kToutChiffrePasse);
      maxima_[sortie] = static_cast<unsigned char>(std::max(question.codeMax, 0));
    }
    (garde ? gardes_ : octets_).push_back({source.debut, sortie, Reponses(champ)});
    return;
  }
  std::vector<TexteCode>& textes = textes_.emplace_back();
  for (const int code : champ.table) textes.push_back(TexteDuCode(champ, code));
  codes_.push_back({source, sortie, largeur, std::max(question.codeMax, 0), textes.data()});
}

void Traduction::PreparerVit(const VitDemandee& demandee, const VitNeuve& vit, const PlanDeRecodage& plan) {
  VitCompilee compilee{demandee.additive, {}, static_cast<std::uint32_t>(vit.position - 1), vit.largeur};
  for (const Comparaison& c : demandee.elements) compilee.termes.push_back({Apres(c.question, plan), c.code, c.score});
  vits_.push_back(std::move(compilee));
  ajoutees_ += static_cast<std::size_t>(vit.largeur);
}

// Puts the line that the fields are patched into in its place; returns its length.
std::size_t Traduction::Copier(const char* individu, std::size_t longueur) {
  std::size_t copiee = 0;
  if (consignes_.mode != ModeRecodage::Seules) {
    copiee = alignee_ ? std::min(std::max(longueur, utile_), base_) : std::max(longueur, finDesChamps_);
  }
  const std::size_t totale = alignee_ || copiee == 0 ? base_ + ajoutees_ : copiee;
  if (ligne_.size() < totale + 2) ligne_.resize(totale + 2);
  std::memcpy(ligne_.data(), individu, copiee);
  std::fill(ligne_.begin() + static_cast<std::ptrdiff_t>(copiee), ligne_.begin() + static_cast<std::ptrdiff_t>(totale),
            ' ');
  return totale;
}

// True when every field of gardes_ holds a digit up to its code-max: the copied line needs no patch there.
bool Traduction::Inchangee(const char* individu) const {
  for (std::size_t bloc = 0; bloc < maxima_.size(); bloc += kBloc) {
    unsigned char hors = 0;
    for (std::size_t i = bloc; i < bloc + kBloc; ++i) {
      const auto chiffre = static_cast<unsigned char>(individu[i] - '0');
      hors = static_cast<unsigned char>(hors | (chiffre > maxima_[i] ? 1 : 0));
    }
    if (hors != 0) return false;
  }
  return true;
}

// Patches fields of one byte; true when a value is above its code-max.
bool Traduction::Repondre(const std::vector<ChampOctet>& champs, const char* individu) {
  char* ligne = ligne_.data();
  bool depasse = false;
  for (const ChampOctet& champ : champs) {
    char reponse = champ.reponses[static_cast<unsigned char>(individu[champ.source])];
    if (reponse == '\0') [[unlikely]] {
      reponse = champ.reponses[static_cast<unsigned char>('0')];
      depasse = true;
    }
    ligne[champ.sortie] = reponse;
  }
  return depasse;
}

// Patches the recoded fields; true when a value is above its code-max.
bool Traduction::Recoder(const char* individu) {
  bool depasse = Repondre(octets_, individu);
  if (!Inchangee(individu)) depasse = Repondre(gardes_, individu) || depasse;
  char* ligne = ligne_.data();
  for (const ChampCode& champ : codes_) {
    int code = LireChampInterieur(individu, champ.source);
    if (code > champ.codeMax || code < 0) [[unlikely]] {
      depasse = depasse || code > 0;
      code = 0;
    }
    std::memcpy(ligne + champ.sortie, champ.textes[code].data(), champ.largeur);
  }
  return depasse;
}

void Traduction::AjouterScore(std::size_t indice, const char* individu, std::int64_t numero,
                              const TemoinsDePasse& temoins) {
  const VitCompilee& vit = vits_[indice];
  int score = vit.Score(individu);
  if (score > kCodeMaximum) {
    temoins.scoreTropGrand(indice, numero);
    score = kCodeMaximum;
  }
  char* fin = ligne_.data() + vit.sortie + vit.largeur;
  do {
    *--fin = static_cast<char>('0' + score % 10);
    score /= 10;
  } while (score > 0);
}

std::string_view Traduction::Traduire(const char* individu, std::size_t longueur, std::int64_t numero,
                                      const TemoinsDePasse& temoins) {
  const std::size_t totale = Copier(individu, longueur);
  if (Recoder(individu)) [[unlikely]] {
    for (const auto& [question, valeur] : surveilles_)
      if (valeur.Depasse(individu)) temoins.depassement(question, numero);
  }
  for (const auto& [question, valeur] : lues_)
    if (valeur.Depasse(individu)) temoins.depassement(question, numero);
  for (std::size_t i = 0; i < vits_.size(); ++i) AjouterScore(i, individu, numero, temoins);
  ligne_[totale] = '\r';
  ligne_[totale + 1] = '\n';
  return {ligne_.data(), totale + 2};
}

}  // namespace quelvar::sorts
