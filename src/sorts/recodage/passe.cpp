#include "sorts/recodage/passe.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "core/texte/nombres.h"

namespace quelvar::sorts {

namespace {

constexpr std::string_view kLettresLiberees = "XYZTU";
constexpr std::size_t kCases = 256;
constexpr std::size_t kBloc = 16;  // bytes compared at once

// What stands in a field after the recoding: the new code, and the letters of the columns that it frees.
using TexteCode = std::array<char, 4>;

// A field of one byte that stays one byte: each byte has its answer, 0 for a value above the code-max.
struct ChampOctet {
  std::uint32_t source = 0;
  std::uint32_t sortie = 0;
  const char* reponses = nullptr;
};

// Any other field: the code is decoded, and its text copied.
struct ChampCode {
  Champ source;
  std::uint32_t sortie = 0;
  std::uint32_t largeur = 1;
  int codeMax = 0;
  const TexteCode* textes = nullptr;
};

// A value after the recoding.
struct ValeurApres {
  Champ champ;
  int codeMax = 0;
  const std::vector<int>* table = nullptr;  // none for a question without a rule

  int Lire(const char* individu) const {
    const int ancien = Ancien(individu);
    const int code = ancien < 0 || ancien > codeMax ? 0 : ancien;
    return table == nullptr ? code : (*table)[static_cast<std::size_t>(code)];
  }
  bool Depasse(const char* individu) const { return Ancien(individu) > codeMax; }

 private:
  int Ancien(const char* individu) const { return LireChampInterieur(individu, champ); }
};

struct Terme {
  ValeurApres valeur;
  int code = 0;
  int score = 1;
};

struct VitCompilee {
  bool additive = false;
  std::vector<Terme> termes;
  std::uint32_t sortie = 0;
  int largeur = 1;

  int Score(const char* individu) const {
    int score = 0;
    for (const Terme& terme : termes) {
      const int valeur = terme.valeur.Lire(individu);
      if (additive) score += valeur;
      else if (valeur == terme.code) score += terme.score;
    }
    return std::max(score, 0);
  }
};

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

// The instructions and the plan of a run, made ready for the lines.
class Traduction {
 public:
  Traduction(const Consignes& consignes, const Plan& plan);

  // Bytes that every line must be given.
  std::size_t LongueurLue() const { return lue_; }

  bool Retenu(const char* individu) const {
    if (sens_ == SensFiltre::Aucun) return true;
    const bool tous =
        std::all_of(filtre_.begin(), filtre_.end(), [&](const Terme& t) { return t.valeur.Lire(individu) == t.code; });
    return tous == (sens_ == SensFiltre::Inclure);
  }

  // Times that the individual is written.
  std::int64_t Poids(const char* individu) const {
    if (!ponderee_) return 1;
    if (poids_.table != nullptr) return std::max(poids_.Lire(individu), 0);
    const std::string_view champ(individu + poids_.champ.debut, poids_.champ.largeur);
    const int poids = Entier32(ValeurDe(champ));
    return poids < 0 || poids > poids_.codeMax ? 0 : poids;
  }

  // The new line, with its end, as a view that lives until the next call.
  std::string_view Traduire(const char* individu, std::size_t longueur, std::int64_t numero,
                            const TemoinsDePasse& temoins);

 private:
  void PreparerChamp(const Question& question, const ChampNeuf& champ);
  void PreparerVit(const VitDemandee& demandee, const VitNeuve& vit, const Plan& plan);
  ValeurApres Apres(std::size_t question, const Plan& plan) const;
  const char* Reponses(const ChampNeuf& champ);
  std::size_t Copier(const char* individu, std::size_t longueur);
  bool Recoder(const char* individu);
  void Surveiller(std::size_t question, const Plan& plan);
  bool Repondre(const std::vector<ChampOctet>& champs, const char* individu);
  bool Inchangee(const char* individu) const;
  void AjouterScore(std::size_t indice, const char* individu, std::int64_t numero, const TemoinsDePasse& temoins);

