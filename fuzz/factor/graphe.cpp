// Any factor files: the graph ends with a report, and writes a picture or none; what it read stays as it was. Input:
// one byte of options, then, with FF hex between them, the bytes of .MOD, .FAJ, .FAI, .PEM (two hexadecimal digits a
// byte), .CAH, .FI2, .BRT and .AFC.
#include "factor/plan/graphe.h"

#include <cstdint>
#include <cstdlib>

#include "fuzz/support/dossier_memoire.h"

namespace {

// Link files are binary, and FF hex is what cuts the input.
std::string Binaire(std::string_view chiffres) {
  std::string octets;
  const auto valeur = [](char c) { return c <= '9' ? c - '0' : (c & 15) + 9; };
  for (std::size_t i = 0; i + 1 < chiffres.size(); i += 2)
    octets += static_cast<char>((valeur(chiffres[i]) & 15) << 4 | (valeur(chiffres[i + 1]) & 15));
  return octets;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 1);
  const unsigned choix = entree.Option();
  fuzz::Contenus lus = dossier.Distribuer(
      entree, {"ENQ.MOD", "ENQ.FAJ", "ENQ.FAI", "ENQ.PEM", "ENQ.CAH", "ENQ.FI2", "ENQ.BRT", "ENQ.AFC"},
      fuzz::PieceVide::Absent);
  if (const auto liens = lus.find("ENQ.PEM"); liens != lus.end())
    dossier.Ecrire("ENQ.PEM", liens->second = Binaire(liens->second));
  quelvar::factor::OptionsGraphe options;
  if ((choix & 1) != 0) options.vertical = "CPF";
  options.contributions = (choix & 2) != 0;
  options.longs = (choix & 4) != 0;
  options.individus = (choix & 8) != 0;
  options.liens = (choix & 16) != 0;
  options.arbre = (choix & 32) != 0;
  options.pajek = (choix & 64) != 0;
  if ((choix & 128) != 0) {
    options.ellipses = "CMI";
    options.marques = {"A1", "B2"};
  }
  const bool fini = quelvar::factor::Graphe(dossier.Contexte(), options) == quelvar::Fin::Normale;
  if (!dossier.Existe("ENQ.PRT") || (fini && !dossier.Existe("ENQFac.svg"))) std::abort();
  dossier.ExigerIntacts(lus);
  return 0;
}
