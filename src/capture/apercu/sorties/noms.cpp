#include "capture/apercu/sorties/noms.h"

#include <algorithm>
#include <set>

#include "capture/noms/courts.h"
#include "core/enquete/posfile.h"

namespace quelvar::capture {

namespace {

// The answers of a list give way to the names that other columns ask for: these stay what the choices tell.
void EcarterLesListes(const PlanDImport& plan, std::vector<std::string>& noms) {
  std::vector<bool> deListe(plan.colonnes.size());
  for (const ColonneLue& lue : plan.lues)
    if (lue.regle == Regle::Liste)
      std::fill_n(deListe.begin() + static_cast<std::ptrdiff_t>(lue.premiere), lue.nombre, true);
  std::set<std::string> pris;
  const auto demande = [&](std::size_t k) { return std::string(Rogner(noms[k].substr(0, kNomCourtLePlusLong))); };
  for (std::size_t k = 0; k < noms.size(); ++k)
    if (plan.colonnes[k].DansPos() && !deListe[k]) pris.insert(demande(k));
  for (std::size_t k = 0; k < noms.size(); ++k) {
    if (!deListe[k] || pris.insert(demande(k)).second) continue;
    const std::string debut = demande(k).substr(0, 2);
    for (int code = 1; code < kPremierCodeDouble; ++code) {
      const std::string libre = Joindre({debut, CodeCaractere(code)});
      if (std::ranges::count(noms, libre) > 0 || !pris.insert(libre).second) continue;
      noms[k] = libre;
      break;
    }
  }
}

}  // namespace

void NommerLePlan(PlanDImport& plan, std::vector<std::string> noms, const std::vector<std::string>& proposes) {
  EcarterLesListes(plan, noms);
  std::vector<std::size_t> rangs;
  std::vector<Titre> demandes;
  for (std::size_t k = 0; k < plan.colonnes.size(); ++k) {
    if (!plan.colonnes[k].DansPos()) continue;
    rangs.push_back(k);
    demandes.push_back({noms[k], plan.colonnes[k].rang});
  }
  const std::vector<NomCourt> donnes = NommerTitres(demandes);
  for (std::size_t i = 0; i < rangs.size(); ++i) {
    ColonneImportee& colonne = plan.colonnes[rangs[i]];
    colonne.nomCourt = donnes[i].nom;
    const std::string naturel = NomNaturel(colonne.intitule);
    const std::string& demande = demandes[i].intitule;
    const std::string& propose = proposes[colonne.rang - 1];
    const bool donne = Rogner(colonne.nomCourt) == Rogner(demande) && Rogner(demande) != Rogner(propose) &&
                       plan.lues[colonne.rang - 1].nombre == 1;
    if (colonne.nomCourt != naturel && !donne) plan.nomsChanges.push_back(rangs[i]);
  }
  demandes.clear();
  for (const NombreGarde& nombre : plan.nombres)
    demandes.push_back({nombre.nom.empty() ? nombre.intitule : nombre.nom, nombre.colonne + 1});
  const std::vector<NomCourt> gardes = NommerTitres(demandes);
  for (std::size_t i = 0; i < gardes.size(); ++i) plan.nombres[i].nom = gardes[i].nom;
}

}  // namespace quelvar::capture
