#include "core/fichiers/jeu.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "core/fichiers/releve.h"
#include "core/fichiers/reprise.h"
#include "core/fichiers/signaux.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/marque.h"
#include "core/fichiers/systeme/morceaux.h"
#include "core/panne/erreur.h"

namespace quelvar {

namespace {

void SynchroniserDossier(const Chemin& dossier) {
  const int descripteur = ::open(dossier.empty() ? "." : dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descripteur < 0) return;
  appels::Synchroniser(descripteur);
  ::close(descripteur);
}

// Opens a file for bytes behind its last one. Raises kAccesFichier when it is no longer as long as it was.
int OuvrirALaFin(const EntreeDeReleve& e) {
  const int descripteur = appels::OuvrirEnEcriture(e.cible.c_str(), O_WRONLY | O_APPEND);
  if (descripteur < 0) LeverErrno(e.cible, errno);
  if (static_cast<std::uint64_t>(::lseek(descripteur, 0, SEEK_END)) == e.ancienne) return descripteur;
  ::close(descripteur);
  throw EchecDuFichier(e.cible, kAccesFichier);
}

// Writes what the entry adds, and closes the file. A failure may leave a part of it.
void EcrireALaFin(int descripteur, const EntreeDeReleve& e, std::string_view octets) {
  int numero = 0;
  for (std::string_view reste = octets; numero == 0 && !reste.empty();) {
    const ssize_t ecrits = appels::Ecrire(descripteur, reste.data(), reste.size());
    if (ecrits <= 0) numero = ecrits < 0 ? NumeroDErrno(errno) : static_cast<int>(kDisquePlein);
    else reste.remove_prefix(static_cast<std::size_t>(ecrits));
  }
  if (numero == 0 && e.nature == Nature::Unique && appels::Synchroniser(descripteur) != 0) numero = NumeroDErrno(errno);
  ::close(descripteur);
  if (numero != 0) throw EchecDuFichier(e.cible, numero);
}

}  // namespace

JeuDeFichiers::JeuDeFichiers(const Chemin& repertoire, std::string_view generique)
    : repertoire_(repertoire), generique_(generique), tenu_(repertoire, generique, generique) {}

JeuDeFichiers::~JeuDeFichiers() = default;

Ecrivain& JeuDeFichiers::Ouvrir(std::string_view nom, Nature nature) {
  sorties_.push_back(std::make_unique<Provisoire>(CheminDEcriture(repertoire_, nom), nature));
  noms_.emplace_back(nom);
  return sorties_.back()->Fichier();
}

void JeuDeFichiers::Copier(const Chemin& source, std::string_view nom, Nature nature) {
  Ecrivain& copie = Ouvrir(nom, nature);
  ParMorceaux(source, [&](std::string_view octets) { copie.Ecrire(octets); });
}

const Chemin& JeuDeFichiers::Achever(std::string_view nom) {
  const auto rang = std::find(noms_.begin(), noms_.end(), nom) - noms_.begin();
  Provisoire& sortie = *sorties_.at(static_cast<std::size_t>(rang));
  sortie.Achever();
  return sortie.Emplacement();
}

void JeuDeFichiers::Allonger(std::string_view nom, std::string_view octets, Nature nature) {
  std::optional<Chemin> chemin = ChercherFichier(repertoire_, nom);
  if (!chemin) throw Erreur(kFichierIntrouvable).Situer({.fichier = std::string(nom)});
  ajouts_.push_back({std::move(*chemin), std::string(octets), nature});
}

void JeuDeFichiers::Effacer(std::string_view nom) {
  if (std::optional<Chemin> chemin = ChercherFichier(repertoire_, nom)) effaces_.push_back(std::move(*chemin));
}

// What nobody can make again is not put at risk for the bytes that it holds already; and nobody waits for the disk.
void JeuDeFichiers::OublierInchangees() {
  std::erase_if(sorties_, [](const std::unique_ptr<Provisoire>& sortie) {
    return sortie->SaNature() == Nature::Unique && sortie->MemesOctets();
  });
}

void JeuDeFichiers::TenirAjouts() {
  for (const Ajout& ajout : ajouts_) {
    if (!VerifierCible(ajout.cible)) throw EchecDuFichier(ajout.cible, kFichierIntrouvable);
    EntreeDeReleve entree;
    entree.genre = GenreDEntree::Allonge;
    entree.nature = ajout.nature;
    entree.ancienne = LongueurFichier(ajout.cible);
    entree.taille = entree.ancienne + ajout.octets.size();
    CondenseDOctets condense;
    condense.Ajouter(ajout.octets);
    entree.empreinte = condense.Valeur();
    entree.cible = ajout.cible;
    entrees_.push_back(std::move(entree));
  }
}

void JeuDeFichiers::Tenir() {
  entrees_.clear();
  TenirAjouts();
  for (const std::unique_ptr<Provisoire>& sortie : sorties_) {
    sortie->Tenir();
    entrees_.push_back({sortie->CibleExiste() ? GenreDEntree::Remplace : GenreDEntree::Nouveau, sortie->SaNature(),
                        sortie->Taille(), sortie->Empreinte(), 0, 0, 0, sortie->Cible(), sortie->Emplacement()});
  }
  for (const Chemin& chemin : effaces_) {
    if (!VerifierCible(chemin)) continue;
    EntreeDeReleve entree;
    entree.genre = GenreDEntree::Efface;
    entree.cible = chemin;
    entree.provisoire = NomProvisoire(chemin);
    NoterEtat(chemin, entree.noeud, entree.instant);
    entrees_.push_back(std::move(entree));
  }
}

void JeuDeFichiers::Poser(std::size_t& poses) {
  const EntreeDeReleve& e = entrees_[poses];
  if (e.genre == GenreDEntree::Allonge) {
    const int descripteur = OuvrirALaFin(e);
    const std::string& octets = ajouts_[poses].octets;
    ++poses;  // from its first byte on
    return EcrireALaFin(descripteur, e, octets);
  }
  PoserFichier(e);
  ++poses;
}

void JeuDeFichiers::Defaire(std::size_t rang) {
  const EntreeDeReleve& e = entrees_[rang];
  switch (e.genre) {
    case GenreDEntree::Nouveau:
    case GenreDEntree::Efface: {
      const bool nouveau = e.genre == GenreDEntree::Nouveau;
      const Chemin& de = nouveau ? e.cible : e.provisoire;
      const Chemin& vers = nouveau ? e.provisoire : e.cible;
      return appels::Exiger(appels::RenommerSansRemplacer(de.c_str(), vers.c_str()), e.cible);
    }
    case GenreDEntree::Remplace:
      return appels::Exiger(appels::Echanger(e.cible.c_str(), e.provisoire.c_str()), e.cible);
    case GenreDEntree::Allonge: return RetirerAjout(e);
  }
}

void JeuDeFichiers::PoserTout() {
  std::size_t poses = 0;
  try {
    while (poses < entrees_.size()) Poser(poses);
  } catch (const Erreur&) {
    try {
      while (poses > 0) Defaire(--poses);
      EffacerReleve(repertoire_, generique_);
    } catch (const Erreur&) {
      // The next program of the generic finds scratch files and record, and ends it.
      for (const std::unique_ptr<Provisoire>& sortie : sorties_) sortie->Lacher();
    }
    throw;
  }
}

void JeuDeFichiers::Valider() {
  for (const std::unique_ptr<Provisoire>& sortie : sorties_) sortie->Achever();
  OublierInchangees();
  Tenir();
  if (entrees_.empty()) return;
  const bool uniques = std::any_of(entrees_.begin(), entrees_.end(), [](const EntreeDeReleve& e) {
    return e.genre != GenreDEntree::Efface && e.nature == Nature::Unique;
  });
  const SansSignaux sansSignaux;
  for (const std::unique_ptr<Provisoire>& sortie : sorties_) {
    if (sortie->SaNature() == Nature::Unique) sortie->Synchroniser();
    else sortie->Marquer();
  }
  if (entrees_.size() == 1 && sorties_.size() == 1) {
    sorties_.front()->Placer();
    if (uniques) SynchroniserDossier(repertoire_);
    return;
  }
  EcrireReleve(CheminDeReleve(repertoire_, generique_), {AmorceDuSysteme(), entrees_}, uniques);
  PoserTout();
  // Every file is in place: what comes now removes the former ones, and a failure changes nothing any more.
  for (const std::unique_ptr<Provisoire>& sortie : sorties_) sortie->Lacher();
  try {
    for (const EntreeDeReleve& e : entrees_)
      if (e.genre == GenreDEntree::Remplace || e.genre == GenreDEntree::Efface)
        appels::Exiger(appels::Effacer(e.provisoire.c_str()), e.cible);
    EffacerReleve(repertoire_, generique_);
  } catch (const Erreur&) {  // the next program of the generic removes what is left
  }
}

void EffacerEnsemble(const Chemin& repertoire, std::string_view generique, const std::vector<std::string>& noms) {
  const auto present = [&](const std::string& nom) { return ChercherFichier(repertoire, nom).has_value(); };
  if (std::none_of(noms.begin(), noms.end(), present)) return;
  JeuDeFichiers jeu(repertoire, generique);
  for (const std::string& nom : noms) jeu.Effacer(nom);
  jeu.Valider();
}

}  // namespace quelvar
