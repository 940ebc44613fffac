#include "utilities/trifichier.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

#include "core/fichiers/lignelongue.h"
#include "core/programme/place.h"
#include "core/texte/nombres.h"
#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kPasDeLecture = 1000;
constexpr double kLargeurDuFormulaire = 10;
constexpr std::string_view kDonnerLaPosition = "Vous devez entrer la position initiale du champ de tri";
constexpr std::string_view kDonnerLaLargeur = "Vous devez entrer la largeur du champ de tri (10 max)";
constexpr std::size_t kPlusCourteAuDepart = 10000;  // no shortest line is found above it

// Lengths of the lines written.
struct Longueurs {
  std::size_t lignes = 0;
  std::size_t minimum = kPlusCourteAuDepart;
  std::size_t maximum = 0;
  double total = 0;
  double totalDesCarres = 0;

  void Compter(std::size_t longueur) {
    ++lignes;
    minimum = std::min(minimum, longueur);
    maximum = std::max(maximum, longueur);
    total += static_cast<double>(longueur);
    totalDesCarres += static_cast<double>(longueur) * static_cast<double>(longueur);
  }
  // Raises kDivisionParZero without a line.
  double Moyenne() const {
    if (lignes == 0) throw Erreur(kDivisionParZero);
    return total / static_cast<double>(lignes);
  }
  // Of the population. The sums are whole numbers, exact up to 2^53.
  double EcartType() const {
    const auto n = static_cast<double>(lignes);
    return std::sqrt(std::max(0.0, n * totalDesCarres - total * total)) / n;
  }
};

ChampDeTri ChampTape(const OptionsTriFichier& options) {
  return {Entier64(ValeurDe(options.position)), Entier64(ValeurDe(options.largeur)), options.sens};
}

void ImprimerEnTete(Rapport& rapport, const OptionsTriFichier& options) {
  ImprimerBandeau(rapport, "Tri de fichiers");
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, options.fichierA});
  rapport.Ligne({"Le nom du fichier trié est "_w, options.fichierC});
}

void ImprimerCompte(Rapport& rapport, const OptionsTriFichier& options, const ChampDeTri& champ,
                    const Longueurs& longueurs) {
  if (champ.position == 0) {
    rapport.Ligne("Aucun tri n'est fait");
  } else {
    rapport.Ligne({"Début du champ de tri en position "_w, options.position});
    rapport.Ligne({"Largeur du champ de tri : ", options.largeur});
    rapport.Ligne(options.sens == SensDeTri::Croissant ? "Le tri se fait en ordre croissant"_w
                                                       : "Le tri se fait en ordre décroissant"_w);
  }
  if (options.rogner) rapport.Ligne("Les blancs à droite sont éliminés"_w);
  rapport.Ligne({"Nombre d'enregistrement dans le fichier résultant :"_w, NombreNu(longueurs.lignes)});
  if (longueurs.minimum == longueurs.maximum) {
    rapport.Ligne({"Tous les enregistrements ont", NombreNu(longueurs.maximum), " caractères"_w});
  } else {
    rapport.Ligne({"Les enregistrements ont en moyenne ", NombreFixe(longueurs.Moyenne(), 5, 1), " caractères"_w});
    rapport.Ligne({"Longueur min = ", NombreNu(longueurs.minimum)});
    rapport.Ligne({"Longueur max = ", NombreNu(longueurs.maximum)});
    rapport.Ligne({"Ecart-type   = ", NombreFixe(longueurs.EcartType(), 5, 1)});
  }
  rapport.Ligne("Programme normalement terminé"_w);
}

// Writes the lines in their order.
Longueurs EcrireLignes(Ecrivain& fichier, const std::vector<std::string_view>& lignes,
                       const std::vector<std::uint32_t>& ordre, bool rogner) {
  constexpr std::size_t kAvance = 8;  // lines asked for ahead: in sorted order each one is a miss of the cache
  Longueurs longueurs;
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
  const std::optional<Chemin> source = ChercherFichier(contexte.repertoire, options.fichierA);
  if (!source) {
    rapport.Ligne({"*** Le fichier ", options.fichierA, " n'existe pas"});
    rapport.Ligne("*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w);
    contexte.Ecran().biper();
    throw Erreur(kArretAnnonce);
  }
  ImprimerEnTete(rapport, options);
  const ChampDeTri champ = ChampTape(options);
  if (champ.position != 0 && champ.largeur > static_cast<std::int64_t>(kLargeurCle))
    contexte.Ecran().demander(
        Joindre({"Le tri se fait sur les "_w, Nombre(kLargeurCle), " premiers caractères du champ"_w}), Boutons::Ok);
  // The file, a place and a rank for each of its lines, and the sorted file.
  const std::uint64_t taille = LongueurFichier(*source);
  ExigerPlace(contexte, rapport, {2 * taille, taille});
  const std::string octets = LireOctets(*source);
  ExigerLignesCourtes(octets, TexteDe(source->filename()));
  const std::vector<std::string_view> lignes = LignesDe(octets);
  const std::vector<std::uint32_t> ordre = OrdreDesLignes(lignes, champ, contexte.Ecran());
  Remplacement resultat(contexte.repertoire, options.fichierC);
  const Longueurs longueurs = EcrireLignes(resultat.Fichier(), lignes, ordre, options.rogner);
  resultat.Achever();
  ImprimerCompte(rapport, options, champ, longueurs);
  resultat.Valider();
}

}  // namespace

std::vector<std::string_view> LignesDe(std::string_view octets) {
  if (octets.ends_with('\x1A')) octets.remove_suffix(1);
  std::vector<std::string_view> lignes;
  while (!octets.empty()) {
    const std::size_t saut = octets.find('\n');
    const bool derniere = saut == std::string_view::npos;
    std::string_view ligne = octets.substr(0, saut);
    if (ligne.ends_with('\r')) ligne.remove_suffix(1);
    lignes.push_back(ligne);
    octets.remove_prefix(derniere ? octets.size() : saut + 1);
  }
  return lignes;
}

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
  const std::string nomRapport = contexte.generique.empty() ? "$$$.prt" : contexte.Nom(".prt");
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
