// A file that lives in memory and has a path, so that readers that take a path can be fed without touching a disk.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace fuzz {

class FichierMemoire {
 public:
  explicit FichierMemoire(std::string_view octets) : descripteur_(memfd_create("fuzz", 0)) {
    if (descripteur_ < 0) std::abort();
    while (!octets.empty()) {
      const ssize_t ecrits = write(descripteur_, octets.data(), octets.size());
      if (ecrits < 0) std::abort();
      octets.remove_prefix(static_cast<std::size_t>(ecrits));
    }
  }
  ~FichierMemoire() { close(descripteur_); }
  FichierMemoire(const FichierMemoire&) = delete;
  FichierMemoire& operator=(const FichierMemoire&) = delete;

  std::filesystem::path Chemin() const { return "/proc/self/fd/" + std::to_string(descripteur_); }

 private:
  int descripteur_;
};

}  // namespace fuzz
