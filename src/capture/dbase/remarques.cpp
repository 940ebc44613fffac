#include "capture/dbase/remarques.h"

#include <algorithm>
#include <span>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/panne/erreur.h"
#include "core/texte/listes.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kNomsCites = 12;

std::string Compte(std::uint64_t nombre) { return Nombre(static_cast<std::int64_t>(nombre)); }

void RemarquerLongueurs(Remarques& remarques, const EnteteDbf& entete, std::uintmax_t taille,
                        const PassageDbf& passage) {
  if (!entete.VersionConnue())
    remarques.push_back(Joindre({"L'octet de version ("_w, Nombre(static_cast<int>(entete.version)),
                                 ") n'est pas celui d'un fichier de la forme dBase III : vérifiez les questions"_w}));
  if (entete.annonces == 0)
    remarques.push_back(std::string("L'en-tête n'annonce aucun enregistrement : il n'y a pas d'individus"_w));
  if (entete.longueurEnregistrement == 0 && entete.annonces > 0)
    remarques.push_back(
        Joindre({"La longueur d'un enregistrement est de 0 : les "_w, Compte(passage.enregistrements),
                 " lignes de *.DAT sont vides ("_w, Compte(entete.annonces), " enregistrements annoncés)"_w,
                 passage.enregistrements < entete.annonces
                     ? Joindre({". Ce nombre est la limite que le programme se donne : le fichier ne contient aucun "
                                "enregistrement"_w})
                     : std::string()}));
  else if (passage.enregistrements < entete.annonces)
    remarques.push_back(
        Joindre({"L'en-tête annonce "_w, Compte(entete.annonces), " enregistrements, le fichier n'en contient que "_w,
                 Compte(passage.enregistrements), " entiers : seuls ceux-là sont repris"_w}));
  const std::uintmax_t repris =
      entete.longueurEntete + passage.enregistrements * static_cast<std::uintmax_t>(entete.longueurEnregistrement);
  if (passage.enregistrements == entete.annonces && entete.longueurEnregistrement > 0 && taille > repris &&
      (taille - repris) / entete.longueurEnregistrement > 0)
    remarques.push_back(
        Joindre({"Le fichier contient de quoi faire "_w, Compte((taille - repris) / entete.longueurEnregistrement),
                 " enregistrements de plus que l'en-tête n'en annonce : ils ne sont pas repris"_w}));
  std::vector<std::string_view> vides;
  for (const std::string& nom : entete.sansLargeur) vides.push_back(Rogner(nom));
  if (const std::string noms = Enumerer(vides); !noms.empty())
    remarques.push_back(Joindre({"Champs de largeur 0, laissés de côté : "_w, noms}));
  const std::size_t champs = entete.LongueurChamps();
  if (champs != entete.LongueurLigne())
    remarques.push_back(Joindre({"Les champs occupent ensemble "_w, Nombre(champs),
                                 " positions, un enregistrement en a "_w, Nombre(entete.LongueurLigne()),
                                 champs > entete.LongueurLigne() ? " : ce qui manque se lit comme des blancs"_w
                                                                 : " : les dernières ne sont dans aucun champ"_w}));
}

void RemarquerMemos(Remarques& remarques, const EnteteDbf& entete) {
  for (const ChampDbf& champ : entete.champs)
    if (champ.type == 'M' || champ.type == 'G' || champ.type == 'P')
      remarques.push_back(Joindre({"Le texte du champ mémo "_w, RognerDroite(champ.nom),
                                   " est dans un autre fichier : seul le numéro de son bloc est repris"_w}));
}

}  // namespace

void PassageDbf::Prendre(const ConvertisseurDbf& convertisseur) {
  convertis = convertisseur.Convertis();
  sansEquivalent = convertisseur.SansEquivalent();
  coupants = convertisseur.Coupants();
}

void ExigerEntete(Rapport& rapport, const EnteteDbf& entete, std::string_view nom) {
  if (entete.DonneLesEnregistrements()) return;
  rapport.Ligne({"L'en-tête du fichier "_w, nom, " annonce une longueur de "_w, Nombre(entete.longueurEntete),
                 " octets alors qu'il en faut au moins 32 : les enregistrements sont introuvables"_w});
  rapport.Ligne("Verifiez et corrigez avant de relancer");
  throw Erreur(kArretAnnonce);
}

