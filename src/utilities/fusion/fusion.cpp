#include "utilities/fusion/fusion.h"

#include <algorithm>
#include <optional>

#include "core/fichiers/jeu.h"
#include "core/programme/place.h"
#include "core/texte/nombres.h"
#include "utilities/fusion/pos.h"
#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

constexpr int kDifferencesPermises = 50;

// An input and what a first reading tells of it.
struct FichierMesure {
  Entree entree;
  std::int64_t lignes = 0;
  std::size_t plusLongue = 0;
  std::uintmax_t octets = 0;
};

FichierMesure Mesurer(Entree entree) {
  FichierMesure mesure{std::move(entree), 0, 0, 0};
  mesure.octets = LongueurFichier(*mesure.entree.chemin);
  LecteurLignes lecteur(*mesure.entree.chemin);
  for (std::string_view ligne; lecteur.Lire(ligne); ++mesure.lignes)
    mesure.plusLongue = std::max(mesure.plusLongue, ligne.size());
  return mesure;
}

// Where the identifiers stand: columns from 1, and their width.
struct Identifiants {
  std::size_t a = 0, b = 0, largeur = 0;

  std::string_view DeA(std::string_view ligne) const { return Milieu(ligne, a, largeur); }
  std::string_view DeB(std::string_view ligne) const { return Milieu(ligne, b, largeur); }
};

Identifiants LireIdentifiants(const OptionsFusion& options) {
  const std::int64_t a = NombreTape(options.positionA);
  const std::int64_t b = NombreTape(options.positionB);
  const std::int64_t largeur = NombreTape(options.largeur);
  if (a < 1 || b < 1 || largeur < 1) throw Erreur(kArgumentIncorrect);
  return {static_cast<std::size_t>(a), static_cast<std::size_t>(b), static_cast<std::size_t>(largeur)};
}

// The .POS of both inputs, when both are there with questions.
struct PaireDePos {
  PosDeFusion a, b;
};

struct Travail {
  const Contexte& contexte;
  const OptionsFusion& options;
  Rapport& rapport;
  FichierMesure a, b;
  std::optional<PaireDePos> pos;
};

std::optional<PaireDePos> LirePaireDePos(const Contexte& contexte, const OptionsFusion& options) {
  if (!options.pos) return std::nullopt;
  std::optional<PosDeFusion> a = LirePosDeFusion(contexte.repertoire, options.a);
  std::optional<PosDeFusion> b = LirePosDeFusion(contexte.repertoire, options.b);
  if (!a || !b) return std::nullopt;
  return PaireDePos{std::move(*a), std::move(*b)};
}

void Repeter(Ecrivain& sortie, char signe, std::size_t fois) {
  for (; fois > 0; --fois) sortie.Ecrire(signe);
}

// With questions to find again behind it, every line of A takes the room of the longest.
void EcrireLigneDeA(const Travail& travail, std::string_view ligne, Ecrivain& sortie) {
  sortie.Ecrire(ligne);
  if (travail.pos) Repeter(sortie, ' ', travail.a.plusLongue - ligne.size());
}

void EcrireEffectif(Rapport& rapport, const FichierMesure& mesure) {
  rapport.Ligne({" Le nombre d'individus du fichier ", mesure.entree.nom, " est de ",
                 NombreFixe(static_cast<double>(mesure.lignes), 6, 0)});
}

[[noreturn]] void Arreter(const Travail& travail, Texte raison) {
  Avertir(travail.rapport, travail.contexte.Ecran(), raison);
  throw Erreur(kArretAnnonce);
}

// A .POS that stood beside a former C does not tell the columns of the new one.
void DireAncienPos(const Travail& travail) {
  const std::string pos = NomDuPos(travail.options.c);
  if (ChercherFichier(travail.contexte.repertoire, pos))
    Prevenir(travail.contexte, Joindre({"Le fichier ", NomAffiche(pos), " était là et reste : il n'est pas celui de "_w,
                                        NomAffiche(travail.options.c), " qui vient d'être fait"_w}));
}

