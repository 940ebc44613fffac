#include "forms/qt/signaux.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <utility>

#include "core/fichiers/signaux.h"

namespace quelvar::forms {

namespace {

constexpr std::array kSignaux = {SIGTERM, SIGHUP, SIGINT};

// A signal handler has no other way to its program.
int g_bouts[2] = {-1, -1};
volatile std::sig_atomic_t g_recu = 0;
struct sigaction g_anciennes[kSignaux.size()] = {};

// As the program ended before.
void Finir(int signal) {
  for (std::size_t i = 0; i < kSignaux.size(); ++i)
    if (kSignaux[i] == signal) ::sigaction(signal, &g_anciennes[i], nullptr);
  std::raise(signal);
}

extern "C" void RecevoirSignal(int signal) {
  const auto octet = static_cast<unsigned char>(signal);
  if (g_recu != 0 || ::write(g_bouts[0], &octet, 1) != 1) Finir(signal);
  g_recu = signal;
}

}  // namespace

Signaux::Signaux(std::function<void()> avant) : avant_(std::move(avant)) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_bouts) != 0) return;
  auto* veille = new QSocketNotifier(g_bouts[1], QSocketNotifier::Read, this);
  connect(veille, &QSocketNotifier::activated, this, [this] {
    unsigned char signal = 0;
    if (::read(g_bouts[1], &signal, 1) != 1) return;
    avant_();
    Finir(signal);
  });
  EffacerAuxSignaux();
  struct sigaction action = {};
  action.sa_handler = RecevoirSignal;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSignaux.size(); ++i) {
    ::sigaction(kSignaux[i], nullptr, &g_anciennes[i]);
    if (g_anciennes[i].sa_handler != SIG_IGN) ::sigaction(kSignaux[i], &action, nullptr);
  }
}

Signaux::~Signaux() {
  for (std::size_t i = 0; i < kSignaux.size(); ++i) ::sigaction(kSignaux[i], &g_anciennes[i], nullptr);
  for (int& bout : g_bouts)
    if (bout >= 0) ::close(std::exchange(bout, -1));
}

}  // namespace quelvar::forms
