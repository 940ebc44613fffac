// Any lexical table with any coordinates, words of its rows and lines of a cutting: marks, merges, sorts and
// concordances end, a stopped run leaves the table whole, a merge never touches it. Input: one byte for the program,
// one of options, then the bytes of .MOD, .BRT, .AGR, .FAI, .FAJ and .TR1 with FF hex between them.
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>

#include "fuzz/support/dossier_memoire.h"
#include "text/concordance/concord.h"
#include "text/gestion/agregation.h"
#include "text/gestion/suplmot.h"

namespace {

using namespace quelvar;

constexpr const char* kEntrees[] = {"ENQ.MOD", "ENQ.BRT", "ENQ.AGR", "ENQ.FAI", "ENQ.FAJ", "ENQ.TR1"};
constexpr std::size_t kLongueurLaPlusGrande = 1 << 13;

text::OptionsTabMotAgreg Reunions(std::uint8_t choix) {
  text::TriDeLignes tri;
  tri.cle = static_cast<text::CleDeLignes>(choix % 3);
  tri.facteur = 1 + choix / 3 % 4;
  text::OptionsTabMotAgreg options;
  options.actions = {{tri}, {std::nullopt, "reunis", {"oui", "non"}}};
  if ((choix & 128) != 0) options.actions.push_back({std::nullopt, "encore", {"reunis", "peut-etre"}});
  return options;
}

text::OptionsSuplMot Marques(std::uint8_t choix) {
  using Genre = text::OptionsSuplMot::Action::Genre;
  text::OptionsSuplMot options;
  options.actions = {{Genre::LigneSup, "oui"}};
  if ((choix & 1) != 0) options.actions.push_back({Genre::ColonneSup, "SEX1"});
  if ((choix & 2) != 0) options.actions.push_back({Genre::IntituleLigne, "non", "jamais"});
  return options;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  if (taille < 2 || taille > kLongueurLaPlusGrande) return 0;
  static const fuzz::DossierMemoire dossier;
  dossier.Vider();
  fuzz::Morceaux morceaux(std::string_view(reinterpret_cast<const char*>(donnees) + 2, taille - 2));
  std::string contenus[std::size(kEntrees)];
  for (std::size_t i = 0; i < std::size(kEntrees); ++i) dossier.Ecrire(kEntrees[i], contenus[i] = morceaux.Suivant());

  Dialogue dialogue;
  const Contexte contexte = dossier.Contexte(dialogue);
  if (donnees[0] % 3 == 0 && text::SuplMot(contexte, Marques(donnees[1])) == Fin::Normale) return 0;
  if (donnees[0] % 3 == 1) text::TabMotAgreg(contexte, Reunions(donnees[1]));
  if (donnees[0] % 3 == 2) {
    text::OptionsConcordance options;
    options.mots = {"oui"};
    if ((donnees[1] & 4) != 0) options.lignes = {"non"};
    options.ordre = static_cast<text::OrdreDeConcordance>(donnees[1] % 3);
    text::Concord(contexte, options);
  }
  for (std::size_t i = 0; i < std::size(kEntrees); ++i)
    if (dossier.Lire(kEntrees[i]) != contenus[i]) std::abort();
  return 0;
}
