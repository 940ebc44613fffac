#include "factor/provenance.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/datfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/noms.h"
#include "core/enquete/parametres.h"
#include "core/enquete/posfile.h"
#include "crosstab/tableau/statistiques.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/fichiers.h"
#include "factor/classement/classement.h"
#include "factor/fichiers/cellules.h"
#include "factor/fichiers/coordonnees.h"
#include "tables/diagonalisation.h"
#include "tables/lecturetable.h"
#include "tables/liens/liaisons.h"

namespace quelvar::factor {

namespace {

// Larger tables take too long to be computed again each time that a plane opens.
constexpr double kCellulesAuPlus = 4'000'000;
constexpr double kInertiesAuPlus = 4 * kCellulesAuPlus;  // of one whose inertias are summed once
constexpr std::size_t kElementsAuPlus = 5000;            // of a tree that is made again
constexpr std::size_t kPairesAuPlus = 20000;             // of one whose first step is looked at
constexpr std::size_t kLignesLiees = 1000;               // of links between rows
constexpr std::chrono::seconds kUnRun{2};  // a tree is written with its coordinates, a later analysis takes longer

// The table as its two files declare it.
struct Table {
  Chemin brt;
  FichierMod mod;
  ParametresMod parametres;
  std::size_t lignes = 0;  // of a square table, its modalities
  std::size_t colonnes = 0;

  bool Trop() const { return static_cast<double>(lignes) * static_cast<double>(colonnes) > kCellulesAuPlus; }
};

std::optional<Table> LaTable(const Contexte& contexte) {
  const std::optional<Chemin> brt = contexte.Chercher(".BRT");
  const std::optional<Chemin> chemin = contexte.Chercher(".MOD");
  if (!brt || !chemin) return std::nullopt;
  Table table{*brt, LireMod(*chemin), {}, 0, 0};
  table.parametres = LireParametres(table.mod.parametres, TexteDe(chemin->filename()));
  table.colonnes = table.mod.modalites.size();
  const double lignes = table.parametres.burt >= 1 ? static_cast<double>(table.colonnes) : table.parametres.lignes;
  if (table.parametres.largeur < 1 || table.colonnes == 0 || lignes < 1 || lignes > kCellulesAuPlus)
    return std::nullopt;
  table.lignes = static_cast<std::size_t>(lignes);
  return table;
}

// What cannot be read as this table is another one.
bool Juger(const std::function<bool()>& convient) {
  try {
    return convient();
  } catch (const Erreur&) {
    return false;
  }
}

// Values of links by their nodes.
class ValeursDesLiens {
 public:
  explicit ValeursDesLiens(std::span<const tables::Lien> liens) {
    for (const tables::Lien& lien : liens) valeurs_.emplace(Cle(lien), lien.valeur);
  }
  bool Contient(const tables::Lien& lien) const {
    constexpr float kArrondi = 0.001F;
    const auto trouve = valeurs_.find(Cle(lien));
    return trouve != valeurs_.end() && std::fabs(trouve->second - lien.valeur) <= kArrondi;
  }
  bool ContientTous(std::span<const tables::Lien> liens) const {
    return std::ranges::all_of(liens, [&](const tables::Lien& lien) { return Contient(lien); });
  }
  bool SontTous(std::span<const tables::Lien> liens) const {
    return liens.size() == valeurs_.size() && ContientTous(liens);
  }

