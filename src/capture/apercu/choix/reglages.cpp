#include "capture/apercu/choix/reglages.h"

#include <algorithm>

#include "capture/apercu/choix/textes.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

std::vector<TexteCode> TextesCodes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<TexteCode> codes;
  std::vector<TexteCode> nuls;
  for (const ValeurComptee& valeur : colonne.valeurs) {
    const bool nul = EstParmi(choix.nonReponses, valeur.valeur);
    (nul ? nuls : codes).push_back({valeur.valeur, valeur.effectif});
  }
  if (choix.ordre == Ordre::Frequence) {
    std::ranges::stable_sort(codes, std::ranges::greater{}, &TexteCode::effectif);
  } else if (choix.ordre == Ordre::Donne) {
    const auto rang = [&](const TexteCode& code) {
      return std::ranges::find(choix.textes, code.texte) - choix.textes.begin();
    };
    std::ranges::stable_sort(codes, {}, rang);
  }
  std::vector<std::string> textes;
  for (const TexteCode& code : codes) textes.push_back(code.texte);
  const std::vector<int> donnes = CodesDesTextes(choix, textes);
  for (std::size_t i = 0; i < codes.size(); ++i) codes[i].code = donnes[i];
  nuls.insert(nuls.end(), codes.begin(), codes.end());
  return nuls;
}

ChoixDeColonne AvecOrdre(ChoixDeColonne choix, const FaitsDeColonne& colonne, Ordre ordre) {
  std::vector<std::string> textes;
  if (ordre == Ordre::Donne)
    for (const TexteCode& code : TextesCodes(choix, colonne))
      if (code.code > 0) textes.push_back(code.texte);
  choix.ordre = ordre;
  choix.textes = std::move(textes);
  return choix;
}

std::vector<TexteCompte> TextesComptes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<TexteCompte> textes;
  if (choix.genre == Genre::Multiple && choix.liste == '\0') {
    for (const ValeurComptee& valeur : colonne.valeurs)
      textes.push_back({valeur.valeur, valeur.effectif, EstParmi(choix.reponses, valeur.valeur)});
    return textes;
  }
  if (choix.genre != Genre::Codes && choix.genre != Genre::Nombres) return textes;
  const auto compter = [&](const std::string& texte) -> TexteCompte& {
    const auto connu = std::ranges::find(textes, texte, &TexteCompte::texte);
    return connu != textes.end() ? *connu : textes.emplace_back(TexteCompte{texte});
  };
  for (const CelluleFautive& cellule : colonne.fautives) ++compter(cellule.valeur).effectif;
  for (const std::string& texte : choix.nonReponses) compter(texte).compte = false;
  return textes;
}

ChoixDeColonne AvecTextesComptes(ChoixDeColonne choix, const std::vector<TexteCompte>& textes) {
  const bool reponses = choix.genre == Genre::Multiple;
  (reponses ? choix.reponses : choix.nonReponses).clear();
  for (const TexteCompte& texte : textes) {
    if (reponses && texte.compte) choix.reponses.push_back(texte.texte);
    if (!reponses && !texte.compte) choix.nonReponses.push_back(texte.texte);
  }
  return choix;
}

ChoixDeColonne AvecTextesCodes(ChoixDeColonne choix, Ordre ordre, const std::vector<TexteCompte>& textes) {
  choix.ordre = ordre;
  choix.textes.clear();
  for (const TexteCompte& texte : textes)
    if (texte.compte && ordre == Ordre::Donne) choix.textes.push_back(texte.texte);
  return AvecTextesComptes(std::move(choix), textes);
}

std::optional<std::vector<double>> BornesDe(std::string_view saisi) {
  std::vector<double> bornes;
  std::string mot;
  const auto prendre = [&] {
    if (mot.empty()) return true;
    std::ranges::replace(mot, ',', '.');
    if (!EstNombre(mot)) return false;
    bornes.push_back(ValeurDe(mot));
    mot.clear();
    return bornes.size() < 2 || bornes[bornes.size() - 2] < bornes.back();
  };
  for (const char c : saisi) {
    if (c != ' ' && c != ';' && c != '\t' && c != '|') mot += c;
    else if (!prendre()) return std::nullopt;
  }
  if (!prendre() || bornes.empty()) return std::nullopt;
  return bornes;
}

std::string TexteDesBornes(const std::vector<double>& bornes) {
  std::string texte;
  for (const double borne : bornes) texte += (texte.empty() ? "" : " ") + Nombre(borne);
  return texte;
}

}  // namespace quelvar::capture