// C and its .POS, which come into being together: outputs of the generic that they make.
class Resultat {
 public:
  explicit Resultat(const Travail& travail)
      : travail_(travail),
        chemin_(CheminDEcriture(travail.contexte.repertoire, travail.options.c)),
        sorties_(chemin_.parent_path(), TexteDe(chemin_.stem())),
        c_(sorties_.Ouvrir(TexteDe(chemin_.filename()), Nature::Refaisable)) {
    for (const std::string& ligne : sorties_.Recit()) travail.rapport.Ligne(ligne);
  }
  Ecrivain& Fichier() { return c_; }
  void Valider(const std::vector<std::string>& lignesPos) {
    if (travail_.pos) {
      Ecrivain& pos = sorties_.Ouvrir(TexteDe(CheminDe(NomDuPos(travail_.options.c)).filename()), Nature::Unique);
      for (const std::string& ligne : lignesPos) pos.Ligne(ligne);
    }
    sorties_.Valider();
  }
  // What stands there of a fusion that stops, without a .POS.
  void Laisser() { sorties_.Valider(); }

 private:
  const Travail& travail_;
  Chemin chemin_;
  JeuDeFichiers sorties_;
  Ecrivain& c_;
};

std::vector<std::string> LignesPosCoteACote(const Travail& travail, std::int64_t individus) {
  if (!travail.pos) return {};
  return PosCoteACote(travail.pos->a, travail.pos->b, travail.a.plusLongue, individus);
}

// Identifiers beyond every line would all be equal.
Identifiants IdentifiantsDe(const Travail& travail) {
  const Identifiants identifiants = LireIdentifiants(travail.options);
  const auto dehors = [](const FichierMesure& fichier, std::size_t position) {
    return fichier.lignes > 0 && position > fichier.plusLongue;
  };
  if (dehors(travail.a, identifiants.a) || dehors(travail.b, identifiants.b)) throw Erreur(kArgumentIncorrect);
  return identifiants;
}

// False from the difference on that is one too many.
class Verification {
 public:
  explicit Verification(const Travail& travail) : rapport_(travail.rapport) {
    if (!travail.options.verifier) return;
    identifiants_ = IdentifiantsDe(travail);
    active_ = true;
  }

  bool Accepter(std::int64_t individu, std::string_view a, std::string_view b) {
    if (!active_) return true;
    const std::string_view identA = identifiants_.DeA(a);
    const std::string_view identB = identifiants_.DeB(b);
    if (identA == identB) return true;
    rapport_.Ligne({"*** Identité différente à l'individu numéro "_w, NombreNu(individu), " Ident A= ", identA,
                    " Ident B= ", identB});
    return ++differences_ <= kDifferencesPermises;
  }

 private:
  Rapport& rapport_;
  Identifiants identifiants_;
  bool active_ = false;
  int differences_ = 0;
};

void FusionnerCoteACote(const Travail& travail) {
  if (travail.a.lignes != travail.b.lignes) {
    travail.rapport.Ligne("*** Erreur : les deux fichiers n'ont pas le même nombre d'individus"_w);
    EcrireEffectif(travail.rapport, travail.a);
    EcrireEffectif(travail.rapport, travail.b);
    travail.contexte.Ecran().biper();
    throw Erreur(kArretAnnonce);
  }
  Verification verification(travail);
  Resultat c(travail);
  AvancementOctets avancement(travail.contexte, travail.a.octets);
  LecteurLignes a(*travail.a.entree.chemin);
  LecteurLignes b(*travail.b.entree.chemin);
  std::string_view ligneA;
  std::string_view ligneB;
  for (std::int64_t individu = 1; a.Lire(ligneA) && b.Lire(ligneB); ++individu) {
    if (!verification.Accepter(individu, ligneA, ligneB)) {
      c.Laisser();
      DireAncienPos(travail);
      Arreter(travail, "Plus de 50 numéros ou nom différents"_w);
    }
    EcrireLigneDeA(travail, ligneA, c.Fichier());
    c.Fichier().Ligne(ligneB);
    avancement.Avancer(ligneA.size());
  }
  c.Valider(LignesPosCoteACote(travail, travail.a.lignes));
  travail.rapport.Ligne(" Fusion côte à côte"_w);
}

void CopierVers(const FichierMesure& mesure, Ecrivain& sortie, AvancementOctets& avancement) {
  LecteurLignes lecteur(*mesure.entree.chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    sortie.Ligne(ligne);
    avancement.Avancer(ligne.size());
  }
}

