// The ellipses in the report .PRT.
#include "core/panne/attention.h"
#include "core/resultats/rangees.h"
#include "factor/ellipses/ellipses.h"

namespace quelvar::factor {

namespace {

void Imprimer(Rapport& rapport, const Dialogue& ecran, const BilanEllipses& bilan) {
  if (bilan.fichiers) {
    const auto& [mod, analyse, coordonnees, table] = *bilan.fichiers;
    ExigerFichiers(rapport, ecran, {mod, analyse, coordonnees, table}, kArretAbsence);
    ImprimerBandeau(rapport, "Graphique factoriel + Ellipse(s)");
    for (const std::string& discordance : bilan.discordances) rapport.Ligne({kAttention, discordance});
    rapport.Lignes(bilan.remarques);
    for (const EllipsesDeModalite& modalite : bilan.tracees) ImprimerEllipses(rapport, modalite);
  }
  if (!bilan.arret) return;
  if (!bilan.arret->Phrase().empty()) ecran.biper();
  throw Erreur(*bilan.arret);
}

void PrevenirDesAvis(const Dialogue& ecran, const BilanEllipses& bilan) {
  for (const std::string& avis : bilan.avis) ecran.demander(avis, Boutons::Ok);
}

}  // namespace

std::optional<std::vector<EllipsesDeModalite>> CalculerEllipses(const Contexte& contexte,
                                                                const DemandeEllipses& demande) {
  BilanEllipses bilan;
  if (!PreparerProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
        bilan = MesurerEllipses(contexte, demande);
        PrevenirDesAvis(contexte.Ecran(), bilan);
        Imprimer(rapport, contexte.Ecran(), bilan);
      }))
    return std::nullopt;
  return std::move(bilan.tracees);
}

Fin RapporterEllipses(const Contexte& contexte, const BilanEllipses& bilan, ModeEcriture mode) {
  return ExecuterProgramme(
      contexte, contexte.Nom(".PRT"), LibellesErreur{},
      [&](Rapport& rapport) { Imprimer(rapport, contexte.Ecran(), bilan); }, mode);
}

void ImprimerEllipses(Rapport& rapport, const EllipsesDeModalite& modalite) {
  constexpr std::string_view kObserve = " (observé : "_w;
  constexpr int kEntiersDeLEffectif = 4;
  FormeEnRangees forme{
      .places = {{"Kappa=", 1}, {" Pourcentage d'individus : ", 2}, {kObserve, 1, Elargissement::DerriereUnTexte}}};
  rapport.Ligne({"Modalité= "_w, modalite.nom, " effectif=",
                 NombreFixe(static_cast<double>(modalite.effectif), kEntiersDeLEffectif, 0), " ", modalite.intitule});
  for (const Rangee& ellipse : TableDesEllipses(modalite).rangees) {
    rapport.Ligne(ellipse.titre);
    forme.avantIntitule = ellipse.cellules.size() == forme.places.size() ? ")" : "";
    rapport.Ligne(TexteDeRangee({{}, {}, ellipse.cellules}, forme));
    rapport.Ligne();
  }
}

}  // namespace quelvar::factor
