// The frame that every batch program shares: it opens the report, runs the body, turns every failure into its error
// text, and ends in FinProgramme.
#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/panne/erreur.h"
#include "core/programme/dialogue.h"
#include "core/programme/rapport.h"

namespace quelvar {

// The levels of a user: the ordinary options, or all of them.
inline constexpr int kNiveauSimple = 1;
inline constexpr int kNiveauAvance = 2;

// What every program receives.
struct Contexte {
  Chemin repertoire;      // working directory
  std::string generique;  // code page, without extension
  int niveau = kNiveauSimple;
  Dialogue* dialogue = nullptr;
  std::string* brouillon = nullptr;  // takes the report of a preparation in place of the directory

  Dialogue& Ecran() const { return *dialogue; }
  // The name of the file of the generic with that extension.
  std::string Nom(std::string_view extension) const { return generique + std::string(extension); }
  // The file of the generic with that extension (".DAT"), if it exists.
  std::optional<Chemin> Chercher(std::string_view extension) const {
    return ChercherFichier(repertoire, Nom(extension));
  }
  // The file of the generic that a run cannot do without, even when it was there at its beginning. Raises
  // kFichierIntrouvable, with its name.
  Chemin Exiger(std::string_view extension) const {
    std::optional<Chemin> fichier = Chercher(extension);
    if (!fichier) throw Erreur(kFichierIntrouvable).Situer({.fichier = Nom(extension)});
    return *std::move(fichier);
  }
};

// How a run ends: Arret when it did not come to its normal end.
enum class Fin { Normale, Arret };

// The wordings of the unexpected error that the programs use, each its own.
struct LibellesErreur {
  std::string_view imprevue = " Erreur non prévue : si après vérification l'erreur persiste"_w;
  std::string_view numero = " notez le numero = ";
  bool avecTexte = true;        // the words of the number stand behind it
  bool avecAssistance = true;   // `assistance` on its own line
  bool avecAsterisques = true;  // "**** ERREUR ********" first
  std::string_view assistance = " et prévenez l'assistance technique"_w;
  std::string_view question = "a la question ";  // before the rank of the question of kArgumentIncorrect
  // The lines of kFinDeFichierDepassee.
  std::vector<std::string_view> finDeFichier = {"Il y a eu tentative de lire un fichier deja termine",
                                                "Verifiez et corrigez avant de relancer"};
};

// Opens the report `nomRapport` (generic and extension), runs the body and ends in FinProgramme. The body never
// catches: an Erreur becomes the text of its number in the report, kArgumentIncorrect with a question becomes the
// lines on *.POS, kArretAnnonce adds nothing. Returns Arret for every run that did not come to its normal end.
// A run that goes on with the report of an earlier one writes behind it (ModeEcriture::Suite).
Fin ExecuterProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
                      const std::function<void(Rapport&)>& corps, ModeEcriture mode = ModeEcriture::Neuf);

// The report that is shown and not kept.
inline constexpr std::string_view kRapportSansNom = "$$$.prt";

// The run of an editing form that closes: does what is to be saved, then the report (generic and ".PRT" without a name)
// holds the one sentence.
Fin RendreCompte(const Contexte& contexte, Texte phrase, const std::function<void()>& sauver = {},
                 std::string_view nomRapport = {});

// The preparation of a program that goes on with another report: the same, but a body that comes to its end shows
// nothing, and true is returned. With a `brouillon` no report is written: it goes behind what that text holds.
bool PreparerProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
                       const std::function<void(Rapport&)>& corps);

// Ends a run that a form gives up after its preparation: shows the report as it stands.
void MontrerRapport(const Contexte& contexte, std::string_view nomRapport);

// The lines that the error handler writes for a failure; none for kArretAnnonce.
std::vector<std::string> LignesDErreur(const Erreur& erreur, const LibellesErreur& libelles);

// How a finished report is shown: in Text1, or in the external viewer when it is too long for that. Deletes
// kRapportSansNom and the report of an empty generic once read. A report that is not there, or cannot be read, is shown
// as its failure.
Affichage FinProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles);

// What Text1 holds in place of a report that goes to the viewer.
std::string TexteTropLong(std::string_view nomRapport);

// Text of the label FichAff: the last 16 characters of a name longer than 15.
std::string_view TexteFichAff(std::string_view nom);

// Writes a warning to the report and beeps.
void Avertir(Rapport& rapport, const Dialogue& dialogue, Texte texte);

// What opens the line on a file that is missing.
inline constexpr std::string_view kLeFichier = "Le fichier";
inline constexpr std::string_view kLeFichierEnRelief = "*** Le fichier";
// "Le fichier ENQ.POS n'existe pas".
std::string PhraseDAbsence(std::string_view nom, std::string_view sujet = kLeFichier);

// A file that a run cannot do without.
struct FichierObligatoire {
  std::string nom;
  bool present;
  std::string_view sujet = kLeFichier;
};
// That of the generic with that extension.
FichierObligatoire Obligatoire(const Contexte& contexte, std::string_view extension,
                               std::string_view sujet = kLeFichier);
// Writes that line for each file that is missing; returns whether there is one.
bool ImprimerLesAbsents(Rapport& rapport, std::span<const FichierObligatoire> fichiers);
// The same; when there is one, beeps, writes the stopping line and stops the run (kArretAnnonce).
void ExigerFichiers(Rapport& rapport, const Dialogue& dialogue, std::initializer_list<FichierObligatoire> fichiers,
                    Texte ligneDArret);

// Stopping lines of ExigerFichiers.
inline constexpr std::string_view kArretAbsenceUnOuDeux = "Arret du programme du a l'absence d'un ou de deux fichiers";
inline constexpr std::string_view kArretAbsenceSansAccents =
    "Arret du programme du a l'absence d'un ou de plusieurs fichiers";
inline constexpr std::string_view kArretAbsence = "Arrêt du programme du à l'absence d'un ou de plusieurs fichiers"_w;

// Moves the progress display, at most once every few thousand individuals; hides it at the end of its life.
class Progression {
 public:
  Progression(const Dialogue& dialogue, std::int64_t maximum);
  ~Progression();
  Progression(const Progression&) = delete;
  Progression& operator=(const Progression&) = delete;

  void Avancer() {
    if ((++faits_ & 0xFFF) == 0) dialogue_.progresser(faits_);
  }

 private:
  const Dialogue& dialogue_;
  std::int64_t faits_ = 0;
};

}  // namespace quelvar
