// A dBase file as bytes: its header, its fields, and its records one chunk after the other.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/encodage/pagecode.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

struct ChampDbf {
  std::string nom;           // the first five characters, those that no name may hold replaced by blanks
  char type = ' ';           // C, N, D, L, M...
  std::size_t position = 1;  // first byte in the record without its deletion mark, from 1
  std::size_t largeur = 0;   // bytes, never 0: a field without any is left out
};

// The least length that a header may announce.
inline constexpr std::size_t kEnteteMinimal = 32;

struct EnteteDbf {
  unsigned char version = 0;
  std::uint64_t annonces = 0;              // records that the header announces
  std::size_t longueurEntete = 0;          // bytes before the first record
  std::size_t longueurEnregistrement = 0;  // bytes of a record with its deletion mark
  PageDeCode page = PageDeCode::Inconnue;
  std::vector<ChampDbf> champs;
  std::vector<std::string> sansLargeur;  // names of the fields that were left out

  // Bytes of a record behind its deletion mark.
  std::size_t LongueurLigne() const { return longueurEnregistrement == 0 ? 0 : longueurEnregistrement - 1; }
  // Bytes of all the fields together.
  std::size_t LongueurChamps() const { return champs.empty() ? 0 : champs.back().position + champs.back().largeur - 1; }
  // Whether the records can be found behind a header of that length.
  bool DonneLesEnregistrements() const { return longueurEntete >= kEnteteMinimal; }
  // Whether a record has room for its deletion mark and all the fields.
  bool ContientLesChamps() const { return longueurEnregistrement > LongueurChamps(); }
  bool VersionConnue() const;  // one of the layout that is read here
};

// Reads the header from the bytes at the start of a file; the descriptions of fields that are not wholly there are not
// read. Raises kFinDeFichierDepassee when even the first 32 bytes are not there.
EnteteDbf LireEnteteDbf(std::string_view octets);
// The header of a file. Raises kFinDeFichierDepassee for a file cut in its header (but not when the length announced is
// below kEnteteMinimal), and the failures of LireMorceau, with the name of the file.
EnteteDbf LireEnteteDuFichier(const Chemin& chemin);

// The whole records that stand in a file of that many bytes, at most those announced. Without a record length nothing
// bounds what a header may announce: no more than kEnregistrementsVides then.
std::uint64_t EnregistrementsEntiers(const EnteteDbf& entete, std::uintmax_t taille);
inline constexpr std::uint64_t kEnregistrementsVides = 1'000'000;

// Gives the records of a file one after the other.
class LecteurDbf {
 public:
  // Raises the failures of LongueurFichier.
  LecteurDbf(Chemin chemin, const EnteteDbf& entete);

  std::uint64_t Enregistrements() const { return enregistrements_; }
  std::uintmax_t Taille() const { return taille_; }
  // The next record with its deletion mark, as a view that lives until the next call; false behind the last one.
  // Raises the failures of LireMorceau, and kFinDeFichierDepassee for a file that has become shorter, with their place.
  bool Lire(std::string_view& enregistrement);
  // The record given last, by its number, for a failure that it causes.
  Lieu Ou() const { return {TexteDe(chemin_.filename()), static_cast<std::int64_t>(donnes_)}; }

 private:
  Chemin chemin_;
  std::uintmax_t taille_;
  std::size_t longueur_;
  std::uint64_t enregistrements_;
  std::uint64_t donnes_ = 0;
  std::uintmax_t place_;  // of the chunk behind the one in memory
  std::string morceau_;
  std::size_t debut_ = 0;  // first byte of the chunk not given yet
};

// The mark of a record that was deleted.
inline constexpr char kEfface = '*';

// Brings the text of records to the code page: accents of the fields of characters, and the bytes that would cut a line
// (CR, LF, 1A hex) replaced by blanks.
class ConvertisseurDbf {
 public:
  explicit ConvertisseurDbf(const EnteteDbf& entete);

  // Writes the record without its deletion mark at `ligne`, which has room for all of it.
  void Convertir(std::string_view enregistrement, char* ligne);

  std::uint64_t Convertis() const { return convertis_; }      // characters brought from another code page
  std::uint64_t SansEquivalent() const { return inconnus_; }  // of these, the ones that became "?"
  std::uint64_t Coupants() const { return coupants_; }        // bytes that would have cut a line

 private:
  struct Troncon {
    std::size_t debut;
    std::size_t fin;
    bool texte;  // characters of the code page of the file
  };

  void Ajouter(std::size_t fin, bool texte);

  std::vector<Troncon> troncons_;
  const TableDOctets& table_;
  bool autrePage_;
  std::uint64_t convertis_ = 0;
  std::uint64_t inconnus_ = 0;
  std::uint64_t coupants_ = 0;
};

}  // namespace quelvar::capture
