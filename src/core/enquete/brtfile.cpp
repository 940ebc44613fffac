#include "core/enquete/brtfile.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

// An integer right-aligned in the width, whole when longer.
void EcrireEntier(Ecrivain& fichier, std::int64_t valeur, int largeur) {
  char chiffres[24];  // as many as 64 bits need, and a sign
  const auto [fin, _] = std::to_chars(chiffres, chiffres + sizeof chiffres, valeur);
  const auto longueur = static_cast<std::size_t>(fin - chiffres);
  for (std::size_t i = longueur; i < static_cast<std::size_t>(std::max(largeur, 0)); ++i) fichier.Ecrire(' ');
  fichier.Ecrire(std::string_view(chiffres, longueur));
}

}  // namespace

void LireLigneBrt(std::string_view texte, int colonnes, int largeur, LigneBrt& ligne) {
  if (largeur < 1) throw Erreur(kArgumentIncorrect);
  const auto w = static_cast<std::size_t>(largeur);
  ligne.nom = CadreGauche(texte.substr(0, kLargeurDeModalite), kLargeurDeModalite);
  ligne.cellules.resize(static_cast<std::size_t>(std::max(colonnes, 0)));
  std::size_t colonne = kLargeurDeModalite + 1;
  Situer(
      [&] {
        return Lieu{{}, 0, static_cast<int>(colonne)};
      },
      [&] {
        for (double& cellule : ligne.cellules) {
          cellule = ValeurDe(Milieu(texte, colonne, w));
          colonne += w;
        }
      });
  ligne.intitule = Rogner(Milieu(texte, colonne)).substr(0, kIntituleDeModaliteAuPlus);
}

bool EstEffectif(std::string_view cellule, std::size_t largeur) {
  if (cellule.size() != largeur) return false;
  if (SontChiffresOuBlancs(cellule)) return true;
  return EstNombre(cellule) && ValeurDe(cellule) >= 0 && ValeurDe(cellule) == ArrondirPair(ValeurDe(cellule));
}

void EcrireLigneBrt(Ecrivain& fichier, std::string_view nom, std::span<const std::int64_t> cellules, int largeur,
                    std::string_view intitule) {
  fichier.Ecrire(CadreGauche(nom, kLargeurDeModalite));
  for (const std::int64_t cellule : cellules) EcrireEntier(fichier, cellule, largeur);
  fichier.Ligne(intitule);
}

int LargeurDeTable(std::int64_t plusGrandeCellule) { return static_cast<int>(Nombre(plusGrandeCellule).size()); }

namespace {

// Two numbers where the next two cells would stand: a label hardly begins so in every row.
bool EstSuiviDeCellules(std::string_view reste, std::size_t largeur) {
  if (reste.size() < 2 * largeur) return false;
  for (const std::size_t place : {std::size_t{0}, largeur}) {
    const std::string_view nombre = Rogner(reste.substr(place, largeur));
    if (!SontChiffres(nombre)) return false;
  }
  return true;
}

}  // namespace

ControleDeBurt::ControleDeBurt(const Chemin& brt, std::size_t colonnes, int largeur)
    : brt_(brt),
      largeur_(static_cast<std::size_t>(std::max(largeur, 0))),
      longueur_(kLargeurDeModalite + colonnes * largeur_) {}

void ControleDeBurt::Voir(std::string_view texte, std::string_view nomAttendu) {
  ++rang_;
  const std::string_view nom = Rogner(texte.substr(0, kLargeurDeModalite));
  if (!nom.empty() && nom != Rogner(nomAttendu))
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgrammeSansAccents, TexteDe(brt_.filename()),
                          " ne va pas avec le fichier de modalités, la ligne "_w, Nombre(rang_), " porte le nom ", nom,
                          " au lieu de ", Rogner(nomAttendu), " : refaites le tableau"}))
        .Situer({TexteDe(brt_.filename()), rang_});
  toutesCourtes_ = toutesCourtes_ && texte.size() < longueur_;
  const std::string_view reste = texte.substr(std::min(longueur_, texte.size()));
  const bool desChiffres = SontChiffresOuBlancs(reste) && !Rogner(reste).empty();
  toutesLongues_ = toutesLongues_ && (desChiffres || EstSuiviDeCellules(reste, largeur_));
}

