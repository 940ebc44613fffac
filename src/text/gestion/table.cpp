#include "text/gestion/table.h"

#include <algorithm>
#include <tuple>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/panne/annonce.h"
#include "core/programme/arret.h"
#include "text/commun/intitule.h"
#include "text/gestion/motsdeslignes.h"

namespace quelvar::text {

namespace {

Lieu LieuDeLaLigne(const Contexte& contexte, std::size_t numero) {
  return {contexte.Nom(".BRT"), static_cast<std::int64_t>(numero)};
}

// A sentence of refusal, or nothing when the row is as long as its cells.
std::string FauteDeLigne(const Contexte& contexte, std::string_view ligne, std::size_t cellules, std::size_t numero) {
  if (ligne.size() >= kLargeurDeModalite + cellules) return {};
  return Joindre({"La ligne ", Nombre(numero), " de ", contexte.Nom(".BRT"), " est trop courte ("_w,
                  Nombre(ligne.size()), " caractères au lieu de "_w, Nombre(kLargeurDeModalite + cellules),
                  " au moins) : elle ne va pas avec ", contexte.Nom(".MOD")});
}

constexpr std::string_view kSignesDeNombre = " 0123456789.,+-Ee";

// Whether the cells of that width are numbers set to the right of their columns, none of them blank.
bool SontDesNombres(std::string_view cellules, std::size_t largeur) {
  for (; !cellules.empty(); cellules.remove_prefix(largeur)) {
    const std::string_view cellule = cellules.substr(0, largeur);
    const std::size_t debut = std::min(cellule.find_first_not_of(' '), largeur);
    if (cellule.find_first_not_of(kSignesDeNombre.substr(1), debut) != std::string_view::npos || cellule.back() < '0' ||
        cellule.back() > '9')
      return false;
  }
  return true;
}

// What the rows are when their cells have that width.
struct EssaiDeLargeur {
  bool nombres = true;  // every cell is one
  bool codes = false;   // a label begins with the code of its word
};
EssaiDeLargeur LireAvec(const TableGeree& table, std::size_t largeur) {
  const std::size_t cellules = table.Colonnes() * largeur;
  EssaiDeLargeur lecture;
  for (const LigneDeTable& ligne : table.lignes) {
    const std::string texte = ligne.cellules + ligne.intitule;
    if (texte.size() < cellules || !SontDesNombres(std::string_view(texte).substr(0, cellules), largeur))
      return {false, false};
    lecture.codes = lecture.codes || PorteUnCode(std::string_view(texte).substr(cellules));
  }
  return lecture;
}

// Whether a number of the cells has a blank behind it: they stand beside their columns, or are typed to the left.
bool AUnNombreAGauche(std::string_view cellules, std::size_t largeur) {
  for (; !cellules.empty(); cellules.remove_prefix(largeur))
    if (cellules[largeur - 1] == ' ' && !Rogner(cellules.substr(0, largeur)).empty()) return true;
  return false;
}

// What is wrong with the first row whose cells are not those of the other rows.
FauteSituee FauteDUneLigne(const Contexte& contexte, const TableGeree& table) {
  const auto largeur = static_cast<std::size_t>(table.largeur);
  const bool aDroite = std::any_of(table.lignes.begin(), table.lignes.end(),
                                   [&](const LigneDeTable& ligne) { return SontDesNombres(ligne.cellules, largeur); });
  for (std::size_t i = 0; i < table.lignes.size(); ++i) {
    const std::string& cellules = table.lignes[i].cellules;
    const bool autre = cellules.find_first_not_of(kSignesDeNombre) != std::string::npos;
    if (!autre && !(aDroite && AUnNombreAGauche(cellules, largeur))) continue;
    return {Joindre({"La ligne ", Nombre(i + 1), " de ", contexte.Nom(".BRT"),
                     autre ? " a autre chose que des nombres dans ses cases"_w : " a des cases décalées"_w,
                     " : elle ne va pas avec ", contexte.Nom(".MOD"), " (", Nombre(table.Colonnes()),
                     " colonnes, FMT=", Nombre(table.largeur), ")"}),
            LieuDeLaLigne(contexte, i + 1)};
  }
  return {};
}

// What is wrong when the cells are not those of the width that the .MOD announces; a blank cell alone is no fault.
FauteSituee FauteDeLargeur(const Contexte& contexte, const TableGeree& table) {
  constexpr int kPlusLarge = 12;
  const EssaiDeLargeur annoncee = LireAvec(table, static_cast<std::size_t>(table.largeur));
  if (annoncee.nombres && annoncee.codes) return {};
  for (int largeur = 1; largeur <= kPlusLarge; ++largeur) {
    const EssaiDeLargeur autre = LireAvec(table, static_cast<std::size_t>(largeur));
    if (!autre.nombres || (annoncee.nombres && !autre.codes)) continue;
    if (largeur != table.largeur)
      return {Joindre({"Les cases de ", contexte.Nom(".BRT"), " ont ", Nombre(largeur), " caractère(s) et "_w,
                       contexte.Nom(".MOD"), " en annonce ", Nombre(table.largeur), " (FMT=", Nombre(table.largeur),
                       ") : refaites le tableau, ou corrigez FMT="}),
              {contexte.Nom(".MOD"), kLigneDesParametres}};
  }
  return FauteDUneLigne(contexte, table);
}

void LireLignes(const Contexte& contexte, const Chemin& brt, TableOuverte& ouverte) {
  const std::size_t cellules = ouverte.table.Colonnes() * static_cast<std::size_t>(ouverte.table.largeur);
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    const std::string faute = FauteDeLigne(contexte, ligne, cellules, ouverte.table.lignes.size() + 1);
    if (!faute.empty()) {
      ouverte.message = {std::string(kTitreErreur), faute};
      ouverte.ou = LieuDeLaLigne(contexte, ouverte.table.lignes.size() + 1);
      return;
    }
    ouverte.table.lignes.push_back({std::string(ligne.substr(0, kLargeurDeModalite)),
                                    std::string(ligne.substr(kLargeurDeModalite, cellules)),
                                    std::string(ligne.substr(kLargeurDeModalite + cellules)), false});
  }
}

// The message on a failure of it stands in the report, whose words hold no place.
template <class Travail>
auto LieuAPart(TableOuverte& ouverte, const Travail& travail) {
  try {
    return travail();
  } catch (const Erreur& erreur) {
    ouverte.ou = erreur.Ou();
    throw Erreur(erreur.Numero(), erreur.Phrase());
  }
}

void Ouvrir(const Contexte& contexte, TableOuverte& ouverte) {
  const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
  const std::optional<Chemin> brt = contexte.Chercher(".BRT");
  if (!mod) {
    ouverte.message = {std::string(kTitreErreur), PhraseDEtapeOmise(kFichierDeModalites)};
    return;
  }
  if (!brt) {
    ouverte.message = {std::string(kTitreErreur), PhraseDEtapeOmise("Le tableau de données"_w)};
    return;
  }
  ouverte.table.mod = LireListeModalites(*mod);
  const ParametresMod parametres =
      LieuAPart(ouverte, [&] { return LireParametres(ouverte.table.mod.parametres, contexte.Nom(".MOD")); });
  ouverte.table.largeur = parametres.largeur;
  ouverte.table.lignesSup = Entier64(parametres.lignesSup);
  if (parametres.burt >= 1) {
    ouverte.message = {std::string(kTitreErreur),
                       Joindre({contexte.Nom(".MOD"), " est d'un tableau de Burt (BRT=", Nombre(parametres.burt),
                                "), dont les lignes sont aussi les colonnes : employez la modification des modalités, "
                                "ou celle du tableau de Burt"_w})};
    return;
  }
  if (parametres.largeur < 1) {
    FauteSituee faute = FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::AvecLeFichier);
    ouverte.message = {std::string(kTitreErreur), std::move(faute.phrase)};
    ouverte.ou = std::move(faute.lieu);
    return;
  }
  LireLignes(contexte, *brt, ouverte);
  if (!ouverte.message.empty()) return;
  const FichierMod fichierMod = LireMod(*mod);
  LieuAPart(ouverte, [&] { ExigerTableDuMod(*brt, fichierMod, parametres); });
  if (FauteSituee faute = FauteDeLargeur(contexte, ouverte.table); !faute.phrase.empty()) {
    ouverte.message = {std::string(kTitreErreur), std::move(faute.phrase)};
    ouverte.ou = std::move(faute.lieu);
  }
  LireMotsDesLignes(contexte, ouverte.table);
}

}  // namespace

