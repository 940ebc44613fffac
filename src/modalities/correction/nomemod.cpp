#include "modalities/correction/nomemod.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/listemod.h"
#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "core/panne/annonce.h"
#include "core/programme/arret.h"
#include "core/programme/rapport.h"
#include "core/programme/refus.h"
#include "modalities/correction/modifmod.h"
#include "modalities/correction/nomquest.h"
#include "modalities/creation/fichiers.h"
#include "modalities/creation/posmod.h"
#include "modalities/liste/choix.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kGuideClic =
    "Cliquez maintenant sur la modalité dont vous voulez modifier l'intitulé. Celui-ci apparaitra s'il existe dans une "
    "ligne en bas. Il faudra alors entrer le texte de l'intitulé ou le modifier, nombre maximum de caractères = 20."_w;
constexpr std::string_view kGuideSuivant =
    "En passant au suivant, ou en cliquant sur un autre intitulé, on sauve ce qui était sur la ligne (mais ce n'est "
    "pas un enregistrement définitif)."_w;
constexpr std::string_view kGuideFin =
    "A la fin on enregistre définitivement en utilisant le bouton correspondant ; on peut faire aussi une sauvegarde "
    "en cours de route."_w;

// Reads the file, or tells that there is none.
std::optional<ListeModalites> Lire(const Contexte& contexte, std::vector<std::string>& message) {
  try {
    if (const std::optional<Chemin> chemin = ChercherMod(contexte.repertoire, contexte.Nom(".MOD")))
      return LireListeModalites(*chemin);
    message = {std::string(kTitreAttention), std::string("Le fichier des noms de modalités n'existe pas encore"_w)};
  } catch (const Erreur& erreur) {
    message = {std::string(kTitreAttention), std::string(TexteErreur(erreur))};
  }
  return std::nullopt;
}

std::string TexteDeLigne(std::string_view ligne) {
  const Modalite lue = LireLigneModalite(ligne);
  return TexteDeModalite(lue.nom, lue.marque, lue.intitule);
}

// What is said of the questions and of the labels that are not known: of the questions of the first pass that has such,
// else of the first label that is of no modality that the passes make or that the file has. Nothing when all are known.
std::vector<std::string> PhrasesDesInconnues(const Contexte& contexte, const OptionsNomeMod& options) {
  std::unordered_set<std::string> noms;
  const FichierPos pos = LirePos(contexte.Exiger(".POS"));
  for (const PasseNomeMod& passe : options.passes) {
    if (!passe.questions) continue;
    std::vector<std::string> inconnues;
    const ChoixQuestions choix = ChoixDesNoms(pos, ModePosmod::Modi, *passe.questions, {}, inconnues);
    if (!inconnues.empty()) return inconnues;
    for (const ModaliteCreee& modalite : PlanifierModalites(pos, choix, passe.codesZero).modalites)
      noms.insert(modalite.nom);
  }
  for (const ModaliteNommee& modalite : LireToutesModalites(contexte).modalites)
    noms.emplace(NomDeTexte(modalite.texte));
  for (const auto& [nom, intitule] : options.intitules)
    if (!noms.contains(CadreGauche(nom, kLargeurDeModalite))) return {PhraseInconnue(nom)};
  return {};
}

ListeModalites ListeNouvelle(std::size_t modalites) {
  return {std::string("Liste des modalités"_w), ParametresDeLaTable(modalites, -1, 0), {}, {}};
}

}  // namespace

EtatNomeMod LireModalitesCreees(const Contexte& contexte) {
  EtatNomeMod etat;
  if (const std::optional<ListeModalites> liste = Lire(contexte, etat.message))
    for (const std::string& texte : liste->textes) etat.modalites.push_back({texte});
  return etat;
}

EtatNomeMod LireToutesModalites(const Contexte& contexte) {
  EtatNomeMod etat;
  const std::optional<ListeModalites> liste = Lire(contexte, etat.message);
  if (!liste) return etat;
  std::unordered_set<std::string> noms;
  const auto ajouter = [&](const std::string& texte, bool derriere) {
    if (noms.insert(std::string(NomDeTexte(texte))).second) etat.modalites.push_back({texte, derriere});
  };
  for (const std::string& texte : liste->textes) ajouter(texte, false);
  for (const std::string& ligne : liste->suite)
    if (!FinitLesModalites(ligne)) ajouter(TexteDeLigne(ligne), true);
  return etat;
}

