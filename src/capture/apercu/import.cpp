#include "capture/apercu/import.h"

#include <algorithm>

#include "capture/apercu/choix/imc.h"
#include "capture/apercu/choix/reconnaissance.h"
#include "capture/apercu/choix/refus.h"
#include "capture/apercu/observation/apercu.h"
#include "capture/apercu/octets/source.h"
#include "capture/apercu/sorties/compterendu.h"
#include "capture/apercu/sorties/ecriture.h"
#include "capture/apercu/sorties/modalites.h"
#include "capture/apercu/sorties/remarques.h"
#include "capture/apercu/travail.h"
#include "capture/colonnes/compterendu.h"
#include "capture/compterendu/fichiers.h"
#include "capture/dbase/import.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/sauvegarde.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/session/generiquelibre.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kRienNeChange = "Arrêt du programme : rien n'est importé, les anciens fichiers restent"_w;

struct FichiersDImport {
  std::optional<Chemin> source;
  std::string nomSource;
  std::optional<Chemin> pos;
  std::optional<Chemin> mod;
  bool datPresent = false;
  bool dejaImporte = false;  // choices or a source of that name are there
};

std::optional<Chemin> ChercherSource(const Contexte& contexte, const OptionsImport& options) {
  if (!options.fichier.empty()) return ChercherFichier(contexte.repertoire, options.fichier);
  std::optional<Chemin> source = contexte.Chercher(".CSV");
  return source ? source : contexte.Chercher(".TXT");
}

std::string NomDeSource(const Contexte& contexte, const OptionsImport& options) {
  if (!options.fichier.empty()) return TexteDe(CheminDe(options.fichier).filename());
  return contexte.Nom(contexte.Chercher(".CSV") ? ".CSV" : ".TXT");
}

FichiersDImport TrouverFichiers(const Contexte& contexte, const OptionsImport& options) {
  FichiersDImport fichiers;
  fichiers.source = ChercherSource(contexte, options);
  fichiers.nomSource = NomDeSource(contexte, options);
  fichiers.pos = ChercherPos(contexte.repertoire, contexte.Nom(".POS"));
  fichiers.mod = contexte.Chercher(".MOD");
  fichiers.datPresent = contexte.Chercher(".DAT").has_value();
  fichiers.dejaImporte = contexte.Chercher(".IMC") || contexte.Chercher(".CSV") || contexte.Chercher(".TXT");
  return fichiers;
}

// Asks before a file that is not the source is written over.
void ExigerPlace(const Contexte& contexte, const FichiersDImport& fichiers, const std::string& nom, Boutons boutons) {
  const std::optional<Chemin> ancien = ChercherFichier(contexte.repertoire, nom);
  if (!ancien || EstLeMemeFichier(*ancien, *fichiers.source)) return;
  if (!PeutEtreRemplace(contexte.Ecran(), nom, boutons))
    throw Erreur(kArgumentIncorrect, Joindre({kArretDuProgramme, "le fichier ", nom, " est gardé"_w}));
}

// The generic has been imported from that file, or from another one with the same columns: a run makes its files again.
bool EstRefaite(const Contexte& contexte, const OptionsImport& options, const FichiersDImport& fichiers,
                const SourceDeTable& source, const Reconnaissance& table) {
  const std::optional<Chemin> csv = contexte.Chercher(".CSV");
  const std::optional<Chemin> texte = contexte.Chercher(".TXT");
  if (options.fichier.empty() || (texte && EstLeMemeFichier(*texte, *fichiers.source))) return true;
  if (csv && (EstLeMemeFichier(*csv, *fichiers.source) || MemesOctets(*csv, source.Texte()))) return true;
  const std::optional<Chemin> choix = contexte.Chercher(".IMC");
  if (!choix) return false;
  try {
    return std::ranges::equal(LireImc(*choix), table.choix, {}, &ChoixDeColonne::intitule, &ChoixDeColonne::intitule);
  } catch (const Erreur&) {
    return false;
  }
}

// Asks before the data of a generic that are none of this table are written over.
void ExigerLeGenerique(const Contexte& contexte, const OptionsImport& options, const FichiersDImport& fichiers,
                       const SourceDeTable& source, const Reconnaissance& table) {
  const bool occupe = fichiers.datPresent || contexte.Chercher(".CSV") || contexte.Chercher(".DES");
  if (!occupe || options.remplacer || EstRefaite(contexte, options, fichiers, source, table)) return;
  if (PeutEtreRemplace(contexte, contexte.generique)) return;
  throw Erreur(kArgumentIncorrect, Joindre({kArretDuProgramme, "le générique "_w, contexte.generique,
                                            " existe déjà, ses fichiers sont gardés (remplacer=oui les remplace)"_w}));
}

