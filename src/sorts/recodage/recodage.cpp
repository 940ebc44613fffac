#include "sorts/recodage/recodage.h"

#include <algorithm>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/panne/annonce.h"
#include "core/programme/annulation.h"
#include "core/programme/arret.h"
#include "core/programme/refus.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "sorts/recodage/consignes.h"
#include "sorts/recodage/edition.h"
#include "sorts/recodage/etiquettes.h"
#include "sorts/recodage/passe.h"
#include "sorts/recodage/plan.h"
#include "sorts/recodage/posneuf.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

// The names of a run: what it reads, and the generic that it makes.
struct NomsDeRecodage {
  std::string donnees;
  std::string nouveau;

  std::string Neuf(std::string_view extension) const { return nouveau + std::string(extension); }
};

// Writes the warnings of the recoding to its report and counts them.
class Avertisseur {
 public:
  // `dejaDites`: those that the reading has counted.
  Avertisseur(Rapport& rapport, const Dialogue& ecran, FautesDites dejaDites)
      : rapport_(rapport), ecran_(ecran), fautes_(std::move(dejaDites)) {}

  void Avertir(Texte texte, Lieu ou = {}) {
    rapport_.Ligne();
    quelvar::Avertir(rapport_, ecran_, Joindre({kFaute, texte}));
    fautes_.Compter(std::string(texte.Vue()), std::move(ou));
  }
  const FautesDites& Fautes() const { return fautes_; }

 private:
  Rapport& rapport_;
  const Dialogue& ecran_;
  FautesDites fautes_;
};

// A typed name loses what follows its first point; an empty answer keeps the proposed name. Nothing when no name is
// left of an answer, or the files of that generic are not to be replaced.
std::optional<std::string> DemanderGenerique(const Contexte& contexte, bool remplacer) {
  if (contexte.generique.empty()) return std::string();
  const std::string suivant = GeneriqueSuivant(contexte.generique);
  std::string question =
      Joindre({"Si choix d'un générique autre que par défaut, entrez le générique sinon faites entrée "_w});
  std::string propose = suivant;
  if (!remplacer && GeneriqueExiste(contexte.repertoire, suivant)) {
    propose = GeneriqueLibre(contexte.repertoire, contexte.generique);
    question = Joindre({"Le générique "_w, suivant, " existe déjà dans ce répertoire.\r\n"_w, question});
  }
  const std::string saisi = contexte.Ecran().saisir(question, propose);
  const std::string nom = GeneriqueSaisi(saisi);
  if (nom.empty() && !Rogner(saisi).empty()) {
    contexte.Ecran().demander(kPasDeNom, Boutons::Ok);
    return std::nullopt;
  }
  if (nom.empty()) return propose;
  // The generic of the source is refused behind the banner, as ever.
  if (!remplacer && !EgalSansCasse(nom, contexte.generique) && !PeutEtreRemplace(contexte, nom)) return std::nullopt;
  return nom;
}

// Whether the modality file goes to the new generic; asks, unless the session has its answer.
bool DemanderModalites(const Contexte& contexte, Rapport& rapport, const std::string& nouveau, SuiteRecodage& suite) {
  if (!contexte.Chercher(".MOD")) return false;
  if (suite.passerModalites) return true;
  const bool remplace = ChercherFichier(contexte.repertoire, nouveau + ".MOD").has_value();
  const std::string question =
      remplace ? Joindre({"L'ancien fichier de modalités du générique "_w, nouveau,
                          "\r\n va être remplacé par celui du générique, "_w, contexte.generique,
                          "\r\nest-ce que vous acceptez ce remplacement ? (mais il sera conservé en *.MO2) "_w})
               : Joindre({"L'actuel fichier de modalités du générique "_w, contexte.generique,
                          ", va être recopié dans le nouveau générique, "_w, nouveau,
                          "\r\nest-ce que vous acceptez ce passage ?"});
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({question, "\r\nPour répondre Oui et ne plus avoir la question répondre 'Annuler'"_w}),
      Boutons::OuiNonAnnuler);
  suite.passerModalites = reponse == Reponse::Annuler;
  const bool passe = reponse != Reponse::Non;
  if (remplace && !passe) rapport.Ligne({"L'ancien fichier de modalités du générique "_w, nouveau, " est conservé"_w});
  if (!remplace && passe)
    rapport.Ligne({"Le fichier de modalités du générique "_w, contexte.generique, " est recopié "_w});
  return passe;
}

