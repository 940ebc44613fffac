#include "factor/plan/lecture.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/programme/lieunomme.h"
#include "factor/analyse/fichiers.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

constexpr double kLignesAuPlus = 1e9;  // a larger LSUP= counts every row

std::string IntituleCourt(std::string_view texte) {
  return std::string(RognerDroite(Rogner(texte).substr(0, kIntituleDeModaliteAuPlus)));
}

// Element of each line of the .FAJ, by its name among those of the .MOD; of modalities with one name each in turn.
// Shorter than the names when one is not found: it would come next.
std::vector<std::size_t> PlacesDesNoms(const std::vector<std::string>& noms, const std::vector<PointPlan>& points) {
  std::unordered_map<std::string, std::vector<std::size_t>> rangs;
  for (std::size_t i = points.size(); i-- > 0;) rangs[points[i].nom].push_back(i);
  std::vector<std::size_t> places;
  for (const std::string& nom : noms) {
    const auto trouve = rangs.find(nom);
    if (trouve == rangs.end()) break;
    places.push_back(trouve->second.back());
    if (trouve->second.size() > 1) trouve->second.pop_back();
  }
  return places;
}

// Rows of a plain table, or the individuals: lines that stand last in the file. Returns the first of them.
std::size_t DeclarerLignes(const ParametresMod& parametres, const ElementsFactoriels& fai, DonneesPlan& donnees) {
  const auto sup = static_cast<std::size_t>(std::clamp(parametres.lignesSup, 0.0, kLignesAuPlus));
  const std::size_t lignes = fai.Nombre();
  const bool active = donnees.burt == 1 && lignes <= sup;  // the individuals were the table
  const std::size_t premiere = donnees.burt == 1 && lignes > sup ? lignes - sup : 0;
  for (std::size_t i = premiere; i < lignes; ++i)
    donnees.points.push_back({fai.noms[i], IntituleCourt(fai.intitules[i]), !active && i + sup >= lignes, true});
  return premiere;
}

// Raises kDepassementCapacite, with the place in `fichier`, for figures that no plane has.
void PlacerElement(DonneesPlan& donnees, std::size_t element, const ElementsFactoriels& lus, std::size_t ligne,
                   const Chemin& fichier) {
  donnees.points[element].place = true;
  Situer(
      [&] {
        return Lieu{TexteDe(fichier.filename()), lus.places[ligne]};
      },
      [&] {
        for (std::size_t f = 0; f < donnees.facteurs; ++f) {
          donnees.coordonnees(f, element) = static_cast<double>(Simple(lus.coordonnees(f, ligne)));
          donnees.cpf(f, element) = Entier16(lus.cpf(f, ligne));
        }
      });
}

// The power of ten between the coordinates of the plane and those with four decimals; nothing when they are of two
// analyses.
std::optional<double> EchelleCommune(const Matrice& entieres, const Matrice& fines, std::size_t debut) {
  constexpr double kLesPlusFines = 1e4;
  constexpr double kArrondiEntier = 0.5;  // of whole thousandths
  constexpr double kArrondiFin = 0.0001;  // one of the last of four decimals
  for (double echelle = 1; echelle <= kLesPlusFines; echelle *= 10) {
    const double ecart = kArrondiEntier + kArrondiFin * echelle;
    bool communes = true;
    for (std::size_t f = 0; f < fines.Lignes(); ++f)
      for (std::size_t i = 0; i < fines.Colonnes(); ++i)
        communes = communes && std::fabs(entieres(f, debut + i) - echelle * fines(f, i)) <= ecart;
    if (communes) return echelle;
  }
  return std::nullopt;
}

// Shares of the factors, from the later of the two reports; none unless it is on that many factors.
std::vector<double> PartsDesFacteurs(const Contexte& contexte, std::size_t facteurs) {
  const std::optional<Chemin> rapport = contexte.Chercher(DerniereAnalyse(contexte));
  std::vector<double> parts = rapport ? LireParts(*rapport) : std::vector<double>();
  if (parts.size() != facteurs) parts.clear();
  return parts;
}

// A tree that nobody has asked for does not stop the plane.
void LireArbre(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  const std::optional<Chemin> cah = contexte.Chercher(".CAH");
  donnees.arbrePresent = cah.has_value();
  if (!cah) return;
  try {
    donnees.cah = LireCah(*cah);
  } catch (const Erreur& erreur) {
    if (exigences.cah) throw;
    donnees.discordances.push_back({SujetDuPlan::Arbre,
                                    GenreDeDiscordance::Illisible,
                                    {contexte.Nom(".CAH")},
                                    0,
                                    TexteErreurDuFichierNomme(erreur)});
  }
}

}  // namespace

