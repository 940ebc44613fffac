#include "sorts/regles/regles.h"

#include <algorithm>
#include <array>

#include "core/chiffres/nombres.h"
#include "core/texte/texte.h"

namespace quelvar::sorts {

namespace {

constexpr double kBorneCode = 32767;
constexpr std::size_t kLargeurDroite = 3;

std::vector<std::string_view> Couper(std::string_view texte, char separateur) {
  std::vector<std::string_view> morceaux;
  for (;;) {
    const std::size_t place = texte.find(separateur);
    morceaux.push_back(texte.substr(0, place));
    if (place == std::string_view::npos) return morceaux;
    texte.remove_prefix(place + 1);
  }
}

int LireCode(std::string_view texte) {
  return static_cast<int>(ArrondirPair(std::clamp(ValeurDe(texte), -kBorneCode, kBorneCode)));
}

ElementRegle LireElement(std::string_view texte) {
  ElementRegle element;
  element.vide = texte.empty();
  const std::size_t tiret = texte.find('-');
  if (tiret == std::string_view::npos) {
    element.premier = element.dernier = LireCode(texte);
    return element;
  }
  const std::string_view fin = texte.substr(tiret + 1);
  element.intervalle = true;
  element.coteVide = tiret == 0 || fin.empty();
  element.premier = LireCode(texte.substr(0, tiret));
  element.dernier = LireCode(fin);
  return element;
}

bool EstLettre(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0xC0;
}

// A word for the codes not named: letters and stars that hold one of those that tell it.
bool EstMotDeReste(std::string_view gauche) {
  return gauche.find_first_of("*ERer") != std::string_view::npos &&
         std::ranges::all_of(gauche, [](char c) { return c == '*' || c == ' ' || EstLettre(c); });
}

// The second dash of an element of a left side.
std::size_t TiretDeTrop(std::string_view gauche) {
  bool tiret = false;
  for (std::size_t i = 0; i < gauche.size(); ++i) {
    if (gauche[i] == '-' && tiret) return i;
    tiret = gauche[i] != ',' && (tiret || gauche[i] == '-');
  }
  return std::string_view::npos;
}

// The first character of an order as typed that is no sign of a rule; `debut` is its place in the rule. The two sides
// have signs of their own.
std::optional<OrdreRegle::Signe> SigneInterdit(std::string_view ordre, std::size_t debut) {
  const std::size_t egal = ordre.find('=');
  const std::string_view gauche = ordre.substr(0, egal);
  const auto signe = [&](std::size_t place) { return OrdreRegle::Signe{ordre[place], debut + place + 1}; };
  if (!EstMotDeReste(gauche)) {
    const std::size_t place = std::min(gauche.find_first_not_of("0123456789,- "), TiretDeTrop(gauche));
    if (place != std::string_view::npos) return signe(place);
  }
  const std::size_t place = egal == std::string_view::npos ? egal : ordre.find_first_not_of("0123456789 ", egal + 1);
  if (place == std::string_view::npos) return std::nullopt;
  return signe(place);
}

OrdreRegle LireOrdre(std::string_view type, std::size_t debut) {
  OrdreRegle ordre;
  ordre.texte = type;
  std::erase(ordre.texte, ' ');
  const std::string_view texte = ordre.texte;
  const std::size_t egal = texte.find('=');
  ordre.interdit = SigneInterdit(type, debut);
  if (egal == std::string_view::npos) return ordre;
  ordre.egal = true;
  ordre.gauche = texte.substr(0, egal);
  const std::string_view droite = texte.substr(egal + 1);
  ordre.droiteFautive = droite.empty() || droite.size() > kLargeurDroite;
  ordre.nouveau = LireCode(droite);
  for (const std::string_view element : Couper(ordre.gauche, ',')) ordre.elements.push_back(LireElement(element));
  return ordre;
}

bool EstReste(const std::string& gauche, UsageRegle usage) {
  if (usage == UsageRegle::Formulaire) return gauche.find_first_of("*ERr") != std::string::npos;
  return gauche.empty() || gauche.find_first_of("*ERer") != std::string::npos;
}

// The state of one check: the faults gathered so far and the codes named so far.
class Verificateur {
 public:
  Verificateur(const BornesRegle& bornes, UsageRegle usage) : bornes_(bornes), usage_(usage) {
    regle_.nouveaux.resize(static_cast<std::size_t>(std::max(bornes.codeMax, 0)) + 1);
  }

  // The order of a rule that has no other.
  void OrdreUnique(const OrdreRegle& ordre) {
    regle_.selection = usage_ == UsageRegle::Moteur && (ordre.texte == "S" || ordre.texte == "s");
    if (!regle_.selection) Ordre(ordre);
  }

  // False when nothing behind this order is to be read.
  bool Ordre(const OrdreRegle& ordre) {
    element_ = 0;
    if (ordre.texte.empty()) Signaler(FauteRegle::OrdreVide);
    else if (ordre.interdit) Signaler(FauteRegle::SigneInterdit, *ordre.interdit);
    else if (!ordre.egal) Signaler(FauteRegle::SansEgal);
    else Affectation(ordre);
    ++ordre_;
    return !regle_.arret;
  }

  RegleVerifiee Resultat() { return std::move(regle_); }

 private:
  void Affectation(const OrdreRegle& ordre) {
    if (ordre.droiteFautive) Signaler(FauteRegle::DroiteFautive);
    if (EstReste(ordre.gauche, usage_)) {
      regle_.reste = ordre.nouveau;
      return;
    }
    for (element_ = 0; element_ < ordre.elements.size() && !regle_.arret; ++element_)
      Element(ordre.elements[element_], ordre.nouveau);
  }

