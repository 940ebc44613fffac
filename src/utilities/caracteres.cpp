#include "utilities/caracteres.h"

#include <numeric>

#include "core/fichiers/systeme/morceaux.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "utilities/edition.h"
#include "utilities/entrees/avancement.h"
#include "utilities/entrees/exigences.h"
#include "utilities/entrees/fichiers.h"
#include "utilities/listage.h"

namespace quelvar::utilities {

namespace {

std::string CodesImprimables() {
  std::string codes(256 - kPremierImprimable, ' ');
  std::iota(codes.begin(), codes.end(), static_cast<char>(kPremierImprimable));
  return codes;
}

void ImprimerFichier(const Contexte& contexte, const Chemin& chemin, Listage& listage) {
  AvancementOctets avancement(contexte, LongueurFichier(chemin));
  ParMorceaux(chemin, [&](const std::string& octets) {
    listage.Imprimer(octets);
    avancement.Avancer(octets.size());
  });
  listage.Finir();
}

}  // namespace

std::string ManqueCaracteres(const Contexte& contexte, const OptionsCaracteres& options) {
  if (options.a.empty()) return "Vous devez entrer le nom du fichier A";
  return EntreeEcrasee(contexte, {options.a});
}

Fin ListerCaracteres(const Contexte& contexte, const OptionsCaracteres& options) {
  return ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(), [&](Rapport& rapport) {
    const EntreeChoisie a = ChercherEntree(contexte, options.a);
    ExigerEntrees(rapport, contexte, {a});
    ExigerPlace(contexte, rapport, {0, LongueurFichier(*a.chemin) * kBlocEcrit / kOctetsDUnBloc});
    ImprimerTeteDesCaracteres(rapport, a.nom);
    Listage listage(rapport);
    listage.Imprimer(CodesImprimables());
    listage.Finir();
    rapport.Ligne("Texte à analyser"_w);
    ImprimerFichier(contexte, *a.chemin, listage);
    rapport.Ligne("Fin normale du programme");
  });
}

}  // namespace quelvar::utilities