TableOuverte OuvrirTable(const Contexte& contexte) {
  TableOuverte ouverte;
  try {
    Ouvrir(contexte, ouverte);
  } catch (const Erreur& erreur) {
    ouverte.message = {std::string(kTitreErreur), std::string(TexteErreur(erreur))};
  }
  return ouverte;
}

std::string RefusDeTableChangee(const Contexte& contexte, const TableGeree& lue) {
  const TableOuverte ouverte = OuvrirTable(contexte);
  const TableGeree& table = ouverte.table;
  const auto parties = [](const ListeModalites& mod) {
    return std::tie(mod.titre, mod.parametres, mod.textes, mod.suite);
  };
  const auto memeLigne = [](const LigneDeTable& a, const LigneDeTable& b) {
    return std::tie(a.nom, a.cellules, a.intitule) == std::tie(b.nom, b.cellules, b.intitule);
  };
  if (ouverte.message.empty() && parties(table.mod) == parties(lue.mod) &&
      std::ranges::equal(table.lignes, lue.lignes, memeLigne))
    return {};
  return Joindre(
      {"Le tableau (", contexte.Nom(".BRT"), ", ", contexte.Nom(".MOD"),
       ") a été modifié depuis l'ouverture de cette fenêtre : rien n'est enregistré, annulez et recommencez"_w});
}

std::string ParametresDeTable(std::size_t lignes, std::size_t colonnes, std::int64_t lignesSup, int largeur) {
  return LigneDeParametres({{"IMAX=", lignes}, {"JMAX=", colonnes}, {"ISUP=", lignesSup}, {"FMT=", largeur}});
}

void EcrireLignesDeTable(Ecrivain& fichier, const std::vector<LigneDeTable>& lignes) {
  for (const LigneDeTable& ligne : lignes) {
    fichier.Ecrire(ligne.nom);
    fichier.Ecrire(ligne.cellules);
    fichier.Ligne(ligne.intitule);
  }
}

}  // namespace quelvar::text
