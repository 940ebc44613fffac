#include "utilities/fusion/pos.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kLettresDuType = 3;
constexpr int kColonneDePosition = kLargeurDeQuestion + 1;
constexpr int kLargeurPosition = 4;
constexpr std::int64_t kPremiereQuestion = 3;  // line of a .POS

// No fusion depends on it: a size beyond every count is none.
LigneTaille TailleLue(std::string_view ligne) {
  try {
    return LireLigneTaille(ligne);
  } catch (const Erreur&) {
    return {};
  }
}

// The rest of the line as it stands; its position may be one that no question has.
std::string LigneDeplacee(const std::string& ligne, std::size_t decalage) {
  const std::int64_t position =
      Entier64(ValeurDe(Milieu(ligne, kColonneDePosition, kLargeurPosition))) + static_cast<std::int64_t>(decalage);
  if (position > kDernierePosition) throw Erreur(kDepassementCapacite);
  return LigneDeQuestion(ligne, position, Milieu(ligne, kColonneDePosition + kLargeurPosition));
}

}  // namespace

std::string NomDuPos(std::string_view fichier) {
  fichier.remove_suffix(std::min(kLettresDuType, fichier.size()));
  return Joindre({fichier, "POS"});
}

std::optional<PosDeFusion> LirePosDeFusion(const Chemin& repertoire, std::string_view fichier) {
  const std::optional<Chemin> chemin = ChercherFichier(repertoire, NomDuPos(fichier));
  if (!chemin) return std::nullopt;
  LecteurLignes lecteur(*chemin);
  std::string_view ligne;
  if (!lecteur.Lire(ligne)) return std::nullopt;
  PosDeFusion pos;
  pos.nom = TexteDe(chemin->filename());
  pos.titre = ligne;
  if (lecteur.Lire(ligne)) pos.taille = TailleLue(ligne);
  while (lecteur.Lire(ligne)) {
    const bool dansLaListe = pos.suite.empty() && !MarqueDeFin(ligne);
    (dansLaListe ? pos.questions : pos.suite).emplace_back(ligne);
  }
  if (pos.questions.empty()) return std::nullopt;
  return pos;
}

std::vector<std::string> NomsCommuns(const PosDeFusion& a, const PosDeFusion& b) {
  const auto nom = [](const std::string& question) {
    return Rogner(std::string_view(question).substr(0, kLargeurDeQuestion));
  };
  std::vector<std::string> communs;
  for (const std::string& question : a.questions)
    if (std::any_of(b.questions.begin(), b.questions.end(),
                    [&](const std::string& autre) { return nom(autre) == nom(question); }))
      communs.emplace_back(nom(question));
  return communs;
}

std::size_t PremiereDifference(const PosDeFusion& a, const PosDeFusion& b) {
  constexpr std::size_t kChamp = 9;  // name, position and code-max
  const auto champ = [](const PosDeFusion& pos, std::size_t i) {
    return i < pos.questions.size() ? CadreGauche(pos.questions[i], kChamp) : std::string();
  };
  for (std::size_t i = 0; i < std::max(a.questions.size(), b.questions.size()); ++i)
    if (champ(a, i) != champ(b, i)) return i + 1;
  return 0;
}

std::vector<std::string> PosCoteACote(const PosDeFusion& a, const PosDeFusion& b, std::size_t decalage,
                                      std::int64_t individus) {
  std::vector<std::string> lignes{a.titre, LigneDeTaille(individus)};
  lignes.insert(lignes.end(), a.questions.begin(), a.questions.end());
  for (std::size_t i = 0; i < b.questions.size(); ++i) {
    const auto ou = [&] { return Lieu{b.nom, kPremiereQuestion + static_cast<std::int64_t>(i), kColonneDePosition}; };
    Situer(ou, [&] { lignes.push_back(LigneDeplacee(b.questions[i], decalage)); });
  }
  return lignes;
}

std::vector<std::string> PosALaSuite(const PosDeFusion& a, std::int64_t individus) {
  std::vector<std::string> lignes{a.titre, LigneDeTaille(individus)};
  lignes.insert(lignes.end(), a.questions.begin(), a.questions.end());
  lignes.insert(lignes.end(), a.suite.begin(), a.suite.end());
  return lignes;
}

}  // namespace quelvar::utilities
