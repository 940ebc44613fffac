#include "capture/apercu/sorties/plan.h"

#include <algorithm>

#include "capture/apercu/choix/noms.h"
#include "capture/apercu/choix/textes.h"
#include "capture/apercu/observation/listes.h"
#include "capture/apercu/observation/mots.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/rangees.h"
#include "capture/apercu/sorties/noms.h"
#include "capture/colonnes/compterendu.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/posfile.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kCodesDeTextes = kDernierCodeNomme;
constexpr std::size_t kColonnesDeReponses = 200;  // of one list: more answers are no list that was read out
constexpr int kTexteLePlusCourt = 4;              // narrower fields have the code-max of a question of codes
constexpr std::size_t kTexteLePlusLong = 99;      // what two digits of code-max tell

[[noreturn]] void Refuser(const ColonneImportee& colonne, Texte raison) {
  throw Erreur(kIncompatibiliteType, Joindre({kArretDuProgramme, "colonne", NumeroEtIntitule(colonne), ", ", raison}));
}

// The title as .POS can hold it between its "$" signs.
void Intituler(ColonneImportee& colonne, std::string intitule) {
  colonne.intituleChange = intitule.find('$') != std::string::npos;
  std::ranges::replace(intitule, '$', 'S');
  colonne.intitule = std::move(intitule);
}

// Calls `voir` with every cell of one column that is not empty.
template <typename Voir>
void ParcourirColonne(const Chemin& source, const Lecture& lecture, std::size_t colonne, Voir&& voir) {
  LecteurDeRangees lecteur(source, lecture);
  lecteur.PasserTitres();
  for (std::string_view rangee; lecteur.Lire(rangee);) {
    LigneDeTableur cellules = lecteur.Cellules(rangee);
    std::string_view cellule;
    std::size_t j = 0;
    while (j <= colonne && cellules.Suivante(cellule)) ++j;
    if (j <= colonne) continue;
    cellule = RognerCellule(cellule);
    if (!cellule.empty()) voir(cellule);
  }
}

class Dresseur {
 public:
  // `proposes`: the names that the columns of the table get without any hand.
  Dresseur(const Chemin& source, const Lecture& lecture, std::vector<std::string> proposes)
      : source_(source), lecture_(lecture), proposes_(std::move(proposes)) {}

  void Prendre(const ChoixDeColonne& choix, const FaitsDeColonne& faits, std::size_t rang);
  PlanDImport Achever();