void FusionnerALaSuite(const Travail& travail) {
  Resultat c(travail);
  AvancementOctets avancement(travail.contexte, travail.a.octets + travail.b.octets);
  CopierVers(travail.a, c.Fichier(), avancement);
  CopierVers(travail.b, c.Fichier(), avancement);
  c.Valider(travail.pos ? PosALaSuite(travail.pos->a, travail.a.lignes + travail.b.lignes)
                        : std::vector<std::string>{});
  EcrireEffectif(travail.rapport, travail.a);
  EcrireEffectif(travail.rapport, travail.b);
  travail.rapport.Ligne(" Fusion à la suite"_w);
}

struct BilanAppareillement {
  std::int64_t lignes = 0;
  std::int64_t incomplets = 0;
  bool resteDeA = false;  // lines of A were left when B ended
  bool resteDeB = false;  // the line in hand of B found none of A
  std::string lieu;       // of what is left
};

BilanAppareillement Appareiller(const Travail& travail, const Identifiants& identifiants, Ecrivain& sortie) {
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
      Repeter(sortie, '0', travail.b.plusLongue);
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

void FusionnerParNumero(const Travail& travail) {
  const Identifiants identifiants = IdentifiantsDe(travail);
  Resultat c(travail);
  const BilanAppareillement bilan = Appareiller(travail, identifiants, c.Fichier());
  if (bilan.resteDeA || bilan.resteDeB) {
    c.Laisser();
    travail.rapport.Ligne(bilan.resteDeA ? "*** Le Fichier B est terminé avant le fichier A"_w
                                         : "*** ERREUR Fichier B non terminé"_w);
    Prevenir(travail.contexte, bilan.lieu);
    DireAncienPos(travail);
    Arreter(travail, "Vérifiez et corrigez avant de relancer"_w);
  }
  c.Valider(LignesPosCoteACote(travail, bilan.lignes));
  travail.rapport.Ligne({"Nombre d'enregistrement résultant :"_w, NombreNu(bilan.lignes)});
  travail.rapport.Ligne({"Nombre d'enregistrement B incomplets :", NombreNu(bilan.incomplets)});
  travail.rapport.Ligne(" Fusion côte à côte"_w);
}

// What the .POS of the result can't tell by itself; its lines are those of A and B.
void PrevenirDuPos(const Travail& travail) {
  if (!travail.pos) DireAncienPos(travail);
  if (!travail.options.pos) return;
  const std::string pos = NomAffiche(NomDuPos(travail.options.c));
  if (!travail.pos) {
    Prevenir(travail.contexte,
             Joindre({"Le fichier ", pos, " n'a pas été fait : "_w, NomAffiche(NomDuPos(travail.options.a)), " ou ",
                      NomAffiche(NomDuPos(travail.options.b)), " manque ou n'a pas de question"}));
    return;
  }
  if (travail.options.type == TypeFusion::ALaSuite) {
    if (const std::size_t rang = PremiereDifference(travail.pos->a, travail.pos->b); rang > 0)
      Prevenir(travail.contexte,
               Joindre({"Les questions de B ne sont pas celles de A, à partir de la question "_w, Nombre(rang), " : ",
                        pos, " a celles de A, qui vont donc lire les individus de B à d'autres places"_w}));
    return;
  }
  const std::vector<std::string> communs = NomsCommuns(travail.pos->a, travail.pos->b);
  if (communs.empty()) return;
  std::string liste;
  for (const std::string& nom : communs) liste += (liste.empty() ? "" : ", ") + nom;
  Prevenir(travail.contexte,
           Joindre({"Questions de même nom dans A et dans B : "_w, Nombre(communs.size()), " (", liste, "). ", pos,
                    " les porte deux fois : donnez d'autres noms à l'une des deux avant "
                    "d'analyser, un programme s'arrête sur un nom que deux questions partagent"_w}));
}

void FusionnerFichiers(Rapport& rapport, const Contexte& contexte, const OptionsFusion& options) {
  Entree a = ChercherEntree(contexte, options.a);
  Entree b = ChercherEntree(contexte, options.b);
  ExigerEntrees(rapport, contexte, {a, b});
  EcrireBandeau(rapport, "Fusion de fichiers");
  rapport.Ligne({"Le nom du fichier d'entrée A est "_w, a.nom});
  rapport.Ligne({"Le nom du fichier d'entrée B est "_w, b.nom});
  rapport.Ligne({"Le nom du fichier des données jointes est "_w, NomAffiche(options.c)});
  const Travail travail{
      contexte, options, rapport, Mesurer(std::move(a)), Mesurer(std::move(b)), LirePaireDePos(contexte, options)};
  // With questions to find again every line takes the room of the longest, and so does what stands in for B.
  const bool auLarge = travail.pos || options.type == TypeFusion::Appareillement;
  const std::uint64_t lignes = static_cast<std::uint64_t>(std::max(travail.a.lignes, travail.b.lignes));
  const std::uint64_t large = auLarge ? lignes * (travail.a.plusLongue + travail.b.plusLongue) : 0;
  ExigerPlace(contexte, rapport, {0, std::max<std::uint64_t>(travail.a.octets + travail.b.octets, large)});
  switch (options.type) {
    case TypeFusion::CoteACote: FusionnerCoteACote(travail); break;
    case TypeFusion::ALaSuite: FusionnerALaSuite(travail); break;
    case TypeFusion::Appareillement: FusionnerParNumero(travail); break;
    case TypeFusion::Aucun: throw Erreur(kArgumentIncorrect);
  }
  PrevenirDuPos(travail);
  rapport.Ligne("Programme normalement terminé"_w);
}

// The three boxes of a verification; false when one is cancelled.
bool DemanderIdentifiants(const Contexte& contexte, OptionsFusion& options) {
  const auto demander = [&](std::string_view question, std::string& valeur) {
    valeur = Rogner(contexte.Ecran().saisir(question, valeur));
    return !valeur.empty();
  };
  return demander("Entrez la position initiale du numéro (ou du nom) d'individu du premier fichier dit A "_w,
                  options.positionA) &&
         demander("Entrez la position initiale du numéro (ou du nom) d'individu du deuxième fichier dit B "_w,
                  options.positionB) &&
         demander("Entrez la largeur commune aux numéro (ou nom) des deux fichiers"_w, options.largeur);
}

}  // namespace