// The modality file after the rules, told in the report; nothing when it goes over as it is. Faults of the files are
// left to the readers that tell them.
std::optional<ModalitesSuivies> SuivreModalites(const Contexte& contexte, const OptionsRecodage& options,
                                                const Chemin& cheminPos, Rapport& rapport) {
  std::optional<ModalitesSuivies> suivies;
  try {
    const FichierPos pos = LirePos(cheminPos);
    std::vector<std::string> creees;
    for (const Vit& vit : LireBlocVit(pos).vits) creees.push_back(vit.nom);
    suivies = SuivreRecodage(LireMod(contexte.Exiger(".MOD")), pos, CodesChangesPar(pos, options), creees);
  } catch (const Erreur&) {
    return std::nullopt;
  }
  if (suivies->refaites.empty() && suivies->otees.empty() && suivies->indecises.empty()) return std::nullopt;
  const auto dire = [&](Texte texte, const std::vector<std::string>& noms) {
    if (noms.empty()) return;
    rapport.Suite(texte);
    for (const std::string& nom : noms) rapport.Suite({" ", nom});
    rapport.Ligne();
  };
  dire("Les intitulés de modalités sont refaits d'après le recodage pour :"_w, suivies->refaites);
  dire("Les intitulés de modalités ne sont pas repris, une question créée a le même nom :"_w, suivies->otees);
  dire("Ces intitulés de modalités restent tels quels, plusieurs questions peuvent avoir la modalité :"_w,
       suivies->indecises);
  return suivies;
}

// The new generic must not write over what the run reads, and its files must be files.
void ExigerSortiesLibres(const Contexte& contexte, Rapport& rapport, const NomsDeRecodage& noms,
                         const Chemin& donnees) {
  if (EgalSansCasse(noms.nouveau, contexte.generique)) {
    Avertir(rapport, contexte.Ecran(),
            Joindre({kArretDuProgramme, noms.nouveau,
                     " est le générique d'origine, donnez un autre nom au nouveau générique"_w}));
    throw Refus();
  }
  if (!PeutNommerDesFichiers(noms.nouveau)) throw Erreur(kNomFichierIncorrect).Situer({.fichier = noms.nouveau});
  for (const std::string_view extension : {".DAT", ".POS", ".MOD", ".MO2"}) {
    const std::optional<Chemin> cible = ChercherFichier(contexte.repertoire, noms.Neuf(extension));
    if (!cible) continue;
    LongueurFichier(*cible);  // a directory of that name raises
    if (EstLeMemeFichier(*cible, donnees)) throw EchecDuFichier(*cible, kPermissionRefusee);
  }
}

void ArreterSurFautes(const Contexte& contexte, const Avertisseur& avertisseur, Rapport& rapport) {
  if (avertisseur.Fautes().nombre == 0) return;
  contexte.Ecran().biper();
  rapport.Ligne("Arrêt du programme dû aux erreurs signalées"_w);
  Arreter(rapport, Joindre({"Du fait de l'erreur le générique reste "_w, contexte.generique}),
          avertisseur.Fautes().premiere);
}

// Tables, then the faults that only they show, then the place of each field.
PlanDeRecodage DresserPlan(const Contexte& contexte, const Consignes& consignes, const Chemin& donnees,
                           Rapport& rapport, Avertisseur& avertisseur) {
  std::vector<ChampNeuf> champs = CompleterChamps(consignes);
  for (const ChampNeuf& champ : champs) {
    if (champ.tropLarge)
      avertisseur.Avertir(
          Joindre({"Nouveau code trop large pour la question : ", consignes.pos.questions[champ.question].nom}),
          LieuDeLaQuestion(consignes.pos, champ.question));
  }
  ArreterSurFautes(contexte, avertisseur, rapport);
  std::int64_t longueur = 0;
  if (consignes.mode == ModeRecodage::EnFin || !consignes.vits.empty())
    longueur = LongueurEnregistrement(consignes.pos.questions, LongueurDesLignes(donnees, consignes.individus));
  return Disposer(consignes, std::move(champs), longueur);
}

