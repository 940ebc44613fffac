#include "modalities/regroupement/modifburt.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "core/enquete/coherence.h"
#include "core/enquete/modfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/place.h"
#include "core/session/generique.h"
#include "core/session/generique_libre.h"
#include "core/session/session.h"
#include "core/texte/nombres.h"
#include "modalities/regroupement/regroupement.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kArret = "*** Arrêt du programme du à l'absence d'un ou de plusieurs fichiers"_w;

// Short and long names of the new column and of the new row.
struct NomsDeGroupe {
  std::string colonne, colonneLongue;
  std::string ligne, ligneLongue;
};

struct Table {
  FichierMod mod;
  ParametresMod parametres;
  Chemin brt;
  std::optional<Chemin> pos;
};

Table OuvrirTable(const Contexte& contexte, Rapport& rapport) {
  Table table;
  bool manque = false;
  const auto chercher = [&](std::string_view extension, bool exige) {
    std::optional<Chemin> chemin = contexte.Chercher(extension);
    if (!chemin && exige) {
      rapport.Ligne({"*** Le fichier ", contexte.Nom(extension), " n'existe pas"});
      manque = true;
    }
    return chemin;
  };
  const std::optional<Chemin> mod = chercher(".MOD", true);
  const std::optional<Chemin> brt = chercher(".BRT", true);
  if (mod) {
    table.mod = LireMod(*mod);
    table.parametres = LireParametres(table.mod.parametres);
    rapport.Lignes(table.parametres.remarques);
  }
  table.pos = chercher(".POS", table.parametres.burt > 0);
  if (manque) {
    Avertir(rapport, contexte.Ecran(), kArret);
    throw Erreur(kArretAnnonce);
  }
  table.brt = *brt;
  if (table.parametres.largeur > 0) ExigerTableDuMod(table.brt, table.mod, table.parametres);
  return table;
}

std::size_t NombreDeColonnes(const Table& table) {
  if (table.parametres.burt > 1) return static_cast<std::size_t>(table.parametres.burt);
  return table.mod.modalites.size();
}

// Marks a column by its name; a name that the list does not hold stops the run.
void MarquerColonnes(const Contexte& contexte, Rapport& rapport, const Table& table,
                     const std::vector<std::string>& noms, std::vector<char>& marques) {
  for (const std::string& nom : noms) {
    const auto& modalites = table.mod.modalites;
    const std::vector<std::size_t> rangs = RangsDuNom(modalites, nom);
    if (rangs.size() > 1) throw Erreur(kIncompatibiliteType, FauteModalitesHomonymes(nom, rangs.size()));
    if (rangs.empty() || rangs.front() >= marques.size()) {
      Avertir(rapport, contexte.Ecran(), Joindre({"La modalité "_w, nom, " n'est pas dans le fichier de modalités"_w}));
      throw Erreur(kArretAnnonce);
    }
    marques[rangs.front()] = 1;
  }
}

std::vector<std::string> NomsDesLignes(const Table& table) {
  std::vector<std::string> noms;
  LecteurLignes lecteur(table.brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) noms.emplace_back(ligne.substr(0, 4));
  return noms;
}

void MarquerLignes(const Contexte& contexte, Rapport& rapport, const Table& table, std::vector<std::string> noms,
                   std::vector<char>& marques) {
  if (noms.empty()) return;
  const std::vector<std::string> lignes = NomsDesLignes(table);
  for (const std::string& nom : noms) {
    const auto homonymes = [&](const std::vector<std::string>& autres) {
      return std::count_if(autres.begin(), autres.end(),
                           [&](const std::string& autre) { return Rogner(autre) == Rogner(nom); });
    };
    if (homonymes(lignes) > std::max<std::ptrdiff_t>(homonymes(noms), 1))
      throw Erreur(
          kIncompatibiliteType,
          Joindre({"*** Arret du programme : le nom ", nom, " est celui de ", Nombre(std::int64_t{homonymes(lignes)}),
                   " lignes du tableau : donnez-leur des noms différents, ou marquez-les toutes"_w}));
  }
  LecteurLignes lecteur(table.brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    const auto trouvee = std::find_if(noms.begin(), noms.end(), [&](const std::string& nom) {
      return RognerDroite(nom) == RognerDroite(ligne.substr(0, 4));
    });
    marques.push_back(trouvee == noms.end() ? char{0} : char{1});
    if (trouvee != noms.end()) noms.erase(trouvee);
  }
  if (noms.empty()) return;
  Avertir(rapport, contexte.Ecran(), Joindre({"La ligne ", noms.front(), " n'est pas dans le tableau"}));
  throw Erreur(kArretAnnonce);
}

