#include "core/fichiers/signaux.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <cstring>
#include <string>

namespace quelvar {

namespace {

constexpr std::array kSignaux = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

// A handler can reach nothing but memory that is there for the life of the process, hence this table.
enum class Etat { Libre, EnRemplissage, Occupee };
struct Inscription {
  std::atomic<Etat> etat{Etat::Libre};
  std::array<char, PATH_MAX> chemin{};
};
constexpr std::size_t kPlaces = 64;  // several times the files of the largest set
std::array<Inscription, kPlaces> places;

void EffacerEtFinir(int signal) {
  for (Inscription& place : places)
    if (place.etat.load() == Etat::Occupee) ::unlink(place.chemin.data());
  ::raise(signal);  // the action is the default one again
}

}  // namespace

void EffacerAuxSignaux() {
  struct sigaction action {};
  action.sa_handler = EffacerEtFinir;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigfillset(&action.sa_mask);
  for (const int signal : kSignaux) {
    struct sigaction ancienne {};
    // What the caller lets pass (nohup) goes on passing.
    if (::sigaction(signal, nullptr, &ancienne) == 0 && ancienne.sa_handler != SIG_IGN)
      ::sigaction(signal, &action, nullptr);
  }
  ::signal(SIGXFSZ, SIG_IGN);
  ::signal(SIGPIPE, SIG_IGN);
}

bool EstInscrit(const Chemin& chemin) {
  std::error_code ignoree;
  const std::string absolu = std::filesystem::absolute(chemin, ignoree).native();
  return std::any_of(places.begin(), places.end(), [&](const Inscription& place) {
    return place.etat.load() == Etat::Occupee && absolu == place.chemin.data();
  });
}

int InscrireProvisoire(const Chemin& chemin) {
  std::error_code ignoree;
  const std::string absolu = std::filesystem::absolute(chemin, ignoree).native();
  if (absolu.size() >= PATH_MAX) return -1;
  for (std::size_t i = 0; i < places.size(); ++i) {
    Etat libre = Etat::Libre;
    if (!places[i].etat.compare_exchange_strong(libre, Etat::EnRemplissage)) continue;
    std::memcpy(places[i].chemin.data(), absolu.c_str(), absolu.size() + 1);
    places[i].etat.store(Etat::Occupee);
    return static_cast<int>(i);
  }
  return -1;
}

void RayerProvisoire(int place) {
  if (place >= 0) places[static_cast<std::size_t>(place)].etat.store(Etat::Libre);
}

SansSignaux::SansSignaux() {
  sigset_t attendent;
  sigemptyset(&attendent);
  for (const int signal : kSignaux) sigaddset(&attendent, signal);
  ::pthread_sigmask(SIG_BLOCK, &attendent, &avant_);
}

SansSignaux::~SansSignaux() { ::pthread_sigmask(SIG_SETMASK, &avant_, nullptr); }

}  // namespace quelvar
