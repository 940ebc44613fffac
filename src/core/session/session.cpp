#include "core/session/session.h"

#include <unistd.h>

#include <algorithm>
#include <system_error>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/programme/lieunomme.h"
#include "core/programme/version.h"
#include "core/session/generique.h"
#include "core/session/recents.h"

namespace quelvar {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFin = "\r\n";
constexpr std::string_view kAvertissement = "*** Attention *** ";

std::string Lignes(std::initializer_list<std::string_view> lignes) {
  std::string texte;
  for (const std::string_view ligne : lignes) texte += Joindre({ligne, kFin});
  return texte;
}

// A failure as a sentence: what was tried on which file, then the words of the failure.
std::string Phrase(Texte tentative, const Erreur& erreur) {
  return Joindre({kAvertissement, tentative, " : ", TexteErreurDuFichierNomme(erreur), kFin});
}

// Runs what may fail to read or write; the failure comes back as a sentence.
template <typename Action>
std::string Tenter(Texte tentative, Action action) {
  try {
    action();
    return {};
  } catch (const Erreur& erreur) {
    return Phrase(tentative, erreur);
  }
}

}  // namespace

std::string TexteRepertoire(const Chemin& repertoire) {
  std::string texte = TexteDe(repertoire);
  if (texte.empty() || texte.back() != '/') texte += '/';
  if (texte.ends_with("//")) texte.pop_back();
  return texte;
}

std::string TitreDe(const Session& session) {
  if (session.generique.empty())
    return Joindre({" Pas de générique en cours, niveau d'utilisateur="_w, Nombre(session.niveau)});
  return Joindre({" Générique en cours= "_w, session.generique, ", niveau d'utilisateur=", Nombre(session.niveau),
                  ", répertoire en cours ="_w, TexteRepertoire(session.repertoire)});
}

std::string TexteAccueil() {
  return Lignes(
             {"Pas de fichier ouvert", "",
              "Pour une première utilisation : dans le menu 'Fichier de démarrage' prendre l'option "
              "'Première utilisation'"_w,
              "", "   sinon utiliser au choix :", "          - les fichiers récents affichés sous 'quitter'"_w,
              "          - soit un des menus (Précédent..., Chercher..., Afficher/...)du même 'Fichier de démarrage'"_w,
              "            puis éventuellement l'entrée 'Générique' à droite de l'écran, "_w}) +
         Joindre({"Vous utilisez la version ", kVersion, " de Quelvar", kFin});
}

Demarrage DemarrerSession(const Chemin& repertoireProgramme) {
  Demarrage demarrage;
  Session& session = demarrage.session;
  session.repertoireProgramme = repertoireProgramme;
  session.ancien = kAncienAbsent;
  const std::optional<Chemin> pointeur = LirePointeur(repertoireProgramme);
  PrendreRepertoire(session, pointeur ? pointeur->parent_path() : repertoireProgramme);
  session.titre = Joindre({"Pas de générique en cours, niveau d'utilisateur non déterminé, répertoire="_w,
                           TexteRepertoire(session.repertoire)});
  demarrage.texte = TexteAccueil();
  demarrage.aOuvrir = pointeur.has_value();
  return demarrage;
}

void PrendreRepertoire(Session& session, const Chemin& repertoire) {
  PrendreInitialisation(session, CheminInitialisation(repertoire));
}

void PrendreInitialisation(Session& session, const Chemin& initialisation) {
  session.initialisation = initialisation;
  session.repertoire = initialisation.parent_path();
  session.derniereInitialisation.reset();
  std::error_code ignoree;  // a directory that is gone is told when it is listed
  fs::current_path(session.repertoire, ignoree);
}

namespace {

// Individuals announced by line 2 of the .POS; 0 for a file without it.
double LireEffectif(const Chemin& pos) {
  try {
    LecteurLignes lecteur(pos);
    lecteur.LireObligatoire();
    return ValeurDe(lecteur.LireObligatoire());
  } catch (const Erreur&) {
    return 0;
  }
}

std::optional<Chemin> PosDeLaSession(const Session& session) {
  return ChercherFichier(session.repertoire, session.generique + ".pos");
}

}  // namespace

