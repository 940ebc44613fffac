// Any lexical table with any coordinates, words of its rows and lines of a cutting: marks, merges, sorts and
// concordances end, a stopped run leaves the table whole, a merge never touches it. Input: one byte for the program,
// one of options, then the bytes of .MOD, .BRT, .AGR, .FAI, .FAJ and .TR1 with FF hex between them.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/support/dossier_memoire.h"
#include "text/concordance/concord.h"
#include "text/gestion/agregation.h"
#include "text/gestion/suplmot.h"

namespace {

using namespace quelvar;

constexpr std::size_t kLongueurLaPlusGrande = 1 << 13;

text::OptionsTabMotAgreg Reunions(unsigned choix) {
  text::TriDeLignes tri;
  tri.cle = static_cast<text::CleDeLignes>(choix % 3);
  tri.facteur = std::to_string(1 + choix / 3 % 4);
  text::OptionsTabMotAgreg options;
  options.actions = {{tri}, {std::nullopt, "reunis", {"oui", "non"}}};
  if ((choix & 128) != 0) options.actions.push_back({std::nullopt, "encore", {"reunis", "peut-etre"}});
  return options;
}

text::OptionsSuplMot Marques(unsigned choix) {
  using Genre = text::OptionsSuplMot::Action::Genre;
  text::OptionsSuplMot options;
  options.actions = {{Genre::LigneSup, "oui"}};
  if ((choix & 1) != 0) options.actions.push_back({Genre::ColonneSup, "SEX1"});
  if ((choix & 2) != 0) options.actions.push_back({Genre::IntituleLigne, "non", "jamais"});
  return options;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille > kLongueurLaPlusGrande) return 0;
  const fuzz::DossierMemoire& dossier = fuzz::DossierVide();
  fuzz::Entree entree(donnees, taille, 2);
  const unsigned programme = entree.Option(0) % 3;
  const unsigned choix = entree.Option(1);
  const fuzz::Contenus lus =
      dossier.Distribuer(entree, {"ENQ.MOD", "ENQ.BRT", "ENQ.AGR", "ENQ.FAI", "ENQ.FAJ", "ENQ.TR1"});

  const Contexte contexte = dossier.Contexte();
  if (programme == 0 && text::SuplMot(contexte, Marques(choix)) == Fin::Normale) return 0;
  if (programme == 1) text::TabMotAgreg(contexte, Reunions(choix));
  if (programme == 2) {
    text::OptionsConcordance options;
    options.mots = {"oui"};
    if ((choix & 4) != 0) options.lignes = {"non"};
    options.ordre = static_cast<text::OrdreDeConcordance>(choix % 3);
    text::Concord(contexte, options);
  }
  dossier.ExigerIntacts(lus);
  return 0;
}
