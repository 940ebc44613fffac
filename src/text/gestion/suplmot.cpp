#include "text/gestion/suplmot.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/fichiers/jeu.h"
#include "core/programme/arret.h"
#include "text/gestion/motsdeslignes.h"
#include "text/gestion/nomsdeslignes.h"

namespace quelvar::text {

namespace {

constexpr std::string_view kEnregistre = "Fin normale des modifications de modalités, passer à l'étape suivante"_w;
constexpr std::string_view kRapport = ".prt";

void PoserColonne(std::string& texte, bool supplementaire) {
  texte = TexteDeModalite(NomDeTexte(texte), supplementaire ? kMarqueSupplementaire : kMarqueActive,
                          IntituleDeTexte(texte));
}

void Enregistrer(const Contexte& contexte, const TableGeree& table) {
  std::vector<LigneDeTable> lignes = table.lignes;
  const auto premiereSup =
      std::stable_partition(lignes.begin(), lignes.end(), [](const LigneDeTable& ligne) { return !ligne.marquee; });
  ListeModalites mod = table.mod;
  for (std::string& texte : mod.textes) PoserColonne(texte, EstSupplementaire(texte));
  mod.parametres = ParametresDeTable(lignes.size(), table.Colonnes(), lignes.end() - premiereSup, table.largeur);

  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireLignesDeTable(sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Unique), lignes);
  EcrireListeModalites(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), mod);
  EcrireMotsDesLignes(sorties, contexte.generique, lignes, table.motsSansLigne);
  sorties.Valider();
}

void Appliquer(TableGeree& table, NomsDesLignes& noms, const OptionsSuplMot::Action& action, Rapport& rapport) {
  using Genre = OptionsSuplMot::Action::Genre;
  const bool colonne = action.genre == Genre::ColonneSup || action.genre == Genre::ColonneActive ||
                       action.genre == Genre::IntituleColonne;
  if (!colonne) {
    const LigneTrouvee trouvee = noms.Trouver(action.nom);
    if (!trouvee.faute.empty()) Arreter(rapport, trouvee.faute);
    LigneDeTable& ligne = table.lignes[trouvee.rang];
    if (action.genre == Genre::IntituleLigne) {
      noms.Renommer(trouvee.rang, ligne.intitule, action.intitule);
      RenommerLigne(ligne, action.intitule);
    } else {
      ligne.marquee = action.genre == Genre::LigneSup;
    }
    return;
  }
  const std::size_t rang = RangDeModalite(table.mod.textes, action.nom);
  if (rang == table.Colonnes())
    Arreter(rapport, Joindre({"La modalité "_w, action.nom, " n'est pas dans le fichier de modalités"_w}));
  std::string& texte = table.mod.textes[rang];
  if (action.genre == Genre::IntituleColonne) PoserIntitule(texte, action.intitule);
  else PoserColonne(texte, action.genre == Genre::ColonneSup);
}

}  // namespace

TableOuverte OuvrirSuplMot(const Contexte& contexte) {
  TableOuverte ouverte = OuvrirTable(contexte);
  std::vector<LigneDeTable>& lignes = ouverte.table.lignes;
  const auto sup = static_cast<std::size_t>(std::max<std::int64_t>(ouverte.table.lignesSup, 0));
  for (std::size_t i = lignes.size() - std::min(sup, lignes.size()); i < lignes.size(); ++i) lignes[i].marquee = true;
  return ouverte;
}

void BasculerColonne(TableGeree& table, std::size_t colonne) {
  std::string& texte = table.mod.textes.at(colonne);
  PoserColonne(texte, !EstSupplementaire(texte));
}

void BasculerLigne(TableGeree& table, std::size_t ligne) {
  bool& marquee = table.lignes.at(ligne).marquee;
  marquee = !marquee;
}

std::string TexteDeColonne(const TableGeree& table, std::size_t colonne) { return table.mod.textes.at(colonne); }

std::string TexteDeLigne(const TableGeree& table, std::size_t ligne) {
  const LigneDeTable& choisie = table.lignes.at(ligne);
  return Joindre({choisie.nom, choisie.marquee ? kMarqueSupplementaire : kMarqueActive, choisie.intitule});
}

OptionsDites<OptionsSuplMot> OptionsDeLaTable(const TableGeree& desFichiers, const TableGeree& table) {
  using Genre = OptionsSuplMot::Action::Genre;
  OptionsSuplMot options;
  std::string_view raison;
  const auto colonne = [&](Genre genre, std::string_view nom, std::string_view intitule = {}) {
    if (!EstSeule(desFichiers.mod.textes, nom)) raison = "deux colonnes ont le même nom"_w;
    options.actions.push_back({genre, std::string(nom), std::string(intitule)});
  };
  const auto ligne = [&](Genre genre, const std::optional<std::string>& nom, const std::string& intitule = {}) {
    if (nom) options.actions.push_back({genre, *nom, intitule});
    else raison = kLignesDuMemeNom;
  };
  for (std::size_t i = 0; i < table.Colonnes(); ++i) {
    const std::string& avant = desFichiers.mod.textes[i];
    const std::string& apres = table.mod.textes[i];
    const std::string_view nom = Rogner(NomDeTexte(avant));
    if (EstSupplementaire(avant) != EstSupplementaire(apres))
      colonne(EstSupplementaire(apres) ? Genre::ColonneSup : Genre::ColonneActive, nom);
    if (IntituleDeTexte(avant) != IntituleDeTexte(apres)) colonne(Genre::IntituleColonne, nom, IntituleDeTexte(apres));
  }
  // The labels change after the marks, one after the other: each name is one of the table as it then stands.
  const NomsDesLignes desMarques(desFichiers.lignes);
  NomsDesLignes noms = desMarques;
  for (std::size_t i = 0; i < table.lignes.size(); ++i) {
    const LigneDeTable& avant = desFichiers.lignes[i];
    const LigneDeTable& apres = table.lignes[i];
    if (avant.marquee != apres.marquee)
      ligne(apres.marquee ? Genre::LigneSup : Genre::LigneActive, desMarques.NomDe(i, avant.intitule));
    if (avant.intitule == apres.intitule) continue;
    ligne(Genre::IntituleLigne, noms.NomDe(i, avant.intitule), apres.intitule);
    noms.Renommer(i, avant.intitule, apres.intitule);
  }
  if (!raison.empty()) return {.raison = raison};
  return {.options = std::move(options)};
}

Fin EnregistrerSuplMot(const Contexte& contexte, const TableGeree& table) {
  return RendreCompte(
      contexte, kEnregistre, [&] { Enregistrer(contexte, table); }, contexte.Nom(kRapport));
}

Fin SuplMot(const Contexte& contexte, const OptionsSuplMot& options) {
  return ExecuterProgramme(contexte, contexte.Nom(kRapport), LibellesErreur{}, [&](Rapport& rapport) {
    TableOuverte ouverte = OuvrirSuplMot(contexte);
    rapport.Lignes(ouverte.message);
    if (!ouverte.message.empty()) throw Erreur(FauteSituee{ouverte.message.back(), ouverte.ou});
    NomsDesLignes noms(ouverte.table.lignes);
    for (const OptionsSuplMot::Action& action : options.actions) Appliquer(ouverte.table, noms, action, rapport);
    Enregistrer(contexte, ouverte.table);
    rapport.Ligne(kEnregistre);
  });
}

}  // namespace quelvar::text