 private:
  ColonneImportee& Ajouter(const FaitsDeColonne& faits, const ChoixDeColonne& choix, std::size_t largeur,
                           double codeMax);
  void CompterPourZero(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreCodes(const ChoixDeColonne& choix, const FaitsDeColonne& faits, bool numero);
  void PrendreAlphabetique(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreTextes(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreClasses(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreReponse(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreListe(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  void PrendreNombres(const ChoixDeColonne& choix, const FaitsDeColonne& faits);
  std::vector<ValeurComptee> Elements(const ChoixDeColonne& choix, const FaitsDeColonne& faits) const;
  void Coder(std::string_view texte, int code);

  const Chemin& source_;
  const Lecture& lecture_;
  std::vector<std::string> proposes_;
  PlanDImport plan_;
  std::vector<std::string> noms_;  // asked for, by column of .DAT
  std::size_t rang_ = 0;           // of the column of the table, from 0
  ColonneLue lue_;
};

ColonneImportee& Dresseur::Ajouter(const FaitsDeColonne& faits, const ChoixDeColonne& choix, std::size_t largeur,
                                   double codeMax) {
  if (lue_.nombre++ == 0) lue_.premiere = plan_.colonnes.size();
  ColonneImportee colonne;
  Intituler(colonne, choix.libelle.empty() ? faits.intitule : choix.libelle);
  colonne.intituleDonne = !choix.libelle.empty();
  colonne.largeur = largeur;
  colonne.codeMax = codeMax;
  colonne.rang = rang_ + 1;
  plan_.colonnes.push_back(std::move(colonne));
  plan_.etiquettes.emplace_back();
  noms_.push_back(choix.nom.empty() ? faits.intitule : choix.nom);
  return plan_.colonnes.back();
}

void Dresseur::Coder(std::string_view texte, int code) {
  const std::size_t rang = lue_.textes.ChercherOuAjouter(texte);
  if (rang < lue_.codes.size()) return;
  lue_.codes.push_back(code);
}

void Dresseur::CompterPourZero(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  for (const std::string& texte : choix.nonReponses) Coder(RognerCellule(texte), 0);
  if (faits.nonReponses > 0) Coder(kNonReponse, 0);
  lue_.avecZeros = !lue_.codes.empty();
}

// Whole numbers of at most three digits are codes; wider ones stay as they are and out of .POS.
void Dresseur::PrendreCodes(const ChoixDeColonne& choix, const FaitsDeColonne& faits, bool numero) {
  const bool entiers =
      faits.avecDecimales == 0 && faits.maximum <= kPlusGrandCode && !(numero && faits.nonNumeriques > 0);
  if (entiers && (faits.largeurNombre > 0 || choix.codeMax > 0)) {
    lue_.regle = Regle::Code;
    const double codeMax = std::max({faits.maximum, static_cast<double>(choix.codeMax), 0.0});
    Ajouter(faits, choix, Nombre(codeMax).size(), codeMax).numero = numero;
    for (std::size_t i = 0; i < choix.textes.size() && i < kCodesDeTextes; ++i) {
      const int code = static_cast<int>(i + 1);
      Coder(choix.textes[i], code);
      if (choix.textes[i] != Nombre(code)) plan_.etiquettes.back().push_back({code, choix.textes[i]});
    }
    lue_.avecTextes = !lue_.codes.empty();
  } else if (faits.largeur > 0) {
    lue_.regle = Regle::Telle;
    lue_.entiers = !numero;
    lue_.signes = faits.signes;
    ColonneImportee& colonne = Ajouter(faits, choix, faits.largeur, 0);
    colonne.telle = true;
    colonne.numero = numero;
  }
}

// The field is as wide as the question was, wider for a longer text.
void Dresseur::PrendreAlphabetique(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  int codeMax = choix.codeMax > 0 ? choix.codeMax : kTexteLePlusCourt;
  std::size_t largeur = codeMax == kCodeMaxL3 ? 3 : static_cast<std::size_t>(codeMax);
  if (faits.largeur > largeur) {
    largeur = std::max<std::size_t>(faits.largeur, kTexteLePlusCourt);
    codeMax = static_cast<int>(std::min<std::size_t>(largeur, kTexteLePlusLong + 1));
  }
  lue_.regle = Regle::Alphabetique;
  ColonneImportee& colonne = Ajouter(faits, choix, largeur, codeMax);
  colonne.alphabetique = true;
  colonne.aDroite = choix.aDroite;
  if (codeMax != kCodeMaxL3 && largeur > kTexteLePlusLong)
    Refuser(colonne, Joindre({"un texte de plus de ", Nombre(kTexteLePlusLong),
                              " caractères ne tient pas dans une question alphabétique"_w}));
}

void Dresseur::PrendreTextes(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  std::vector<ValeurComptee> ordre;
  for (const std::string& texte : choix.textes) {
    const auto valeur = std::ranges::find(faits.valeurs, texte, &ValeurComptee::valeur);
    ordre.push_back({texte, valeur == faits.valeurs.end() ? 0 : valeur->effectif});
  }
  std::vector<ValeurComptee> autres;
  for (const ValeurComptee& valeur : faits.valeurs)
    if (!EstParmi(choix.textes, valeur.valeur) && !EstParmi(choix.nonReponses, valeur.valeur)) autres.push_back(valeur);
  if (choix.ordre == Ordre::Frequence)
    std::ranges::stable_sort(autres, std::ranges::greater{}, &ValeurComptee::effectif);
  ordre.insert(ordre.end(), autres.begin(), autres.end());
  lue_.regle = Regle::Texte;
  std::vector<std::string> textes;
  for (const ValeurComptee& valeur : ordre) textes.push_back(valeur.valeur);
  const std::vector<int> codes = CodesDesTextes(choix, textes);
  const auto codeMax = static_cast<std::size_t>(codes.empty() ? 0 : std::ranges::max(codes));
  const ColonneImportee& colonne = Ajouter(faits, choix, codeMax < 10 ? 1 : 2, static_cast<double>(codeMax));
  if (codeMax > kCodesDeTextes || (ordre.empty() && faits.valeurs.empty() && faits.differentes > 0))
    Refuser(colonne, Joindre({"plus de ", Nombre(kCodesDeTextes),
                              " textes différents : ils ne peuvent pas devenir des codes"_w}));
  std::vector<Etiquette>& etiquettes = plan_.etiquettes.back();
  for (std::size_t i = 0; i < ordre.size(); ++i) {
    Coder(ordre[i].valeur, codes[i]);
    if (codes[i] > static_cast<int>(etiquettes.size())) {
      etiquettes.push_back({codes[i], ordre[i].valeur, ordre[i].effectif});
      continue;
    }
    // Of several writings the most frequent one is the label.
    Etiquette& etiquette = etiquettes[static_cast<std::size_t>(codes[i] - 1)];
    if (ordre[i].effectif > etiquette.effectif) etiquette = {codes[i], ordre[i].valeur, ordre[i].effectif};
  }
}

void Dresseur::PrendreClasses(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  std::vector<double> bornes = choix.bornes;
  if (bornes.empty()) {
    std::vector<double> valeurs;
    ParcourirColonne(source_, lecture_, rang_, [&](std::string_view cellule) {
      if (EstParmi(choix.nonReponses, cellule)) return;
      if (const std::optional<NombreDeCellule> nombre = LireNombre(cellule, faits.signes))
        valeurs.push_back(ValeurDe(nombre->Normalise()));
    });
    bornes = BornesDeGroupes(std::move(valeurs), choix.groupes);
  }
  Classes classes = ClassesSelonBornes(bornes, faits);
  lue_.regle = Regle::Classe;
  const std::size_t nombre = classes.etiquettes.size();
  const ColonneImportee& colonne = Ajouter(faits, choix, nombre < 10 ? 1 : 2, static_cast<double>(nombre));
  if (nombre > std::size_t{kClassesAuPlus}) Refuser(colonne, Joindre({"plus de ", Nombre(kClassesAuPlus), " classes"}));
  lue_.limites = std::move(classes.limites);
  lue_.signes = faits.signes;
  plan_.etiquettes.back() = std::move(classes.etiquettes);
}

void Dresseur::PrendreReponse(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  lue_.regle = Regle::Reponse;
  Ajouter(faits, choix, 1, 1);
  for (const std::string& texte : choix.reponses) Coder(texte, 1);
  const std::size_t crochet = faits.intitule.rfind('[');
  if (faits.intitule.ends_with(']') && crochet != std::string::npos)
    plan_.etiquettes.back().push_back({1, faits.intitule.substr(crochet + 1, faits.intitule.size() - crochet - 2)});
}

// The answers of the cells; of a column with more different cells than are kept they are gathered again.
std::vector<ValeurComptee> Dresseur::Elements(const ChoixDeColonne& choix, const FaitsDeColonne& faits) const {
  if (choix.liste == faits.liste && !faits.valeurs.empty()) return faits.elements;
  TableDeTextes elements;
  ParcourirColonne(source_, lecture_, rang_, [&](std::string_view cellule) {
    if (EstParmi(choix.nonReponses, cellule) || elements.Nombre() > kColonnesDeReponses) return;
    SeparerListe(cellule, choix.liste, [&](std::string_view e) { elements.Compter(elements.ChercherOuAjouter(e)); });
  });
  std::vector<ValeurComptee> comptes;
  for (std::size_t i = 0; i < elements.Nombre(); ++i)
    comptes.push_back({std::string(elements.Texte(i)), elements.Effectif(i)});
  std::ranges::sort(comptes, [](const auto& a, const auto& b) { return AvantParOrdre(a.valeur, b.valeur); });
  return comptes;
}

void Dresseur::PrendreListe(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  const std::vector<ValeurComptee> elements = Elements(choix, faits);
  lue_.regle = Regle::Liste;
  lue_.liste = choix.liste;
  for (const ValeurComptee& element : elements) {
    ColonneImportee& colonne = Ajouter(faits, choix, 1, 1);
    Intituler(colonne, Joindre({faits.intitule, " : ", element.valeur}));
    if (lue_.nombre < std::size_t{kPremierCodeDouble} && elements.size() > 1)
      noms_.back() = Joindre({Rogner(noms_.back()).substr(0, 2), CodeCaractere(static_cast<int>(lue_.nombre))});
    if (elements.size() > kColonnesDeReponses)
      Refuser(colonne, Joindre({"plus de ", Nombre(kColonnesDeReponses), " réponses différentes dans les listes"_w}));
    Coder(element.valeur, static_cast<int>(lue_.nombre));
    plan_.etiquettes.back().push_back({1, element.valeur, element.effectif});
  }
}

// Whole numbers stay in .DAT besides, out of .POS, as they always did.
void Dresseur::PrendreNombres(const ChoixDeColonne& choix, const FaitsDeColonne& faits) {
  lue_.gardee = true;
  lue_.signes = faits.signes;
  plan_.nombres.push_back({rang_, choix.nom, faits.intitule});
  plan_.largeurNombres = std::max(plan_.largeurNombres, faits.largeurNombre + 1);
  if (faits.contenu != Contenu::Nombres || faits.avecDecimales > 0 || faits.largeur <= kLargeurCodes) return;
  lue_.regle = Regle::Telle;
  Ajouter(faits, choix, faits.largeur, 0).telle = true;
}

void Dresseur::Prendre(const ChoixDeColonne& choix, const FaitsDeColonne& faits, std::size_t rang) {
  rang_ = rang;
  lue_ = {};
  CompterPourZero(choix, faits);
  switch (choix.genre) {
    case Genre::Codes: PrendreCodes(choix, faits, false); break;
    case Genre::Numero: PrendreCodes(choix, faits, true); break;
    case Genre::Textes: PrendreTextes(choix, faits); break;
    case Genre::Classes: PrendreClasses(choix, faits); break;
    case Genre::Multiple: choix.liste == '\0' ? PrendreReponse(choix, faits) : PrendreListe(choix, faits); break;
    case Genre::Nombres: PrendreNombres(choix, faits); break;
    case Genre::Longs:
      lue_.longue = true;
      plan_.longues.push_back(rang);
      break;
    case Genre::Alphabetique: PrendreAlphabetique(choix, faits); break;
    case Genre::Ecartee: break;
  }
  plan_.lues.push_back(std::move(lue_));
}

PlanDImport Dresseur::Achever() {
  std::size_t position = 1;
  for (ColonneImportee& colonne : plan_.colonnes) {
    colonne.position = position;
    position += colonne.largeur;
  }
  NommerLePlan(plan_, std::move(noms_), proposes_);
  return std::move(plan_);
}

}  // namespace

PlanDImport DresserPlan(const std::vector<ChoixDeColonne>& choix, const FaitsDeTable& faits, const Chemin& source,
                        const Lecture& lecture) {
  Dresseur dresseur(source, lecture, NomsProposes(choix, faits.colonnes));
  for (std::size_t j = 0; j < faits.colonnes.size(); ++j) dresseur.Prendre(choix[j], faits.colonnes[j], j);
  return dresseur.Achever();
}

}  // namespace quelvar::capture
