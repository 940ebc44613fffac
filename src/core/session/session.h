// The session: working directory, current generic, user level and generics seen, what the program opens at start-up and
// how it moves from one data set to another. The main form shows what these functions return.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"
#include "core/session/initialisation.h"
#include "core/session/reglages.h"

namespace quelvar {

enum class Ouverture { Normale, SansInitialisation, SansPos };

struct Session {
  Chemin repertoireProgramme;  // place of Qvr2.in0
  Chemin repertoire;           // working directory, also the current directory of the process
  Chemin initialisation;       // path of Qvr2.ini
  std::string generique;       // empty when there is none; never holds a point
  int niveau = kNiveauSimple;
  std::string ancien;  // generic before the last change
  std::string vus;     // former generics, a ";" after each, in order of first use
  double individus = 0;
  Ouverture ouverture = Ouverture::SansInitialisation;
  std::string titre;             // title of the main form
  std::string fichierAffiche;    // name of the file shown in Text1
  bool passerModalites = false;  // "Annuler" at a recoding: the modality file goes along without a question
  // Values above their code-max before a count stops, as last chosen; 0 for no stop.
  int limiteDepassements = kDepassementsAuPlus;
  // Content of Qvr2.ini as this session last read or wrote it: another one found there comes from another window.
  std::optional<Initialisation> derniereInitialisation;
};

// Title of the main form while the form Prem makes a first data set.
inline constexpr std::string_view kTitreNouvelleUtilisation = "Nouvelle utilisation";
// What stands for the former generic while there is none.
inline constexpr std::string_view kAncienAbsent = "Non encore utilisé"_w;
// Line that parts the generics seen from those of the directory.
inline constexpr std::string_view kLigneTirets = "------------------";

// --- texts ---

// A directory as titles show it: ended by one separator.
std::string TexteRepertoire(const Chemin& repertoire);
// Title for the present generic, level and directory.
std::string TitreDe(const Session& session);
// What Text1 shows when nothing is opened yet.
std::string TexteAccueil();

// --- moves; each returns the lines for Text1, every line ended by CR LF ---

struct Demarrage {
  Session session;
  std::string texte;     // replaces what Text1 holds
  bool aOuvrir = false;  // Qvr2.in0 was found: OuvrirGenerique and EtatRepertoire follow
};
Demarrage DemarrerSession(const Chemin& repertoireProgramme);

// Reads Qvr2.ini and the head of the .POS; a data set that opens enters the recent files. What cannot be read is told.
std::string OuvrirGenerique(Session& session, const Reglages& reglages);

struct RapportRepertoire {
  std::string texte;
  std::vector<std::string> choix;  // entries of ComboGen
  bool attendGenerique = false;    // ComboGen is to get the focus
};
RapportRepertoire EtatRepertoire(const Session& session);

// Takes another directory and its initialisation file; the rest of the session is left to OuvrirGenerique.
void PrendreRepertoire(Session& session, const Chemin& repertoire);
void PrendreInitialisation(Session& session, const Chemin& initialisation);

struct Acceptation {
  bool acceptee = false;
  std::string texte;      // replaces what Text1 holds
  bool premiere = false;  // a first use: entry and import become available
};
// Why a typed name can be no generic, in the words of both forms that ask for one; empty when it can.
std::string_view RefusDuGeneriqueSaisi(std::string_view saisi);
// The typed name becomes the generic; OuvrirGenerique and EtatRepertoire follow when it is accepted.
Acceptation AccepterGenerique(Session& session, const Reglages& reglages, std::string_view saisi);
// A program has moved the data set to another generic, or has made files of the present one. Returns what could not be
// written.
std::string AdopterGenerique(Session& session, const Reglages& reglages, std::string_view generique);
// Returns what could not be written.
std::string ChangerNiveau(Session& session, int niveau);

}  // namespace quelvar
