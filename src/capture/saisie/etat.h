// The state of a keyed entry as plain data, and the one function through which every key changes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/desfile.h"

namespace quelvar::capture {

enum class NomDeTouche {
  Caractere,
  Entree,
  Echappement,
  Tabulation,
  Fin,
  PageSuivante,
  PagePrecedente,
  Bas,
  Haut,
  Gauche,
  Droite,
  Retour,
  Suppr,
  VerrMaj,
};

struct Touche {
  NomDeTouche nom = NomDeTouche::Caractere;
  char caractere = 0;  // of a Caractere, in the code page
};

struct EtatSaisie {
  std::vector<DescriptionDeQuestion> questions;
  std::vector<std::string> reponses;  // a short numeric on two characters (" 0"), the others as typed
  std::vector<char> sautsFaits;       // the skip test has fired for this individual
  std::vector<char> sautees;          // jumped over by a skip test and not visited since
  std::size_t courante = 0;           // the number of questions stands for the end mark "FIN"
  bool majuscules = false;
  bool directe = false;                        // a digit answers a short numeric question
  bool chiffreAttendu = false;                 // ...whose first digit is typed and may be followed by another one
  std::int64_t faits = 0;                      // records of the data file
  std::optional<std::int64_t> corrige;         // number of the record that is looked at, from 1; nothing for a new one
  std::string ligneCorrigee;                   // ...as it stands in the file
  std::vector<std::string> reponsesCorrigees;  // ...and its answers before any key
  std::string message;                         // what TextMsg says of the last key

  bool SurFin() const { return courante == questions.size(); }
  const DescriptionDeQuestion& Courante() const { return questions[courante]; }
};

// What a key asks of the one who holds the files and the screen.
enum class DemandeDeSaisie { Rien, Enregistrer, Quitter, LaisserLaCorrection };
struct SuiteDeFrappe {
  DemandeDeSaisie demande = DemandeDeSaisie::Rien;
  bool bip = false;
};

// A state before the first individual, with the count of records already made.
EtatSaisie NouvelleSaisie(const Descripteur& descripteur, std::int64_t faits);

// Treats one key. Escape in a correction that has changed answers only asks to leave it: RecommencerIndividu does.
// Enter only asks for the record to be written: Enregistrement gives it, and RecommencerIndividu goes on once it is
// safe.
SuiteDeFrappe Frapper(EtatSaisie& etat, Touche touche);

// The line of .DAT that the answers make; nothing when all of them are empty. In a record that is corrected the fields
// of unchanged answers, and what stands behind the last field, keep their bytes.
std::optional<std::string> Enregistrement(const EtatSaisie& etat);
inline constexpr std::string_view kEnregistrementVide = "Enregistrement vide non conservé"_w;

// Empties the answers and the skip marks, leaves the record looked at, and goes to the first question.
void RecommencerIndividu(EtatSaisie& etat);
// Takes the answers of a record of the data file, to look at them or to correct them.
void PrendreEnregistrement(EtatSaisie& etat, std::int64_t numero, std::string_view ligne);

// Whether answers would be lost: those of a new individual, or changed ones of a record that is looked at.
bool EstEntame(const EtatSaisie& etat);

// An answer that says nothing: 0 for a numeric question, blanks for an alphabetic one.
bool EstVide(const DescriptionDeQuestion& question, std::string_view reponse);
// Whether the question is answered by its arrows, and not typed.
inline bool EstCourte(const DescriptionDeQuestion& question) { return !question.alphabetique; }
inline bool EstLongue(const DescriptionDeQuestion& question) { return question.alphabetique && question.numerique; }

// Takes a whole answer as text ("12", "DUPONT"); false, and no change, when the question can't hold it.
bool Repondre(EtatSaisie& etat, std::size_t question, std::string_view reponse);

}  // namespace quelvar::capture
