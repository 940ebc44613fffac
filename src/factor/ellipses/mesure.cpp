// The files of the generic measured for the ellipses, without a report and without a box.
#include <algorithm>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/parametres.h"
#include "core/panne/annonce.h"
#include "factor/analyse/fichiers.h"
#include "factor/ellipses/ellipses.h"
#include "factor/ellipses/lecture.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

// The run stops by its own will, with a sentence of its own.
[[noreturn]] void Refuser(std::string phrase, const Lieu& lieu = {}) {
  throw Erreur(kIncompatibiliteType, std::move(phrase)).Situer(lieu);
}

// A number of line 2 of the .MOD.
std::size_t NombreDeclare(const Contexte& contexte, double valeur) {
  const auto ou = [&] { return Lieu{contexte.Nom(".MOD"), kLigneDesParametres}; };
  const std::int64_t nombre = Situer(ou, [&] { return Entier64(valeur); });
  if (nombre < 0) throw Erreur(kIndiceHorsSelection).Situer(ou());
  return static_cast<std::size_t>(nombre);
}

// The individuals are the last lines of the .FI2, all of them after an analysis of the logical coding.
std::vector<Position> PointsDesIndividus(const Contexte& contexte, const DemandeEllipses& demande,
                                         std::size_t individus, bool& codageLogique) {
  const auto h = static_cast<std::size_t>(demande.horizontal.facteur);
  const auto v = static_cast<std::size_t>(demande.vertical.facteur);
  const Matrice lignes = LirePoints(contexte.Exiger(".FI2"), std::max(h, v)).coordonnees;
  if (lignes.Colonnes() < individus) throw Erreur(kFinDeFichierDepassee).Situer({.fichier = contexte.Nom(".FI2")});
  codageLogique = lignes.Colonnes() == individus;
  std::vector<Position> points;
  points.reserve(individus);
  for (std::size_t i = lignes.Colonnes() - individus; i < lignes.Colonnes(); ++i)
    points.push_back({(demande.horizontal.inverse ? -1 : 1) * demande.echelle * lignes(h - 1, i),
                      (demande.vertical.inverse ? -1 : 1) * demande.echelle * lignes(v - 1, i)});
  return points;
}

// Where the modalities are told, once the lines of the coordinates have told which analysis made them; nothing without
// the .CDG that they call for.
std::optional<LignesDIndividus> LignesDe(const Contexte& contexte, const ParametresMod& parametres,
                                         bool codageLogique) {
  if (!codageLogique)
    return LignesDIndividus{contexte.Exiger(".BRT"), NombreDeclare(contexte, parametres.colonnes),
                            static_cast<std::size_t>(parametres.largeur), NombreDeclare(contexte, parametres.colonnes)};
  const std::optional<Chemin> cdg = contexte.Chercher(".CDG");
  if (cdg) return LignesDIndividus{*cdg, 0, 1, NombreDeclare(contexte, parametres.colonnes)};
  return std::nullopt;
}

std::vector<std::size_t> PlacesDansLaLigne(const FichierMod& mod, std::span<const ModaliteMarquee> modalites) {
  std::vector<std::size_t> places;
  for (const ModaliteMarquee& modalite : modalites) {
    const std::optional<std::size_t> place = SeuleModalite(mod.modalites, modalite.nom);
    if (!place) throw Erreur(kIndiceHorsSelection);
    places.push_back(*place);
  }
  return places;
}

// As many lines of coordinates as individuals: their logical coding was the table.
bool EstCodageLogique(const Contexte& contexte) {
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  const std::optional<Chemin> fi2 = contexte.Chercher(".FI2");
  if (!mod || !fi2) return false;
  const double individus = LireParametres(LireMod(*mod).parametres, contexte.Nom(".MOD")).lignesSup;
  return static_cast<double>(CompterLignes(*fi2)) == individus;
}

// The table of the individuals is asked for where they are read from it; the report is that of the analysis done last.
FichiersDesEllipses ChercherFichiers(const Contexte& contexte, std::string_view analyse) {
  const FichierObligatoire table =
      EstCodageLogique(contexte) ? FichierObligatoire{{}, true} : Obligatoire(contexte, ".BRT");
  return {Obligatoire(contexte, ".MOD"), Obligatoire(contexte, analyse), Obligatoire(contexte, ".FI2"), table};
}

void ExigerTous(const FichiersDesEllipses& fichiers) {
  std::string absents;
  for (const FichierObligatoire& fichier : fichiers) {
    if (fichier.present) continue;
    if (!absents.empty()) absents += "\r\n";
    absents += PhraseDAbsence(fichier.nom);
  }
  if (!absents.empty()) throw Erreur(kFichierIntrouvable, absents);
}

EllipsesDeModalite EllipsesDe(const ModaliteMarquee& marquee, const Nuage& nuage, const AxesDInertie& axes,
                              const ChoixEllipses& choix) {
  const Position centre = nuage.Centre();
  EllipsesDeModalite modalite{marquee.nom,
                              marquee.intitule,
                              nuage.effectif,
                              {kMilliemesParUnite * centre.x, kMilliemesParUnite * centre.y},
                              axes,
                              {},
                              {}};
  for (const GenreEllipse genre : kGenresEllipse) {
    if (!choix.Voulue(genre)) continue;
    modalite.genres.push_back(genre);
    modalite.observes.push_back(PourcentageObserve(nuage, axes, Kappa(genre)));
  }
  return modalite;
}

