#include "capture/tableur/lecteur.h"

#include <iterator>
#include <memory>
#include <vector>

#include "capture/tableur/cellules.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

// True when a field of the line opens a quote that nothing closes.
bool GuillemetOuvert(std::string_view ligne, char separateur) {
  if (ligne.find('"') == std::string_view::npos) return false;
  bool debut = true;
  for (std::size_t i = 0; i < ligne.size(); ++i) {
    if (debut && ligne[i] == '"') {
      i = FinDesGuillemets(ligne, i);
      if (i == ligne.size()) return true;
      debut = false;
    } else {
      debut = separateur == '\0' ? ligne[i] == ';' || ligne[i] == '\t' : ligne[i] == separateur;
    }
  }
  return false;
}

}  // namespace

std::size_t FinDesGuillemets(std::string_view ligne, std::size_t i) {
  for (++i; i < ligne.size(); ++i) {
    if (ligne[i] != '"') continue;
    if (i + 1 == ligne.size() || ligne[i + 1] != '"') break;
    ++i;
  }
  return i;
}

LecteurTableur::LecteurTableur(const Chemin& source, char separateur)
    : LecteurTableur(
          [lecteur = std::make_shared<LecteurLignes>(source)](std::string_view& ligne) { return lecteur->Lire(ligne); },
          separateur) {}

bool LecteurTableur::LireUneLigne(std::string_view& ligne) {
  if (enAttente_.empty()) {
    if (!lignes_(ligne)) return false;
    ++lues_;
    return true;
  }
  ++lues_;
  rendue_ = std::move(enAttente_.front());
  enAttente_.pop_front();
  ligne = rendue_;
  return true;
}

// Joins the lines behind a line whose last field opens a quote, up to the one that closes it; without one the lines
// read ahead are given back one by one.
void LecteurTableur::JoindreSuite(std::string_view& ligne) {
  jointe_ = ligne;
  const std::size_t premiere = jointe_.size();
  std::vector<std::string> lues;
  for (bool ouvert = true; ouvert;) {
    if (lues.size() == kLignesJointes || jointe_.size() > kOctetsJoints || !LireUneLigne(ligne)) {
      jointe_.resize(premiere);
      if (sansFin_ == 0) sansFin_ = debut_;
      lues_ -= static_cast<std::int64_t>(lues.size());
      enAttente_.insert(enAttente_.begin(), std::make_move_iterator(lues.begin()), std::make_move_iterator(lues.end()));
      break;
    }
    jointe_.append(1, ' ').append(ligne);
    lues.emplace_back(ligne);
    ouvert = ligne.find('"') == std::string_view::npos || GuillemetOuvert(jointe_, separateur_);
  }
  ligne = jointe_;
}

bool LecteurTableur::LireOctetsDeLigne(std::string_view& ligne) {
  if (!LireUneLigne(ligne)) return false;
  debut_ = lues_;
  if (std::exchange(premiere_, false) && OterMarqueUtf8(ligne)) marque_ = true;
  if (guillemets_ && GuillemetOuvert(ligne, separateur_)) [[unlikely]]
    JoindreSuite(ligne);
  return true;
}

bool LecteurTableur::Lire(std::string_view& ligne, bool utf8) {
  if (!LireOctetsDeLigne(ligne)) return false;
  if (utf8 && !EstAscii(ligne)) {
    convertie_ = DepuisUtf8(ligne);
    ligne = convertie_;
  }
  return true;
}

bool LigneBlanche(std::string_view ligne) { return ligne.find_first_not_of(' ') == std::string_view::npos; }

bool LigneSansValeur(std::string_view ligne, char separateur) {
  std::size_t i = 0;
  while (i < ligne.size() && (ligne[i] == separateur || ligne[i] == ' ')) ++i;
  if (i == ligne.size()) return true;
  if (ligne[i] != '"') return false;
  LigneDeTableur cellules(ligne, separateur);
  for (std::string_view cellule; cellules.Suivante(cellule);)
    if (!Rogner(cellule).empty()) return false;
  return true;
}

}  // namespace quelvar::capture
