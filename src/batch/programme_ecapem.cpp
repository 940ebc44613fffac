#include <algorithm>

#include "batch/programmes.h"
#include "tables/ecapem.h"

namespace quelvar::batch {

namespace {

using DescriptionEcapem = Description<tables::OptionsEcapem>;

// A word of the command line and what it stands for.
template <typename T>
using Mots = std::vector<std::pair<std::string_view, T>>;

// One of the words, the first of them for each value shown by the help; those that the form passes ("OUICour", "2.706",
// "POSI") do as well.
template <typename T>
DescriptionEcapem& Parmi(DescriptionEcapem& description, const std::string& nom, T tables::OptionsEcapem::*membre,
                         const Mots<T>& mots, std::string_view aide) {
  std::string valeurs;
  std::string defaut;
  std::vector<T> vues;
  for (const auto& [mot, valeur] : mots) {
    if (std::find(vues.begin(), vues.end(), valeur) != vues.end()) continue;
    vues.push_back(valeur);
    valeurs += (valeurs.empty() ? "" : "|") + std::string(mot);
    if (tables::OptionsEcapem{}.*membre == valeur) defaut = mot;
  }
  return description.Libre(nom, valeurs, defaut, aide, [=](tables::OptionsEcapem& options, const std::string& texte) {
    const auto trouve =
        std::find_if(mots.begin(), mots.end(), [&](const auto& mot) { return EgalSansCasse(mot.first, texte); });
    if (trouve == mots.end())
      throw UsageIncorrect(Joindre({"l'option ", nom, " attend ", valeurs, " et non \"", texte, "\""}));
    options.*membre = trouve->second;
  });
}

const Mots<tables::ModeIntitules> kIntitules = {
    {"longs", tables::ModeIntitules::Longs},    {"courts", tables::ModeIntitules::Courts},
    {"non", tables::ModeIntitules::Longs},      {"quatre", tables::ModeIntitules::QuatreCaracteres},
    {"ouicour", tables::ModeIntitules::Courts}, {"oui4car", tables::ModeIntitules::QuatreCaracteres}};

const Mots<tables::SeuilKhi2> kSeuils = {
    {"10", tables::SeuilKhi2::DixPourCent},  {"5", tables::SeuilKhi2::CinqPourCent},
    {"1", tables::SeuilKhi2::UnPourCent},    {"tous", tables::SeuilKhi2::Aucun},
    {"gendat", tables::SeuilKhi2::Gendat},   {"2.706", tables::SeuilKhi2::DixPourCent},
    {"0", tables::SeuilKhi2::Aucun},         {"3.841", tables::SeuilKhi2::CinqPourCent},
    {"6.635", tables::SeuilKhi2::UnPourCent}};

const Mots<bool> kPem = {{"positifs", true}, {"tous", false}, {"posi", true},
                         {"nega", false},    {"oui", true},   {"non", false}};

const Mots<tables::ChoixDeLiens> kLiaisons = {
    {"2000", tables::ChoixDeLiens::DeuxMille}, {"80", tables::ChoixDeLiens::IndexDe80},
    {"toutes", tables::ChoixDeLiens::Tous},    {"1", tables::ChoixDeLiens::DeuxMille},
    {"2", tables::ChoixDeLiens::IndexDe80},    {"3", tables::ChoixDeLiens::Tous}};

void PoserTousPem(tables::OptionsEcapem& options, const std::string& valeur) {
  options.seuil = LireOuiNon("touspem", valeur) ? tables::SeuilKhi2::Aucun : tables::OptionsEcapem{}.seuil;
}

}  // namespace

Programme ProgrammeEcapem() {
  DescriptionEcapem description(
      "ecapem", "Profils de modalités : analyse d'un tableau, PEM et indices d'association (.PRO)"_w, tables::Ecapem);
  Parmi(description, "intitules", &tables::OptionsEcapem::intitules, kIntitules,
        "intitulés longs, ou édition compacte avec les noms courts ou les quatre premiers caractères des noms longs"_w)
      .Alias({"chkintit"});
  Parmi(description, "seuil", &tables::OptionsEcapem::seuil, kSeuils,
        "seuil du khi-deux en %, tous les PEM, ou gendat : arrêt après les tableaux"_w)
      .Libre("touspem", "oui|non", "non", "édition avec tous les PEM, significatifs ou non, comme seuil=tous"_w,
             PoserTousPem)
      .Alias({"chkk2"});
  Parmi(description, "pem", &tables::OptionsEcapem::positifsSeuls, kPem,
        "écarts pris en compte ; seuls les PEM positifs deviennent des liens"_w)
      .Alias({"chkcompact", "mode"})
      .OuiNon("diagonalisation", &tables::OptionsEcapem::diagonalisation,
              "refait l'analyse sur le tableau diagonalisé"_w)
      .Alias({"chkretour"})
      .OuiNon("tableaux", &tables::OptionsEcapem::tousTableaux,
              "imprime les tableaux même au-delà de 30 lignes ou colonnes"_w)
      .Alias({"chktab"})
      .OuiNon("pel", &tables::OptionsEcapem::liensLignes, "calcule les liaisons entre lignes du tableau (.PEL)"_w)
      .Alias({"chkpel"});
  Parmi(description, "liaisons", &tables::OptionsEcapem::choixLiens, kLiaisons,
        "liaisons entre lignes gardées : 2000 au plus, celles d'index 80 à 100, toutes"_w)
      .OuiNon("cliques", &tables::OptionsEcapem::cliques,
              "enregistre les cliques issues de Ucinet (.NT1) dans le .PEL, sans autre analyse"_w)
      .Alias({"checkclique"});
  return description;
}

}  // namespace quelvar::batch
