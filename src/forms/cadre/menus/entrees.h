// The programs behind the menu: one line an entry, one function a form.
//
// To add a form:
//   1. choixvar.ui, choixvar.h and choixvar.cpp in programmes/<folder of the program>, and choixvar.cpp in
//      CMakeLists.txt. The class is a Forme (forme.h) with Q_OBJECT whose constructor takes Services&. A control that
//      shows an option has the objectName that the option table of the program tells. What is more than reading a
//      control lives beside the program, without Qt, on a plain state that the form shows.
//   2. choixvar.h declares `void OuvrirChoixVar(Services& services);`, which reads what the form needs and calls
//      `Montrer<ChoixVar>(services)`, or runs the program at once at level 1.
//   3. The constructor shows the defaults by the table of the program, `PoserDefauts(*this, DescriptionCroise())`, and
//      ties its buttons: RelierCommande, RelierAide, RelierQuitter, AuDepart for a run that ends what the form had
//      begun. A form that holds work before it is saved says so in ATravail.
//   4. A button that runs a program calls `Lancer(DescriptionCroise(), options)`, where the options are what
//      `OptionsDesControles(*this, DescriptionCroise())` reads, and what no control shows (LancerEtape for a run on
//      what no options say). The result shows itself in Text1. A long one closes the forms behind the run; the handler
//      goes on as if it had not.
//   5. A program that changes the generic is followed by `services_.adopterGenerique(nouveau)`.
//   6. One line in kEntrees (entrees.cpp) enables the menu entry.
//   7. Tests in tests/forms: essai::Bureau brings up the main form on a directory of its own and takes menu entries,
//      essai::Pilote answers the boxes that open.
// Texts of the core are bytes of the code page: VersQt and DepuisQt (forms/qt/texte.h) are the door. Boxes are asked
// through `services_.ecran`, never made by a form.
#pragma once

#include <span>

namespace quelvar::forms {

struct Services;

struct EntreeDeProgramme {
  const char* action;         // name of the menu entry
  void (*ouvrir)(Services&);  // shows the form, or runs the program at once
  bool litLaBase = true;      // reads files of the data set, which the user may have open in the editor
};

std::span<const EntreeDeProgramme> EntreesDeProgrammes();

}  // namespace quelvar::forms
