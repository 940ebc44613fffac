#include "capture/noms/courts.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "core/panne/erreur.h"
#include "core/programme/rapport.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kSansNom = "XXX";
constexpr std::string_view kChiffresEtLettres = "123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ0";
constexpr std::string_view kLettres = kChiffresEtLettres.substr(9, 26);
constexpr std::size_t kNomsLibres = kLettres.size() * kChiffresEtLettres.size() * kChiffresEtLettres.size();

bool EstAlphanumerique(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         static_cast<unsigned char>(c) >= 0xC0;
}

// Names are compared without the blanks around them, and filters and weightings take them in upper case.
std::string Cle(std::string_view nom) { return Majuscules(Rogner(nom)); }

class Nommeur {
 public:
  explicit Nommeur(const std::vector<Titre>& titres) {
    for (const Titre& titre : titres) ++demandes_[Cle(NomNaturel(titre.intitule))];
  }

  // A name that a .POS can hold and that no other title asks for.
  bool SeSuffit(const std::string& nom) const {
    return demandes_.at(Cle(nom)) == 1 && !Rogner(nom).empty() && nom.find('$') == std::string::npos &&
           nom.find(kFinDeListe) == std::string::npos;
  }

  std::string Distinguer(const Titre& titre) {
    std::string signes;
    for (const char c : titre.intitule)
      if (EstAlphanumerique(c)) signes += c;
    if (signes.empty()) signes = kSansNom;
    signes.resize(std::max(signes.size(), kNomCourtLePlusLong), 'X');
    if (Prendre(signes.substr(0, kNomCourtLePlusLong))) return pris_;
    for (const char c : kChiffresEtLettres)
      if (Prendre(signes.substr(0, 2) + c)) return pris_;
    for (; libre_ < kNomsLibres; ++libre_)
      if (Prendre(NomLibre(libre_))) return pris_;
    throw Erreur(kIndiceHorsSelection).Situer({{}, 0, static_cast<int>(titre.colonne)});
  }

 private:
  bool Prendre(std::string nom) {
    if (demandes_.contains(Cle(nom)) || !donnes_.insert(Cle(nom)).second) return false;
    pris_ = std::move(nom);
    return true;
  }

  // The names of a letter and two signs, in order.
  static std::string NomLibre(std::size_t rang) {
    constexpr std::size_t kSignes = kChiffresEtLettres.size();
    return {kLettres[rang / (kSignes * kSignes)], kChiffresEtLettres[rang / kSignes % kSignes],
            kChiffresEtLettres[rang % kSignes]};
  }

  std::map<std::string, int> demandes_;  // titles by the name that they ask for
  std::set<std::string> donnes_;
  std::string pris_;
  std::size_t libre_ = 0;  // no free name stands before this one
};

}  // namespace

std::string NomNaturel(const std::string& intitule) {
  return intitule.empty() ? std::string(kSansNom) : CadreDroit(intitule, kNomCourtLePlusLong);
}

std::vector<NomCourt> NommerTitres(const std::vector<Titre>& titres) {
  Nommeur nommeur(titres);
  std::vector<NomCourt> noms;
  for (const Titre& titre : titres) {
    std::string naturel = NomNaturel(titre.intitule);
    if (nommeur.SeSuffit(naturel)) noms.push_back({std::move(naturel), false});
    else noms.push_back({nommeur.Distinguer(titre), true});
  }
  return noms;
}

}  // namespace quelvar::capture
