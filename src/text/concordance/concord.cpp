#include "text/concordance/concord.h"

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <optional>

#include "core/texte/nombres.h"
#include "text/decoupage/mots.h"
#include "text/tableau/comptage.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kContextes = kContexteGauche + kContexteDroit;

// Where the parts of a line of words stand.
struct Plan {
  std::size_t mot = 0;
  std::size_t caracteristiques = 0;
  std::size_t largeur = 0;  // of the characteristics
  std::size_t contexte = 0;

  bool Tient(std::string_view ligne) const {
    return ligne.size() >= std::max(mot + kLargeurMot, contexte + kContexteGauche);
  }
};

std::optional<Plan> PlanDeTr1(std::string_view ligne) {
  if (ligne.size() < kLargeurMot + kContextes) return std::nullopt;
  const std::size_t largeur = ligne.size() - kLargeurMot - kContextes;
  return Plan{0, kLargeurMot, largeur, kLargeurMot + largeur};
}

std::optional<Plan> PlanDeDat(std::string_view ligne) {
  const std::optional<std::size_t> largeur = LargeurDesCaracteristiques(ligne);
  if (!largeur) return std::nullopt;
  const std::size_t mot = *largeur + kLargeurCode;
  return Plan{mot, 0, *largeur, mot + kLargeurMot + kFinDeMot.size()};
}

LigneDeConcordance Couper(const Plan& plan, std::string_view ligne) {
  std::string_view gauche = ligne.substr(plan.contexte, kContexteGauche);
  gauche.remove_prefix(std::min(gauche.find_first_not_of('*'), gauche.size()));
  return {std::string(ligne.substr(plan.caracteristiques, plan.largeur)), std::string(gauche),
          std::string(RognerDroite(ligne.substr(plan.contexte + kContexteGauche)))};
}

void Lire(const Chemin& chemin, bool tr1, Concordances& concordances) {
  std::vector<std::string> champs;
  for (const std::string& mot : concordances.mots) champs.push_back(CadreGauche(mot, kLargeurMot));
  std::vector<bool> trouves(champs.size());
  std::optional<Plan> plan;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (!plan) plan = tr1 ? PlanDeTr1(ligne) : PlanDeDat(ligne);
    if (!plan) {
      concordances.faute = Joindre(
          {"Le fichier ", concordances.source, " ne contient pas des mots : faire d'abord le découpage en mots"_w});
      return;
    }
    if (!plan->Tient(ligne)) continue;
    const std::string_view mot = ligne.substr(plan->mot, kLargeurMot);
    const auto cherche = std::find(champs.begin(), champs.end(), mot);
    if (cherche == champs.end()) continue;
    trouves[static_cast<std::size_t>(cherche - champs.begin())] = true;
    concordances.lignes.push_back(Couper(*plan, ligne));
  }
  for (std::size_t i = 0; i < champs.size(); ++i)
    if (!trouves[i] && std::find(champs.begin(), champs.begin() + static_cast<std::ptrdiff_t>(i), champs[i]) ==
                           champs.begin() + static_cast<std::ptrdiff_t>(i))
      concordances.absents.push_back(concordances.mots[i]);
}

// The words before, from the nearest to the farthest.
std::string CleDeGauche(const LigneDeConcordance& ligne) {
  std::string cle;
  std::string_view reste = RognerDroite(ligne.gauche);
  while (!reste.empty()) {
    const std::size_t blanc = reste.rfind(' ');
    const std::size_t debut = blanc == std::string_view::npos ? 0 : blanc + 1;
    cle += Minuscules(reste.substr(debut));
    cle += ' ';
    reste = RognerDroite(reste.substr(0, debut));
  }
  return cle;
}

void ExigerSortie(Rapport& rapport, const Contexte& contexte, const OptionsConcordance& options) {
  const Chemin cible = CheminDEcriture(contexte.repertoire, options.sortie);
  if (const std::string refus = RefusDEnregistrer(contexte, cible); !refus.empty()) {
    rapport.Ligne({"*** ", refus});
    throw Erreur(kArretAnnonce);
  }
  if (options.remplacer || !ChercherFichier(contexte.repertoire, options.sortie)) return;
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Le fichier ", options.sortie, " existe déjà. Le remplacer ?"_w}), Boutons::NonOui);
  if (reponse == Reponse::Oui) return;
  rapport.Ligne({"*** Le fichier ", options.sortie, " existe déjà, il n'est pas remplacé"_w});
  throw Erreur(kArretAnnonce);
}

}  // namespace

