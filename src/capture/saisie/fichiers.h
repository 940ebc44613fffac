// The files of a keyed entry: .DAT grows by one line a record, and .POS always tells how many there are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/enquete/desfile.h"
#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"

namespace quelvar::capture {

// What a data file holds, line by line.
struct ExamenDat {
  std::int64_t lignes = 0;           // empty ones too
  std::int64_t nonVides = 0;         // those that do not only hold blanks
  std::size_t longueurDerniere = 0;  // of the last line that is not empty
  std::uintmax_t taille = 0;         // bytes
  bool propre = true;                // no empty line, every line ended by CR LF
  bool derniereInachevee = false;    // the last line has no end
  bool uniforme = true;              // all lines have one length
};
// Raises a failure of reading.
ExamenDat ExaminerDat(const Chemin& dat);

// Whether each record waits until the disk has it.
enum class Synchronisation { Oui, Non };

class FichiersSaisie {
 public:
  // Looks at the files of the generic and changes none; a missing .DAT has no records. Raises the failures of
  // ExaminerDat.
  FichiersSaisie(const Contexte& contexte, const Descripteur& descripteur,
                 Synchronisation synchronisation = Synchronisation::Oui);

  const ExamenDat& Examen() const { return examen_; }

  // Sets the count of .POS right when it is not that of the data (somebody has changed them, the machine has stopped
  // before the disk had them); true when it had to.
  bool Reprendre();

  // Adds a record behind the last one and writes .POS anew, in one set; both are on the disk when it returns. Lines
  // that are already clean are not copied again. A failure leaves the former files and raises its number.
  void Ajouter(std::string_view ligne);
  // Replaces a record, counted from 1 among all lines, by an atomic replacement of .DAT. Raises kFinDeFichierDepassee
  // when there is none.
  void Corriger(std::int64_t numero, std::string_view ligne);
  // The record of that number. Raises kFinDeFichierDepassee when there is none.
  std::string Lire(std::int64_t numero) const;

  // Whether .POS holds something that the descriptor does not give (labels, rules): the first record keeps a copy of it
  // under its backup name.
  bool PosAGarder() const { return posAGarder_; }

 private:
  // Size, time and place of the data file when it was last seen.
  struct Trace {
    std::uint64_t appareil = 0, noeud = 0, taille = 0;
    std::int64_t secondes = 0, nanosecondes = 0;
    bool operator==(const Trace&) const = default;
  };

  static std::optional<Trace> TracerFichier(const Chemin& chemin);
  Chemin Dat() const;
  Erreur SansEnregistrement(std::int64_t numero) const;
  std::string TextePos(std::int64_t nonVides) const;
  void Revoir();
  void GarderPos(JeuDeFichiers& jeu) const;
  void Recopier(JeuDeFichiers& jeu, std::string_view ajout, std::int64_t remplacee) const;
  void Compter(std::string_view ligne);

  Contexte contexte_;
  std::string questions_;  // the lines of .POS behind its second one
  Nature nature_;          // of .DAT and .POS
  ExamenDat examen_;
  std::optional<Trace> trace_;
  bool posAGarder_ = false;
  bool posARefaire_ = false;
};

// The lines of .POS that entry makes of its questions, ended by CR LF; those behind kDernierePosition have none.
std::string LignesDeQuestions(const Descripteur& descripteur);

}  // namespace quelvar::capture