void ExigerLongueur(Rapport& rapport, const EnteteDbf& entete, std::string_view nom) {
  if (entete.ContientLesChamps()) return;
  rapport.Ligne({"L'en-tête du fichier "_w, nom, " annonce des enregistrements de "_w,
                 Nombre(entete.longueurEnregistrement), " octets alors que les champs en demandent "_w,
                 Nombre(entete.LongueurChamps() + 1), " avec la marque d'effacement : les champs sont introuvables"_w});
  rapport.Ligne("Verifiez et corrigez avant de relancer");
  throw Erreur(kArretAnnonce);
}

void RemarquerDbf(Remarques& remarques, const EnteteDbf& entete, std::uintmax_t taille, const PassageDbf& passage) {
  RemarquerLongueurs(remarques, entete, taille, passage);
  if (passage.effaces > 0)
    remarques.push_back(
        Joindre({"Enregistrements marqués comme effacés : "_w, Compte(passage.effaces), " (le premier est le numéro "_w,
                 Compte(passage.premierEfface), "). Ils sont repris comme les autres"}));
  RemarquerMemos(remarques, entete);
  if (passage.convertis > 0)
    remarques.push_back(
        Joindre({"Caractères convertis de la page de code "_w, NomDePage(entete.page), " : ", Compte(passage.convertis),
                 ", dont "_w, Compte(passage.sansEquivalent), " sans équivalent, remplacés par \"?\""_w}));
  if (passage.coupants > 0)
    remarques.push_back(Joindre(
        {"Caractères qui auraient coupé une ligne de *.DAT, remplacés par des blancs : "_w, Compte(passage.coupants)}));
}

void RemarquerRenommages(Remarques& remarques, std::string_view phrase, const std::vector<Renommage>& renommages) {
  if (renommages.empty()) return;
  std::vector<std::string> cites;
  for (std::size_t i = 0; i < std::min(renommages.size(), kNomsCites); ++i) {
    const std::string_view ancien = Rogner(renommages[i].ancien);
    cites.push_back(Joindre({ancien.empty() ? "(vide)" : ancien, " -> ", Rogner(renommages[i].nouveau)}));
  }
  std::string noms = Enumerer(cites);
  if (renommages.size() > kNomsCites) noms += "...";
  remarques.push_back(Joindre({phrase, Nombre(renommages.size()), " (", noms, ")"}));
}

void RemarquerQuestions(Remarques& remarques, const std::vector<QuestionImportee>& questions,
                        const std::vector<std::size_t>& renommees, std::size_t longueur) {
  std::vector<Renommage> renommages;
  for (const std::size_t i : renommees) renommages.push_back({questions[i].champ, questions[i].nom});
  RemarquerRenommages(remarques, "Noms vides ou en double, remplacés par la position de la question : "_w, renommages);
  if (longueur > std::size_t{kDernierePosition})
    remarques.push_back(Joindre({"Les positions au-delà de "_w, Nombre(kDernierePosition),
                                 " ne sont pas des questions : *.POS ne peut pas les désigner"_w}));
}

void RemarquerImpropres(Remarques& remarques, const std::vector<QuestionImportee>& questions,
                        const std::vector<TriDeChamp>& tris) {
  std::string champs;
  std::size_t nombre = 0;
  for (std::size_t i = 0; i < std::min(questions.size(), tris.size()); ++i) {
    if (tris[i].impropres == 0 || ++nombre > kNomsCites) continue;
    champs += Joindre({std::string_view(champs.empty() ? "" : "; "), Rogner(questions[i].champ), " ",
                       Nombre(tris[i].impropres), " (ligne ", Nombre(tris[i].premierImpropre), " : \"", tris[i].exemple,
                       "\")"});
  }
  if (nombre == 0) return;
  if (nombre > kNomsCites) champs += "...";
  remarques.push_back(Joindre({"Valeurs qui ne sont pas des codes, reprises telles quelles dans *.DAT : "_w, champs,
                               ". Les programmes y lisent un nombre à décimales arrondi, un négatif ou un texte "
                               "comme 0"_w}));
}

void RemarquerImpossibles(Remarques& remarques, std::int64_t valeurs) {
  if (valeurs > 0)
    remarques.push_back(
        Joindre({"Valeurs trop grandes pour être un code, comptées comme le code 0 : "_w, Nombre(valeurs)}));
}

}  // namespace quelvar::capture
