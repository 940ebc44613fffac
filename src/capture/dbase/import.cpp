#include "capture/dbase/import.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "capture/compterendu/fichiers.h"
#include "capture/dbase/dbf.h"
#include "capture/dbase/edition.h"
#include "capture/dbase/presence.h"
#include "capture/dbase/questions.h"
#include "capture/dbase/remarques.h"
#include "capture/dbase/tri.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"

namespace quelvar::capture {

namespace {

std::vector<Champ> ChampsImportes(const std::vector<QuestionImportee>& questions) {
  std::vector<Champ> champs;
  champs.reserve(questions.size());
  for (const QuestionImportee& question : questions) champs.push_back(question.EnChamp());
  return champs;
}

std::vector<QuestionDuTri> Assembler(const std::vector<QuestionImportee>& questions, std::vector<TriDeChamp> tris) {
  std::vector<QuestionDuTri> comptees;
  for (std::size_t i = 0; i < questions.size(); ++i)
    comptees.push_back({questions[i].nom, questions[i].position, questions[i].largeur, std::move(tris[i])});
  return comptees;
}

// Columns 8-9 of a line of .POS, such that a reader finds the width again.
std::string CodeMaxEcrit(const QuestionDuTri& question) {
  constexpr int kPremierDeDeuxColonnes = 10;
  if (question.largeur == LargeurDe(kCodeMaxL3)) return TexteCodeMax(kCodeMaxL3);
  return TexteCodeMax(question.largeur == 1 ? question.tri.codeMax
                                            : std::max(question.tri.codeMax, kPremierDeDeuxColonnes));
}

void EcrirePos(Ecrivain& pos, const Contexte& contexte, const std::vector<QuestionDuTri>& questions,
               std::int64_t individus) {
  pos.Ligne(contexte.generique);
  pos.Ligne(LigneDeTaille(individus));
  for (const QuestionDuTri& question : questions)
    pos.Ligne(LigneDeQuestion(question.nom, static_cast<std::int64_t>(question.position), CodeMaxEcrit(question)));
}

// Writes the records as lines of .DAT and counts them on the way.
PassageDbf CopierEnregistrements(Ecrivain& dat, LecteurDbf& lecteur, const EnteteDbf& entete,
                                 CompteurDeChamps& compteur, std::size_t longueurUtile, Progression& progression) {
  const std::size_t longueur = entete.LongueurLigne();
  std::string ligne(std::max(longueur, longueurUtile), ' ');
  ConvertisseurDbf convertisseur(entete);
  PassageDbf passage;
  for (std::string_view enregistrement; lecteur.Lire(enregistrement);) {
    passage.Voir(enregistrement);
    convertisseur.Convertir(enregistrement, ligne.data());
    compteur.Compter(ligne.data());
    dat.Ligne(std::string_view(ligne).substr(0, longueur));
    progression.Avancer();
  }
  passage.Prendre(convertisseur);
  return passage;
}

// The questions of a table as they were counted in its records, and what is to be told of them.
struct ChampsComptes {
  std::vector<QuestionDuTri> comptees;
  PassageDbf passage;
  Remarques impropres;
  std::int64_t impossibles = 0;
};

// Writes the records of .DAT and counts the questions on the way.
ChampsComptes CopierEtCompter(Ecrivain& dat, const Contexte& contexte, LecteurDbf& lecteur, const EnteteDbf& entete,
                              const std::vector<QuestionImportee>& questions) {
  const auto individus = static_cast<std::int64_t>(lecteur.Enregistrements());
  // A question behind the end of the records is blank in all of them.
  const auto derriere = std::find_if(questions.begin(), questions.end(), [&](const QuestionImportee& question) {
    return question.position > entete.LongueurLigne();
  });
  const std::vector<Champ> champs = ChampsImportes({questions.begin(), derriere});
  CompteurDeChamps compteur(champs);
  for (std::size_t i = 0; i < champs.size(); ++i)
    if (!questions[i].champ.empty()) compteur.Surveiller(i);
  ChampsComptes lus;
  {
    Progression progression(contexte.Ecran(), individus);
    lus.passage = CopierEnregistrements(dat, lecteur, entete, compteur, LongueurUtile(champs), progression);
  }
  std::vector<TriDeChamp> tris = compteur.Tris();
  tris.resize(questions.size(), TriDeChamp{{individus}, 0, 0, 0, {}});
  RemarquerImpropres(lus.impropres, questions, tris);
  lus.comptees = Assembler(questions, std::move(tris));
  lus.impossibles = compteur.ValeursImpossibles();
  return lus;
}

// The former .DAT stays under a backup name, which is told.
void GarderLesDonnees(Remarques& remarques, const Contexte& contexte, const FichiersDBase& fichiers,
                      JeuDeFichiers& sorties) {
  if (!fichiers.dat) return;
  const std::string nom = contexte.Nom(".DAT");
  const std::string copie = GarderRemplace(sorties, *fichiers.dat, sorties.Achever(nom));
  if (copie.empty()) return;
  remarques.push_back(Joindre({"Le fichier ", nom, " est remplacé ; l'ancien est sauvegardé sous le nom "_w, copie}));
}

void ImporterChamps(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers,
                    const EnteteDbf& entete) {
  ExigerEntete(rapport, entete, contexte.Nom(".DBF"));
  LecteurDbf lecteur(*fichiers.dbf, entete);
  const auto individus = static_cast<std::int64_t>(lecteur.Enregistrements());
  rapport.Ligne({"Nombre d'individus dans le fichier dBase=", NombreNu(individus)});
  rapport.Ligne({"La longueur d'un enregistrement est de ", NombreNu(entete.longueurEnregistrement)});

  std::vector<QuestionImportee> questions = QuestionsDesChamps(entete.champs);
  const std::vector<std::size_t> renommees = NommerQuestions(questions);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& dat = sorties.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  const ChampsComptes lus = CopierEtCompter(dat, contexte, lecteur, entete, questions);
  EcrirePos(sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique), contexte, lus.comptees, individus);
  ImprimerTris(rapport, lus.comptees, individus);
  ImprimerFinDImport(rapport, contexte.niveau);

