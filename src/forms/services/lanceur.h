// Runs of programs, one at a time: the window is kept from the user until the run comes back.
#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "core/panne/erreur.h"
#include "core/programme/programme.h"

namespace quelvar::forms {

class Formes;

using Programme = std::function<void(const Contexte&)>;
// One that tells how it ended.
using Etape = std::function<Fin(const Contexte&)>;

class Lanceur : public QObject {
  Q_OBJECT
 public:
  // `contexte` gives what a run receives; `echec` shows the failure of one that told it to nobody else; `permis` asks
  // what has to be asked before a run reads the files. A form that is closed during a run stays in memory until its
  // end.
  Lanceur(Formes& formes, std::function<Contexte()> contexte, std::function<void(const Erreur&)> echec,
          std::function<bool()> permis);

  bool EnCours() const { return enCours_; }
  // Whether a run may start now: none is going on, and the user has not given it up.
  bool PeutLancer() const { return !enCours_ && permis_(); }
  // Does what a handler does beside the runs; its failure is shown as that of a run. False when it failed.
  bool Garder(const std::function<void()>& gestes) const;
  // Runs the program and comes back at its end. A program that asks for another run is refused: beeps, false. So is one
  // that the user gives up when asked about the files that it reads, or in a box of its own: a form that asked for it
  // stays, with its choices.
  bool Lancer(const Programme& programme);
  // Runs it once the handler that asks for it has come back, behind the run that is going, if any.
  void LancerEnsuite(Programme programme);

 private:
  bool Executer(const Programme& programme);  // whether it was not given up
  void Servir();

  Formes& formes_;
  std::function<Contexte()> contexte_;
  std::function<void(const Erreur&)> echec_;
  std::function<bool()> permis_;
  std::deque<Programme> attente_;
  bool enCours_ = false;
};

}  // namespace quelvar::forms
