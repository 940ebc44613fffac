#include "capture/apercu/observation/observation.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "capture/apercu/observation/listes.h"
#include "capture/apercu/observation/mots.h"
#include "capture/apercu/observation/trace.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/pages.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

using namespace cellule_tracee;

namespace {

constexpr std::size_t kChiffresDeCode = 3;

// Value of one to three digits without a zero in front; -1 for any other text.
int PetitEntier(std::string_view cellule) {
  if (cellule.size() > kChiffresDeCode || (cellule.size() > 1 && cellule.front() == '0')) return -1;
  int valeur = 0;
  for (const char c : cellule) {
    if (c < '0' || c > '9') return -1;
    valeur = valeur * 10 + (c - '0');
  }
  return valeur;
}

}  // namespace

bool AvantParOrdre(std::string_view a, std::string_view b) {
  const std::optional<NombreLu> na = LireNombre(a);
  const std::optional<NombreLu> nb = LireNombre(b);
  if (na.has_value() != nb.has_value()) return na.has_value();
  if (na) {
    const double va = ValeurDe(na->Normalise());
    const double vb = ValeurDe(nb->Normalise());
    if (va != vb) return va < vb;
  }
  const std::string pa = Pliee(a);
  const std::string pb = Pliee(b);
  return pa != pb ? pa < pb : a < b;
}

