// Pins what a test could catch from the machine it runs on, and lends it a directory of its own.
#pragma once

#include <sys/resource.h>

#include <filesystem>
#include <string_view>

namespace essai {

// Fixes time zone, locale and the platform of the windows, before anything reads them.
void FixerEnvironnement();

// A new empty directory, removed with all its content at the end of the object's life.
class DossierTemporaire {
 public:
  DossierTemporaire();
  ~DossierTemporaire();
  DossierTemporaire(const DossierTemporaire&) = delete;
  DossierTemporaire& operator=(const DossierTemporaire&) = delete;

  const std::filesystem::path& Chemin() const { return chemin_; }

 private:
  std::filesystem::path chemin_;
};

// While it lives no file grows beyond that many bytes: it stands in for a disk that is full.
class DisquePlein {
 public:
  explicit DisquePlein(rlim_t octets);
  ~DisquePlein();
  DisquePlein(const DisquePlein&) = delete;
  DisquePlein& operator=(const DisquePlein&) = delete;

 private:
  rlimit avant_{};
};

// Writes the bytes as they stand; throws std::runtime_error when it cannot.
void EcrireOctets(const std::filesystem::path& fichier, std::string_view octets);

}  // namespace essai
