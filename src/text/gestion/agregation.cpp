#include "text/gestion/agregation.h"

#include <algorithm>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/session/generiquelibre.h"
#include "core/session/session.h"
#include "core/texte/listes.h"
#include "text/gestion/compterendu.h"
#include "text/gestion/motsdeslignes.h"
#include "text/gestion/nomsdeslignes.h"
#include "text/tableau/sorties.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kTitre = "Agrégation des lignes d'un tableau"_w;
constexpr int kCle = 10;             // columns of a key
constexpr double kMilieu = 1000000;  // what the key of a contribution of zero holds

double ValeurDeCellule(const LigneDeTable& ligne, std::size_t colonne, std::size_t largeur) {
  return ValeurDe(std::string_view(ligne.cellules).substr(colonne * largeur, largeur));
}

struct SommeDesLignes {
  double frequence = 0;
  std::int64_t plafonnees = 0;  // rows whose frequency is the greatest that four columns hold, and may be greater
  std::vector<double> cellules;
};

SommeDesLignes SommeDesMarquees(const TableGeree& table) {
  SommeDesLignes somme;
  somme.cellules.resize(table.Colonnes());
  for (const LigneDeTable& ligne : table.lignes) {
    if (!ligne.marquee) continue;
    somme.frequence += ValeurDe(ligne.nom);
    if (ValeurDe(ligne.nom) >= static_cast<double>(kFrequenceEcrite)) ++somme.plafonnees;
    for (std::size_t j = 0; j < somme.cellules.size(); ++j)
      somme.cellules[j] += ValeurDeCellule(ligne, j, static_cast<std::size_t>(table.largeur));
  }
  return somme;
}

// Every cell in one more column.
void Elargir(TableGeree& table) {
  const auto largeur = static_cast<std::size_t>(table.largeur);
  for (LigneDeTable& ligne : table.lignes) {
    std::string cellules;
    cellules.reserve(table.Colonnes() * (largeur + 1));
    for (std::size_t j = 0; j < table.Colonnes(); ++j) {
      cellules += ' ';
      cellules += std::string_view(ligne.cellules).substr(j * largeur, largeur);
    }
    ligne.cellules = std::move(cellules);
  }
  ++table.largeur;
}

// The name field of a merged row.
std::string ChampDeFrequence(double frequence) {
  return NombreFixe(std::min(frequence, static_cast<double>(kFrequenceEcrite)), kLargeurFrequence, 0);
}

// Key of each row for the sort asked for. Signed contributions are moved above zero, so that the order of their texts
// is that of their values; a row that is not on the factor has a blank key.
std::vector<utilities::CleDeTri> ClesDe(const Agregation& agregation, const TriDeLignes& tri) {
  std::unordered_map<std::string_view, double> contributions;
  if (tri.cle == CleDeLignes::Facteur) {
    const auto f = static_cast<std::size_t>(ValeurDe(tri.facteur)) - 1;
    for (std::size_t i = 0; i < agregation.facteurs->intitules.size(); ++i)
      contributions.emplace(agregation.facteurs->intitules[i], agregation.facteurs->contributions[f][i]);
  }
  std::vector<utilities::CleDeTri> cles;
  for (const LigneDeTable& ligne : agregation.table.lignes) {
    const std::string_view intitule = Rogner(ligne.intitule);
    switch (tri.cle) {
      case CleDeLignes::Frequence: cles.push_back(utilities::CleDe(CadreDroit(Rogner(ligne.nom), kCle))); break;
      case CleDeLignes::Intitule: cles.push_back(utilities::CleDe(CadreGauche(intitule, kCle))); break;
      case CleDeLignes::Facteur: {
        const auto trouvee = contributions.find(IntituleDAnalyse(ligne));
        cles.push_back(utilities::CleDe(trouvee == contributions.end() ? std::string()
                                                                       : EntierDroit(kMilieu + trouvee->second, kCle)));
      }
    }
  }
  return cles;
}

