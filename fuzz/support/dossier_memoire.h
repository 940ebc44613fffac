// A directory in memory for a whole program under fuzzing, emptied between two inputs.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace fuzz {

class DossierMemoire {
 public:
  DossierMemoire() {
    std::string modele = "/dev/shm/quelvar-fuzz-XXXXXX";
    if (mkdtemp(modele.data()) == nullptr) std::abort();
    chemin_ = modele;
  }
  ~DossierMemoire() { std::filesystem::remove_all(chemin_); }
  DossierMemoire(const DossierMemoire&) = delete;
  DossierMemoire& operator=(const DossierMemoire&) = delete;

  const std::filesystem::path& Chemin() const { return chemin_; }
  void Vider() const {
    for (const auto& fichier : std::filesystem::directory_iterator(chemin_)) std::filesystem::remove(fichier);
  }
  void Ecrire(std::string_view nom, std::string_view octets) const {
    std::ofstream(chemin_ / nom, std::ios::binary).write(octets.data(), static_cast<std::streamsize>(octets.size()));
  }
  std::string Lire(std::string_view nom) const { return quelvar::LireOctets(chemin_ / nom); }
  bool Existe(std::string_view nom) const { return std::filesystem::exists(chemin_ / nom); }

  quelvar::Contexte Contexte(quelvar::Dialogue& dialogue) const { return {chemin_, "ENQ", 1, &dialogue}; }

 private:
  std::filesystem::path chemin_;
};

// An input cut at each byte FF hex; behind the last piece come empty ones.
class Morceaux {
 public:
  explicit Morceaux(std::string_view octets) : reste_(octets) {}
  std::string_view Suivant() {
    const std::size_t coupe = reste_.find('\xFF');
    const std::string_view debut = reste_.substr(0, coupe);
    reste_.remove_prefix(coupe == std::string_view::npos ? reste_.size() : coupe + 1);
    return debut;
  }

 private:
  std::string_view reste_;
};

}  // namespace fuzz
