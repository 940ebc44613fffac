// The preparation of the factor graph: its files as a plane, and the report on them.
#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/texte/nombres.h"
#include "factor/coordonnees.h"
#include "factor/plan/concordance.h"
#include "factor/plan/graphe.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kLongueurIntitule = 25;
// Columns of a line of .FAJ or .FAI: name, inertia, then a coordinate and a CPF for each factor.
constexpr std::size_t kDebutDesFacteurs = 9;
constexpr std::size_t kLargeurCoordonnee = 7;
constexpr std::size_t kLargeurCpf = 5;
constexpr std::size_t kLargeurFacteur = kLargeurCoordonnee + kLargeurCpf;
constexpr std::size_t kFacteursMaximum = 999;

// One line of .FAJ or .FAI.
struct LigneFacteurs {
  std::string nom;
  std::vector<double> coordonnees;
  std::vector<double> cpf;
  std::string intitule;
};

std::string IntituleCourt(std::string_view texte) {
  return std::string(RognerDroite(Rogner(texte).substr(0, kLongueurIntitule)));
}

LigneFacteurs LireLigneFacteurs(std::string_view texte, std::size_t facteurs) {
  LigneFacteurs ligne;
  ligne.nom = CadreGauche(texte.substr(0, 4), 4);
  for (std::size_t f = 0; f < facteurs; ++f) {
    const std::size_t colonne = kDebutDesFacteurs + f * kLargeurFacteur + 1;
    ligne.coordonnees.push_back(Simple(ValeurDe(Milieu(texte, colonne, kLargeurCoordonnee))));
    ligne.cpf.push_back(Entier16(ValeurDe(Milieu(texte, colonne + kLargeurCoordonnee, kLargeurCpf))));
  }
  ligne.intitule = IntituleCourt(Milieu(texte, kDebutDesFacteurs + facteurs * kLargeurFacteur + 1));
  return ligne;
}

std::vector<std::string> LignesPleines(const Chemin& chemin) {
  std::vector<std::string> lignes;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (!Rogner(ligne).empty()) lignes.emplace_back(ligne);
  return lignes;
}

// Element of each line of the .FAJ, by its name among those of the .MOD; of modalities with one name each in turn.
// Nothing when a name is not found.
std::optional<std::vector<std::size_t>> PlacesDesNoms(const std::vector<std::string>& lignes,
                                                      const std::vector<PointPlan>& points) {
  std::unordered_map<std::string, std::vector<std::size_t>> rangs;
  for (std::size_t i = points.size(); i-- > 0;) rangs[points[i].nom].push_back(i);
  std::vector<std::size_t> places;
  for (const std::string& ligne : lignes) {
    const auto trouve = rangs.find(CadreGauche(std::string_view(ligne).substr(0, 4), 4));
    if (trouve == rangs.end()) return std::nullopt;
    places.push_back(trouve->second.back());
    if (trouve->second.size() > 1) trouve->second.pop_back();
  }
  return places;
}

[[noreturn]] void Arreter(Rapport& rapport, const Contexte& contexte, std::initializer_list<Texte> lignes) {
  for (const Texte& ligne : lignes) rapport.Ligne(ligne);
  contexte.Ecran().biper();
  throw Erreur(kArretAnnonce);
}

void ExigerFichiersDuGraphe(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences) {
  struct Fichier {
    std::string_view extension;
    std::string_view sujet;
    bool exige;
  };
  bool manque = false;
  for (const Fichier& fichier :
       {Fichier{".MOD", "modalites", true}, Fichier{".PEM", "PEM", exigences.liens},
        Fichier{".CAH", "CAH", exigences.cah}, Fichier{".FAJ", "coordonnees factorielles", true}}) {
    if (!fichier.exige || contexte.Chercher(fichier.extension)) continue;
    rapport.Ligne({"*** Le fichier de", std::string_view(fichier.extension == ".CAH" ? " " : "s "), fichier.sujet, " ",
                   contexte.Nom(fichier.extension), " n'existe pas"});
    manque = true;
  }
  if (manque) Arreter(rapport, contexte, {"", "*** Arret du programme du a l'absence d'un ou de plusieurs fichiers"});
}