std::int64_t CompterRangees(const Chemin& brt) {
  std::int64_t rangees = 0;
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (!Rogner(ligne).empty()) ++rangees;
  return rangees;
}

PlanDeRegroupement Planifier(const Contexte& contexte, Rapport& rapport, const Table& table,
                             const OptionsModifBurt& options) {
  PlanDeRegroupement plan;
  plan.ancienneLargeur = table.parametres.largeur;
  plan.colonnes.assign(NombreDeColonnes(table), 0);
  MarquerColonnes(contexte, rapport, table, options.colonnes, plan.colonnes);
  if (table.parametres.burt > 0) {
    MarquerColonnes(contexte, rapport, table, options.lignes, plan.colonnes);
    plan.lignes = plan.colonnes;
    plan.lignesActives = static_cast<std::int64_t>(plan.colonnes.size());
    return plan;
  }
  MarquerLignes(contexte, rapport, table, options.lignes, plan.lignes);
  plan.lignesActives = CompterRangees(table.brt) - Entier64(std::max(table.parametres.lignesSup, 0.0));
  return plan;
}

// A group under the name of an element that stays would be one with it for every program that reads the new table.
void ExigerNomsLibres(const Contexte& contexte, Rapport& rapport, const Table& table, OptionsModifBurt options) {
  std::vector<std::string> colonnes;
  for (const Modalite& modalite : table.mod.modalites) colonnes.push_back(modalite.nom);
  std::vector<std::string> lignes;
  if (table.parametres.burt > 0) {
    options.colonnes.insert(options.colonnes.end(), options.lignes.begin(), options.lignes.end());
    options.lignes.clear();
  } else if (!options.lignes.empty()) {
    lignes = NomsDesLignes(table);
  }
  const std::string refus = RefusDuNom(options, colonnes, lignes);
  if (refus.empty()) return;
  Avertir(rapport, contexte.Ecran(), Joindre({"*** ", refus}));
  throw Erreur(kArretAnnonce);
}

void EcrireColonnes(Rapport& rapport, const Table& table, const PlanDeRegroupement& plan) {
  rapport.Ligne("Traitement des colonnes du tableau");
  for (std::size_t j = 0; j < plan.colonnes.size() && j < table.mod.modalites.size(); ++j)
    if (plan.colonnes[j] != 0)
      rapport.Ligne({"La colonne ", table.mod.modalites[j].nom, " fait l'objet d'un regroupement"});
}

void EcrireLignes(Rapport& rapport, const PlanDeRegroupement& plan, const BilanDeRegroupement& bilan,
                  const NomsDeGroupe& noms) {
  if (plan.AvecColonnes()) rapport.Ligne({"Le regroupement de colonnes à pour nouveau nom : "_w, noms.colonneLongue});
  else rapport.Ligne("*** Absence de traitement des colonnes ");
  rapport.Ligne("Traitement des lignes du tableau");
  for (const LigneGroupee& ligne : bilan.lignes)
    rapport.Ligne({"La ligne ", ligne.nom, " fait l'objet d'un regroupement : ", NombreNu(ligne.frequence)});
}

void EcrireGroupeDeLignes(Rapport& rapport, const Table& table, const PlanDeRegroupement& plan,
                          const BilanDeRegroupement& bilan, const NomsDeGroupe& noms) {
  if (!plan.AvecLignes()) rapport.Ligne("*** Absence de traitement des lignes");
  else if (table.parametres.burt > 0)
    rapport.Ligne({"Le regroupement a pour nom : ", noms.ligne, " Sa fréquence est de "_w, NombreNu(bilan.frequence)});
  else rapport.Ligne({"Le regroupement de lignes a pour nouveau nom ", noms.ligneLongue});
}

std::string LigneDeParametres(const ParametresMod& anciens, std::size_t colonnes, const BilanDeRegroupement& bilan,
                              int largeur) {
  if (anciens.burt > 1) return quelvar::LigneDeParametres({{"BRT=", colonnes}, {"FMT=", largeur}});
  std::vector<CleDeParametre> cles = {{"LIGN=", bilan.rangees}, {"COL=", colonnes}, {"FMT=", largeur}};
  if (bilan.lignesSup > 0) cles.insert(cles.begin() + 1, {"LSUP=", bilan.lignesSup});
  if (anciens.burt == 1) cles.insert(cles.begin(), {"BRT=", 1});
  return quelvar::LigneDeParametres(cles);
}

