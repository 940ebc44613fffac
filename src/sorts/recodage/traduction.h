// An individual of a recoding in its new form: the line is copied once, its fields are patched through tables, and the
// scores of the VIT are put behind it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "sorts/recodage/plan.h"

namespace quelvar::sorts {

// Told of each value above the code-max of its question, and of each score of a VIT above 999; `ligne` counts from 1.
struct TemoinsDePasse {
  std::function<void(std::size_t question, std::int64_t ligne)> depassement;
  std::function<void(std::size_t vit, std::int64_t ligne)> scoreTropGrand;
};

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

// The instructions and the plan of a run, made ready for the lines.
class Traduction {
 public:
  // Raises kArgumentIncorrect, with the question, for a field that cannot be cut. Both must outlive it.
  Traduction(const Consignes& consignes, const PlanDeRecodage& plan);
  Traduction(const Traduction&) = delete;
  Traduction& operator=(const Traduction&) = delete;

  // Bytes that every line must be given.
  std::size_t LongueurLue() const { return lue_; }

  bool Retenu(const char* individu) const {
    if (sens_ == SensFiltre::Aucun) return true;
    const bool tous =
        std::all_of(filtre_.begin(), filtre_.end(), [&](const Terme& t) { return t.valeur.Lire(individu) == t.code; });
    return tous == (sens_ == SensFiltre::Inclure);
  }

  // Times that the individual is written. Raises kDepassementCapacite for a weight beyond 32 bits.
  std::int64_t Poids(const char* individu) const {
    if (!ponderee_) return 1;
    if (poids_.table != nullptr) return std::max(poids_.Lire(individu), 0);
    const std::string_view champ(individu + poids_.champ.debut, poids_.champ.largeur);
    const int poids = Entier32(ValeurDe(champ));
    return poids < 0 || poids > poids_.codeMax ? 0 : poids;
  }

  // The new line, with its end, as a view that lives until the next call. Raises kDepassementCapacite for a value
  // beyond 16 bits.
  std::string_view Traduire(const char* individu, std::size_t longueur, std::int64_t numero,
                            const TemoinsDePasse& temoins);

 private:
  void PreparerChamp(const Question& question, const ChampNeuf& champ);
  void PreparerVit(const VitDemandee& demandee, const VitNeuve& vit, const PlanDeRecodage& plan);
  ValeurApres Apres(std::size_t question, const PlanDeRecodage& plan) const;
  const char* Reponses(const ChampNeuf& champ);
  std::size_t Copier(const char* individu, std::size_t longueur);
  bool Recoder(const char* individu);
  void Surveiller(std::size_t question, const PlanDeRecodage& plan);
  bool Repondre(const std::vector<ChampOctet>& champs, const char* individu);
  bool Inchangee(const char* individu) const;
  void AjouterScore(std::size_t indice, const char* individu, std::int64_t numero, const TemoinsDePasse& temoins);

  const Consignes& consignes_;
  std::vector<Champ> lus_;  // fields of the questions
  std::vector<ChampOctet> octets_;
  std::vector<ChampOctet> gardes_;     // in place, with every code kept: nothing to do for a digit up to the code-max
  std::vector<unsigned char> maxima_;  // by column: largest digit of a field of gardes_, any elsewhere; whole blocks
  std::vector<ChampCode> codes_;
  std::vector<std::pair<std::size_t, ValeurApres>> surveilles_;  // question and value of each rule
  std::vector<std::pair<std::size_t, ValeurApres>> lues_;        // the same of questions without a rule that are read
  std::vector<VitCompilee> vits_;
  std::vector<Terme> filtre_;
  SensFiltre sens_;
  bool ponderee_ = false;
  ValeurApres poids_;
  static constexpr std::size_t kOctets = 256;
  std::map<std::vector<int>, std::array<char, kOctets>> reponses_;
  std::vector<std::vector<TexteCode>> textes_;
  std::size_t utile_ = 0;         // columns of the fields that are read
  std::size_t lue_ = 0;           // the same in whole blocks
  std::size_t finDesChamps_ = 0;  // columns that the patched fields need, in place
  std::size_t base_ = 0;          // columns of the copied line, when something is put behind it
  std::size_t ajoutees_ = 0;      // columns put behind it, or all of them when only the recoded are kept
  bool alignee_ = false;          // the copied line is brought to `base_` columns
  std::vector<char> ligne_;
};

}  // namespace quelvar::sorts