std::uint16_t Observation::Voir(std::string_view cellule, std::int64_t ligne) {
  if (cellule.empty()) {
    VoirVide();
    return kVide;
  }
  if (const int petit = PetitEntier(cellule); petit >= 0) {
    ++petits_[static_cast<std::size_t>(petit)];
    return static_cast<std::uint16_t>(kPremierPetit + petit);
  }
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
  if (cellule.empty()) {
    VoirVide();
    return kVide;
  }
  if (const int petit = PetitEntier(cellule); petit >= 0) {
    ++petits_[static_cast<std::size_t>(petit)];
    return static_cast<std::uint16_t>(kPremierPetit + petit);
  }
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
  const std::optional<NombreLu> nombre = LireNombre(cellule);
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

void Observation::VoirEtrangere(std::string_view cellule, std::string_view brute, std::int64_t ligne) {
  std::map<std::string, Brute>& brutes = etrangeres_[std::string(cellule)];
  const auto connue = brutes.find(std::string(brute));
  if (connue != brutes.end()) {
    ++connue->second.effectif;
  } else if (brutes_ < kValeursGardees) {
    ++brutes_;
    brutes.emplace(brute, Brute{ligne, 1});
  }
}

// By text of the code page the lines of the different texts of the file. `liste` separates the answers of a cell, 0:
// the cells are compared.
std::vector<TexteConfondu> Observation::Confondus(char liste, const std::vector<ValeurComptee>& valeurs) const {
  std::map<std::string, std::map<std::string, std::int64_t>> parTexte;
  const auto voir = [&](std::string_view texte, std::string_view brute, std::int64_t ligne) {
    std::vector<std::string> textes;
    const auto couper = [&](std::string_view cellule) {
      if (liste == '\0') textes.emplace_back(cellule);
      else SeparerListe(cellule, liste, [&](std::string_view element) { textes.emplace_back(element); });
    };
    couper(texte);
    const std::size_t nombre = textes.size();
    couper(brute);
    for (std::size_t i = 0; i < nombre && nombre + i < textes.size(); ++i)
      if (textes[i].find(kEtranger) != std::string::npos) parTexte[textes[i]].emplace(textes[nombre + i], ligne);
  };
  for (const auto& [texte, brutes] : etrangeres_)
    for (const auto& [brute, ou] : brutes) voir(texte, brute, ou.ligne);
  if (parTexte.empty()) return {};
  // A "?" that stands in the file is a text like the others.
  for (const ValeurComptee& valeur : valeurs) {
    if (valeur.valeur.find(kEtranger) == std::string::npos) continue;
    std::int64_t autres = 0;
    if (const auto brutes = etrangeres_.find(valeur.valeur); brutes != etrangeres_.end())
      for (const auto& brute : brutes->second) autres += brute.second.effectif;
    if (valeur.effectif > autres) voir(valeur.valeur, valeur.valeur, 0);
  }
  std::vector<TexteConfondu> confondus;
  for (const auto& [texte, brutes] : parTexte) {
    if (brutes.size() < 2) continue;
    TexteConfondu& confondu = confondus.emplace_back(TexteConfondu{texte, {}});
    for (const auto& brute : brutes)
      if (brute.second > 0) confondu.lignes.push_back(brute.second);
    std::ranges::sort(confondu.lignes);
  }
  return confondus;
}

void Observation::VoirHabillee(std::string_view cellule) {
  if (RognerCellule(cellule).size() + 1 > cellule.size()) return;
  if (habillees_++ == 0) exempleHabille_ = cellule;
}

void Observation::VoirNombre(NombreLu nombre, std::string_view cellule, std::int64_t ligne) {
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
  if (nombre.zeroDevant && nombre.EstEntier() && cellule.size() > kChiffresDeCode) ++zerosDevant_;
  mesures_.Voir(nombre);
}

void Mesures::Voir(const NombreLu& lu) {
  const std::string normal = lu.Normalise();
  const double valeur = ValeurDe(normal);
  const bool entier = lu.EstEntier();
  Joindre({valeur, valeur, 1, entier && std::abs(valeur) > 999 ? 1 : 0, lu.signe != '\0' ? 1 : 0,
           lu.ValeurEntiere() ? 0 : 1, valeur < 0 ? 1 : 0, static_cast<int>(lu.decimales.size()), normal.size()});
}

void Mesures::Joindre(const Mesures& autres) {
  if (autres.nombre == 0) return;
  minimum = nombre > 0 ? std::min(minimum, autres.minimum) : autres.minimum;
  maximum = nombre > 0 ? std::max(maximum, autres.maximum) : autres.maximum;
  nombre += autres.nombre;
  larges += autres.larges;
  avecDecimales += autres.avecDecimales;
  fractions += autres.fractions;
  negatives += autres.negatives;
  decimales = std::max(decimales, autres.decimales);
  largeur = std::max(largeur, autres.largeur);
}

std::int64_t Observation::Petits() const { return std::accumulate(petits_.begin(), petits_.end(), std::int64_t{0}); }

std::size_t Observation::LargeurDesPetits() const {
  const auto dernier = std::find_if(petits_.rbegin(), petits_.rend(), [](std::uint32_t n) { return n > 0; });
  return dernier == petits_.rend() ? 0 : Nombre(petits_.rend() - dernier - 1).size();
}

// Dates, perhaps beside words that say that there is none.
bool Observation::SontDesDates() const {
  if (nombres_[kTexte] == 0) return true;
  if (nombres_[kDate] == 0 || comble_) return false;
  for (std::size_t i = 0; i < textes_.Nombre(); ++i)
    if (!EstDate(textes_.Texte(i)) && !EstManque(textes_.Texte(i))) return false;
  return true;
}

// Of more cells than are told apart, the first ones.
bool Observation::TousDifferents() const {
  return tousDifferents_ && std::ranges::all_of(petits_, [](std::uint32_t n) { return n <= 1; });
}

std::int64_t Observation::Differentes() const {
  const std::int64_t petits = std::ranges::count_if(petits_, [](std::uint32_t n) { return n > 0; });
  return petits + std::max(static_cast<std::int64_t>(textes_.Nombre()), uniques_.Nombre());
}

std::vector<ValeurComptee> Observation::Valeurs() const {
  std::vector<ValeurComptee> valeurs;
  for (std::size_t i = 0; i < petits_.size(); ++i)
    if (petits_[i] > 0) valeurs.push_back({Nombre(i), petits_[i]});
  for (std::size_t i = 0; i < textes_.Nombre(); ++i)
    valeurs.push_back({std::string(textes_.Texte(i)), textes_.Effectif(i)});
  std::ranges::sort(valeurs, [](const auto& a, const auto& b) { return AvantParOrdre(a.valeur, b.valeur); });
  return valeurs;
}

void Observation::ConclureMelange(FaitsDeColonne& faits, const std::vector<Classe>& classes) const {
  faits.contenu = Contenu::Melange;
  for (const Classe classe : classes) {
    faits.fautes += nombres_[classe];
    faits.fautives.insert(faits.fautives.end(), gardees_[classe].begin(), gardees_[classe].end());
  }
  std::ranges::stable_sort(faits.fautives, {}, &CelluleFautive::ligne);
  if (faits.fautives.size() > kFautivesGardees) faits.fautives.resize(kFautivesGardees);
}

// The decimal sign that the user has laid down; else the one that its own numbers show, or that of the table when they
// show none, or both.
char Observation::Decimale(const SignesDeTable& table) const {
  if (table.source == SourceDeDecimale::Donnee) return table.decimale;
  const auto montre = [&](char signe) { return ProuveDecimale(signe) || ProuveMilliers(Autre(signe)); };
  if (montre(',') != montre('.')) return montre(',') ? ',' : '.';
  return table.decimale;
}

// Whether the decimal sign of the column is more than the usual one.
bool Observation::Certaine(char decimale, const SignesDeTable& table) const {
  return ProuveDecimale(decimale) || ProuveMilliers(Autre(decimale)) || table.prouvee ||
         table.source != SourceDeDecimale::Usuelle;
}

SignesDeNombres Observation::Signes(const SignesDeTable& table, std::vector<Classe>& fautives) const {
  SignesDeNombres signes{Decimale(table)};
  const char decimale = signes.decimale;
  const char autre = Autre(decimale);
  // Thousands shown by the column, or by the table, or by the user's word.
  const bool milliers = ProuveMilliers(autre) ||
                        (decimale == table.decimale && (table.milliers || table.source == SourceDeDecimale::Donnee));
  const auto refuser = [&](Classe classe) {
    if (nombres_[classe] > 0) fautives.push_back(classe);
  };
  refuser(DecimalesDe(autre));
  refuser(MilliersDe(decimale));
  if (milliers && nombres_[DecimalesDe(autre)] == 0) signes.milliers = autre;
  else refuser(DouteDe(autre));
  // Whole numbers beside "3,400" and no other decimals anywhere: as well three thousand four hundred.
  const std::int64_t entiers = Petits() + nombres_[kSansSigne];
  if (!Certaine(decimale, table) && entiers > petits_[0] && nombres_[DouteDe(decimale)] > 0) {
    signes.douteRefuse = true;
    refuser(DouteDe(decimale));
  }
  return signes;
}

Mesures Observation::MesuresSelon(const SignesDeNombres& signes) const {
  Mesures mesures = mesures_;
  for (std::size_t rang = 0; rang < 2; ++rang)
    mesures.Joindre(signes.milliers == (rang == 0 ? ',' : '.') ? enMilliers_[rang] : enDecimales_[rang]);
  for (std::size_t i = 0; i < petits_.size(); ++i) {
    if (petits_[i] == 0) continue;
    const auto valeur = static_cast<double>(i);
    const std::size_t chiffres = i < 10 ? 1 : i < 100 ? 2 : 3;
    mesures.Joindre({valeur, valeur, petits_[i], 0, 0, 0, 0, 0, chiffres});
  }
  return mesures;
}

// Numbers that may be read in two ways, for the account.
void Observation::ConclureDoutes(FaitsDeColonne& faits, const SignesDeTable& table) const {
  const SignesDeNombres& signes = faits.signes;
  const auto retenir = [&](Classe classe) {
    if (nombres_[classe] > 0) faits.exemple = gardees_[classe].front().valeur;
    return nombres_[classe];
  };
  if (signes.milliers != '\0') faits.enMilliers = retenir(DouteDe(signes.milliers));
  else if (!signes.douteRefuse && !Certaine(signes.decimale, table))
    faits.douteuses = retenir(DouteDe(signes.decimale));
  faits.habillees = habillees_;
  faits.exempleHabille = exempleHabille_;
}

void Observation::ConclureNombres(FaitsDeColonne& faits, std::int64_t individus, bool premiere, bool larges) const {
  if (zerosDevant_ > 0 && larges) return ConclureTextes(faits);
  const bool codes = faits.avecDecimales == 0 && exposants_ == 0 && !larges;
  const bool suite = codes && faits.maximum == static_cast<double>(individus);
  const bool tousDifferents = TousDifferents() && faits.vides + faits.nonReponses == 0 && individus > 1;
  faits.contenu = codes ? Contenu::Codes : Contenu::Nombres;
  if (premiere && (suite || (!codes && faits.avecDecimales == 0 && exposants_ == 0 && tousDifferents &&
                             EstTitreDeNumero(faits.intitule))))
    faits.contenu = Contenu::Numero;
}

void Observation::ConclureTextes(FaitsDeColonne& faits) const {
  if (longs_ > 0) faits.contenu = Contenu::TextesLongs;
  else if (faits.remplies > 1 && TousDifferents() &&
           std::ranges::none_of(faits.valeurs, EstReponseUsuelle, &ValeurComptee::valeur))
    faits.contenu = Contenu::TextesUniques;
  else if (faits.differentes > static_cast<std::int64_t>(kTextesCourts)) faits.contenu = Contenu::TextesLongs;
  else faits.contenu = Contenu::Textes;
}

FaitsDeColonne Observation::Conclure(std::string intitule, std::int64_t individus, bool premiere,
                                     const SignesDeTable& table) const {
  FaitsDeColonne faits;
  faits.intitule = std::move(intitule);
  faits.nonReponses = nonReponses_;
  faits.decimaleDonnee = table.source == SourceDeDecimale::Donnee;
  const std::int64_t textes = nombres_[kTexte] + nombres_[kDate];
  const std::int64_t nombres =
      std::accumulate(nombres_.begin() + kDate + 1, nombres_.end(), std::int64_t{0}) + Petits();
  faits.vides = individus - nombres - textes - nonReponses_;
  faits.remplies = nombres + textes + nonReponses_;
  faits.differentes = Differentes();
  if (!comble_) faits.valeurs = Valeurs();
  std::vector<Classe> fautives;
  faits.signes = Signes(table, fautives);
  const Mesures mesures = MesuresSelon(faits.signes);
  ConclureDoutes(faits, table);
  faits.decimales = mesures.decimales;
  // Codes that a program has written as "1.0" and "2.0".
  const bool entiers = mesures.fractions == 0 && mesures.minimum >= -999 && mesures.maximum <= 999;
  faits.avecDecimales = entiers ? 0 : mesures.avecDecimales;
  faits.enEntiers = entiers ? mesures.avecDecimales : 0;
  faits.negatives = mesures.negatives;
  faits.longues = longs_;
  faits.nonNumeriques = textes;
  faits.largeur = std::max(largeur_, LargeurDesPetits());
  faits.largeurNombre = mesures.largeur;
  faits.minimum = mesures.minimum;
  faits.maximum = mesures.maximum;
  if (nombres + textes == 0) {
    faits.contenu = Contenu::Vide;
  } else if (premiere && faits.intitule == kTitreNumero) {
    faits.contenu = Contenu::Numero;
  } else if (textes == 0) {
    if (fautives.empty()) ConclureNombres(faits, individus, premiere, mesures.larges > 0);
    else ConclureMelange(faits, fautives);
  } else if (avecUnite_ == textes) {
    fautives.push_back(kTexte);
    ConclureMelange(faits, fautives);
  } else if (nombres == 0 && SontDesDates()) {
    faits.contenu = Contenu::Dates;
  } else if (faits.liste = SigneDeListe(Valeurs(), faits.elements); faits.liste != '\0') {
    faits.contenu = Contenu::Listes;
  } else if (nombres == 0) {
    ConclureTextes(faits);
  } else if ((longs_ > 0 || Differentes() > static_cast<std::int64_t>(kTextesCourts)) && textes > nombres) {
    faits.contenu = Contenu::TextesLongs;
  } else {
    fautives.insert(fautives.end(), {kTexte, kDate});
    ConclureMelange(faits, fautives);
  }
  if (!etrangeres_.empty()) faits.confondus = Confondus(faits.liste, Valeurs());
  return faits;
}

}  // namespace quelvar::capture