void EcrireMod(Ecrivain& sortie, const Table& table, const PlanDeRegroupement& plan, const NomsDeGroupe& noms,
               const std::string& titre, const std::string& parametres) {
  sortie.Ligne(titre);
  sortie.Ligne(parametres);
  for (std::size_t j = 0; j < table.mod.modalites.size(); ++j)
    if (j >= plan.colonnes.size() || plan.colonnes[j] == 0) sortie.Ligne(table.mod.lignes[2 + j]);
  if (plan.AvecColonnes()) sortie.Ligne(Joindre({noms.colonne, "   ", noms.colonneLongue}));
  for (std::size_t i = table.mod.premiereApres; i < table.mod.lignes.size(); ++i) sortie.Ligne(table.mod.lignes[i]);
}

void EcrireFin(const Contexte& contexte, Rapport& rapport, const std::string& nouveau) {
  EcrireChangementDeGenerique(rapport, contexte, nouveau);
  rapport.Ligne("Vous pouvez lancer directement l'analyse factorielle");
  if (contexte.niveau == 2) rapport.Ligne("Vous pouvez passer en niveau 1 pour accélérer le processus"_w);
  rapport.Ligne("Fin normale du programme");
  contexte.Ecran().biper();
}

// One pass after the other, each with cells one wider than the last, until every sum fits; returns the width.
int RegrouperJusquAuBout(Rapport& rapport, const Contexte& contexte, const Table& table, const PlanDeRegroupement& plan,
                         const NomsDeGroupe& noms, const std::string& nouveau, std::optional<JeuDeFichiers>& sorties,
                         BilanDeRegroupement& bilan) {
  bool reitere = false;
  for (int largeur = plan.ancienneLargeur;; ++largeur, reitere = true) {
    if (largeur > std::numeric_limits<std::int16_t>::max()) throw Erreur(kDepassementCapacite);
    sorties.emplace(contexte.repertoire, nouveau);
    Ecrivain& brt = sorties->Ouvrir(nouveau + ".BRT", Nature::Refaisable);
    EcrireColonnes(rapport, table, plan);
    bilan = Regrouper(table.brt, plan, largeur, brt);
    if (bilan.colonneTropLarge) continue;
    EcrireLignes(rapport, plan, bilan, noms);
    if (bilan.ligneTropLarge) continue;
    EcrireGroupeDeLignes(rapport, table, plan, bilan, noms);
    if (reitere) {
      rapport.Ligne(
          "*** Attention, le processus est réitéré pour tenir compte d'un effectif qui dépasse la largeur initiale"_w);
      rapport.Ligne("    de ce fait, des indications de regroupement sont dupliquées"_w);
    }
    return largeur;
  }
}

NomsDeGroupe NommerGroupes(const Contexte& contexte, const Table& table, const OptionsModifBurt& options) {
  const auto couper = [&](const std::string& nom) {
    const std::string coupe = nom.substr(0, kNomDeGroupeLePlusLong);
    if (coupe.size() < nom.size())
      contexte.Ecran().demander(Joindre({"Nom de regroupement coupé à "_w, Nombre(kNomDeGroupeLePlusLong),
                                         " caractères : "_w, nom, " devient ", coupe}),
                                Boutons::Ok);
    return coupe;
  };
  const std::string colonne = couper(options.nomColonne);
  const std::string ligne = table.parametres.burt > 0 ? colonne : couper(options.nomLigne);
  return {NomCourtDeGroupe(colonne), colonne, NomCourtDeGroupe(ligne), ligne};
}

// Rows beyond those that the .MOD announces are kept, and announced by the new one.
void DireLignesEnPlus(const Contexte& contexte, const Table& table) {
  if (table.parametres.burt > 1 || table.parametres.lignes <= 0) return;
  const std::int64_t rangees = CompterRangees(table.brt);
  if (static_cast<double>(rangees) <= table.parametres.lignes) return;
  contexte.Ecran().demander(Joindre({contexte.Nom(".BRT"), " a ", Nombre(rangees), " lignes au lieu de ",
                                     Nombre(Entier64(table.parametres.lignes)), " (LIGN= de ", contexte.Nom(".MOD"),
                                     "). Toutes sont gardées : vérifiez que ces deux fichiers vont ensemble"_w}),
                            Boutons::Ok);
}

