#include "tables/ecapem.h"

#include <string_view>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "tables/examentableau.h"
#include "tables/lecturetable.h"
#include "tables/travailecapem.h"

namespace quelvar::tables {

namespace {

constexpr std::string_view kArretFichiers = "*** Arret du programme du à l'absence d'un ou de plusieurs fichiers"_w;

struct FichiersDeTable {
  Chemin mod;
  Chemin brt;
};

// The two files that every path needs; a .MOD too short to hold anything counts as missing.
FichiersDeTable TrouverFichiers(const Contexte& contexte, Rapport& rapport) {
  const std::optional<Chemin> brt = contexte.Chercher(".BRT");
  const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{contexte.Nom(".BRT"), brt.has_value(), "*** Le tableau de Burt"},
                  {contexte.Nom(".MOD"), mod.has_value(), kLeFichierEnRelief}},
                 kArretFichiers);
  return {*mod, *brt};
}

// A file that one path needs beside the table.
Chemin ExigerFichier(const TravailEcapem& t, std::string_view extension, Texte ligneDArret) {
  const std::optional<Chemin> chemin = t.contexte.Chercher(extension);
  if (chemin) return *chemin;
  t.rapport.Ligne(PhraseDAbsence(t.contexte.Nom(extension), kLeFichierEnRelief));
  t.rapport.Ligne(ligneDArret);
  throw Erreur(kArretAnnonce);
}

void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport) {
  rapport.Ligne({"Ce fichier d'impression a pour nom ", contexte.Nom(".PRO")});
  rapport.Ligne({"Le nom du fichier des noms de modalites est ", contexte.Nom(".MOD")});
  rapport.Ligne({"Le nom du fichier des données en tableau de Burt est "_w, contexte.Nom(".BRT")});
}

LigneTaille LireTaille(const Chemin& chemin) {
  LecteurLignes pos(chemin);
  pos.LireObligatoire();
  return Situer(pos, [&] { return LireLigneTaille(pos.LireObligatoire()); });
}

// Where the counts do not go together: the table, or the size of the survey when it is told nowhere.
Lieu LieuDuBurt(const Contexte& contexte, std::int64_t individus) {
  constexpr std::int64_t kLigneDeTaille = 2;  // of a .POS
  if (individus == 0) return {contexte.Nom(".POS"), kLigneDeTaille};
  return {.fichier = contexte.Nom(".BRT")};
}

void ExaminerBurt(const TravailEcapem& t, std::size_t modalites, const FichierMod& mod) {
  const LigneTaille taille = LireTaille(ExigerFichier(t, ".POS", "*** Arret du programme"));
  ExigerParentheses(taille, t.contexte.Ecran());
  const std::int64_t individus = IndividusDuBurt(t.contexte, taille);
  t.rapport.Ligne(LigneDesIndividus(individus));
  if (modalites > t.modalites.size())
    throw Erreur(kFinDeFichierDepassee).Situer({t.contexte.Nom(".MOD"), static_cast<std::int64_t>(mod.premiereApres)});
  const std::uint64_t cellules = std::uint64_t{modalites} * modalites / 2;
  constexpr std::uint64_t kMemoireParCellule = 32;  // half a table, links and their sort
  constexpr std::uint64_t kDisqueParCellule = 52;   // lines of the report and of the link file
  ExigerPlace(t.contexte, t.rapport, {kMemoireParCellule * cellules, kDisqueParCellule * cellules});
  const BurtLu lu = LireDemiBurt(t.brt, modalites, t.parametres.largeur, t.modalites);
  lu.constats.Dire(t.rapport, t.contexte.Ecran());
  std::vector<Lien> liens = Situer([&] { return LieuDuBurt(t.contexte, individus); },
                                   [&] { return LiensDuBurt(lu.burt, static_cast<double>(individus)); });
  ImprimerNombreDeLiens(t.rapport, liens.size(), t.options.seuil, OrigineDesLiens::Burt);
  TrierLiens(liens, ModeTri::NBR, t.contexte.Ecran());
  EnregistrerLiens(t.contexte, liens, std::nullopt);
  if (liens.empty()) return;

  std::vector<std::string_view> intitules;
  for (std::size_t i = 0; i < modalites; ++i) intitules.push_back(IntituleEdite(t.modalites[i], t.options.intitules));
  ImprimeurDeProfils imprimeur(t.rapport, intitules, t.LargeurDesProfils());
  const LiensParNoeud parNoeud(liens, LiensParNoeud::Bout::LesDeux, modalites);
  for (std::size_t i = 0; i < modalites; ++i) {
    t.rapport.Ligne({t.modalites[i].court, " = ", t.modalites[i].intitule});
    imprimeur.Imprimer(parNoeud.Profil(i + 1));
  }
}

