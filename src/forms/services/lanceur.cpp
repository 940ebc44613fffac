#include "forms/services/lanceur.h"

#include <QApplication>
#include <utility>

#include "core/programme/annulation.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/garde.h"
#include "forms/services/formes.h"

namespace quelvar::forms {

namespace {

// The flag of a run falls behind everything else: the end of the occupation lets events through, and none of them is to
// find the window free while the handler that launched the run has not come back to its own code.
class Drapeau {
 public:
  Drapeau(bool& drapeau, Formes& formes) : drapeau_(drapeau), formes_(formes) {
    drapeau_ = true;
    formes_.Retenir();
  }
  ~Drapeau() {
    drapeau_ = false;
    formes_.Relacher();
  }
  Drapeau(const Drapeau&) = delete;
  Drapeau& operator=(const Drapeau&) = delete;

 private:
  bool& drapeau_;
  Formes& formes_;
};

}  // namespace

Lanceur::Lanceur(Formes& formes, std::function<Contexte()> contexte, std::function<void(const Erreur&)> echec,
                 std::function<bool()> permis)
    : formes_(formes), contexte_(std::move(contexte)), echec_(std::move(echec)), permis_(std::move(permis)) {}

bool Lanceur::Lancer(const Programme& programme) {
  if (enCours_) {
    QApplication::beep();
    return false;
  }
  if (!permis_()) return false;
  const bool fait = Executer(programme);
  if (!attente_.empty()) QMetaObject::invokeMethod(this, &Lanceur::Servir, Qt::QueuedConnection);
  return fait;
}

void Lanceur::LancerEnsuite(Programme programme) {
  attente_.push_back(std::move(programme));
  QMetaObject::invokeMethod(this, &Lanceur::Servir, Qt::QueuedConnection);
}

void Lanceur::Servir() {
  if (enCours_ || attente_.empty()) return;  // the end of the run comes back here
  const Programme programme = std::move(attente_.front());
  attente_.pop_front();
  Executer(programme);
  if (!attente_.empty()) QMetaObject::invokeMethod(this, &Lanceur::Servir, Qt::QueuedConnection);
}

bool Lanceur::Executer(const Programme& programme) {
  const Drapeau drapeau(enCours_, formes_);
  const Occupation occupation;
  bool abandonne = false;
  Garder([&] {
    try {
      programme(contexte_());
    } catch (const Annulation&) {
      abandonne = true;
      throw;
    }
  });
  return !abandonne;
}

bool Lanceur::Garder(const std::function<void()>& gestes) const { return forms::Garder(gestes, echec_); }

}  // namespace quelvar::forms
