#include "text/concordance/edition.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/texte/listes.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

namespace {

// A row whose name is not its only word tells its words.
std::string Titre(const Concordances& concordances) {
  std::vector<std::string> noms;
  for (const MotsCherches& cherche : concordances.cherches)
    noms.push_back(cherche.mots == std::vector{cherche.nom}
                       ? cherche.nom
                       : Joindre({cherche.nom, " (", Enumerer(cherche.mots), ")"}));
  return Enumerer(noms);
}

}  // namespace

std::string TexteDeConcordances(const Concordances& concordances, std::span<const std::uint32_t> rangs,
                                std::size_t auPlus) {
  if (!concordances.faute.empty()) return concordances.faute + "\r\n";
  std::string texte = Joindre({"Concordance de : ", Titre(concordances), "\r\n", Nombre(concordances.lignes.size()),
                               " ligne(s) de ", concordances.source, "\r\n"});
  std::string absents;
  for (const MotTrouve& trouve : concordances.mots)
    if (trouve.lignes == 0) absents += " " + trouve.mot;
  const bool plusieurs = absents.find(' ', 1) != std::string::npos;
  if (!absents.empty()) texte += (plusieurs ? "Mots absents :" : "Mot absent :") + absents + "\r\n";
  for (const std::string& remarque : concordances.remarques) texte += remarque + "\r\n";
  if (rangs.size() > auPlus) {
    rangs = rangs.first(auPlus);
    texte += Joindre({"Les "_w, Nombre(auPlus), " premières seulement : le fichier enregistré les a toutes\r\n"_w});
  }
  texte += "\r\n";
  for (const std::uint32_t rang : rangs) {
    const LigneDeConcordance& ligne = concordances.lignes[rang];
    texte += ligne.caracteristiques;
    texte += "  ";
    texte.append(kContexteGauche - std::min(kContexteGauche, ligne.gauche.size()), ' ');
    texte += ligne.gauche;
    texte += ligne.droite;
    texte += "\r\n";
  }
  return texte;
}

}  // namespace quelvar::text
