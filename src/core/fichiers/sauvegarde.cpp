#include "core/fichiers/sauvegarde.h"

#include <algorithm>

#include "core/fichiers/systeme/morceaux.h"
#include "core/panne/annonce.h"

namespace quelvar {

std::string NomDeSauvegarde(std::string_view nom, int numero) {
  const std::string chiffres = std::to_string(numero);
  return Joindre({nom.substr(0, nom.size() - std::min(nom.size(), chiffres.size())), chiffres});
}

std::string NomDeSauvegardeLibre(const Chemin& repertoire, std::string_view nom) {
  for (int numero = kPremiereSauvegarde; numero <= kDerniereSauvegarde; ++numero)
    if (std::string copie = NomDeSauvegarde(nom, numero); !ChercherFichier(repertoire, copie)) return copie;
  throw Erreur(kAccesFichier,
               Joindre({kArretDuProgrammeSansAccents, "les copies de ", nom, ", de ",
                        NomDeSauvegarde(nom, kPremiereSauvegarde), " à "_w, NomDeSauvegarde(nom, kDerniereSauvegarde),
                        ", existent toutes ; effacez celles qui ne servent plus"}));
}

std::string Sauvegarder(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom) {
  std::string copie = NomDeSauvegardeLibre(ancien.parent_path(), nom);
  sorties.Copier(ancien, copie, Nature::Unique);
  return copie;
}

std::string CopierSousLeNomUsuel(JeuDeFichiers& sorties, const Chemin& ancien, std::string_view nom) {
  std::string copie = NomDeSauvegarde(nom);
  CopierLignes(ancien, sorties.Ouvrir(copie, Nature::Unique));
  return copie;
}

std::string NomPourAncienneSauvegarde(const Chemin& repertoire, const Chemin& fichier, std::string_view sauvegarde) {
  const std::optional<Chemin> ancienne = ChercherFichier(repertoire, sauvegarde);
  if (!ancienne || MemesOctets(*ancienne, fichier)) return {};
  // The first of the further names that is free, unless one of those before it says the same.
  for (int numero = kPremiereSauvegarde + 1; numero <= kDerniereSauvegarde; ++numero) {
    const std::optional<Chemin> occupant = ChercherFichier(repertoire, NomDeSauvegarde(sauvegarde, numero));
    if (!occupant) break;
    if (MemesOctets(*occupant, *ancienne)) return {};
  }
  return NomDeSauvegardeLibre(repertoire, sauvegarde);
}

std::string ConserverSauvegarde(JeuDeFichiers& sorties, const Chemin& fichier, std::string_view sauvegarde) {
  const Chemin repertoire = fichier.parent_path();
  std::string nom = NomPourAncienneSauvegarde(repertoire, fichier, sauvegarde);
  const std::optional<Chemin> ancienne = ChercherFichier(repertoire, sauvegarde);
  if (ancienne && !nom.empty()) sorties.Copier(*ancienne, nom, Nature::Unique);
  return nom;
}

std::string GarderRemplace(JeuDeFichiers& sorties, const Chemin& ancien, const Chemin& nouveau) {
  if (MemesOctets(ancien, nouveau)) return {};
  const Chemin repertoire = ancien.parent_path();
  const std::string nom = TexteDe(ancien.filename());
  const std::string copie = NomDeSauvegardeLibre(repertoire, nom);
  for (int numero = kPremiereSauvegarde; NomDeSauvegarde(nom, numero) != copie; ++numero)
    if (MemesOctets(ancien, CheminDEcriture(repertoire, NomDeSauvegarde(nom, numero)))) return {};
  sorties.Copier(ancien, copie, Nature::Unique);
  return copie;
}

bool MemesOctets(const Chemin& a, const Chemin& b) {
  if (LongueurFichier(a) != LongueurFichier(b)) return false;
  std::uintmax_t place = 0;
  for (std::string octets; octets = LireMorceau(a, place, kMorceau), !octets.empty(); place += octets.size())
    if (octets != LireMorceau(b, place, kMorceau)) return false;
  return true;
}

}  // namespace quelvar