void EnregistrerCliques(const TravailEcapem& t) {
  t.rapport.Ligne("Enregistrement des cliques issues de Ucinet");
  LecteurLignes fichier(ExigerFichier(t, ".NT1", kArretFichiers));
  std::vector<std::vector<std::size_t>> cliques;
  Situer(fichier, [&] {
    for (std::string_view ligne; fichier.Lire(ligne);) cliques.push_back(LireClique(ligne));
  });
  const bool burt = t.parametres.burt > 1;
  const std::size_t lignes = NombreDe(burt ? t.parametres.burt : t.parametres.lignes);
  const std::size_t colonnes = burt ? lignes : t.modalites.size();
  std::vector<Lien> liens = Situer([&] { return Lieu{.fichier = fichier.Ou().fichier}; },
                                   [&] { return LiensDesCliques(cliques, lignes, colonnes); });
  TrierLiens(liens, ModeTri::NBR, t.contexte.Ecran());
  EnregistrerLiens(t.contexte, std::nullopt, liens);
}

void Executer(const Contexte& contexte, const OptionsEcapem& options, Rapport& rapport) {
  const FichiersDeTable fichiers = TrouverFichiers(contexte, rapport);
  ImprimerBandeau(rapport, "Profils de modalités"_w);
  ImprimerNomsDeFichiers(contexte, rapport);
  const FichierMod mod = LireMod(fichiers.mod);
  const ParametresMod parametres = LireParametres(mod.parametres, TexteDe(fichiers.mod.filename()));
  TravailEcapem travail{contexte, options, rapport, fichiers.brt, parametres, {}};
  rapport.Lignes(travail.parametres.remarques);
  for (const Modalite& modalite : mod.modalites) travail.modalites.push_back(NommerModalite(modalite));
  if (travail.parametres.largeur == 0)
    Arreter(rapport, FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::AvecLeFichier));
  const std::int16_t burt = travail.parametres.burt;
  if (options.cliques) {
    EnregistrerCliques(travail);
  } else if (burt > 0) {
    ExaminerBurt(travail, NombreDe(burt == 1 ? travail.parametres.colonnes : burt), mod);
  } else {
    ExigerFormeDuMod(fichiers.brt, mod, travail.parametres);
    ExaminerTableau(travail);
  }
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

std::size_t NombreDe(double parametre) {
  const std::int64_t nombre = Entier64(parametre);
  return nombre > 0 ? static_cast<std::size_t>(nombre) : 0;
}

void EnregistrerLiens(const Contexte& contexte, ListeDeLiens pem, ListeDeLiens pel) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  const auto remplacer = [&](std::string_view extension, ListeDeLiens liens) {
    if (liens) EcrireLiens(sorties.Ouvrir(contexte.Nom(extension), Nature::Refaisable), *liens);
    else sorties.Effacer(contexte.Nom(extension));
  };
  remplacer(".PEM", pem);
  remplacer(".PEL", pel);
  sorties.Valider();
}

Fin Ecapem(const Contexte& contexte, const OptionsEcapem& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRO"), LibellesErreur{},
                           [&](Rapport& rapport) { Executer(contexte, options, rapport); });
}

}  // namespace quelvar::tables
