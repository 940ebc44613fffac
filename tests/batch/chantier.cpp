#include "batch/chantier.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <stdexcept>

#include "batch/execution.h"
#include "core/fichiers/fichiers.h"
#include "support/environnement.h"

namespace essai {

namespace fs = std::filesystem;

namespace {

constexpr unsigned kDureeMaximale = 60;  // seconds of one run

std::string Extension(const fs::path& nom) {
  std::string extension = nom.extension();
  for (char& c : extension)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return extension;
}

// A report, or a copy that an import keeps before it begins.
bool EstRapport(const fs::path& nom) {
  static const std::set<std::string> kExtensions = {".IMP", ".TAP", ".REC", ".TCR", ".PRT", ".PRO",
                                                    ".AFC", ".ACP", ".ANA", ".REG", ".TRP", ".TRF",
                                                    ".PR2", ".PO2", ".PO3", ".MO2", ".BR2", ".CS2"};
  return kExtensions.contains(Extension(nom)) || EstFichierDeTravail(nom);
}

int Courir(const std::vector<std::string>& arguments) {
  using namespace quelvar;
  try {
    std::vector<std::string> mots = {"--horloge", "2017-05-02 14:30:00"};
    mots.insert(mots.end(), arguments.begin(), arguments.end());
    batch::LigneDeCommande demande = batch::LireLigneDeCommande(mots);
    return batch::ExecuterCommande(demande) == Fin::Normale ? 0 : 1;
  } catch (const UsageIncorrect&) {
    return 2;
  } catch (const Erreur&) {
    return 1;
  } catch (...) {
    return 3;
  }
}

void Rediriger(const fs::path& fichier, int descripteur, int mode) {
  const int ouvert = ::open(fichier.c_str(), mode);
  if (ouvert < 0 || ::dup2(ouvert, descripteur) < 0) _exit(127);
  ::close(ouvert);
}

std::size_t FichiersAttendus(const golden::Cas& cas) {
  std::size_t nombre = cas.effaces.size();
  if (!fs::exists(cas.dossier / "attendu")) return nombre;
  for (const auto& f : fs::recursive_directory_iterator(cas.dossier / "attendu"))
    if (f.is_regular_file() && !EstRapport(f.path())) ++nombre;
  return nombre;
}

Chantier Ouvrir(const golden::Cas& cas) {
  Chantier chantier;
  chantier.nom = cas.dossier.parent_path().filename() / cas.dossier.filename();
  chantier.clavier = fs::exists(cas.dossier / "clavier") ? fs::absolute(cas.dossier / "clavier") : "/dev/null";
  const DossierTemporaire dossier;
  if (fs::exists(cas.dossier / "entree"))
    fs::copy(cas.dossier / "entree", dossier.Chemin(), fs::copy_options::recursive);
  for (const golden::Execution& execution : cas.executions) {
    if (!chantier.arguments.empty()) Executer(chantier, dossier.Chemin());
    chantier.arguments = execution.arguments;
  }
  chantier.avant = Lire(dossier.Chemin());
  return chantier;
}

// Its picture is tested mark by mark, and no golden case has it.
Chantier ChantierTriang() {
  return {"triang/image",
          {{"ENQ.TRG", "ENQ\r\nUn\r\nDeux\r\nTrois\r\nPRE    10   20   70\r\nDER    60   30   10\r\n"}},
          {"triang", "ENQ"},
          "/dev/null"};
}

}  // namespace

std::vector<Chantier> ChantiersDe(const std::string& programme) {
  const bool tous = std::getenv("QUELVAR_CAS_TOUS") != nullptr;
  std::vector<golden::Cas> choisis;
  for (const fs::path& dossier : golden::ListerCas(QUELVAR_CAS)) {
    if (dossier.parent_path().filename() != programme) continue;
    golden::Cas cas = golden::LireCas(dossier);
    if (cas.executions.back().statut != 0) continue;
    if (tous || choisis.empty()) choisis.push_back(std::move(cas));
    else if (FichiersAttendus(choisis.front()) < FichiersAttendus(cas)) choisis.front() = std::move(cas);
  }
  std::vector<Chantier> chantiers;
  for (const golden::Cas& cas : choisis) chantiers.push_back(Ouvrir(cas));
  if (programme == "triang") chantiers.push_back(ChantierTriang());
  return chantiers;
}

pid_t Demarrer(const Chantier& chantier, const fs::path& dossier, void (*preparer)()) {
  const pid_t enfant = ::fork();
  if (enfant < 0) throw std::runtime_error("fork failed");
  if (enfant == 0) {
    ::alarm(kDureeMaximale);
    if (::chdir(dossier.c_str()) != 0) _exit(127);
    Rediriger(chantier.clavier, STDIN_FILENO, O_RDONLY);
    Rediriger("/dev/null", STDOUT_FILENO, O_WRONLY);
    Rediriger("/dev/null", STDERR_FILENO, O_WRONLY);
    if (preparer != nullptr) preparer();
    _exit(Courir(chantier.arguments));
  }
  return enfant;
}

int Attendre(pid_t enfant) {
  int etat = 0;
  if (::waitpid(enfant, &etat, 0) < 0) throw std::runtime_error("waitpid failed");
  return WIFEXITED(etat) ? WEXITSTATUS(etat) : -WTERMSIG(etat);
}

int Executer(const Chantier& chantier, const fs::path& dossier, void (*preparer)()) {
  return Attendre(Demarrer(chantier, dossier, preparer));
}

Contenu Lire(const fs::path& dossier) {
  Contenu contenu;
  for (const auto& f : fs::recursive_directory_iterator(dossier)) {
    const fs::path nom = f.path().lexically_relative(dossier);
    std::error_code ignoree;
    if (f.is_regular_file(ignoree) && nom.extension() != ".jeu" && nom.extension() != ".verrou")
      contenu[nom] = quelvar::LireOctets(f.path());
  }
  return contenu;
}

void Remettre(const fs::path& dossier, const Contenu& contenu) {
  for (const auto& f : fs::directory_iterator(dossier)) fs::remove_all(f);
  for (const auto& [nom, octets] : contenu) {
    fs::create_directories((dossier / nom).parent_path());
    EcrireOctets(dossier / nom, octets);
  }
}

// The tabular analysis leaves them when its run does not come to an end; the passing report of a program without a
// generic belongs to no family that a next run would sweep.
bool EstFichierDeTravail(const fs::path& nom) {
  if (nom.string().starts_with("$$$.prt.~")) return true;
  const std::string extension = Extension(nom);
  return extension.size() == 4 && extension.starts_with(".CD") && extension[3] >= '2' && extension[3] <= '8';
}

Contenu PartieDe(const Contenu& tout, Part part) {
  Contenu partie;
  for (const auto& [nom, octets] : tout)
    if (EstRapport(nom) == (part == Part::Rapports)) partie[nom] = octets;
  return partie;
}

}  // namespace essai
