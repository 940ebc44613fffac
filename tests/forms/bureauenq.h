// Surveys of two questions before the main form: alone, with the spreadsheet that they may have come from, with a
// table.
#pragma once

#include "forms/pilote.h"

namespace essai {

inline constexpr const char* kTableur = "NUM;SEX Sexe;AGE Age\r\n1;1;3\r\n2;2;1\r\n3;1;2\r\n";

struct BureauEnq : Bureau {
  using Bureau::Bureau;
  void AvecDonnees() {
    Ecrire("ENQ.POS", "ENQ\r\n 4 \r\nSEX   1 2 $Sexe$\r\nAGE   2 3 $Age$\r\n");
    Ecrire("ENQ.DAT", "13\r\n21\r\n12\r\n 9\r\n");
    Ecrire("ENQ.MOD", "ENQ\r\n\r\nSEX1   Homme\r\nSEX2   Femme\r\n");
  }
};

// Three individuals, and a table of two rows whose columns are the modalities.
struct BureauDeTable : Bureau {
  BureauDeTable() : Bureau(2) {
    Ecrire("ENQ.POS", "ENQ\r\n 3 \r\nAGE   1 9 $Age$\r\nSEX   2 9\r\n");
    Ecrire("ENQ.DAT", "12\r\n21\r\n12\r\n");
    Ecrire("ENQ.MOD",
           "ENQ\r\n LIGN=2 COL=4 FMT=2\r\nAGE1   jeunes\r\nAGE2   vieux\r\nSEX1   hommes\r\nSEX2   femmes\r\n");
    Ecrire("ENQ.BRT", "OUV  1 2 3 4\r\nCAD  4 3 2 1\r\n");
  }
};

}  // namespace essai
