#include "batch/programmes.h"
#include "sorts/preparation/script.h"

namespace quelvar::batch {

namespace {

constexpr std::string_view kAucun = "non";

[[noreturn]] void Refuser(std::string_view option, std::string_view attendu, std::string_view texte) {
  throw UsageIncorrect(Joindre({"l'option ", option, " attend ", attendu, " et non \"", texte, "\""}));
}

int LireCode(std::string_view option, std::string_view attendu, std::string_view texte) {
  if (texte.empty() || texte.size() > 3 || texte.find_first_not_of("0123456789") != std::string_view::npos)
    Refuser(option, attendu, texte);
  return static_cast<int>(ValeurDe(texte));
}

constexpr std::string_view kFormeFiltre = "incl:NOM=CODE,... ou excl:NOM=CODE,... ou non";

void LireFiltre(sorts::OptionsPrepRecod& options, const std::string& valeur) {
  sorts::FiltreDeScript filtre;
  if (Minuscules(valeur) != kAucun) {
    const std::string sens = Minuscules(valeur.substr(0, 5));
    if (sens != "incl:" && sens != "excl:") Refuser("filtre", kFormeFiltre, valeur);
    filtre.sens = sens == "incl:" ? sorts::SensFiltre::Inclure : sorts::SensFiltre::Exclure;
    for (const std::string& expression : NomsSepares(std::string_view(valeur).substr(5))) {
      const std::size_t egal = expression.find('=');
      if (egal == std::string::npos) Refuser("filtre", kFormeFiltre, valeur);
      filtre.expressions.emplace_back(expression.substr(0, egal),
                                      LireCode("filtre", kFormeFiltre, std::string_view(expression).substr(egal + 1)));
    }
  }
  options.filtre = filtre;
}

constexpr std::string_view kFormeVit = "NOM=QUESTION=CODE,QUESTION=CODE*SCORE,... ou NOM=QUESTION+,... ou non";

sorts::ElementDeScript LireElement(std::string_view texte) {
  sorts::ElementDeScript element;
  const std::size_t etoile = texte.find('*');
  if (etoile != std::string_view::npos) element.score = texte.substr(etoile + 1);
  texte = texte.substr(0, etoile);
  const std::size_t signe = texte.find_first_of("=+");
  if (signe == std::string_view::npos) Refuser("vit", kFormeVit, texte);
  element.question = texte.substr(0, signe);
  if (texte[signe] == '=') element.code = LireCode("vit", kFormeVit, texte.substr(signe + 1));
  if (element.code.value_or(0) > 99) Refuser("vit", "un code de deux chiffres", texte);
  return element;
}

void LireVit(sorts::OptionsPrepRecod& options, const std::string& valeur) {
  if (Minuscules(valeur) == kAucun) {
    options.supprimerVit = true;
    return;
  }
  const auto [nom, elements] = NomEtTexte("vit", valeur);
  sorts::VitDeScript vit{nom, {}};
  for (const std::string& element : NomsSepares(elements)) vit.elements.push_back(LireElement(element));
  options.vits.push_back(std::move(vit));
}

}  // namespace

Programme ProgrammePrepRecod() {
  return Description<sorts::OptionsPrepRecod>(
             "preprecod", "Écrit dans le .POS les consignes du recodage, comme le formulaire de préparation"_w,
             sorts::PreparerParScript)
      .Libre("regle", "NOM=REGLE", "", "règle d'une question (AGE=1-3=1/4-8=2) ; vide : plus de règle ; se répète"_w,
             [](sorts::OptionsPrepRecod& options, const std::string& valeur) {
               options.regles.push_back(NomEtTexte("regle", valeur));
             })
      .Libre("ponderation", "NOM|non", "", "question de pondération"_w,
             [](sorts::OptionsPrepRecod& options, const std::string& valeur) {
               options.ponderation = Minuscules(valeur) == kAucun ? std::string() : valeur;
             })
      .Alias({"pond"})
      .Libre("effectif", "reduit|maximum", "", "effectif résultant de la pondération"_w,
             [](sorts::OptionsPrepRecod& options, const std::string& valeur) {
               const std::string mot = Minuscules(valeur);
               if (mot != "reduit" && mot != "maximum") Refuser("effectif", "reduit|maximum", valeur);
               options.maximum = mot == "maximum";
             })
      .Libre("filtre", kFormeFiltre, "", "individus gardés ou écartés, tous les codes étant exigés ensemble"_w,
             LireFiltre)
      .Libre("vit", kFormeVit, "", "variable idéale-typique ajoutée à celles du fichier ; non les efface ; se répète"_w,
             LireVit);
}

}  // namespace quelvar::batch
