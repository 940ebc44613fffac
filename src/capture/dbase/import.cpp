#include "capture/dbase/import.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "capture/compterendu/fichiers.h"
#include "capture/dbase/dbf.h"
#include "capture/dbase/edition.h"
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

struct FichiersDBase {
  std::optional<Chemin> dbf;
  std::optional<Chemin> dat;
  std::optional<Chemin> pos;
};

void ImprimerPresence(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers, bool lisible) {
  const std::string dat = contexte.Nom(".DAT");
  const std::string pos = contexte.Nom(".POS");
  const std::string dbf = contexte.Nom(".DBF");
  if (fichiers.dbf) {
    ImprimerEtat(rapport, dbf, kExiste);
    ImprimerEtatDeSortie(rapport, dat, fichiers.dat.has_value(), lisible);
    ImprimerEtatDeSortie(rapport, pos, fichiers.pos.has_value(), lisible);
    rapport.Ligne();
    rapport.Ligne(kSelonLesLargeursDuDbf);
  } else if (fichiers.dat) {
    ImprimerEtat(rapport, dat, kExiste);
    ImprimerEtat(rapport, pos, fichiers.pos ? kExiste : kSeraCreeSansAccents);
    rapport.Ligne();
    rapport.Ligne(fichiers.pos ? "Toutes les positions sont examinées selon les largeurs de *.POS"_w
                               : "Toutes les positions sont examinées l'une apres l'autre"_w);
  } else {
    ImprimerEtat(rapport, dbf, kNExistePas);
    ImprimerEtat(rapport, dat, kNExistePas);
    ImprimerEtat(rapport, pos, fichiers.pos ? kExiste : kNExistePas);
    ArreterSansSource(rapport, fichiers.pos.has_value());
  }
}

void ImprimerAvis(Rapport& rapport) {
  rapport.Ligne("   +------------------------------------------------------------+");
  rapport.Ligne("   + Le nom du  champ dBase  est repris uniquement  dans le cas +");
  rapport.Ligne("   + des champs de largeur 1 ou 2. Les autres sont  decoupés en +"_w);
  rapport.Ligne("   + positions de largeur 1 et nommés par leur position dans le +"_w);
  rapport.Ligne("   + fichier *.POS                                              +");
}

std::vector<Champ> ChampsDe(const std::vector<QuestionImportee>& questions) {
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

void ImporterChamps(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers,
                    const EnteteDbf& entete) {
  const Chemin& dbf = *fichiers.dbf;
  ExigerEntete(rapport, entete, contexte.Nom(".DBF"));
  LecteurDbf lecteur(dbf, entete);
  const auto individus = static_cast<std::int64_t>(lecteur.Enregistrements());
  rapport.Ligne({"Nombre d'individus dans le fichier dBase=", NombreNu(individus)});
  rapport.Ligne({"La longueur d'un enregistrement est de ", NombreNu(entete.longueurEnregistrement)});

  std::vector<QuestionImportee> questions = QuestionsDesChamps(entete.champs);
  const std::vector<std::size_t> renommees = NommerQuestions(questions);
  // A question behind the end of the records is blank in all of them.
  const auto derriere = std::find_if(questions.begin(), questions.end(), [&](const QuestionImportee& question) {
    return question.position > entete.LongueurLigne();
  });
  const std::vector<Champ> champs = ChampsDe({questions.begin(), derriere});
  CompteurDeChamps compteur(champs);
  for (std::size_t i = 0; i < champs.size(); ++i)
    if (!questions[i].champ.empty()) compteur.Surveiller(i);

  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& dat = sorties.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  PassageDbf passage;
  {
    Progression progression(contexte.Ecran(), individus);
    passage = CopierEnregistrements(dat, lecteur, entete, compteur, LongueurUtile(champs), progression);
  }
  std::vector<TriDeChamp> tris = compteur.Tris();
  tris.resize(questions.size(), TriDeChamp{{individus}, 0, 0, 0, {}});
  Remarques impropres;
  RemarquerImpropres(impropres, questions, tris);
  const std::vector<QuestionDuTri> comptees = Assembler(questions, std::move(tris));
  EcrirePos(sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique), contexte, comptees, individus);
  ImprimerTris(rapport, comptees, individus);
  ImprimerFinDImport(rapport, contexte.niveau);

  Remarques remarques;
  RemarquerDbf(remarques, entete, lecteur.Taille(), passage);
  RemarquerQuestions(remarques, questions, renommees, entete.LongueurChamps());
  RemarquerImpossibles(remarques, compteur.ValeursImpossibles());
  remarques.insert(remarques.end(), impropres.begin(), impropres.end());
  const std::string nomDat = contexte.Nom(".DAT");
  const std::string copie =
      fichiers.dat ? GarderRemplace(sorties, *fichiers.dat, sorties.Achever(nomDat)) : std::string();
  if (!copie.empty())
    remarques.push_back(
        Joindre({"Le fichier ", nomDat, " est remplacé ; l'ancien est sauvegardé sous le nom "_w, copie}));
  MontrerRemarques(contexte.Ecran(), remarques);
  sorties.Valider();
}

