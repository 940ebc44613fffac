#include "crosstab/croise.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "core/panne/attention.h"
#include "core/texte/listes.h"
#include "crosstab/edition/tables.h"
#include "crosstab/enquete/preparation.h"
#include "crosstab/sorties.h"

namespace quelvar::crosstab {

namespace {

// One table of the request with what it is printed from.
struct Triple {
  const QuestionCroisee* filtre = nullptr;
  const QuestionCroisee& ligne;
  const QuestionCroisee& colonne;
  std::span<const std::string> intitulesLignes;
  std::span<const std::string> intitulesColonnes;
};

// The tables of one launch, printed one after the other.
class Impression {
 public:
  Impression(const Contexte& contexte, Rapport& rapport, const EnqueteCroisee& enquete, const DemandeCroise& demande)
      : contexte_(contexte),
        rapport_(rapport),
        enquete_(enquete),
        demande_(demande),
        intitules_(enquete.questions.size()),
        sorties_(contexte.repertoire, contexte.generique) {}

  ResultatLancement Imprimer();

 private:
  void ImprimerEnTete();
  void CroiserTrois(std::size_t filtre, std::size_t ligne, std::size_t colonne);
  void Traiter(Matrice effectifs, const Triple& triple, std::string_view modalite);
  void Ramener(Matrice& effectifs) const;
  const std::vector<std::string>& Intitules(std::size_t question);
  void NoterIntitulePartage(const QuestionCroisee& question);
  void PrevenirDesIntitulesPartages() const;