std::vector<std::string> FauteDeTri(const Agregation& agregation, const TriDeLignes& tri) {
  if (tri.cle != CleDeLignes::Facteur) return {};
  const double facteur = ValeurDe(tri.facteur);
  if (!agregation.facteurs || facteur < 1 ||
      facteur >= static_cast<double>(agregation.facteurs->contributions.size()) + 1)
    return {std::string(kTitreAttention), std::string("Le facteur demandé n'existe pas"_w)};
  const std::string_view etranger = DUnAutreTableau(*agregation.facteurs, agregation.table);
  if (etranger.empty()) return {};
  return {std::string(kTitreAttention), std::string(etranger)};
}

// The files of the new generic, put in place together; the parameter line of .MOD comes last.
void EcrireNouveau(const Contexte& contexte, const TableGeree& table, const std::string& nouveau) {
  JeuDeFichiers sorties(contexte.repertoire, nouveau);
  EcrireLignesDeTable(sorties.Ouvrir(nouveau + ".brt", Nature::Refaisable), table.lignes);
  for (const std::string_view extension : {".DAT", ".POS"})
    if (const std::optional<Chemin> source = contexte.Chercher(extension))
      sorties.Copier(*source, nouveau + std::string(extension), Nature::Unique);
  ListeModalites mod = table.mod;
  mod.titre = nouveau;
  mod.parametres =
      ParametresDeTable(table.lignes.size(), table.Colonnes(),
                        std::min(table.lignesSup, static_cast<std::int64_t>(table.lignes.size())), table.largeur);
  EcrireListeModalites(sorties.Ouvrir(nouveau + ".MOD", Nature::Unique), mod);
  EcrireMotsDesLignes(sorties, nouveau, table.lignes);
  EcrireInitialisation(sorties, nouveau, contexte.niveau);
  sorties.Valider();
}

void Terminer(Rapport& rapport, const Contexte& contexte, const Agregation& agregation, const std::string& nouveau) {
  ImprimerRemplacementDuGenerique(rapport, contexte, nouveau);
  EcrireNouveau(contexte, agregation.table, nouveau);
  ImprimerChangementDeGenerique(rapport, contexte, nouveau);
}

// Labels of the rows that are supplementary: the last ones, as many as the parameter line tells.
std::vector<std::string> Supplementaires(const TableGeree& table) {
  const auto nombre = static_cast<std::size_t>(std::max<std::int64_t>(table.lignesSup, 0));
  std::vector<std::string> intitules;
  for (std::size_t i = table.lignes.size() - std::min(nombre, table.lignes.size()); i < table.lignes.size(); ++i)
    intitules.emplace_back(Rogner(table.lignes[i].intitule));
  return intitules;
}

// Those of the first list that the other one has not: some of them by name, and how many.
std::string Absentes(const std::vector<std::string>& intitules, const std::vector<std::string>& autres) {
  constexpr std::int64_t kNommees = 10;
  std::vector<std::string> noms;
  std::int64_t nombre = 0;
  for (const std::string& intitule : intitules)
    if (std::ranges::find(autres, intitule) == autres.end() && ++nombre <= kNommees) noms.push_back(intitule);
  return nombre > kNommees ? Joindre({Enumerer(noms), "... (", Nombre(nombre), ")"}) : Enumerer(noms);
}

// Supplementary rows are so by their place only: the user is told when merges and sorts have put others there.
void PrevenirDesSupplementaires(const Contexte& contexte, const Agregation& agregation) {
  const std::vector<std::string> maintenant = Supplementaires(agregation.table);
  const std::string devenues = Absentes(maintenant, agregation.supplementaires);
  const std::string perdues = Absentes(agregation.supplementaires, maintenant);
  if (devenues.empty() && perdues.empty()) return;
  contexte.Ecran().demander(Joindre({kAttention, "les lignes supplémentaires d'un tableau sont les dernières (ici "_w,
                                     Nombre(maintenant.size()), "), et une agrégation ou un tri les a changées. "_w,
                                     devenues.empty() ? std::string() : Joindre({"Le deviennent : ", devenues, ". "}),
                                     perdues.empty() ? std::string() : Joindre({"Ne le sont plus : ", perdues, ". "}),
                                     "Vérifiez-les dans la gestion des colonnes et lignes"_w}),
                            Boutons::Ok);
}

