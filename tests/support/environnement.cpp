#include "support/environnement.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace essai {

void FixerEnvironnement() {
  setenv("TZ", "UTC0", 1);
  setenv("LC_ALL", "C", 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

DossierTemporaire::DossierTemporaire() {
  std::string modele = (std::filesystem::temp_directory_path() / "quelvar-XXXXXX").string();
  if (mkdtemp(modele.data()) == nullptr) throw std::runtime_error("no temporary directory: " + modele);
  chemin_ = modele;
}

DossierTemporaire::~DossierTemporaire() {
  std::error_code ignoree;
  std::filesystem::remove_all(chemin_, ignoree);
}

DisquePlein::DisquePlein(rlim_t octets) {
  std::signal(SIGXFSZ, SIG_IGN);
  getrlimit(RLIMIT_FSIZE, &avant_);
  const rlimit limite{octets, avant_.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limite);
}

DisquePlein::~DisquePlein() { setrlimit(RLIMIT_FSIZE, &avant_); }

void EcrireOctets(const std::filesystem::path& fichier, std::string_view octets) {
  std::ofstream flux(fichier, std::ios::binary | std::ios::trunc);
  flux.write(octets.data(), static_cast<std::streamsize>(octets.size()));
  flux.close();
  if (!flux) throw std::runtime_error("cannot write " + fichier.string());
}

}  // namespace essai