ArretDeLecture DeclarerColonnes(const Contexte& contexte, const FichierMod& mod, const ParametresMod& parametres,
                                DonneesPlan& donnees) {
  const double declarees = parametres.burt > 1 ? parametres.burt : parametres.colonnes;
  if (parametres.burt >= 1 && declarees != static_cast<double>(mod.modalites.size()))
    return {{"*** Arret du programme, incoherence entre le nombre de",
             Joindre({"  modalites declare et observe dans ", contexte.Nom(".MOD")})}};
  donnees.titre = mod.titre;
  donnees.burt = parametres.burt;
  donnees.colonnes = mod.modalites.size();
  for (const Modalite& modalite : mod.modalites)
    donnees.points.push_back({modalite.nom, IntituleCourt(modalite.intitule), modalite.supplementaire, false});
  return {};
}

ArretDeLecture PlacerElements(const Contexte& contexte, const ParametresMod& parametres, DonneesPlan& donnees) {
  const Chemin chemin = contexte.Exiger(".FAJ");
  const ElementsFactoriels faj = LireFaj(chemin);
  const Lieu debut{TexteDe(chemin.filename()), 1};
  if (faj.Nombre() == 0) throw Erreur(kFinDeFichierDepassee).Situer(debut);
  if (faj.Facteurs() == 0) throw Erreur(kArgumentIncorrect).Situer(debut);
  donnees.facteurs = faj.Facteurs();
  const std::vector<std::size_t> places = PlacesDesNoms(faj.noms, donnees.points);
  if (places.size() < faj.Nombre())
    return {{"***ERREUR : un nom de *.FAJ n'est pas retrouve identique",
             "   dans *.MOD - Il y a vraisemblablement eu une modification",
             "   de l'un ou l'autre fichier - Retablissez l'identite des noms",
             Joindre({"   a l'intérieur les deux fichiers et relancez le programme"_w})},
            {Joindre({"le nom \"", Rogner(faj.noms[places.size()]), "\" n'est pas dans ", contexte.Nom(".MOD")}),
             {debut.fichier, faj.places[places.size()]}}};
  ElementsFactoriels fai;
  const std::optional<Chemin> lignes = contexte.Chercher(".FAI");
  if (lignes && donnees.burt <= 1) fai = LireFai(*lignes, donnees.facteurs);
  const std::size_t premiere = DeclarerLignes(parametres, fai, donnees);
  donnees.coordonnees = Matrice(donnees.facteurs, donnees.points.size());
  donnees.cpf = Matrice(donnees.facteurs, donnees.points.size());
  for (std::size_t i = 0; i < faj.Nombre(); ++i) PlacerElement(donnees, places[i], faj, i, chemin);
  for (std::size_t i = premiere; i < fai.Nombre(); ++i)
    PlacerElement(donnees, donnees.colonnes + i - premiere, fai, i, *lignes);
  return {};
}

void AffinerCoordonnees(const Contexte& contexte, DonneesPlan& donnees) {
  const std::optional<Chemin> fj2 = contexte.Chercher(".FJ2");
  const std::optional<Chemin> fi2 = contexte.Chercher(".FI2");
  if (DerniereAnalyse(contexte) != ".ACP" || !fj2) return;
  const auto placees = [](const PointPlan& point) { return point.place; };
  const Matrice colonnes = LirePoints(*fj2, donnees.facteurs).coordonnees;
  if (colonnes.Colonnes() != donnees.colonnes || !std::ranges::all_of(donnees.points, placees)) return;
  const std::optional<double> echelle = EchelleCommune(donnees.coordonnees, colonnes, 0);
  const std::size_t autres = donnees.points.size() - donnees.colonnes;
  const Matrice lignes =
      fi2 && echelle && autres > 0 ? LirePoints(*fi2, donnees.facteurs, autres).coordonnees : Matrice();
  if (!echelle || lignes.Colonnes() != autres ||
      (autres > 0 && EchelleCommune(donnees.coordonnees, lignes, donnees.colonnes) != echelle))
    return;
  donnees.echelle = *echelle;
  for (std::size_t f = 0; f < donnees.facteurs; ++f)
    for (std::size_t i = 0; i < donnees.points.size(); ++i)
      donnees.coordonnees(f, i) = *echelle * (i < donnees.colonnes ? colonnes(f, i) : lignes(f, i - donnees.colonnes));
}

void LireAutourDuPlan(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  donnees.parts = PartsDesFacteurs(contexte, donnees.facteurs);
  const std::optional<Chemin> pem = contexte.Chercher(".PEM");
  donnees.liensPresents = pem.has_value();
  donnees.liens = tables::LireLiens(pem);
  donnees.liensLignes = tables::LireLiens(contexte.Chercher(".PEL"));
  LireArbre(contexte, exigences, donnees);
}

}  // namespace quelvar::factor
