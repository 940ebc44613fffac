#include "tables/ecapem_options.h"

namespace quelvar::tables {

namespace {

using O = OptionsEcapem;

// The words of the help and, behind them, those that the form passes.
const Description<O>::Mots<ModeIntitules> kIntitules = {
    {"longs", ModeIntitules::Longs},    {"courts", ModeIntitules::Courts},
    {"non", ModeIntitules::Longs},      {"quatre", ModeIntitules::QuatreCaracteres},
    {"ouicour", ModeIntitules::Courts}, {"oui4car", ModeIntitules::QuatreCaracteres}};

const Description<O>::Mots<SeuilAnnonce> kSeuils = {
    {"10", SeuilAnnonce::DixPourCent}, {"5", SeuilAnnonce::CinqPourCent},     {"1", SeuilAnnonce::UnPourCent},
    {"tous", SeuilAnnonce::Aucun},     {"gendat", SeuilAnnonce::Gendat},      {"2.706", SeuilAnnonce::DixPourCent},
    {"0", SeuilAnnonce::Aucun},        {"3.841", SeuilAnnonce::CinqPourCent}, {"6.635", SeuilAnnonce::UnPourCent}};

const Description<O>::Mots<bool> kPem = {{"positifs", true}, {"tous", false}, {"posi", true},
                                         {"nega", false},    {"oui", true},   {"non", false}};

const Description<O>::Mots<ChoixDeLiens> kLiaisons = {
    {"2000", ChoixDeLiens::DeuxMille}, {"80", ChoixDeLiens::IndexDe80}, {"toutes", ChoixDeLiens::Tous},
    {"1", ChoixDeLiens::DeuxMille},    {"2", ChoixDeLiens::IndexDe80},  {"3", ChoixDeLiens::Tous}};

Description<O> Decrire() {
  return Description<O>("ecapem", "Profils de modalités : analyse d'un tableau, PEM et indices d'association (.PRO)"_w,
                        Ecapem)
      .Choix(
          "intitules", &O::intitules, kIntitules,
          "intitulés longs, ou édition compacte avec les noms courts ou les quatre premiers caractères des noms longs"_w)
      .Alias({"chkintit"})
      .Bouton("OptCourt", "courts")
      .Bouton("OptLong", "quatre")
      .Bouton("OptDefaut", "longs")  // these three in the form of the utilities
      .Bouton("OptCour", "courts")
      .Bouton("OptCour4", "quatre")
      .Choix("seuil", &O::seuil, kSeuils,
             "seuil du khi-deux en %, tous les PEM, ou gendat : arrêt après les tableaux"_w)
      .Bouton("Opt10", "10")
      .Bouton("Opt5", "5")
      .Bouton("Opt1", "1")
      .Bouton("ChkK2", "tous")
      .Alias("touspem", {{"oui", "tous"}, {"non", ""}})
      .Alias("chkk2", {{"oui", "tous"}, {"non", ""}})
      .Choix("pem", &O::pemPositifs, kPem, "écarts pris en compte ; seuls les PEM positifs deviennent des liens"_w)
      .Bouton("ChkCompact", "positifs")
      .Alias({"chkcompact", "mode"})
      .OuiNon("diagonalisation", &O::diagonalisation, "refait l'analyse sur le tableau diagonalisé"_w)
      .Montre("ChkRetour")
      .OuiNon("tableaux", &O::tousTableaux, "imprime les tableaux même au-delà de 30 lignes ou colonnes"_w)
      .Montre("ChkTab")
      .OuiNon("pel", &O::liensLignes, "calcule les liaisons entre lignes du tableau (.PEL)"_w)
      .Montre("ChkPEL")
      .Choix("liaisons", &O::choixLiens, kLiaisons,
             "liaisons entre lignes gardées : 2000 au plus, celles d'index 80 à 100, toutes"_w)
      .Bouton("Opt2M", "2000")
      .Bouton("Opt50", "80")
      .Bouton("OptAll", "toutes")
      .OuiNon("cliques", &O::cliques,
              "enregistre les cliques issues de Ucinet (.NT1) dans le .PEL, sans autre analyse"_w)
      .Montre("CheckClique");
}

}  // namespace

const Description<OptionsEcapem>& DescriptionEcapem() {
  static const Description<OptionsEcapem> description = Decrire();
  return description;
}

}  // namespace quelvar::tables