  const Consignes& consignes_;
  std::vector<Champ> lus_;  // fields of the questions
  std::vector<ChampOctet> octets_;
  std::vector<ChampOctet> gardes_;     // in place, with every code kept: nothing to do for a digit up to the code-max
  std::vector<unsigned char> maxima_;  // by column: largest digit of a field of gardes_, 255 elsewhere; whole blocks
  std::vector<ChampCode> codes_;
  std::vector<std::pair<std::size_t, ValeurApres>> surveilles_;  // question and value of each rule
  std::vector<std::pair<std::size_t, ValeurApres>> lues_;        // the same of questions without a rule that are read
  std::vector<VitCompilee> vits_;
  std::vector<Terme> filtre_;
  SensFiltre sens_;
  bool ponderee_ = false;
  ValeurApres poids_;
  std::map<std::vector<int>, std::array<char, kCases>> reponses_;
  std::vector<std::vector<TexteCode>> textes_;
  std::size_t utile_ = 0;         // columns of the fields that are read
  std::size_t lue_ = 0;           // the same in whole blocks
  std::size_t finDesChamps_ = 0;  // columns that the patched fields need, in place
  std::size_t base_ = 0;          // columns of the copied line, when something is put behind it
  std::size_t ajoutees_ = 0;      // columns put behind it, or all of them when only the recoded are kept
  bool alignee_ = false;          // the copied line is brought to `base_` columns
  std::vector<char> ligne_;
};

Traduction::Traduction(const Consignes& consignes, const Plan& plan)
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
  maxima_.resize(lue_, 255);
}

ValeurApres Traduction::Apres(std::size_t question, const Plan& plan) const {
  const auto champ = std::ranges::find(plan.champs, question, &ChampNeuf::question);
  const int codeMax = std::max(consignes_.pos.questions[question].codeMax, 0);
  return {lus_[question], codeMax, champ == plan.champs.end() ? nullptr : &champ->table};
}

// A value above its code-max counts for 0 in a filter, a VIT or a weighting as it does in a rule, and is told like it.
void Traduction::Surveiller(std::size_t question, const Plan& plan) {
  const auto meme = [question](const auto& lue) { return lue.first == question; };
  if (std::ranges::any_of(surveilles_, meme) || std::ranges::any_of(lues_, meme)) return;
  lues_.emplace_back(question, Apres(question, plan));
}

// Questions with the same table share their answers: most questions of a survey have one of a few code-maxes.
const char* Traduction::Reponses(const ChampNeuf& champ) {
  const auto [place, nouvelle] = reponses_.try_emplace(champ.table);
  if (nouvelle) {
    for (unsigned octet = 0; octet < kCases; ++octet) {
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
      if (maxima_.size() <= sortie) maxima_.resize(sortie + 1, 255);
      maxima_[sortie] = static_cast<unsigned char>(std::max(question.codeMax, 0));
    }
    (garde ? gardes_ : octets_).push_back({source.debut, sortie, Reponses(champ)});
    return;
  }
  std::vector<TexteCode>& textes = textes_.emplace_back();
  for (const int code : champ.table) textes.push_back(TexteDuCode(champ, code));
  codes_.push_back({source, sortie, largeur, std::max(question.codeMax, 0), textes.data()});
}

void Traduction::PreparerVit(const VitDemandee& demandee, const VitNeuve& vit, const Plan& plan) {
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

// Lines read, those that the filter keeps, and lines that the weights make of these.
struct Somme {
  std::int64_t entree = 0, retenus = 0, sortie = 0;
};

Somme SommerPoids(const Traduction& traduction, const Chemin& donnees, std::int64_t maximum) {
  LecteurIndividus lecteur(donnees, traduction.LongueurLue());
  Somme somme;
  somme.entree = Parcourir(lecteur, maximum, [&](const char* individu, std::int64_t) {
    if (!traduction.Retenu(individu)) return;
    ++somme.retenus;
    somme.sortie += traduction.Poids(individu);
  });
  return somme;
}

// One line in so many, for an output of about ten times what the filter keeps.
std::int64_t PasDeReduction(const Somme& somme) {
  if (somme.retenus == 0) return 1;
  const double rapport = static_cast<double>(somme.sortie) / (10 * static_cast<double>(somme.retenus));
  return std::max<std::int64_t>(Entier64(rapport), 1);
}

// Multiples of `pas` among the first `lignes` ranks, counted from 0.
std::int64_t Multiples(std::int64_t lignes, std::int64_t pas) { return (lignes + pas - 1) / pas; }

}  // namespace

BilanDePasse PasserIndividus(const Consignes& consignes, const Plan& plan, const Chemin& donnees, Ecrivain& sortie,
                             const TemoinsDePasse& temoins, const Dialogue& ecran) {
  Traduction traduction(consignes, plan);
  BilanDePasse bilan;
  if (consignes.ponderation && !consignes.maximum)
    bilan.pas = PasDeReduction(SommerPoids(traduction, donnees, consignes.individus));
  LecteurIndividus lecteur(donnees, traduction.LongueurLue());
  Progression progression(ecran, consignes.individus);
  bilan.entree = Parcourir(lecteur, consignes.individus, [&](const char* individu, std::int64_t numero) {
    progression.Avancer();
    const std::string_view ligne = traduction.Traduire(individu, lecteur.Ligne().size(), numero, temoins);
    if (!traduction.Retenu(individu)) return;
    ++bilan.retenus;
    bilan.sortie += traduction.Poids(individu);
    for (const std::int64_t voulues = Multiples(bilan.sortie, bilan.pas); bilan.ecrites < voulues; ++bilan.ecrites)
      sortie.Ecrire(ligne);
  });
  return bilan;
}

std::int64_t LongueurDesLignes(const Chemin& donnees, std::int64_t maximum) {
  LecteurLignes lecteur(donnees);
  std::size_t longueur = 0;
  std::string_view ligne;
  for (std::int64_t i = 0; i < maximum && lecteur.Lire(ligne); ++i) longueur = std::max(longueur, ligne.size());
  return static_cast<std::int64_t>(longueur);
}

}  // namespace quelvar::sorts