 private:
  static std::uint32_t Cle(const tables::Lien& lien) {
    return std::uint32_t{static_cast<std::uint16_t>(lien.premier)} << 16 | static_cast<std::uint16_t>(lien.second);
  }
  std::unordered_map<std::uint32_t, float> valeurs_;
};

bool LiensSontDuBurt(const Contexte& contexte, const Table& table, std::span<const tables::Lien> liens) {
  std::vector<tables::NomDElement> noms;
  for (const Modalite& modalite : table.mod.modalites) noms.push_back(tables::NommerModalite(modalite));
  const tables::DemiBurt burt = tables::LireDemiBurt(table.brt, table.colonnes, table.parametres.largeur, noms);
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  if (!pos) return true;
  const auto individus = static_cast<double>(tables::IndividusDuBurt(contexte, LirePos(*pos).taille));
  return ValeursDesLiens(tables::LiensDuBurt(burt, individus)).SontTous(liens);
}

// Whether what is asked holds for the observed table, or for its maximum table in one of the orders that can be chosen.
bool PourUneDesTables(const Table& table,
                      const std::function<bool(const crosstab::TableauCompte&, const Matrice& pem)>& convient) {
  const crosstab::TableauCompte observee =
      crosstab::Compter(tables::LireTable(table.brt, table.lignes, table.colonnes, table.parametres.largeur).effectifs);
  if (convient(observee, crosstab::CalculerAttractions(observee).pem)) return true;
  for (const tables::OrdresTries tries : {tables::OrdresTries{true, true}, tables::OrdresTries{false, true},
                                          tables::OrdresTries{true, false}, tables::OrdresTries{false, false}}) {
    tables::Diagonalisee diagonalisee = tables::Diagonalisation(observee, tries);
    diagonalisee.table.effectifs = diagonalisee.maximum;
    if (convient(diagonalisee.table, crosstab::CalculerAttractions(diagonalisee.table).pem)) return true;
  }
  return false;
}

// An inertia and what a line has of it, rounded.
bool MemeInertie(double inertie, double lue) {
  constexpr double kArrondi = 0.5 + 1e-6;
  return std::fabs(inertie - lue) <= kArrondi;
}

// Whether each of these rows is in .FAI by its label with that inertia, per mille.
bool InertiesDesLignesConviennent(const ElementsFactoriels& fai, const ElementsAnecar& lignes,
                                  const std::vector<double>& inerties, double total) {
  std::unordered_multimap<std::string_view, double> lues;
  for (std::size_t i = 0; i < fai.Nombre(); ++i) lues.emplace(Rogner(fai.intitules[i]), fai.inerties[i]);
  for (std::size_t i = 0; i < inerties.size(); ++i) {
    const auto [debut, fin] = lues.equal_range(Rogner(lignes.intitules[i]));
    const double inertie = InertiePourMille(inerties[i], total);
    if (std::none_of(debut, fin, [&](const auto& ligne) { return MemeInertie(inertie, ligne.second); })) return false;
  }
  return true;
}

// The inertias of the columns, per mille, as .FAJ has them, and those of the active rows as .FAI has them when it is
// asked for: those of the table, or of its individuals.
bool InertiesSontDuTableau(const Table& table, const ElementsFactoriels& faj, const ElementsFactoriels* fai,
                           TypeAnalyse type, bool codageLogique) {
  PlanAnecar plan = PlanifierTableau(table.parametres, table.mod, codageLogique);
  if (plan.genre == GenreTableau::BurtEtIndividus) {  // without the individuals
    plan.genre = GenreTableau::BurtCarre;
    plan.lignes = static_cast<std::int64_t>(plan.positions.size());
  }
  if (plan.genre == GenreTableau::Rectangulaire) plan.lignes = plan.lignesActives;
  if (plan.lignes < 1 || plan.lignesActives < 1 || plan.colonnes.noms != faj.noms) return false;
  if (static_cast<double>(plan.lignes) * static_cast<double>(table.colonnes) > kInertiesAuPlus) return true;
  TableauAnecar tableau = LireTableau(table.brt, plan, {});
  if (EffectifTotal(tableau.actives) == 0) return false;
  const AnalyseAnecar analyse = CommencerAnalyse(tableau, type);
  const double total = analyse.ecarts.Inertie(type);
  for (std::size_t j = 0; j < faj.inerties.size(); ++j)
    if (!MemeInertie(InertiePourMille(analyse.ecarts.colonnes.inertie[j], total), faj.inerties[j])) return false;
  return fai == nullptr || InertiesDesLignesConviennent(*fai, tableau.lignes, analyse.ecarts.lignes.inertie, total);
}

bool InertiesSontDuTableau(const Table& table, const ElementsFactoriels& faj, const ElementsFactoriels* fai) {
  for (const bool codageLogique : {false, true})
    for (const TypeAnalyse type : {TypeAnalyse::Afc, TypeAnalyse::Acp})
      if ((!codageLogique || table.parametres.burt == 1) &&
          Juger([&] { return InertiesSontDuTableau(table, faj, fai, type, codageLogique); }))
        return true;
  return false;
}

// The first merging of a tree is that of the two nearest points.
bool PremiereEtapeConvient(const Matrice& points, const EtapeWard& etape) {
  constexpr double kArrondi = 1e-9;
  const auto distance = [&](std::size_t i, std::size_t j) {
    double somme = 0;
    for (std::size_t f = 0; f < points.Lignes(); ++f) somme += std::pow(points(f, j) - points(f, i), 2);
    return somme;
  };
  const double premiere =
      distance(static_cast<std::size_t>(etape.premier) - 1, static_cast<std::size_t>(etape.second) - 1);
  for (std::size_t i = 0; i < points.Colonnes(); ++i)
    for (std::size_t j = i + 1; j < points.Colonnes(); ++j)
      if (distance(i, j) < premiere - kArrondi * (1 + premiere)) return false;
  return true;
}

bool EstAnterieur(const Chemin& fichier, const Chemin& autre) {
  std::error_code sien;
  std::error_code autreCode;
  const auto date = std::filesystem::last_write_time(fichier, sien);
  const auto autreDate = std::filesystem::last_write_time(autre, autreCode);
  return !sien && !autreCode && autreDate - date > kUnRun;
}

bool EtapesConviennent(Matrice points, const std::vector<EtapeWard>& etapes) {
  for (double& x : points.Valeurs()) x /= kMilliemesParUnite;
  const auto memeEtape = [](const EtapeWard& une, const EtapeWard& autre) {
    return une.premier == autre.premier && une.second == autre.second;
  };
  return std::ranges::any_of(std::vector{MethodeWard::Distances, MethodeWard::Carres}, [&](MethodeWard methode) {
    return std::ranges::equal(ClasserPoints(points, methode, [](std::int64_t) {}), etapes, memeEtape);
  });
}

bool ArbreConvient(const Contexte& contexte, const ArbreCah& arbre) {
  const std::size_t elements = arbre.etapes.size() + 1;
  const std::optional<Chemin> fichier = contexte.Chercher(arbre.individus ? ".FI2" : ".FJ2");
  const std::optional<Chemin> faj = contexte.Chercher(".FAJ");
  const std::optional<Chemin> cah = contexte.Chercher(".CAH");
  if (!fichier || !faj || !cah || elements < 2) return true;
  if (elements > kElementsAuPlus && EstAnterieur(*cah, *fichier)) return false;
  if (elements > kPairesAuPlus) return true;
  const std::size_t facteurs = LireFaj(*faj).Facteurs();
  const Matrice points = LirePoints(*fichier, facteurs, elements).coordonnees;
  if (points.Colonnes() != elements) return false;
  if (elements > kElementsAuPlus) return PremiereEtapeConvient(points, arbre.etapes.front());
  return EtapesConviennent(points, arbre.etapes);
}

// The columns of a table of individuals that codes of questions make: which question, which code.
struct ColonneCodee {
  std::size_t colonne = 0;
  std::size_t question = 0;
  int code = 0;
};

std::vector<ColonneCodee> ColonnesCodees(const FichierPos& pos, const std::vector<Modalite>& modalites) {
  std::unordered_map<std::string, std::pair<std::size_t, int>> codes;  // a name that two codes have counts for none
  constexpr std::pair<std::size_t, int> kAmbigu{0, -1};
  for (std::size_t q = 0; q < pos.questions.size(); ++q)
    for (int code = 0; code <= std::min(pos.questions[q].codeMax, kDernierCodeNomme); ++code) {
      const auto [place, neuf] = codes.emplace(NomDeModalite(pos.questions[q].nom, code), std::pair{q, code});
      if (!neuf) place->second = kAmbigu;
    }
  std::vector<ColonneCodee> colonnes;
  for (std::size_t j = 0; j < modalites.size(); ++j)
    if (const auto trouve = codes.find(modalites[j].nom); trouve != codes.end() && trouve->second != kAmbigu)
      colonnes.push_back({j, trouve->second.first, trouve->second.second});
  return colonnes;
}

}  // namespace

bool LiensSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens) {
  const std::optional<Table> table = LaTable(contexte);
  if (!table || table->Trop()) return true;
  return Juger([&] {
    if (table->parametres.burt >= 1) return LiensSontDuBurt(contexte, *table, liens);
    return PourUneDesTables(*table, [&](const crosstab::TableauCompte& compte, const Matrice& pem) {
      return ValeursDesLiens(tables::LiensDesCellules(compte, pem)).SontTous(liens);
    });
  });
}