  Remarques remarques;
  RemarquerDbf(remarques, entete, lecteur.Taille(), lus.passage);
  RemarquerQuestions(remarques, questions, renommees, entete.LongueurChamps());
  RemarquerImpossibles(remarques, lus.impossibles);
  remarques.insert(remarques.end(), lus.impropres.begin(), lus.impropres.end());
  GarderLesDonnees(remarques, contexte, fichiers, sorties);
  MontrerRemarques(contexte.Ecran(), remarques);
  PrevenirDesTableaux(contexte, sorties);
  sorties.Valider();
}

// A .DAT that has no dictionary: every column of its lines is a question.
struct PositionsComptees {
  std::vector<QuestionImportee> questions;
  std::vector<QuestionDuTri> comptees;
  std::int64_t individus = 0;
  std::size_t longueur = 0;  // of the longest line
};

// Raises kFinDeFichierDepassee for a file without lines.
PositionsComptees CompterPositions(const Contexte& contexte, const Chemin& dat) {
  PositionsComptees lues;
  {
    LecteurLignes lecteur(dat);
    for (std::string_view ligne; lecteur.Lire(ligne); ++lues.individus)
      lues.longueur = std::max(lues.longueur, ligne.size());
  }
  if (lues.individus == 0) throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(dat.filename())});
  lues.questions = QuestionsDesPositions(lues.longueur);
  const std::vector<Champ> champs = ChampsImportes(lues.questions);
  CompteurDeChamps compteur(champs);
  Progression progression(contexte.Ecran(), lues.individus);
  LecteurIndividus lecteur(dat, lues.questions.size());
  while (const char* ligne = lecteur.Lire()) {
    compteur.Compter(ligne);
    progression.Avancer();
  }
  lues.comptees = Assembler(lues.questions, compteur.Tris());
  return lues;
}

