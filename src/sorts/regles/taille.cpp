#include "sorts/regles/taille.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/texte/texte.h"

namespace quelvar::sorts {

namespace {

constexpr std::size_t kLongueurMotFiltre = 4;  // INCL, EXCL
constexpr std::string_view kPond = "POND";
constexpr std::string_view kMax = "MAX";

// Takes POND, or POND=NAM, out of the upper-cased line.
void LirePonderation(std::string_view ligne, std::string& haut, ConsignesTaille& consignes) {
  const std::size_t pond = haut.find(kPond);
  if (pond == std::string::npos) return;
  consignes.ponderation = true;
  std::size_t fin = pond + kPond.size();
  const std::size_t egal = haut.find_first_not_of(' ', fin);
  if (egal != std::string::npos && haut[egal] == '=') {
    const std::size_t nom = std::min(haut.find_first_not_of(' ', egal + 1), haut.size());
    // The columns of a name, but not those of the next keyword.
    fin = std::min({nom + kLargeurDeQuestion, haut.size(), haut.find(" MAX", nom)});
    consignes.question = RognerDroite(std::string_view(haut).substr(nom, fin - nom));
    consignes.commeTapee = RognerDroite(ligne.substr(nom, fin - nom));
  }
  std::fill(haut.begin() + static_cast<std::ptrdiff_t>(pond), haut.begin() + static_cast<std::ptrdiff_t>(fin), ' ');
}

}  // namespace

ConsignesTaille LireConsignesTaille(std::string_view ligne) {
  ConsignesTaille consignes;
  std::string haut = Majuscules(ligne);
  const std::size_t inclure = haut.find("INCL");
  const std::size_t exclure = haut.find("EXCL");
  std::size_t premier = std::min(inclure, exclure);
  if (premier != std::string::npos) {
    consignes.sens = inclure < exclure ? SensFiltre::Inclure : SensFiltre::Exclure;
    consignes.deuxSens = std::max(inclure, exclure) != std::string::npos;
    consignes.filtre = ligne.substr(premier);
    haut.resize(premier);
  }
  premier = std::min(premier, haut.find(kPond));
  LirePonderation(ligne, haut, consignes);
  const std::size_t maximum = haut.find(kMax);
  consignes.maximum = maximum != std::string::npos;
  consignes.avant = ligne.substr(0, std::min(premier, maximum));
  return consignes;
}

std::string_view MotsDeTaille(std::string_view ligne) { return ligne.substr(LireConsignesTaille(ligne).avant.size()); }

ExpressionFiltre LireFiltre(std::string_view filtre) {
  ExpressionFiltre expression;
  std::string reste(Milieu(filtre, kLongueurMotFiltre + 1));
  expression.sansBlanc = reste.empty() || reste.front() != ' ';
  if (expression.sansBlanc) return expression;
  std::erase(reste, ' ');
  for (std::string_view suite = reste;;) {
    const std::size_t lien = suite.find_first_of("+&");
    const std::string_view texte = suite.substr(0, lien);
    const std::size_t egal = texte.find('=');
    ElementFiltre element;
    element.vide = texte.empty();
    element.egal = egal != std::string_view::npos;
    element.nom = texte.substr(0, egal);
    if (element.egal) element.code = texte.substr(egal + 1);
    expression.elements.push_back(std::move(element));
    if (lien == std::string_view::npos) return expression;
    suite.remove_prefix(lien + 1);
  }
}

}  // namespace quelvar::sorts