// What the import would write over without being told so by the account.
void ExigerPlaces(const Contexte& contexte, const FichiersDImport& fichiers, const PlanDImport& plan) {
  const auto exiger = [&](const std::string& nom, Boutons boutons) { ExigerPlace(contexte, fichiers, nom, boutons); };
  if (!plan.longues.empty()) exiger(contexte.Nom(".TXT"), Boutons::OuiNon);
  if (plan.nombres.empty()) return;
  // A survey of that name is none of ours.
  exiger(contexte.Nom("N.DAT"), Boutons::NonOui);
  exiger(contexte.Nom("N.POS"), Boutons::NonOui);
}

// The choices of an earlier import that this one has not taken are kept, and told.
void EcrireChoix(Rapport& rapport, const Contexte& contexte, const OptionsImport& options, const std::string& octets,
                 JeuDeFichiers& sorties) {
  const std::optional<Chemin> ancien = contexte.Chercher(".IMC");
  if (ancien && LireOctets(*ancien) != octets) {
    const std::string copie = Sauvegarder(sorties, *ancien, TexteDe(ancien->filename()));
    const std::optional<Chemin> pris = ChercherFichier(contexte.repertoire, options.fichierChoix);
    const bool servi =
        !options.choix.empty() || (!options.fichierChoix.empty() && pris && EstLeMemeFichier(*pris, *ancien));
    rapport.Ligne({servi ? std::string_view{} : kAttention,
                   servi ? "Les anciens choix de "_w : "les choix d'une importation précédente, dans "_w,
                   contexte.Nom(".IMC"), servi ? std::string_view{} : ", n'ont pas servi : ils",
                   " sont gardés sous le nom "_w, copie,
                   servi ? std::string() : Joindre({" (choix=", copie, " les reprend)"})});
  }
  sorties.Ouvrir(contexte.Nom(".IMC"), Nature::Unique).Ecrire(octets);
}

// A .DAT that no import has made may be all there is of what was keyed in: it stays under a backup name.
void GarderLesDonnees(Rapport& rapport, const Contexte& contexte, const FichiersDImport& fichiers,
                      JeuDeFichiers& sorties) {
  const std::optional<Chemin> ancien = contexte.Chercher(".DAT");
  if (!ancien || fichiers.dejaImporte) return;
  const std::string nom = contexte.Nom(".DAT");
  const std::string copie = GarderRemplace(sorties, *ancien, sorties.Achever(nom));
  if (!copie.empty()) rapport.Ligne({"L'ancien fichier "_w, nom, " est sauvegardé sous le nom "_w, copie});
}

void CopierSource(const Contexte& contexte, const FichiersDImport& fichiers, const SourceDeTable& source,
                  const PlanDImport& plan, JeuDeFichiers& sorties) {
  const std::string nom = contexte.Nom(".CSV");
  const std::optional<Chemin> ancien = contexte.Chercher(".CSV");
  const std::optional<Chemin> texte = contexte.Chercher(".TXT");
  if (ancien && EstLeMemeFichier(*ancien, *fichiers.source)) return;
  // The texts take the place of the .TXT: what was read of it stays as .CSV.
  if (texte && EstLeMemeFichier(*texte, *fichiers.source) && plan.longues.empty()) return;
  if (ancien && !MemesOctets(*ancien, source.Texte())) Sauvegarder(sorties, *ancien, TexteDe(ancien->filename()));
  sorties.Copier(source.Texte(), nom, Nature::Refaisable);
}

// The choices as they were carried out, for the next time.
std::vector<ChoixDeColonne> ChoixFaits(std::vector<ChoixDeColonne> choix, const PlanDImport& plan) {
  for (std::size_t j = 0; j < choix.size(); ++j) {
    const ColonneLue& lue = plan.lues[j];
    if (lue.nombre == 1 && !plan.colonnes[lue.premiere].nomCourt.empty())
      choix[j].nom = plan.colonnes[lue.premiere].nomCourt;
  }
  for (const NombreGarde& nombre : plan.nombres) choix[nombre.colonne].nom = nombre.nom;
  return choix;
}

