#include "capture/apercu/sorties/remarques.h"

#include <algorithm>

#include "capture/apercu/choix/refus.h"
#include "capture/apercu/choix/textes.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/colonnes/compterendu.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/attention.h"
#include "core/texte/listes.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLignesCitees = 20;  // irregular rows told by their line

std::string LignesIrregulieres(const FaitsDeTable& faits, bool longues) {
  std::vector<std::string> citees;
  for (const LigneIrreguliere& ligne : faits.irregulieres)
    if ((ligne.cellules > faits.colonnes.size()) == longues && citees.size() < kLignesCitees)
      citees.push_back(Nombre(ligne.ligne));
  std::string lignes = Enumerer(citees);
  if ((longues ? faits.longues : faits.courtes) > static_cast<std::int64_t>(kLignesCitees)) lignes += "...";
  return lignes;
}

// Every row has lost as many cells: a title that is cut by the separator has pushed the others to the right.
bool ColonnesDecalees(const FaitsDeTable& faits) {
  if (faits.cellulesPartout == 0 || faits.cellulesPartout >= faits.colonnes.size()) return false;
  return std::any_of(faits.colonnes.begin() + static_cast<std::ptrdiff_t>(faits.cellulesPartout), faits.colonnes.end(),
                     [](const FaitsDeColonne& colonne) { return !colonne.intitule.empty(); });
}

// How numbers were read that could be read otherwise.
void RemarquerNombres(const FaitsDeColonne& colonne, std::size_t j, std::vector<std::string>& remarques) {
  const std::string nom = NumeroEtNom(j, colonne);
  const auto lu = [&] {
    const std::optional<NombreDeCellule> nombre = LireNombre(colonne.exemple, colonne.signes);
    return nombre ? nombre->Normalise() : std::string();
  };
  if (colonne.enMilliers > 0)
    remarques.push_back(Joindre({kAttention, "colonne", nom, " : \"", colonne.exemple, "\" est lu ", lu(), ", ",
                                 colonne.signes.milliers == ',' ? "la virgule"_w : "le point"_w,
                                 " y sépare les milliers ("_w, Nombre(colonne.enMilliers), " cellule(s))"}));
  if (colonne.douteuses > 0)
    remarques.push_back(Joindre({kAttention, "colonne", nom, " : \"", colonne.exemple, "\" est lu ", lu(), " (",
                                 Nombre(colonne.douteuses), " cellule(s)) ; si ce sont des milliers, donnez decimale=",
                                 NomDecimale(colonne.signes.decimale == ',' ? '.' : ',')}));
  if (colonne.enEntiers > 0)
    remarques.push_back(Joindre({kAttention, "colonne", nom, " : ", Nombre(colonne.enEntiers),
                                 " nombre(s) dont les décimales sont des zéros, lu(s) comme des codes"_w}));
  if (colonne.habillees > 0)
    remarques.push_back(
        Joindre({kAttention, "colonne", nom, " : ", colonne.exempleHabille, " est lu ",
                 RognerCellule(colonne.exempleHabille), " (", Nombre(colonne.habillees), " cellule(s))"}));
}

// Empty and short rows, foreign characters.
void RemarquerRangees(const FaitsDeTable& faits, std::vector<std::string>& remarques) {
  if (faits.lignesVides > 0) remarques.push_back(RemarqueLignesVides(faits.lignesVides));
  if (faits.courtes > 0 && !ColonnesDecalees(faits))
    remarques.push_back(Joindre({kAttention, Nombre(faits.courtes),
                                 " ligne(s) plus courte(s) que les intitulés, complétée(s) par des vides : ligne "_w,
                                 LignesIrregulieres(faits, false)}));
  if (faits.etrangers > 0)
    remarques.push_back(Joindre({kAttention, Nombre(faits.etrangers),
                                 " caractère(s) sans équivalent, remplacé(s) par ?, à partir de la ligne "_w,
                                 Nombre(faits.ligneEtrangere)}));
}

// Numbers below 0 in columns that become codes.
void RemarquerNegatives(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits,
                        std::vector<std::string>& remarques) {
  for (std::size_t j = 0; j < choix.size(); ++j) {
    const FaitsDeColonne& colonne = faits.colonnes[j];
    if (choix[j].genre == Genre::Codes && colonne.negatives > 0)
      remarques.push_back(RemarqueNegatives(colonne.negatives, j + 1, colonne.intitule));
  }
}

// Texts whose codes differ although they are nearly written alike, or that are taken together.
void RemarquerEcritures(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits,
                        std::vector<std::string>& remarques) {
  for (std::size_t j = 0; j < choix.size(); ++j) {
    for (const std::vector<ValeurComptee>& proches : EcrituresProches(choix[j], faits.colonnes[j])) {
      std::vector<std::string> textes;
      for (const ValeurComptee& texte : proches)
        textes.push_back(Joindre({"\"", texte.valeur, "\" (", Nombre(texte.effectif), ")"}));
      remarques.push_back(
          Joindre({kAttention, "colonne", NumeroEtNom(j, faits.colonnes[j]), " : ", Enumerer(textes),
                   choix[j].fondus ? " ont le même code"_w
                   : choix[j].genre == Genre::Textes
                       ? " s'écrivent presque de même et ont des codes différents (fondus=oui les réunit)"_w
                       : " s'écrivent presque de même et font des questions différentes"_w}));
    }
  }
}

}  // namespace

std::string NumeroEtNom(std::size_t j, const FaitsDeColonne& colonne) {
  return Joindre({NombreNu(j + 1), colonne.intitule.empty() ? kSansIntitule : std::string_view(colonne.intitule)});
}

