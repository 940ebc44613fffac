// A golden case: its input files, the runs of quelvar-batch, and every file that the runs must leave behind.
//
//   tests/golden/<program>/<case>/
//     entree/    the working directory before the runs (may be missing: an empty directory)
//     commande   one run a line: the arguments of quelvar-batch, quoted with "..." or '...' where they hold blanks;
//                "statut=1" before them is the exit status to expect (0 without it); "efface: ENQ.MOD" tells that
//                a file of entree/ must be gone at the end; a line that starts with # is a remark
//     attendu/   every file that the runs create or change, byte for byte; all others must be as in entree/
//     clavier    if present, the standard input of each run
//     sortie     if present, the standard output of the runs, one after the other
//     boites     if present, their standard error (the message boxes)
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace golden {

struct Execution {
  std::vector<std::string> arguments;
  int statut = 0;
};

struct Cas {
  std::filesystem::path dossier;
  std::vector<Execution> executions;
  std::set<std::string> effaces;
};

// What the runs left: the files of the working directory by relative name, and what they told.
struct Constat {
  std::map<std::string, std::string> fichiers;
  std::vector<int> statuts;  // exit status of each run; minus the signal when one killed it
  std::string sortie;
  std::string boites;
};

// Every directory that holds a `commande`, two levels below the root, sorted.
std::vector<std::filesystem::path> ListerCas(const std::filesystem::path& racine);

// Reads the case; throws std::runtime_error when it cannot fail (nothing expected) or cannot be read.
Cas LireCas(const std::filesystem::path& dossier);

// Runs the case in a scratch copy of entree/, with a fixed clock, time zone and locale.
Constat ExecuterCas(const Cas& cas, const std::filesystem::path& programme);

// One readable text for each difference between what is expected and what the runs left; empty when all is equal.
std::vector<std::string> Differences(const Cas& cas, const Constat& constat);

// Rewrites attendu/ (and sortie, boites where they exist) after what the runs left.
// Returns remarks on what only a hand can change in `commande`.
std::vector<std::string> Reecrire(const Cas& cas, const Constat& constat);

// The names in the output of `quelvar-batch --liste`: the first word of each line.
std::vector<std::string> LireListe(std::string_view sortie);

}  // namespace golden