void SauvegarderMod(Rapport& rapport, const Contexte& contexte, const std::string& nom, JeuDeFichiers& sorties) {
  if (const std::optional<Chemin> ancien = ChercherFichier(contexte.repertoire, nom))
    SauvegarderAncien(rapport, nom, *ancien, sorties);
}

// Everything that stops the import, told at once.
void ArreterSurRefus(Rapport& rapport, const Contexte& contexte, std::string_view nom, const SourceDeTable& source,
                     const Reconnaissance& table, const Bilan& bilan) {
  std::vector<std::string> lignes = RefusDeTable(table.faits);
  for (const std::string& refus : RefusDesTextes(table.choix, table.faits.colonnes)) lignes.push_back(refus);
  if (lignes.empty() && bilan.refus == 0) return;
  ImprimerLecture(rapport, nom, source, table);
  rapport.Ligne();
  rapport.Lignes(lignes);
  rapport.Lignes(RefusDesCellules(bilan, table.faits, table.choix));
  rapport.Ligne();
  rapport.Ligne("Corrigez ces cellules, ou dites ce que deviennent ces colonnes, et relancez"_w);
  rapport.Ligne(kRienNeChange);
  contexte.Ecran().biper();
  throw Erreur(kArretAnnonce);
}

void EcrireLesDictionnaires(Rapport& rapport, const Contexte& contexte, const OptionsImport& options,
                            const FichiersDImport& fichiers, const PlanDImport& plan, const Reconnaissance& table,
                            SortiesDImport& sorties, IntitulesPerdus& perdus) {
  EcrirePos(sorties.jeu.Ouvrir(contexte.Nom(".POS"), Nature::Unique), contexte.generique, plan.colonnes,
            table.faits.individus);
  if (AvecIntitules(plan)) {
    SauvegarderMod(rapport, contexte, contexte.Nom(".MOD"), sorties.jeu);
    perdus = EcrireModalites(sorties.jeu.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte.generique, plan,
                             fichiers.mod);
  } else if (fichiers.mod) {
    rapport.Ligne(
        {"Le fichier ", contexte.Nom(".MOD"), " reste : vérifiez que ses intitulés sont ceux des codes importés"_w});
  }
  if (!plan.nombres.empty()) {
    SauvegarderMod(rapport, contexte, contexte.Nom("N.MOD"), sorties.jeu);
    EcrireVariables(sorties.jeu.Ouvrir(contexte.Nom("N.MOD"), Nature::Unique), contexte.Nom("N"), plan);
  }
  EcrireChoix(rapport, contexte, options, EcrireImc(ChoixFaits(table.choix, plan)), sorties.jeu);
}

void ImprimerColonnesEtRemarques(Rapport& rapport, const Contexte& contexte, const Reconnaissance& table,
                                 const PlanDImport& plan, const Bilan& bilan, const IntitulesPerdus& perdus) {
  ImprimerColonnes(rapport, plan.colonnes, table.faits.colonnes.size(), false);
  ImprimerDevenir(rapport, table.choix, table.faits, plan, bilan);
  std::vector<std::string> remarques = RemarquesDeTable(table.faits, table.choix);
  RemarquerNoms(remarques, plan.colonnes, plan.nomsChanges);
  for (const std::string& remarque : RemarquesDeSorties(contexte, plan, bilan, perdus)) remarques.push_back(remarque);
  ImprimerRemarques(rapport, remarques);
}

