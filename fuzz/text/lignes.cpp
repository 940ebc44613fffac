// Any bytes as a text to prepare or to sort: the runs end, the text stays as it is, a prepared one keeps its length, a
// sorted one its lines. Input: one byte for the program, one of options, then the text.
#include "core/texte/lignes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/support/dossier_memoire.h"
#include "text/preparation/preptext.h"
#include "utilities/tri/trifichier.h"

namespace {

using namespace quelvar;

void Preparer(const fuzz::DossierMemoire& dossier, const Contexte& contexte, unsigned choix) {
  text::OptionsPrepText options;
  options.accents = (choix & 1) != 0;
  options.ponctuation = (choix & 2) != 0;
  options.majusculesEnMin = (choix & 4) != 0;
  options.minusculesEnMaj = (choix & 8) != 0;
  options.finsDeLigne = (choix & 16) != 0;
  std::string nouveau;
  if (text::PrepText(contexte, options, nouveau) == Fin::Normale && !dossier.Existe(nouveau + ".txt")) std::abort();
}

void Trier(const fuzz::DossierMemoire& dossier, const Contexte& contexte, unsigned choix) {
  utilities::OptionsTriFichier options;
  options.fichierA = "ENQ.txt";
  options.fichierC = "TRIE.txt";
  options.position = std::to_string(choix & 15);
  options.largeur = std::to_string(choix >> 4);
  if (utilities::TriFichier(contexte, options) != Fin::Normale) return;
  const std::string source = dossier.Lire("ENQ.txt");
  const std::string resultat = dossier.Lire("TRIE.txt");
  std::vector<std::string_view> avant = ToutesLesLignes(source);
  std::vector<std::string_view> apres = ToutesLesLignes(resultat);
  std::sort(avant.begin(), avant.end());
  std::sort(apres.begin(), apres.end());
  if (avant != apres) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  const fuzz::Entree entree(donnees, taille, 2);
  const std::string texte(entree.Reste());
  dossier.Ecrire("ENQ.txt", texte);
  const Contexte contexte = dossier.Contexte();
  if ((entree.Option(0) & 1) != 0) Preparer(dossier, contexte, entree.Option(1));
  else Trier(dossier, contexte, entree.Option(1));
  dossier.ExigerIntacts({{"ENQ.txt", texte}});
  return 0;
}
