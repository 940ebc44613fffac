#include "utilities/inversion.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/trgfile.h"
#include "core/fichiers/jeu.h"
#include "core/panne/annonce.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "utilities/edition.h"
#include "utilities/entrees/exigences.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/entrees/tableau.h"

namespace quelvar::utilities {

namespace {

// The table in memory: what becomes a column is read as a row.
struct TableauEntier {
  std::vector<std::string> noms;       // of the rows
  std::vector<std::string> intitules;  // of the rows
  std::vector<std::string> cellules;   // row by row, as they are printed
  CellulesSansNombre reserves;
};

// A row becomes a column, by its name: one without a name would end the list of the new columns.
void ExigerNom(const TableauDuGenerique& tableau, const LigneDeTableau& ligne) {
  if (!FinitLesModalites(ligne.nom)) return;
  throw Erreur(kIncompatibiliteType,
               Joindre({kArretDuProgrammeSansAccents, TexteDe(tableau.brt.filename()), ", ligne ", Nombre(ligne.rang),
                        ", le nom \"", ligne.nom,
                        "\" n'est pas possible : devenu un nom de colonne, il finirait leur liste. "
                        "Nommez la ligne sur ses 4 premiers caractères"_w}));
}

// A number that would lose digits in its width stays as it was typed.
std::string TexteDeCellule(std::string_view cellule) {
  const std::string nombre = Nombre(ValeurDe(cellule));
  return nombre.size() <= cellule.size() || Rogner(cellule).empty() ? nombre : std::string(Rogner(cellule));
}

TableauEntier LireEntier(const TableauDuGenerique& tableau) {
  TableauEntier entier;
  ParcourirTableau(tableau, tableau.lignes, [&](const LigneDeTableau& ligne) {
    ExigerNom(tableau, ligne);
    entier.reserves.Voir(ligne);
    entier.noms.push_back(ligne.nom);
    entier.intitules.push_back(ligne.intitule);
    for (const std::string_view cellule : ligne.cellules) entier.cellules.push_back(TexteDeCellule(cellule));
  });
  return entier;
}

// Names that several rows bear, each once.
std::vector<std::string> NomsRepetes(std::vector<std::string> noms) {
  std::sort(noms.begin(), noms.end());
  std::vector<std::string> repetes;
  for (std::size_t i = 1; i < noms.size(); ++i)
    if (noms[i] == noms[i - 1] && (i == 1 || noms[i] != noms[i - 2])) repetes.emplace_back(Rogner(noms[i]));
  return repetes;
}

ReservesDeLInversion ReservesDe(const TableauDuGenerique& tableau, const TableauEntier& entier) {
  return {entier.reserves.Remarques(), NomsRepetes(entier.noms), tableau.lignesDuFichier - tableau.lignes};
}

void EcrireMod(Ecrivain& mod, const TableauDuGenerique& tableau, const TableauEntier& entier,
               const std::string& nouveau) {
  mod.Ligne(nouveau);
  mod.Ligne(LigneDeParametres(
      {{"IMAX=", tableau.colonnes.size()}, {"JMAX=", entier.noms.size()}, {"FMT=", tableau.parametres.largeur}}));
  for (std::size_t i = 0; i < entier.noms.size(); ++i)
    mod.Ligne(LigneModalite(entier.noms[i], false, entier.intitules[i]));
}

void EcrireBrt(Ecrivain& brt, const TableauDuGenerique& tableau, const TableauEntier& entier) {
  const std::size_t colonnes = tableau.colonnes.size();
  for (std::size_t j = 0; j < colonnes; ++j) {
    brt.Ecrire(tableau.colonnes[j].nom);
    for (std::size_t i = 0; i < entier.noms.size(); ++i)
      brt.Ecrire(CadreDroit(entier.cellules[i * colonnes + j], tableau.parametres.largeur));
    brt.Ligne(tableau.colonnes[j].intitule);
  }
}

// The three percentages of a row of the inverted table, of the sum of its first three cells.
PartsTrg Pourcentages(const Chemin& brt, const TableauEntier& entier, std::size_t colonnes, std::size_t j) {
  PartsTrg parts = {};
  for (std::size_t i = 0; i < std::min(kSommetsTrg, entier.noms.size()); ++i)
    parts[i] = ValeurDe(entier.cellules[i * colonnes + j]);
  if (*std::min_element(parts.begin(), parts.end()) < 0)
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgrammeSansAccents, TexteDe(brt.filename()), ", colonne ", Nombre(j + 1),
                          ", une cellule négative n'a pas de pourcentage : corrigez le tableau"_w}));
  return PourcentagesTrg(parts);
}

// A point of the triangular graph for each column of the table.
struct PointDeTriangle {
  std::string nom;
  PartsTrg parts = {};
  std::string intitule;
};

