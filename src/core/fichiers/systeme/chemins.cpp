#include "core/fichiers/systeme/chemins.h"

#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/echecs.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace fs = std::filesystem;

namespace {

std::optional<Chemin> ChercherComposant(const Chemin& repertoire, const Chemin& composant) {
  std::error_code code;
  Chemin exact = repertoire / composant;
  if (fs::exists(fs::symlink_status(exact, code))) return exact;

  const std::string voulu = TexteDe(composant);
  std::optional<std::string> trouve;
  for (fs::directory_iterator i(repertoire.empty() ? Chemin(".") : repertoire, code), fin; !code && i != fin;
       i.increment(code)) {
    std::string nom = i->path().filename().native();
    if (EgalSansCasse(NomDepuisUtf8(nom), voulu) && (!trouve || nom < *trouve)) trouve = std::move(nom);
  }
  if (!trouve) return std::nullopt;
  return repertoire / *trouve;
}

}  // namespace

Chemin CheminDe(std::string_view texte) { return Chemin(VersUtf8(texte)); }
std::string TexteDe(const Chemin& chemin) { return NomDepuisUtf8(chemin.native()); }

std::optional<Chemin> ChercherFichier(const Chemin& repertoire, std::string_view nom) {
  if (nom.empty()) return std::nullopt;
  const Chemin demande = CheminDe(nom);
  Chemin trouve = demande.is_absolute() ? Chemin() : repertoire;
  for (const Chemin& composant : demande) {
    if (composant.empty()) continue;
    if (composant == demande.root_directory() || composant == "." || composant == "..") {
      trouve /= composant;
      continue;
    }
    std::optional<Chemin> suite = ChercherComposant(trouve, composant);
    if (!suite) return std::nullopt;
    trouve = std::move(*suite);
  }
  return trouve;
}

Chemin CheminDEcriture(const Chemin& repertoire, std::string_view nom) {
  if (std::optional<Chemin> existant = ChercherFichier(repertoire, nom)) return *existant;
  return repertoire / CheminDe(nom);
}

bool EstLeMemeFichier(const Chemin& a, const Chemin& b) {
  std::error_code absent;
  return fs::equivalent(a, b, absent);
}

std::uintmax_t LongueurFichier(const Chemin& chemin) {
  struct stat etat {};
  if (::stat(chemin.c_str(), &etat) != 0) LeverErrno(chemin, errno);
  if (!S_ISREG(etat.st_mode)) throw PasUnFichier(chemin);
  return static_cast<std::uintmax_t>(etat.st_size);
}

void EffacerFichier(const Chemin& chemin) {
  if (appels::Effacer(chemin.c_str()) != 0 && errno != ENOENT) LeverErrno(chemin, errno);
}

}  // namespace quelvar
