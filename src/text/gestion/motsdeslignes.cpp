#include "text/gestion/motsdeslignes.h"

#include <algorithm>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/texte/caracteres.h"
#include "text/tableau/sorties.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kRetrait = "     ";

// What a row is known by: its frequency, a blank, its label.
std::string TeteDeLigne(const LigneDeTable& ligne) {
  return Joindre({CadreGauche(ligne.nom, kLargeurFrequence), " ", RognerDroite(ligne.intitule)});
}

bool LIntituleSuffit(const LigneDeTable& ligne) {
  return ligne.mots.empty() || (PorteUnCode(ligne.intitule) && ligne.mots == MotsDeLIntitule(ligne.intitule));
}

}  // namespace

void LireMotsDesLignes(const Contexte& contexte, TableGeree& table) {
  const std::optional<Chemin> chemin = contexte.Chercher(kMotsDesLignes);
  if (!chemin) return;
  // The rows of a head that have no words yet, the first one last.
  std::unordered_map<std::string, std::vector<std::size_t>> sansMots;
  for (std::size_t i = table.lignes.size(); i-- > 0;)
    sansMots[std::string(RognerDroite(TeteDeLigne(table.lignes[i])))].push_back(i);
  LecteurLignes lecteur(*chemin);
  std::string_view ligne;
  lecteur.Lire(ligne);  // the generic
  for (std::string tete; lecteur.Lire(ligne);) {
    tete = RognerDroite(ligne);
    if (!lecteur.Lire(ligne)) return;
    const auto trouvees = sansMots.find(tete);
    if (trouvees == sansMots.end() || trouvees->second.empty()) {
      table.motsSansLigne.insert(table.motsSansLigne.end(), {tete, std::string(ligne)});
      continue;
    }
    std::vector<std::string>& mots = table.lignes[trouvees->second.back()].mots;
    mots = MotsSepares(ligne, " ");
    if (!mots.empty()) trouvees->second.pop_back();
  }
}

void EcrireMotsDesLignes(JeuDeFichiers& sorties, const std::string& generique, const std::vector<LigneDeTable>& lignes,
                         const std::vector<std::string>& sansLigne) {
  const std::string nom = generique + std::string(kMotsDesLignes);
  if (sansLigne.empty() && std::ranges::all_of(lignes, LIntituleSuffit)) {
    sorties.Effacer(nom);
    return;
  }
  Ecrivain& fichier = sorties.Ouvrir(nom, Nature::Unique);
  fichier.Ligne(generique);
  for (const LigneDeTable& ligne : lignes) {
    if (LIntituleSuffit(ligne)) continue;
    fichier.Ligne(TeteDeLigne(ligne));
    std::string mots(kRetrait);
    for (const std::string& mot : ligne.mots) mots += (mots.size() > kRetrait.size() ? " " : "") + mot;
    fichier.Ligne(mots);
  }
  for (const std::string& ligne : sansLigne) fichier.Ligne(ligne);
}

std::vector<std::string> MotsDeLaLigne(const LigneDeTable& ligne) {
  return ligne.mots.empty() ? MotsDeLIntitule(ligne.intitule) : ligne.mots;
}

bool MotsSontConnus(const LigneDeTable& ligne) { return !ligne.mots.empty() || PorteUnCode(ligne.intitule); }

std::optional<std::int64_t> FrequenceDeLaLigne(const LigneDeTable& ligne) {
  const std::string_view champ = Rogner(ligne.nom);
  if (!SontChiffres(champ)) return std::nullopt;
  const std::int64_t frequence = Entier64(ValeurDe(champ));
  return frequence < kFrequenceEcrite ? std::optional(frequence) : std::nullopt;
}

void RenommerLigne(LigneDeTable& ligne, std::string_view intitule) {
  if (ligne.mots.empty() && PorteUnCode(ligne.intitule)) ligne.mots = MotsDeLIntitule(ligne.intitule);
  ligne.intitule = intitule;
}

}  // namespace quelvar::text
