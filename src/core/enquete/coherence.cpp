#include "core/enquete/coherence.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/noms.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/programme/arret.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

[[noreturn]] void Refuser(const Chemin& fichier, Texte raison, std::string_view quoi) {
  throw Erreur(kIncompatibiliteType,
               Joindre({kArretDuProgrammeSansAccents, TexteDe(fichier.filename()),
                        " ne va pas avec le fichier de modalités, "_w, raison, " : refaites ", quoi}))
      .Situer({.fichier = TexteDe(fichier.filename())});
}

constexpr std::string_view kTableau = "le tableau";
constexpr std::string_view kModalites = "les modalités"_w;

// Columns that a Burt table has by its parameters.
std::size_t ColonnesAnnoncees(const ParametresMod& parametres) {
  const double annoncees = parametres.burt > 1 ? parametres.burt : parametres.colonnes;
  return annoncees > 0 ? static_cast<std::size_t>(Entier64(annoncees)) : 0;
}

// A rectangular table may name more columns than it announces, and COL= may count its rows too.
bool AutresModalites(std::size_t annoncees, std::size_t nommees, const ParametresMod& parametres) {
  if (parametres.burt >= 1) return annoncees != nommees;
  return annoncees > nommees && static_cast<double>(annoncees) != static_cast<double>(nommees) + parametres.lignes;
}

void ExigerLesModalites(const Chemin& fichier, const FichierMod& mod, const ParametresMod& parametres) {
  const std::size_t colonnes = ColonnesAnnoncees(parametres);
  if (colonnes > 0 && AutresModalites(colonnes, mod.modalites.size(), parametres))
    Refuser(fichier,
            Joindre({"qui annonce ", Nombre(colonnes), " colonnes et nomme ", Nombre(mod.modalites.size()),
                     " modalités"_w}),
            kModalites);
}

void ExigerLesNoms(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres) {
  ControleDeBurt controle(brt, mod.modalites.size(), parametres.largeur);
  LecteurLignes lecteur(brt);
  std::size_t rang = 0;
  for (std::string_view ligne; rang < mod.modalites.size() && lecteur.Lire(ligne); ++rang)
    controle.Voir(ligne, mod.modalites[rang].nom);
  controle.Conclure();
}

// Whether a text is cells of right-aligned numbers and nothing else.
bool EstSuiteDeCellules(std::string_view texte, std::size_t largeur) {
  if (texte.empty() || texte.size() % largeur != 0) return false;
  for (; !texte.empty(); texte.remove_prefix(largeur))
    if (texte[largeur - 1] == ' ' || !EstNombre(texte.substr(0, largeur))) return false;
  return true;
}

// A rectangular table that does not announce its columns has as many as the .MOD names; where every row goes on with
// cells, names are missing. Labels that are numbers do not begin with a blank all the same.
void ExigerColonnesNommees(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres) {
  if (parametres.burt >= 1 || parametres.colonnes > 0 || parametres.largeur < 1) return;
  const auto largeur = static_cast<std::size_t>(parametres.largeur);
  const std::size_t longueur = kLargeurDeModalite + mod.modalites.size() * largeur;
  bool decalee = false;
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (Rogner(ligne).empty()) continue;
    const std::string_view reste = RognerDroite(ligne.substr(std::min(longueur, ligne.size())));
    if (!EstSuiteDeCellules(reste, largeur)) return;
    decalee = decalee || reste.front() == ' ';
  }
  if (decalee)
    Refuser(
        brt,
        Joindre({"ses lignes ont des cellules derrière la dernière des "_w, Nombre(mod.modalites.size()),
                 " colonnes nommées (annoncez COL="_w, Nombre(mod.modalites.size()), " si ce sont des intitulés)"_w}),
        kModalites);
}

std::int64_t ExigerLaForme(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres) {
  ControleDeTable controle(brt, parametres, mod.modalites.size());
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);)
    if (!Rogner(ligne).empty()) controle.Voir(ligne);
  controle.Conclure();
  return controle.Lignes();
}

}  // namespace

// Of a rectangular table COL= counts the columns, or the rows and the columns together.
ControleDeTable::ControleDeTable(const Chemin& brt, const ParametresMod& parametres, std::size_t colonnes)
    : brt_(brt),
      largeur_(static_cast<std::size_t>(std::max<int>(parametres.largeur, 1))),
      longueur_(kLargeurDeModalite + colonnes * largeur_),
      autreNombre_(parametres.colonnes > 0 && Entier64(parametres.colonnes) != static_cast<std::int64_t>(colonnes) &&
                   Entier64(parametres.colonnes) != static_cast<std::int64_t>(colonnes) + Entier64(parametres.lignes)) {
}

