#include "capture/presence.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "capture/classeur/classeur.h"
#include "capture/compterendu/fichiers.h"
#include "core/enquete/posfile.h"

namespace quelvar::capture {

SourcesPresentes ChercherSources(const Contexte& contexte) {
  if (contexte.generique.empty()) return {};
  const auto present = [&](std::string_view extension) { return contexte.Chercher(extension).has_value(); };
  return {present(".DBF"), present(".CSV"),
          present(".DAT"), ChercherPos(contexte.repertoire, contexte.Nom(".POS")).has_value(),
          present(".BRT"), present(".TXT"),
          present(".IMP")};
}

std::vector<FichierImportable> FichiersImportables(const Chemin& repertoire) {
  std::vector<FichierImportable> fichiers;
  std::error_code faute;
  for (std::filesystem::directory_iterator entree(repertoire, faute), fin; !faute && entree != fin;
       entree.increment(faute)) {
    const std::string extension = entree->path().extension().string();
    const bool lu = EstNomDeClasseur(extension) ||
                    std::ranges::any_of(std::array{".csv", ".txt", ".tsv", ".dbf"},
                                        [&](std::string_view e) { return EgalSansCasse(extension, e); });
    if (!lu || entree->path().filename().native().starts_with('.') || !entree->is_regular_file(faute)) continue;
    fichiers.push_back({entree->path(), entree->file_size(faute)});
  }
  std::ranges::sort(fichiers, {}, [](const FichierImportable& f) { return Minuscules(TexteDe(f.chemin.filename())); });
  return fichiers;
}

std::string_view TextePresence(bool present) { return present ? "Présent"_w : std::string_view("Absent"); }

std::string AideImportCsv(const SourcesPresentes& sources, bool sansIntitules) {
  if (!sources.DeTableur())
    return Joindre(
        {"Pas d'mportation d'un fichier CSV (*.CSV) ou d'un fichier TXT (*.TXT) possible du fait de "
         "l'absence de fichiers.\r\nAnnulez.\r\n"_w});
  std::string texte = Joindre(
      {"Importation d'un fichier CSV (*.CSV) ou d'un fichier TXT (*.TXT) .\r\n"
       "Le nom du champ issu d'Excel  est repris uniquement dans le cas des champs de largeur 1, 2 ou 3. Les autres "
       "champs son conservés dans le fichier *.DAT mais non dans le fichier *.POS\r\n"_w});
  if (sources.dat || sources.pos)
    texte +=
        "Attention les fichiers *.DAT et *.POS qui existent déjà seront remplacés du fait de l'importation du "
        "fichier CSV.\r\n"_w;
  if (sansIntitules) texte += "Dans ce cas, un fichier DAT est créé mais non un fichier POS.\r\n"_w;
  return texte;
}

std::string AideImport(const SourcesPresentes& sources, int niveau) {
  if (sources.dbf && (sources.dat || sources.pos))
    return Joindre(
        {"Importation d'un fichier dBase (*.DBF).\r\n"
         "Attention les fichiers *.DAT et *.POS qui existent déjà seront remplacés du fait de l'importation du fichier "
         "dBase ; ils sont sauvegardés.\r\n"_w});
  if (sources.dbf || sources.dat) return "Importation d'un fichier dBase (*.DBF).\r\n";
  return Joindre(
      {"Pas d'mportation d'un fichier dBase (*.DBF) ou d'un fichier de données (*.DAT) possible du fait de "
       "l'absence de fichiers.\r\n"_w,
       niveau < kNiveauAvance ? std::string_view("Annulez.\r\n")
                              : "Annulez ou prenez l'option d'importation d'un tableau de Burt.\r\n"_w});
}

std::string AideImportBurt() {
  return Joindre(
      {"Importation d'un tableau de Burt issu de SAS : un fichier texte d'une ligne par modalité, son intitulé puis "
       "ses effectifs séparés par des blancs.\r\n"
       "Dans PROC CORRESP;\r\n"
       "     format  Q1  formatQ1.  Q2  formatQ2  etc. ;\r\n"
       "     ods  output   Burt=fichtemp ;\r\n"
       "Puis\r\n"
       "DATA _NULL_;\r\n"
       "     set fichtemp ;\r\n"
       "     file 'burt.txt' lrecl=32767 ;\r\n"
       "     put Label $40. (_NUMERIC_) (9.) ;\r\n"
       "RUN;\r\n"
       "Noms courts donnés par l'utilisateur : les quatre premiers caractères de chaque format.\r\n"_w});
}

}  // namespace quelvar::capture