std::string OuvrirGenerique(Session& session, const Reglages& reglages) {
  session.ouverture = Ouverture::Normale;
  session.individus = 0;
  try {
    const Initialisation lue = LireInitialisation(session.initialisation);
    session.derniereInitialisation = lue;
    session.generique = lue.generique;
    session.niveau = lue.niveau;
  } catch (const Erreur& erreur) {
    session.ouverture = Ouverture::SansInitialisation;
    session.generique.clear();
    if (session.titre != kTitreNouvelleUtilisation) session.titre = TitreDe(session);
    if (erreur.Numero() == kFichierIntrouvable) return {};
    return Phrase(Joindre({"le fichier ", TexteDe(session.initialisation), " ne peut pas être lu"_w}), erreur);
  }
  session.titre = TitreDe(session);
  const std::optional<Chemin> pos = PosDeLaSession(session);
  if (!pos || ::access(pos->c_str(), R_OK) != 0) {
    session.ouverture = Ouverture::SansPos;
    return Joindre({"Impossible d'ouvrir le fichier ", TexteRepertoire(session.repertoire), session.generique, ".pos",
                    kFin, " Afficher/modifier repertoire en cours", kFin});
  }
  session.individus = LireEffectif(*pos);
  AjouterFichierRecent(reglages, session.initialisation);
  return {};
}

namespace {

// What the files of a survey end in, which a directory is looked through for.
constexpr std::size_t kLongueurDExtension = 4;
constexpr std::string_view kExtensions[] = {".POS", ".MOD", ".TXT", ".DBF", ".DAT", ".BRT"};

// The files of the directory that hint at a generic, sorted without regard to case.
std::vector<std::string> ListerFichiers(const Chemin& repertoire) {
  std::vector<std::pair<std::string, std::string>> trouves;  // upper case, as it stands
  for (const fs::directory_entry& entree : fs::directory_iterator(repertoire)) {
    std::string nom = NomDepuisUtf8(entree.path().filename().native());
    std::string haut = Majuscules(nom);
    std::error_code ignoree;
    if (std::ranges::any_of(kExtensions, [&](std::string_view e) { return haut.ends_with(e); }) &&
        !entree.is_directory(ignoree))
      trouves.emplace_back(std::move(haut), std::move(nom));
  }
  std::ranges::sort(trouves);
  std::vector<std::string> noms;
  noms.reserve(trouves.size());
  for (auto& trouve : trouves) noms.push_back(std::move(trouve.second));
  return noms;
}

std::string TexteOuverture(const Session& session, bool fichiersListes) {
  if (session.ouverture == Ouverture::SansInitialisation)
    return Lignes({kAvertissement, "Il n'y a pas de fichier d'initialisation (Qvr2.ini) dans ce répertoire"_w,
                   "   il faut entrer un nouveau générique ou changer de répertoire"_w, ""});
  if (session.ouverture == Ouverture::Normale)
    return Lignes(
        {Joindre({"Le générique en cours dans ce répertoire est : "_w, session.generique}),
         Joindre({"  il a été ouvert normalement et comporte"_w, NombreBlanc(session.individus), " individus"}),
         "Liste des génériques disponibles dans ce répertoire :"_w});
  const std::string sansPos =
      Joindre({"Le générique en cours dans ce répertoire ("_w, session.generique, ") n'a pas de fichier *.pos "});
  if (fichiersListes)
    return Lignes({kAvertissement, sansPos, "   vérifiez les fichiers disponibles par le menu 'affichage'"_w, "",
                   "D'autres génériques sont disponibles dans ce répertoire "_w});
  return Lignes({kAvertissement, sansPos, "   il faut entrer des données"_w, "",
                 "Il n'y a pas d'autres génériques disponibles dans ce répertoire "_w});
}

std::vector<std::string> Decouper(std::string_view vus) {
  std::vector<std::string> noms;
  for (std::size_t fin = vus.find(';'); fin != std::string_view::npos; fin = vus.find(';')) {
    noms.emplace_back(vus.substr(0, fin));
    vus.remove_prefix(fin + 1);
  }
  return noms;
}

}  // namespace

RapportRepertoire EtatRepertoire(const Session& session) {
  RapportRepertoire rapport;
  std::vector<std::string> fichiers;
  std::string echec;
  try {
    fichiers = ListerFichiers(session.repertoire);
  } catch (const std::system_error& erreur) {
    echec = Phrase(Joindre({"le répertoire "_w, TexteRepertoire(session.repertoire), " ne peut pas être lu"_w}),
                   Erreur(erreur.code().value() == ENOENT ? static_cast<int>(kCheminIntrouvable)
                                                          : NumeroDErrno(erreur.code().value())));
  }
  rapport.texte = echec + TexteOuverture(session, !fichiers.empty());
  rapport.attendGenerique = session.ouverture == Ouverture::SansInitialisation;
  if (!session.generique.empty()) rapport.choix.push_back(session.generique);
  for (std::string& vu : Decouper(session.vus)) rapport.choix.push_back(std::move(vu));
  rapport.choix.emplace_back(kLigneTirets);
  std::string precedent;
  for (const std::string& fichier : fichiers) {
    const std::string_view nom = std::string_view(fichier).substr(0, fichier.size() - kLongueurDExtension);
    std::string haut = Majuscules(nom);
    if (haut == precedent) continue;
    precedent = std::move(haut);
    rapport.choix.emplace_back(nom);
    rapport.texte += Joindre({nom, kFin});
  }
  return rapport;
}

