#include "forms/programmes/sorts/fichierdonnees.h"

namespace quelvar::forms {

std::optional<std::string> ChoisirFichierDeDonnees(const Services& services, bool autre) {
  if (!autre) return std::string();
  std::string choisi =
      services.ecran.choisirFichier("Choix du fichier *.DAT", "Fichiers *.dat|*.dat|Tous fichiers *.*|*.*");
  if (choisi.empty()) return std::nullopt;
  const Chemin chemin = CheminDe(choisi);
  if (chemin.parent_path() == services.session.repertoire) choisi = TexteDe(chemin.filename());
  return choisi;
}

}  // namespace quelvar::forms
