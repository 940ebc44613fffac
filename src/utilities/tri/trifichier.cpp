#include "utilities/tri/trifichier.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/fichiers/systeme/lignelongue.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "core/texte/lignes.h"
#include "utilities/entrees/exigences.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/tri/compte.h"
#include "utilities/tri/edition.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kPasDeLecture = 1000;
constexpr double kLargeurDuFormulaire = 10;
constexpr std::string_view kDonnerLaPosition = "Vous devez entrer la position initiale du champ de tri";
constexpr std::string_view kDonnerLaLargeur = "Vous devez entrer la largeur du champ de tri (10 max)";

ChampDeTri ChampTape(const OptionsTriFichier& options) {
  return {Entier64(ValeurDe(options.position)), Entier64(ValeurDe(options.largeur)), options.sens};
}

// Writes the lines in their order.
LongueursDeLignes EcrireLignes(Ecrivain& fichier, const std::vector<std::string_view>& lignes,
                               const std::vector<std::uint32_t>& ordre, bool rogner) {
  constexpr std::size_t kAvance = 8;  // lines asked for ahead: in sorted order each one is a miss of the cache
  LongueursDeLignes longueurs;
  for (std::size_t i = 0; i < lignes.size(); ++i) {
    if (i + kAvance < ordre.size()) __builtin_prefetch(lignes[ordre[i + kAvance]].data());
    std::string_view ligne = lignes[ordre.empty() ? i : ordre[i]];
    if (rogner) ligne = RognerDroite(ligne);
    longueurs.Compter(ligne.size());
    fichier.Ecrire(ligne);
    fichier.FinDeLigne();
  }
  return longueurs;
}

void Trier(Rapport& rapport, const Contexte& contexte, const OptionsTriFichier& options) {
  const EntreeChoisie source{options.fichierA, ChercherFichier(contexte.repertoire, options.fichierA)};
  ExigerEntrees(rapport, contexte, {source});
  ImprimerTeteDuTri(rapport, options.fichierA, options.fichierC);
  const ChampDeTri champ = ChampTape(options);
  if (champ.position != 0 && champ.largeur > static_cast<std::int64_t>(kLargeurCle))
    contexte.Ecran().demander(
        Joindre({"Le tri se fait sur les "_w, Nombre(kLargeurCle), " premiers caractères du champ"_w}), Boutons::Ok);
  // The file, a place and a rank for each of its lines, and the sorted file.
  const std::uint64_t taille = LongueurFichier(*source.chemin);
  ExigerPlace(contexte, rapport, {2 * taille, taille});
  const std::string octets = LireOctets(*source.chemin);
  ExigerLignesCourtes(octets, TexteDe(source.chemin->filename()));
  const std::vector<std::string_view> lignes = ToutesLesLignes(octets);
  const std::vector<std::uint32_t> ordre = OrdreDesLignes(lignes, champ, contexte.Ecran());
  Remplacement resultat(contexte.repertoire, options.fichierC);
  const LongueursDeLignes longueurs = EcrireLignes(resultat.Fichier(), lignes, ordre, options.rogner);
  resultat.Achever();
  // Without a line there is no mean.
  Situer([&] { return Lieu{.fichier = TexteDe(source.chemin->filename())}; },
         [&] {
           ImprimerCompteDuTri(rapport, {champ.position != 0, options.position, options.largeur, options.sens,
                                         options.rogner, longueurs});
         });
  if (!MemeFichier(contexte, options.fichierA, options.fichierC))
    GarderDuJeuDeDonnees(contexte, CheminDEcriture(contexte.repertoire, options.fichierC), resultat.CheminProvisoire());
  resultat.Valider();
}

}  // namespace

std::vector<std::uint32_t> OrdreDesLignes(const std::vector<std::string_view>& lignes, const ChampDeTri& champ,
                                          const Dialogue& dialogue) {
  if (champ.position == 0) return {};
  if (champ.position < 0 || champ.largeur < 0) throw Erreur(kArgumentIncorrect);
  std::vector<CleDeTri> cles;
  cles.reserve(lignes.size());
  const auto colonne = static_cast<std::size_t>(champ.position);
  const auto largeur = std::min(static_cast<std::size_t>(champ.largeur), kLargeurCle);
  for (const std::string_view ligne : lignes) {
    cles.push_back(CleDe(Milieu(ligne, colonne, largeur)));
    if (cles.size() % kPasDeLecture == 0) dialogue.montrerIteration(Joindre({"Tri ", Nombre(cles.size())}));
  }
  return TriChaines(cles, champ.sens, [&](std::int64_t reste) {
    dialogue.montrerIteration(Joindre({"Il reste ", Nombre(reste), " à trier"_w}));
  });
}

std::string_view RefusDeTrier(const OptionsTriFichier& options) {
  if (options.fichierA.empty()) return "Vous devez entrer le nom du fichier A à trier"_w;
  if (options.fichierC.empty()) return "Vous devez entrer le nom du fichier C résultant du tri"_w;
  if (Rogner(options.position).empty()) return kDonnerLaPosition;
  if (Rogner(options.position) != "0" && Rogner(options.largeur).empty()) return kDonnerLaLargeur;
  return {};
}

std::string_view RefusDuFormulaire(const OptionsTriFichier& options) {
  if (const std::string_view refus = RefusDeTrier(options); !refus.empty()) return refus;
  if (Rogner(options.position).find_first_not_of("0123456789") != std::string_view::npos) return kDonnerLaPosition;
  const double largeur = ValeurDe(options.largeur);
  if (Rogner(options.position) != "0" && (largeur < 1 || largeur > kLargeurDuFormulaire)) return kDonnerLaLargeur;
  return {};
}

namespace {

Fin TrierFichier(const Contexte& contexte, const OptionsTriFichier& options, const LibellesErreur& libelles) {
  const std::string nomRapport = NomDuRapport(contexte);
  const Chemin rapportPrevu = CheminDEcriture(contexte.repertoire, nomRapport);
  for (const std::string& fichier : {options.fichierA, options.fichierC})
    if (!fichier.empty() && CheminDEcriture(contexte.repertoire, fichier) == rapportPrevu) {
      contexte.Ecran().demander(Joindre({"Le fichier ", fichier, " est celui du rapport : choisissez-en un autre"}),
                                Boutons::Ok);
      return Fin::Arret;
    }
  return ExecuterProgramme(contexte, nomRapport, libelles,
                           [&](Rapport& rapport) { Trier(rapport, contexte, options); });
}

}  // namespace

Fin TriFichier(const Contexte& contexte, const OptionsTriFichier& options) {
  return TrierFichier(contexte, options, LibellesErreur{});
}

Fin TriDesUtilitaires(const Contexte& contexte, const OptionsTriFichier& options) {
  return TrierFichier(contexte, options, LibellesSansTexte());
}

}  // namespace quelvar::utilities
