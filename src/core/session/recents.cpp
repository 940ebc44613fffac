#include "core/session/recents.h"

#include <system_error>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/session/initialisation.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kGeneriqueInconnu = "indéterminé"_w;

std::string Cle(int rang) { return "RecentFile" + Nombre(rang); }

// The file of an entry, in its true case. An earlier version kept its entries in upper case: they lead to any spelling.
std::optional<Chemin> FichierRecent(const std::string& entree) {
  std::error_code ignoree;
  if (fs::exists(Chemin(entree), ignoree)) return Chemin(entree);
  return entree == MajusculesUtf8(entree) ? ChercherFichier("/", DepuisUtf8(entree)) : std::nullopt;
}

}  // namespace

std::string LireRecent(const Reglages& reglages, const ListeRecents& liste, int rang) {
  return reglages.lire(liste.application, liste.section, Cle(rang));
}

void AjouterRecent(const Reglages& reglages, const ListeRecents& liste, std::string_view valeur) {
  for (int rang = 1; rang <= liste.capacite; ++rang)
    if (LireRecent(reglages, liste, rang) == valeur) return;
  for (int rang = liste.capacite; rang > 1; --rang)
    reglages.ecrire(liste.application, liste.section, Cle(rang), LireRecent(reglages, liste, rang - 1));
  reglages.ecrire(liste.application, liste.section, Cle(1), valeur);
}

std::string MajusculesUtf8(std::string_view utf8) {
  std::string resultat;
  while (!utf8.empty()) {
    const PointUtf8 lu = DecoderUtf8(utf8);
    const std::size_t longueur = lu.longueur == 0 ? 1 : lu.longueur;
    const int octet = lu.longueur == 0 ? -1 : OctetDe(lu.point);
    if (octet < 0) resultat += utf8.substr(0, longueur);
    else resultat += VersUtf8(std::string(1, Majuscule(static_cast<char>(octet))));
    utf8.remove_prefix(longueur);
  }
  return resultat;
}

std::vector<EntreeRecente> FichiersRecents(const Reglages& reglages) {
  std::vector<EntreeRecente> entrees;
  for (int rang = 1; rang <= kRecentsPrincipal.capacite; ++rang) {
    EntreeRecente entree{LireRecent(reglages, kRecentsPrincipal, rang), std::string(kGeneriqueInconnu), {}};
    if (entree.chemin.empty()) continue;
    try {
      if (const std::optional<Chemin> fichier = FichierRecent(entree.chemin)) {
        entree.generique = LireInitialisation(*fichier).generique;
        entree.fichier = fichier;
      }
    } catch (const Erreur&) {  // shown as unknown
    }
    entrees.push_back(std::move(entree));
  }
  return entrees;
}

void AjouterFichierRecent(const Reglages& reglages, const Chemin& initialisation) {
  AjouterRecent(reglages, kRecentsPrincipal, initialisation.native());
}

}  // namespace quelvar
