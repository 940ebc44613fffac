#include "text/preparation/preptext.h"

#include <optional>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/place.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "core/texte/lignes.h"
#include "text/commun/prise.h"
#include "text/preparation/edition.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kTitre = "Préparation d'un fichier texte"_w;
constexpr std::size_t kOctetsMontres = 600;

Extrait ExtraitDe(std::string_view octets) {
  Extrait extrait;
  LignesDuTexte lignes(octets);
  for (std::string_view ligne; lignes.Lire(ligne);) extrait.Compter(ligne);
  return extrait;
}

// Writes the lines that are not empty; returns what was written.
Extrait EcrireSansLignesVides(Ecrivain& fichier, std::string_view octets) {
  Extrait extrait;
  LignesDuTexte lignes(octets);
  for (std::string_view ligne; lignes.Lire(ligne);) {
    if (ligne.empty()) continue;
    extrait.Compter(ligne);
    fichier.Ligne(ligne);
  }
  return extrait;
}

// The files of the data set that go along, copied as they are.
class FichiersTransmis {
 public:
  FichiersTransmis(const Contexte& contexte, const std::string& nouveau) : contexte_(contexte), nouveau_(nouveau) {}

  // `debut`: how the report names it, in front of its name.
  void Prendre(std::string_view extension, std::string_view debut) {
    if (const std::optional<Chemin> source = contexte_.Chercher(extension))
      sources_.push_back({*source, nouveau_ + std::string(extension), Joindre({debut, contexte_.Nom(extension)})});
  }
  void Imprimer(Rapport& rapport) const {
    for (const Transmis& transmis : sources_)
      rapport.Ligne({transmis.designation, " sera transmis sous le nom ", transmis.nom});
  }
  void Copier(JeuDeFichiers& sorties) const {
    for (const Transmis& transmis : sources_) sorties.Copier(transmis.source, transmis.nom, Nature::Unique);
  }

 private:
  struct Transmis {
    Chemin source;
    std::string nom;
    std::string designation;
  };
  const Contexte& contexte_;
  const std::string& nouveau_;
  std::vector<Transmis> sources_;
};

// Name without the directories before it.
std::string NomSeul(const std::string& saisi) { return TexteDe(CheminDe(saisi).filename()); }

void ExigerTexte(const Contexte& contexte, Rapport& rapport, const std::string& nom,
                 const std::optional<Chemin>& source) {
  const bool vide = source && LongueurFichier(*source) == 0;
  if (source && !vide) return;
  contexte.Ecran().biper();
  rapport.Ligne({"Le fichier des donnees ", nom, std::string_view(vide ? " est vide" : " n'existe pas")});
  throw Erreur(kArretAnnonce);
}

void Preparer(Rapport& rapport, const Contexte& contexte, const OptionsPrepText& options, const std::string& nouveau) {
  const std::string nomOrigine = NomDeLOrigine(contexte, options);
  const std::string nomNeuf = nouveau + ".txt";
  const std::optional<Chemin> source =
      ChercherFichier(contexte.repertoire, options.fichier.empty() ? nomOrigine : options.fichier);
  ImprimerBandeau(rapport, kTitre);
  rapport.Ligne({"Le nom du fichier d'origine est  ", nomOrigine});
  rapport.Ligne({"Le nom du fichier de texte modifié sera "_w, nomNeuf});
  rapport.Ligne();
  FichiersTransmis transmis(contexte, nouveau);
  transmis.Prendre(".pos", "Le fichier de position  ");
  transmis.Prendre(".mod", "Le fichier de modalités "_w);
  transmis.Imprimer(rapport);
  ExigerTexte(contexte, rapport, nomOrigine, source);
  ExigerPlace(contexte, rapport, {LongueurFichier(*source), LongueurFichier(*source)});

  std::string texte = PrendreTexte(rapport, contexte.Ecran(), nomOrigine, LireSource(*source, nomOrigine));
  const Extrait ancien = ExtraitDe(texte);
  const std::string anciensOctets = texte.substr(0, kOctetsMontres);
  TransformerOctets(texte, options);
  ImprimerCodes(rapport, anciensOctets, std::string_view(texte).substr(0, kOctetsMontres));

  JeuDeFichiers sorties(contexte.repertoire, nouveau);
  const Extrait modifie = EcrireSansLignesVides(sorties.Ouvrir(nomNeuf, Nature::Refaisable), texte);
  ImprimerExtrait(rapport, "d'origine", nomOrigine, ancien, "entrée"_w);
  ImprimerExtrait(rapport, "modifié"_w, nomNeuf, modifie, "sortie");
  transmis.Copier(sorties);
  EcrireInitialisation(sorties, nouveau, contexte.niveau);
  ImprimerRemplacementDuGenerique(rapport, contexte, nouveau);
  sorties.Valider();
  ImprimerChangementDeGenerique(rapport, contexte, nouveau);
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

std::string NomDeLOrigine(const Contexte& contexte, const OptionsPrepText& options) {
  if (!options.fichier.empty()) return NomSeul(options.fichier);
  return contexte.Nom(options.fichierDat ? ".DAT" : ".txt");
}

std::string RefusDePreparer(const Contexte& contexte, const OptionsPrepText& options) {
  if (options.fichierDat || !options.fichier.empty() || contexte.Chercher(".txt")) return {};
  return Joindre({"*** Attention ***\r\n",
                  "Le fichier de texte n'est pas présent avec une extension *.txt le choisir manuellement"_w});
}

Fin PrepText(const Contexte& contexte, const OptionsPrepText& options, std::string& nouveau) {
  const bool libre = !contexte.generique.empty() &&
                     NAQueLeRapportDUnArret(contexte.repertoire, GeneriqueSuivant(contexte.generique), kTitre);
  nouveau = DemanderGeneriqueLibre(contexte, options.remplacer || libre).value_or("");
  if (nouveau.empty()) return Fin::Arret;
  return ExecuterProgramme(contexte, nouveau + ".prt", LibellesErreur{},
                           [&](Rapport& rapport) { Preparer(rapport, contexte, options, nouveau); });
}

}  // namespace quelvar::text
