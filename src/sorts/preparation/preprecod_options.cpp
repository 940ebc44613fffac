#include "sorts/preparation/preprecod_options.h"

#include <algorithm>
#include <iterator>

#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

using O = OptionsPrepRecod;
using Textes = std::vector<std::string>;

constexpr std::string_view kAucun = "non";

int LireCode(std::string_view option, std::string_view attendu, std::string_view texte) {
  if (texte.empty() || texte.size() > 3 || texte.find_first_not_of("0123456789") != std::string_view::npos)
    RefuserValeur(option, attendu, texte);
  return static_cast<int>(ValeurDe(texte));
}

void PoserPonderation(O& options, const std::string& valeur) {
  options.ponderation = Minuscules(valeur) == kAucun ? std::string() : valeur;
}

Textes EcrirePonderation(const O& options) {
  if (!options.ponderation) return {};
  return {options.ponderation->empty() ? std::string(kAucun) : *options.ponderation};
}

constexpr std::string_view kFormeFiltre = "incl:NOM=CODE,... ou excl:NOM=CODE,... ou plus:NOM=CODE,... ou non";

// The words in front of a filter; without a sense it adds to the one that is there.
struct MotDeSens {
  std::string_view mot;
  SensFiltre sens;
};
constexpr MotDeSens kMotsDeSens[] = {{"incl:", SensFiltre::Inclure},
                                     {"excl:", SensFiltre::Exclure},
                                     {"plus:", SensFiltre::Aucun}};

void PoserFiltre(O& options, const std::string& valeur) {
  FiltreDeScript filtre;
  if (Minuscules(valeur) != kAucun) {
    const std::string basse = Minuscules(valeur);
    const auto* const sens =
        std::ranges::find_if(kMotsDeSens, [&](const MotDeSens& mot) { return basse.starts_with(mot.mot); });
    if (sens == std::end(kMotsDeSens)) RefuserValeur("filtre", kFormeFiltre, valeur);
    filtre.sens = sens->sens;
    for (const std::string& expression : NomsSepares(std::string_view(valeur).substr(sens->mot.size()))) {
      const std::size_t egal = expression.find('=');
      if (egal == std::string::npos) RefuserValeur("filtre", kFormeFiltre, valeur);
      filtre.expressions.emplace_back(expression.substr(0, egal),
                                      LireCode("filtre", kFormeFiltre, std::string_view(expression).substr(egal + 1)));
    }
  }
  if (Minuscules(valeur) != kAucun && filtre.sens == SensFiltre::Aucun && filtre.expressions.empty())
    RefuserValeur("filtre", kFormeFiltre, valeur);
  options.filtre = filtre;
}

Textes EcrireFiltre(const O& options) {
  if (!options.filtre) return {};
  if (options.filtre->sens == SensFiltre::Aucun && options.filtre->expressions.empty()) return {std::string(kAucun)};
  Textes expressions;
  for (const auto& [question, code] : options.filtre->expressions)
    expressions.push_back(Joindre({question, "=", Nombre(code)}));
  const auto* const sens = std::ranges::find(kMotsDeSens, options.filtre->sens, &MotDeSens::sens);
  return {Joindre({sens->mot, NomsJoints(expressions)})};
}

constexpr std::string_view kFormeVit = "NOM=QUESTION=CODE,QUESTION=CODE*SCORE,... ou NOM=QUESTION+,... ou non";

ElementDeScript LireElement(std::string_view texte) {
  ElementDeScript element;
  const std::size_t etoile = texte.find('*');
  if (etoile != std::string_view::npos) element.score = texte.substr(etoile + 1);
  texte = texte.substr(0, etoile);
  const std::size_t signe = texte.find_first_of("=+");
  if (signe == std::string_view::npos) RefuserValeur("vit", kFormeVit, texte);
  element.question = texte.substr(0, signe);
  if (texte[signe] == '=') element.code = LireCode("vit", kFormeVit, texte.substr(signe + 1));
  if (element.code.value_or(0) > kCodeVitMaximum) RefuserValeur("vit", "un code de deux chiffres", texte);
  return element;
}

