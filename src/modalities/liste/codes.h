// The questions and codes that the modality names of a list stand for, by their place in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/enquete/nomdemodalite.h"

namespace quelvar::modalities {

// Douteuse: the name may be that of several questions, and its place does not tell which.
enum class Certitude { Inconnue, Douteuse, Sure };

struct CodeLu {
  Certitude certitude = Certitude::Inconnue;
  std::string question = {};  // its name, of three characters; empty unless Sure
  int code = 0;
};

// Columns of the question in the name of a code of two digits.
inline constexpr int kLettresDUnCodeDouble = 2;

// A code of 36 on, or of a name that looks like one: two characters of the question, two digits.
bool EstEnDeuxChiffres(std::string_view nom);

// Reads the names of a list one after the other. The questions must outlive it.
class LecteurDeCodes {
 public:
  explicit LecteurDeCodes(const FichierPos& pos) : pos_(pos) {}

  // `nom` has four characters.
  CodeLu Lire(std::string_view nom);
  // What follows does not go on from what was read.
  void Couper();

 private:
  const FichierPos& pos_;
  std::optional<CodeDeModalite> precedente_;
  std::string lettres_;  // the first two characters of the name before
};

}  // namespace quelvar::modalities
