// What a column holds, from what its cells have added up to.
#include <algorithm>
#include <numeric>
#include <utility>

#include "capture/apercu/observation/listes.h"
#include "capture/apercu/observation/mots.h"
#include "capture/apercu/observation/observation.h"
#include "capture/colonnes/colonne.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

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
    const std::size_t chiffres = Nombre(i).size();
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
  const bool entiers =
      mesures.fractions == 0 && mesures.minimum >= -kPlusGrandCode && mesures.maximum <= kPlusGrandCode;
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
  if (!etrangeres_.Vide()) faits.confondus = etrangeres_.Confondus(faits.liste, Valeurs());
  return faits;
}

}  // namespace quelvar::capture
