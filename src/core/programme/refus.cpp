#include "core/programme/refus.h"

#include "core/panne/annonce.h"

namespace quelvar {

std::string RefusDEcrire(const Contexte& contexte, std::string_view fichier) {
  if (fichier.empty()) return {};
  const Chemin chemin = CheminDEcriture(contexte.repertoire, fichier);
  std::error_code erreur;
  if (std::filesystem::is_directory(chemin, erreur))
    return Joindre({kArretDuProgramme, fichier, " est un répertoire, donnez un nom de fichier"_w});
  if (const Chemin dossier = chemin.parent_path(); !dossier.empty() && !std::filesystem::is_directory(dossier, erreur))
    return Joindre({kArretDuProgramme, "le répertoire de "_w, fichier, " n'existe pas, rien n'est calculé"_w});
  return {};
}

void ExigerEcriture(const Contexte& contexte, Rapport& rapport, std::string_view fichier) {
  const std::string refus = RefusDEcrire(contexte, fichier);
  if (refus.empty()) return;
  Avertir(rapport, contexte.Ecran(), refus);
  throw Refus();
}

}  // namespace quelvar
