// Runs of programs, one at a time: the window is kept from the user until the run comes back.
#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "core/programme/erreur.h"
#include "core/programme/programme.h"

namespace quelvar::forms {

class Formes;

using Programme = std::function<void(const Contexte&)>;

class Lanceur : public QObject {
  Q_OBJECT
 public:
  // `contexte` gives what a run receives; `echec` shows the failure of one that told it to nobody else. A form that is
  // closed during a run stays in memory until its end.
  Lanceur(Formes& formes, std::function<Contexte()> contexte, std::function<void(const Erreur&)> echec);

  bool EnCours() const { return enCours_; }
  // Runs the program and comes back at its end. A program that asks for another run is refused: beeps, false.
  bool Lancer(const Programme& programme);
  // Runs it once the handler that asks for it has come back, behind the run that is going, if any.
  void LancerEnsuite(Programme programme);

 private:
  void Executer(const Programme& programme);
  void Servir();

  Formes& formes_;
  std::function<Contexte()> contexte_;
  std::function<void(const Erreur&)> echec_;
  std::deque<Programme> attente_;
  bool enCours_ = false;
};

}  // namespace quelvar::forms