void ImprimerNoms(Rapport& rapport, const Contexte& contexte) {
  EcrireBandeau(rapport, "Graphique factoriel");
  rapport.Ligne({"Le nom du fichier des modalites est ", contexte.Nom(".MOD")});
  rapport.Ligne({"Le nom du fichier de PEM est  ", contexte.Nom(".PEM")});
  rapport.Ligne({"Le nom du fichier de CAH est  ", contexte.Nom(".CAH")});
  rapport.Ligne({"Le nom du fichier des coordonnes  est  ", contexte.Nom(".FAJ")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".PRT")});
}

// The columns, without their places; a .MOD whose list is not that of the table stops the run.
void DeclarerColonnes(Rapport& rapport, const Contexte& contexte, const FichierMod& mod,
                      const ParametresMod& parametres, DonneesPlan& donnees) {
  const double declarees = parametres.burt > 1 ? parametres.burt : parametres.colonnes;
  if (parametres.burt >= 1 && declarees != static_cast<double>(mod.modalites.size()))
    Arreter(rapport, contexte,
            {"*** Arret du programme, incoherence entre le nombre de",
             Joindre({"  modalites declare et observe dans ", contexte.Nom(".MOD")})});
  donnees.titre = mod.titre;
  donnees.burt = parametres.burt;
  donnees.colonnes = mod.modalites.size();
  for (const Modalite& modalite : mod.modalites)
    donnees.points.push_back({modalite.nom, IntituleCourt(modalite.intitule), modalite.supplementaire, false});
}

// Rows of a plain table, or the individuals: lines that stand last in the file.
void DeclarerLignes(const ParametresMod& parametres, std::vector<std::string>& lignes, DonneesPlan& donnees) {
  const auto sup = static_cast<std::size_t>(std::clamp(parametres.lignesSup, 0.0, 1e9));
  const bool active = donnees.burt == 1 && lignes.size() <= sup;  // the individuals were the table
  if (donnees.burt == 1 && lignes.size() > sup)
    lignes.erase(lignes.begin(), lignes.end() - static_cast<std::ptrdiff_t>(sup));
  for (std::size_t i = 0; i < lignes.size(); ++i)
    donnees.points.push_back({{}, {}, !active && i + sup >= lignes.size(), true});
}

void PoserLigne(DonneesPlan& donnees, std::size_t element, const LigneFacteurs& ligne) {
  donnees.points[element].place = true;
  for (std::size_t f = 0; f < donnees.facteurs; ++f) {
    donnees.coordonnees(f, element) = ligne.coordonnees[f];
    donnees.cpf(f, element) = ligne.cpf[f];
  }
}

void PlacerElements(Rapport& rapport, const Contexte& contexte, const ParametresMod& parametres, DonneesPlan& donnees) {
  const std::vector<std::string> faj = LignesPleines(contexte.Exiger(".FAJ"));
  if (faj.empty()) throw Erreur(kFinDeFichierDepassee);
  if (faj.front().size() < kDebutDesFacteurs + kLargeurFacteur) throw Erreur(kArgumentIncorrect);
  donnees.facteurs = std::min((faj.front().size() - kDebutDesFacteurs) / kLargeurFacteur, kFacteursMaximum);
  const auto places = PlacesDesNoms(faj, donnees.points);
  if (!places)
    Arreter(rapport, contexte,
            {"***ERREUR : un nom de *.FAJ n'est pas retrouve identique",
             "   dans *.MOD - Il y a vraisemblablement eu une modification",
             "   de l'un ou l'autre fichier - Retablissez l'identite des noms",
             "   a l'intérieur les deux fichiers et relancez le programme"_w});
  std::vector<std::string> fai;
  if (const std::optional<Chemin> chemin = contexte.Chercher(".FAI"); chemin && donnees.burt <= 1)
    fai = LignesPleines(*chemin);
  DeclarerLignes(parametres, fai, donnees);
  donnees.coordonnees = Matrice(donnees.facteurs, donnees.points.size());
  donnees.cpf = Matrice(donnees.facteurs, donnees.points.size());
  for (std::size_t i = 0; i < faj.size(); ++i)
    PoserLigne(donnees, (*places)[i], LireLigneFacteurs(faj[i], donnees.facteurs));
  for (std::size_t i = 0; i < fai.size(); ++i) {
    const LigneFacteurs ligne = LireLigneFacteurs(fai[i], donnees.facteurs);
    PoserLigne(donnees, donnees.colonnes + i, ligne);
    donnees.points[donnees.colonnes + i].nom = ligne.nom;
    donnees.points[donnees.colonnes + i].intitule = ligne.intitule;
  }
}

