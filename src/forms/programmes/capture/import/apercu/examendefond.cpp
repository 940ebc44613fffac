#include "forms/programmes/capture/import/apercu/examendefond.h"

#include <memory>

#include "core/panne/erreur.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

void ExamenDeFond::Commencer(const Chemin& texte, const capture::Lecture& lecture) {
  Arreter();
  enCours_ = true;
  const int rang = ++rang_;
  fil_ = std::thread([this, rang, texte, lecture] {
    auto faits = std::make_shared<std::optional<capture::FaitsDeTable>>();
    QString phrase;
    try {
      *faits = capture::ExaminerTable(texte, lecture, [this, rang](std::uintmax_t octets) {
        if (arret_) return false;
        QMetaObject::invokeMethod(
            this,
            [this, rang, octets] {
              if (rang == rang_ && enCours_) emit Avance(static_cast<qint64>(octets));
            },
            Qt::QueuedConnection);
        return true;
      });
    } catch (...) {  // nobody stands behind the thread
      phrase = VersQt(TexteErreur(ErreurEnCours()));
    }
    QMetaObject::invokeMethod(
        this,
        [this, rang, faits, phrase] {
          if (rang == rang_ && enCours_) Rendre(std::move(*faits), phrase);
        },
        Qt::QueuedConnection);
  });
}

void ExamenDeFond::Arreter() {
  enCours_ = false;
  if (!fil_.joinable()) return;
  arret_ = true;
  fil_.join();
  arret_ = false;
}

void ExamenDeFond::Rendre(std::optional<capture::FaitsDeTable> faits, const QString& phrase) {
  Arreter();
  if (faits) emit Fini(*faits);
  else emit Echoue(phrase);
}

}  // namespace quelvar::forms
