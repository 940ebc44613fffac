// What an import of any table is asked for: the source, how it is read, what becomes of its columns.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"
#include "capture/apercu/octets/source.h"

namespace quelvar::capture {

struct OptionsImport {
  std::string fichier;       // table to import (code page); empty: the .CSV or .TXT of the generic
  std::string fichierChoix;  // .IMC; empty: what is proposed without any hand
  std::string feuille;       // sheet of a workbook
  bool remplacer = false;    // the files of a generic that is there, unasked
  LectureImposee lecture;
  std::shared_ptr<const SourceDeTable> ouverte;  // the sheet, when the window has read it already
  // Made in the window, where they go before the file; those that are what the first rows propose are proposed again
  // from the whole file.
  std::vector<ChoixDeColonne> choix;

  bool operator==(const OptionsImport&) const = default;
};

}  // namespace quelvar::capture