bool LiensDeLignesSontDuTableau(const Contexte& contexte, std::span<const tables::Lien> liens) {
  const std::optional<Table> table = LaTable(contexte);
  const auto deClique = [](const tables::Lien& lien) { return lien.valeur == tables::kValeurDansUneClique; };
  if (!table || table->Trop() || table->lignes > kLignesLiees || table->parametres.burt >= 1 ||
      std::ranges::all_of(liens, deClique))
    return true;
  return Juger([&] {
    return PourUneDesTables(*table, [&](const crosstab::TableauCompte& compte, const Matrice& pem) {
      // The order of the rows decides which of two is named first.
      std::vector<tables::Lien> attendus = tables::LiensEntreLignes(compte, pem);
      for (std::size_t i = 0, n = attendus.size(); i < n; ++i)
        attendus.push_back({attendus[i].second, attendus[i].premier, attendus[i].valeur});
      return ValeursDesLiens(attendus).ContientTous(liens);
    });
  });
}

bool CoordonneesSontDuTableau(const Contexte& contexte) {
  const std::optional<Table> table = LaTable(contexte);
  if (!table || table->Trop()) return true;
  return InertiesSontDuTableau(*table, LireFaj(contexte.Exiger(".FAJ")), nullptr);
}

bool CoordonneesDesLignesSontDuTableau(const Contexte& contexte) {
  const std::optional<Table> table = LaTable(contexte);
  if (!table || table->Trop()) return true;
  const ElementsFactoriels faj = LireFaj(contexte.Exiger(".FAJ"));
  const ElementsFactoriels fai = LireFai(contexte.Exiger(".FAI"), faj.Facteurs());
  return InertiesSontDuTableau(*table, faj, &fai);
}