// The sums take the cells as they read; what is no count among them is told.
void DireCellulesDouteuses(const Contexte& contexte, const CellulesDouteuses& douteuses) {
  if (douteuses.nombre == 0) return;
  contexte.Ecran().demander(
      Joindre({"Cellules regroupées qui ne sont pas des nombres entiers positifs ou nuls, ou sont coupées : "_w,
               Nombre(douteuses.nombre), ", la première "_w, douteuses.premiere,
               ". Un texte ou ce qui manque compte pour 0, un nombre négatif est retranché, et les sommes sont "
               "arrondies : vérifiez "_w,
               contexte.Nom(".BRT")}),
      Boutons::Ok);
}

// The mark of grouped columns is lost; supplementary rows grouped with an active one become active.
void DireSupplementairesActives(const Contexte& contexte, const Table& table, const PlanDeRegroupement& plan) {
  std::int64_t colonnes = 0;
  for (std::size_t j = 0; j < plan.colonnes.size() && j < table.mod.modalites.size(); ++j)
    if (plan.colonnes[j] != 0 && table.mod.modalites[j].supplementaire) ++colonnes;
  const auto actives = std::min(plan.lignes.size(), static_cast<std::size_t>(plan.lignesActives));
  const auto fin = plan.lignes.begin() + static_cast<std::ptrdiff_t>(actives);
  const bool groupeActif = std::find(plan.lignes.begin(), fin, 1) != fin;
  const std::int64_t lignes = groupeActif ? std::count(fin, plan.lignes.end(), 1) : 0;
  if (colonnes == 0 && lignes == 0) return;
  contexte.Ecran().demander(
      Joindre({"Éléments supplémentaires que le regroupement rend actifs : "_w, Nombre(colonnes), " colonnes, "_w,
               Nombre(lignes), " lignes. Rétablissez le statut du regroupement avant d'analyser"_w}),
      Boutons::Ok);
}

// `libre` when nothing that counts stands under the new generic.
void Modifier(Rapport& rapport, const Contexte& contexte, const OptionsModifBurt& options, const std::string& nouveau,
              bool libre) {
  EcrireBandeau(rapport, "Modification d'un tableau de Burt");
  const Table table = OuvrirTable(contexte, rapport);
  if (table.parametres.largeur < 1) {
    Avertir(rapport, contexte.Ecran(), "Erreur : pas de FMT=");
    throw Erreur(kArretAnnonce);
  }
  PlanDeRegroupement plan = Planifier(contexte, rapport, table, options);
  const NomsDeGroupe noms = NommerGroupes(contexte, table, options);
  plan.nomCourt = noms.ligne;
  ExigerNomsLibres(contexte, rapport, table, options);
  if (table.parametres.burt > 1 && plan.AvecColonnes() &&
      std::count(plan.colonnes.begin(), plan.colonnes.end(), 0) == 0) {
    Avertir(rapport, contexte.Ecran(),
            "*** Toutes les modalités sont marquées : il n'en resterait qu'une, et pas de tableau"_w);
    throw Erreur(kArretAnnonce);
  }
  if (table.parametres.burt > 0 && !options.nomLigne.empty() && options.nomLigne != options.nomColonne)
    contexte.Ecran().demander(
        Joindre({"Nom de ligne laissé : "_w, options.nomLigne,
                 ". Les lignes d'un tableau de Burt prennent le nom de ses colonnes, "_w, noms.ligne}),
        Boutons::Ok);

  // The new table beside the old one, one column wider at each sum that does not fit.
  ExigerPlace(contexte, rapport,
              {0, LongueurFichier(table.brt) * (static_cast<std::uint64_t>(plan.ancienneLargeur) + 1) /
                      static_cast<std::uint64_t>(plan.ancienneLargeur)});
  std::optional<JeuDeFichiers> sorties;
  BilanDeRegroupement bilan;
  const int largeur = RegrouperJusquAuBout(rapport, contexte, table, plan, noms, nouveau, sorties, bilan);
  const auto restantes = static_cast<std::size_t>(std::count(plan.colonnes.begin(), plan.colonnes.end(), 0));
  EcrireMod(sorties->Ouvrir(nouveau + ".MOD", Nature::Unique), table, plan, noms, nouveau,
            LigneDeParametres(table.parametres, restantes + (plan.AvecColonnes() ? 1 : 0), bilan, largeur));
  if (table.pos) CopierLignes(*table.pos, sorties->Ouvrir(nouveau + ".POS", Nature::Unique));
  EcrireInitialisation(*sorties, nouveau, contexte.niveau);
  if (!libre) EcrireRemplacementDuGenerique(rapport, contexte, nouveau);
  sorties->Valider();
  DireLignesEnPlus(contexte, table);
  DireSupplementairesActives(contexte, table, plan);
  DireCellulesDouteuses(contexte, bilan.douteuses);
  EcrireFin(contexte, rapport, nouveau);
}