Concordances ChercherConcordances(const Contexte& contexte, const std::vector<std::string>& mots) {
  Concordances concordances;
  concordances.mots = mots;
  const std::optional<Chemin> tr1 = contexte.Chercher(".TR1");
  const std::optional<Chemin> source = tr1 ? tr1 : contexte.Chercher(".DAT");
  if (!source) {
    concordances.faute = "Il n'y a pas de fichier de mots : faire d'abord le découpage en mots"_w;
    return concordances;
  }
  concordances.source = contexte.Nom(tr1 ? ".TR1" : ".DAT");
  Lire(*source, tr1.has_value(), concordances);
  return concordances;
}

std::vector<std::uint32_t> RangsDansLOrdre(const Concordances& concordances, OrdreDeConcordance ordre) {
  std::vector<std::uint32_t> rangs(concordances.lignes.size());
  std::iota(rangs.begin(), rangs.end(), 0U);
  if (ordre == OrdreDeConcordance::Fichier) return rangs;
  std::vector<std::string> cles;
  cles.reserve(rangs.size());
  for (const LigneDeConcordance& ligne : concordances.lignes)
    cles.push_back(ordre == OrdreDeConcordance::Gauche ? CleDeGauche(ligne) : Minuscules(ligne.droite));
  std::stable_sort(rangs.begin(), rangs.end(), [&](std::uint32_t a, std::uint32_t b) { return cles[a] < cles[b]; });
  return rangs;
}

std::string TexteDeConcordances(const Concordances& concordances, OrdreDeConcordance ordre, std::size_t auPlus) {
  std::string noms;
  for (const std::string& mot : concordances.mots) noms += (noms.empty() ? "" : ", ") + mot;
  if (!concordances.faute.empty()) return concordances.faute + "\r\n";
  std::string texte = Joindre({"Concordance de : ", noms, "\r\n", Nombre(concordances.lignes.size()), " ligne(s) de ",
                               concordances.source, "\r\n"});
  if (!concordances.absents.empty()) {
    texte += concordances.absents.size() > 1 ? "Mots absents :" : "Mot absent :";
    for (const std::string& mot : concordances.absents) texte += " " + mot;
    texte += "\r\n";
  }
  std::vector<std::uint32_t> rangs = RangsDansLOrdre(concordances, ordre);
  if (rangs.size() > auPlus) {
    rangs.resize(auPlus);
    texte += Joindre({"Les "_w, Nombre(auPlus), " premières seulement : le fichier enregistré les a toutes\r\n"_w});
  }
  texte += "\r\n";
  for (const std::uint32_t rang : rangs) {
    const LigneDeConcordance& ligne = concordances.lignes[rang];
    texte += ligne.caracteristiques;
    texte += "  ";
    texte.append(kContexteGauche - std::min(kContexteGauche, ligne.gauche.size()), ' ');
    texte += ligne.gauche;
    texte += ligne.droite;
    texte += "\r\n";
  }
  return texte;
}

std::string RefusDEnregistrer(const Contexte& contexte, const Chemin& cible) {
  std::error_code erreur;
  const bool memeDossier = std::filesystem::equivalent(cible.parent_path(), contexte.repertoire, erreur);
  if (!memeDossier || !cible.has_extension() || !EgalSansCasse(TexteDe(cible.stem()), contexte.generique)) return {};
  return Joindre({"Le fichier ", TexteDe(cible.filename()), " est du jeu de données "_w, contexte.generique,
                  " : choisissez un autre nom, par exemple ", contexte.generique, "-concordance.txt"});
}

Fin Concord(const Contexte& contexte, const OptionsConcordance& options) {
  return ExecuterProgramme(contexte, "$$$.prt", LibellesErreur{}, [&](Rapport& rapport) {
    if (options.mots.empty()) {
      rapport.Ligne("*** Aucun mot n'est donné : indiquer ceux dont on veut la concordance"_w);
      throw Erreur(kArretAnnonce);
    }
    if (!options.sortie.empty()) ExigerSortie(rapport, contexte, options);
    const Concordances concordances = ChercherConcordances(contexte, options.mots);
    const std::string texte = TexteDeConcordances(concordances, options.ordre);
    rapport.Suite(texte);
    if (!concordances.faute.empty()) throw Erreur(kArretAnnonce);
    if (options.sortie.empty()) return;
    Remplacement fichier(contexte.repertoire, options.sortie);
    fichier.Fichier().Ecrire(texte);
    fichier.Valider();
  });
}

}  // namespace quelvar::text
