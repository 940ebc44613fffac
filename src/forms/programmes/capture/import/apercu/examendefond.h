// The look at a whole file that goes on behind the window: its rows and what its columns hold.
#pragma once

#include <QObject>
#include <atomic>
#include <optional>
#include <thread>

#include "capture/apercu/observation/faits.h"

namespace quelvar::forms {

class ExamenDeFond : public QObject {
  Q_OBJECT
 public:
  ~ExamenDeFond() override { Arreter(); }

  // Gives up what is going on and begins anew.
  void Commencer(const Chemin& texte, const capture::Lecture& lecture);
  // Comes back when nothing reads the file any more; no signal follows.
  void Arreter();
  bool EnCours() const { return enCours_; }

 signals:
  void Avance(qint64 octets);
  void Fini(const quelvar::capture::FaitsDeTable& faits);
  void Echoue(const QString& phrase);

 private:
  // Gives the result to the interface, unless another examination has begun.
  void Rendre(std::optional<capture::FaitsDeTable> faits, const QString& phrase);

  std::thread fil_;
  std::atomic<bool> arret_ = false;
  int rang_ = 0;  // of the examination that is awaited
  bool enCours_ = false;
};

}  // namespace quelvar::forms
