#include "core/session/generique_libre.h"

#include "core/session/generique.h"

namespace quelvar {

namespace {

constexpr std::string_view kFichiers[] = {".POS", ".DAT", ".MOD", ".BRT", ".CDG", ".TRG", ".DES", ".TXT"};
constexpr int kPasDUnTour = 26;  // the rule of names goes round the letters

}  // namespace

bool GeneriqueExiste(const Chemin& repertoire, std::string_view generique) {
  for (const std::string_view extension : kFichiers)
    if (ChercherFichier(repertoire, Joindre({generique, extension}))) return true;
  return false;
}

std::string GeneriqueLibre(const Chemin& repertoire, std::string_view generique) {
  std::string base(generique);
  for (;; base += 'A') {
    std::string libre = base;
    for (int pas = 0; pas < kPasDUnTour; ++pas) {
      libre = GeneriqueSuivant(libre);
      if (!GeneriqueExiste(repertoire, libre)) return libre;
    }
  }
}

std::optional<std::string> DemanderGeneriqueLibre(const Contexte& contexte) {
  if (contexte.generique.empty()) return std::string();
  const std::string suivant = GeneriqueSuivant(contexte.generique);
  if (!GeneriqueExiste(contexte.repertoire, suivant)) return suivant;
  const std::string saisi = contexte.Ecran().saisir(
      Joindre({"Le générique "_w, suivant,
               " existe déjà dans ce répertoire. Entrez le générique qui recevra les nouveaux fichiers"_w}),
      GeneriqueLibre(contexte.repertoire, contexte.generique));
  const std::string nom(Rogner(std::string_view(saisi).substr(0, saisi.find('.'))));
  if (nom.empty()) return std::nullopt;
  if (EgalSansCasse(nom, contexte.generique)) {
    contexte.Ecran().demander("Le nouveau générique ne peut être celui en cours"_w, Boutons::Ok);
    return std::nullopt;
  }
  if (nom.find_first_of("/\\") != std::string::npos || !PeutEtreRemplace(contexte, nom)) return std::nullopt;
  return nom;
}

bool PeutEtreRemplace(const Contexte& contexte, std::string_view generique) {
  if (!GeneriqueExiste(contexte.repertoire, generique)) return true;
  return contexte.Ecran().demander(Joindre({"Le générique "_w, generique,
                                            " existe déjà : ses fichiers seront remplacés. L'acceptez-vous ?"_w}),
                                   Boutons::NonOui) == Reponse::Oui;
}

void EcrireChangementDeGenerique(Rapport& rapport, const Contexte& contexte, std::string_view nouveau) {
  rapport.Ligne("*** Attention, changement de nom générique ***"_w);
  rapport.Ligne({"    L'ancien générique était : "_w, contexte.generique});
  rapport.Ligne({"    le nouveau est désormais : "_w, nouveau});
}

}  // namespace quelvar
