#include "capture/apercu/choix/refus.h"

#include <algorithm>

#include "capture/apercu/choix/textes.h"
#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/nomdemodalite.h"
#include "core/texte/listes.h"

namespace quelvar::capture {

namespace {

// "*** Erreur : colonne 3 Age, " and what is wrong there.
std::string ErreurDeColonne(std::size_t numero, const FaitsDeColonne& colonne, std::initializer_list<Texte> faute) {
  return Joindre({"*** Erreur : colonne ", Nombre(numero), " ", colonne.intitule, ", ", Joindre(faute)});
}

// A cell that is no number and that the choice gives a code to.
bool EstPrevue(const ChoixDeColonne& choix, std::string_view cellule) {
  return EstParmi(choix.nonReponses, cellule) || (choix.genre == Genre::Codes && EstParmi(choix.textes, cellule));
}

// Faulty cells that the choice gives no code to.
void RefuserCellules(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::size_t numero,
                     std::vector<std::string>& refus) {
  const std::size_t avant = refus.size();
  for (const CelluleFautive& cellule : colonne.fautives) {
    if (EstPrevue(choix, cellule.valeur)) continue;
    refus.push_back(ErreurDeColonne(numero, colonne,
                                    {"ligne ", Nombre(cellule.ligne), " : \"", cellule.valeur, "\" ",
                                     RaisonDuRefus(choix, colonne, cellule.valeur)}));
  }
  const auto gardees = static_cast<std::int64_t>(colonne.fautives.size());
  if (refus.size() > avant && colonne.fautes > gardees)
    refus.push_back(ErreurDeColonne(numero, colonne, {"et ", Nombre(colonne.fautes - gardees), " autres cellules"}));
}

}  // namespace

bool SansBornes(const ChoixDeColonne& choix) {
  return choix.genre == Genre::Classes && choix.bornes.empty() && choix.groupes == 0;
}

std::int64_t FautesRestantes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const auto admises =
      std::ranges::count_if(colonne.fautives, [&](const CelluleFautive& c) { return EstPrevue(choix, c.valeur); });
  return colonne.fautes - admises;
}

std::string_view RaisonDuRefus(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::string_view cellule) {
  const bool decimales = choix.genre == Genre::Nombres || choix.genre == Genre::Classes;
  if (const std::optional<NombreDeCellule> nombre = LireNombre(cellule); decimales && nombre) {
    if (colonne.decimaleDonnee) return "n'a pas le signe décimal donné : changez-le, ou donnez l'autre"_w;
    return nombre->EstAmbigu()
               ? "peut avoir des décimales ou des milliers : donnez decimale=virgule ou decimale=point"_w
               : "a un autre signe décimal que d'autres nombres de sa colonne : écrivez-les tous avec le même"_w;
  }
  switch (choix.genre) {
    case Genre::Codes: return "n'est pas un code";
    case Genre::Multiple: return "n'est pas une réponse connue"_w;
    case Genre::Textes: return "n'a pas de code";
    default: return "n'est pas un nombre";
  }
}

std::vector<std::string> RefusDesTextes(const std::vector<ChoixDeColonne>& choix,
                                        const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<std::string> refus;
  for (std::size_t j = 0; j < std::min(choix.size(), colonnes.size()); ++j) {
    if (choix[j].genre != Genre::Textes && choix[j].genre != Genre::Multiple) continue;
    for (const TexteConfondu& confondu : colonnes[j].confondus) {
      if (EstParmi(choix[j].nonReponses, confondu.texte)) continue;
      std::vector<std::string> lignes;
      for (const std::int64_t ligne : confondu.lignes) lignes.push_back(Nombre(ligne));
      refus.push_back(ErreurDeColonne(
          j + 1, colonnes[j],
          {"ligne ", Enumerer(lignes), " : des textes différents s'écriraient tous \""_w, confondu.texte,
           "\", Windows-1252 n'a pas leurs caractères : remplacez-les, ou mettez la colonne en textes longs ou de "
           "côté"_w}));
    }
  }
  return refus;
}

std::vector<std::string> RefusDesChoix(const std::vector<ChoixDeColonne>& choix,
                                       const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<std::string> refus = RefusDesTextes(choix, colonnes);
  for (std::size_t j = 0; j < std::min(choix.size(), colonnes.size()); ++j) {
    const FaitsDeColonne& colonne = colonnes[j];
    const bool enNombres =
        choix[j].genre == Genre::Codes || choix[j].genre == Genre::Classes || choix[j].genre == Genre::Nombres;
    if (enNombres) RefuserCellules(choix[j], colonne, j + 1, refus);
    if (choix[j].genre == Genre::Textes && TextesACoder(choix[j], colonne) > kDernierCodeNomme)
      refus.push_back(ErreurDeColonne(j + 1, colonne,
                                      {Nombre(TextesACoder(choix[j], colonne)), " textes différents pour "_w,
                                       Nombre(kDernierCodeNomme), " codes"}));
    if (SansBornes(choix[j]))
      refus.push_back(ErreurDeColonne(j + 1, colonne, {"les classes n'ont pas de bornes : des nombres croissants"_w}));
  }
  return refus;
}

}  // namespace quelvar::capture
