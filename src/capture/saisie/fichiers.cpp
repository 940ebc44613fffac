#include "capture/saisie/fichiers.h"

#include <sys/stat.h>

#include <algorithm>

#include "capture/compterendu/fichiers.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

bool EstBlanche(std::string_view ligne) { return Rogner(ligne).empty(); }

}  // namespace

ExamenDat ExaminerDat(const Chemin& dat) {
  ExamenDat examen;
  examen.taille = LongueurFichier(dat);
  LecteurLignes lecteur(dat);
  std::uintmax_t octets = 0;
  std::size_t premiere = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (++examen.lignes == 1) premiere = ligne.size();
    examen.uniforme = examen.uniforme && ligne.size() == premiere;
    octets += ligne.size() + 2;
    if (!ligne.empty()) examen.longueurDerniere = ligne.size();
    if (!EstBlanche(ligne)) ++examen.nonVides;
  }
  // Lines that are all ended by CR LF make up the whole file; any other end leaves another sum.
  const std::string fin = LireMorceau(dat, examen.taille - std::min<std::uintmax_t>(examen.taille, 2), 2);
  examen.derniereInachevee = examen.taille > 0 && !fin.ends_with('\n');
  examen.propre = octets == examen.taille && examen.nonVides == examen.lignes && !examen.derniereInachevee;
  return examen;
}

std::string LignesDeQuestions(const Descripteur& descripteur) {
  std::string lignes;
  std::int64_t position = 1;
  for (const DescriptionDeQuestion& description : descripteur.descriptions) {
    if (position > kDernierePosition) break;
    lignes += LigneDeQuestion(description.nom, position, CodeMaxGenere(description), "\r\n");
    position += description.Largeur();
  }
  return lignes;
}

FichiersSaisie::FichiersSaisie(const Contexte& contexte, const Descripteur& descripteur,
                               Synchronisation synchronisation)
    : contexte_(contexte),
      questions_(LignesDeQuestions(descripteur)),
      nature_(synchronisation == Synchronisation::Oui ? Nature::Unique : Nature::Refaisable) {
  Revoir();
  const std::optional<Chemin> pos = ChercherPos(contexte_.repertoire, contexte_.Nom(".POS"));
  if (!pos) return;
  const std::string octets = LireOctets(*pos);
  const std::size_t premiere = octets.find('\n');
  const std::size_t seconde = premiere == std::string::npos ? premiere : octets.find('\n', premiere + 1);
  posAGarder_ = seconde == std::string::npos || std::string_view(octets).substr(seconde + 1) != questions_;
  posARefaire_ = !posAGarder_ && examen_.propre && octets != TextePos(examen_.nonVides);
}

bool FichiersSaisie::Reprendre() {
  if (!posARefaire_) return false;
  Remplacement pos(contexte_.repertoire, contexte_.Nom(".POS"), nature_);
  pos.Fichier().Ecrire(TextePos(examen_.nonVides));
  pos.Valider();
  posARefaire_ = false;
  return true;
}

std::optional<FichiersSaisie::Trace> FichiersSaisie::TracerFichier(const Chemin& chemin) {
  struct stat etat {};
  if (::stat(chemin.c_str(), &etat) != 0) return std::nullopt;
  return Trace{etat.st_dev, etat.st_ino, static_cast<std::uint64_t>(etat.st_size), etat.st_mtim.tv_sec,
               etat.st_mtim.tv_nsec};
}

Chemin FichiersSaisie::Dat() const { return CheminDEcriture(contexte_.repertoire, contexte_.Nom(".DAT")); }

Erreur FichiersSaisie::SansEnregistrement(std::int64_t numero) const {
  return Erreur(kFinDeFichierDepassee).Situer({TexteDe(Dat().filename()), numero});
}

std::string FichiersSaisie::TextePos(std::int64_t nonVides) const {
  return Joindre({contexte_.generique, "\r\n", LigneDeTaille(nonVides), "\r\n", questions_});
}

// Looks at the data file again when it is no longer the one that was left.
void FichiersSaisie::Revoir() {
  const Chemin dat = Dat();
  const std::optional<Trace> trace = TracerFichier(dat);
  if (trace && trace == trace_) return;
  examen_ = trace ? ExaminerDat(dat) : ExamenDat{};
  trace_ = trace;
}