// The rows that the modalities are read from must be those of the coordinates.
void ExigerLesMemesIndividus(const Contexte& contexte, const FichierMod& mod, const LignesDIndividus& lignes,
                             std::size_t individus) {
  const Chemin fi2 = contexte.Exiger(".FI2");
  const std::optional<Chemin> fj2 = contexte.Chercher(".FJ2");
  const std::optional<Chemin> faj = contexte.Chercher(".FAJ");
  const std::size_t presentes = LirePoints(fi2, 0).noms.size();
  if (presentes != individus && presentes != individus + lignes.colonnes)
    Refuser(Joindre({kArretDuProgrammeSansAccents, contexte.Nom(".FI2"), " n'a pas les individus de ",
                     TexteDe(lignes.fichier.filename()), kRelancerLesFacteurs}));
  if (!faj) return;
  const std::size_t facteurs = LireFaj(*faj).Facteurs();
  std::vector<bool> actives;
  for (const Modalite& modalite : mod.modalites) actives.push_back(!modalite.supplementaire);
  actives.resize(lignes.colonnes);
  std::optional<Matrice> colonnes;
  if (fj2 && DerniereAnalyse(contexte) == ".AFC") colonnes = LirePoints(*fj2, facteurs).coordonnees;
  const std::optional<std::int64_t> deplace = PremierDeplace(
      lignes, actives, LirePoints(fi2, facteurs, individus).coordonnees, colonnes ? &*colonnes : nullptr);
  if (deplace)
    Refuser(Joindre({kArretDuProgrammeSansAccents, "l'individu ", Nombre(*deplace), " de ",
                     TexteDe(lignes.fichier.filename()), " n'a pas les coordonnées de "_w, contexte.Nom(".FI2"),
                     kRelancerLesFacteurs}));
}

// The parameters of the table, whose remarks are kept; a table without the individuals has no ellipses.
ParametresMod LireTableau(const Contexte& contexte, const FichierMod& mod, BilanEllipses& bilan) {
  ParametresMod parametres = LireParametres(mod.parametres, contexte.Nom(".MOD"));
  bilan.remarques = parametres.remarques;
  if (parametres.burt != 1)
    Refuser(Joindre({kArretDuProgrammeSansAccents, "les ellipses demandent un tableau avec les individus (BRT=1)"}));
  if (parametres.largeur < 1) {
    FauteSituee faute = FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::AvecLeFichier);
    Refuser(std::move(faute.phrase), faute.lieu);
  }
  return parametres;
}

// The clouds of the modalities that are asked for; none without the .CDG that the coordinates call for, which is told.
std::vector<Nuage> LireLesNuages(const Contexte& contexte, const DemandeEllipses& demande, std::string_view analyse,
                                 BilanEllipses& bilan) {
  const FichierMod mod = LireMod(contexte.Exiger(".MOD"));
  const ParametresMod parametres = LireTableau(contexte, mod, bilan);
  const std::size_t facteurs = LireValeursPropres(contexte.Exiger(analyse)).size();
  for (const int facteur : {demande.horizontal.facteur, demande.vertical.facteur})
    if (facteur < 1 || static_cast<std::size_t>(facteur) > facteurs)
      throw Erreur(kIndiceHorsSelection).Situer({.fichier = contexte.Nom(analyse)});
  bool codageLogique = false;
  const std::vector<Position> points =
      PointsDesIndividus(contexte, demande, NombreDeclare(contexte, parametres.lignesSup), codageLogique);
  const std::optional<LignesDIndividus> lignes = LignesDe(contexte, parametres, codageLogique);
  if (!lignes) {
    bilan.avis.emplace_back("Le fichier en codage logique n'existe pas, vérifiez et relancez"_w);
    return {};
  }
  ExigerLesMemesIndividus(contexte, mod, *lignes, points.size());
  return LireNuages(*lignes, PlacesDansLaLigne(mod, demande.modalites), points);
}

void Mesurer(const Contexte& contexte, const DemandeEllipses& demande, BilanEllipses& bilan) {
  const std::string_view analyse = DerniereAnalyse(contexte);
  bilan.fichiers = ChercherFichiers(contexte, analyse);
  ExigerTous(*bilan.fichiers);
  bilan.discordances = demande.remarques;
  const std::vector<Nuage> nuages = LireLesNuages(contexte, demande, analyse, bilan);
  for (std::size_t m = 0; m < nuages.size(); ++m) {
    if (nuages[m].effectif == 0) continue;
    if (const std::optional<AxesDInertie> axes = AxesDuNuage(nuages[m]))
      bilan.tracees.push_back(EllipsesDe(demande.modalites[m], nuages[m], *axes, demande.choix));
    else bilan.avis.emplace_back("calcul impossible. Relancez ellipse");
  }
}

}  // namespace

BilanEllipses MesurerEllipses(const Contexte& contexte, const DemandeEllipses& demande) {
  BilanEllipses bilan;
  try {
    Mesurer(contexte, demande, bilan);
  } catch (...) {
    bilan.arret = ErreurEnCours();
  }
  return bilan;
}

}  // namespace quelvar::factor
