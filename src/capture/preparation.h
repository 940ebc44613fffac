// The state of an import that a user looks at before it runs: the reading, the first rows, and what becomes of each
// column, with the changes that he makes. Nothing is written here; the window only shows it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/import.h"
#include "capture/apercu/observation/apercu.h"
#include "capture/apercu/octets/source.h"
#include "capture/apercu/sorties/resume.h"

namespace quelvar::capture {

class PreparationDImport {
 public:
  // Looks at the head of the file. Raises what SourceDeTable, DetecterLecture and LireApercu raise.
  // `suivi`: as SourceDeTable has it.
  using SuiviDeFeuille = classeur::SuiviDArchive;
  PreparationDImport(Chemin fichier, std::string feuille, const SuiviDeFeuille& suivi = {});

  const Chemin& Fichier() const { return fichier_; }
  const std::string& Feuille() const { return feuille_; }
  // The text that is read: of the file, or of the sheet that is chosen.
  const Chemin& Texte() const { return source_->Texte(); }
  const SourceDeTable& Source() const { return *source_; }
  const LectureDetectee& Detectee() const { return detectee_; }
  const Lecture& LectureEnCours() const { return apercu_.lecture; }
  const Apercu& Vue() const { return apercu_; }
  const std::vector<FaitsDeColonne>& Colonnes() const { return apercu_.faits.colonnes; }
  const std::vector<ChoixDeColonne>& Choix() const { return choix_; }

  // Reads the head again in another way. The choices of columns whose titles stay are kept. On a failure everything
  // stays as it was.
  void ChangerLecture(const Lecture& lecture);

  // Takes up the choices of an earlier import for the columns that have the same titles; the number of these columns.
  std::size_t Reprendre(const std::vector<ChoixDeColonne>& anciens);
  // The facts of the whole file take the place of those of its head; what nobody has touched is proposed anew.
  void PoserFaits(FaitsDeTable faits);

  void ChangerGenre(std::size_t colonne, Genre genre);
  // Everything of a choice but its name.
  void ChangerChoix(std::size_t colonne, ChoixDeColonne choix);
  // Why a name is refused, empty when it is taken.
  std::string Renommer(std::size_t colonne, std::string_view nom);

  // What stops the import: rows that have slipped, cells and texts that the choices cannot take.
  std::vector<std::string> Refus() const;
  // What is not certain of the reading, and what of the table is to be known.
  std::vector<std::string> Doutes() const { return detectee_.DoutesDe(apercu_.lecture); }
  std::vector<std::string> Remarques() const;
  bool ToutVaBien() const;
  EtatDeTable Etat() const;
  // Whether every column becomes what is proposed without any hand.
  bool RienDeChoisi() const;
  // What the import is to be run with.
  OptionsImport Options() const;

 private:
  void Relire(const Lecture& lecture);

  Chemin fichier_;
  std::string feuille_;
  std::shared_ptr<const SourceDeTable> source_;
  LectureDetectee detectee_;
  Apercu apercu_;
  std::vector<ChoixDeColonne> choix_;
  std::vector<bool> touchees_;  // columns whose choice is the user's or that of an earlier import
};

// What a file of choices has that is there, if any.
enum class ChoixGardes { Absents, Autres, Memes };
// Compares them with these; a file that cannot be read has others.
ChoixGardes ComparerAuxGardes(const Chemin& repertoire, std::string_view fichier,
                              const std::vector<ChoixDeColonne>& choix);

// The choices of an earlier import in that directory: those of the generic, else those made for the very same columns.
struct AnciensChoix {
  Chemin fichier;
  std::vector<ChoixDeColonne> choix;
  std::string refus;  // why a file of that generic cannot be read
};
std::optional<AnciensChoix> ChercherAnciensChoix(const Chemin& repertoire, std::string_view generique,
                                                 const std::vector<ChoixDeColonne>& colonnes);

}  // namespace quelvar::capture
