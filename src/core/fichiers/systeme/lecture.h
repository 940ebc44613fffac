// Reading through one large buffer: a file line by line, or as bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/fichiers/systeme/chemins.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

// The whole file as bytes; raises a failure of reading.
std::string LireOctets(const Chemin& chemin);
// At most `taille` bytes from a place of the file, fewer at its end; raises a failure of reading.
std::string LireMorceau(const Chemin& chemin, std::uintmax_t debut, std::size_t taille);

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

}  // namespace quelvar
