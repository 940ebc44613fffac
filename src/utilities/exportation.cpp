#include "utilities/exportation.h"

#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/programme/libelles.h"
#include "utilities/edition.h"
#include "utilities/entrees/avancement.h"
#include "utilities/entrees/colonnes.h"
#include "utilities/entrees/exigences.h"
#include "utilities/entrees/fichiers.h"

namespace quelvar::utilities {

namespace {

// A zone of columns, counted from 1; its end may stand one column before its start.
struct ZoneDExportation {
  std::int64_t debut;
  std::int64_t fin;

  bool Depasse(std::string_view ligne) const {
    const auto longueur = static_cast<std::int64_t>(ligne.size());
    return debut > longueur || fin > longueur;
  }
};

struct BilanExportation {
  std::int64_t lignes = 0;
  std::optional<Lieu> arret = {};  // the line that the zone leaves
};

BilanExportation ExporterLignes(const Contexte& contexte, const Chemin& source, const ZoneDExportation& zone,
                                bool complementaire, Ecrivain& sortie) {
  AvancementOctets avancement(contexte, LongueurFichier(source));
  BilanExportation bilan;
  LecteurLignes lecteur(source);
  for (std::string_view ligne; lecteur.Lire(ligne); ++bilan.lignes) {
    if (zone.Depasse(ligne)) {
      bilan.arret = lecteur.Ou();
      return bilan;
    }
    if (zone.debut < 1 || zone.fin < zone.debut - 1) throw Erreur(kArgumentIncorrect);
    const auto debut = static_cast<std::size_t>(zone.debut - 1);
    const auto fin = static_cast<std::size_t>(zone.fin);
    if (complementaire) {
      sortie.Ecrire(ligne.substr(0, debut));
      sortie.Ecrire(ligne.substr(fin));
    } else {
      sortie.Ecrire(ligne.substr(debut, fin - debut));
    }
    sortie.FinDeLigne();
    avancement.Avancer(ligne.size());
  }
  return bilan;
}

void ExporterZone(Rapport& rapport, const Contexte& contexte, const OptionsExportation& options) {
  const EntreeChoisie a = ChercherEntree(contexte, options.a);
  ExigerEntrees(rapport, contexte, {a});
  ImprimerTeteDeLExportation(rapport, options);
  const ZoneDExportation zone{NombreTape(options.debut), NombreTape(options.fin)};
  Remplacement c(contexte.repertoire, options.c);
  const BilanExportation bilan = ExporterLignes(contexte, *a.chemin, zone, options.complementaire, c.Fichier());
  c.Achever();
  GarderDuJeuDeDonnees(contexte, CheminDEcriture(contexte.repertoire, options.c), c.CheminProvisoire());
  c.Valider();
  if (bilan.arret)
    AvertirEtArreter(rapport, contexte.Ecran(),
                     {std::string("*** Arrêt du programme car le début ou la fin de la zone d'exportation dépasse la "
                                  "longueur de l'enregistrement"_w),
                      *bilan.arret});
  ImprimerBilanDeLExportation(rapport, bilan.lignes, options.complementaire);
}

}  // namespace

std::string ManqueExportation(const Contexte& contexte, const OptionsExportation& options) {
  if (options.a.empty()) return "Vous devez entrer le nom du fichier A d'origine";
  if (options.c.empty()) return std::string("Vous devez entrer le nom du fichier C résultant de l'exportation"_w);
  if (MemeFichier(contexte, options.a, options.c))
    return Joindre({kAttention, "l'exportation ne peut écraser le fichier d'origine. Option impossible"_w});
  if (options.debut.empty()) return "Vous devez entrer la position initiale de la zone d'exportation";
  if (options.fin.empty()) return "Vous devez entrer la position finale de la zone d'exportation";
  return EntreeEcrasee(contexte, {options.a, options.c});
}

Fin Exporter(const Contexte& contexte, const OptionsExportation& options) {
  return ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(),
                           [&](Rapport& rapport) { ExporterZone(rapport, contexte, options); });
}

}  // namespace quelvar::utilities
