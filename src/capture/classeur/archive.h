// The compressed archive that a workbook is: its parts by name, inflated as a stream within stated bounds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "core/panne/erreur.h"

struct zip;
struct zip_file;

namespace quelvar::capture::classeur {

// No part is inflated beyond this: a sheet of a million rows of a hundred codes takes about half of it.
inline constexpr std::uint64_t kOctetsAuPlus = std::uint64_t{8} << 30;

// Gets how much of a part is inflated, in percent, for each block of it; what it throws ends the reading.
using SuiviDArchive = std::function<void(int pourcent)>;

// One part that is being inflated.
class Partie {
 public:
  // `taille`: its bytes once inflated, 0 when they are not known.
  Partie(zip_file* fichier, std::string nom, std::uint64_t taille, const SuiviDArchive& suivi)
      : fichier_(fichier), nom_(std::move(nom)), taille_(taille), suivi_(suivi) {}
  ~Partie();
  Partie(Partie&& autre) noexcept
      : fichier_(autre.fichier_),
        nom_(std::move(autre.nom_)),
        lus_(autre.lus_),
        taille_(autre.taille_),
        suivi_(autre.suivi_) {
    autre.fichier_ = nullptr;
  }
  Partie& operator=(Partie&&) = delete;

  // The next bytes, 0 at the end. Raises a sentence: kIncompatibiliteType for a damaged part, kMemoireInsuffisante
  // beyond kOctetsAuPlus.
  std::size_t Lire(std::span<char> octets);
  const std::string& Nom() const { return nom_; }

 private:
  zip_file* fichier_;
  std::string nom_;
  std::uint64_t lus_ = 0;
  std::uint64_t taille_;
  const SuiviDArchive& suivi_;  // of the archive
};

class Archive {
 public:
  // Raises kFichierIntrouvable, kPermissionRefusee, kAccesFichier, and a sentence (kIncompatibiliteType) for a file
  // that is no archive.
  explicit Archive(const Chemin& chemin, SuiviDArchive suivi = {});
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  bool Contient(const std::string& nom) const;
  // Raises a sentence (kIncompatibiliteType) for a part that is not there or that a password protects.
  Partie Ouvrir(const std::string& nom) const;
  // The first bytes of a small part, empty when it is not there.
  std::string Debut(const std::string& nom, std::size_t auPlus) const;

 private:
  zip* archive_ = nullptr;
  SuiviDArchive suivi_;
};

// Raises the refusal of what cannot be read (kIncompatibiliteType), with what to do about it; `raison` ends without a
// point, `lieu` is the row and the column of the sheet where they are known.
[[noreturn]] void RefuserClasseur(Texte raison, const Lieu& lieu = {});

}  // namespace quelvar::capture::classeur
