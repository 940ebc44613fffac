#include "utilities/fusion/jonction.h"

#include "core/chiffres/nombres.h"
#include "core/programme/arret.h"
#include "utilities/entrees/avancement.h"
#include "utilities/entrees/exigences.h"
#include "utilities/fusion/edition.h"

namespace quelvar::utilities {

namespace {

constexpr int kDifferencesPermises = 50;
constexpr char kSigneDeLAbsent = '0';  // fills the columns of B where it has no line

void Repeter(Ecrivain& sortie, char signe, std::size_t fois) {
  for (; fois > 0; --fois) sortie.Ecrire(signe);
}

// With questions to find again behind it, every line of A takes the room of the longest.
void EcrireLigneDeA(const TravailDeFusion& travail, std::string_view ligne, Ecrivain& sortie) {
  sortie.Ecrire(ligne);
  if (travail.pos) Repeter(sortie, ' ', travail.a.plusLongue - ligne.size());
}

std::vector<std::string> LignesPosCoteACote(const TravailDeFusion& travail, std::int64_t individus) {
  if (!travail.pos) return {};
  return PosCoteACote(travail.pos->a, travail.pos->b, travail.a.plusLongue, individus);
}

// False from the difference on that is one too many. Each one is told as it is met: behind a file that fails
// further on the report holds what was found until then.
class VerificationDesIdentifiants {
 public:
  explicit VerificationDesIdentifiants(const TravailDeFusion& travail) : rapport_(travail.rapport) {
    if (!travail.options.verifier) return;
    identifiants_ = IdentifiantsDe(travail);
    active_ = true;
  }

  bool Accepter(std::int64_t individu, std::string_view a, std::string_view b) {
    if (!active_) return true;
    const std::string_view identA = identifiants_.DeA(a);
    const std::string_view identB = identifiants_.DeB(b);
    if (identA == identB) return true;
    ImprimerDifference(rapport_, individu, identA, identB);
    return ++differences_ <= kDifferencesPermises;
  }

 private:
  Rapport& rapport_;
  Identifiants identifiants_;
  bool active_ = false;
  int differences_ = 0;
};

void CopierVers(const FichierMesure& mesure, Ecrivain& sortie, AvancementOctets& avancement) {
  LecteurLignes lecteur(*mesure.entree.chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    sortie.Ligne(ligne);
    avancement.Avancer(ligne.size());
  }
}

BilanAppareillement Appareiller(const TravailDeFusion& travail, const Identifiants& identifiants, Ecrivain& sortie) {
  AvancementOctets avancement(travail.contexte, travail.a.octets);
  LecteurLignes a(*travail.a.entree.chemin);
  LecteurLignes b(*travail.b.entree.chemin);
  BilanAppareillement bilan;
  std::string_view ligneB;
  bool enMain = b.Lire(ligneB);
  std::int64_t rangDeB = 1;
  std::int64_t depuis = 1;  // line of A from which the one in hand of B is looked for
  for (std::string_view ligneA; a.Lire(ligneA); ++bilan.lignes) {
    EcrireLigneDeA(travail, ligneA, sortie);
    if (!enMain && !bilan.resteDeA) {
      bilan.resteDeA = true;
      bilan.lieu = Joindre({"Première ligne de A derrière la fin de B : "_w, Nombre(bilan.lignes + 1), ", numéro "_w,
                            identifiants.DeA(ligneA)});
    }
    if (enMain && identifiants.DeA(ligneA) == identifiants.DeB(ligneB)) {
      sortie.Ligne(ligneB);
      enMain = b.Lire(ligneB);
      ++rangDeB;
      depuis = bilan.lignes + 2;
    } else {
      Repeter(sortie, kSigneDeLAbsent, travail.b.plusLongue);
      sortie.FinDeLigne();
      ++bilan.incomplets;
    }
    avancement.Avancer(ligneA.size());
  }
  bilan.resteDeB = enMain;
  if (enMain)
    bilan.lieu = Joindre({"Ligne ", Nombre(rangDeB), " de B, numéro "_w, identifiants.DeB(ligneB),
                          " : aucune ligne de A n'a ce numéro à partir de la ligne "_w, Nombre(depuis),
                          ". Les deux fichiers doivent être dans le même ordre"_w});
  return bilan;
}

}  // namespace

void PrevenirDeLAncienPos(const TravailDeFusion& travail) {
  const std::string pos = NomDuPos(travail.options.c);
  if (ChercherFichier(travail.contexte.repertoire, pos))
    Prevenir(travail.contexte, Joindre({"Le fichier ", NomAffiche(pos), " était là et reste : il n'est pas celui de "_w,
                                        NomAffiche(travail.options.c), " qui vient d'être fait"_w}));
}

void FusionnerCoteACote(const TravailDeFusion& travail) {
  if (travail.a.lignes != travail.b.lignes) {
    ImprimerEffectifsInegaux(travail);
    travail.contexte.Ecran().biper();
    throw Erreur(kArretAnnonce);
  }
  VerificationDesIdentifiants verification(travail);
  Resultat c(travail);
  AvancementOctets avancement(travail.contexte, travail.a.octets);
  LecteurLignes a(*travail.a.entree.chemin);
  LecteurLignes b(*travail.b.entree.chemin);
  std::string_view ligneA;
  std::string_view ligneB;
  for (std::int64_t individu = 1; a.Lire(ligneA) && b.Lire(ligneB); ++individu) {
    if (!verification.Accepter(individu, ligneA, ligneB)) {
      c.Laisser();
      PrevenirDeLAncienPos(travail);
      AvertirEtArreter(travail.rapport, travail.contexte.Ecran(), "Plus de 50 numéros ou nom différents"_w);
    }
    EcrireLigneDeA(travail, ligneA, c.Fichier());
    c.Fichier().Ligne(ligneB);
    avancement.Avancer(ligneA.size());
  }
  c.Valider(LignesPosCoteACote(travail, travail.a.lignes));
  travail.rapport.Ligne(" Fusion côte à côte"_w);
}

void FusionnerALaSuite(const TravailDeFusion& travail) {
  Resultat c(travail);
  AvancementOctets avancement(travail.contexte, travail.a.octets + travail.b.octets);
  CopierVers(travail.a, c.Fichier(), avancement);
  CopierVers(travail.b, c.Fichier(), avancement);
  c.Valider(travail.pos ? PosALaSuite(travail.pos->a, travail.a.lignes + travail.b.lignes)
                        : std::vector<std::string>{});
  ImprimerEffectif(travail.rapport, travail.a);
  ImprimerEffectif(travail.rapport, travail.b);
  travail.rapport.Ligne(" Fusion à la suite"_w);
}

void FusionnerParNumero(const TravailDeFusion& travail) {
  const Identifiants identifiants = IdentifiantsDe(travail);
  Resultat c(travail);
  const BilanAppareillement bilan = Appareiller(travail, identifiants, c.Fichier());
  if (bilan.resteDeA || bilan.resteDeB) {
    c.Laisser();
    ImprimerAppareillement(travail.rapport, bilan);
    Prevenir(travail.contexte, bilan.lieu);
    PrevenirDeLAncienPos(travail);
    AvertirEtArreter(travail.rapport, travail.contexte.Ecran(), "Vérifiez et corrigez avant de relancer"_w);
  }
  c.Valider(LignesPosCoteACote(travail, bilan.lignes));
  ImprimerAppareillement(travail.rapport, bilan);
  travail.rapport.Ligne(" Fusion côte à côte"_w);
}

}  // namespace quelvar::utilities
