// A directory in memory for a whole program under fuzzing, emptied between two inputs.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"
#include "fuzz/support/entree.h"

namespace fuzz {

// What was written into files, by their names.
using Contenus = std::map<std::string, std::string>;

// What becomes of a file whose piece is empty.
enum class PieceVide { Fichier, Absent };

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

  // Writes the next pieces into these files, as far as pieces come; what was written.
  Contenus Distribuer(Entree& entree, std::initializer_list<const char*> noms,
                      PieceVide vide = PieceVide::Fichier) const {
    Contenus ecrits;
    for (const char* nom : noms) {
      if (!entree.Encore()) break;
      const std::string_view piece = entree.Suivant();
      if (piece.empty() && vide == PieceVide::Absent) continue;
      Ecrire(nom, piece);
      ecrits.emplace(nom, piece);
    }
    return ecrits;
  }
  // Stops where one of these files is gone or is not what was written.
  void ExigerIntacts(const Contenus& ecrits) const {
    for (const auto& [nom, octets] : ecrits)
      if (!Existe(nom) || Lire(nom) != octets) std::abort();
  }

  // A run on the generic ENQ before a screen that gives the first answer to everything.
  quelvar::Contexte Contexte() const { return {chemin_, "ENQ", quelvar::kNiveauSimple, &dialogue_}; }

 private:
  std::filesystem::path chemin_;
  mutable quelvar::Dialogue dialogue_;
};

// The directory of a target, empty.
inline const DossierMemoire& DossierVide() {
  static const DossierMemoire dossier;
  dossier.Vider();
  return dossier;
}

}  // namespace fuzz
