// The menu of the main form: every entry in its place, with name, caption and shortcut.
#pragma once

#include <QMenuBar>
#include <QString>
#include <span>

namespace quelvar::forms {

enum class GenreDeLigne { Menu, SousMenu, FinDeSousMenu, Entree, Coche, Separateur };

struct LigneDeMenu {
  GenreDeLigne genre;
  const char* nom = "";        // objectName of the action or menu
  const char* texte = "";      // UTF-8
  const char* raccourci = "";  // as QKeySequence reads it
};

// Fills the bar. Every entry starts disabled: what has a program behind it is enabled by the form.
void ConstruireMenus(QMenuBar& barre);

// A result file that the menu "Affichage" shows.
enum class GenreDAffichage { Entier, Partiel, SousRegle };
struct EntreeDAffichage {
  const char* nom;        // of the action
  const char* extension;  // ".tap"
  GenreDAffichage genre = GenreDAffichage::Entier;
};
std::span<const EntreeDAffichage> EntreesDAffichage();

// What an entry of the menu "Aide" opens: a document, and a place in it.
struct EntreeDAide {
  const char* nom;
  const char* document;
  const char* ancre = "";
};
std::span<const EntreeDAide> EntreesDAide();

}  // namespace quelvar::forms
