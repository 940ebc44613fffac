#include "core/enquete/examendescellules.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/colonnes.h"
#include "core/panne/attention.h"
#include "core/texte/caracteres.h"

namespace quelvar {

ExamenDesCellules::ExamenDesCellules(CellulesAttendues attendues, std::size_t colonnes, int largeur)
    : attendues_(attendues), colonnes_(colonnes), largeur_(static_cast<std::size_t>(std::max(largeur, 0))) {}

bool ExamenDesCellules::EstAttendue(std::string_view cellule) const {
  if (attendues_ == CellulesAttendues::Effectifs) return EstEffectif(cellule, largeur_);
  return cellule.size() == largeur_ && (Rogner(cellule).empty() || EstNombre(cellule));
}

void ExamenDesCellules::Voir(std::string_view texte, std::int64_t ligne) {
  const std::string_view cellules = texte.substr(std::min<std::size_t>(kLargeurDeModalite, texte.size()));
  // Nearly every row of a large table is of digits alone.
  if (cellules.size() >= colonnes_ * largeur_ && SontChiffresOuBlancs(cellules.substr(0, colonnes_ * largeur_))) return;
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
