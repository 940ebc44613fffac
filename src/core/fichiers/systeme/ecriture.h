// Writing through one large buffer, to a file or to a text.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "core/fichiers/systeme/chemins.h"
#include "core/texte/texte.h"

namespace quelvar {

// Whether what is written takes the place of the file or stands behind what it holds.
enum class ModeEcriture { Neuf, Suite };

class CondenseDOctets;

// What a file that is replaced is worth: one that nobody can make again (dictionaries, labels, entered data, edited
// texts) is on the disk before it replaces anything; nobody waits for a result that a run makes again.
enum class Nature { Unique, Refaisable };

// A text that is written to as a file would be, and stays in memory.
struct EnMemoire {
  std::string& octets;
};

// Writes a file through one large buffer. Raises the failures of writing.
class Ecrivain {
 public:
  // Makes the file, or goes on behind what it holds.
  explicit Ecrivain(const Chemin& chemin, ModeEcriture mode = ModeEcriture::Neuf);
  // Writes to a file that is open, and closes it; the bytes that reach it are added to the digest. The path is for its
  // failures.
  Ecrivain(Chemin chemin, int descripteur, CondenseDOctets* condense);
  // Goes on behind what the text holds; it has all the bytes once Vider or Fermer was called.
  explicit Ecrivain(EnMemoire texte) : texte_(&texte.octets), tampon_(new char[kCapacite]) {}
  ~Ecrivain();  // closes silently: a writer whose bytes count is closed by Fermer
  Ecrivain(Ecrivain&&) noexcept;
  Ecrivain& operator=(Ecrivain&&) noexcept;

  void Ecrire(std::string_view octets) {
    if (octets.size() > kCapacite - rempli_) {
      EcrireParMorceaux(octets);
      return;
    }
    octets.copy(tampon_.get() + rempli_, octets.size());
    rempli_ += octets.size();
  }
  void Ecrire(char octet) { Ecrire(std::string_view(&octet, 1)); }
  void FinDeLigne() { Ecrire(std::string_view("\r\n", 2)); }
  void Ligne(Texte texte) {
    Ecrire(texte.Vue());
    FinDeLigne();
  }
  // A place of `taille` bytes (at most kCapacite) in the buffer, to be filled by the caller and accounted by Avancer.
  char* Place(std::size_t taille) {
    if (taille > kCapacite - rempli_) Vider();
    return tampon_.get() + rempli_;
  }
  void Avancer(std::size_t taille) { rempli_ += taille; }

  // Writes what the buffer holds.
  void Vider();
  // The same, and closes the file: no byte is written behind this.
  void Fermer();

  // Bytes of the buffer: writing more at a time is not faster.
  static constexpr std::size_t kCapacite = std::size_t{1} << 18;

 private:
  void EcrireParMorceaux(std::string_view octets);
  void EcrireDirect(const char* octets, std::size_t taille);

  Chemin chemin_;
  int descripteur_ = -1;
  CondenseDOctets* condense_ = nullptr;
  std::string* texte_ = nullptr;  // in place of a file
  std::unique_ptr<char[]> tampon_;
  std::size_t rempli_ = 0;
};

}  // namespace quelvar
