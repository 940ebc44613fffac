// A run of the companion that can be made again from the same files and cut, starved or fed with broken files: one
// golden case of each program.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "golden/cas.h"

namespace essai {

using Contenu = std::map<std::string, std::string>;  // bytes of the files of a directory by their relative names

struct Chantier {
  std::string nom;  // program and case
  Contenu avant;    // what the run finds
  std::vector<std::string> arguments;
  std::filesystem::path clavier;  // its standard input
};

// The case of a program that leaves the most files, with what its earlier runs leave before the last one; all its cases
// when the variable QUELVAR_CAS_TOUS is set. Cases that are to stop are left out.
std::vector<Chantier> ChantiersDe(const std::string& programme);

// A run in a process of its own, in that directory, and its state; minus the signal when one ended it. `preparer` is
// called in that process before the run.
pid_t Demarrer(const Chantier& chantier, const std::filesystem::path& dossier, void (*preparer)() = nullptr);
int Attendre(pid_t enfant);
int Executer(const Chantier& chantier, const std::filesystem::path& dossier, void (*preparer)() = nullptr);

// Locks and records aside.
Contenu Lire(const std::filesystem::path& dossier);
void Remettre(const std::filesystem::path& dossier, const Contenu& contenu);

// The reports of a run, and nothing but them; or all that is no report.
enum class Part { Rapports, Reste };
bool EstFichierDeTravail(const std::filesystem::path& nom);
Contenu PartieDe(const Contenu& tout, Part part);

}  // namespace essai