// The power of ten between the coordinates of the plane and those with four decimals; nothing when they are of two
// analyses.
std::optional<double> EchelleCommune(const Matrice& entieres, const Matrice& fines, std::size_t debut) {
  constexpr double kLesPlusFines = 1e4;
  for (double echelle = 1; echelle <= kLesPlusFines; echelle *= 10) {
    const double ecart = 0.5 + 0.0001 * echelle;
    bool communes = true;
    for (std::size_t f = 0; f < fines.Lignes(); ++f)
      for (std::size_t i = 0; i < fines.Colonnes(); ++i)
        communes = communes && std::fabs(entieres(f, debut + i) - echelle * fines(f, i)) <= ecart;
    if (communes) return echelle;
  }
  return std::nullopt;
}

// Small coordinates are drawn from the files with four decimals.
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

// Shares of the factors, from the later of the two reports; none unless it is on that many factors.
std::vector<double> LireParts(const Contexte& contexte, std::size_t facteurs) {
  constexpr std::string_view annonce = "Pourcentage du total =";
  const std::optional<Chemin> rapport = contexte.Chercher(DerniereAnalyse(contexte));
  std::vector<double> parts;
  if (!rapport) return parts;
  LecteurLignes lecteur(*rapport);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (ligne.starts_with(annonce)) parts.push_back(ValeurDe(ligne.substr(annonce.size())));
  if (parts.size() != facteurs) parts.clear();
  return parts;
}

void CompterModalites(Rapport& rapport, const DonneesPlan& donnees) {
  const auto sup = static_cast<std::size_t>(
      std::count_if(donnees.points.begin(), donnees.points.begin() + static_cast<std::ptrdiff_t>(donnees.colonnes),
                    [](const PointPlan& point) { return point.supplementaire; }));
  rapport.Ligne({"Il y a ", NombreNu(donnees.colonnes), " modalites en tout"});
  rapport.Ligne({"Il y a ", NombreNu(donnees.colonnes - sup), " modalites actives"});
  rapport.Ligne({"Il y a ", NombreNu(sup), " modalites supplementaires"});
}

// A tree that nobody has asked for does not stop the plane.
std::optional<ArbreCah> LireArbre(const Contexte& contexte, const ExigencesGraphe& exigences) {
  const std::optional<Chemin> cah = contexte.Chercher(".CAH");
  if (!cah) return std::nullopt;
  try {
    return LireCah(*cah);
  } catch (const Erreur&) {
    if (exigences.cah) throw;
    return std::nullopt;
  }
}

void Preparer(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  ExigerFichiersDuGraphe(rapport, contexte, exigences);
  ImprimerNoms(rapport, contexte);
  const FichierMod mod = LireMod(contexte.Exiger(".MOD"));
  const ParametresMod parametres = LireParametres(mod.parametres, &rapport);
  if (parametres.burt == 1 && !contexte.Chercher(".FAI"))
    Arreter(rapport, contexte, {"*** Arret du programme, fichier *.FAI absent"});
  DeclarerColonnes(rapport, contexte, mod, parametres, donnees);
  PlacerElements(rapport, contexte, parametres, donnees);
  AffinerCoordonnees(contexte, donnees);
  CompterModalites(rapport, donnees);
  donnees.parts = LireParts(contexte, donnees.facteurs);
  const std::optional<Chemin> pem = contexte.Chercher(".PEM");
  donnees.liensPresents = pem.has_value();
  donnees.liens = tables::LireLiens(pem);
  donnees.liensLignes = tables::LireLiens(contexte.Chercher(".PEL"));
  donnees.cah = LireArbre(contexte, exigences);
  EcarterEtrangers(rapport, contexte, exigences, donnees);
}

}  // namespace

std::optional<DonneesPlan> PrepGraphe(const Contexte& contexte, const ExigencesGraphe& exigences) {
  DonneesPlan donnees;
  if (!PreparerProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{},
                         [&](Rapport& rapport) { Preparer(rapport, contexte, exigences, donnees); }))
    return std::nullopt;
  if (!donnees.remarques.empty()) {
    std::string texte;
    for (const std::string& remarque : donnees.remarques) texte += (texte.empty() ? "" : "\r\n") + remarque;
    contexte.Ecran().demander(texte, Boutons::Ok);
  }
  return donnees;
}

void QuitterGraphe(const Contexte& contexte) { MontrerRapport(contexte, contexte.Nom(".PRT")); }

}  // namespace quelvar::factor