// Once for a table.
void PrevenirDesEcarts(const Contexte& contexte, FacteursDesLignes& facteurs) {
  if (facteurs.ecartsDits) return;
  facteurs.ecartsDits = true;
  if (const std::string ecarts = EcartsDesCoordonnees(contexte, facteurs); !ecarts.empty())
    contexte.Ecran().demander(ecarts, Boutons::Ok);
}

void Appliquer(const Contexte& contexte, Agregation& agregation, const OptionsTabMotAgreg::Action& action,
               Rapport& rapport) {
  if (action.tri) {
    const std::vector<std::string> fautes = TrierLignes(agregation, *action.tri, contexte);
    return ArreterSi(rapport, fautes);
  }
  const NomsDesLignes noms(agregation.table.lignes);
  for (const std::string& nom : action.lignes) {
    const LigneTrouvee trouvee = noms.Trouver(nom);
    if (!trouvee.faute.empty()) Arreter(rapport, trouvee.faute);
    agregation.table.lignes[trouvee.rang].marquee = true;
  }
  const std::string_view refus = Agreger(agregation, action.intitule);
  if (refus.empty() || action.lignes.empty()) return;  // without a row the account says so, and the end of the run
  Arreter(rapport, Joindre({"*** ", refus}));
}

}  // namespace

AgregationOuverte OuvrirAgregation(const Contexte& contexte) {
  AgregationOuverte resultat;
  TableOuverte table = OuvrirTable(contexte);
  resultat.message = std::move(table.message);
  resultat.ou = std::move(table.ou);
  if (!resultat.message.empty()) return resultat;
  resultat.ouverte = true;
  resultat.agregation.lue = table.table;
  resultat.agregation.table = std::move(table.table);
  resultat.agregation.supplementaires = Supplementaires(resultat.agregation.table);
  resultat.agregation.facteurs = LireFacteurs(contexte, resultat.agregation.table);
  if (!resultat.agregation.facteurs)
    resultat.message = {std::string(kTitreAttention),
                        std::string("Comme il n'existe pas encore de fichier des coordonnées factorielles des lignes, "
                                    "le tri n'est pas possible par ce biais "_w)};
  return resultat;
}

std::string_view Agreger(Agregation& agregation, std::string_view intitule) {
  TableGeree& table = agregation.table;
  if (std::none_of(table.lignes.begin(), table.lignes.end(), [](const auto& ligne) { return ligne.marquee; })) {
    agregation.compteRendu.emplace_back("*** Absence de traitement des lignes");
    return "Il n'y a pas de mots à regrouper"_w;
  }
  if (Rogner(intitule).empty()) return "Il faut indiquer le nom qu'aura la ligne agrégation des lignes sélectionnées"_w;
  const SommeDesLignes somme = SommeDesMarquees(table);
  Regroupement regroupement{{}, 0, std::string(intitule), somme.frequence, somme.plafonnees};
  LigneDeTable regroupee{ChampDeFrequence(somme.frequence), {}, std::string(intitule), false, {}};
  for (const LigneDeTable& ligne : table.lignes) {
    if (!ligne.marquee) continue;
    regroupement.lignes.push_back({ligne.nom, ligne.intitule});
    std::ranges::move(MotsDeLaLigne(ligne), std::back_inserter(regroupee.mots));
  }
  const auto tropLarge = [&](double valeur) {
    return EntierDroit(valeur, 1).size() > static_cast<std::size_t>(table.largeur);
  };
  for (; std::any_of(somme.cellules.begin(), somme.cellules.end(), tropLarge); ++regroupement.elargissements)
    Elargir(table);
  for (const double cellule : somme.cellules) regroupee.cellules += EntierDroit(cellule, table.largeur);
  std::erase_if(table.lignes, [](const LigneDeTable& ligne) { return ligne.marquee; });
  table.lignes.push_back(std::move(regroupee));
  std::ranges::move(CompteRenduDe(regroupement), std::back_inserter(agregation.compteRendu));
  agregation.modifiee = true;
  return {};
}

