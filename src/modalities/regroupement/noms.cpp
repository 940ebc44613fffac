// The names that a grouping gives, and what is told of it beforehand.
#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/texte/listes.h"
#include "modalities/regroupement/modifburt.h"

namespace quelvar::modalities {

namespace {

std::string EnumererRognes(const std::vector<std::string>& noms) {
  std::vector<std::string_view> rognes;
  for (const std::string& nom : noms) rognes.push_back(RognerDroite(nom));
  return Enumerer(rognes);
}

}  // namespace

std::string NomCourtDeGroupe(std::string_view nom) {
  std::string court(nom.substr(0, kLargeurDeModalite));
  court.resize(kLargeurDeModalite, '0');
  return court;
}

std::string RefusDuNom(const OptionsModifBurt& options, const std::vector<std::string>& colonnes,
                       const std::vector<std::string>& lignes) {
  const auto refus = [](std::string_view quoi, const std::vector<std::string>& marques, const std::string& nom,
                        const std::vector<std::string>& tous) -> std::string {
    if (marques.empty()) return {};
    const std::string court = NomCourtDeGroupe(nom);
    const auto porte = [](std::string_view cherche) {
      return [cherche](const std::string& autre) { return Rogner(autre) == Rogner(cherche); };
    };
    if (FinitLesModalites(court))
      return Joindre({"Le nom court \"", court, "\" du regroupement finirait la liste des modalités : "_w,
                      "donnez un autre nom au regroupement"});
    const bool pris = std::any_of(tous.begin(), tous.end(), porte(court)) &&
                      std::none_of(marques.begin(), marques.end(), porte(court));
    if (!pris) return {};
    return Joindre({"Le nom court ", court, " du regroupement est déjà celui d'une "_w, quoi,
                    " du tableau : donnez un autre nom au regroupement"});
  };
  const std::string colonne = refus("colonne", options.colonnes, options.nomColonne, colonnes);
  return colonne.empty() ? refus("ligne", options.lignes, options.nomLigne, lignes) : colonne;
}

std::string AnnonceDuRegroupement(const OptionsModifBurt& options) {
  std::string annonce;
  const auto ajouter = [&](std::string_view quoi, const std::vector<std::string>& noms, const std::string& nom) {
    if (noms.empty()) return;
    if (!annonce.empty()) annonce += "\r\n";
    annonce += Joindre({quoi, EnumererRognes(noms), "\r\n   sous le nom ", NomCourtDeGroupe(nom), " (", nom, ")"});
  };
  ajouter("Colonnes qui vont être regroupées : "_w, options.colonnes, options.nomColonne);
  ajouter("Lignes qui vont être regroupées : "_w, options.lignes, options.nomLigne);
  return annonce;
}

}  // namespace quelvar::modalities
