#include "factor/provenance/individus.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/posfile.h"
#include "factor/fichiers/cellules.h"
#include "factor/provenance/table.h"

namespace quelvar::factor {

namespace {

// The columns of a table of individuals that codes of questions make: which question, which code.
struct ColonneCodee {
  std::size_t colonne = 0;
  std::size_t question = 0;
  int code = 0;
};

std::vector<ColonneCodee> ColonnesCodees(const FichierPos& pos, const std::vector<Modalite>& modalites) {
  std::unordered_map<std::string, std::pair<std::size_t, int>> codes;  // a name that two codes have counts for none
  constexpr std::pair<std::size_t, int> kAmbigu{0, -1};
  for (std::size_t q = 0; q < pos.questions.size(); ++q)
    for (int code = 0; code <= std::min(pos.questions[q].codeMax, kDernierCodeNomme); ++code) {
      const auto [place, neuf] = codes.emplace(NomDeModalite(pos.questions[q].nom, code), std::pair{q, code});
      if (!neuf) place->second = kAmbigu;
    }
  std::vector<ColonneCodee> colonnes;
  for (std::size_t j = 0; j < modalites.size(); ++j)
    if (const auto trouve = codes.find(modalites[j].nom); trouve != codes.end() && trouve->second != kAmbigu)
      colonnes.push_back({j, trouve->second.first, trouve->second.second});
  return colonnes;
}

}  // namespace

std::optional<IndividuDiscordant> ChercherIndividuDiscordant(const Contexte& contexte) {
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  const std::optional<Chemin> cdg = contexte.Chercher(".CDG");
  const std::optional<TablePresente> table = LireTablePresente(contexte);
  if (!donnees || !chemin || !table || (!cdg && table->parametres.burt != 1)) return std::nullopt;
  const FichierPos pos = LirePos(*chemin);
  const std::vector<ColonneCodee> colonnes = ColonnesCodees(pos, table->mod.modalites);
  const std::vector<Champ> champs = ChampsDe(pos);
  const auto largeur = cdg ? std::size_t{1} : static_cast<std::size_t>(table->parametres.largeur);
  LecteurLignes codage(cdg ? *cdg : table->brt);
  std::string_view ligne;
  for (std::size_t i = 0; !cdg && i < table->colonnes; ++i) codage.Lire(ligne);
  LecteurIndividus lecteur(*donnees, LongueurUtile(champs));
  const char* individu = nullptr;
  for (std::int64_t numero = 1; codage.Lire(ligne) && (individu = lecteur.Lire()) != nullptr; ++numero)
    for (const ColonneCodee& colonne : colonnes) {
      const int code = LireChampInterieur(individu, champs[colonne.question]);
      if (code < 0 || code > pos.questions[colonne.question].codeMax) continue;
      if ((ValeurDe(CelluleDeLigne(ligne, colonne.colonne, largeur)) != 0) != (code == colonne.code))
        return IndividuDiscordant{numero, pos.questions[colonne.question].nom, contexte.Nom(cdg ? ".CDG" : ".BRT")};
    }
  return std::nullopt;
}

}  // namespace quelvar::factor
