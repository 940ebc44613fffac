#include "core/session/initialisation.h"

#include <unistd.h>

#include <system_error>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "core/panne/erreur.h"
#include "core/session/generique.h"

namespace quelvar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kNomInitialisation = "qvr2.ini";
constexpr std::string_view kNomPointeur = "Qvr2.in0";

int NiveauDe(std::string_view ligne) {
  try {
    return ValeurDe(ligne) == kNiveauAvance ? kNiveauAvance : kNiveauSimple;
  } catch (const Erreur&) {
    return kNiveauSimple;
  }
}

// A path is written in the code page when that keeps it whole, else in UTF-8.
std::string LigneDeChemin(const Chemin& chemin) {
  const std::string texte = TexteDe(chemin);
  return CheminDe(texte) == chemin ? texte : chemin.native();
}

Chemin CheminDeLigne(std::string_view ligne) {
  const Chemin chemin = CheminDe(ligne);
  std::error_code ignoree;
  return !fs::exists(chemin, ignoree) && EstUtf8MultiOctet(ligne) ? Chemin(ligne) : chemin;
}

void EcrireLignes(Ecrivain& fichier, std::string_view generique, int niveau) {
  fichier.Ligne(generique);
  fichier.Ligne(NombreNu(niveau));
}

}  // namespace

Initialisation LireInitialisation(const Chemin& chemin) {
  LecteurLignes lecteur(chemin);
  Initialisation initialisation;
  std::string_view ligne;
  if (lecteur.Lire(ligne)) initialisation.generique = SansExtension(ligne);
  if (lecteur.Lire(ligne)) initialisation.niveau = NiveauDe(ligne);
  return initialisation;
}

void EcrireInitialisation(const Chemin& repertoire, std::string_view generique, int niveau) {
  if (generique.empty()) return;
  Remplacement fichier(repertoire, kNomInitialisation);
  EcrireLignes(fichier.Fichier(), generique, niveau);
  fichier.Valider();
}

void EcrireInitialisation(JeuDeFichiers& sorties, std::string_view generique, int niveau) {
  if (generique.empty()) return;
  EcrireLignes(sorties.Ouvrir(kNomInitialisation, Nature::Refaisable), generique, niveau);
}

Chemin CheminInitialisation(const Chemin& repertoire) { return CheminDEcriture(repertoire, kNomInitialisation); }

Chemin RepertoireDuProgramme(const Chemin& executable, const Chemin& donneesDeLUtilisateur) {
  const Chemin voisin = executable.parent_path();
  if (::access(voisin.c_str(), W_OK) == 0) return voisin;
  std::error_code ignoree;
  fs::create_directories(donneesDeLUtilisateur, ignoree);
  return donneesDeLUtilisateur;
}

std::optional<Chemin> LirePointeur(const Chemin& repertoireProgramme) {
  try {
    const std::optional<Chemin> pointeur = ChercherFichier(repertoireProgramme, kNomPointeur);
    if (!pointeur) return std::nullopt;
    LecteurLignes lecteur(*pointeur);
    std::string_view ligne;
    if (!lecteur.Lire(ligne) || ligne.empty()) return std::nullopt;
    return CheminDeLigne(ligne);
  } catch (const Erreur&) {  // a pointer that can't be read opens nothing
    return std::nullopt;
  }
}

void EcrirePointeur(const Chemin& repertoireProgramme, const Chemin& initialisation) {
  Remplacement fichier(repertoireProgramme, kNomPointeur);
  fichier.Fichier().Ligne(LigneDeChemin(initialisation));
  fichier.Valider();
}

}  // namespace quelvar
