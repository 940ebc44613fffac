#include "capture/apercu/observation/observation.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "capture/apercu/observation/listes.h"
#include "capture/apercu/octets/cellule.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kChiffresDeCode = 3;
constexpr std::string_view kTitreNumero = "NUM";

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

// A letter without its accent, in lower case.
char SansAccent(char c) {
  const char minuscule = Minuscule(c);
  static constexpr std::string_view kAccents = "àáâãäåçèéêëìíîïñòóôõöùúûüýÿ"_w;
  static constexpr std::string_view kLettres = "aaaaaaceeeeiiiinooooouuuuyy";
  const std::size_t rang =
      static_cast<unsigned char>(minuscule) < 0x80 ? std::string_view::npos : kAccents.find(minuscule);
  return rang == std::string_view::npos ? minuscule : kLettres[rang];
}

std::string Pliee(std::string_view texte) {
  std::string pliee(texte);
  for (char& c : pliee) c = SansAccent(c);
  return pliee;
}

// A title that says that its numbers are those of the individuals.
bool EstTitreDeNumero(std::string_view intitule) {
  const std::string titre = Pliee(intitule);
  for (const std::string_view mot : {"id", "num", "numero", "no", "identifiant", "id de la reponse", "response id",
                                     "id. reponse", "questionnaire", "num questionnaire", "numero de questionnaire"})
    if (titre == mot) return true;
  return titre == std::string_view("n°"_w);
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

void Observation::Voir(std::string_view cellule, std::int64_t ligne) {
  if (cellule.empty()) return VoirVide();
  if (const int petit = PetitEntier(cellule); petit >= 0) {
    ++petits_[static_cast<std::size_t>(petit)];
    return;
  }
  VoirNombreOuTexte(cellule, ligne);
}

void Observation::Garder(Classe classe, std::string_view cellule, std::int64_t ligne) {
  ++nombres_[classe];
  if (gardees_[classe].size() < kFautivesGardees) gardees_[classe].push_back({ligne, std::string(cellule)});
}

void Observation::Distinguer(std::string_view cellule) {
  const std::uint64_t condense = CondenseDeTexte(cellule);
  std::uint32_t rang = textes_.Chercher(cellule, condense);
  if (rang == TableDeTextes::kAbsent) {
    if (textes_.Nombre() < kValeursGardees) rang = textes_.Ajouter(cellule, condense);
    else comble_ = true;
  } else {
    tousDifferents_ = false;
  }
  if (rang != TableDeTextes::kAbsent) textes_.Compter(rang);
  if (tousDifferents_) tousDifferents_ = uniques_.Voir(condense);
}

void Observation::VoirNombreOuTexte(std::string_view cellule, std::int64_t ligne) {
  cellule = RognerCellule(cellule);
  if (cellule.empty()) return VoirVide();
  if (const int petit = PetitEntier(cellule); petit >= 0) {
    ++petits_[static_cast<std::size_t>(petit)];
    return;
  }
  largeur_ = std::max(largeur_, cellule.size());
  if (cellule == kNonReponse) {
    ++nonReponses_;
    return;
  }
  Distinguer(cellule);
  const std::optional<NombreLu> nombre = LireNombre(cellule);
  if (!nombre) {
    if (cellule.size() > kLongueurCourte) ++longs_;
    if (cellule.ends_with('%') && LireNombre(RognerCellule(cellule.substr(0, cellule.size() - 1)))) ++pourcents_;
    Garder(EstDate(cellule) ? kDate : kTexte, cellule, ligne);
    return;
  }
  const std::string normal = nombre->Normalise();
  const double valeur = ValeurDe(normal);
  largeurNombre_ = std::max(largeurNombre_, normal.size());
  if (nombre->signe != '\0') Garder(nombre->signe == ',' ? kVirgule : kPoint, cellule, ligne);
  else ++entiers_;
  if (nombre->EstEntier() && (valeur > 999 || valeur < -999)) ++larges_;
  if (nombre->zeroDevant && nombre->EstEntier() && cellule.size() > kChiffresDeCode) ++zerosDevant_;
  if (nombre->EstAmbigu()) ++ambigus_;
  if (!nombre->exposant.empty()) ++exposants_;
  if (valeur < 0) ++negatives_;
  decimales_ = std::max(decimales_, static_cast<int>(nombre->decimales.size()));
  minimum_ = avecBornes_ ? std::min(minimum_, valeur) : valeur;
  maximum_ = avecBornes_ ? std::max(maximum_, valeur) : valeur;
  avecBornes_ = true;
}

std::int64_t Observation::Petits() const { return std::accumulate(petits_.begin(), petits_.end(), std::int64_t{0}); }

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

void Observation::ConclureMelange(FaitsDeColonne& faits, std::initializer_list<Classe> classes) const {
  faits.contenu = Contenu::Melange;
  for (const Classe classe : classes) {
    faits.fautes += nombres_[classe];
    faits.fautives.insert(faits.fautives.end(), gardees_[classe].begin(), gardees_[classe].end());
  }
  std::ranges::stable_sort(faits.fautives, {}, &CelluleFautive::ligne);
  if (faits.fautives.size() > kFautivesGardees) faits.fautives.resize(kFautivesGardees);
}

void Observation::ConclureNombres(FaitsDeColonne& faits, std::int64_t individus, bool premiere, char decimale) const {
  const std::int64_t virgules = nombres_[kVirgule];
  const std::int64_t points = nombres_[kPoint];
  faits.decimale = virgules + points == 0 ? decimale : virgules >= points ? ',' : '.';
  if (virgules > 0 && points > 0) {
    faits.decimale = decimale;
    return ConclureMelange(faits, {decimale == ',' ? kPoint : kVirgule});
  }
  // The other sign than the file's: its numbers may be thousands.
  if (faits.avecDecimales > 0 && faits.decimale != decimale && ambigus_ == faits.avecDecimales) {
    faits.decimale = decimale;
    return ConclureMelange(faits, {decimale == ',' ? kPoint : kVirgule});
  }
  if (zerosDevant_ > 0 && larges_ > 0) return ConclureTextes(faits);
  const bool codes = faits.avecDecimales == 0 && exposants_ == 0 && larges_ == 0;
  const bool suite = codes && faits.maximum == static_cast<double>(individus);
  const bool tousDifferents = faits.differentes == faits.remplies && faits.vides == 0 && individus > 1;
  faits.contenu = codes ? Contenu::Codes : Contenu::Nombres;
  if (premiere && (suite || (!codes && faits.avecDecimales == 0 && exposants_ == 0 && tousDifferents &&
                             EstTitreDeNumero(faits.intitule))))
    faits.contenu = Contenu::Numero;
}

void Observation::ConclureTextes(FaitsDeColonne& faits) const {
  if (longs_ > 0) faits.contenu = Contenu::TextesLongs;
  else if (faits.remplies > 1 && faits.differentes == faits.remplies - faits.nonReponses)
    faits.contenu = Contenu::TextesUniques;
  else if (faits.differentes > static_cast<std::int64_t>(kTextesCourts)) faits.contenu = Contenu::TextesLongs;
  else faits.contenu = Contenu::Textes;
}

FaitsDeColonne Observation::Conclure(std::string intitule, std::int64_t individus, bool premiere, char decimale) const {
  FaitsDeColonne faits;
  faits.intitule = std::move(intitule);
  faits.nonReponses = nonReponses_;
  const std::int64_t petits = Petits();
  const std::int64_t nombres = petits + entiers_ + nombres_[kVirgule] + nombres_[kPoint];
  const std::int64_t textes = nombres_[kTexte] + nombres_[kDate];
  faits.vides = individus - nombres - textes - nonReponses_;
  faits.remplies = nombres + textes + nonReponses_;
  faits.differentes = Differentes();
  if (!comble_) faits.valeurs = Valeurs();
  faits.decimale = decimale;
  faits.decimales = decimales_;
  faits.avecDecimales = nombres_[kVirgule] + nombres_[kPoint];
  faits.negatives = negatives_;
  faits.longues = longs_;
  faits.nonNumeriques = textes;
  bool avecBornes = avecBornes_;
  faits.largeur = largeur_;
  faits.largeurNombre = largeurNombre_;
  faits.minimum = minimum_;
  faits.maximum = maximum_;
  for (std::size_t i = 0; i < petits_.size(); ++i) {
    if (petits_[i] == 0) continue;
    const auto valeur = static_cast<double>(i);
    faits.minimum = avecBornes ? std::min(faits.minimum, valeur) : valeur;
    faits.maximum = avecBornes ? std::max(faits.maximum, valeur) : valeur;
    avecBornes = true;
    const std::size_t chiffres = i < 10 ? 1 : i < 100 ? 2 : 3;
    faits.largeur = std::max(faits.largeur, chiffres);
    faits.largeurNombre = std::max(faits.largeurNombre, chiffres);
  }
  if (nombres + textes == 0) {
    faits.contenu = Contenu::Vide;
  } else if (premiere && faits.intitule == kTitreNumero) {
    faits.contenu = Contenu::Numero;
  } else if (textes == 0) {
    ConclureNombres(faits, individus, premiere, decimale);
  } else if (pourcents_ == textes) {
    ConclureMelange(faits, {kTexte});
  } else if (nombres == 0 && nombres_[kTexte] == 0) {
    faits.contenu = Contenu::Dates;
  } else if (faits.liste = SigneDeListe(Valeurs(), faits.elements); faits.liste != '\0') {
    faits.contenu = Contenu::Listes;
  } else if (nombres == 0) {
    ConclureTextes(faits);
  } else if ((longs_ > 0 || Differentes() > static_cast<std::int64_t>(kTextesCourts)) && textes > nombres) {
    faits.contenu = Contenu::TextesLongs;
  } else {
    ConclureMelange(faits, {kTexte, kDate});
  }
  return faits;
}

}  // namespace quelvar::capture