// Makes the dictionary of a .DAT that has none.
void ImporterPositions(Rapport& rapport, const Contexte& contexte, const Chemin& dat) {
  const PositionsComptees lues = CompterPositions(contexte, dat);
  Remplacement pos(contexte.repertoire, contexte.Nom(".POS"));
  EcrirePos(pos.Fichier(), contexte, lues.comptees, lues.individus);
  pos.Achever();
  ImprimerTris(rapport, lues.comptees, lues.individus);
  ImprimerFinDImport(rapport, contexte.niveau);
  Remarques remarques;
  RemarquerQuestions(remarques, lues.questions, {}, lues.longueur);
  MontrerRemarques(contexte.Ecran(), remarques);
  pos.Valider();
}

// The questions of a .POS as they were counted in its .DAT.
struct QuestionsComptees {
  std::vector<QuestionDuTri> comptees;
  std::int64_t individus = 0;
  std::int64_t impossibles = 0;
};

QuestionsComptees CompterQuestions(const Contexte& contexte, const Chemin& dat, const FichierPos& pos) {
  const std::vector<Champ> champs = ChampsDe(pos);
  CompteurDeChamps compteur(champs);
  const std::int64_t annonces = pos.taille.individus;
  const std::int64_t maximum = annonces == 0 ? std::numeric_limits<std::int64_t>::max() : annonces;
  QuestionsComptees lues;
  {
    Progression progression(contexte.Ecran(), annonces);
    LecteurIndividus lecteur(dat, LongueurUtile(champs));
    lues.individus = Parcourir(lecteur, maximum, [&](const char* ligne, std::int64_t) {
      compteur.Compter(ligne);
      progression.Avancer();
    });
  }
  std::vector<TriDeChamp> tris = compteur.Tris();
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    lues.comptees.push_back({question.nom, static_cast<std::size_t>(question.position),
                             static_cast<std::size_t>(question.largeur), std::move(tris[i])});
  }
  lues.impossibles = compteur.ValeursImpossibles();
  return lues;
}

// Counts a .DAT by the questions of its .POS; both stay as they are.
void CompterSelonPos(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers) {
  const FichierPos pos = LirePos(*fichiers.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  ExigerNomsDifferents(pos);
  const QuestionsComptees lues = CompterQuestions(contexte, *fichiers.dat, pos);
  if (lues.individus < pos.taille.individus) Avertir(rapport, contexte.Ecran(), kFichierPlusCourt);
  ImprimerTris(rapport, lues.comptees, lues.individus);
  ImprimerFinDImport(rapport, contexte.niveau);
  Remarques remarques;
  RemarquerImpossibles(remarques, lues.impossibles);
  MontrerRemarques(contexte.Ecran(), remarques);
}

void Importer(Rapport& rapport, const Contexte& contexte) {
  const FichiersDBase fichiers = TrouverFichiersDBase(contexte);
  EnteteDbf entete;
  std::optional<Erreur> echec;
  if (fichiers.dbf) echec = EchecDe([&] { entete = LireEnteteDuFichier(*fichiers.dbf); });
  ImprimerBandeau(rapport, "Importation de données"_w);
  if (fichiers.pos && (fichiers.dbf || fichiers.dat)) {
    JeuDeFichiers sauvegardes(contexte.repertoire, contexte.generique);
    SauvegarderAncien(rapport, contexte.Nom(".POS"), *fichiers.pos, sauvegardes);
    sauvegardes.Valider();
  }
  ImprimerPresence(rapport, contexte, fichiers, !echec && entete.DonneLesEnregistrements());
  if (fichiers.dbf && contexte.niveau < kNiveauAvance) ImprimerAvis(rapport);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});
  if (echec) throw *echec;
  if (fichiers.dbf) ImporterChamps(rapport, contexte, fichiers, entete);
  else if (fichiers.pos) CompterSelonPos(rapport, contexte, fichiers);
  else ImporterPositions(rapport, contexte, *fichiers.dat);
}

}  // namespace

Fin ImportDbf(const Contexte& contexte, const OptionsImportDbf&) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{},
                           [&](Rapport& rapport) { Importer(rapport, contexte); });
}

}  // namespace quelvar::capture
