#include "factor/profil/choix.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/enquete/parametres.h"
#include "core/programme/rapport.h"

namespace quelvar::factor {

namespace {

constexpr char kBlanc = '~';
constexpr std::string_view kSeparateurs = ",:;/.=";  // what the reading of line 2 takes for blanks or for a sign

}  // namespace

std::string TexteDuChoix(const std::vector<std::string>& noms) {
  std::string texte;
  for (const std::string& nom : noms) {
    if (!texte.empty()) texte += kBlanc;
    texte += CadreGauche(nom, kLargeurDeModalite);
  }
  std::replace(texte.begin(), texte.end(), ' ', kBlanc);
  return texte;
}

std::vector<std::string> NomsDuChoix(std::string_view texte) {
  std::string choix(texte);
  std::replace(choix.begin(), choix.end(), kBlanc, ' ');
  std::vector<std::string> noms;
  for (std::size_t i = 0; i < choix.size(); i += kLargeurDeModalite + 1)
    noms.push_back(CadreGauche(std::string_view(choix).substr(i), kLargeurDeModalite));
  return noms;
}

std::string RefusDuChoix(const std::vector<std::string>& noms) {
  if (noms.empty()) return std::string("Aucune modalité n'a été choisie"_w);
  for (const std::string& nom : noms) {
    if (nom.find(kBlanc) != std::string::npos)
      return std::string(
          "Le signe tilde ~ ne peut pas être utilisé comme caractère d'une modalité dont on demande le profil"_w);
    if (const std::size_t signe = nom.find_first_of(kSeparateurs); signe != std::string::npos)
      return Joindre({"Le signe ", std::string(1, nom[signe]), " de la modalité "_w, nom,
                      " ne peut pas être gardé sur la 2e ligne du fichier *.MOD : changez ce nom"_w});
  }
  return {};
}

std::string LigneDuChoix(std::string_view parametres, const std::vector<std::string>& noms, std::string_view nomMod) {
  const ParametresMod lus = LireParametres(parametres, nomMod);
  std::vector<CleDeParametre> cles;
  const auto ajouter = [&](std::string_view cle, double valeur) {
    if (valeur > 0) cles.emplace_back(cle, valeur);
  };
  ajouter("LIGN=", lus.lignes);
  ajouter("COL=", lus.colonnes);
  ajouter("LSUP=", lus.lignesSup);
  ajouter("JSUP=", lus.colonnesSup);
  ajouter("LA=", lus.largeur);
  ajouter("BRT=", lus.burt);
  ajouter("DE=", lus.de);
  // This line begins with its first key, without the blank of the others.
  return Joindre({RognerGauche(LigneDeParametres(cles)), " MOD=", TexteDuChoix(noms)});
}

void RendreMarque(std::string& texte) {
  if (MarqueDeTexte(texte).find_first_of("RXY") != std::string_view::npos) return;
  texte.replace(kLargeurDeModalite, kLargeurDeMarque, EstSupplementaire(texte) ? kMarqueSupplementaire : kMarqueActive);
}

}  // namespace quelvar::factor
