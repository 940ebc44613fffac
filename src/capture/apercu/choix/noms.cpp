#include "capture/apercu/choix/noms.h"

#include "capture/noms/courts.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

bool DonneUnNom(const ChoixDeColonne& choix, bool nombres) {
  if (choix.genre == Genre::Nombres) return nombres;
  return !nombres && (choix.genre == Genre::Codes || choix.genre == Genre::Textes || choix.genre == Genre::Classes ||
                      choix.genre == Genre::Multiple || choix.genre == Genre::Alphabetique);
}

// What a column is to be called: by its number when it has no title of its own.
std::string NomDemande(const ChoixDeColonne& choix, std::size_t j) {
  const std::string numero = Nombre(j + 1);
  if (!choix.nom.empty()) return choix.nom;
  if (choix.intitule != Joindre({kTitreDeColonne, numero}) || numero.size() > kNomCourtLePlusLong)
    return choix.intitule;
  return std::string("Co").substr(0, kNomCourtLePlusLong - numero.size()) + numero;
}

// Codes that are all 0 make no question and take no name; `colonnes` tells which, when it is known.
// `nombres`: the variables of the numbers kept, which have names of their own, else the questions.
void Nommer(std::vector<ChoixDeColonne>& choix, bool nombres, const std::vector<FaitsDeColonne>* colonnes) {
  std::vector<std::size_t> rangs;
  std::vector<Titre> titres;
  for (std::size_t j = 0; j < choix.size(); ++j) {
    if (!DonneUnNom(choix[j], nombres)) continue;
    if (colonnes != nullptr && choix[j].genre == Genre::Codes && (*colonnes)[j].maximum <= 0) continue;
    rangs.push_back(j);
    titres.push_back({NomDemande(choix[j], j), j + 1});
  }
  const std::vector<NomCourt> noms = NommerTitres(titres);
  for (std::size_t i = 0; i < rangs.size(); ++i) choix[rangs[i]].nom = noms[i].nom;
}

}  // namespace

void NommerChoix(std::vector<ChoixDeColonne>& choix) {
  Nommer(choix, false, nullptr);
  Nommer(choix, true, nullptr);
}

void NommerSelonLesFaits(std::vector<ChoixDeColonne>& choix, const std::vector<FaitsDeColonne>& colonnes) {
  Nommer(choix, false, &colonnes);
  Nommer(choix, true, &colonnes);
}

std::vector<std::string> NomsProposes(std::vector<ChoixDeColonne> choix, const std::vector<FaitsDeColonne>& colonnes) {
  for (ChoixDeColonne& c : choix) c.nom.clear();
  NommerSelonLesFaits(choix, colonnes);
  std::vector<std::string> noms;
  for (ChoixDeColonne& c : choix) noms.push_back(std::move(c.nom));
  return noms;
}

}  // namespace quelvar::capture
