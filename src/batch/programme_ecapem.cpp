#include "batch/programmes.h"
#include "tables/ecapem.h"

namespace quelvar::batch {

namespace {

template <typename T>
using Mots = std::vector<std::pair<std::string_view, T>>;

// Sets the member after the word given; the words of the call itself ("OUICour", "2.706", "POSI") do as well as those
// that the help shows.
template <typename T>
Description<OptionsEcapem>::Poser PoserMot(std::string nom, std::string valeurs, T OptionsEcapem::*membre,
                                           Mots<T> mots) {
  return [=](OptionsEcapem& options, const std::string& texte) {
    for (const auto& [mot, valeur] : mots) {
      if (!EgalSansCasse(mot, texte)) continue;
      options.*membre = valeur;
      return;
    }
    throw UsageIncorrect(Joindre({"l'option ", nom, " attend ", valeurs, " et non \"", texte, "\""}));
  };
}

const Mots<ModeIntitules> kIntitules = {
    {"longs", ModeIntitules::Longs}, {"courts", ModeIntitules::Courts},  {"quatre", ModeIntitules::QuatreCaracteres},
    {"non", ModeIntitules::Longs},   {"ouicour", ModeIntitules::Courts}, {"oui4car", ModeIntitules::QuatreCaracteres}};

const Mots<SeuilKhi2> kSeuils = {
    {"10", SeuilKhi2::DixPourCent},     {"2.706", SeuilKhi2::DixPourCent}, {"5", SeuilKhi2::CinqPourCent},
    {"3.841", SeuilKhi2::CinqPourCent}, {"1", SeuilKhi2::UnPourCent},      {"6.635", SeuilKhi2::UnPourCent},
    {"tous", SeuilKhi2::Aucun},         {"0", SeuilKhi2::Aucun},           {"gendat", SeuilKhi2::Gendat}};

const Mots<bool> kPem = {{"positifs", true}, {"posi", true},  {"oui", true},
                         {"tous", false},    {"nega", false}, {"non", false}};

const Mots<ChoixDeLiens> kLiaisons = {{"2000", ChoixDeLiens::DeuxMille}, {"1", ChoixDeLiens::DeuxMille},
                                      {"80", ChoixDeLiens::IndexDe80},   {"2", ChoixDeLiens::IndexDe80},
                                      {"toutes", ChoixDeLiens::Tous},    {"3", ChoixDeLiens::Tous}};

void PoserTousPem(OptionsEcapem& options, const std::string& valeur) {
  options.seuil = LireOuiNon("touspem", valeur) ? SeuilKhi2::Aucun : OptionsEcapem{}.seuil;
}

}  // namespace

Programme ProgrammeEcapem() {
  const std::string intitules = "longs|courts|quatre";
  const std::string seuils = "10|5|1|tous|gendat";
  const std::string pem = "positifs|tous";
  const std::string liaisons = "2000|80|toutes";
  return Description<OptionsEcapem>(
             "ecapem", "Profils de modalités : analyse d'un tableau, PEM et indices d'association (.PRO)"_w, Ecapem)
      .Libre(
          "intitules", intitules, "longs",
          "intitulés longs, ou édition compacte avec les noms courts ou les quatre premiers caractères des noms longs"_w,
          PoserMot("intitules", intitules, &OptionsEcapem::intitules, kIntitules))
      .Alias({"chkintit", "etiquettes"})
      .Libre("seuil", seuils, "10", "seuil du khi-deux en %, tous les PEM, ou gendat : arrêt après les tableaux"_w,
             PoserMot("seuil", seuils, &OptionsEcapem::seuil, kSeuils))
      .Libre("touspem", "oui|non", "non", "édition avec tous les PEM, significatifs ou non, comme seuil=tous"_w,
             PoserTousPem)
      .Alias({"chkk2"})
      .Libre("pem", pem, "positifs", "écarts pris en compte ; seuls les PEM positifs deviennent des liens"_w,
             PoserMot("pem", pem, &OptionsEcapem::positifsSeuls, kPem))
      .Alias({"chkcompact", "mode"})
      .OuiNon("diagonalisation", &OptionsEcapem::diagonalisation, "refait l'analyse sur le tableau diagonalisé"_w)
      .Alias({"chkretour", "retour"})
      .OuiNon("tableaux", &OptionsEcapem::tousTableaux, "imprime les tableaux même au-delà de 30 lignes ou colonnes"_w)
      .Alias({"chktab"})
      .OuiNon("pel", &OptionsEcapem::liensLignes, "calcule les liaisons entre lignes du tableau (.PEL)"_w)
      .Alias({"chkpel"})
      .Libre("liaisons", liaisons, "2000",
             "liaisons entre lignes gardées : 2000 au plus, celles d'index 80 à 100, toutes"_w,
             PoserMot("liaisons", liaisons, &OptionsEcapem::choixLiens, kLiaisons))
      .Alias({"modepel"})
      .OuiNon("cliques", &OptionsEcapem::cliques,
              "enregistre les cliques issues de Ucinet (.NT1) dans le .PEL, sans autre analyse"_w)
      .Alias({"checkclique"});
}

}  // namespace quelvar::batch