std::vector<std::string> TrierLignes(Agregation& agregation, const TriDeLignes& tri, const Contexte& contexte) {
  std::vector<std::string> fautes = FauteDeTri(agregation, tri);
  if (!fautes.empty()) return fautes;
  if (tri.cle == CleDeLignes::Facteur) PrevenirDesEcarts(contexte, *agregation.facteurs);
  const std::vector<std::uint32_t> ordre =
      utilities::TriChaines(ClesDe(agregation, tri), tri.sens, [&](std::int64_t reste) {
        contexte.Ecran().montrerIteration(Joindre({"Il reste ", Nombre(reste), " à trier"_w}));
      });
  std::vector<LigneDeTable> triees;
  triees.reserve(ordre.size());
  for (const std::uint32_t rang : ordre) triees.push_back(std::move(agregation.table.lignes[rang]));
  agregation.table.lignes = std::move(triees);
  return fautes;
}

std::string RefusDeTerminer(const Contexte& contexte, const Agregation& agregation) {
  if (agregation.modifiee) return RefusDeTableChangee(contexte, agregation.lue);
  return Joindre({kTitreErreur, "\r\n", "Il n'y a pas de nouveau fichier créé. Annulez pour sortir"_w});
}

Fin TerminerAgregation(const Contexte& contexte, const Agregation& agregation, std::string& nouveau) {
  nouveau = DemanderGeneriqueLibre(contexte).value_or("");
  if (nouveau.empty()) return Fin::Arret;
  PrevenirDesSupplementaires(contexte, agregation);
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    ImprimerBandeau(rapport, kTitre);
    rapport.Lignes(agregation.compteRendu);
    Terminer(rapport, contexte, agregation, nouveau);
  });
}

std::string TexteDeRangee(const LigneDeTable& ligne) {
  return Joindre({CadreGauche(ligne.nom, kLargeurFrequence),
                  ligne.marquee ? " A agréger "_w : std::string_view("           "), ligne.intitule});
}

Fin TabMotAgreg(const Contexte& contexte, const OptionsTabMotAgreg& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    ImprimerBandeau(rapport, kTitre);
    AgregationOuverte ouverte = OuvrirAgregation(contexte);
    if (!ouverte.ouverte) {
      rapport.Lignes(ouverte.message);
      throw Erreur(FauteSituee{ouverte.message.back(), ouverte.ou});
    }
    Agregation& agregation = ouverte.agregation;
    const auto parFacteur = [](const auto& action) { return action.tri && action.tri->cle == CleDeLignes::Facteur; };
    if (!agregation.facteurs && std::ranges::any_of(options.actions, parFacteur))
      contexte.Ecran().demander(Joindre({ouverte.message.front(), "\r\n", ouverte.message.back()}), Boutons::Ok);
    for (const OptionsTabMotAgreg::Action& action : options.actions) {
      Appliquer(contexte, agregation, action, rapport);
      rapport.Lignes(agregation.compteRendu);
      agregation.compteRendu.clear();
    }
    if (!agregation.modifiee) {
      contexte.Ecran().demander(RefusDeTerminer(contexte, agregation), Boutons::Ok);
      throw Erreur(kArretAnnonce);
    }
    const std::string nouveau = DemanderGeneriqueLibre(contexte, options.remplacer).value_or("");
    if (nouveau.empty()) throw Erreur(kArretAnnonce);
    PrevenirDesSupplementaires(contexte, agregation);
    Terminer(rapport, contexte, agregation, nouveau);
  });
}

}  // namespace quelvar::text