std::vector<PointDeTriangle> PointsDe(const TableauDuGenerique& tableau, const TableauEntier& entier) {
  std::vector<PointDeTriangle> points;
  for (std::size_t j = 0; j < tableau.colonnes.size(); ++j) {
    const ColonneDeTableau& colonne = tableau.colonnes[j];
    const PartsTrg parts = Pourcentages(tableau.brt, entier, tableau.colonnes.size(), j);
    if (colonne.intitule.find(kFinDeListe) != std::string::npos)
      throw Erreur(kIncompatibiliteType,
                   Joindre({kArretDuProgrammeSansAccents, "l'intitulé de la colonne "_w, colonne.nom,
                            " contient **, qui finirait la liste des points du graphique : changez-le"}));
    points.push_back({colonne.nom, parts, Rogner(colonne.intitule).empty() ? colonne.nom : colonne.intitule});
  }
  return points;
}

void EcrireTrg(Ecrivain& trg, const TableauEntier& entier, const std::vector<PointDeTriangle>& points,
               const std::string& nouveau) {
  TeteTrg tete{nouveau, {}};
  for (std::size_t i = 0; i < std::min(kSommetsTrg, entier.noms.size()); ++i) tete.sommets[i] = entier.noms[i];
  EcrireTeteTrg(trg, tete);
  for (const PointDeTriangle& point : points) trg.Ligne(LigneDePointTrg(point.nom, point.parts, point.intitule));
}

void Enregistrer(const Contexte& contexte, const TableauDuGenerique& tableau, const TableauEntier& entier,
                 const std::string& nouveau, bool enTriangle) {
  JeuDeFichiers sorties(contexte.repertoire, nouveau);
  if (enTriangle) {
    EcrireTrg(sorties.Ouvrir(nouveau + ".TRG", Nature::Refaisable), entier, PointsDe(tableau, entier), nouveau);
  } else {
    EcrireBrt(sorties.Ouvrir(nouveau + ".BRT", Nature::Refaisable), tableau, entier);
    EcrireMod(sorties.Ouvrir(nouveau + ".MOD", Nature::Unique), tableau, entier, nouveau);
  }
  EcrireInitialisation(sorties, nouveau, contexte.niveau);
  sorties.Valider();
}

// What the new table does not keep.
void PrevenirDesPertes(const Contexte& contexte, const TableauDuGenerique& tableau, const TableauEntier& entier,
                       bool enTriangle) {
  if (enTriangle) {
    if (entier.noms.size() > kSommetsTrg)
      Prevenir(contexte,
               Joindre({"Le graphique triangulaire n'a que les 3 premières des "_w, Nombre(entier.noms.size()),
                        " lignes du tableau : leurs pourcentages sont ceux de ces 3 lignes"}));
    return;
  }
  const auto colonnes = std::count_if(tableau.colonnes.begin(), tableau.colonnes.end(),
                                      [](const ColonneDeTableau& colonne) { return colonne.supplementaire; });
  const std::int64_t lignes = Entier64(std::max(tableau.parametres.lignesSup, 0.0));
  if (colonnes > 0 || lignes > 0)
    Prevenir(contexte,
             Joindre({"Éléments supplémentaires que l'inversion rend actifs : "_w,
                      Nombre(static_cast<std::int64_t>(colonnes)), " colonnes devenues lignes, ", Nombre(lignes),
                      " lignes devenues colonnes. Rétablissez leur statut avant d'analyser"_w}));
}

void InverserTableau(Rapport& rapport, const Contexte& contexte, const OptionsInversion& options,
                     const std::string& nouveau) {
  ExigerTableau(rapport, contexte);
  ImprimerBandeau(rapport, "  Inversion lignes/colonnes d'un tableau de Burt");
  const TableauDuGenerique tableau = LireTableau(contexte);
  ExigerFormat(rapport, contexte, tableau);
  // A text for each cell in memory, of this size; the inverted table takes as much as the table.
  const auto cellules =
      static_cast<std::uint64_t>(std::clamp<std::int64_t>(tableau.lignes, 0, tableau.lignesDuFichier)) *
      tableau.colonnes.size();
  constexpr std::uint64_t kTexteDeCellule = 40;
  ExigerPlace(contexte, rapport, {kTexteDeCellule * cellules, LongueurFichier(tableau.brt)});
  const TableauEntier entier = LireEntier(tableau);
  ImprimerRemplacementDuGenerique(rapport, contexte, nouveau);
  Enregistrer(contexte, tableau, entier, nouveau, options.trg);
  ImprimerReservesDeLInversion(rapport, ReservesDe(tableau, entier));
  PrevenirDesPertes(contexte, tableau, entier, options.trg);
  ImprimerFinDeLInversion(rapport, contexte, nouveau);
}

}  // namespace

Fin Inverser(const Contexte& contexte, const OptionsInversion& options) {
  const std::optional<std::string> nouveau = DemanderGeneriqueLibre(contexte, options.remplacer);
  if (!nouveau) return Fin::Arret;
  const Fin fin = ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(),
                                    [&](Rapport& rapport) { InverserTableau(rapport, contexte, options, *nouveau); });
  if (fin == Fin::Normale && options.nouveau != nullptr) *options.nouveau = *nouveau;
  return fin;
}

}  // namespace quelvar::utilities