  void Element(const ElementRegle& element, int nouveau) {
    if (element.vide) return Signaler(FauteRegle::ElementVide);
    if (element.coteVide && usage_ == UsageRegle::Formulaire) return Signaler(FauteRegle::CoteVide);
    if (element.intervalle && element.premier >= element.dernier) return Signaler(FauteRegle::DebutPasSousFin);
    for (int code = element.premier; code <= element.dernier && !regle_.arret; ++code)
      Code(code, nouveau, element.intervalle);
  }

  void Code(int code, int nouveau, bool dansIntervalle) {
    if (usage_ == UsageRegle::Moteur && code > bornes_.codeMaxFichier) {
      Signaler(FauteRegle::CodeAuDelaDuFichier);
      regle_.arret = true;
    } else if (code > bornes_.codeMax) {
      Signaler(dansIntervalle ? FauteRegle::CodeTropGrandDansIntervalle : FauteRegle::CodeTropGrand);
    } else {
      std::optional<int>& place = regle_.nouveaux[static_cast<std::size_t>(code)];
      if (place) Signaler(FauteRegle::DejaFait);
      else place = nouveau;
    }
  }

  void Signaler(FauteRegle faute, OrdreRegle::Signe signe = {}) {
    const auto meme = [&](const FauteTrouvee& f) {
      return f.quoi == faute && f.ordre == ordre_ && f.element == element_;
    };
    const bool dejaDite = usage_ == UsageRegle::Formulaire && std::ranges::any_of(regle_.fautes, meme);
    if (!dejaDite) regle_.fautes.push_back({faute, ordre_, element_, signe});
  }

  BornesRegle bornes_;
  UsageRegle usage_;
  RegleVerifiee regle_;
  std::size_t ordre_ = 0;
  std::size_t element_ = 0;
};

// What stands before and behind the name of the question in the words of the recoding, and the words of the form.
struct Libelle {
  std::string_view avant, apres, formulaire;
};

constexpr std::array<Libelle, 11> kLibelles = {{
    {"Expression vide a la question: ", "", "Elément vide autour d'un séparateur"_w},
    {"Defaut de signe egal a la question : ", "", "Défaut de signe égal"_w},
    {"Signe interdit", " a la question : ", "Signe interdit"},
    {"Erreur a droite d'un signe egal a question : ", "", "Erreur à droite d'un signe égal"_w},
    {"Element vide a la question : ", "", "Elément vide à gauche du signe égal"_w},
    {"", "", "Element vide autour d'un tiret"},
    {"Debut plus grand que fin a la question : ", "",
     "Début plus grand ou égal à fin entre la gauche et la droite d'un tiret"_w},
    {"", " question STOP : codage > max des code-max", ""},
    {"", " question Recodage > code-max", "Valeur à recoder > code-max"_w},
    {"", " question Recodage > code-max", "Une modalité à recoder > code-max"_w},
    {"Question : ", " : recodage deja fait", "Recodage d'une des modalités deja fait"_w},
}};

std::string PlaceDuSigne(const OrdreRegle::Signe& signe) {
  return Joindre({" (", std::string_view(&signe.signe, 1), ", caractère "_w,
                  Nombre(static_cast<std::int64_t>(signe.place)), " de la règle)"_w});
}

const Libelle& LibelleDe(FauteRegle faute) { return kLibelles[static_cast<std::size_t>(faute)]; }

}  // namespace

std::vector<OrdreRegle> LireRegle(std::string_view texte) {
  std::vector<OrdreRegle> ordres;
  for (const std::string_view ordre : Couper(texte, '/'))
    ordres.push_back(LireOrdre(ordre, static_cast<std::size_t>(ordre.data() - texte.data())));
  return ordres;
}

RegleVerifiee VerifierRegle(const std::vector<OrdreRegle>& ordres, const BornesRegle& bornes, UsageRegle usage) {
  Verificateur verificateur(bornes, usage);
  if (ordres.size() == 1) {
    verificateur.OrdreUnique(ordres.front());
    return verificateur.Resultat();
  }
  for (const OrdreRegle& ordre : ordres)
    if (!verificateur.Ordre(ordre)) break;
  return verificateur.Resultat();
}

std::vector<int> CompleterTable(const RegleVerifiee& regle) {
  std::vector<int> table(regle.nouveaux.size());
  for (std::size_t code = 0; code < table.size(); ++code) {
    const int lui = static_cast<int>(code);
    table[code] = regle.selection ? lui : regle.nouveaux[code].value_or(regle.reste.value_or(lui));
  }
  return table;
}

std::string TexteFaute(const FauteTrouvee& faute, std::string_view nomQuestion) {
  const Libelle& libelle = LibelleDe(faute.quoi);
  if (faute.quoi == FauteRegle::SigneInterdit)
    return Joindre({libelle.avant, PlaceDuSigne(faute.signe), libelle.apres, nomQuestion});
  return Joindre({libelle.avant, nomQuestion, libelle.apres});
}

std::string TexteFauteFormulaire(const FauteTrouvee& faute) {
  const std::string_view libelle = LibelleDe(faute.quoi).formulaire;
  if (faute.quoi != FauteRegle::SigneInterdit) return std::string(libelle);
  return Joindre({libelle, PlaceDuSigne(faute.signe)});
}

}  // namespace quelvar::sorts
