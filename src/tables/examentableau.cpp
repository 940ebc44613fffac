#include "tables/examentableau.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/programme/place.h"
#include "tables/lecturetable.h"

namespace quelvar::tables {

namespace {

constexpr std::size_t kTailleEditee = 30;  // rows and columns beyond which the tables are printed on demand only
constexpr std::size_t kTitreDeLigne = kIntituleDeModaliteAuPlus;  // what a profile shows of a label
constexpr std::size_t kTitreDeColonne = 10;

struct NomsDesElements {
  const std::vector<NomDElement>& colonnes;
  std::vector<NomDElement> lignes;
};

OrdresTries OrdresDemandes(std::int32_t parametreDe) {
  return {.lignes = parametreDe != 1 && parametreDe != 3, .colonnes = parametreDe != 2 && parametreDe != 3};
}

std::vector<std::string_view> IntitulesDes(const std::vector<NomDElement>& noms, const std::vector<std::size_t>& rangs,
                                           ModeIntitules mode) {
  std::vector<std::string_view> intitules;
  for (const std::size_t rang : rangs) intitules.push_back(IntituleEdite(noms[rang], mode));
  return intitules;
}

Presentation PresentationDe(const TravailEcapem& t, const NomsDesElements& noms, const crosstab::TableauCompte& table) {
  return {IntitulesDes(noms.lignes, table.rangsLignes, t.options.intitules),
          IntitulesDes(noms.colonnes, table.rangsColonnes, t.options.intitules), t.parametres.largeur};
}

// Labels by node: the columns, then the rows, in the order of the files.
std::vector<std::string_view> IntitulesDesNoeuds(const NomsDesElements& noms, ModeIntitules mode) {
  std::vector<std::string_view> intitules;
  for (const auto* liste : {&noms.colonnes, &noms.lignes})
    for (const NomDElement& nom : *liste) intitules.push_back(IntituleEdite(nom, mode));
  return intitules;
}

std::vector<Lien> LiensGardesEntreLignes(const TravailEcapem& t, const crosstab::TableauCompte& table,
                                         const Matrice& pem) {
  std::vector<Lien> liens = LiensEntreLignes(table, pem);
  TrierLiens(liens, ModeTri::NBR, t.contexte.Ecran());
  GarderMeilleurs(liens, t.options.choixLiens);
  return liens;
}

// Rows and then columns, in the order of the table, from the links sorted for each in turn.
void ImprimerProfils(const TravailEcapem& t, const NomsDesElements& noms, const crosstab::TableauCompte& table,
                     std::vector<Lien>& liens) {
  const std::vector<std::string_view> intitules = IntitulesDesNoeuds(noms, t.options.intitules);
  ImprimeurDeProfils imprimeur(t.rapport, intitules, t.LargeurDesProfils());
  const auto serie = [&](Texte titre, LiensParNoeud::Bout bout, const std::vector<NomDElement>& elements,
                         const std::vector<std::size_t>& rangs, std::size_t premierNoeud, std::size_t largeurTitre) {
    t.rapport.Ligne();
    t.rapport.Ligne(titre);
    t.rapport.Ligne();
    const LiensParNoeud parNoeud(liens, bout, intitules.size());
    for (const std::size_t rang : rangs) {
      t.rapport.Ligne(elements[rang].intitule.substr(0, largeurTitre));
      imprimeur.Imprimer(parNoeud.Profil(premierNoeud + rang));
    }
  };
  TrierLiens(liens, ModeTri::LIGN, t.contexte.Ecran());
  serie("Impression des profils des PEM des lignes", LiensParNoeud::Bout::Premier, noms.lignes, table.rangsLignes,
        noms.colonnes.size() + 1, kTitreDeLigne);
  TrierLiens(liens, ModeTri::COL, t.contexte.Ecran());
  serie("Impression des profils des PEM des colonnes", LiensParNoeud::Bout::Second, noms.colonnes, table.rangsColonnes,
        1, kTitreDeColonne);
}

// Links of the cells, their count and their profiles; the files then hold the links by value.
void TraiterLiens(const TravailEcapem& t, const NomsDesElements& noms, const crosstab::TableauCompte& table,
                  const Matrice& pem, LiensAEnregistrer& trouves) {
  std::vector<Lien> liens = LiensDesCellules(table, pem);
  ImprimerNombreDeLiens(t.rapport, liens.size(), t.options.seuil, OrigineDesLiens::Tableau);
  if (!liens.empty()) ImprimerProfils(t, noms, table, liens);
  TrierLiens(liens, ModeTri::NBR, t.contexte.Ecran());
  std::optional<std::vector<Lien>> entreLignes;
  if (t.options.liensLignes) entreLignes = LiensGardesEntreLignes(t, table, pem);
  trouves = {std::move(liens), std::move(entreLignes)};
}

// The analysis of one table, the observed one or its maximum table.
Diagonalisee Analyser(const TravailEcapem& t, const NomsDesElements& noms, const crosstab::TableauCompte& table,
                      OrdresTries tries, LiensAEnregistrer& trouves) {
  Diagonalisee diagonalisee = Diagonalisation(table, tries);
  ImprimerFacteur(t.rapport, PresentationDe(t, noms, table), diagonalisee.facteur);
  const crosstab::AttractionsDuTableau attractions = crosstab::CalculerAttractions(diagonalisee.table);
  const Matrice& effectifs = table.effectifs;
  if (t.options.tousTableaux || std::max(effectifs.Lignes(), effectifs.Colonnes()) <= kTailleEditee)
    ImprimerTableaux(t.rapport, PresentationDe(t, noms, diagonalisee.table),
                     {diagonalisee.table, diagonalisee.maximum, crosstab::Detailler(diagonalisee.table), attractions},
                     tries);
  if (t.options.seuil == SeuilAnnonce::Gendat) trouves = {};
  else TraiterLiens(t, noms, diagonalisee.table, attractions.pem, trouves);
  return diagonalisee;
}

}  // namespace

void ExaminerTableau(const TravailEcapem& t) {
  const std::size_t lignes = NombreDe(t.parametres.lignes);
  t.rapport.Ligne({"Il y a ", NombreNu(t.modalites.size()), " modalites en colonne"});
  t.rapport.Ligne({"Il y a ", NombreNu(lignes), " modalites en ligne"});
  // Bytes a cell takes at the most: table, theoretical counts, PEM, links and their sorts; report and link file.
  // A count of rows that the file cannot hold is told by its reader.
  const std::uint64_t cellules = std::min<std::uint64_t>(lignes, LongueurFichier(t.brt)) * t.modalites.size();
  constexpr std::uint64_t kMemoireParCellule = 66;
  constexpr std::uint64_t kDisqueParCellule = 30;
  ExigerPlace(t.contexte, t.rapport, {kMemoireParCellule * cellules, kDisqueParCellule * cellules});
  TableLue lue = LireTable(t.brt, lignes, t.modalites.size(), t.parametres.largeur);
  lue.constats.Dire(t.rapport, t.contexte.Ecran());
  const NomsDesElements noms{t.modalites, std::move(lue.lignes)};
  const OrdresTries tries = OrdresDemandes(t.parametres.de);

  LiensAEnregistrer trouves;
  const Diagonalisee observe = Analyser(t, noms, crosstab::Compter(std::move(lue.effectifs)), tries, trouves);
  if (t.options.seuil == SeuilAnnonce::Gendat) return EnregistrerLiens(t.contexte, trouves.pem, trouves.pel);
  const auto sommer = [&](const Matrice& table) {
    return crosstab::SommerEcarts(table, observe.table.marges, crosstab::Echelle::Effectifs);
  };
  const crosstab::SommesDEcarts sommes = sommer(observe.table.effectifs);
  if (t.options.diagonalisation) {
    Analyser(t, noms, crosstab::AvecCellules(observe.table, observe.maximum), tries, trouves);
    ImprimerPartDuFacteur(t.rapport,
                          CalculerPart(observe.facteur.valeurPropre, sommes.khi2, observe.table.marges.total),
                          t.parametres.largeur);
  }
  EnregistrerLiens(t.contexte, trouves.pem, trouves.pel);
  ImprimerIndices(t.rapport, CalculerIndices(observe.table, sommes, sommer(observe.maximum)), tries,
                  t.parametres.largeur);
  ImprimerGamma(t.rapport, "Tableau d'origine", CalculerGamma(observe.table));
  ImprimerOrdre(t.rapport, tries);
}

}  // namespace quelvar::tables