void NommerModalite(ModaliteNommee& modalite, std::string_view intitule) {
  PoserIntitule(modalite.texte, intitule);
  modalite.modifiee = true;
}

namespace {

ModaliteNommee* DuNom(std::vector<ModaliteNommee>& liste, std::string_view nom) {
  const auto trouvee =
      std::find_if(liste.begin(), liste.end(), [&](const ModaliteNommee& m) { return NomDeTexte(m.texte) == nom; });
  return trouvee == liste.end() ? nullptr : &*trouvee;
}

}  // namespace

void AjouterModalites(std::vector<ModaliteNommee>& liste, const std::vector<ModaliteNommee>& creees) {
  for (const ModaliteNommee& creee : creees) {
    ModaliteNommee* tenue = DuNom(liste, NomDeTexte(creee.texte));
    if (tenue == nullptr) liste.push_back(creee);
    else tenue->derriere = false;
  }
}

void ReprendreModalites(std::vector<ModaliteNommee>& liste, std::vector<ModaliteNommee> lues) {
  for (const ModaliteNommee& tenue : liste) {
    if (!tenue.modifiee) continue;
    ModaliteNommee* lue = DuNom(lues, NomDeTexte(tenue.texte));
    if (lue == nullptr) lues.push_back(tenue);
    else NommerModalite(*lue, IntituleDeTexte(tenue.texte));
  }
  liste = std::move(lues);
}

std::string TexteNombrePrevu(std::int64_t modalites) {
  return Joindre({"Le nombre de modalités prévu est de "_w, Nombre(modalites)});
}

std::string GuideDuChoix() {
  return std::string(
      "Vous pouvez éliminer de votre choix une ou plusieurs questions en les sélectionnant et en utilisant le bouton "
      "Enlever.\nUne fois votre choix fait, lancer la création des modalités en appuyant sur le bouton A3"_w);
}

std::string GuideDeLaCreation() {
  return Joindre({kGuideClic, "\n", kGuideSuivant, "\n", kGuideFin,
                  "\nLes étapes A1 à A3 peuvent être répétées.\nEn cas de création multiple par erreur, utilisez "
                  "l'option B qui éliminera de la liste les doublons."_w});
}

std::string GuideDeLaModification() {
  return Joindre({"Option B : la liste de toutes les modalités créées précédemment est affichée. "_w, kGuideClic, "\n",
                  kGuideSuivant, "\n", kGuideFin});
}

void SauverNomeMod(const Contexte& contexte, const std::vector<ModaliteNommee>& modalites) {
  const std::optional<Chemin> chemin = contexte.Chercher(".MOD");
  ListeModalites liste = chemin ? LireListeModalites(*chemin) : ListeNouvelle(modalites.size());
  std::unordered_set<std::string> noms;
  for (const ModaliteNommee& modalite : modalites) noms.emplace(NomDeTexte(modalite.texte));
  const auto tenue = [&](std::string_view ligne) { return noms.contains(CadreGauche(ligne, kLargeurDeModalite)); };

  std::vector<std::string> presentes;
  std::vector<std::string> suite;
  for (const ModaliteNommee& modalite : modalites) {
    if (modalite.derriere) suite.push_back(modalite.texte);
    else presentes.push_back(modalite.texte);
  }
  for (const std::string& texte : liste.textes)
    if (!tenue(texte)) presentes.push_back(texte);
  for (std::size_t i = 1; i < liste.suite.size(); ++i)
    if (FinitLesModalites(liste.suite[i]) || !tenue(liste.suite[i])) suite.push_back(liste.suite[i]);
  if (!liste.suite.empty()) suite.insert(suite.begin(), liste.suite.front());
  else if (!suite.empty()) suite.insert(suite.begin(), std::string(kFinDeListe));
  // Without a table the line tells the number of modalities, those of the former creations with them.
  if (presentes.size() > liste.textes.size() && liste.parametres == ParametresDeLaTable(liste.textes.size(), -1, 0))
    liste.parametres = ParametresDeLaTable(presentes.size(), -1, 0);
  liste.textes = std::move(presentes);
  liste.suite = std::move(suite);
  EcrireListeModalites(contexte.repertoire, contexte.Nom(".MOD"), liste);
}

