#include "text/concordance/edition.h"

#include <algorithm>
#include <numeric>

#include "core/texte/listes.h"
#include "core/texte/nombres.h"
#include "text/decoupage/mots.h"

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

// The words before, from the nearest to the farthest.
std::string CleDeGauche(const LigneDeConcordance& ligne) {
  std::string cle;
  std::string_view reste = RognerDroite(ligne.gauche);
  while (!reste.empty()) {
    const std::size_t blanc = reste.rfind(' ');
    const std::size_t debut = blanc == std::string_view::npos ? 0 : blanc + 1;
    cle += Minuscules(reste.substr(debut));
    cle += ' ';
    reste = RognerDroite(reste.substr(0, debut));
  }
  return cle;
}

}  // namespace

std::vector<std::uint32_t> RangsDansLOrdre(const Concordances& concordances, OrdreDeConcordance ordre) {
  std::vector<std::uint32_t> rangs(concordances.lignes.size());
  std::iota(rangs.begin(), rangs.end(), 0U);
  if (ordre == OrdreDeConcordance::Fichier) return rangs;
  std::vector<std::string> cles;
  cles.reserve(rangs.size());
  for (const LigneDeConcordance& ligne : concordances.lignes)
    cles.push_back(ordre == OrdreDeConcordance::Gauche ? CleDeGauche(ligne) : Minuscules(ligne.droite));
  std::stable_sort(rangs.begin(), rangs.end(), [&](std::uint32_t a, std::uint32_t b) { return cles[a] < cles[b]; });
  return rangs;
}

std::string TexteDeConcordances(const Concordances& concordances, OrdreDeConcordance ordre, std::size_t auPlus) {
  if (!concordances.faute.empty()) return concordances.faute + "\r\n";
  std::string texte = Joindre({"Concordance de : ", Titre(concordances), "\r\n", Nombre(concordances.lignes.size()),
                               " ligne(s) de ", concordances.source, "\r\n"});
  std::string absents;
  for (const MotTrouve& trouve : concordances.mots)
    if (trouve.lignes == 0) absents += " " + trouve.mot;
  const bool plusieurs = absents.find(' ', 1) != std::string::npos;
  if (!absents.empty()) texte += (plusieurs ? "Mots absents :" : "Mot absent :") + absents + "\r\n";
  for (const std::string& remarque : concordances.remarques) texte += remarque + "\r\n";
  std::vector<std::uint32_t> rangs = RangsDansLOrdre(concordances, ordre);
  if (rangs.size() > auPlus) {
    rangs.resize(auPlus);
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
