#include "forms/programmes/capture/saisief.h"

#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>
#include <iterator>

#include "capture/saisie/ecran.h"
#include "capture/saisie/options.h"
#include "core/programme/alerte.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/capture/listeenregistrements.h"
#include "forms/programmes/capture/saisiedes.h"
#include "forms/qt/ecran.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "ui_saisief.h"

namespace quelvar::forms {

using capture::EtatSaisie;

Saisief::Saisief(Services& services, std::shared_ptr<capture::SaisieEnCours> saisie)
    : Forme(services),
      saisie_(std::move(saisie)),
      ui_(std::make_unique<Ui::Saisief>()),
      liste_(new ListeEnregistrements(*saisie_, this)),
      fautesVues_(saisie_->fautes.empty()) {
  ui_->setupUi(this);
  if (const std::optional<Chemin> mod = ChercherMod(contexte_.repertoire, contexte_.Nom(".MOD")))
    intitules_ = LireIntitules(*mod);
  // Names, answers and records stand under each other.
  QFont fixe = PoliceFixe();
  ui_->ListEnreg->setFont(fixe);
  constexpr int tailleDeSaisie = 13;  // points: read from where the questionnaire lies
  fixe.setPointSize(tailleDeSaisie);
  for (QLabel* label : {ui_->Label0, ui_->Label1, ui_->Label2, ui_->Label3, ui_->Label4, ui_->Label6, ui_->Label7})
    label->setFont(fixe);
  // A message that comes and goes moves no question.
  QSizePolicy place = ui_->FrMsg->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  ui_->FrMsg->setSizePolicy(place);
  ui_->Label9->setMinimumWidth(ui_->Label9->fontMetrics().horizontalAdvance(VersQt(capture::TexteDesMajuscules(true))));
  ui_->ListEnreg->setModel(liste_);
  for (QWidget* controle : {static_cast<QWidget*>(ui_->ListEnreg), static_cast<QWidget*>(ui_->BoutCont),
                            static_cast<QWidget*>(ui_->BoutArret)})
    controle->installEventFilter(this);
  ui_->FrListe->setVisible(false);
  ui_->TextMsg->setPlainText(VersQt(saisie_->fautes));
  connect(ui_->TextMod, &ZoneDeFrappe::Frappe, this, &Saisief::Frapper);
  connect(ui_->TextMod, &ZoneDeFrappe::ListeDemandee, this, &Saisief::MontrerListe);
  connect(ui_->BoutListe, &QPushButton::clicked, this, &Saisief::MontrerListe);
  connect(ui_->BoutCont, &QPushButton::clicked, this, &Saisief::Continuer);
  connect(ui_->CheckDirect, &QCheckBox::toggled, this, [this](bool directe) {
    saisie_->etat.directe = directe;
    ui_->TextMod->setFocus();
  });
  connect(ui_->ListEnreg->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) { Choisir(index.row()); });
  connect(ui_->ListEnreg, &QListView::clicked, this, [this] { ui_->TextMod->setFocus(); });
  RelierQuitter(*ui_->BoutArret);
  AuDepart([saisie = saisie_, relire = services.relireGenerique](const Contexte& contexte) {
    capture::TerminerSaisie(contexte, saisie->etat.faits);
    relire();
  });
  RelierAide(*ui_->BoutAide, "mnuASaisie");
  QPushButton& commande = AjouterVoirLaCommande(*ui_->BoutListe, [this] { return Commande(); });
  commande.setFocusPolicy(Qt::ClickFocus);
  commande.setAutoDefault(false);
  connect(&commande, &QPushButton::clicked, this, &Saisief::Montrer);
  Montrer();
}

Saisief::~Saisief() = default;

bool Saisief::ATravail() const { return capture::EstEntame(saisie_->etat); }

std::string_view Saisief::QuestionDePerte() const {
  return "L'enregistrement en cours n'est pas validé : annulez et faites Entrée pour le garder"_w;
}

