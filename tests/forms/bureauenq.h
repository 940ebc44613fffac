// A survey of two questions, and the spreadsheet that it may have come from, before the main form.
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

}  // namespace essai