void ImporterTable(Rapport& rapport, const Contexte& contexte, const OptionsImport& options) {
  const FichiersDImport fichiers = TrouverFichiers(contexte, options);
  const bool deTxt = fichiers.source && fichiers.nomSource == contexte.Nom(".TXT");
  ImprimerBandeau(rapport, deTxt ? "Compte rendu d'importation de données en TXT"_w
                                 : "Compte rendu d'importation de données en CSV"_w);
  if (!fichiers.source)
    ImprimerPresence(rapport, contexte, fichiers.nomSource, {false, fichiers.datPresent, fichiers.pos.has_value()});
  const auto ouverte =
      options.ouverte ? options.ouverte
                      : std::make_shared<const SourceDeTable>(*fichiers.source, options.feuille, contexte.repertoire);
  const SourceDeTable& source = *ouverte;
  const auto accepter = [&](const Reconnaissance& lue, const PlanDImport& prevu) {
    ExigerLeGenerique(contexte, options, fichiers, source, lue);
    ExigerPlaces(contexte, fichiers, prevu);
  };
  const TravailDImport travail = Travailler(contexte, source, options, accepter);
  const auto& [table, plan, bilan, sorties] = travail;
  ArreterSurRefus(rapport, contexte, fichiers.nomSource, source, table, bilan);

  if (plan.colonnes.empty() && plan.nombres.empty() && plan.longues.empty())
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgramme,
                          "aucune colonne ne donne de question, de nombre "
                          "ni de texte. Vérifiez la lecture ("_w,
                          DireLecture(source, table.lecture), "), ou dites ce que deviennent les colonnes."}));
  if (fichiers.pos) SauvegarderAncien(rapport, contexte.Nom(".POS"), *fichiers.pos, sorties->jeu);
  ImprimerPresence(rapport, contexte, fichiers.nomSource, {true, fichiers.datPresent, fichiers.pos.has_value()});
  GarderLesDonnees(rapport, contexte, fichiers, sorties->jeu);
  IntitulesPerdus perdus;
  EcrireLesDictionnaires(rapport, contexte, options, fichiers, plan, table, *sorties, perdus);
  CopierSource(contexte, fichiers, source, plan, sorties->jeu);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});
  ImprimerLecture(rapport, fichiers.nomSource, source, table);
  ImprimerColonnesEtRemarques(rapport, contexte, table, plan, bilan, perdus);
  ImprimerVerification(rapport, table.faits.individus, bilan.premieres, false);
  PrevenirDesTableaux(contexte, sorties->jeu);
  sorties->jeu.Valider();
}

// The dBase import takes generic.DBF: a file of another name is copied there first.
Fin ImporterDBase(const Contexte& contexte, const OptionsImport& options) {
  const std::optional<Chemin> source = ChercherFichier(contexte.repertoire, options.fichier);
  if (!source) {
    return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{}, [&](Rapport& rapport) {
      ExigerFichiers(rapport, contexte.Ecran(), {{NomDeSource(contexte, options), false}}, kArretAbsence);
    });
  }
  const std::optional<Chemin> ancien = contexte.Chercher(".DBF");
  if (!ancien || !EstLeMemeFichier(*ancien, *source)) {
    if (ancien && !PeutEtreRemplace(contexte.Ecran(), contexte.Nom(".DBF"), Boutons::OuiNon)) return Fin::Arret;
    JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
    sorties.Copier(*source, contexte.Nom(".DBF"), Nature::Unique);
    sorties.Valider();
  }
  return ImportDbf(contexte, {});
}

void ImprimerApercu(Rapport& rapport, const Contexte& contexte, const OptionsImport& options) {
  const std::optional<Chemin> fichier = ChercherSource(contexte, options);
  ExigerFichiers(rapport, contexte.Ecran(), {{NomDeSource(contexte, options), fichier.has_value()}}, kArretAbsence);
  if (GenreDe(*fichier) == GenreDeSource::DBase)
    throw Erreur(kIncompatibiliteType,
                 Joindre({kArretDuProgramme, NomDeSource(contexte, options),
                          " est un fichier dBase, qui s'importe sans aperçu : ses champs deviennent des questions "
                          "(import GENERIQUE fichier="_w,
                          NomDeSource(contexte, options), ")"}));
  const SourceDeTable source(*fichier, options.feuille, contexte.repertoire);
  const Reconnaissance table = Reconnaitre(contexte, source, options);
  ImprimerLecture(rapport, NomDeSource(contexte, options), source, table);
  ImprimerTableDesColonnes(rapport, table);
  rapport.Lignes(RemarquesDeTable(table.faits, table.choix));
  if (contexte.Chercher(".IMC") && options.fichierChoix.empty())
    rapport.Ligne({"Le fichier ", contexte.Nom(".IMC"),
                   " existe : ses choix ne sont pas repris ici (choix=", contexte.Nom(".IMC"), " les reprend)"});
  rapport.Lignes(RefusDeTable(table.faits));
  rapport.Lignes(RefusDesChoix(table.choix, table.faits.colonnes));
}

}  // namespace

Fin Importer(const Contexte& contexte, const OptionsImport& options) {
  if (!options.fichier.empty() && GenreDe(CheminDe(options.fichier)) == GenreDeSource::DBase)
    return ImporterDBase(contexte, options);
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{},
                           [&](Rapport& rapport) { ImporterTable(rapport, contexte, options); });
}

Fin MontrerApercu(const Contexte& contexte, const OptionsImport& options) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{},
                           [&](Rapport& rapport) { ImprimerApercu(rapport, contexte, options); });
}

}  // namespace quelvar::capture