// The command reads the keys where the form takes them from the keyboard.
std::string Saisief::Commande() const {
  capture::OptionsSaisie options;
  options.directe = saisie_->etat.directe;
  return Joindre({CommandeEquivalente(capture::DescriptionSaisie(), contexte_.generique, contexte_.niveau, options),
                  "  # les touches se lisent sur l'entrée standard"_w});
}

void Saisief::Continuer() {
  fautesVues_ = true;
  ui_->TextMsg->clear();
  Montrer();
}

void Saisief::Frapper(capture::Touche touche, bool tenue) {
  if (!fautesVues_ || saisie_->etat.questions.empty()) {
    if (touche.nom == capture::NomDeTouche::Echappement) reject();
    return;
  }
  const capture::SuiteDeFrappe effet = capture::Frapper(saisie_->etat, touche);
  // A key held down against a bound says so once.
  if (effet.bip && !tenue) services_.ecran.biper();
  if (effet.demande == capture::DemandeDeSaisie::Quitter) return reject();
  if (effet.demande == capture::DemandeDeSaisie::LaisserLaCorrection) LaisserLEnregistrement();
  if (effet.demande == capture::DemandeDeSaisie::Enregistrer) Enregistrer();
  Montrer();
}

// Back to the individual that is keyed; answers that a correction has changed are asked about.
void Saisief::LaisserLEnregistrement() {
  if (PeutFermer()) capture::RecommencerIndividu(saisie_->etat);
}

// A record that the disk refuses stays on the screen.
void Saisief::Enregistrer() {
  try {
    capture::Enregistrer(*saisie_);
    liste_->Rafraichir();
  } catch (const Erreur& erreur) {
    AlerterEnBoite(services_.ecran,
                   Joindre({"L'enregistrement n'est pas fait : "_w, TexteErreur(erreur),
                            ". Les réponses restent à l'écran ; refaites Entrée quand c'est réparé."_w}));
  }
}

void Saisief::Montrer() {
  const EtatSaisie& etat = saisie_->etat;
  QLabel* const avantElle[] = {ui_->Label0, ui_->Label1, ui_->Label2, ui_->Label3, ui_->Label4};
  constexpr int nombre = static_cast<int>(std::size(avantElle));
  for (int i = 0; i < nombre; ++i)
    avantElle[i]->setText(VersQt(capture::TexteDeQuestion(etat, i - nombre, intitules_)));
  ui_->Label6->setText(VersQt(capture::TexteDeQuestion(etat, 1, intitules_)));
  ui_->Label7->setText(VersQt(capture::TexteDeQuestion(etat, 2, intitules_)));
  ui_->Label5->setText(VersQt(capture::NomCourant(etat)));
  ui_->TextMod->setText(VersQt(capture::ReponseCourante(etat)));
  ui_->LabelIntitule->setText(etat.SurFin() ? QString()
                                            : VersQt(capture::IntituleDeReponse(etat, etat.courante, intitules_)));
  ui_->LabelType->setText(VersQt(capture::TypeCourant(etat)));
  ui_->LabelConseil->setText(VersQt(capture::ConseilCourant(etat)));
  ui_->Label9->setText(VersQt(capture::TexteDesMajuscules(etat.majuscules)));
  ui_->LabelFaits->setText(QString::number(etat.faits));
  ui_->LabelEnCours->setText(etat.corrige ? QStringLiteral("%1 (correction)").arg(*etat.corrige)
                                          : QString::number(etat.faits + 1));
  if (fautesVues_) ui_->TextMsg->setPlainText(VersQt(etat.message));
  ui_->FrMsg->setVisible(!fautesVues_ || !etat.message.empty());
  ui_->BoutCont->setVisible(!fautesVues_);
  ui_->BoutArret->setAutoDefault(!fautesVues_);  // the one of the two that Enter presses shows it
  if (fautesVues_) ui_->BoutArret->setDefault(false);
  ui_->BoutListe->setEnabled(fautesVues_);
  DonnerLeClavier();
}

// To the faults as long as they are shown, then to the answer or to the list of records.
void Saisief::DonnerLeClavier() {
  if (!fautesVues_) ui_->BoutCont->setFocus();
  else if (focusWidget() != ui_->ListEnreg) ui_->TextMod->setFocus();
}

