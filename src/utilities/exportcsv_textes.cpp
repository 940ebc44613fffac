#include "utilities/exportcsv_textes.h"

#include <algorithm>
#include <unordered_map>

#include "capture/apercu/imc.h"
#include "core/texte/nombres.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kTextesAuPlus = 99;  // that an import makes codes of

// The first two codes of that text.
struct Confusion {
  std::size_t premier = 0, second = 0;
};

// Two codes that are written alike; the same one twice without any.
Confusion ChercherConfusion(const std::vector<std::string>& textes) {
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t code = 0; code < textes.size(); ++code)
    if (const auto [deja, neuf] = rangs.emplace(textes[code], code); !neuf) return {deja->second, code};
  return {};
}

bool ALesChiffres(const QuestionEnTextes& question) {
  for (std::size_t code = 1; code < question.textes.size(); ++code)
    if (question.textes[code] != Nombre(code)) return false;
  return true;
}

// The texts in the order of their codes; one that stands for a former code too keeps its rank under another name.
std::vector<std::string> TextesDifferents(const std::vector<std::string>& textes) {
  std::vector<std::string> differents;
  for (std::size_t code = 1; code < textes.size(); ++code) {
    const auto fin = textes.begin() + static_cast<std::ptrdiff_t>(code);
    const bool deja = std::find(textes.begin(), fin, textes[code]) != fin;
    differents.push_back(deja ? Joindre({textes[code], " (", Nombre(code), ")"}) : textes[code]);
  }
  return differents;
}

}  // namespace

std::string CodesConfondus(const std::vector<QuestionEnTextes>& questions) {
  std::size_t nombre = 0;
  std::string premiere;
  for (const QuestionEnTextes& question : questions) {
    const Confusion confusion = ChercherConfusion(question.textes);
    if (confusion.premier == confusion.second || nombre++ > 0) continue;
    premiere = Joindre({question.nom, " (codes ", Nombre(confusion.premier), " et ", Nombre(confusion.second), " : ",
                        question.textes[confusion.second], ")"});
  }
  if (nombre == 0) return {};
  return Joindre({"Questions dont deux codes s'écrivent de même : "_w, Nombre(nombre), ", la première "_w, premiere,
                  ". Le tableur ne les distingue plus : donnez-leur d'autres intitulés, ou exportez les codes"_w});
}

std::string ChoixDeLImport(const std::vector<QuestionEnTextes>& questions) {
  std::vector<capture::ChoixDeColonne> choix;
  for (const QuestionEnTextes& question : questions) {
    capture::ChoixDeColonne colonne;
    colonne.intitule = Rogner(question.titre);
    colonne.nom = question.nom;
    colonne.genre = capture::Genre::Longs;
    if (!question.textes.empty()) {
      if (question.textes.front() != "0") colonne.nonReponses = {question.textes.front()};
      // Texts in the order of their codes keep a code that nobody gave.
      if (question.textes.size() - 1 <= kTextesAuPlus) {
        colonne.genre = capture::Genre::Textes;
        colonne.ordre = capture::Ordre::Donne;
        colonne.textes = TextesDifferents(question.textes);
        colonne.nonReponses = {question.textes.front()};
      } else if (ALesChiffres(question)) {
        colonne.genre = capture::Genre::Codes;
      } else {
        continue;
      }
    }
    choix.push_back(std::move(colonne));
  }
  return capture::EcrireImc(choix);
}

}  // namespace quelvar::utilities
