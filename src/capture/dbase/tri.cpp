#include "capture/dbase/tri.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "core/chiffres/nombres.h"
#include "core/texte/caracteres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kCodesDUnOctet = 10;
using Limites = std::numeric_limits<std::int16_t>;

bool EstImpropre(char c) { return c != ' ' && (c < '0' || c > '9'); }

// Eight bytes at a time: digits and blanks are what most lines are made of.
bool AvecImpropre(const char* ligne, std::size_t longueur) {
  constexpr std::uint64_t kAuDelaDeNeuf = HuitFois(SeuilDe(9));
  constexpr std::uint64_t kAuDelaDeZero = HuitFois(SeuilDe(0));
  std::size_t i = 0;
  for (; i + 8 <= longueur; i += 8) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, ligne + i, 8);
    const std::uint64_t chiffres = mot ^ HuitFois('0');  // zero to nine for a digit
    const std::uint64_t blancs = mot ^ HuitFois(' ');    // 0 for a blank
    if ((AuDela(chiffres, kAuDelaDeNeuf) & AuDela(blancs, kAuDelaDeZero)) != 0) return true;
  }
  return std::any_of(ligne + i, ligne + longueur, EstImpropre);
}

}  // namespace

CompteurDeChamps::CompteurDeChamps(std::span<const Champ> champs)
    : champs_(champs.size()), tous_(champs.begin(), champs.end()), impropres_(champs.size()) {
  for (const Champ& champ : champs) longueur_ = std::max<std::size_t>(longueur_, champ.debut + champ.largeur);
  for (std::size_t i = 0; i < champs.size(); ++i) {
    Groupe& groupe = champs[i].largeur == 1 ? un_ : champs[i].largeur == 2 ? deux_ : trois_;
    groupe.debuts.push_back(champs[i].debut);
    groupe.rangs.push_back(i);
  }
  un_.effectifs.resize(un_.rangs.size() * kCodesDUnOctet);
  deux_.effectifs.resize(deux_.rangs.size() * kCodesDeDeuxChiffres);
  trois_.effectifs.resize(trois_.rangs.size() * kCodesDeDeuxChiffres);
  codesMax_.resize(trois_.rangs.size());
}

void CompteurDeChamps::Compter(const char* ligne) {
  static const std::array<std::uint8_t, 256>& unOctet = ValeursDUnOctet();
  static const std::array<std::int8_t, 65536>& deuxOctets = ValeursDeDeuxOctets();
  std::int64_t* effectifs = un_.effectifs.data();
  for (const std::uint32_t debut : un_.debuts) {
    ++effectifs[unOctet[static_cast<unsigned char>(ligne[debut])]];
    effectifs += kCodesDUnOctet;
  }
  effectifs = deux_.effectifs.data();
  for (const std::uint32_t debut : deux_.debuts) {
    const std::size_t octets =
        static_cast<unsigned char>(ligne[debut]) + 256U * static_cast<unsigned char>(ligne[debut + 1]);
    ++effectifs[std::max<int>(deuxOctets[octets], 0)];
    effectifs += kCodesDeDeuxChiffres;
  }
  if (!trois_.debuts.empty()) CompterTrois(ligne);
  ++lignes_;
  if (!surveilles_.empty() && AvecImpropre(ligne, longueur_)) VoirImpropres(ligne);
}

void CompteurDeChamps::VoirImpropres(const char* ligne) {
  for (const std::size_t i : surveilles_) {
    const std::string_view texte(ligne + tous_[i].debut, tous_[i].largeur);
    if (std::none_of(texte.begin(), texte.end(), EstImpropre)) continue;
    if (impropres_[i].nombre++ > 0) continue;
    impropres_[i].premier = lignes_;
    impropres_[i].exemple = Rogner(texte);
  }
}

void CompteurDeChamps::CompterTrois(const char* ligne) {
  for (std::size_t i = 0; i < trois_.debuts.size(); ++i) {
    const std::string_view texte(ligne + trois_.debuts[i], 3);
    const double valeur = ArrondirPair(ValeurDe(texte));
    std::size_t code = 0;
    if (valeur > Limites::max() || valeur < Limites::min()) {
      ++impossibles_;
    } else {
      codesMax_[i] = std::max(codesMax_[i], static_cast<int>(valeur));
      if (valeur > 0 && valeur < static_cast<double>(kCodesDeDeuxChiffres)) code = static_cast<std::size_t>(valeur);
    }
    ++trois_.effectifs[i * kCodesDeDeuxChiffres + code];
  }
}

std::vector<TriDeChamp> CompteurDeChamps::Tris() const {
  std::vector<TriDeChamp> tris(champs_);
  const auto verser = [&](const Groupe& groupe, std::size_t codes) {
    for (std::size_t i = 0; i < groupe.rangs.size(); ++i) {
      TriDeChamp& tri = tris[groupe.rangs[i]];
      const auto debut = groupe.effectifs.begin() + static_cast<std::ptrdiff_t>(i * codes);
      tri.effectifs.assign(debut, debut + static_cast<std::ptrdiff_t>(codes));
      for (std::size_t code = 0; code < codes; ++code)
        if (tri.effectifs[code] > 0) tri.codeMax = static_cast<int>(code);
    }
  };
  verser(un_, kCodesDUnOctet);
  verser(deux_, kCodesDeDeuxChiffres);
  verser(trois_, kCodesDeDeuxChiffres);
  for (std::size_t i = 0; i < codesMax_.size(); ++i) {
    int& codeMax = tris[trois_.rangs[i]].codeMax;
    codeMax = std::max(codeMax, codesMax_[i]);
  }
  for (std::size_t i = 0; i < impropres_.size(); ++i) {
    tris[i].impropres = impropres_[i].nombre;
    tris[i].premierImpropre = impropres_[i].premier;
    tris[i].exemple = impropres_[i].exemple;
  }
  return tris;
}

}  // namespace quelvar::capture