std::string ManqueFusion(const Contexte& contexte, const OptionsFusion& options) {
  if (options.a.empty()) return "Vous devez entrer le nom du fichier A";
  if (options.b.empty()) return "Vous devez entrer le nom du fichier B";
  if (options.c.empty()) return std::string("Vous devez entrer le nom du fichier résultant"_w);
  if (MemeFichier(contexte, options.c, options.a) || MemeFichier(contexte, options.c, options.b))
    return std::string("Le fichier résultant ne peut être un des deux fichiers d'entrée"_w);
  if (options.type == TypeFusion::Aucun) return "Vous devez choisir un type de fusion";
  if (options.type == TypeFusion::Appareillement) {
    const auto position = [](std::string_view fichier) {
      return Joindre({"Vous devez entrer la position de l'identificateur dans le fichier ", fichier});
    };
    if (options.positionA.empty()) return position("A");
    if (options.positionB.empty()) return position("B");
    if (options.largeur.empty())
      return std::string("Vous devez entrer la largeur de l'identificateur commune à A et B"_w);
  }
  if (options.pos) {
    const std::string pos = NomDuPos(options.c);
    for (const std::string& entree : {options.a, options.b})
      if (MemeFichier(contexte, pos, NomDuPos(entree)) || MemeFichier(contexte, pos, entree))
        return Joindre({"Le fichier de positions du résultat, "_w, NomAffiche(pos),
                        ", est celui d'un des deux fichiers d'entrée : donnez un autre nom au fichier C"_w});
  }
  return EntreeEcrasee(contexte, {options.a, options.b, options.c});
}

Fin Fusionner(const Contexte& contexte, const OptionsFusion& options) {
  if (MemeFichier(contexte, options.a, options.b) &&
      contexte.Ecran().demander(
          Joindre({"*** Attention : les fichiers A et B sont un seul et même fichier, "_w, NomAffiche(options.a),
                   " : le résultat contiendra deux fois ses données. L'acceptez-vous ?"_w}),
          Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  const std::string pos = NomDuPos(options.c);
  if (options.pos && ChercherFichier(contexte.repertoire, pos) &&
      contexte.Ecran().demander(
          Joindre({"Le fichier ", NomAffiche(pos), " existe déjà : il va être remplacé. L'acceptez-vous ?"_w}),
          Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  OptionsFusion demandees = options;
  if (options.type == TypeFusion::CoteACote && options.verifier && !DemanderIdentifiants(contexte, demandees))
    return Fin::Arret;
  return ExecuterProgramme(contexte, NomDuRapport(contexte), Libelles(),
                           [&](Rapport& rapport) { FusionnerFichiers(rapport, contexte, demandees); });
}

}  // namespace quelvar::utilities
