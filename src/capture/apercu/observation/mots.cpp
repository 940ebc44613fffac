#include "capture/apercu/observation/mots.h"

#include <algorithm>
#include <initializer_list>

#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

// Whether a text is one of these words, written in lower case.
bool EstMot(std::string_view texte, std::initializer_list<std::string_view> mots) {
  const std::string petit = Minuscules(texte);
  return std::ranges::find(mots, std::string_view(petit)) != mots.end();
}
}  // namespace

std::string Pliee(std::string_view texte) {
  std::string pliee(texte);
  for (char& c : pliee) c = SansAccent(Minuscule(c));
  return pliee;
}

std::string SansEcriture(std::string_view texte) {
  std::string pliee;
  for (const char c : Pliee(texte)) {
    if (!EstBlancDeCellule(c)) pliee += c;
    else if (!pliee.empty() && pliee.back() != ' ') pliee += ' ';
  }
  return pliee;
}

bool AvantParOrdre(std::string_view a, std::string_view b) {
  const std::optional<NombreDeCellule> na = LireNombre(a);
  const std::optional<NombreDeCellule> nb = LireNombre(b);
  if (na.has_value() != nb.has_value()) return na.has_value();
  if (na) {
    const double va = ValeurDe(na->Normalise());
    const double vb = ValeurDe(nb->Normalise());
    if (va != vb) return va < vb;
  }
  const std::string pa = Pliee(a);
  const std::string pb = Pliee(b);
  return pa != pb ? pa < pb : a < b;
}

bool EstNombreAvecUnite(std::string_view cellule) {
  static constexpr std::string_view kUnites = "%‰€$£"_w;
  const auto unite = [](char c) { return kUnites.find(c) != std::string_view::npos; };
  if (cellule.size() < 2) return false;
  if (unite(cellule.back())) return LireNombre(RognerCellule(cellule.substr(0, cellule.size() - 1))).has_value();
  return unite(cellule.front()) && LireNombre(RognerCellule(cellule.substr(1)));
}

bool EstOui(std::string_view texte) {
  return EstMot(texte, {"oui", "yes", "y", "o", "x", "vrai", "true", "coché"_w, "checked", "selected", "sélectionné"_w,
                        "quoted", "1"});
}
bool EstNon(std::string_view texte) {
  return EstMot(texte, {"non", "no", "n", "faux", "false", "non coché"_w, "unchecked", "not selected",
                        "non sélectionné"_w, "not quoted", "0"});
}

bool EstManque(std::string_view texte) {
  const std::string pliee = Pliee(texte);
  for (const std::string_view mot : {"nsp", "nr", "na", "n/a", "nc", "ne sait pas", "sans reponse", "sans opinion"})
    if (pliee == mot) return true;
  return false;
}

bool EstReponseUsuelle(std::string_view texte) {
  const std::string pliee = Pliee(texte);
  for (const std::string_view mot :
       {"oui", "non", "yes", "no", "autre", "homme", "femme", "masculin", "feminin", "vrai", "faux", "true", "false",
        "jamais", "toujours", "parfois", "souvent", "rarement", "-oth-"})
    if (pliee == mot) return true;
  return EstManque(texte);
}

bool EstTitreDeNumero(std::string_view intitule) {
  const std::string titre = Pliee(intitule);
  for (const std::string_view mot : {"id", "num", "numero", "no", "identifiant", "id de la reponse", "response id",
                                     "id. reponse", "questionnaire", "num questionnaire", "numero de questionnaire"})
    if (titre == mot) return true;
  return titre == std::string_view("n°"_w);
}

}  // namespace quelvar::capture