BilanDePasse Passer(const Contexte& contexte, const Consignes& consignes, const PlanDeRecodage& plan,
                    const Chemin& donnees, Ecrivain& sortie, Avertisseur& avertisseur) {
  TemoinsDePasse temoins;
  temoins.depassement = [&](std::size_t question, std::int64_t ligne) {
    avertisseur.Avertir(
        Joindre({"Depassement de code-max a ", consignes.pos.questions[question].nom, " Ligne", NombreBlanc(ligne)}));
  };
  temoins.scoreTropGrand = [&](std::size_t vit, std::int64_t ligne) {
    avertisseur.Avertir(Joindre(
        {"VIT plus grande que 999 ", " a la VIT ", consignes.vits[vit].nom, " a la ligne ", NombreBlanc(ligne)}));
  };
  return PasserIndividus(consignes, plan, donnees, sortie, temoins, contexte.Ecran());
}

void ImprimerBilan(Rapport& rapport, const Consignes& consignes, const BilanDePasse& bilan, Avertisseur& avertisseur) {
  rapport.Ligne({"Le nombre d'individus en entrée est de "_w, NombreNu(bilan.entree)});
  if (consignes.ponderation) {
    rapport.Ligne();
    rapport.Ligne({"Une pondération est appliquée en utilisant la question "_w,
                   consignes.pos.questions[*consignes.ponderation].nom});
  }
  rapport.Ligne({"Le nombre d'individus en sortie est de ", NombreNu(bilan.sortie)});
  if (bilan.entree < consignes.individus)
    avertisseur.Avertir("Attention : le nombre réel d'individus est inferieur à celui annoncé"_w);
  if (bilan.pas > 1) {
    rapport.Ligne();
    rapport.Ligne("Le nombre d'individus en sortie est ramené à "_w);
    rapport.Ligne({"    l'effectif de départ, il est maintenant de "_w, NombreNu(bilan.ecrites)});
    rapport.Ligne();
  }
}

// The people behind the former lines that the filter keeps: at least one, since 0 would tell a file without weights.
std::int64_t AncienCompteRetenu(std::int64_t ancien, const BilanDePasse& bilan) {
  if (ancien <= 0 || bilan.retenus == bilan.entree) return ancien;
  const double part = static_cast<double>(bilan.retenus) / static_cast<double>(bilan.entree);
  return std::max<std::int64_t>(Entier64(static_cast<double>(ancien) * part), 1);
}

TailleNeuve TailleDe(const Consignes& consignes, const BilanDePasse& bilan) {
  const bool reduite = consignes.ponderation && !consignes.maximum;
  return {bilan.ecrites, reduite ? bilan.retenus : AncienCompteRetenu(consignes.pos.taille.avantPonderation, bilan)};
}

// A file of nobody is made neither by a filter nor by weights of 0; the report of a generic that is there stays.
void ExigerRetenus(const Contexte& contexte, Rapport& rapport, const Consignes& consignes, const NomsDeRecodage& noms,
                   const BilanDePasse& bilan) {
  const bool sansPoids = consignes.ponderation && bilan.sortie == 0;
  if (bilan.entree == 0 || (bilan.retenus > 0 && !sansPoids)) return;
  contexte.Ecran().biper();
  if (bilan.retenus == 0) {
    rapport.Ligne("Arrêt du programme : le filtre ne garde aucun individu, aucun fichier n'est créé ni modifié"_w);
    rapport.Ligne({"Corrigez le filtre et relancez, le générique reste "_w, contexte.generique});
  } else {
    rapport.Ligne({"Arrêt du programme : la question "_w, consignes.pos.questions[*consignes.ponderation].nom,
                   " donne un poids nul à tous les individus, aucun fichier n'est créé ni modifié"_w});
    rapport.Ligne({"Corrigez la pondération et relancez, le générique reste "_w, contexte.generique});
  }
  if (ChercherFichier(contexte.repertoire, noms.Neuf(".REC"))) throw Refus();
  throw Erreur(kArretAnnonce);
}

// The modality file of the old generic, and the backup of the one that it replaces; an older backup goes on.
void CopierModalites(const Contexte& contexte, const std::string& nom, const std::optional<ModalitesSuivies>& suivies,
                     JeuDeFichiers& sorties) {
  if (const std::optional<Chemin> ancien = ChercherFichier(contexte.repertoire, nom)) {
    const std::string sauvegarde = NomDeSauvegarde(nom);
    if (const std::string conservee = ConserverSauvegarde(sorties, *ancien, sauvegarde); !conservee.empty())
      contexte.Ecran().demander(
          Joindre({"L'ancienne sauvegarde "_w, sauvegarde, " est conservée sous le nom "_w, conservee}), Boutons::Ok);
    sorties.Copier(*ancien, sauvegarde, Nature::Unique);
  }
  if (!suivies) return sorties.Copier(contexte.Exiger(".MOD"), nom, Nature::Unique);
  Ecrivain& fichier = sorties.Ouvrir(nom, Nature::Unique);
  for (const std::string& ligne : suivies->lignes) fichier.Ligne(ligne);
}

