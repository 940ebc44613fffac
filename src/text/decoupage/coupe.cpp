#include "text/decoupage/coupe.h"

#include <algorithm>
#include <limits>

#include "core/panne/erreur.h"
#include "core/texte/lignes.h"
#include "core/texte/texte.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

namespace {

constexpr char kEtoile = '*';
constexpr std::string_view kNonReponseEtoilee = "NR*";  // answer and star
constexpr std::int64_t kPasDeSuivi = 1000;

// A line that the check keeps; it lies in the bytes of the corpus.
struct LigneRetenue {
  std::uint64_t debut = 0;
  std::uint64_t longueur = 0;  // up to the star
  bool premiere = true;        // it opens a record
  bool etoile = false;         // it closes a record
  std::int64_t numero = 0;     // in the text
};

// Appends the text with every run of blanks reduced to one.
void AjouterSansDoublesBlancs(std::string& octets, std::string_view texte) {
  while (!texte.empty()) {
    const std::size_t place = texte.find("  ");
    octets.append(texte.substr(0, place));
    if (place == std::string_view::npos) return;
    octets += ' ';
    texte.remove_prefix(std::min(texte.find_first_not_of(' ', place), texte.size()));
  }
}

// Looks at each line of the text and keeps those that make records.
class VerificationDuTexte {
 public:
  VerificationDuTexte(const ConsignesDeCoupe& consignes, const TemoinsDeCoupe& temoins, std::string& octets)
      : consignes_(consignes), temoins_(temoins), octets_(octets) {}

  void Verifier(std::string_view texte) {
    LignesDuTexte lignes(texte);
    for (std::string_view ligne; lignes.Lire(ligne);) {
      if (++numero_ % kPasDeSuivi == 0) temoins_.etape("Vérification individus : "_w, numero_);
      ligne = RognerDroite(ligne);
      if (ligne.empty()) continue;
      if (dansUnEnregistrement_) Retenir(false, {}, ligne);
      else VerifierPremiere(ligne);
    }
  }

  std::vector<LigneRetenue> retenues;
  std::int64_t erreurs = 0;
  std::int64_t premiereErreur = 0;
  std::int64_t etoilesAvant = 0;
  std::int64_t premiereEtoileAvant = 0;

 private:
  void VerifierPremiere(std::string_view ligne) {
    const std::size_t c = consignes_.gabarit.caracteristiques;
    if (ligne.size() < c) {
      if (++erreurs == 1) premiereErreur = numero_;
      temoins_.incomplete(numero_, ligne);
      return;
    }
    if (ligne.substr(0, c).find(kEtoile) != std::string_view::npos && ++etoilesAvant == 1)
      premiereEtoileAvant = numero_;
    std::string_view reponse = ligne.substr(c);
    const std::size_t etoile = reponse.find(kEtoile);
    if (etoile != std::string_view::npos && Rogner(reponse.substr(0, etoile)).empty()) reponse = {};
    if (!reponse.empty()) {
      Retenir(true, ligne.substr(0, c), reponse);
    } else if (consignes_.vide == ReponseVide::NonReponse) {
      Retenir(true, ligne.substr(0, c), kNonReponseEtoilee);
    }
  }

  void Retenir(bool premiere, std::string_view caracteristiques, std::string_view reponse) {
    const std::size_t etoile = reponse.find(kEtoile);
    const bool ferme = etoile != std::string_view::npos || consignes_.lignesMax <= 1;
    if (!premiere) octets_ += ' ';
    const std::uint64_t debut = octets_.size();
    octets_ += caracteristiques;
    AjouterSansDoublesBlancs(octets_, reponse.substr(0, etoile));
    retenues.push_back({debut, octets_.size() - debut, premiere, ferme, numero_});
    dansUnEnregistrement_ = !ferme;
  }

  const ConsignesDeCoupe& consignes_;
  const TemoinsDeCoupe& temoins_;
  std::string& octets_;
  std::int64_t numero_ = 0;
  bool dansUnEnregistrement_ = false;
};

// Puts the kept lines together in records and cuts each at its blanks.
class Coupe {
 public:
  Coupe(const ConsignesDeCoupe& consignes, const TemoinsDeCoupe& temoins, Corpus& corpus, BilanDeCoupe& bilan)
      : consignes_(consignes), temoins_(temoins), corpus_(corpus), bilan_(bilan) {}

