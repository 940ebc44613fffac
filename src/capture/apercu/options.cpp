#include "capture/apercu/options.h"

namespace quelvar::capture {

namespace {

Description<OptionsImport> Decrire(std::string nom, std::string_view resume, std::string_view fichiers,
                                   Description<OptionsImport>::Entree entree) {
  using O = OptionsImport;
  return Description<O>(std::move(nom), resume, std::move(entree))
      .Fichier("fichier", &O::fichier, "FICHIER", fichiers)
      .Defaut("le .CSV ou le .TXT du générique"_w)
      .Fichier("choix", &O::fichierChoix, "FICHIER.IMC", "ce que deviennent les colonnes, comme un import l'a gardé"_w)
      .Defaut("ce qui est proposé"_w)
      .Texte("feuille", &O::feuille, "NOM|N", "feuille d'un classeur")
      .SeCherche()
      .Defaut("la première"_w)
      .Montre("ComboFeuille")
      .Choix(
          "encodage", [](auto& o) -> auto& { return o.lecture.encodage; },
          {{"utf-8", EncodageDeTable::Utf8},
           {"utf-16le", EncodageDeTable::Utf16LE},
           {"utf-16be", EncodageDeTable::Utf16BE},
           {"windows-1252", EncodageDeTable::Windows1252},
           {"latin-9", EncodageDeTable::Latin9},
           {"cp850", EncodageDeTable::Cp850}},
          "encodage des caractères"_w)
      .Defaut("ce que montre le fichier")
      .Montre("ComboEncodage")
      .Choix(
          "separateur", [](auto& o) -> auto& { return o.lecture.separateur; },
          {{"point-virgule", ';'}, {"virgule", ','}, {"tabulation", '\t'}, {"barre", '|'}}, "signe entre les cellules")
      .Defaut("ce que montre le fichier")
      .Montre("ComboSeparateur")
      .Choix(
          "decimale", [](auto& o) -> auto& { return o.lecture.decimale; }, {{"virgule", ','}, {"point", '.'}},
          "signe décimal des nombres"_w)
      .Defaut("ce que montre le fichier")
      .Montre("ComboDecimale")
      .OuiNon(
          "guillemets", [](auto& o) -> auto& { return o.lecture.guillemets; }, "un guillemet ouvre une cellule")
      .Defaut("oui")
      .Montre("CheckGuillemets")
      .OuiNon(
          "titres", [](auto& o) -> auto& { return o.lecture.titres; }, "la première ligne donne les intitulés"_w)
      .Defaut("ce que montre le fichier")
      .Montre("CheckTitres");
}

}  // namespace

const Description<OptionsImport>& DescriptionImport() {
  static const Description<OptionsImport> description =
      Decrire("import",
              "Importation de toute table, colonne par colonne "
              "(.DAT, .POS, .MOD, .TXT, .IMC, .IMP)"_w,
              "table à importer : .csv, .txt, .ods, .xlsx ou .dbf"_w, Importer)
          .OuiNon("remplacer", &OptionsImport::remplacer,
                  "remplace les fichiers du générique s'il existe, "
                  "sans le demander"_w);
  return description;
}

const Description<OptionsImport>& DescriptionApercu() {
  static const Description<OptionsImport> description =
      Decrire("apercu", "Aperçu d'une table à importer : ce que sont ses colonnes et ce qu'elles deviennent"_w,
              "table à regarder : .csv, .txt, .ods ou .xlsx"_w, MontrerApercu);
  return description;
}

}  // namespace quelvar::capture