  const Contexte& contexte_;
  Rapport& rapport_;
  const EnqueteCroisee& enquete_;
  const DemandeCroise& demande_;
  std::vector<std::vector<std::string>> intitules_;  // of each question, made when first needed
  std::vector<std::string> partages_;                // labels of those that may be another question's
  AjoutTrg trg_;
  JeuDeFichiers sorties_;
  ResultatLancement resultat_;
};

// Individuals without an answer to the row or to the column question leave the table.
void OterNonReponses(Matrice& effectifs) {
  for (double& effectif : effectifs.Ligne(0)) effectif = 0;
  for (std::size_t i = 0; i < effectifs.Lignes(); ++i) effectifs(i, 0) = 0;
}

void Impression::ImprimerEnTete() {
  const DateHeure instant = contexte_.Ecran().horloge();
  rapport_.Ligne();
  rapport_.Ligne({"Demande faite le ", TexteDate(instant), " à "_w, TexteHeure(instant)});
  rapport_.Ligne();
  if (demande_.nonReponses) return;
  rapport_.Ligne("Les non-réponses sont exclues"_w);
  rapport_.Ligne();
}

// The .MOD names a modality, not its question: two questions may have one name, and so one label. Told once for a
// launch, of however many questions.
void Impression::PrevenirDesIntitulesPartages() const {
  if (partages_.empty()) return;
  contexte_.Ecran().demander(
      Joindre({kAttention, "des intitulés de "_w, contexte_.Nom(".MOD"), " peuvent être d'une autre question : "_w,
               Enumerer(partages_),
               ". Vérifiez dans les tableaux les intitulés de ces questions, ou donnez à l'une de chaque paire un nom "
               "qui ne commence pas par les deux mêmes lettres"_w}),
      Boutons::Ok);
}

void Impression::NoterIntitulePartage(const QuestionCroisee& question) {
  const std::optional<IntitulePartage> partage = ChercherIntitulePartage(enquete_, question);
  const auto deja = [&](const std::string& note) { return note.starts_with(partage->modalite); };
  if (!partage || std::ranges::any_of(partages_, deja)) return;
  partages_.push_back(Joindre({partage->modalite, " (", question.nom, " ou ", partage->autre, ")"}));
}

// Long labels belong to the wide edition.
const std::vector<std::string>& Impression::Intitules(std::size_t question) {
  std::vector<std::string>& intitules = intitules_[question];
  if (intitules.empty()) {
    const QuestionCroisee& q = enquete_.questions[question];
    const bool etendus = demande_.edition.choix == ChoixEdition::Etendue;
    intitules = etendus ? IntitulesEtendus(enquete_, q) : IntitulesCourts(q);
    if (etendus) NoterIntitulePartage(q);
  }
  return intitules;
}

// Brings the counts to those that the table shows.
void Impression::Ramener(Matrice& effectifs) const {
  if (!demande_.nonReponses) OterNonReponses(effectifs);
  if (!enquete_.Pondere() || enquete_.individus == 0) return;
  const double echelle = static_cast<double>(enquete_.individus) / static_cast<double>(enquete_.avantPonderation);
  for (double& effectif : effectifs.Valeurs()) effectif /= echelle;
}

void Impression::Traiter(Matrice effectifs, const Triple& triple, std::string_view modalite) {
  Ramener(effectifs);
  TableauCroise tableau = AnalyserTableau(effectifs, demande_.ordre);
  const TableauTitre titre{tableau,  triple.ligne,           triple.colonne,          triple.filtre,
                           modalite, triple.intitulesLignes, triple.intitulesColonnes};
  if (tableau.Vide()) {
    ImprimerTableauVide(rapport_, titre);
    return;
  }
  const Edition edition = EditionDuTableau(demande_.edition, triple.colonne.plafond);
  ImprimerStatistiques(rapport_, titre, demande_.edition.detailKhi2, demande_.ordre.pourPem);
  TablesCroisees tables = EnTables(titre, edition == Edition::Etendue);
  if (edition == Edition::Etendue)
    ImprimerEditionEtendue(rapport_, titre, tables, FormatDesEffectifs(enquete_), demande_.edition);
  else ImprimerEditionCompacte(rapport_, titre, tables, edition, demande_.ordre.pourPem);
  if (edition == Edition::DeuxBandes || edition == Edition::Triangulaire) RetenirPourTrg(trg_, enquete_, titre);
  if (demande_.tableauIsole && !resultat_.isoleEcrit) {
    EcrireTableauIsole(contexte_, enquete_, titre, sorties_);
    resultat_.isoleEcrit = true;
  }
  if (demande_.tableaux) AjouterTables(titre, std::move(tables), resultat_.tableaux);
  if (demande_.retenir)
    resultat_.retenu = TableauRetenu{std::move(tableau),
                                     triple.ligne,
                                     triple.colonne,
                                     {triple.intitulesLignes.begin(), triple.intitulesLignes.end()},
                                     {triple.intitulesColonnes.begin(), triple.intitulesColonnes.end()},
                                     demande_.ordre.pourPem};
}

void Impression::CroiserTrois(std::size_t filtre, std::size_t ligne, std::size_t colonne) {
  const bool filtree = filtre != kSansFiltre;
  const QuestionCroisee* questionFiltre = filtree ? &enquete_.questions[filtre] : nullptr;
  const std::vector<std::string> modalites = filtree ? IntitulesCourts(*questionFiltre) : std::vector<std::string>(1);
  const Triple triple{questionFiltre, enquete_.questions[ligne], enquete_.questions[colonne], Intitules(ligne),
                      Intitules(colonne)};
  std::vector<Matrice> tables = CompterCroisement(enquete_.codes, {filtre, ligne, colonne});
  for (std::size_t f = 0; f < tables.size(); ++f) Traiter(std::move(tables[f]), triple, modalites[f]);
}

ResultatLancement Impression::Imprimer() {
  const std::vector<std::size_t> filtres =
      demande_.troisDimensions ? demande_.filtres : std::vector<std::size_t>{kSansFiltre};
  if (filtres.empty() || demande_.lignes.empty() || demande_.colonnes.empty()) return {};
  ImprimerEnTete();
  for (const std::size_t filtre : filtres)
    for (const std::size_t ligne : demande_.lignes)
      for (const std::size_t colonne : demande_.colonnes) CroiserTrois(filtre, ligne, colonne);
  AjouterAuTrg(contexte_, trg_, sorties_);
  if (demande_.edition.choix == ChoixEdition::Triangulaire && trg_.tableauxRefuses > 0)
    rapport_.Ligne({"Tableau(x) sans trois colonnes, non ajouté(s) au fichier "_w, contexte_.Nom(".TRG"), " :",
                    NombreNu(trg_.tableauxRefuses)});
  PrevenirDesIntitulesPartages();
  sorties_.Valider();
  return std::move(resultat_);
}

LibellesErreur Libelles() {
  return {.imprevue = " Erreur non prevue : si apres verification l'erreur persiste",
          .numero = " notez le numero suivant : ERREUR NUMERO =",
          .avecTexte = false,
          .avecAsterisques = false,
          .assistance = " et prevenez l'assistance technique",
          .question = "a la question n+",
          .finDeFichier = {"Le nombre d'individus indique dans *.POS est plus grand",
                           "le nombre d'individus presents dans le fichier", "Verifiez et corrigez avant de relancer"}};
}

}  // namespace

std::optional<EnqueteCroisee> PreparerCroise(const Contexte& contexte, std::string_view fichierDonnees) {
  std::optional<EnqueteCroisee> enquete;
  if (!PreparerProgramme(contexte, contexte.Nom(".TCR"), Libelles(),
                         [&](Rapport& rapport) { enquete = PreparerEnquete(rapport, contexte, fichierDonnees); }))
    return std::nullopt;
  return enquete;
}

std::optional<ResultatLancement> LancerCroise(const Contexte& contexte, const EnqueteCroisee& enquete,
                                              const DemandeCroise& demande) {
  std::optional<ResultatLancement> resultat;
  const Fin fin = ExecuterProgramme(
      contexte, contexte.Nom(".TCR"), Libelles(),
      [&](Rapport& rapport) { resultat = Impression(contexte, rapport, enquete, demande).Imprimer(); },
      ModeEcriture::Suite);
  if (fin == Fin::Arret) return std::nullopt;
  return resultat;
}

}  // namespace quelvar::crosstab