void ControleDeTable::Voir(std::string_view texte) {
  ++lignes_;
  const bool courte = texte.size() < longueur_;
  entamee_ = courte && texte.size() > kLargeurDeModalite && (texte.size() - kLargeurDeModalite) % largeur_ != 0;
  toutesCourtes_ = toutesCourtes_ && courte;
  const std::string_view reste = texte.substr(std::min(longueur_, texte.size()));
  toutesLongues_ = toutesLongues_ && reste.size() >= largeur_ && EstChiffre(reste[largeur_ - 1]) &&
                   SontChiffresOuBlancs(reste.substr(0, largeur_));
}

void ControleDeTable::Conclure() const {
  if (entamee_ && LireMorceau(brt_, LongueurFichier(brt_) - 1, 1) != "\n")
    Refuser(brt_, "sa dernière ligne s'arrête au milieu d'un nombre"_w, kTableau);
  if (lignes_ == 0 || (!toutesCourtes_ && !(toutesLongues_ && autreNombre_))) return;
  Refuser(brt_,
          Joindre({"ses lignes sont plus ", std::string_view(toutesCourtes_ ? "courtes" : "longues"),
                   " que ne le disent le nombre de modalités et FMT="_w}),
          kTableau);
}

void ExigerTableDuMod(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres) {
  ExigerLesModalites(brt, mod, parametres);
  if (parametres.burt >= 1) ExigerLesNoms(brt, mod, parametres);
  else ExigerColonnesNommees(brt, mod, parametres);
  const std::int64_t lignes = ExigerLaForme(brt, mod, parametres);
  const double annoncees = parametres.burt > 1 ? parametres.burt : parametres.lignes;
  if (lignes == 0) Refuser(brt, "il est vide", kTableau);
  if (static_cast<double>(lignes) < annoncees)
    Refuser(brt, Joindre({"il a ", Nombre(lignes), " lignes au lieu de ", Nombre(Entier64(annoncees))}), kTableau);
}

void ExigerFormeDuMod(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres) {
  ExigerLaForme(brt, mod, parametres);
}

void ExigerCdgDuMod(const Chemin& cdg, const FichierMod& mod, const ParametresMod& parametres) {
  ExigerLesModalites(cdg, mod, parametres);
  const std::size_t longueur = kLargeurDeModalite + mod.modalites.size();
  LecteurLignes lecteur(cdg);
  std::int64_t lignes = 0;
  bool toutesCourtes = true;
  bool toutesLongues = true;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (Rogner(ligne).empty()) continue;
    ++lignes;
    toutesCourtes = toutesCourtes && ligne.size() < longueur;
    // Only an individual without a short name has its name behind the digits.
    toutesLongues = toutesLongues && ligne.size() > longueur && (ligne[longueur] == '0' || ligne[longueur] == '1') &&
                    !Rogner(ligne.substr(0, kLargeurDeModalite)).empty();
  }
  if (lignes > 0 && (toutesCourtes || toutesLongues))
    Refuser(cdg,
            Joindre({"ses lignes ont ", std::string_view(toutesCourtes ? "moins" : "plus"), " de ",
                     Nombre(mod.modalites.size()), " chiffres"}),
            kModalites);
  const double individus = parametres.burt == 1 ? parametres.lignesSup : 0;
  if (individus > 0 && static_cast<double>(lignes) != individus)
    Refuser(cdg, Joindre({"il a ", Nombre(lignes), " individus au lieu de ", Nombre(Entier64(individus))}), kModalites);
}

std::string_view MessageParentheses() {
  return "Il y a des incohérences dans les parenthèses de ligne 2 du fichier *.POS, corrigez et relancez "_w;
}

void ExigerParentheses(const LigneTaille& taille, const Dialogue& dialogue) {
  if (!taille.parenthesesFautives) return;
  dialogue.demander(MessageParentheses(), Boutons::Ok);
  throw Erreur(kArretAnnonce);
}

std::size_t ExigerQuestion(Rapport& rapport, const Dialogue& ecran, const FichierPos& pos, std::string_view nom) {
  const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, nom);
  if (rangs.empty()) AvertirEtArreter(rapport, ecran, FauteQuestionAbsente(nom));
  if (rangs.size() > 1)
    AvertirEtArreter(rapport, ecran, {FauteHomonymes(nom, pos.questions, rangs), LieuDeLaQuestion(pos, rangs[1])});
  return rangs.front();
}

}  // namespace quelvar