namespace {

// Keeps the generic that is being left.
void QuitterGenerique(Session& session) {
  if (!session.generique.empty()) session.ancien = session.generique;
  const std::vector<std::string> vus = Decouper(session.vus);
  if (std::ranges::none_of(vus, [&](const std::string& vu) { return EgalSansCasse(vu, session.ancien); }))
    session.vus += session.ancien + ";";
}

// Writes Qvr2.ini and tells what another window had put there meanwhile.
std::string EnregistrerInitialisation(Session& session) {
  if (session.generique.empty()) return {};
  const Initialisation nouvelle{session.generique, session.niveau};
  const Chemin chemin = CheminInitialisation(session.repertoire);
  std::string texte;
  try {
    const Initialisation trouvee = LireInitialisation(chemin);
    if (session.derniereInitialisation && trouvee != *session.derniereInitialisation && trouvee != nouvelle)
      texte = Joindre({kAvertissement, "une autre fenêtre avait enregistré dans ce répertoire le générique "_w,
                       trouvee.generique, " (niveau d'utilisateur=", Nombre(trouvee.niveau), "), remplacé par "_w,
                       nouvelle.generique, " (niveau d'utilisateur=", Nombre(nouvelle.niveau), ")", kFin});
  } catch (const Erreur&) {  // no file yet, or one that can't be read: writing tells
  }
  texte += Tenter(Joindre({"le fichier ", TexteDe(chemin), " ne peut pas être écrit"_w}), [&] {
    EcrireInitialisation(session.repertoire, session.generique, session.niveau);
    session.derniereInitialisation = nouvelle;
  });
  session.initialisation = chemin;
  return texte;
}

}  // namespace

std::string_view RefusDuGeneriqueSaisi(std::string_view saisi) {
  const std::string_view generique = SansExtension(saisi);
  if (Rogner(generique).empty() || saisi == kLigneTirets || saisi == kAncienAbsent) return kPasDeNom;
  if (!PeutNommerDesFichiers(generique))
    return "Ce nom comporte un caractère qu'un fichier ne peut pas porter : recommencer"_w;
  return {};
}

Acceptation AccepterGenerique(Session& session, const Reglages& reglages, std::string_view saisi) {
  Acceptation acceptation;
  const std::string_view generique = SansExtension(saisi);
  if (const std::string_view refus = RefusDuGeneriqueSaisi(saisi); !refus.empty()) {
    acceptation.texte = Lignes({refus});
    return acceptation;
  }
  acceptation.acceptee = true;
  acceptation.premiere = session.titre == kTitreNouvelleUtilisation;
  QuitterGenerique(session);
  session.generique = generique;
  acceptation.texte = Lignes({Joindre(
      {"Le répertoire est "_w, TexteRepertoire(session.repertoire), " et le générique est "_w, session.generique})});
  if (acceptation.premiere)
    acceptation.texte += Lignes({"Pour changer de répertoire utilisez menu Afficher/modifier répertoire en cours "_w,
                                 "Utilisez saisie ou import (dans menu Nouvelles données)"_w});
  session.titre = TitreDe(session);
  acceptation.texte += EnregistrerInitialisation(session);
  AjouterFichierRecent(reglages, session.initialisation);
  return acceptation;
}

std::string AdopterGenerique(Session& session, const Reglages& reglages, std::string_view generique) {
  if (generique != session.generique) QuitterGenerique(session);
  session.generique = generique;
  if (session.generique.empty()) return {};
  session.titre = TitreDe(session);
  const std::string texte = EnregistrerInitialisation(session);
  const std::optional<Chemin> pos = PosDeLaSession(session);
  session.ouverture = pos ? Ouverture::Normale : Ouverture::SansPos;
  session.individus = pos ? LireEffectif(*pos) : 0;
  AjouterFichierRecent(reglages, session.initialisation);
  return texte;
}

std::string ChangerNiveau(Session& session, int niveau) {
  session.niveau = niveau;
  session.titre = TitreDe(session);
  return EnregistrerInitialisation(session);
}

}  // namespace quelvar