// Makes the dictionary of a .DAT that has none: every column is a question.
void ImporterPositions(Rapport& rapport, const Contexte& contexte, const Chemin& dat) {
  std::int64_t individus = 0;
  std::size_t longueur = 0;
  {
    LecteurLignes lecteur(dat);
    for (std::string_view ligne; lecteur.Lire(ligne); ++individus) longueur = std::max(longueur, ligne.size());
  }
  if (individus == 0) throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(dat.filename())});
  const std::vector<QuestionImportee> questions = QuestionsDesPositions(longueur);
  const std::vector<Champ> champs = ChampsDe(questions);
  CompteurDeChamps compteur(champs);
  {
    Progression progression(contexte.Ecran(), individus);
    LecteurIndividus lecteur(dat, questions.size());
    while (const char* ligne = lecteur.Lire()) {
      compteur.Compter(ligne);
      progression.Avancer();
    }
  }
  const std::vector<QuestionDuTri> comptees = Assembler(questions, compteur.Tris());
  Remplacement pos(contexte.repertoire, contexte.Nom(".POS"));
  EcrirePos(pos.Fichier(), contexte, comptees, individus);
  pos.Achever();
  ImprimerTris(rapport, comptees, individus);
  ImprimerFinDImport(rapport, contexte.niveau);
  Remarques remarques;
  RemarquerQuestions(remarques, questions, {}, longueur);
  MontrerRemarques(contexte.Ecran(), remarques);
  pos.Valider();
}

// Counts a .DAT by the questions of its .POS; both stay as they are.
void CompterSelonPos(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers) {
  const FichierPos pos = LirePos(*fichiers.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  ExigerNomsDifferents(pos.questions);
  const std::vector<Champ> champs = quelvar::ChampsDe(pos);
  CompteurDeChamps compteur(champs);
  const std::int64_t annonces = pos.taille.individus;
  const std::int64_t maximum = annonces == 0 ? std::numeric_limits<std::int64_t>::max() : annonces;
  std::int64_t individus = 0;
  {
    Progression progression(contexte.Ecran(), annonces);
    LecteurIndividus lecteur(*fichiers.dat, LongueurUtile(champs));
    individus = Parcourir(lecteur, maximum, [&](const char* ligne, std::int64_t) {
      compteur.Compter(ligne);
      progression.Avancer();
    });
  }
  if (individus < annonces) Avertir(rapport, contexte.Ecran(), kFichierPlusCourt);
  std::vector<TriDeChamp> tris = compteur.Tris();
  std::vector<QuestionDuTri> comptees;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    comptees.push_back({question.nom, static_cast<std::size_t>(question.position),
                        static_cast<std::size_t>(question.largeur), std::move(tris[i])});
  }
  ImprimerTris(rapport, comptees, individus);
  ImprimerFinDImport(rapport, contexte.niveau);
  Remarques remarques;
  RemarquerImpossibles(remarques, compteur.ValeursImpossibles());
  MontrerRemarques(contexte.Ecran(), remarques);
}

void Importer(Rapport& rapport, const Contexte& contexte) {
  const FichiersDBase fichiers{contexte.Chercher(".DBF"), contexte.Chercher(".DAT"),
                               ChercherPos(contexte.repertoire, contexte.Nom(".POS"))};
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