// A .POS that tells more than the descriptor is kept once, and the copy of a former one with it.
void FichiersSaisie::GarderPos(JeuDeFichiers& jeu) const {
  if (!posAGarder_) return;
  const std::optional<Chemin> pos = ChercherPos(contexte_.repertoire, contexte_.Nom(".POS"));
  if (!pos) return;
  ConserverSauvegarde(jeu, *pos, NomDeSauvegarde(contexte_.Nom(".POS")));
  CopierSousLeNomUsuel(jeu, *pos, contexte_.Nom(".POS"));
}

void FichiersSaisie::Ajouter(std::string_view ligne) {
  JeuDeFichiers jeu(contexte_.repertoire, contexte_.generique);
  Revoir();
  GarderPos(jeu);
  if (trace_ && examen_.propre) jeu.Allonger(contexte_.Nom(".DAT"), Joindre({ligne, "\r\n"}), nature_);
  else Recopier(jeu, ligne, 0);
  jeu.Ouvrir(contexte_.Nom(".POS"), nature_).Ecrire(TextePos(examen_.nonVides + 1));
  jeu.Valider();
  posAGarder_ = false;
  Compter(ligne);
}

// The data file is the one that was looked at, with this record behind it and without its empty lines.
void FichiersSaisie::Compter(std::string_view ligne) {
  if (!examen_.propre) examen_.lignes = examen_.nonVides;
  examen_.propre = true;
  ++examen_.lignes;
  ++examen_.nonVides;
  examen_.uniforme = examen_.nonVides == 1 || (examen_.uniforme && ligne.size() == examen_.longueurDerniere);
  examen_.longueurDerniere = ligne.size();
  trace_ = TracerFichier(Dat());
  examen_.taille = trace_ ? trace_->taille : 0;
}

// Copies the lines that are not empty and puts `ajout` behind them, or in the place of the line `remplacee` (from 1; 0
// for none, and only then empty lines go).
void FichiersSaisie::Recopier(JeuDeFichiers& jeu, std::string_view ajout, std::int64_t remplacee) const {
  Ecrivain& copie = jeu.Ouvrir(contexte_.Nom(".DAT"), nature_);
  std::int64_t numero = 0;
  if (trace_) {
    LecteurLignes lecteur(Dat());
    for (std::string_view ligne; lecteur.Lire(ligne);) {
      ++numero;
      if (numero == remplacee) copie.Ligne(ajout);
      else if (remplacee != 0 || !EstBlanche(ligne)) copie.Ligne(ligne);
    }
  }
  if (remplacee == 0) copie.Ligne(ajout);
  else if (numero < remplacee) throw SansEnregistrement(remplacee);
}

void FichiersSaisie::Corriger(std::int64_t numero, std::string_view ligne) {
  JeuDeFichiers jeu(contexte_.repertoire, contexte_.generique);
  Revoir();
  if (numero < 1 || numero > examen_.lignes) throw SansEnregistrement(numero);
  Recopier(jeu, ligne, numero);
  if (EstBlanche(Lire(numero))) {  // one record more for .POS
    GarderPos(jeu);
    jeu.Ouvrir(contexte_.Nom(".POS"), nature_).Ecrire(TextePos(examen_.nonVides + 1));
    posAGarder_ = false;
  }
  jeu.Valider();
  trace_.reset();
  Revoir();
}

std::string FichiersSaisie::Lire(std::int64_t numero) const {
  if (examen_.propre && examen_.uniforme && numero >= 1 && numero <= examen_.lignes) {
    const std::uintmax_t longueur = examen_.longueurDerniere;
    std::string ligne = LireMorceau(Dat(), static_cast<std::uintmax_t>(numero - 1) * (longueur + 2), longueur);
    if (ligne.size() == longueur && ligne.find_first_of("\r\n") == std::string::npos) return ligne;
  }
  LecteurLignes lecteur(Dat());
  std::string_view ligne;
  for (std::int64_t i = 0; i < numero; ++i)
    if (!lecteur.Lire(ligne)) throw SansEnregistrement(numero);
  return std::string(ligne);
}

}  // namespace quelvar::capture
