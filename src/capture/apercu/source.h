// The file that a user names, and the text that is read of it: sheets of workbooks become one first.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "capture/apercu/lecture.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

enum class GenreDeSource { Texte, Classeur, DBase };

// By its extension: .ods and .xlsx, .dbf, all others are texts.
GenreDeSource GenreDe(const Chemin& fichier);

// A text to be read: the file itself, or a scratch file made of a sheet, which goes with the object.
class SourceDeTable {
 public:
  // `feuille`: name or number of the sheet, empty for the first one. The scratch file stands in `repertoire`. Raises a
  // sentence for a sheet that is not there or a workbook that cannot be read. `suivi` gets the rows of the sheet that
  // are read, now and then.
  SourceDeTable(const Chemin& fichier, std::string_view feuille, const Chemin& repertoire,
                const std::function<void(std::int64_t)>& suivi = {});
  ~SourceDeTable();
  SourceDeTable(const SourceDeTable&) = delete;
  SourceDeTable& operator=(const SourceDeTable&) = delete;

  const Chemin& Texte() const { return texte_; }
  bool EstCopie() const { return copie_ != nullptr; }

 private:
  Chemin texte_;
  std::unique_ptr<Remplacement> copie_;
};

// The reading of a source; the numbers of a sheet have a decimal point, whatever they look like.
LectureDetectee DetecterLecture(const SourceDeTable& source, Etendue etendue = Etendue::Tete);

}  // namespace quelvar::capture
