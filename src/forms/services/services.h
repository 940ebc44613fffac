// What a form may ask of the program around it, as programs have their Dialogue: the session, the screen, the runs, the
// other forms, the help. The main form fills it once and every form gets it by reference.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/options/description.h"
#include "core/session/session.h"
#include "forms/aide/pages.h"
#include "forms/qt/dialogue.h"
#include "forms/services/formes.h"
#include "forms/services/lanceur.h"

namespace quelvar::forms {

struct Services {
  QWidget& fenetre;  // the main window, parent of every form
  Session& session;  // directory, generic, level
  Dialogue& ecran;   // boxes, files, beep: a form makes none of its own, nor of those below
  Lanceur& lanceur;
  Formes& formes;
  const PagesDAide& aide;

  // A program has moved the data set to another generic; Text1 keeps the report.
  std::function<void(std::string_view generique)> adopterGenerique;
  // A program has made files of the current generic: Qvr2.ini is written and the count of individuals read anew.
  std::function<void()> relireGenerique;
  // Replaces what Text1 holds by lines that belong to no file.
  std::function<void(std::string_view texte)> afficherTexte;
  // By the name of an entry of the menu: whether a program is behind it, and running it.
  std::function<bool(const QString& entree)> programmeExiste;
  std::function<void(const QString& entree)> ouvrirProgramme;

  // Moves of the session; those that return false were given up or refused, and have changed nothing.
  std::function<bool(const Chemin& initialisation)> ouvrirInitialisation;
  std::function<bool(const QString& saisi)> accepterGenerique;  // what CmdGenOui does with a typed name
  // A first use begins: the title says so until a generic is accepted or the use given up, and entry and import wait.
  std::function<void(bool nouvelle)> montrerNouvelleUtilisation;

  Contexte ContexteEnCours() const { return {session.repertoire, session.generique, session.niveau, &ecran}; }
  // Boxes that programs have no use for, over the window where the user is; empty when he gave up.
  std::optional<std::string> DemanderTexte(std::string_view question) const;
  QString ChoisirAOuvrir(const DemandeDeFichier& demande) const;
  QString ChoisirAEcrire(const DemandeDeFichier& demande) const;
  // False when nothing was done: see Lanceur::Lancer.
  bool Lancer(const Programme& programme) const { return lanceur.Lancer(programme); }
  // Runs it on that data set and tells how it ended; nothing when nothing was done: another run is going on, the user
  // gave this one up, or its program refuses the options, which a box then says.
  std::optional<Fin> LancerSur(const Contexte& contexte, const Etape& etape) const;
  // The program of a table with these options, on the present data set.
  template <class O>
  std::optional<Fin> Lancer(const Description<O>& programme, const O& options = {}) const {
    return LancerSur(ContexteEnCours(), [&](const Contexte& sur) { return programme.Executer(sur, options); });
  }
};

// Shows the form of that class: the one that is open on the present generic, else a new one made with the services and
// the arguments. One that is open on another generic goes first, or stays in front when the user keeps its work.
template <class F, class... Arguments>
F& Montrer(Services& services, Arguments&&... arguments) {
  F* forme = services.formes.Ouverte<F>();
  if (forme != nullptr && !forme->EstSur(services.ContexteEnCours()) && services.formes.Fermer(*forme)) forme = nullptr;
  if (forme == nullptr) forme = new F(services, std::forward<Arguments>(arguments)...);
  services.formes.Presenter(*forme);
  return *forme;
}

// For a form whose preparation is not made twice: shows the one that is open on the present generic, and closes the one
// that is open on another. True when a form is in front and there is nothing to open.
template <class F>
bool Revenir(Services& services) {
  F* forme = services.formes.Ouverte<F>();
  if (forme == nullptr) return false;
  if (!forme->EstSur(services.ContexteEnCours())) return !services.formes.Fermer(*forme);
  services.formes.Presenter(*forme);
  return true;
}

// For a form that opens anew at each demand: closes the one of that class that is open. False when the user keeps the
// work that it holds; it is then in front.
template <class F>
bool FairePlace(Services& services) {
  F* forme = services.formes.Ouverte<F>();
  return forme == nullptr || services.formes.Fermer(*forme);
}

}  // namespace quelvar::forms
