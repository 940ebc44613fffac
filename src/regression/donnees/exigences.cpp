#include "regression/donnees/exigences.h"

#include <string>

#include "core/chiffres/nombres.h"
#include "core/programme/arret.h"
#include "core/resultats/colonnedenombres.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeurDeRang = 5;
constexpr std::string_view kArretSansFichiers = "*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w;

std::string SujetDeTable(Texte sorte) { return Joindre({"*** Le tableau de ", sorte}); }

}  // namespace

void ExigerEntrees(Rapport& rapport, const Contexte& contexte, const EntreesDeRegression& entrees, Texte sorte) {
  const std::string table = SujetDeTable(sorte);
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{contexte.Nom(".CDG"), entrees.donnees.has_value(), table},
                  {contexte.Nom(".MOD"), entrees.mod.has_value(), kLeFichierEnRelief}},
                 kArretSansFichiers);
}

void ExigerTableNommee(Rapport& rapport, const Contexte& contexte, const std::string& nom, bool presente, Texte sorte) {
  const std::string table = SujetDeTable(sorte);
  ExigerFichiers(rapport, contexte.Ecran(), {{nom, presente, table}}, kArretSansFichiers);
}

void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport, Texte titre, Texte sorte,
                            std::string_view extension) {
  ImprimerBandeau(rapport, titre);
  rapport.Ligne({"Le nom du fichier de ", sorte, " est ", contexte.Nom(".CDG")});
  rapport.Ligne({"Le nom du fichier de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(extension)});
}

void ExigerFormat(Rapport& rapport, const ParametresMod& parametres, std::string_view nom) {
  rapport.Lignes(parametres.remarques);
  if (parametres.largeur == 0) Arreter(rapport, FauteDeFormat(nom, MotsDuFormat::SansLeFichier));
}

void ExigerSansFautifs(Rapport& rapport, const Fautifs& fautifs, Texte manque) {
  if (fautifs.nombre == 0) return;
  for (const std::int64_t rang : fautifs.rangs)
    rapport.Ligne({"*** L'individu ", Figure(static_cast<double>(rang), kLargeurDeRang, 0), " ", manque});
  rapport.Ligne("*** Arrêt du programme dû aux erreurs signalées"_w);
  rapport.Ligne({"*** Nombre d'individus fautifs = ", Figure(static_cast<double>(fautifs.nombre), kLargeurDeRang, 0)});
  if (fautifs.nombre > kFautifsDits)
    rapport.Ligne({"    Seuls les ", Nombre(kFautifsDits), " premiers sont indiqués"_w});
  throw Erreur(FauteSituee{Joindre({"l'individu ", Nombre(fautifs.rangs.front()), " ", manque}), fautifs.premier});
}

}  // namespace quelvar::regression
