#include "utilities/exportcsv/cellules.h"

#include <algorithm>

#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"

namespace quelvar::utilities {

namespace {

constexpr std::string_view kSeparateurs = ";,\t|";  // that an import knows
constexpr std::uint32_t kTexteLong = 3;             // columns of "L3"
constexpr std::size_t kOctetsParSigne = 6;          // of a text at most: each sign doubled as a quote, in UTF-8
constexpr std::size_t kAutour = 3;                  // quotes and separator

std::string TexteDuCode(int code, const std::vector<std::string>& intitules, const OptionsExportCsv& options) {
  if (options.codes) return Nombre(code);
  if (code == 0) return std::string(capture::kNonReponse);
  if (const auto rang = static_cast<std::size_t>(code); rang < intitules.size() && !intitules[rang].empty())
    return intitules[rang];
  return Nombre(code);
}

}  // namespace

Tableur::Tableur(const OptionsExportCsv& options)
    : separateur_(options.tabulation ? '\t' : ';'),
      aProteger_(options.choix ? std::string(kSeparateurs) : std::string{separateur_}),
      utf8_(options.utf8) {
  aProteger_ += '"';
}

std::string Tableur::Cellule(std::string_view texte) const {
  std::string cellule(texte);
  if (texte.find_first_of(aProteger_) != std::string_view::npos) {
    for (std::size_t i = cellule.find('"'); i != std::string::npos; i = cellule.find('"', i + 2))
      cellule.insert(i, 1, '"');
    cellule = '"' + cellule + '"';
  }
  return utf8_ ? VersUtf8(cellule) : cellule;
}

std::size_t ColonneCsv::PlaceDeLaValeur(const char* individu) const {
  const char* octets = individu + champ.debut;
  const int valeur = LireChampInterieur(individu, champ);
  if (valeur < 0 || valeur > codeMax) return PasUnCode();
  const bool chiffres =
      std::all_of(octets, octets + champ.largeur, [](char c) { return c == ' ' || (c >= '0' && c <= '9'); });
  return chiffres || EstNombre({octets, champ.largeur}) ? static_cast<std::size_t>(valeur) : PasUnCode();
}

std::vector<std::string> TextesDesCodes(const Question& question, const std::vector<std::string>& intitules,
                                        const OptionsExportCsv& options) {
  std::vector<std::string> textes;
  for (int code = 0; !question.alphabetique && code <= std::max(question.codeMax, 0); ++code)
    textes.push_back(TexteDuCode(code, intitules, options));
  return textes;
}

ColonneCsv DresserColonne(const Question& question, const std::vector<std::string>& textes, const Tableur& tableur) {
  ColonneCsv colonne;
  colonne.nom = question.nom;
  colonne.champ = ChampDe(question);
  colonne.texte = question.alphabetique;
  if (colonne.texte) {
    // Columns 8-9 of a text are its width.
    colonne.champ.largeur =
        question.codeMax == kCodeMaxL3 ? kTexteLong : static_cast<std::uint32_t>(std::max(question.codeMax, 1));
    colonne.plusLongue = colonne.champ.largeur * kOctetsParSigne + kAutour;
    return colonne;
  }
  colonne.codeMax = std::max(question.codeMax, 0);
  for (std::size_t code = 0; code <= textes.size(); ++code) {
    std::string cellule = tableur.Cellule(textes[code < textes.size() ? code : 0]);
    cellule += tableur.Separateur();
    colonne.plusLongue = std::max(colonne.plusLongue, std::max(cellule.size(), CelluleFaite::kCourte));
    colonne.cellules.emplace_back(cellule);
  }
  for (std::size_t octet = 0; octet < 256; ++octet) {
    const std::uint8_t valeur = ValeursDUnOctet()[octet];
    const bool code = octet == ' ' || (octet >= '0' && octet <= '9' && valeur <= colonne.codeMax);
    if (colonne.champ.largeur == 1)
      colonne.parOctet[octet] = code ? valeur : static_cast<std::uint8_t>(colonne.PasUnCode());
  }
  return colonne;
}

std::string TitreDe(const Question& question, const OptionsExportCsv& options) {
  if (question.intitule.empty()) return question.nom;
  if (!options.codes || question.intitule.starts_with(question.nom)) return question.intitule;
  return Joindre({question.nom, " ", question.intitule});
}

}  // namespace quelvar::utilities
