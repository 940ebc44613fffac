#include "tables/triangle/triang.h"

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/options/option.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"

namespace quelvar::tables {

namespace {

constexpr std::string_view kExtension = ".prt";

void ImprimerTrg(Rapport& rapport, const FichierTrg& trg) {
  ImprimerBandeau(rapport, "Graphique triangulaire");
  rapport.Ligne({"Titre : ", trg.titre});
  rapport.Ligne("Intitulés des sommets "_w);
  for (const std::string& sommet : trg.sommets) rapport.Ligne(sommet);
  rapport.Ligne("Liste des valeurs");
  for (const PointTriangle& point : trg.points) rapport.Ligne({point.nom, " ", point.reste});
}

// What a user should know before he reads the picture.
void PrevenirDesPoints(const Contexte& contexte, const FichierTrg& trg) {
  if (trg.points.empty())
    contexte.Ecran().demander(Joindre({"Le fichier ", contexte.Nom(".TRG"), " n'a aucun point : le triangle est vide"}),
                              Boutons::Ok);
  const auto dire = [&](std::string_view quoi, const PointsEnFaute& points, std::string_view suite) {
    if (points.nombre > 0)
      contexte.Ecran().demander(Joindre({quoi, Nombre(points.nombre), ", le premier ", points.premier, ". ", suite,
                                         "Vérifiez le fichier "_w, contexte.Nom(".TRG")}),
                                Boutons::Ok);
  };
  dire("Points dont un pourcentage n'est pas un nombre : ", trg.illisibles,
       "Il est lu jusqu'au premier signe de trop, ou compte pour 0. ");
  dire("Points dont un pourcentage est négatif : "_w, trg.negatifs, "Ils sont hors du triangle. ");
  dire("Points dont les trois pourcentages ne font pas 100 : ", trg.inegaux,
       "Leur place dépend des deux premiers seulement. "_w);
}

Fin Continuer(const Contexte& contexte, const std::function<void(Rapport&)>& corps) {
  return ExecuterProgramme(contexte, contexte.Nom(kExtension), LibellesErreur{}, corps, ModeEcriture::Suite);
}

EtatTriangle Regler(Rapport& rapport, const Contexte& contexte, const OptionsTriang& options, FichierTrg trg) {
  try {
    return ReglerTriangle(options, std::move(trg));
  } catch (const UsageIncorrect& refus) {
    AvertirEtArreter(rapport, contexte.Ecran(), Joindre({"*** ", std::string_view(refus.what())}));
  }
}

}  // namespace

std::optional<FichierTrg> PrepTriang(const Contexte& contexte) {
  std::optional<FichierTrg> trg;
  const bool pret = PreparerProgramme(contexte, contexte.Nom(kExtension), LibellesErreur{}, [&](Rapport& rapport) {
    const std::optional<Chemin> chemin = contexte.Chercher(".TRG");
    ExigerFichiers(rapport, contexte.Ecran(),
                   {{contexte.Nom(".TRG"), chemin.has_value(), "*** Le fichier du graphique triangulaire"}},
                   "*** Arret du programme du a l'absence d'un ou de plusieurs fichiers");
    constexpr std::uint64_t kMemoireParOctet = 8;  // a point takes 150 bytes, its line 20 at the least
    ExigerPlace(contexte, rapport, {kMemoireParOctet * LongueurFichier(*chemin), LongueurFichier(*chemin)});
    trg = LireTrg(*chemin);
    ImprimerTrg(rapport, *trg);
  });
  if (!pret) return std::nullopt;
  PrevenirDesPoints(contexte, *trg);
  return trg;
}

Fin TerminerTriang(const Contexte& contexte) {
  return Continuer(contexte, [](Rapport& rapport) { rapport.Ligne(kFinDuTriangle); });
}

Fin Triang(const Contexte& contexte, const OptionsTriang& options) {
  std::optional<FichierTrg> trg = PrepTriang(contexte);
  if (!trg) return Fin::Arret;
  return Continuer(contexte, [&](Rapport& rapport) {
    const CotesTriangle& cotes = options.cotes;
    if (cotes.droit - cotes.gauche - cotes.bas < kHauteurMinimum)
      AvertirEtArreter(rapport, contexte.Ecran(), "*** Les trois côtés demandés ne laissent pas de triangle"_w);
    const EtatTriangle etat = Regler(rapport, contexte, options, std::move(*trg));
    const std::string nom = options.fichier.empty() ? contexte.Nom("Trg.svg") : options.fichier;
    EcrireSvg(contexte.repertoire, nom, DessinerTriangle(etat));
    contexte.Ecran().demander(Joindre({"Graphique enregistré sous le nom : "_w, nom}), Boutons::Ok);
    rapport.Ligne(kFinDuTriangle);
  });
}

}  // namespace quelvar::tables
