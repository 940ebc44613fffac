#include "regression/anatab/fiches.h"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "core/calcul/hachage.h"
#include "core/calcul/tris.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/panne/erreur.h"
#include "core/texte/caracteres.h"

namespace quelvar::regression {

namespace {

constexpr std::size_t kTableInitiale = 1024;
constexpr std::size_t kDebutCodage = 4;  // bytes in front of the first modality
constexpr std::int64_t kPasDAffichage = 50000;
constexpr std::int64_t kFautifsCites = kFautifsDits + 1;  // with the one that shows that there are more

std::uint64_t Hacher(std::string_view fiche) {
  std::uint64_t hachage = kNombreDOr;
  for (; fiche.size() >= sizeof(std::uint64_t); fiche.remove_prefix(sizeof(std::uint64_t))) {
    std::uint64_t mot;
    std::memcpy(&mot, fiche.data(), sizeof mot);
    hachage = Meler(hachage, mot);
  }
  std::uint64_t mot = 0;
  std::memcpy(&mot, fiche.data(), fiche.size());
  return Meler(hachage, mot);
}

double ValeurDeFiche(std::string_view fiche) {
  if (fiche.size() <= kChiffresExacts && std::all_of(fiche.begin(), fiche.end(), EstChiffre)) {
    std::int64_t valeur = 0;
    for (const char c : fiche) valeur = 10 * valeur + (c - '0');
    return static_cast<double>(valeur);
  }
  return ValeurDe(fiche);
}

// The line of the first individual who has the record.
Lieu LieuDe(const Individus& individus, NumeroFiche fiche) {
  return {{}, std::find(individus.fiche.begin(), individus.fiche.end(), fiche) - individus.fiche.begin() + 1};
}

// Rank of the value of each distinct record, from 0; records of one value share it.
std::vector<std::uint32_t> RangsDesValeurs(const Individus& individus, bool& partagees) {
  std::vector<double> valeurs(individus.fiches.Nombre());
  for (NumeroFiche f = 0; f < valeurs.size(); ++f)
    Situer([&] { return LieuDe(individus, f); }, [&] { valeurs[f] = ValeurDeFiche(individus.fiches[f]); });
  std::vector<NumeroFiche> ordre(valeurs.size());
  std::iota(ordre.begin(), ordre.end(), NumeroFiche{0});
  std::sort(ordre.begin(), ordre.end(), [&](NumeroFiche a, NumeroFiche b) { return valeurs[a] < valeurs[b]; });
  std::vector<std::uint32_t> rangs(valeurs.size());
  partagees = false;
  for (std::size_t i = 1; i < ordre.size(); ++i) {
    const bool egales = valeurs[ordre[i]] == valeurs[ordre[i - 1]];
    partagees |= egales;
    rangs[ordre[i]] = rangs[ordre[i - 1]] + (egales ? 0 : 1);
  }
  return rangs;
}

// Where every record has a value of its own, equal keys are equal records: any sort gives the same order.
std::vector<NumeroFiche> TrierParComptage(const Individus& individus, const std::vector<std::uint32_t>& rangs) {
  std::vector<std::uint32_t> effectifs(rangs.size());
  for (const NumeroFiche f : individus.fiche) ++effectifs[f];
  std::vector<NumeroFiche> parRang(rangs.size());
  for (NumeroFiche f = 0; f < rangs.size(); ++f) parRang[rangs[f]] = f;
  std::vector<NumeroFiche> triees;
  triees.reserve(individus.fiche.size());
  for (auto f = parRang.rbegin(); f != parRang.rend(); ++f) triees.insert(triees.end(), effectifs[*f], *f);
  return triees;
}

}  // namespace

Fiches::Fiches(std::size_t largeur) : largeur_(largeur), table_(kTableInitiale) {}

std::size_t Fiches::Place(std::string_view fiche) const {
  std::size_t place = Hacher(fiche) & (table_.size() - 1);
  while (table_[place] != 0 && (*this)[table_[place] - 1] != fiche) place = (place + 1) & (table_.size() - 1);
  return place;
}

void Fiches::Agrandir() {
  std::vector<NumeroFiche> anciennes(2 * table_.size());
  anciennes.swap(table_);
  for (const NumeroFiche numero : anciennes)
    if (numero != 0) table_[Place((*this)[numero - 1])] = numero;
}

NumeroFiche Fiches::Ranger(std::string_view fiche) {
  const std::size_t place = Place(fiche);
  if (table_[place] != 0) return table_[place] - 1;
  octets_.insert(octets_.end(), fiche.begin(), fiche.end());
  const auto numero = static_cast<NumeroFiche>(Nombre());
  table_[place] = numero;
  if (2 * Nombre() > table_.size()) Agrandir();
  return numero - 1;
}

void LireIndividus(const Chemin& codageLogique, const Modele& modele, const Dialogue& ecran, Individus& individus) {
  const std::size_t modalites = modele.codage.size();
  const auto questions = static_cast<int>(modele.questions.size());
  LecteurIndividus lecteur(codageLogique, kDebutCodage + modalites);
  std::string fiche(modele.LargeurFiche(), ' ');
  for (const char* ligne = lecteur.Lire(); ligne != nullptr; ligne = lecteur.Lire()) {
    const char* codage = ligne + kDebutCodage;
    int reponses = 0;
    for (std::size_t i = 0; i < modalites; ++i) reponses += ValeurDuCaractere(codage[i]);
    for (std::size_t k = 0; k < modele.Explicatives(); ++k) fiche[k] = codage[modele.explicatives[k]];
    const char y = codage[modele.aExpliquer];
    fiche[fiche.size() - 2] = y;
    fiche[fiche.size() - 1] = y == '1' ? '0' : '1';
    if (y == '1') ++individus.oui;
    individus.fiche.push_back(individus.fiches.Ranger(fiche));
    const std::int64_t rang = individus.Nombre();
    if (reponses != questions) individus.fautifs.Noter(rang, kFautifsCites, lecteur.Lignes().Ou());
    if (rang % kPasDAffichage == 0) ecran.montrerIteration(Joindre({"Lecture individus : ", Nombre(rang)}));
  }
}

std::vector<NumeroFiche> TrierFiches(const Individus& individus, const Dialogue& ecran) {
  bool partagees = false;
  const std::vector<std::uint32_t> rangs = RangsDesValeurs(individus, partagees);
  if (!partagees) return TrierParComptage(individus, rangs);

  struct Cle {
    std::uint32_t rang;
    NumeroFiche fiche;
  };
  std::vector<Cle> cles;
  cles.reserve(individus.fiche.size());
  for (const NumeroFiche f : individus.fiche) cles.push_back({rangs[f], f});
  TrierParTas(
      std::span(cles), [](const Cle& a, const Cle& b) { return a.rang > b.rang; },
      [&](std::size_t reste) {
        if (static_cast<std::int64_t>(reste) % kPasDAffichage == 0)
          ecran.montrerIteration(Joindre({"Il reste ", Nombre(reste), " à trier"_w}));
      });
  std::vector<NumeroFiche> triees(cles.size());
  std::transform(cles.begin(), cles.end(), triees.begin(), [](const Cle& cle) { return cle.fiche; });
  return triees;
}

std::vector<Comptee> CompterVoisines(const std::vector<NumeroFiche>& triees) {
  std::vector<Comptee> comptees;
  for (const NumeroFiche f : triees) {
    if (comptees.empty() || comptees.back().fiche != f) comptees.push_back({f, 0});
    ++comptees.back().effectif;
  }
  return comptees;
}

std::vector<Comptee> GarderLesPaires(const std::vector<Comptee>& comptees, const Fiches& fiches) {
  std::vector<Comptee> paires;
  for (std::size_t i = 0; i + 1 < comptees.size(); ++i) {
    if (fiches.Situation(comptees[i].fiche) != fiches.Situation(comptees[i + 1].fiche)) continue;
    paires.push_back(comptees[i]);
    paires.push_back(comptees[++i]);
  }
  return paires;
}

std::optional<Melange> MelangeDesFiches(const Individus& individus, const std::vector<Comptee>& comptees,
                                        double possibles) {
  const Fiches& fiches = individus.fiches;
  Fiches situations(fiches.Largeur() - 2);
  std::vector<NumeroFiche> situationDe;
  for (NumeroFiche f = 0; f < fiches.Nombre(); ++f) situationDe.push_back(situations.Ranger(fiches.Situation(f)));

  Melange melange{situations.Nombre(), 0, 0, 0};
  for (std::size_t i = 0; i < comptees.size(); ++i) {
    if (i == 0 || situationDe[comptees[i].fiche] != situationDe[comptees[i - 1].fiche]) ++melange.morceaux;
    else if (fiches.Oui(comptees[i].fiche)) ++melange.inversees;
  }
  if (comptees.size() == fiches.Nombre() && melange.morceaux == melange.situations && melange.inversees == 0)
    return std::nullopt;

  struct Effectifs {
    std::int64_t oui = 0;
    std::int64_t non = 0;
  };
  std::vector<Effectifs> effectifs(situations.Nombre());
  for (const NumeroFiche f : individus.fiche)
    ++(fiches.Oui(f) ? effectifs[situationDe[f]].oui : effectifs[situationDe[f]].non);
  const bool toutes = static_cast<double>(fiches.Nombre()) == possibles;
  for (const auto& [oui, non] : effectifs)
    if (toutes || (oui > 0 && non > 0)) melange.population += oui + non;
  return melange;
}

}  // namespace quelvar::regression