std::string Enumerer(const std::vector<std::string>& noms) {
  std::string liste;
  for (const std::string& nom : noms) liste += (liste.empty() ? "" : ", ") + std::string(RognerDroite(nom));
  return liste;
}

}  // namespace

std::string NomCourtDeGroupe(std::string_view nom) {
  std::string court(nom.substr(0, 4));
  court.resize(4, '0');
  return court;
}

std::string RefusDuNom(const OptionsModifBurt& options, const std::vector<std::string>& colonnes,
                       const std::vector<std::string>& lignes) {
  const auto refus = [](std::string_view quoi, const std::vector<std::string>& marques, const std::string& nom,
                        const std::vector<std::string>& tous) -> std::string {
    if (marques.empty()) return {};
    const std::string court = NomCourtDeGroupe(nom);
    const auto porte = [](std::string_view cherche) {
      return [cherche](const std::string& autre) { return Rogner(autre) == Rogner(cherche); };
    };
    if (FinitLesModalites(court))
      return Joindre({"Le nom court \"", court, "\" du regroupement finirait la liste des modalités : "_w,
                      "donnez un autre nom au regroupement"});
    const bool pris = std::any_of(tous.begin(), tous.end(), porte(court)) &&
                      std::none_of(marques.begin(), marques.end(), porte(court));
    if (!pris) return {};
    return Joindre({"Le nom court ", court, " du regroupement est déjà celui d'une "_w, quoi,
                    " du tableau : donnez un autre nom au regroupement"});
  };
  const std::string colonne = refus("colonne", options.colonnes, options.nomColonne, colonnes);
  return colonne.empty() ? refus("ligne", options.lignes, options.nomLigne, lignes) : colonne;
}

std::string AnnonceDuRegroupement(const OptionsModifBurt& options) {
  std::string annonce;
  const auto ajouter = [&](std::string_view quoi, const std::vector<std::string>& noms, const std::string& nom) {
    if (noms.empty()) return;
    if (!annonce.empty()) annonce += "\r\n";
    annonce += Joindre({quoi, Enumerer(noms), "\r\n   sous le nom ", NomCourtDeGroupe(nom), " (", nom, ")"});
  };
  ajouter("Colonnes qui vont être regroupées : "_w, options.colonnes, options.nomColonne);
  ajouter("Lignes qui vont être regroupées : "_w, options.lignes, options.nomLigne);
  return annonce;
}

namespace {

// Whether nothing stands under that generic but the report of a grouping that stopped.
bool NAQueLeRapportDUnArret(const Contexte& contexte, const std::string& generique) {
  const std::optional<Chemin> chemin = ChercherFichier(contexte.repertoire, generique + ".PRT");
  if (!chemin) return false;
  for (const char* extension : {".MOD", ".BRT", ".POS", ".DAT", ".CDG", ".TRG", ".TXT", ".DES", ".CSV"})
    if (ChercherFichier(contexte.repertoire, generique + extension)) return false;
  constexpr std::uintmax_t kAuPlus = 100000;
  if (LongueurFichier(*chemin) > kAuPlus) return false;
  const std::string texte = LireOctets(*chemin);
  return texte.find("Modification d'un tableau de Burt") != std::string::npos &&
         texte.find("changement de nom g\xE9n\xE9rique") == std::string::npos;
}

}  // namespace

Fin ModifierBurt(const Contexte& contexte, const OptionsModifBurt& options) {
  const bool deja =
      !contexte.generique.empty() && NAQueLeRapportDUnArret(contexte, GeneriqueSuivant(contexte.generique));
  const std::optional<std::string> nouveau = DemanderGeneriqueLibre(contexte, options.remplacer || deja);
  if (!nouveau) return Fin::Arret;
  const Fin fin = ExecuterProgramme(contexte, *nouveau + ".PRT", LibellesErreur{},
                                    [&](Rapport& rapport) { Modifier(rapport, contexte, options, *nouveau, deja); });
  if (fin == Fin::Normale && options.nouveau != nullptr) *options.nouveau = *nouveau;
  return fin;
}

}  // namespace quelvar::modalities