  void Lire(const std::vector<LigneRetenue>& retenues) {
    for (const LigneRetenue& ligne : retenues) {
      if (++bilan_.lignes % kPasDeSuivi == 0) temoins_.etape("Lecture individus : ", bilan_.lignes);
      if (ligne.premiere) {
        debut_ = ligne.debut;
        lignes_ = 0;
      }
      if (++lignes_ == consignes_.lignesMax + 1) {
        CompterErreur(ligne);
        temoins_.tropDeLignes(std::string_view(corpus_.octets).substr(debut_, consignes_.gabarit.caracteristiques));
      }
      if (ligne.etoile) Couper(ligne.debut + ligne.longueur - debut_);
    }
    if (retenues.empty() || retenues.back().etoile) return;
    CompterErreur(retenues.back());
    temoins_.sansEtoile();
  }

 private:
  void CompterErreur(const LigneRetenue& ligne) {
    if (++bilan_.erreurs == 1) bilan_.premiereErreur = ligne.numero;
  }

  void Couper(std::uint64_t longueur) {
    const std::size_t c = consignes_.gabarit.caracteristiques;
    const std::string_view brut = std::string_view(corpus_.octets).substr(debut_, longueur);
    const std::string_view reponse = RognerDroite(brut.substr(c));
    if (c + reponse.size() > std::numeric_limits<std::uint32_t>::max()) throw Erreur(kMemoireInsuffisante);
    corpus_.individus.push_back({debut_, static_cast<std::uint32_t>(c + reponse.size())});
    for (std::size_t place = 0; place < reponse.size();) {
      if (reponse[place] == ' ') {
        ++place;
        continue;
      }
      const std::size_t fin = std::min(reponse.find(' ', place), reponse.size());
      Prendre(c + place, fin - place);
      place = fin;
    }
  }

  void Prendre(std::size_t place, std::size_t longueur) {
    if (bilan_.mots == std::numeric_limits<std::uint32_t>::max()) throw Erreur(kMemoireInsuffisante);
    const Mot mot{static_cast<std::uint32_t>(corpus_.individus.size() - 1), static_cast<std::uint32_t>(place),
                  static_cast<std::uint32_t>(longueur)};
    ++bilan_.mots;
    if (longueur >= kLargeurMot) {
      const Concordance concordance(corpus_, mot);
      if (concordance.Longueur() > kLargeurMot) {
        ++bilan_.motsLongs;
        temoins_.motLong(concordance);
      }
    }
    if (!corpus_.gabarit.themes || EstUnTheme(mot)) corpus_.mots.push_back(mot);
  }

  // The word that is written begins with "$"; one of a single character has lost it where the stimulus is taken off.
  bool EstUnTheme(const Mot& mot) const {
    const bool efface = corpus_.gabarit.mode == ModeStimulus::FinDeMotSupprimee && mot.longueur == 1;
    return !efface && corpus_.octets[debut_ + mot.place] == '$';
  }

  const ConsignesDeCoupe& consignes_;
  const TemoinsDeCoupe& temoins_;
  Corpus& corpus_;
  BilanDeCoupe& bilan_;
  std::uint64_t debut_ = 0;
  std::int64_t lignes_ = 0;
};

}  // namespace

BilanDeCoupe CouperTexte(std::string_view texte, const ConsignesDeCoupe& consignes, const TemoinsDeCoupe& temoins,
                         Corpus& corpus) {
  corpus.gabarit = consignes.gabarit;
  corpus.octets.reserve(texte.size());
  BilanDeCoupe bilan;
  VerificationDuTexte verification(consignes, temoins, corpus.octets);
  verification.Verifier(texte);
  bilan.erreurs = verification.erreurs;
  bilan.premiereErreur = verification.premiereErreur;
  bilan.etoilesAvant = verification.etoilesAvant;
  bilan.premiereEtoileAvant = verification.premiereEtoileAvant;
  Coupe(consignes, temoins, corpus, bilan).Lire(verification.retenues);
  return bilan;
}

}  // namespace quelvar::text