bool ArbreEstDesCoordonnees(const Contexte& contexte, const ArbreCah& arbre) {
  try {
    return ArbreConvient(contexte, arbre);
  } catch (const Erreur&) {  // coordinates that can't be read say nothing of the tree
    return true;
  }
}

bool CoordonneesSontDesModalites(const Contexte& contexte) {
  const std::optional<Chemin> fj2 = contexte.Chercher(".FJ2");
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  if (!fj2 || !mod) return true;
  const std::vector<std::string> noms = LirePoints(*fj2, 0).noms;
  return std::ranges::equal(noms, LireMod(*mod).modalites, {}, {}, &Modalite::nom);
}

std::optional<IndividuDiscordant> ChercherIndividuDiscordant(const Contexte& contexte) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  const std::optional<Chemin> cdg = contexte.Chercher(".CDG");
  const std::optional<Table> table = LaTable(contexte);
  if (!donnees || !chemin || !table || (!cdg && table->parametres.burt != 1)) return std::nullopt;
  const FichierPos pos = LirePos(*chemin);
  const std::vector<ColonneCodee> colonnes = ColonnesCodees(pos, table->mod.modalites);
  const std::vector<Champ> champs = ChampsDe(pos);
  const auto largeur = cdg ? std::size_t{1} : static_cast<std::size_t>(table->parametres.largeur);
  LecteurLignes codage(cdg ? *cdg : table->brt);
  std::string_view ligne;
  for (std::size_t i = 0; !cdg && i < table->colonnes; ++i) codage.Lire(ligne);
  LecteurIndividus lecteur(*donnees, LongueurUtile(champs));
  const char* individu = nullptr;
  for (std::int64_t numero = 1; codage.Lire(ligne) && (individu = lecteur.Lire()) != nullptr; ++numero)
    for (const ColonneCodee& colonne : colonnes) {
      const int code = LireChampInterieur(individu, champs[colonne.question]);
      if (code < 0 || code > pos.questions[colonne.question].codeMax) continue;
      if ((ValeurDe(CelluleDeLigne(ligne, colonne.colonne, largeur)) != 0) != (code == colonne.code))
        return IndividuDiscordant{numero, pos.questions[colonne.question].nom, contexte.Nom(cdg ? ".CDG" : ".BRT")};
    }
  return std::nullopt;
}

}  // namespace quelvar::factor
