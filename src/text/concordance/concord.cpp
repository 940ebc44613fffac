#include "text/concordance/concord.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/programme/arret.h"
#include "text/commun/lignedemot.h"
#include "text/concordance/edition.h"
#include "text/concordance/ordre.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kContextes = kContexteGauche + kContexteDroit;

// Where the parts of a line of words stand.
struct PlacesDansLaLigne {
  std::size_t mot = 0;
  std::size_t caracteristiques = 0;
  std::size_t largeur = 0;  // of the characteristics
  std::size_t contexte = 0;

  bool Tient(std::string_view ligne) const {
    return ligne.size() >= std::max(mot + kLargeurMot, contexte + kContexteGauche);
  }
};

std::optional<PlacesDansLaLigne> PlacesDeTr1(std::string_view ligne) {
  if (ligne.size() < kLargeurMot + kContextes) return std::nullopt;
  const std::size_t largeur = ligne.size() - kLargeurMot - kContextes;
  return PlacesDansLaLigne{0, kLargeurMot, largeur, kLargeurMot + largeur};
}

std::optional<PlacesDansLaLigne> PlacesDeDat(std::string_view ligne) {
  const std::optional<std::size_t> largeur = LargeurDesCaracteristiques(ligne);
  if (!largeur) return std::nullopt;
  const std::size_t mot = *largeur + kLargeurCode;
  return PlacesDansLaLigne{mot, 0, *largeur, mot + kLargeurMot + kFinDeMot.size()};
}

LigneDeConcordance Couper(const PlacesDansLaLigne& places, std::string_view ligne) {
  std::string_view gauche = ligne.substr(places.contexte, kContexteGauche);
  gauche.remove_prefix(std::min(gauche.find_first_not_of('*'), gauche.size()));
  return {std::string(ligne.substr(places.caracteristiques, places.largeur)), std::string(gauche),
          std::string(RognerDroite(ligne.substr(places.contexte + kContexteGauche)))};
}

void Lire(const Chemin& chemin, bool tr1, Concordances& concordances) {
  std::vector<std::string> champs;
  for (const MotTrouve& trouve : concordances.mots) champs.push_back(CadreGauche(trouve.mot, kLargeurMot));
  std::optional<PlacesDansLaLigne> places;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (!places) places = tr1 ? PlacesDeTr1(ligne) : PlacesDeDat(ligne);
    if (!places) {
      concordances.faute = Joindre(
          {"Le fichier ", concordances.source, " ne contient pas des mots : faire d'abord le découpage en mots"_w});
      return;
    }
    if (!places->Tient(ligne)) continue;
    const std::string_view mot = ligne.substr(places->mot, kLargeurMot);
    const auto cherche = std::find(champs.begin(), champs.end(), mot);
    if (cherche == champs.end()) continue;
    ++concordances.mots[static_cast<std::size_t>(cherche - champs.begin())].lignes;
    concordances.lignes.push_back(Couper(*places, ligne));
  }
}

// Every word once: two that share their ten columns have the same lines.
std::vector<MotTrouve> MotsDistincts(const std::vector<MotsCherches>& cherches) {
  std::vector<MotTrouve> distincts;
  for (const MotsCherches& cherche : cherches)
    for (const std::string& mot : cherche.mots)
      if (std::ranges::none_of(distincts, [&](const MotTrouve& autre) { return EstLeMot(autre, mot); }))
        distincts.push_back({mot});
  return distincts;
}

void ExigerSortie(Rapport& rapport, const Contexte& contexte, const OptionsConcordance& options) {
  const Chemin cible = CheminDEcriture(contexte.repertoire, options.sortie);
  if (const std::string refus = RefusDEnregistrer(contexte, cible); !refus.empty())
    Arreter(rapport, Joindre({"*** ", refus}));
  if (options.remplacer || !ChercherFichier(contexte.repertoire, options.sortie)) return;
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Le fichier ", options.sortie, " existe déjà. Le remplacer ?"_w}), Boutons::NonOui);
  if (reponse != Reponse::Oui)
    Arreter(rapport, Joindre({"*** Le fichier ", options.sortie, " existe déjà, il n'est pas remplacé"_w}));
}

}  // namespace

Concordances ChercherConcordances(const Contexte& contexte, std::vector<MotsCherches> cherches) {
  Concordances concordances;
  concordances.cherches = std::move(cherches);
  concordances.mots = MotsDistincts(concordances.cherches);
  const std::optional<Chemin> tr1 = contexte.Chercher(".TR1");
  const std::optional<Chemin> source = tr1 ? tr1 : contexte.Chercher(".DAT");
  if (!source) {
    concordances.faute = "Il n'y a pas de fichier de mots : faire d'abord le découpage en mots"_w;
    return concordances;
  }
  concordances.source = contexte.Nom(tr1 ? ".TR1" : ".DAT");
  Lire(*source, tr1.has_value(), concordances);
  concordances.remarques = RemarquesSurLesLignes(contexte, concordances.cherches, concordances.mots);
  return concordances;
}

std::string RefusDEnregistrer(const Contexte& contexte, const Chemin& cible) {
  const bool memeDossier = EstLeMemeFichier(cible.parent_path(), contexte.repertoire);
  if (!memeDossier || !cible.has_extension() || !EgalSansCasse(TexteDe(cible.stem()), contexte.generique)) return {};
  return Joindre({"Le fichier ", TexteDe(cible.filename()), " est du jeu de données "_w, contexte.generique,
                  " : choisissez un autre nom, par exemple ", contexte.generique, "-concordance.txt"});
}

Fin Concord(const Contexte& contexte, const OptionsConcordance& options) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    if (options.mots.empty() && options.lignes.empty())
      Arreter(rapport, "*** Aucun mot n'est donné : indiquer ceux dont on veut la concordance"_w);
    if (!options.sortie.empty()) ExigerSortie(rapport, contexte, options);
    std::vector<MotsCherches> cherches = CherchesDesMots(options.mots);
    LignesCherchees lignes = CherchesDesLignes(contexte, options.lignes);
    rapport.Lignes(lignes.fautes);
    if (!lignes.fautes.empty()) throw Erreur(FauteSituee{lignes.fautes.back(), lignes.ou});
    std::ranges::move(lignes.cherches, std::back_inserter(cherches));
    const Concordances concordances = ChercherConcordances(contexte, std::move(cherches));
    const std::string texte = TexteDeConcordances(concordances, RangsDansLOrdre(concordances, options.ordre));
    rapport.Suite(texte);
    if (!concordances.faute.empty()) throw Erreur(kArretAnnonce);
    if (options.sortie.empty()) return;
    Remplacement fichier(contexte.repertoire, options.sortie);
    fichier.Fichier().Ecrire(texte);
    fichier.Valider();
  });
}

}  // namespace quelvar::text
