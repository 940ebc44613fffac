#include "text/concordance/recherche.h"

#include <algorithm>
#include <iterator>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/texte/listes.h"
#include "text/commun/lignedemot.h"
#include "text/gestion/motsdeslignes.h"
#include "text/gestion/nomsdeslignes.h"

namespace quelvar::text {

namespace {

// Lines of all the words, each counted once.
std::int64_t LignesTrouvees(const MotsCherches& cherches, const std::vector<MotTrouve>& trouves) {
  std::int64_t lignes = 0;
  for (const MotTrouve& trouve : trouves)
    if (std::ranges::any_of(cherches.mots, [&](const std::string& mot) { return EstLeMot(trouve, mot); }))
      lignes += trouve.lignes;
  return lignes;
}

std::string FrequenceDite(const MotsCherches& cherches) {
  return cherches.frequence ? Joindre({" (fréquence "_w, Nombre(*cherches.frequence), ")"}) : std::string();
}

// Why the words behind a label are not known.
std::string SansLesMots(const Contexte& contexte) {
  const std::string nom = contexte.Nom(kMotsDesLignes);
  return contexte.Chercher(kMotsDesLignes)
             ? Joindre({nom, ", qui dit les mots d'une ligne agrégée, ne va pas avec "_w, contexte.Nom(".BRT")})
             : Joindre({nom, ", qui dit les mots d'une ligne agrégée, n'existe pas"_w});
}

// Of a row that was asked for.
std::vector<std::string> RemarquesSurLaLigne(const Contexte& contexte, const MotsCherches& ligne,
                                             std::int64_t trouvees) {
  if (ligne.frequence ? *ligne.frequence == trouvees : ligne.connus) return {};
  const std::string debut = Joindre({kAttention, "la ligne ", ligne.nom, " du tableau", FrequenceDite(ligne)});
  if (ligne.connus)
    return {Joindre({debut, " et ses mots (", Nombre(trouvees),
                     " ligne(s)) ne vont pas ensemble : ce tableau n'est "
                     "pas celui de ces mots"})};
  const std::string_view montres =
      ligne.mots.size() > 1 ? ", seuls les mots de son nom sont montrés ("_w : ", seul le mot lui-même est montré ("_w;
  return {Joindre({debut, montres, Nombre(trouvees), " ligne(s))"}), Joindre({"    ", SansLesMots(contexte)})};
}

// Of a word that is the name of a merged row too.
std::vector<std::string> RemarquesSurLeMot(const Contexte& contexte, const MotsCherches& mot, const MotsCherches& ligne,
                                           std::int64_t trouvees) {
  if (!ligne.connus) return RemarquesSurLaLigne(contexte, ligne, trouvees);
  if (ligne.mots.size() == 1 && CadreGauche(ligne.mots[0], kLargeurMot) == CadreGauche(mot.nom, kLargeurMot)) return {};
  return {Joindre({"Ce sont les lignes du mot ", mot.nom, " seul ; la ligne ", ligne.nom, " du tableau",
                   FrequenceDite(ligne), " réunit :"_w}),
          Joindre({"    ", Enumerer(ligne.mots)})};
}

}  // namespace

std::vector<MotsCherches> CherchesDesMots(const std::vector<std::string>& mots) {
  std::vector<MotsCherches> cherches;
  for (const std::string& mot : mots) cherches.push_back({mot, {mot}});
  return cherches;
}

MotsCherches CherchesDeLaLigne(const LigneDeTable& ligne) {
  const bool codee = PorteUnCode(ligne.intitule) && ligne.mots.empty();
  return {std::string(codee ? MotDeLIntitule(ligne.intitule) : Rogner(ligne.intitule)), MotsDeLaLigne(ligne), true,
          MotsSontConnus(ligne), FrequenceDeLaLigne(ligne)};
}

LignesCherchees CherchesDesLignes(const Contexte& contexte, const std::vector<std::string>& noms) {
  if (noms.empty()) return {};
  const TableOuverte ouverte = OuvrirTable(contexte);
  if (!ouverte.message.empty()) return {.fautes = ouverte.message, .ou = ouverte.ou};
  LignesCherchees lignes;
  const NomsDesLignes nomsDeLaTable(ouverte.table.lignes);
  for (const std::string& nom : noms) {
    const LigneTrouvee trouvee = nomsDeLaTable.Trouver(nom);
    if (!trouvee.faute.empty()) return {.fautes = {trouvee.faute}};
    lignes.cherches.push_back(CherchesDeLaLigne(ouverte.table.lignes[trouvee.rang]));
  }
  return lignes;
}

bool EstLeMot(const MotTrouve& trouve, std::string_view mot) {
  return CadreGauche(trouve.mot, kLargeurMot) == CadreGauche(mot, kLargeurMot);
}

std::vector<std::string> RemarquesSurLesLignes(const Contexte& contexte, const std::vector<MotsCherches>& cherches,
                                               const std::vector<MotTrouve>& trouves) {
  std::vector<std::string> remarques;
  const auto dire = [&](std::vector<std::string> lignes) { std::ranges::move(lignes, std::back_inserter(remarques)); };
  std::optional<TableOuverte> ouverte;
  for (const MotsCherches& cherche : cherches) {
    const std::int64_t trouvees = LignesTrouvees(cherche, trouves);
    if (cherche.ligne) {
      dire(RemarquesSurLaLigne(contexte, cherche, trouvees));
      continue;
    }
    if (!ouverte) ouverte = OuvrirTable(contexte);
    if (!ouverte->message.empty()) continue;
    for (const LigneDeTable& ligne : ouverte->table.lignes)
      if (Rogner(ligne.intitule) == cherche.nom && (!ligne.mots.empty() || !PorteUnCode(ligne.intitule)))
        dire(RemarquesSurLeMot(contexte, cherche, CherchesDeLaLigne(ligne), trouvees));
  }
  return remarques;
}

}  // namespace quelvar::text
