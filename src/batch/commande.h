// The command line of quelvar-batch: its parsing into a plain request, and the texts of --liste and --aide.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "batch/programmes.h"
#include "core/programme/dialogue.h"

namespace quelvar::batch {

struct LigneDeCommande {
  enum class Genre { Executer, Liste, AideGenerale, AideProgramme };
  Genre genre = Genre::Executer;
  Chemin repertoire = ".";
  int niveau = kNiveauSimple;  // as a new session
  std::deque<std::string> reponses;
  std::optional<DateHeure> horloge;
  const Programme* programme = nullptr;
  std::string generique;
  LigneDOptions options;
};

// Parses the arguments (UTF-8, without the program's name). Raises UsageIncorrect.
LigneDeCommande LireLigneDeCommande(const std::vector<std::string>& tapes);

// Texts in the code page.
std::string TexteListe();
std::string TexteAideGenerale();
std::string TexteAideProgramme(const Programme& programme);

}  // namespace quelvar::batch
