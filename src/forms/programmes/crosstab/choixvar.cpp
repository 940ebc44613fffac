#include "forms/programmes/crosstab/choixvar.h"

#include <QSignalBlocker>
#include <QWindow>
#include <utility>

#include "crosstab/croise_options.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/listequestions.h"
#include "forms/programmes/crosstab/graphe2.h"
#include "forms/qt/lettres.h"
#include "forms/qt/texte.h"
#include "ui_choixvar.h"

namespace quelvar::forms {

namespace {

constexpr std::uintmax_t kRapportMontre = 8'000'000;  // bytes that Text1 shows between two launches

QuestionListee LigneDe(const crosstab::EnqueteCroisee& enquete, std::size_t rang) {
  const crosstab::QuestionCroisee& question = enquete.questions[rang];
  return {rang, Joindre({question.libelle, " ", question.intitule})};
}

// Sets a box or a button without its handler.
void Poser(QAbstractButton& bouton, bool coche) {
  const QSignalBlocker silence(bouton);
  bouton.setChecked(coche);
}

}  // namespace

ChoixVar::ChoixVar(Services& services, crosstab::EnqueteCroisee enquete, Brouillon rapport)
    : Forme(services, Qt::Window),
      enquete_(std::move(enquete)),
      rapport_(std::make_shared<Brouillon>(std::move(rapport))),
      etat_(crosstab::NouveauChoix(enquete_)),
      ui_(std::make_unique<Ui::ChoixVar>()) {
  ui_->setupUi(this);
  for (QListWidget* liste : {ui_->ListVar1, ui_->ListVar2, ui_->ListVar3, ui_->ListVar0}) PreparerListe(*liste);
  std::vector<QuestionListee> toutes;
  for (std::size_t i = 0; i < enquete_.questions.size(); ++i) toutes.push_back(LigneDe(enquete_, i));
  MontrerQuestions(*ui_->ListVar1, toutes);
  ui_->FrmTri->setVisible(contexte_.niveau >= kNiveauAvance);
  ui_->FrmDetKhi2->setVisible(contexte_.niveau >= kNiveauAvance);
  RelierAide(*ui_->Aide, "mnuACroise");
  RelierListes();
  RelierOptions();
  RelierBoutons();
  Montrer();
  ui_->ListVar1->setCurrentRow(0);
  ui_->ListVar1->setFocus();
}

ChoixVar::~ChoixVar() = default;

void ChoixVar::RelierListes() {
  connect(ui_->BoutLignePlus, &QPushButton::clicked, this, [this] { Ajouter(crosstab::RoleQuestion::Ligne); });
  connect(ui_->BoutLigneMoins, &QPushButton::clicked, this, [this] { Enlever(crosstab::RoleQuestion::Ligne); });
  connect(ui_->BoutColPlus, &QPushButton::clicked, this, [this] { Ajouter(crosstab::RoleQuestion::Colonne); });
  connect(ui_->BoutColMoins, &QPushButton::clicked, this, [this] { Enlever(crosstab::RoleQuestion::Colonne); });
  connect(ui_->BoutBlocPlus, &QPushButton::clicked, this, [this] { Ajouter(crosstab::RoleQuestion::Filtre); });
  connect(ui_->BoutBlocMoins, &QPushButton::clicked, this, [this] { Enlever(crosstab::RoleQuestion::Filtre); });
}

void ChoixVar::RelierOptions() {
  // A choice among buttons acts when it is made, not when it is left.
  const auto choisir = [this](QAbstractButton* bouton, auto geste) {
    connect(bouton, &QAbstractButton::toggled, this, [this, geste](bool coche) {
      if (!coche) return;
      geste();
      Montrer();
    });
  };
  const auto cocher = [this](QAbstractButton* bouton, bool crosstab::EtatChoixVar::*membre) {
    connect(bouton, &QAbstractButton::toggled, this, [this, membre](bool coche) { etat_.*membre = coche; });
  };
  const auto editer = [this](crosstab::ChoixEdition edition) { crosstab::ChoisirEdition(etat_, edition); };
  choisir(ui_->BoutQvr2, [this] { crosstab::ChoisirDeuxDimensions(etat_, services_.ecran); });
  choisir(ui_->BoutTri3, [this] { crosstab::ChoisirTroisDimensions(etat_, services_.ecran); });
  choisir(ui_->BoutSerie, [this] { crosstab::ChoisirUnSeul(etat_, false, services_.ecran); });
  choisir(ui_->BoutUnSeul, [this] { crosstab::ChoisirUnSeul(etat_, true, services_.ecran); });
  choisir(ui_->BoutOrdreOri, [this] { etat_.ordrePem = false; });
  choisir(ui_->BoutOrdreAFC, [this] { etat_.ordrePem = true; });
  choisir(ui_->BoutNROui, [this] { etat_.nonReponses = true; });
  choisir(ui_->BoutNRNon, [this] { etat_.nonReponses = false; });
  choisir(ui_->EditCompact, [editer] { editer(crosstab::ChoixEdition::Compacte); });
  choisir(ui_->EditLarge, [editer] { editer(crosstab::ChoixEdition::Etendue); });
  choisir(ui_->OptTRG, [editer] { editer(crosstab::ChoixEdition::Triangulaire); });
  choisir(ui_->Option1, [this] { crosstab::ChoisirCaractere(etat_, crosstab::kCaractereUsuel); });
  choisir(ui_->Option2, [this] { crosstab::ChoisirCaractere(etat_, crosstab::kPetitCaractere); });
  cocher(ui_->INVC, &crosstab::EtatChoixVar::inverserLignes);
  cocher(ui_->INVL, &crosstab::EtatChoixVar::inverserColonnes);
  cocher(ui_->CaseDetKhi2, &crosstab::EtatChoixVar::detailKhi2);
  connect(ui_->CaseBRT, &QCheckBox::toggled, this, &ChoixVar::CocherIsole);
}

void ChoixVar::RelierBoutons() {
  connect(ui_->BoutInvers, &QPushButton::clicked, this, [this] {
    crosstab::InverserLignesEtColonnes(etat_, services_.ecran);
    Montrer();
  });
  connect(ui_->BoutEffacer, &QPushButton::clicked, this, [this] {
    crosstab::ToutEffacer(etat_, services_.ecran);
    Montrer();
  });
  connect(ui_->BoutLancerTri, &QPushButton::clicked, this, &ChoixVar::LancerTri);
  RelierQuitter(*ui_->BoutNouv);
  RelierCommande(*ui_->BoutLancerTri, crosstab::DescriptionCroise(), contexte_, [this] { return Demande(); });
  AuDepart([rapport = rapport_](const Contexte& contexte) { rapport->Montrer(contexte); });
}

QListWidget& ChoixVar::ListeDu(crosstab::RoleQuestion role) const {
  return role == crosstab::RoleQuestion::Filtre  ? *ui_->ListVar0
         : role == crosstab::RoleQuestion::Ligne ? *ui_->ListVar2
                                                 : *ui_->ListVar3;
}

void ChoixVar::RemplirListe(crosstab::RoleQuestion role) {
  std::vector<QuestionListee> lignes;
  for (const std::size_t question : crosstab::QuestionsDuRole(etat_, role))
    lignes.push_back(LigneDe(enquete_, question));
  MontrerQuestions(ListeDu(role), lignes);
}

// Every control as the state has it.
void ChoixVar::Montrer() {
  for (const crosstab::RoleQuestion role :
       {crosstab::RoleQuestion::Filtre, crosstab::RoleQuestion::Ligne, crosstab::RoleQuestion::Colonne})
    RemplirListe(role);
  Poser(etat_.troisDimensions ? *ui_->BoutTri3 : *ui_->BoutQvr2, true);
  Poser(etat_.unSeul ? *ui_->BoutUnSeul : *ui_->BoutSerie, true);
  Poser(etat_.ordrePem ? *ui_->BoutOrdreAFC : *ui_->BoutOrdreOri, true);
  Poser(etat_.nonReponses ? *ui_->BoutNROui : *ui_->BoutNRNon, true);
  Poser(etat_.edition == crosstab::ChoixEdition::Compacte  ? *ui_->EditCompact
        : etat_.edition == crosstab::ChoixEdition::Etendue ? *ui_->EditLarge
                                                           : *ui_->OptTRG,
        true);
  Poser(etat_.lignesParPage == crosstab::kPageEnPetit.lignes ? *ui_->Option2 : *ui_->Option1, true);
  Poser(*ui_->CaseBRT, etat_.tableauIsole);
  ui_->CaseBRT->setEnabled(etat_.isolePossible);
  ui_->FrmBloc->setVisible(crosstab::FiltreVisible(etat_, contexte_.niveau));
  ui_->FrmAFC->setVisible(crosstab::OrdreVisible(etat_, contexte_.niveau));
  ui_->FrmGraphe->setVisible(crosstab::OrdreVisible(etat_, contexte_.niveau));
  ui_->FrmTaille->setVisible(etat_.tailleVisible);
  ui_->INVC->setVisible(etat_.ordrePem);
  ui_->INVL->setVisible(etat_.ordrePem);
  ui_->TitreNbTab->setText(VersQt(etat_.titre));
  ui_->TitreNbTab->setToolTip(VersQt(etat_.infobulle));
  ui_->BoutLancerTri->setText(VersQt(crosstab::TexteLancer(etat_)));
  DonnerLesLettres(*this);
  ui_->BoutLancerTri->setEnabled(etat_.lancerPossible);
}

void ChoixVar::Ajouter(crosstab::RoleQuestion role) {
  crosstab::AjouterAuRole(etat_, role, QuestionsChoisies(*ui_->ListVar1), services_.ecran);
  Montrer();
}

void ChoixVar::Enlever(crosstab::RoleQuestion role) {
  crosstab::EnleverDuRole(etat_, role, QuestionsChoisies(ListeDu(role)), services_.ecran);
  Montrer();
}

void ChoixVar::CocherIsole(bool coche) {
  crosstab::CocherTableauIsole(etat_, coche, contexte_);
  Montrer();
}

crosstab::OptionsCroise ChoixVar::Demande() const {
  crosstab::OptionsCroise options;
  options.lancements = {crosstab::RequeteDeLEtat(etat_, enquete_, etat_.unSeul ? contexte_.Nom(".svg") : "")};
  return options;
}

void ChoixVar::LancerTri() {
  const crosstab::OptionsCroise lance = Demande();
  const std::optional<crosstab::DemandeCroise> demande = crosstab::PreparerLancement(etat_, services_.ecran);
  Montrer();
  if (!demande) return;
  // A long report does not close the form as the end of a run does: Text1 shows what it can hold.
  Dialogue ecran = services_.ecran;
  ecran.afficher = [this](Affichage affichage) {
    if (affichage.ou == Affichage::Ou::Lecteur && LongueurFichier(affichage.rapport) <= kRapportMontre)
      affichage.texte = LireOctets(affichage.rapport);
    affichage.ou = Affichage::Ou::Texte;
    services_.ecran.afficher(affichage);
  };
  Contexte contexte = contexte_;
  contexte.dialogue = &ecran;
  std::optional<crosstab::ResultatLancement> resultat;
  const bool fait = rapport_->Continuer(
      services_.lanceur, [&](const Contexte&) { resultat = crosstab::LancerCroise(contexte, enquete_, *demande); });
  if (!fait) return;
  if (!resultat) {  // the run ended by an error, which its report tells
    lancee_ = etat_.drapeaux;
    close();
    return;
  }
  lancee_ = etat_.drapeaux;
  crosstab::ApresLancement(etat_, *resultat);
  Montrer();
  if (resultat->retenu) {
    OuvrirGraphe2(services_, contexte_, crosstab::PreparerGraphe2(*resultat->retenu),
                  CommandeEquivalente(crosstab::DescriptionCroise(), contexte_.generique, contexte_.niveau, lance));
    return;
  }
  services_.fenetre.raise();
  services_.fenetre.activateWindow();
}

std::string_view ChoixVar::QuestionDePerte() const {
  return "Les tableaux demandés n'ont pas été lancés : annulez pour garder la demande"_w;
}

// The main form comes before this one when it shows the tables: it is a window beside it.
void ChoixVar::showEvent(QShowEvent* evenement) {
  QDialog::showEvent(evenement);
  if (windowHandle() != nullptr) windowHandle()->setTransientParent(nullptr);
}

void OuvrirChoixVar(Services& services) {
  if (Revenir<ChoixVar>(services)) return;
  auto prepare =
      Preparer(services, ".TCR", [](const Contexte& contexte) { return crosstab::PreparerCroise(contexte, {}); });
  if (prepare) Montrer<ChoixVar>(services, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace quelvar::forms
