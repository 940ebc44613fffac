#include "text/tableau/sorties.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/parametres.h"
#include "text/commun/lignedemot.h"
#include "utilities/tri/trifichier.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kZoneLibre = 9;  // columns before the free area of a question line

// Replaces the first occurrence.
void Remplacer(std::string& ligne, std::string_view ancien, std::string_view neuf) {
  const std::size_t place = ligne.find(ancien, kZoneLibre);
  if (place != std::string::npos) ligne.replace(place, ancien.size(), neuf);
}

}  // namespace

std::vector<std::string> LignesTriees(const TableLexicale& table, int largeur, const Dialogue& ecran) {
  std::vector<std::string> lignes;
  lignes.reserve(table.lignes.size());
  for (std::size_t i = 0; i < table.lignes.size(); ++i) {
    const std::int64_t frequence = std::min(table.lignes[i].frequence, kFrequenceEcrite);
    std::string& ligne = lignes.emplace_back(NombreFixe(static_cast<double>(frequence), kLargeurFrequence, 0));
    ligne.reserve(ligne.size() + table.colonnes * static_cast<std::size_t>(largeur) + table.lignes[i].texte.size());
    for (std::size_t j = 0; j < table.colonnes; ++j)
      ligne += EntierDroit(static_cast<std::int64_t>(table.Ligne(i)[j]), largeur);
    ligne += table.lignes[i].texte;
  }
  const std::vector<std::string_view> vues(lignes.begin(), lignes.end());
  std::vector<std::string> triees;
  triees.reserve(lignes.size());
  for (const std::uint32_t rang : utilities::OrdreDesLignes(vues, {1, kLargeurFrequence}, ecran))
    triees.push_back(std::move(lignes[rang]));
  return triees;
}

void EcrireModLexical(Ecrivain& fichier, std::string_view generique, const PlanLexical& plan,
                      const IntitulesModalites& intitules, const std::vector<std::string>& lignes, int largeur,
                      std::int64_t de) {
  fichier.Ligne(generique);
  fichier.Ligne(LigneDeParametres(
      {{"LIGN=", lignes.size()}, {"LSUP=", 0}, {"COL=", plan.noms.size()}, {"FMT=", largeur}, {"DE=", de}}));
  for (const std::string& nom : plan.noms) {
    const std::string* const intitule = intitules.Chercher(nom);
    fichier.Ligne(LigneModalite(nom, false, intitule == nullptr ? std::string_view{} : *intitule));
  }
  if (lignes.empty()) return;
  fichier.Ligne(kFinDeListe);
  const std::size_t cellules = kLargeurFrequence + plan.noms.size() * static_cast<std::size_t>(largeur);
  for (const std::string& ligne : lignes) {
    const std::string_view texte = std::string_view(ligne).substr(cellules);
    fichier.Ligne(LigneModalite(texte.substr(0, kLargeurCode), false, RognerDroite(texte.substr(kLargeurCode))));
  }
}

std::string LigneMarquee(const std::string& ligne, bool choisie) {
  std::string marquee = ligne;
  const std::string_view active = MarqueDe(Statut::Actif);
  const std::string_view supplementaire = MarqueDe(Statut::Supplementaire);
  if (!choisie) {
    Remplacer(marquee, active, supplementaire);
  } else if (marquee.find(supplementaire, kZoneLibre) != std::string::npos) {
    Remplacer(marquee, supplementaire, active);
  } else if (marquee.find(active, kZoneLibre) == std::string::npos) {
    marquee.resize(std::max(marquee.size(), kZoneLibre), ' ');
    marquee += Joindre({" ", active});
  }
  return marquee;
}

}  // namespace quelvar::text
