#include <algorithm>

#include "batch/programmes.h"
#include "tables/ecapem.h"

namespace quelvar::batch {

namespace {

using DescriptionEcapem = Description<OptionsEcapem>;

// A word of the command line and what it stands for.
template <typename T>
using Mots = std::vector<std::pair<std::string_view, T>>;

// One of the words, the first of them for each value shown by the help; those that the form passes ("OUICour", "2.706",
// "POSI") do as well.
template <typename T>
DescriptionEcapem& Parmi(DescriptionEcapem& description, const std::string& nom, T OptionsEcapem::*membre,
                         const Mots<T>& mots, std::string_view aide) {
  std::string valeurs;
  std::string defaut;
  std::vector<T> vues;
  for (const auto& [mot, valeur] : mots) {
    if (std::find(vues.begin(), vues.end(), valeur) != vues.end()) continue;
    vues.push_back(valeur);
    valeurs += (valeurs.empty() ? "" : "|") + std::string(mot);
    if (OptionsEcapem{}.*membre == valeur) defaut = mot;
  }
  return description.Libre(nom, valeurs, defaut, aide, [=](OptionsEcapem& options, const std::string& texte) {
    const auto trouve =
        std::find_if(mots.begin(), mots.end(), [&](const auto& mot) { return EgalSansCasse(mot.first, texte); });
    if (trouve == mots.end())
      throw UsageIncorrect(Joindre({"l'option ", nom, " attend ", valeurs, " et non \"", texte, "\""}));
    options.*membre = trouve->second;
  });
}

const Mots<ModeIntitules> kIntitules = {
    {"longs", ModeIntitules::Longs},    {"courts", ModeIntitules::Courts},
    {"non", ModeIntitules::Longs},      {"quatre", ModeIntitules::QuatreCaracteres},
    {"ouicour", ModeIntitules::Courts}, {"oui4car", ModeIntitules::QuatreCaracteres}};

const Mots<SeuilKhi2> kSeuils = {
    {"10", SeuilKhi2::DixPourCent}, {"5", SeuilKhi2::CinqPourCent},     {"1", SeuilKhi2::UnPourCent},
    {"tous", SeuilKhi2::Aucun},     {"gendat", SeuilKhi2::Gendat},      {"2.706", SeuilKhi2::DixPourCent},
    {"0", SeuilKhi2::Aucun},        {"3.841", SeuilKhi2::CinqPourCent}, {"6.635", SeuilKhi2::UnPourCent}};

const Mots<bool> kPem = {{"positifs", true}, {"tous", false}, {"posi", true},
                         {"nega", false},    {"oui", true},   {"non", false}};

const Mots<ChoixDeLiens> kLiaisons = {{"2000", ChoixDeLiens::DeuxMille}, {"80", ChoixDeLiens::IndexDe80},
                                      {"toutes", ChoixDeLiens::Tous},    {"1", ChoixDeLiens::DeuxMille},
                                      {"2", ChoixDeLiens::IndexDe80},    {"3", ChoixDeLiens::Tous}};

void PoserTousPem(OptionsEcapem& options, const std::string& valeur) {
  options.seuil = LireOuiNon("touspem", valeur) ? SeuilKhi2::Aucun : OptionsEcapem{}.seuil;
}

}  // namespace

Programme ProgrammeEcapem() {
  DescriptionEcapem description(
      "ecapem", "Profils de modalités : analyse d'un tableau, PEM et indices d'association (.PRO)"_w, Ecapem);
  Parmi(description, "intitules", &OptionsEcapem::intitules, kIntitules,
        "intitulés longs, ou édition compacte avec les noms courts ou les quatre premiers caractères des noms longs"_w)
      .Alias({"chkintit"});
  Parmi(description, "seuil", &OptionsEcapem::seuil, kSeuils,
        "seuil du khi-deux en %, tous les PEM, ou gendat : arrêt après les tableaux"_w)
      .Libre("touspem", "oui|non", "non", "édition avec tous les PEM, significatifs ou non, comme seuil=tous"_w,
             PoserTousPem)
      .Alias({"chkk2"});
  Parmi(description, "pem", &OptionsEcapem::positifsSeuls, kPem,
        "écarts pris en compte ; seuls les PEM positifs deviennent des liens"_w)
      .Alias({"chkcompact", "mode"})
      .OuiNon("diagonalisation", &OptionsEcapem::diagonalisation, "refait l'analyse sur le tableau diagonalisé"_w)
      .Alias({"chkretour"})
      .OuiNon("tableaux", &OptionsEcapem::tousTableaux, "imprime les tableaux même au-delà de 30 lignes ou colonnes"_w)
      .Alias({"chktab"})
      .OuiNon("pel", &OptionsEcapem::liensLignes, "calcule les liaisons entre lignes du tableau (.PEL)"_w)
      .Alias({"chkpel"});
  Parmi(description, "liaisons", &OptionsEcapem::choixLiens, kLiaisons,
        "liaisons entre lignes gardées : 2000 au plus, celles d'index 80 à 100, toutes"_w)
      .OuiNon("cliques", &OptionsEcapem::cliques,
              "enregistre les cliques issues de Ucinet (.NT1) dans le .PEL, sans autre analyse"_w)
      .Alias({"checkclique"});
  return description;
}

}  // namespace quelvar::batch
