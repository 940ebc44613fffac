#include "utilities/fusion/travail.h"

#include <algorithm>
#include <utility>

#include "utilities/entrees/colonnes.h"
#include "utilities/entrees/exigences.h"

namespace quelvar::utilities {

namespace {

Identifiants LireIdentifiants(const OptionsFusion& options) {
  const std::int64_t a = NombreTape(options.positionA);
  const std::int64_t b = NombreTape(options.positionB);
  const std::int64_t largeur = NombreTape(options.largeur);
  if (a < 1 || b < 1 || largeur < 1) throw Erreur(kArgumentIncorrect);
  return {static_cast<std::size_t>(a), static_cast<std::size_t>(b), static_cast<std::size_t>(largeur)};
}

}  // namespace

FichierMesure Mesurer(EntreeChoisie entree) {
  FichierMesure mesure{std::move(entree), 0, 0, 0};
  mesure.octets = LongueurFichier(*mesure.entree.chemin);
  LecteurLignes lecteur(*mesure.entree.chemin);
  for (std::string_view ligne; lecteur.Lire(ligne); ++mesure.lignes)
    mesure.plusLongue = std::max(mesure.plusLongue, ligne.size());
  return mesure;
}

std::optional<PaireDePos> LirePaireDePos(const Contexte& contexte, const OptionsFusion& options) {
  if (!options.pos) return std::nullopt;
  std::optional<PosDeFusion> a = LirePosDeFusion(contexte.repertoire, options.a);
  std::optional<PosDeFusion> b = LirePosDeFusion(contexte.repertoire, options.b);
  if (!a || !b) return std::nullopt;
  return PaireDePos{std::move(*a), std::move(*b)};
}

Identifiants IdentifiantsDe(const TravailDeFusion& travail) {
  const Identifiants identifiants = LireIdentifiants(travail.options);
  const auto exigerDedans = [](const FichierMesure& fichier, std::size_t position) {
    if (fichier.lignes > 0 && position > fichier.plusLongue)
      throw EchecDuFichier(*fichier.entree.chemin, kArgumentIncorrect);
  };
  exigerDedans(travail.a, identifiants.a);
  exigerDedans(travail.b, identifiants.b);
  return identifiants;
}

Resultat::Resultat(const TravailDeFusion& travail)
    : travail_(travail),
      chemin_(CheminDEcriture(travail.contexte.repertoire, travail.options.c)),
      sorties_(chemin_.parent_path(), TexteDe(chemin_.stem())),
      c_(sorties_.Ouvrir(TexteDe(chemin_.filename()), Nature::Refaisable)) {
  for (const std::string& ligne : sorties_.Recit()) travail.rapport.Ligne(ligne);
}

void Resultat::Valider(const std::vector<std::string>& lignesPos) {
  if (travail_.pos) {
    const std::string nom = TexteDe(CheminDe(NomDuPos(travail_.options.c)).filename());
    Ecrivain& pos = sorties_.Ouvrir(nom, Nature::Unique);
    for (const std::string& ligne : lignesPos) pos.Ligne(ligne);
    Garder(nom);
  }
  Laisser();
}

void Resultat::Laisser() {
  Garder(TexteDe(chemin_.filename()));
  sorties_.Valider();
}

void Resultat::Garder(std::string_view nom) {
  GarderDuJeuDeDonnees(travail_.contexte, CheminDEcriture(chemin_.parent_path(), nom), sorties_.Achever(nom));
}

}  // namespace quelvar::utilities
