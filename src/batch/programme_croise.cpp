#include <algorithm>

#include "batch/programmes.h"
#include "crosstab/choixvar.h"
#include "crosstab/croise.h"

namespace quelvar::batch {

namespace {

// The form and the survey that the options of the command line act on, one after the other.
struct FormeCroise {
  SessionCroise& session;
  EtatChoixVar etat;

  const Dialogue& Ecran() const { return session.Cadre().Ecran(); }
};

struct LigneCroise {
  std::string donnees;
  std::vector<std::function<void(FormeCroise&)>> gestes;
  bool aLancer = true;  // something was asked behind the last launch
};

using Mots = std::vector<std::string>;

std::size_t Choisir(std::string_view option, const Mots& mots, const std::string& valeur) {
  const auto trouve = std::find(mots.begin(), mots.end(), Minuscules(valeur));
  if (trouve != mots.end()) return static_cast<std::size_t>(trouve - mots.begin());
  std::string attendus;
  for (const std::string& mot : mots) attendus += (attendus.empty() ? "" : "|") + mot;
  throw UsageIncorrect(Joindre({"l'option ", option, " attend ", attendus, " et non \"", valeur, "\""}));
}

Mots Separer(const std::string& liste) {
  Mots noms;
  for (std::size_t debut = 0; debut <= liste.size();) {
    const std::size_t fin = std::min(liste.find(',', debut), liste.size());
    if (const std::string_view nom = Rogner(std::string_view(liste).substr(debut, fin - debut)); !nom.empty())
      noms.emplace_back(nom);
    debut = fin + 1;
  }
  return noms;
}

// The questions of those names, "*" for all; a name that the survey has not stops the run.
std::vector<std::size_t> Trouver(FormeCroise& forme, const Mots& noms) {
  const std::vector<QuestionCroisee>& questions = forme.session.Enquete().questions;
  std::vector<std::size_t> trouvees;
  for (const std::string& nom : noms) {
    if (nom == "*") {
      for (std::size_t i = 0; i < questions.size(); ++i) trouvees.push_back(i);
      continue;
    }
    const auto question = std::find_if(questions.begin(), questions.end(),
                                       [&](const QuestionCroisee& q) { return Rogner(q.nom) == nom; });
    if (question == questions.end()) {
      const std::string texte =
          Joindre({"La question ", nom, " n'existe pas dans ", forme.session.Cadre().Nom(".POS")});
      Avertir(forme.session.CompteRendu(), forme.Ecran(), texte);
      throw Erreur(kArretAnnonce);
    }
    trouvees.push_back(static_cast<std::size_t>(question - questions.begin()));
  }
  return trouvees;
}

// Puts these questions, and no others, into a role.
void Poser(FormeCroise& forme, RoleQuestion role, const Mots& noms) {
  EnleverDuRole(forme.etat, role, QuestionsDuRole(forme.etat, role), forme.Ecran());
  if (role == RoleQuestion::Filtre && noms.empty()) ChoisirDeuxDimensions(forme.etat, forme.Ecran());
  else if (role == RoleQuestion::Filtre) ChoisirTroisDimensions(forme.etat, forme.Ecran());
  AjouterAuRole(forme.etat, role, Trouver(forme, noms), forme.Ecran());
}

void Lancer(FormeCroise& forme) {
  const std::optional<DemandeCroise> demande = PreparerLancement(forme.etat, forme.Ecran());
  if (!demande) {
    forme.Ecran().demander(forme.etat.titre, Boutons::Ok);
    throw Erreur(kArretAnnonce);
  }
  ApresLancement(forme.etat, forme.session.Lancer(*demande));
}

Fin Executer(const Contexte& contexte, const LigneCroise& ligne) {
  return Croise(contexte, {ligne.donnees, [&](SessionCroise& session) {
                             FormeCroise forme{session, NouveauChoix(session.Enquete())};
                             for (const auto& geste : ligne.gestes) geste(forme);
                             if (ligne.aLancer) Lancer(forme);
                           }});
}

void Ajouter(LigneCroise& ligne, std::function<void(FormeCroise&)> geste) {
  ligne.gestes.push_back(std::move(geste));
  ligne.aLancer = true;
}

// An option that sets a role of the request.
auto Role(RoleQuestion role) {
  return [role](LigneCroise& ligne, const std::string& valeur) {
    Ajouter(ligne, [role, noms = Separer(valeur)](FormeCroise& forme) { Poser(forme, role, noms); });
  };
}

// An option of a few words; `geste` receives the rank of the one typed.
auto ParmiLesMots(std::string_view nom, const Mots& mots, std::function<void(FormeCroise&, std::size_t)> geste) {
  return [nom, mots, geste](LigneCroise& ligne, const std::string& valeur) {
    const std::size_t rang = Choisir(nom, mots, valeur);
    Ajouter(ligne, [geste, rang](FormeCroise& forme) { geste(forme, rang); });
  };
}

// A box that only sets a member of the state.
auto Case(std::string_view nom, const Mots& mots, bool EtatChoixVar::*membre) {
  return ParmiLesMots(nom, mots, [membre](FormeCroise& forme, std::size_t rang) { forme.etat.*membre = rang == 1; });
}

}  // namespace

Programme ProgrammeCroise() {
  return Description<LigneCroise>(
             "croise", "Tris croisés à deux et trois dimensions (.TCR) ; les options agissent dans l'ordre"_w, Executer)
      .Libre("lignes", "SEX,AGE,...|*", "", "questions en ligne ; * pour toutes", Role(RoleQuestion::Ligne))
      .Libre("colonnes", "SEX,AGE,...|*", "", "questions en colonne ; * pour toutes", Role(RoleQuestion::Colonne))
      .Libre("filtres", "SEX,AGE,...|*", "", "questions filtre d'un tri à trois dimensions ; vide : deux dimensions"_w,
             Role(RoleQuestion::Filtre))
      .Libre("nonreponses", "prises|exclues", "prises", "les non-réponses (code zéro) font une ligne et une colonne"_w,
             ParmiLesMots("nonreponses", {"prises", "exclues"},
                          [](FormeCroise& forme, std::size_t rang) { forme.etat.nonReponses = rang == 0; }))
      .Libre("edition", "etendue|compacte|triangulaire", "etendue",
             "édition étendue avec modalités, compactée, ou pour le graphique triangulaire (ajoute au .TRG)"_w,
             ParmiLesMots("edition", {"compacte", "etendue", "triangulaire"},
                          [](FormeCroise& forme, std::size_t rang) {
                            ChoisirEdition(forme.etat, static_cast<ChoixEdition>(rang),
                                           forme.session.Enquete().individus, forme.Ecran());
                          }))
      .Libre(
          "caracteres", "10|8", "10", "taille des caractères de l'édition étendue : pages de 5 x 18 ou 6 x 24 cases"_w,
          ParmiLesMots("caracteres", {"10", "8"},
                       [](FormeCroise& forme, std::size_t rang) { ChoisirCaractere(forme.etat, rang == 0 ? 10 : 8); }))
      .Libre("ordre", "origine|pem", "origine", "ordre des lignes et colonnes : d'origine, ou en vue du PEM",
             Case("ordre", {"origine", "pem"}, &EtatChoixVar::ordrePem))
      .Libre("invlign", "oui|non", "non", "inverse l'ordre des lignes en vue du PEM",
             Case("invlign", {"non", "oui"}, &EtatChoixVar::inverserLignes))
      .Libre("invcol", "oui|non", "non", "inverse l'ordre des colonnes en vue du PEM",
             Case("invcol", {"non", "oui"}, &EtatChoixVar::inverserColonnes))
      .Libre("detailkhi2", "oui|non", "non", "détail des cases d'effectif théorique inférieur à 1"_w,
             Case("detailkhi2", {"non", "oui"}, &EtatChoixVar::detailKhi2))
      .Libre("tableauisole", "oui|non", "non", "sauvegarde le premier tableau en .MOD et .BRT",
             ParmiLesMots("tableauisole", {"non", "oui"},
                          [](FormeCroise& forme, std::size_t rang) {
                            CocherTableauIsole(forme.etat, rang == 1, forme.session.Cadre());
                          }))
      .Texte("donnees", &LigneCroise::donnees, "FICHIER", "autre fichier de données que le .DAT du générique"_w)
      .Libre("lancer", "oui", "", "lance les tris demandés jusqu'ici ; ce qui suit prépare le lancement suivant"_w,
             [](LigneCroise& ligne, const std::string& valeur) {
               Choisir("lancer", {"oui"}, valeur);
               ligne.gestes.emplace_back(Lancer);
               ligne.aLancer = false;
             });
}

}  // namespace quelvar::batch
