#include "core/document/empreinte.h"

#include "core/fichiers/provisoire.h"
#include "core/fichiers/systeme/condense.h"

namespace quelvar {

Empreinte EmpreinteDe(const Chemin& chemin, std::string_view octets) {
  std::error_code ignoree;
  CondenseDOctets condense;
  condense.Ajouter(octets);
  return {octets.size(), std::filesystem::last_write_time(chemin, ignoree), condense.Valeur()};
}

Empreinte EmpreinteSansContenu(const Chemin& chemin) {
  std::error_code ignoree;
  return {LongueurFichier(chemin), std::filesystem::last_write_time(chemin, ignoree), std::nullopt};
}

SurDisque ComparerAvecDisque(const Chemin& chemin, Empreinte& connue, bool toujoursLire) {
  std::error_code code;
  const std::uintmax_t taille = std::filesystem::file_size(chemin, code);
  const auto instant = code ? std::filesystem::file_time_type{} : std::filesystem::last_write_time(chemin, code);
  if (code) return SurDisque::Disparu;
  if (taille != connue.taille) return SurDisque::Modifie;
  const bool memeInstant = instant == connue.instant;
  if (!connue.contenu) return memeInstant ? SurDisque::Inchange : SurDisque::Modifie;
  if (memeInstant && !toujoursLire) return SurDisque::Inchange;
  const std::optional<MesureDeFichier> mesure = MesurerFichier(chemin);
  if (!mesure) return SurDisque::Disparu;
  if (mesure->empreinte != connue.contenu) return SurDisque::Modifie;
  connue.instant = instant;
  return SurDisque::Inchange;
}

}  // namespace quelvar
