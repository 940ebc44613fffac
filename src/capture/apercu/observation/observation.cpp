#include "capture/apercu/observation/observation.h"

#include <algorithm>

#include "capture/apercu/observation/mots.h"
#include "capture/apercu/observation/trace.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/tableur/codes.h"

namespace quelvar::capture {

using namespace cellule_tracee;

namespace {

// Value of one to three digits without a zero in front; -1 for any other text.
int PetitEntier(std::string_view cellule) {
  return cellule.size() > 1 && cellule.front() == '0' ? -1 : ValeurDesChiffres(cellule);
}

}  // namespace

std::uint16_t Observation::VoirVideOuPetit(std::string_view cellule) {
  if (cellule.empty()) return kVide;
  const int petit = PetitEntier(cellule);
  if (petit < 0) return kAutre;
  ++petits_[static_cast<std::size_t>(petit)];
  return static_cast<std::uint16_t>(kPremierPetit + petit);
}

std::uint16_t Observation::Voir(std::string_view cellule, std::int64_t ligne) {
  if (const std::uint16_t vu = VoirVideOuPetit(cellule); vu != kAutre) return vu;
  // A text that came before as it stands: no more than one to count.
  const std::uint32_t rang = textes_.Chercher(cellule);
  if (rang == TableDeTextes::kAbsent || simples_[rang] == 0) return VoirNombreOuTexte(cellule, ligne);
  tousDifferents_ = false;
  textes_.Compter(rang);
  Garder(kTexte, cellule, ligne);
  return static_cast<std::uint16_t>(kPremierTexte + rang);
}

std::vector<std::string> Observation::TextesParRang() const {
  std::vector<std::string> textes;
  for (std::size_t i = 0; i < textes_.Nombre(); ++i) textes.emplace_back(textes_.Texte(i));
  return textes;
}

void Observation::Garder(Classe classe, std::string_view cellule, std::int64_t ligne) {
  ++nombres_[classe];
  if (gardees_[classe].size() < kFautivesGardees) gardees_[classe].push_back({ligne, std::string(cellule)});
}

bool Observation::Distinguer(std::string_view cellule) {
  const std::uint64_t condense = CondenseDeTexte(cellule);
  std::uint32_t rang = textes_.Chercher(cellule, condense);
  if (rang == TableDeTextes::kAbsent) {
    if (textes_.Nombre() < kValeursGardees) {
      rang = textes_.Ajouter(cellule, condense);
      simples_.push_back(0);
    } else {
      comble_ = true;
    }
  } else {
    tousDifferents_ = false;
  }
  if (tousDifferents_) tousDifferents_ = uniques_.Voir(condense);
  if (rang == TableDeTextes::kAbsent) return false;
  textes_.Compter(rang);
  dernier_ = rang;
  return simples_[rang] != 0;
}

std::uint16_t Observation::VoirNombreOuTexte(std::string_view cellule, std::int64_t ligne) {
  if (cellule.front() == '=' || cellule.front() == '\'') VoirHabillee(cellule);
  cellule = RognerCellule(cellule);
  if (const std::uint16_t vu = VoirVideOuPetit(cellule); vu != kAutre) return vu;
  largeur_ = std::max(largeur_, cellule.size());
  if (cellule == kNonReponse) {
    ++nonReponses_;
    return kNonDit;
  }
  dernier_ = TableDeTextes::kAbsent;
  VoirValeur(cellule, ligne);
  return dernier_ == TableDeTextes::kAbsent ? kAutre : static_cast<std::uint16_t>(kPremierTexte + dernier_);
}

// A cell that is neither empty nor a small number.
void Observation::VoirValeur(std::string_view cellule, std::int64_t ligne) {
  if (Distinguer(cellule)) return Garder(kTexte, cellule, ligne);
  const std::optional<NombreDeCellule> nombre = LireNombre(cellule);
  if (!nombre) {
    if (cellule.size() > kLongueurCourte) ++longs_;
    const bool unite = EstNombreAvecUnite(cellule);
    if (unite) ++avecUnite_;
    const bool date = EstDate(cellule);
    const bool nue = RognerCellule(cellule).size() == cellule.size();
    if (!date && dernier_ != TableDeTextes::kAbsent)
      simples_[dernier_] = static_cast<char>(nue && !unite && cellule.size() <= kLongueurCourte);
    return Garder(date ? kDate : kTexte, cellule, ligne);
  }
  VoirNombre(*nombre, cellule, ligne);
}

void Observation::VoirHabillee(std::string_view cellule) {
  if (RognerCellule(cellule).size() + 1 > cellule.size()) return;
  if (habillees_++ == 0) exempleHabille_ = cellule;
}

void Observation::VoirNombre(NombreDeCellule nombre, std::string_view cellule, std::int64_t ligne) {
  if (!nombre.exposant.empty()) ++exposants_;
  if (nombre.EstAmbigu()) {
    Garder(DouteDe(nombre.signe), cellule, ligne);
    const std::size_t rang = nombre.signe == ',' ? 0 : 1;
    enDecimales_[rang].Voir(nombre);
    nombre.LireEnMilliers();
    enMilliers_[rang].Voir(nombre);
    return;
  }
  const bool groupes = nombre.groupes == ',' || nombre.groupes == '.';
  const Classe classe = groupes                ? MilliersDe(nombre.groupes)
                        : nombre.signe != '\0' ? DecimalesDe(nombre.signe)
                                               : kSansSigne;
  if (classe == kSansSigne) ++nombres_[classe];
  else Garder(classe, cellule, ligne);
  if (nombre.zeroDevant && nombre.EstEntier() && cellule.size() > kLargeurCodes) ++zerosDevant_;
  mesures_.Voir(nombre);
}

}  // namespace quelvar::capture
