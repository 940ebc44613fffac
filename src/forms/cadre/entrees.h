// The programs behind the menu: one line an entry, one function a form.
//
// To add a form:
//   1. choixvar.ui, choixvar.h and choixvar.cpp in this folder, and choixvar.cpp in CMakeLists.txt. The class is a
//      QDialog with Q_OBJECT whose constructor takes Principal& and makes it its parent. The controls have the names
//      of their captions' table as objectName. What is more than reading a control lives beside the program, without
//      Qt, on a plain state that the form shows.
//   2. choixvar.h declares `void OuvrirChoixVar(Principal& principal);`, which reads what the form needs and calls
//      `principal.Montrer<ChoixVar>()`, or runs the program at once at level 1.
//   3. A button that runs a program calls
//      `principal.Lancer([&](const Contexte& contexte) { Croise(contexte, options); });` and, where told,
//      `principal.FermerFormes()` behind it. The result shows itself in Text1.
//   4. A program that changes the generic is followed by `principal.AdopterGenerique(nouveau)`.
//   5. One line in kEntrees (entrees.cpp) enables the menu entry.
//   6. Tests in tests/forms: essai::Bureau brings up the main form on a directory of its own and takes menu entries,
//      essai::Pilote answers the boxes that open.
// Texts of the core are bytes of the code page: VersQt and DepuisQt (texte_qt.h) are the door. Boxes are asked through
// `principal.Ecran()`, never made by a form.
#pragma once

#include <span>

namespace quelvar::forms {

class Principal;

struct EntreeDeProgramme {
  const char* action;          // name of the menu entry
  void (*ouvrir)(Principal&);  // shows the form, or runs the program at once
};

std::span<const EntreeDeProgramme> EntreesDeProgrammes();

}  // namespace quelvar::forms
