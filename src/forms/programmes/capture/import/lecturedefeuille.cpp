#include "forms/programmes/capture/import/lecturedefeuille.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <optional>
#include <thread>
#include <utility>

#include "core/texte/nombres.h"
#include "forms/cadre/dialogue_qt.h"

namespace quelvar::forms {

capture::PreparationDImport PreparerAuLoin(const Dialogue& ecran, const Chemin& classeur, const std::string& feuille) {
  const Occupation occupation;
  std::optional<capture::PreparationDImport> preparation;
  std::exception_ptr echec;
  std::atomic<std::int64_t> rangees = 0;
  std::atomic<bool> finie = false;
  std::thread fil([&] {
    try {
      preparation.emplace(classeur, feuille, [&](std::int64_t lues) { rangees = lues; });
    } catch (...) {
      echec = std::current_exception();
    }
    finie = true;
  });
  while (!finie) {
    std::string texte = Joindre({"Lecture du classeur ", TexteDe(classeur.filename())});
    if (rangees > 0) texte += Joindre({" : ", Nombre(rangees.load()), " lignes"});
    ecran.montrerIteration(texte);
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  fil.join();
  ecran.montrerIteration({});
  if (echec) std::rethrow_exception(echec);
  return *std::move(preparation);
}

}  // namespace quelvar::forms