// Whatever the window did to its controls to hold in the screen.
void Saisief::showEvent(QShowEvent* evenement) {
  Forme::showEvent(evenement);
  DonnerLeClavier();
}

void Saisief::MontrerListe() {
  if (!fautesVues_ || liste_->rowCount() == 0) return;
  if (!ui_->FrListe->isVisible()) {
    ui_->FrListe->setVisible(true);
    layout()->activate();  // the window grows by what the list needs
    adjustSize();
    TenirDansLEcran(*this);
  }
  liste_->Rafraichir();
  const bool premiere = !ui_->ListEnreg->currentIndex().isValid();
  ui_->ListEnreg->setFocus();
  if (premiere) ui_->ListEnreg->setCurrentIndex(liste_->index(liste_->rowCount() - 1));
  else Choisir(ui_->ListEnreg->currentIndex().row());
}

void Saisief::Choisir(int rang) {
  if (rang < 0) return;
  std::string refus;
  try {
    refus = capture::Revoir(*saisie_, rang + 1);
  } catch (const Erreur&) {  // the line has gone with a change of the file
    liste_->Rafraichir();
  }
  saisie_->etat.message = refus;
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->TextMod->setFocus();
  }
  Montrer();
}

bool Saisief::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() == QEvent::KeyPress) {
    const int cle = static_cast<QKeyEvent*>(evenement)->key();
    if (objet == ui_->ListEnreg && ToucheDeListe(cle)) return true;
    for (QPushButton* bouton : {ui_->BoutCont, ui_->BoutArret})
      if (objet == bouton && !fautesVues_ && ToucheDeFautes(*bouton, cle)) return true;
  }
  return QDialog::eventFilter(objet, evenement);
}

// As long as the faults are shown the keyboard stays with them: it scrolls them, and goes from "Continuer" to
// "Arrêter".
bool Saisief::ToucheDeFautes(QPushButton& bouton, int cle) {
  QScrollBar& defilement = *ui_->TextMsg->verticalScrollBar();
  switch (cle) {
    case Qt::Key_Up: defilement.triggerAction(QScrollBar::SliderSingleStepSub); return true;
    case Qt::Key_Down: defilement.triggerAction(QScrollBar::SliderSingleStepAdd); return true;
    case Qt::Key_PageUp: defilement.triggerAction(QScrollBar::SliderPageStepSub); return true;
    case Qt::Key_PageDown: defilement.triggerAction(QScrollBar::SliderPageStepAdd); return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Tab:
    case Qt::Key_Backtab: (&bouton == ui_->BoutCont ? ui_->BoutArret : ui_->BoutCont)->setFocus(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: bouton.click(); return true;
    default: return false;
  }
}

// Enter in the list goes to the answers of the record, Escape back to the individual that is keyed.
bool Saisief::ToucheDeListe(int cle) {
  const bool garder = cle == Qt::Key_Return || cle == Qt::Key_Enter || cle == Qt::Key_F4;
  if (!garder && cle != Qt::Key_Escape) return false;
  if (!garder) LaisserLEnregistrement();
  ui_->TextMod->setFocus();
  Montrer();
  return true;
}

void OuvrirSaisie(Services& services) {
  if (services.session.generique.empty()) {
    services.ecran.demander("Donnez d'abord un générique à l'enquête"_w, Boutons::Ok);
    return;
  }
  if (!FairePlace<Saisief>(services) || !FairePlace<SaisieDes>(services)) return;
  std::optional<capture::SaisieEnCours> saisie;
  bool descripteur = false;
  services.Lancer([&](const Contexte& contexte) {
    saisie = capture::CommencerSaisie(contexte);
    descripteur = !saisie;
  });
  if (saisie) Montrer<Saisief>(services, std::make_shared<capture::SaisieEnCours>(std::move(*saisie)));
  else if (descripteur) Montrer<SaisieDes>(services);
}

}  // namespace quelvar::forms
