#include "capture/apercu/observation/examen.h"

#include <algorithm>
#include <utility>

#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kIrregulieresGardees = 1000;  // far more than are told; the others are counted
constexpr std::int64_t kPas = 1024;                 // rows between two calls of the follower

}  // namespace

void ExamenDeTable::AssurerColonnes(std::size_t nombre) {
  if (nombre <= colonnes_.size()) return;
  if (nombre > kColonnesAuPlus)
    throw Erreur(kDepassementCapacite, Joindre({kArretDuProgramme, "une ligne a plus de ", Nombre(kColonnesAuPlus),
                                                " colonnes ; vérifiez le séparateur"_w}));
  colonnes_.resize(nombre);
}

void ExamenDeTable::LireTitres(LecteurDeRangees& lecteur) {
  std::string_view rangee;
  if (lecture_.ligneTitres == 0 || !lecteur.Lire(rangee)) return;
  LigneDeTableur cellules = lecteur.Cellules(rangee);
  for (std::string_view cellule; cellules.Suivante(cellule);) intitules_.push_back(NettoyerIntitule(cellule));
  AssurerColonnes(intitules_.size());
}

bool ExamenDeTable::LireRangees(LecteurDeRangees& lecteur, std::int64_t nombre, const Suivi& suivi) {
  std::string_view rangee;
  for (std::int64_t lues = 1; faits_.individus < nombre; ++lues) {
    if (!lecteur.Lire(rangee)) {
      finie_ = true;
      break;
    }
    Voir(rangee, lecteur);
    if (lues % kPas == 0 && suivi && !suivi(lecteur.Octets())) return false;
  }
  return true;
}

void ExamenDeTable::Voir(std::string_view rangee, const LecteurDeRangees& lecteur) {
  if (lecteur.SansValeur(rangee)) {
    ++vides_;
    // Blank lines count once something stands behind them, were it separators.
    if (!RognerCellule(rangee).empty()) faits_.lignesVides += std::exchange(vides_, 0);
    return;
  }
  ++faits_.individus;
  faits_.lignesVides += std::exchange(vides_, 0);
  VoirCellules(lecteur.Cellules(rangee), lecteur.Ligne());
  if (!lecteur.Etrangere().empty()) VoirEtrangere(rangee, lecteur);
}

void ExamenDeTable::VoirCellules(LigneDeTableur cellules, std::int64_t ligne) {
  using namespace cellule_tracee;
  const bool tracer = trace_ != nullptr && trace_->Suivie();
  if (tracer) rangee_.assign(colonnes_.size(), kVide);
  const auto noter = [&](std::size_t colonne, unsigned valeur) {
    if (!tracer) return;
    if (colonne >= rangee_.size()) rangee_.resize(colonne + 1, kVide);
    rangee_[colonne] = static_cast<std::uint16_t>(valeur);
  };
  std::size_t j = 0;
  std::size_t remplies = 0;
  const char* chiffres = nullptr;
  std::string_view cellule;
  do {
    while (const unsigned nombre = cellules.ChiffresSuivants(chiffres)) {
      AssurerColonnes(j + nombre);
      for (unsigned i = 0; i < nombre; ++i) {
        const auto chiffre = static_cast<unsigned>(chiffres[i * std::size_t{2}] - '0');
        colonnes_[j + i].VoirChiffre(chiffre);
        noter(j + i, kPremierPetit + chiffre);
      }
      j += nombre;
      remplies = j;
    }
    if (!cellules.Suivante(cellule)) break;
    ++j;
    if (cellule.empty() || RognerCellule(cellule).empty()) continue;
    AssurerColonnes(j);
    remplies = j;
    noter(j - 1, colonnes_[j - 1].Voir(cellule, ligne));
  } while (true);
  VoirLongueur(j, remplies, ligne);
  if (tracer) trace_->Ajouter(rangee_);
}

void ExamenDeTable::AcheverLaTrace() {
  for (std::size_t j = 0; j < colonnes_.size(); ++j) trace_->Nommer(j, colonnes_[j].TextesParRang());
  trace_->Achever();
}

// Texts of characters that the code page has not are compared as they stand in the file.
void ExamenDeTable::VoirEtrangere(std::string_view rangee, const LecteurDeRangees& lecteur) {
  LigneDeTableur cellules = lecteur.Cellules(rangee);
  LigneDeTableur brutes = lecteur.Cellules(lecteur.Etrangere());
  std::string_view cellule;
  std::string_view brute;
  for (std::size_t j = 0; cellules.Suivante(cellule) && brutes.Suivante(brute); ++j)
    if (cellule != brute && j < colonnes_.size() && cellule.find(kEtranger) != std::string_view::npos)
      colonnes_[j].VoirEtrangere(RognerCellule(cellule), RognerCellule(brute), lecteur.Ligne());
}

// A row is long when cells behind the titles are filled, short when separators are missing.
void ExamenDeTable::VoirLongueur(std::size_t cellules, std::size_t remplies, std::int64_t ligne) {
  largeur_ = std::max(largeur_, remplies);
  moins_ = std::min(moins_, cellules);
  plus_ = std::max(plus_, cellules);
  const bool longue = lecture_.ligneTitres > 0 && remplies > intitules_.size();
  const bool courte = lecture_.ligneTitres > 0 && cellules < intitules_.size();
  if (!longue && !courte) return;
  ++(longue ? faits_.longues : faits_.courtes);
  if (faits_.irregulieres.size() < kIrregulieresGardees)
    faits_.irregulieres.push_back({ligne, longue ? remplies : cellules});
}

SignesDeTable ExamenDeTable::Signes() const {
  const char decimale = lecture_.decimale;
  const char autre = decimale == ',' ? '.' : ',';
  const auto milliers = [&](const Observation& colonne) { return colonne.ProuveMilliers(autre); };
  const auto prouvee = [&](const Observation& colonne) { return colonne.ProuveDecimale(decimale); };
  SignesDeTable signes{decimale, lecture_.sourceDeDecimale};
  signes.milliers = std::ranges::any_of(colonnes_, milliers);
  signes.prouvee = signes.milliers || std::ranges::any_of(colonnes_, prouvee);
  return signes;
}

FaitsDeTable ExamenDeTable::Conclure(const LecteurDeRangees& lecteur) const {
  if (faits_.individus == 0)
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgramme, "le fichier ne contient que des intitulés, aucun individu"_w}));
  FaitsDeTable faits = faits_;
  faits.etrangers = lecteur.Etrangers();
  faits.ligneEtrangere = lecteur.LigneEtrangere();
  faits.guillemetSansFin = lecteur.GuillemetSansFin();
  if (faits.courtes == faits.individus && moins_ == plus_) faits.cellulesPartout = moins_;
  // Cells behind the titles have slipped, even when all rows are so: nobody can tell which title is whose.
  const std::size_t nombre = faits.longues > 0 ? intitules_.size() : std::max(intitules_.size(), largeur_);
  const SignesDeTable signes = Signes();
  for (std::size_t j = 0; j < nombre; ++j) {
    std::string intitule = j < intitules_.size() ? intitules_[j] : std::string();
    if (lecture_.ligneTitres == 0) intitule = Joindre({kTitreDeColonne, Nombre(j + 1)});
    faits.colonnes.push_back((j < colonnes_.size() ? colonnes_[j] : Observation())
                                 .Conclure(std::move(intitule), faits.individus, j == 0, signes));
  }
  return faits;
}

}  // namespace quelvar::capture
