// What is made of each column of the table: its columns in .DAT, the codes of its texts, the limits of its classes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/apercu/choix/colonne.h"
#include "capture/apercu/observation/textes.h"
#include "capture/apercu/sorties/classes.h"
#include "capture/colonnes/colonne.h"

namespace quelvar::capture {

enum class Regle {
  Rien,          // nothing in .DAT
  Code,          // digits of a narrow column
  Telle,         // the cell as it is
  Texte,         // code of the text
  Classe,        // code of the class of the number
  Reponse,       // 1 for the texts that say so
  Alphabetique,  // the text as it is
  Liste,         // 1 in the column of each answer of the cell
};

struct ColonneLue {
  Regle regle = Regle::Rien;
  std::size_t premiere = 0;  // its first column of .DAT, by index
  std::size_t nombre = 0;    // its columns there
  TableDeTextes textes;      // with a code for each: that of .DAT, or the column of the answer from 1
  std::vector<int> codes;
  bool avecZeros = false;       // some texts count as 0
  bool avecTextes = false;      // Code: some texts stand for a code
  std::vector<double> limites;  // classes: the lower limit of each but the first
  char liste = '\0';
  bool longue = false;   // goes to .TXT
  bool gardee = false;   // goes to the numbers
  bool entiers = false;  // Telle: only whole numbers will do
  SignesDeNombres signes;
};

// A variable of the generic of the numbers.
struct NombreGarde {
  std::size_t colonne = 0;  // of the table, by index
  std::string nom;
  std::string intitule;
};

struct PlanDImport {
  std::vector<ColonneLue> lues;                    // one for each column of the table
  std::vector<ColonneImportee> colonnes;           // of .DAT
  std::vector<std::vector<Etiquette>> etiquettes;  // one list for each column of .DAT
  std::vector<std::size_t> nomsChanges;            // columns of .DAT whose name is not that of their title
  std::vector<std::size_t> longues;                // columns of the table that go to .TXT
  std::vector<NombreGarde> nombres;
  std::size_t largeurNombres = 0;  // of a number there
};

// Raises a sentence (kIncompatibiliteType) for a choice that cannot be carried out, what NommerLePlan raises, and what
// LecteurDeRangees raises.
PlanDImport DresserPlan(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits, const Chemin& source,
                        const Lecture& lecture);

}  // namespace quelvar::capture