namespace {

Fin SousLeRapport(const Contexte& contexte, RapportNomeMod genre, const std::function<void(Rapport&)>& corps) {
  const bool nouveau = genre == RapportNomeMod::Nouveau;
  return ExecuterProgramme(
      contexte, contexte.Nom(".PRT"), LibellesErreur{},
      [&](Rapport& rapport) {
        if (nouveau) ImprimerEnTeteDesModalites(contexte, rapport);
        corps(rapport);
      },
      nouveau ? ModeEcriture::Neuf : ModeEcriture::Suite);
}

// Option A: the list as the form has it behind the last pass.
std::vector<ModaliteNommee> CreerLesPasses(const Contexte& contexte, const OptionsNomeMod& options, Rapport& rapport) {
  const std::vector<std::string> inconnues = PhrasesDesInconnues(contexte, options);
  rapport.Lignes(inconnues);
  if (!inconnues.empty()) throw Refus();  // nothing is written yet
  std::vector<ModaliteNommee> modalites;
  for (const PasseNomeMod& passe : options.passes) {
    if (!passe.questions) continue;
    CreerSansDonnees(contexte, *passe.questions, passe.codesZero, rapport);
    AjouterModalites(modalites, LireModalitesCreees(contexte).modalites);
  }
  return modalites;
}

// The list that option B shows.
std::vector<ModaliteNommee> ToutesLesModalites(const Contexte& contexte, Rapport& rapport) {
  EtatNomeMod etat = LireToutesModalites(contexte);
  ArreterSi(rapport, etat.message);
  return std::move(etat.modalites);
}

void PoserIntitules(const Contexte& contexte, const OptionsNomeMod& options, std::vector<ModaliteNommee>& modalites,
                    Rapport& rapport) {
  const std::vector<std::string> presentes = LireListeModalites(contexte.Exiger(".MOD")).textes;
  for (const auto& [nom, intitule] : options.intitules) {
    RangDeModalite(presentes, nom);  // one of its own
    const std::string cherche = CadreGauche(Rogner(nom), kLargeurDeModalite);
    if (options.Cree() && DuNom(modalites, cherche) == nullptr)
      ReprendreModalites(modalites, ToutesLesModalites(contexte, rapport));
    ModaliteNommee* modalite = DuNom(modalites, cherche);
    if (modalite == nullptr) {
      rapport.Ligne(PhraseInconnue(nom));
      if (options.Cree()) throw Erreur(kArretAnnonce);
      throw Refus();  // nothing is written yet
    }
    NommerModalite(*modalite, intitule);
  }
}

}  // namespace

bool OptionsNomeMod::Cree() const {
  return std::any_of(passes.begin(), passes.end(),
                     [](const PasseNomeMod& passe) { return passe.questions.has_value(); });
}

Fin CreerModalites(const Contexte& contexte, const PasseNomeMod& passe, RapportNomeMod rapport) {
  return SousLeRapport(contexte, rapport, [&](Rapport& ecrit) {
    CreerSansDonnees(contexte, passe.questions.value_or(std::vector<std::string>()), passe.codesZero, ecrit);
  });
}

Fin EnregistrerNomeMod(const Contexte& contexte, const std::vector<ModaliteNommee>& modalites, RapportNomeMod rapport) {
  return SousLeRapport(contexte, rapport, [&](Rapport& ecrit) {
    SauverNomeMod(contexte, modalites);
    ecrit.Ligne(kIntitulesSauvegardes);
  });
}

Fin NommerModalites(const Contexte& contexte, const OptionsNomeMod& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    ExigerFichiersDesModalites(contexte, rapport);
    ImprimerEnTeteDesModalites(contexte, rapport);
    std::vector<ModaliteNommee> modalites =
        options.Cree() ? CreerLesPasses(contexte, options, rapport) : ToutesLesModalites(contexte, rapport);
    PoserIntitules(contexte, options, modalites, rapport);
    SauverNomeMod(contexte, modalites);
    rapport.Ligne(kIntitulesSauvegardes);
  });
}

}  // namespace quelvar::modalities
