#include "forms/programmes/capture/import/attente/feuille.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <exception>
#include <optional>
#include <thread>
#include <utility>

#include "core/programme/annulation.h"
#include "forms/programmes/capture/import/attente/avancement.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

capture::PreparationDImport PreparerAuLoin(QWidget* parent, const Chemin& classeur, const std::string& feuille) {
  const Occupation occupation;
  Avancement avancement(parent, QStringLiteral("Lecture d'un classeur"));
  std::optional<capture::PreparationDImport> preparation;
  std::exception_ptr echec;
  std::atomic<int> part = 0;
  std::atomic<bool> renonce = false;
  std::atomic<bool> finie = false;
  std::thread fil([&] {
    try {
      preparation.emplace(classeur, feuille, [&](int pourcent) {
        if (renonce) throw Annulation();
        part = pourcent;
      });
    } catch (...) {
      echec = std::current_exception();
    }
    finie = true;
  });
  const QString texte = QStringLiteral("Lecture du classeur ") + CheminVersQt(classeur.filename());
  constexpr std::chrono::milliseconds pause(10);
  while (!finie) {
    if (!avancement.Montrer(texte, part)) renonce = true;
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(pause);
  }
  fil.join();
  if (echec) std::rethrow_exception(echec);
  return *std::move(preparation);
}

}  // namespace quelvar::forms
