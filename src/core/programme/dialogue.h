// What a program may ask of a screen, as a struct of functions: the main form, quelvar-batch and the tests fill it, and
// no program can tell who is listening.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/chiffres/dateheure.h"
#include "core/texte/texte.h"

namespace quelvar {

// NonOui: a question whose default is no.
enum class Boutons { Ok, OkAnnuler, OuiNon, OuiNonAnnuler, NonOui };
enum class Reponse { Ok, Oui, Non, Annuler };

constexpr Reponse PremierBouton(Boutons boutons) {
  if (boutons == Boutons::NonOui) return Reponse::Non;
  return boutons == Boutons::Ok || boutons == Boutons::OkAnnuler ? Reponse::Ok : Reponse::Oui;
}

// What is shown at the end of a run.
struct Affichage {
  enum class Ou { Texte, Lecteur, Rien };
  Ou ou = Ou::Texte;
  std::string texte;       // what stands in Text1
  std::string nomRapport;  // the displayed file
  std::string rapport;     // path of the report, for the viewer; empty when it is deleted
  std::string panne;       // of a run that stopped: the failure and its place, when its reader knows it
};

struct Dialogue {
  // Shows the progress display with its maximum; 0 hides it.
  std::function<void(std::int64_t maximum)> montrerProgression = [](std::int64_t) {};
  // Sets the progress; programs call it every few thousand steps.
  std::function<void(std::int64_t faits)> progresser = [](std::int64_t) {};
  // The text of LabelIter.
  std::function<void(std::string_view texte)> montrerIteration = [](std::string_view) {};
  // A message box; the default is its first button.
  std::function<Reponse(std::string_view texte, Boutons boutons)> demander = [](std::string_view, Boutons boutons) {
    return PremierBouton(boutons);
  };
  // An input box: the text typed, the proposed one when it is accepted, an empty one when it is cancelled.
  std::function<std::string(std::string_view question, std::string_view propose)> saisir =
      [](std::string_view, std::string_view propose) { return std::string(propose); };
  // A file dialog with filters such as "Fichiers *.dat|*.dat|Tous fichiers *.*|*.*": a path, empty when cancelled.
  std::function<std::string(std::string_view titre, std::string_view filtre)> choisirFichier =
      [](std::string_view, std::string_view) { return std::string(); };
  std::function<void()> biper = [] {};
  std::function<void(const Affichage& affichage)> afficher = [](const Affichage&) {};
  std::function<DateHeure()> horloge = HeureLocale;
};

}  // namespace quelvar
