#include "text/gestion/nomsdeslignes.h"

#include "core/enquete/colonnes.h"
#include "core/programme/rapport.h"
#include "text/commun/intitule.h"

namespace quelvar::text {

namespace {

// The names behind the code of a label: its word, and what stands there when that is another text.
std::vector<std::string> NomsDerriereLeCode(std::string_view intitule) {
  if (!PorteUnCode(intitule)) return {};
  std::vector<std::string> noms{std::string(MotDeLIntitule(intitule))};
  if (const std::string_view suite = Rogner(intitule.substr(kLargeurDeModalite)); suite != noms.front())
    noms.emplace_back(suite);
  return noms;
}

}  // namespace

NomsDesLignes::NomsDesLignes(const std::vector<LigneDeTable>& lignes) {
  for (std::size_t i = 0; i < lignes.size(); ++i) Inscrire(i, lignes[i].intitule);
}

void NomsDesLignes::Inscrire(std::size_t rang, std::string_view intitule) {
  const auto inscrire = [rang](Rangs& rangs) {
    ++rangs.nombre;
    rangs.somme += rang;
  };
  inscrire(parIntitule_[std::string(Rogner(intitule))]);
  for (const std::string& nom : NomsDerriereLeCode(intitule)) inscrire(parMot_[nom]);
}

void NomsDesLignes::Rayer(std::size_t rang, std::string_view intitule) {
  const auto rayer = [rang](Rangs& rangs) {
    --rangs.nombre;
    rangs.somme -= rang;
  };
  rayer(parIntitule_.at(std::string(Rogner(intitule))));
  for (const std::string& nom : NomsDerriereLeCode(intitule)) rayer(parMot_.at(nom));
}

void NomsDesLignes::Renommer(std::size_t rang, std::string_view avant, std::string_view apres) {
  Rayer(rang, avant);
  Inscrire(rang, apres);
}

NomsDesLignes::Rangs NomsDesLignes::Chercher(std::string_view nom) const {
  const std::string cherche(Rogner(nom));
  for (const ParNom* noms : {&parIntitule_, &parMot_})
    if (const auto trouve = noms->find(cherche); trouve != noms->end() && trouve->second.nombre > 0)
      return trouve->second;
  return {};
}

LigneTrouvee NomsDesLignes::Trouver(std::string_view nom) const {
  const Rangs rangs = Chercher(nom);
  if (rangs.nombre == 1) return {rangs.somme};
  return {.faute =
              Joindre({"La ligne ", Rogner(nom),
                       rangs.nombre == 0 ? " n'est pas dans le tableau"_w : " est plusieurs fois dans le tableau"_w})};
}

std::optional<std::string> NomsDesLignes::NomDe(std::size_t rang, std::string_view intitule) const {
  for (const std::string_view nom : {MotDeLIntitule(intitule), Rogner(intitule)}) {
    const Rangs rangs = Chercher(nom);
    if (rangs.nombre == 1 && rangs.somme == rang) return std::string(nom);
  }
  return std::nullopt;
}

}  // namespace quelvar::text
