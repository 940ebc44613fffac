#include "sorts/preparation/preprecod_options.h"

#include <algorithm>
#include <iterator>

#include "core/texte/caracteres.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

using O = OptionsPrepRecod;
using Textes = std::vector<std::string>;

constexpr std::string_view kAucun = "non";

int LireCode(std::string_view option, std::string_view attendu, std::string_view texte) {
  constexpr std::size_t kChiffresDUnCode = 3;
  if (!SontChiffres(texte) || texte.size() > kChiffresDUnCode) RefuserValeur(option, attendu, texte);
  return static_cast<int>(ValeurDe(texte));
}

// A question whose name is that word stands behind a "\".
constexpr std::string_view kQuestionDeCeNom = "\\non";

void PoserPonderation(O& options, const std::string& valeur) {
  if (EgalSansCasse(valeur, kAucun)) options.ponderation.emplace();
  else options.ponderation = EgalSansCasse(valeur, kQuestionDeCeNom) ? valeur.substr(1) : valeur;
}

Textes EcrirePonderation(const O& options) {
  if (!options.ponderation) return {};
  if (options.ponderation->empty()) return {std::string(kAucun)};
  return {EgalSansCasse(*options.ponderation, kAucun) ? "\\" + *options.ponderation : *options.ponderation};
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
    for (const std::string_view expression : PartiesDeListe(std::string_view(valeur).substr(sens->mot.size()))) {
      const auto [question, code] = LireCouple("filtre", expression, kFormeFiltre);
      filtre.expressions.emplace_back(question, LireCode("filtre", kFormeFiltre, code));
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
    expressions.push_back(Joindre({Proteger(question, kSignesDesNoms), "=", Nombre(code)}));
  const auto* const sens = std::ranges::find(kMotsDeSens, options.filtre->sens, &MotDeSens::sens);
  return {Joindre({sens->mot, PartiesJointes(expressions, ',')})};
}

constexpr std::string_view kFormeVit = "NOM=QUESTION=CODE,QUESTION=CODE*SCORE,... ou NOM=QUESTION+,... ou non";

// What parts a list of elements and each of them.
constexpr std::string_view kSignesDUnElement = ",=+*";

ElementDeScript LireElement(std::string_view texte) {
  ElementDeScript element;
  const std::size_t signe = PlaceDuSigne(texte, "=+*");
  if (signe == std::string_view::npos || texte[signe] == '*') RefuserValeur("vit", kFormeVit, texte);
  element.question = SansProtection(texte.substr(0, signe), kSignesDUnElement);
  const std::string_view suite = texte.substr(signe + 1);
  const std::size_t etoile = suite.find('*');
  if (etoile != std::string_view::npos) element.score = SansProtection(suite.substr(etoile + 1), kSignesDUnElement);
  if (texte[signe] == '=') element.code = LireCode("vit", kFormeVit, suite.substr(0, etoile));
  if (element.code.value_or(0) > kCodeVitMaximum) RefuserValeur("vit", "un code de deux chiffres", texte);
  return element;
}

std::string EcrireElement(const ElementDeScript& element) {
  std::string texte = Proteger(element.question, kSignesDUnElement);
  texte += element.code ? "=" + Nombre(*element.code) : "+";
  if (!element.score.empty()) texte += "*" + Proteger(element.score, ",");
  return texte;
}

void PoserVit(O& options, const std::string& valeur) {
  if (Minuscules(valeur) == kAucun) {
    options.supprimerVit = true;
    return;
  }
  const auto [nom, elements] = NomEtTexte("vit", valeur);
  VitDeScript vit{nom, {}};
  for (const std::string_view element : PartiesDeListe(elements)) vit.elements.push_back(LireElement(element));
  options.vits.push_back(std::move(vit));
}

Textes EcrireVits(const O& options) {
  Textes textes;
  if (options.supprimerVit) textes.emplace_back(kAucun);
  for (const VitDeScript& vit : options.vits) {
    Textes elements;
    for (const ElementDeScript& element : vit.elements) elements.push_back(EcrireElement(element));
    textes.push_back(EcrireCouple(vit.nom, PartiesJointes(elements, ',')));
  }
  return textes;
}

constexpr std::string_view kEntreLignes = "|";

void PoserTexteVit(O& options, const std::string& valeur) {
  options.texteVit.emplace();
  for (const std::string_view ligne : Parties(valeur, kEntreLignes.front()))
    options.texteVit->push_back(SansProtection(ligne, kEntreLignes));
}

Textes EcrireTexteVit(const O& options) {
  if (!options.texteVit) return {};
  Textes lignes;
  for (const std::string& ligne : *options.texteVit) lignes.push_back(Proteger(ligne, kEntreLignes));
  return {PartiesJointes(lignes, kEntreLignes.front())};
}

Description<O> Decrire() {
  return Description<O>("preprecod",
                        "Écrit dans le .POS les consignes du recodage, comme le formulaire de préparation"_w,
                        PreparerParScript)
      .Couples("regle", &O::regles, "NOM=REGLE",
               "règle d'une question (AGE=1-3=1/4-8=2) ; vide : plus de règle ; se répète"_w)
      .Montre("TextMod")
      .Libre("ponderation", "NOM|non", "question de pondération (\\non : celle du nom NON)"_w, PoserPonderation,
             EcrirePonderation)
      .Montre("LabelPond")
      .Alias({"pond"})
      .Choix("effectif", &O::maximum, {{"reduit", false}, {"maximum", true}}, "effectif résultant de la pondération"_w)
      .Bouton("OptEffReduit", "reduit")
      .Bouton("OptEffMax", "maximum")
      .Libre("filtre", kFormeFiltre,
             "individus gardés ou écartés, tous les codes étant exigés ensemble ; plus: en ajoute au filtre présent"_w,
             PoserFiltre, EcrireFiltre)
      .ADesNoms()
      .Montre("TextFiltre")
      .Libre(
          "textevit", "LIGNE|LIGNE|...",
          "texte de toutes les variables idéales-typiques, comme le corrige l'éditeur du formulaire ($$NOM, puis une "
          "ligne par élément) ; \\| est un | dans une ligne, et \\\\ un \\ devant l'un des deux"_w,
          PoserTexteVit, EcrireTexteVit)
      .Montre("TextVIT")
      .Libre("vit", kFormeVit,
             "variable idéale-typique ajoutée à celles du fichier ; non les efface ; se répète ; dans le nom d'une "
             "question \\+ est un + et \\* un *"_w,
             PoserVit, EcrireVits)
      .ADesNoms()
      .Repetable()
      .Montre("ComboVIT");
}

}  // namespace

const Description<OptionsPrepRecod>& DescriptionPrepRecod() {
  static const Description<OptionsPrepRecod> description = Decrire();
  return description;
}

}  // namespace quelvar::sorts