std::string EcrireElement(const ElementDeScript& element) {
  std::string texte = element.question + (element.code ? "=" + Nombre(*element.code) : "+");
  if (!element.score.empty()) texte += "*" + element.score;
  return texte;
}

void PoserVit(O& options, const std::string& valeur) {
  if (Minuscules(valeur) == kAucun) {
    options.supprimerVit = true;
    return;
  }
  const auto [nom, elements] = NomEtTexte("vit", valeur);
  VitDeScript vit{nom, {}};
  for (const std::string& element : NomsSepares(elements)) vit.elements.push_back(LireElement(element));
  options.vits.push_back(std::move(vit));
}

Textes EcrireVits(const O& options) {
  Textes textes;
  if (options.supprimerVit) textes.emplace_back(kAucun);
  for (const VitDeScript& vit : options.vits) {
    Textes elements;
    for (const ElementDeScript& element : vit.elements) elements.push_back(EcrireElement(element));
    textes.push_back(Joindre({vit.nom, "=", NomsJoints(elements)}));
  }
  return textes;
}

// Both within a line stand behind the second; that before another sign stays.
constexpr char kEntreLignes = '|';
constexpr char kProtection = '\\';
bool EstProtegeDansUneLigne(char c) { return c == kEntreLignes || c == kProtection; }

void PoserTexteVit(O& options, const std::string& valeur) {
  Textes lignes(1);
  for (std::size_t i = 0; i < valeur.size(); ++i) {
    const bool protege = valeur[i] == kProtection && i + 1 < valeur.size() && EstProtegeDansUneLigne(valeur[i + 1]);
    if (protege) lignes.back() += valeur[++i];
    else if (valeur[i] == kEntreLignes) lignes.emplace_back();
    else lignes.back() += valeur[i];
  }
  options.texteVit = std::move(lignes);
}

Textes EcrireTexteVit(const O& options) {
  if (!options.texteVit) return {};
  std::string texte;
  for (const std::string& ligne : *options.texteVit) {
    if (&ligne != &options.texteVit->front()) texte += kEntreLignes;
    for (const char c : ligne) {
      if (EstProtegeDansUneLigne(c)) texte += kProtection;
      texte += c;
    }
  }
  return {texte};
}

Description<O> Decrire() {
  return Description<O>("preprecod",
                        "Écrit dans le .POS les consignes du recodage, comme le formulaire de préparation"_w,
                        PreparerParScript)
      .Couples("regle", &O::regles, "NOM=REGLE",
               "règle d'une question (AGE=1-3=1/4-8=2) ; vide : plus de règle ; se répète"_w)
      .Montre("TextMod")
      .Libre("ponderation", "NOM|non", "question de pondération"_w, PoserPonderation, EcrirePonderation)
      .Montre("LabelPond")
      .Alias({"pond"})
      .Choix("effectif", &O::maximum, {{"reduit", false}, {"maximum", true}}, "effectif résultant de la pondération"_w)
      .Bouton("OptEffReduit", "reduit")
      .Bouton("OptEffMax", "maximum")
      .Libre("filtre", kFormeFiltre,
             "individus gardés ou écartés, tous les codes étant exigés ensemble ; plus: en ajoute au filtre présent"_w,
             PoserFiltre, EcrireFiltre)
      .Montre("TextFiltre")
      .Libre(
          "textevit", "LIGNE|LIGNE|...",
          "texte de toutes les variables idéales-typiques, comme le corrige l'éditeur du formulaire ($$NOM, puis une "
          "ligne par élément) ; \\| est un | dans une ligne, et \\\\ un \\ devant l'un des deux"_w,
          PoserTexteVit, EcrireTexteVit)
      .Montre("TextVIT")
      .Libre("vit", kFormeVit, "variable idéale-typique ajoutée à celles du fichier ; non les efface ; se répète"_w,
             PoserVit, EcrireVits)
      .Repetable()
      .Montre("ComboVIT");
}

}  // namespace

const Description<OptionsPrepRecod>& DescriptionPrepRecod() {
  static const Description<OptionsPrepRecod> description = Decrire();
  return description;
}

}  // namespace quelvar::sorts
