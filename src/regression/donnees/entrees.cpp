#include "regression/donnees/entrees.h"

#include <optional>

#include "core/chiffres/nombres.h"
#include "core/programme/arret.h"
#include "core/resultats/colonnedenombres.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeurDeRang = 5;

}  // namespace

EntreesDeRegression TrouverEntrees(const Contexte& contexte, Rapport& rapport, Texte sorte) {
  const std::optional<Chemin> donnees = contexte.Chercher(".CDG");
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  if (!donnees) ImprimerTableAbsente(rapport, sorte, contexte.Nom(".CDG"));
  if (!mod) rapport.Ligne(PhraseDAbsence(contexte.Nom(".MOD"), kLeFichierEnRelief));
  if (!donnees || !mod) ArreterPourAbsence(contexte, rapport);
  return {*donnees, *mod};
}

void ImprimerTableAbsente(Rapport& rapport, Texte sorte, std::string_view nom) {
  rapport.Ligne(PhraseDAbsence(nom, Joindre({"*** Le tableau de ", sorte})));
}

void ArreterPourAbsence(const Contexte& contexte, Rapport& rapport) {
  AvertirEtArreter(rapport, contexte.Ecran(), "*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w);
}

void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport, Texte titre, Texte sorte,
                            std::string_view extension) {
  ImprimerBandeau(rapport, titre);
  rapport.Ligne({"Le nom du fichier de ", sorte, " est ", contexte.Nom(".CDG")});
  rapport.Ligne({"Le nom du fichier de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(extension)});
}

ParametresMod ExigerParametres(Rapport& rapport, const FichierMod& mod, const Chemin& chemin) {
  const std::string nom = TexteDe(chemin.filename());
  ParametresMod parametres = LireParametres(mod.parametres, nom);
  rapport.Lignes(parametres.remarques);
  if (parametres.largeur == 0) Arreter(rapport, FauteDeFormat(nom, MotsDuFormat::SansLeFichier));
  return parametres;
}

void Fautifs::Noter(std::int64_t rang, std::int64_t cites, const Lieu& ou) {
  if (++nombre == 1) premier = ou;
  if (nombre <= cites) rangs.push_back(rang);
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