void ControleDeBurt::Conclure() const {
  if (rang_ == 0 || (!toutesCourtes_ && !toutesLongues_)) return;
  throw Erreur(kIncompatibiliteType,
               Joindre({kArretDuProgrammeSansAccents, TexteDe(brt_.filename()),
                        " ne va pas avec le fichier de modalités, ses lignes sont plus "_w,
                        std::string_view(toutesCourtes_ ? "courtes" : "longues"),
                        " que ne le disent le nombre de modalités et FMT= : refaites le tableau"_w}))
      .Situer({.fichier = TexteDe(brt_.filename())});
}

namespace {

// As SontChiffresOuBlancs, in blocks that a compiler takes at once: nearly every row of a large table is of digits and
// blanks alone.
bool SansAutreSigne(std::string_view texte) {
  constexpr std::size_t kBloc = 32;
  std::array<unsigned char, kBloc> autres{};
  for (; texte.size() >= kBloc; texte.remove_prefix(kBloc)) {
    const char* const bloc = texte.data();
    for (std::size_t k = 0; k < kBloc; ++k)
      autres[k] = static_cast<unsigned char>(autres[k] | ((bloc[k] < '0' || bloc[k] > '9') & (bloc[k] != ' ')));
  }
  return std::ranges::all_of(autres, [](unsigned char autre) { return autre == 0; }) && SontChiffresOuBlancs(texte);
}

}  // namespace

ExamenDesCellules::ExamenDesCellules(CellulesAttendues attendues, std::size_t colonnes, int largeur)
    : attendues_(attendues), colonnes_(colonnes), largeur_(static_cast<std::size_t>(std::max(largeur, 0))) {}

bool ExamenDesCellules::EstAttendue(std::string_view cellule) const {
  if (attendues_ == CellulesAttendues::Effectifs) return EstEffectif(cellule, largeur_);
  return cellule.size() == largeur_ && (Rogner(cellule).empty() || EstNombre(cellule));
}

void ExamenDesCellules::Voir(std::string_view texte, std::int64_t ligne) {
  const std::string_view cellules = texte.substr(std::min<std::size_t>(kLargeurDeModalite, texte.size()));
  if (cellules.size() >= colonnes_ * largeur_ && SansAutreSigne(cellules.substr(0, colonnes_ * largeur_))) return;
  for (std::size_t j = 0; j < colonnes_; ++j) {
    const std::string_view cellule = cellules.substr(std::min(j * largeur_, cellules.size()), largeur_);
    if (EstAttendue(cellule) || nombre_++ > 0) continue;
    premiere_ = Joindre({"ligne ", Nombre(ligne), ", colonne ", Nombre(j + 1), " (", Rogner(cellule), ")"});
  }
}

void ExamenDesCellules::VoirAuDela(std::string_view texte) {
  if (!Rogner(texte).empty()) ++audela_;
}

void ExamenDesCellules::Dire(std::string_view nomBrt, Constats& constats) const {
  const bool effectifs = attendues_ == CellulesAttendues::Effectifs;
  if (nombre_ > 0)
    constats.Boite(
        Joindre({"Cellules de ", nomBrt,
                 effectifs ? " qui ne sont pas des nombres entiers positifs ou nuls, ou sont coupées : "_w
                           : " qui ne sont pas des nombres, ou sont coupées : "_w,
                 Nombre(nombre_), ", la première "_w, premiere_, ". ",
                 effectifs ? "Un nombre négatif ou à décimales est pris tel quel, un"_w : std::string_view("Un"),
                 " texte compte pour 0 ou jusqu'au premier signe de trop : ",
                 std::string_view(effectifs ? "refaites" : "corrigez"), " le tableau"}));
  if (audela_ > 0)
    constats.Boite(Joindre(
        {kAttention, "lignes de ", nomBrt, " au-delà de celles qui sont annoncées, laissées : "_w, Nombre(audela_)}));
}

}  // namespace quelvar
