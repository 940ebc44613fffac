// Files: names looked up without regard to case, line reading and writing through one large buffer, replacement that
// leaves the old file or the new one and never half of either.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

using Chemin = std::filesystem::path;

// A text of the code page as a path, and back; the bytes of NomDepuisUtf8 stand for what the code page lacks.
Chemin CheminDe(std::string_view texte);
std::string TexteDe(const Chemin& chemin);

// The existing file (or directory) that a name of the directory stands for, without regard to case: the exact spelling
// wins, else the first in byte order. A name with directories in it has each component resolved so.
std::optional<Chemin> ChercherFichier(const Chemin& repertoire, std::string_view nom);
// Where a file of that name is written: over the file that exists under the name it has, else under the name given.
Chemin CheminDEcriture(const Chemin& repertoire, std::string_view nom);
// Whether two paths lead to one file; not when one of them leads nowhere.
bool EstLeMemeFichier(const Chemin& a, const Chemin& b);
// Length in bytes; raises kFichierIntrouvable, kPermissionRefusee or kAccesFichier.
std::uintmax_t LongueurFichier(const Chemin& chemin);
// Deletes the file if it is there; raises kPermissionRefusee or kAccesFichier.
void EffacerFichier(const Chemin& chemin);
// The whole file as bytes; raises a failure of reading.
std::string LireOctets(const Chemin& chemin);
// At most `taille` bytes from a place of the file, fewer at its end; raises a failure of reading.
std::string LireMorceau(const Chemin& chemin, std::uintmax_t debut, std::size_t taille);
// That failure, met at that file.
Erreur EchecDuFichier(const Chemin& chemin, int numero);

// Reads a file line by line. CR LF and LF end a line; the last one may lack its end; a final byte 1A hex ends the file.
class LecteurLignes {
 public:
  // Raises kFichierIntrouvable, kPermissionRefusee or kAccesFichier; a directory in place of the file is kAccesFichier.
  explicit LecteurLignes(const Chemin& chemin);
  ~LecteurLignes();
  LecteurLignes(LecteurLignes&&) noexcept;
  LecteurLignes& operator=(LecteurLignes&&) noexcept;

  // Gives the next line, without its end, as a view that lives until the next call; false at the end. Raises
  // kErreurPeripherique, and a sentence (kMemoireInsuffisante) for a line beyond kLigneAuPlus bytes.
  bool Lire(std::string_view& ligne);
  // The next line; raises kFinDeFichierDepassee at the end of the file.
  std::string_view LireObligatoire();

  // The line given last, for a failure that it causes.
  Lieu Ou() const { return {NomDepuisUtf8(nom_), numero_}; }

  // Bytes of the longest line: far more than any survey has, far less than a file that is no text.
  static constexpr std::size_t kLigneAuPlus = std::size_t{1} << 26;

 private:
  bool Remplir();
  bool LireLaFin(std::string_view& ligne);

  std::string nom_;  // without directory, as the system has it
  std::int64_t numero_ = 0;
  int descripteur_ = -1;
  bool finie_ = false;  // the file has no byte left behind the buffer
  std::unique_ptr<char[]> tampon_;
  std::size_t capacite_ = 0;
  std::size_t debut_ = 0;  // first byte not given yet
  std::size_t fin_ = 0;    // end of the bytes read
};

// Does the work on the lines of a reader; a failure of it gets the line reached.
template <class Travail>
decltype(auto) Situer(const LecteurLignes& lecteur, Travail&& travail) {
  return Situer([&] { return lecteur.Ou(); }, std::forward<Travail>(travail));
}

// Whether what is written takes the place of the file or stands behind what it holds.
enum class ModeEcriture { Neuf, Suite };

class CondenseDOctets;
class Provisoire;

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

// A scratch file of bytes read and written at any place. It has no name, so that nothing stays of it whatever happens.
// Raises the failures of writing, and kFinDeFichierDepassee for bytes that are not there.
class FichierDeTravail {
 public:
  // In the directory of that path, on whose name its own is made.
  explicit FichierDeTravail(const Chemin& chemin);
  ~FichierDeTravail();
  FichierDeTravail(const FichierDeTravail&) = delete;
  FichierDeTravail& operator=(const FichierDeTravail&) = delete;

  // `taille` bytes at a place counted from 0.
  void Lire(std::uint64_t place, void* octets, std::size_t taille) const;
  void Ecrire(std::uint64_t place, const void* octets, std::size_t taille);

 private:
  Chemin voisin_;  // for its failures
  int descripteur_;
};

// One file written whole under a scratch name beside its target, then put in its place by one rename with the rights of
// the file that it replaces. Without Valider the scratch file disappears and the target stays what it was. A target
// that may not be written raises kPermissionRefusee. Several files that belong together go through JeuDeFichiers.
class Remplacement {
 public:
  Remplacement(const Chemin& repertoire, std::string_view nom, Nature nature = Nature::Refaisable);
  // The target by its path; one that is a link is followed.
  explicit Remplacement(const Chemin& cible, Nature nature = Nature::Refaisable);
  ~Remplacement();
  Remplacement(const Remplacement&) = delete;
  Remplacement& operator=(const Remplacement&) = delete;

  // The scratch file.
  Ecrivain& Fichier();
  // Closes the scratch file and keeps it, for a caller that reads it again.
  void Achever() { Fichier().Fermer(); }
  // Puts it in the place of the target. Raises a failure of writing: the target is then what it was.
  void Valider();
  // Where the bytes are until then; those that Fichier still holds in its buffer are not there.
  const Chemin& CheminProvisoire() const;

 private:
  std::unique_ptr<Provisoire> fichier_;
};

// Copies a file line by line, every line ended by CR LF; the second one through a replacement of the target. Raises the
// failures of LecteurLignes and of writing.
void CopierLignes(const Chemin& source, Ecrivain& copie);
void CopierLignes(const Chemin& source, const Chemin& repertoire, std::string_view nomCible,
                  Nature nature = Nature::Refaisable);

}  // namespace quelvar