void ImprimerFin(const Contexte& contexte, Rapport& rapport, const std::string& nouveau) {
  ImprimerChangementDeGenerique(rapport, contexte, nouveau, true);
  rapport.Ligne();
  rapport.Ligne("Fin normale du programme");
  contexte.Ecran().biper();
}

void Executer(const Contexte& contexte, const OptionsRecodage& options, const NomsDeRecodage& noms,
              SuiteRecodage& suite, Rapport& rapport) {
  const std::optional<Chemin> donnees = ChercherFichier(contexte.repertoire, noms.donnees);
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{"des donnees " + noms.donnees, donnees.has_value()}, {contexte.Nom(".POS"), pos.has_value()}},
                 kArretAbsenceSansAccents);
  ImprimerBandeau(rapport, "Création d'un nouveau fichier"_w);
  ExigerSortiesLibres(contexte, rapport, noms, *donnees);
  const bool passerModalites = DemanderModalites(contexte, rapport, noms.nouveau, suite);
  std::optional<ModalitesSuivies> modalites;
  if (passerModalites) modalites = SuivreModalites(contexte, options, *pos, rapport);

  const LectureDesConsignes lues = LireConsignes(options, *pos, contexte.Nom(".POS"), *donnees);
  lues.constats.Dire(rapport, contexte.Ecran());
  if (lues.arret) throw Erreur(*lues.arret);
  const Consignes& consignes = lues.consignes;
  Avertisseur avertisseur(rapport, contexte.Ecran(), lues.fautes);
  const PlanDeRecodage plan = DresserPlan(contexte, consignes, *donnees, rapport, avertisseur);
  ImprimerTableRecodage(rapport, consignes, plan);

  JeuDeFichiers sorties(contexte.repertoire, noms.nouveau);
  Ecrivain& sortie = sorties.Ouvrir(noms.Neuf(".DAT"), Nature::Refaisable);
  const BilanDePasse bilan = Passer(contexte, consignes, plan, *donnees, sortie, avertisseur);
  ExigerRetenus(contexte, rapport, consignes, noms, bilan);
  ImprimerBilan(rapport, consignes, bilan, avertisseur);
  EcrirePosNeuf(sorties.Ouvrir(noms.Neuf(".POS"), Nature::Unique), consignes, plan, TailleDe(consignes, bilan),
                noms.nouveau);
  if (passerModalites) CopierModalites(contexte, noms.Neuf(".MOD"), modalites, sorties);
  EcrireInitialisation(sorties, noms.nouveau, contexte.niveau);
  ImprimerRemplacementDuGenerique(rapport, contexte, noms.nouveau, {".DAT", ".POS"});
  if (const std::string remarque = RemarqueSurLesTableaux(contexte, noms.nouveau, sorties.Achever(noms.Neuf(".DAT")));
      !remarque.empty())
    contexte.Ecran().demander(remarque, Boutons::Ok);
  sorties.Valider();
  ImprimerFin(contexte, rapport, noms.nouveau);
}

}  // namespace

Fin Recodage(const Contexte& contexte, const OptionsRecodage& options) {
  SuiteRecodage sansSuite;
  SuiteRecodage& suite = options.suite != nullptr ? *options.suite : sansSuite;
  suite.generique = contexte.generique;
  const std::optional<std::string> nouveau = DemanderGenerique(contexte, options.remplacer);
  if (!nouveau) throw Annulation();
  const NomsDeRecodage noms{options.fichierDonnees.empty() ? contexte.Nom(".DAT") : options.fichierDonnees, *nouveau};
  const Fin fin = ExecuterProgramme(contexte, noms.Neuf(".REC"), LibellesErreur{},
                                    [&](Rapport& rapport) { Executer(contexte, options, noms, suite, rapport); });
  if (fin == Fin::Normale) suite.generique = noms.nouveau;
  return fin;
}

}  // namespace quelvar::sorts
