// The file that a user names, and the text that is read of it: sheets of workbooks become one first.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "capture/apercu/octets/lecture.h"
#include "capture/classeur/classeur.h"
#include "core/fichiers/fichiers.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

enum class GenreDeSource { Texte, Classeur, DBase };

// By its extension: .ods and .xlsx, .dbf, all others are texts.
GenreDeSource GenreDe(const Chemin& fichier);

// A text to be read: the file itself, or a scratch file made of a sheet, which goes with the object.
class SourceDeTable {
 public:
  // `feuille`: name or number of the sheet, empty for the first one that holds a table. The scratch file stands in
  // `repertoire`. Raises a sentence for a sheet that is not there or a workbook that cannot be read. `suivi` gets how
  // much of the parts of a workbook is read, in percent; what it throws ends the reading.
  SourceDeTable(const Chemin& fichier, std::string_view feuille, const Chemin& repertoire,
                const classeur::SuiviDArchive& suivi = {});
  ~SourceDeTable();
  SourceDeTable(const SourceDeTable&) = delete;
  SourceDeTable& operator=(const SourceDeTable&) = delete;

  const Chemin& Texte() const { return texte_; }
  // The name of the file that was given, without directory.
  const std::string& Nom() const { return nom_; }
  bool EstCopie() const { return copie_ != nullptr; }
  // The sheet of a workbook; nothing for a file that is a text itself.
  const std::optional<FeuilleLue>& Feuille() const { return feuille_; }

 private:
  std::string nom_;
  Chemin texte_;
  std::unique_ptr<Remplacement> copie_;
  std::optional<FeuilleLue> feuille_;
};

// The reading of a source; the numbers of a sheet have a decimal point, whatever they look like. Sheets that were
// passed over are among its doubts. A refusal tells the sheet that it bears on.
LectureDetectee DetecterLecture(const SourceDeTable& source, EtendueDeLecture etendue = EtendueDeLecture::Tete);

// The reading in one French sentence (code page): of a sheet its name and place, of a text what DireLecture says.
std::string DireLecture(const SourceDeTable& source, const Lecture& lecture);
// The other sheets of the workbook in a sentence; empty without any.
std::string DireAutresFeuilles(const SourceDeTable& source);

// The sentence of a refusal with the sheet that it bears on and the other ones.
std::string RefusDeFeuille(const FeuilleLue& feuille, std::string_view refus);

// Does what reads the source; a failure that knows its line gets the name of the file, and a sentence that refuses a
// sheet also names it and the other ones.
template <typename Faire>
auto EnNommantLaSource(const SourceDeTable& source, Faire&& faire) {
  try {
    return faire();
  } catch (Erreur& erreur) {
    if (erreur.Ou().ligne > 0) erreur.Situer({source.Nom()});
    if (!source.Feuille() || erreur.Numero() != kIncompatibiliteType || erreur.Phrase().empty()) throw;
    throw Erreur(kIncompatibiliteType, RefusDeFeuille(*source.Feuille(), erreur.Phrase())).Situer(erreur.Ou());
  }
}

}  // namespace quelvar::capture