std::vector<std::string> RefusDeTable(const FaitsDeTable& faits) {
  std::vector<std::string> refus;
  if (ColonnesDecalees(faits))
    refus.push_back(Joindre({"*** Erreur : toutes les lignes ont", NombreNu(faits.cellulesPartout), "valeur(s) pour",
                             NombreNu(faits.colonnes.size()),
                             "intitulés : un intitulé contient sans doute le "
                             "séparateur, et les colonnes seraient décalées. Mettez-le entre guillemets, ou ôtez "
                             "les intitulés de trop"_w}));
  if (faits.longues > 0)
    refus.push_back(Joindre({"*** Erreur :", NombreNu(faits.longues), "ligne(s) avec plus de valeurs que les",
                             NombreNu(faits.colonnes.size()), "intitulés, ses colonnes sont décalées : ligne "_w,
                             LignesIrregulieres(faits, true)}));
  if (faits.guillemetSansFin > 0)
    refus.push_back(Joindre({"*** Erreur : un guillemet ouvert à la ligne "_w, Nombre(faits.guillemetSansFin),
                             " n'est jamais fermé (donnez guillemets=non si c'est un signe comme un autre)"_w}));
  return refus;
}

std::vector<std::string> RemarquesDeTable(const FaitsDeTable& faits, const std::vector<ChoixDeColonne>& choix) {
  std::vector<std::string> remarques;
  for (std::size_t j = 0; j < faits.colonnes.size(); ++j) RemarquerNombres(faits.colonnes[j], j, remarques);
  RemarquerRangees(faits, remarques);
  RemarquerNegatives(choix, faits, remarques);
  RemarquerEcritures(choix, faits, remarques);
  return remarques;
}

std::vector<std::string> RemarquesDeSorties(const Contexte& contexte, const PlanDImport& plan, const Bilan& bilan,
                                            const IntitulesPerdus& perdus) {
  std::vector<std::string> remarques;
  if (!perdus.coupes.empty())
    remarques.push_back(
        Joindre({kAttention, Nombre(perdus.coupes.size()), " intitulé(s) de plus de "_w,
                 Nombre(kIntituleDeModaliteAuPlus), " caractères, coupé(s) dans "_w, contexte.Nom(".MOD")}));
  for (const ColonneImportee& colonne : plan.colonnes)
    if (colonne.DansPos() && colonne.intituleChange)
      remarques.push_back(Joindre({kAttention, "le signe $ est écrit S dans "_w, contexte.Nom(".POS"),
                                   ", à la colonne"_w, NumeroEtIntitule(colonne)}));
  for (const std::string& nom : perdus.communs)
    remarques.push_back(Joindre({kAttention, "deux modalités ont le nom "_w, nom, " dans ", contexte.Nom(".MOD")}));
  if (perdus.gardes > 0)
    remarques.push_back(Joindre({"Les intitulés de l'ancien fichier "_w, contexte.Nom(".MOD"),
                                 " sont gardés pour les questions de codes :"_w, NombreBlanc(perdus.gardes)}));
  if (!plan.longues.empty()) {
    remarques.push_back(Joindre({"Les textes longs sont dans ", contexte.Nom(".TXT"),
                                 " : les caractéristiques vont jusqu'à la position"_w,
                                 NombreNu(bilan.finCaracteristiques), "(découpage en mots)"_w}));
    remarques.push_back(Joindre({"    le découpage met ses mots à la place de "_w, contexte.Nom(".DAT"),
                                 " : relancez l'importation pour retrouver les individus"}));
    if (plan.longues.size() > 1)
      remarques.push_back(Joindre({"    cette position dit la colonne du texte : 1 pour la colonne",
                                   NombreNu(plan.longues.front() + 1), "et ainsi de suite"}));
    if (bilan.etoiles > 0)
      remarques.push_back(
          Joindre({kAttention, Nombre(bilan.etoiles), " étoile(s) des textes remplacée(s) par des blancs"_w}));
  }
  if (plan.nombres.empty()) return remarques;
  remarques.push_back(
      Joindre({"Les nombres gardés sont sous le générique "_w, contexte.generique, "N (", contexte.generique,
               "N.CDG et ", contexte.generique, "N.MOD), pour la régression sur données numériques"_w}));
  if (bilan.sansNombre > 0) {
    remarques.push_back(Joindre({kAttention, Nombre(bilan.sansNombre),
                                 " individu(s) sans l'un de ces nombres n'y sont pas, car un vide y serait lu 0"}));
    for (std::size_t i = 0; i < plan.nombres.size(); ++i)
      if (bilan.videsParNombre[i] > 0)
        remarques.push_back(Joindre({"    ", plan.nombres[i].nom, " ", plan.nombres[i].intitule, " : vide pour",
                                     NombreNu(bilan.videsParNombre[i]), "individu(s)"}));
  }
  return remarques;
}

std::vector<std::string> RefusDesCellules(const Bilan& bilan, const FaitsDeTable& faits,
                                          const std::vector<ChoixDeColonne>& choix) {
  std::vector<CelluleRefusee> refusees = bilan.refusees;
  std::ranges::stable_sort(refusees, {}, &CelluleRefusee::colonne);
  std::vector<std::string> refus;
  for (const CelluleRefusee& refusee : refusees)
    refus.push_back(Joindre({"*** Erreur : colonne", NumeroEtNom(refusee.colonne, faits.colonnes[refusee.colonne]),
                             ", ligne", NombreNu(refusee.ligne), ": \"", refusee.valeur, "\" ",
                             RaisonDuRefus(choix[refusee.colonne], faits.colonnes[refusee.colonne], refusee.valeur)}));
  const auto tues = bilan.refus - static_cast<std::int64_t>(refusees.size());
  if (tues > 0) refus.push_back(Joindre({"*** Erreur : et", NombreNu(tues), "autre(s) cellule(s)"}));
  return refus;
}

}  // namespace quelvar::capture
