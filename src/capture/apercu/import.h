// Import of any table under the choices made for its columns: .DAT, .POS, labels in .MOD, texts in .TXT, numbers under
// the generic followed by N, the choices in .IMC, an account in .IMP. The window and the companion both come here.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"
#include "capture/apercu/octets/source.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// A reading that is laid down in place of the one detected.
struct LectureImposee {
  std::optional<Encodage> encodage;
  std::optional<char> separateur;
  std::optional<char> decimale;
  std::optional<bool> guillemets;
  std::optional<bool> titres;

  bool operator==(const LectureImposee&) const = default;
  Lecture Appliquer(Lecture detectee) const;
};

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

// Runs the import; a .dbf goes to the dBase import. Every failure is told in the report; former files stay whole until
// the normal end.
Fin Importer(const Contexte& contexte, const OptionsImport& options);

// Prints the table of the columns of a file, and what would become of them; writes nothing.
Fin MontrerApercu(const Contexte& contexte, const OptionsImport& options);

}  // namespace quelvar::capture
