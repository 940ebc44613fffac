#include "forms/programmes/factor/graphe3/graphe3.h"

#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

#include "core/programme/attention.h"
#include "core/texte/nombres.h"
#include "factor/plan/graphe_options.h"
#include "forms/images/rendudessin.h"
#include "forms/texte/texte_qt.h"
#include "modalities/regroupement/modifburt.h"
#include "ui_graphe3.h"

namespace quelvar::forms {

namespace {

// What a field holds, kept between two bounds; a text that is no number leaves the present value.
double ValeurDuChamp(const QLineEdit& champ, double presente, double minimum, double maximum) {
  std::string texte = DepuisQt(champ.text());
  std::replace(texte.begin(), texte.end(), ',', '.');
  return std::clamp(EstNombre(texte) ? ValeurDe(texte) : presente, minimum, maximum);
}

}  // namespace

Graphe3::Graphe3(Services& services, factor::DonneesPlan donnees, Brouillon rapport)
    : Forme(services, Qt::Window),
      etat_(factor::NouveauPlan(std::move(donnees))),
      rapport_(std::make_shared<Brouillon>(std::move(rapport))),
      ui_(std::make_unique<Ui::Graphe3>()) {
  ui_->setupUi(this);
  PoserBornes();
  const factor::DonneesPlan& plan = etat_.donnees;
  ui_->CheckPEM->setEnabled(plan.liensPresents);
  ui_->ChkLgnPEM->setEnabled(!plan.liensLignes.empty() ||
                             factor::Concerne(plan.etrangers, factor::SujetDuPlan::LiensDeLignes));
  ui_->Onglets->setTabVisible(ui_->Onglets->indexOf(ui_->OngletPEM), plan.liensPresents || ui_->ChkLgnPEM->isEnabled());
  ui_->CheckIndiv->setVisible(plan.Individus());
  ui_->FrCAH->setEnabled(plan.arbrePresent);
  PoserReglages();
  RelierAide(*ui_->Aide, "mnuAGraphe");
  for (QToolButton* bouton : findChildren<QToolButton*>()) bouton->setAutoRepeat(true);
  RelierAxes();
  RelierPoints();
  RelierTaille();
  RelierLiens();
  RelierCah();
  RelierImage();
  RelierFichiers();
  Redessiner();
}

Graphe3::~Graphe3() = default;

// Those of the programs that read these controls.
void Graphe3::PoserBornes() {
  for (QLineEdit* nom : {ui_->TextNouvNom, ui_->TextNouvCol})
    nom->setMaxLength(static_cast<int>(modalities::kNomDeGroupeLePlusLong));
  ui_->Resolution->setRange(kResolutionLaPlusBasse, kResolutionLaPlusHaute);
  ui_->Resolution->setSingleStep(kPasDeResolution);
  ui_->Resolution->setValue(kResolution);
}

// The choices with which a plane begins; boxes begin empty.
void Graphe3::PoserReglages() {
  const factor::ReglagesPlan& reglages = etat_.reglages;
  (reglages.ensemble == factor::EnsemblePoints::Actifs            ? ui_->Opt2
   : reglages.ensemble == factor::EnsemblePoints::Supplementaires ? ui_->Opt3
                                                                  : ui_->Opt1)
      ->setChecked(true);
  (reglages.taille == factor::TailleTexte::Petite   ? ui_->Option1
   : reglages.taille == factor::TailleTexte::Grande ? ui_->Option3
                                                    : ui_->Option2)
      ->setChecked(true);
  (reglages.liens.values ? ui_->BtVal : ui_->BtNVal)->setChecked(true);
  (reglages.cah.trace == factor::TraceCah::Couleurs ? ui_->BtCouleursOui : ui_->BtCouleursNon)->setChecked(true);
  (etat_.dimension == factor::DimensionPlan::Hauteur   ? ui_->OptH
   : etat_.dimension == factor::DimensionPlan::Largeur ? ui_->OptL
                                                       : ui_->OptAll)
      ->setChecked(true);
  (etat_.coefficient == Coefficient::Faible ? ui_->BtFaible
   : etat_.coefficient == Coefficient::Fort ? ui_->BtFort
                                            : ui_->BtMoyen)
      ->setChecked(true);
}

void Graphe3::RelierAxes() {
  connect(ui_->TextFH, &QLineEdit::editingFinished, this,
          [this] { ChangerAxe(*ui_->TextFH, etat_.reglages.horizontal); });
  connect(ui_->TextFV, &QLineEdit::editingFinished, this,
          [this] { ChangerAxe(*ui_->TextFV, etat_.reglages.vertical); });
  connect(ui_->InvXY, &QPushButton::clicked, this, [this] {
    factor::EchangerAxes(etat_);
    Recaler();
  });
  for (QCheckBox* boite : {ui_->CheckInvX, ui_->CheckInvY})
    connect(boite, &QCheckBox::toggled, this, [this] {
      etat_.reglages.horizontal.inverse = ui_->CheckInvX->isChecked();
      etat_.reglages.vertical.inverse = ui_->CheckInvY->isChecked();
      Recaler();
    });
}

void Graphe3::RelierPoints() {
  for (QAbstractButton* bouton : std::initializer_list<QAbstractButton*>{
           ui_->PointExact, ui_->CheckContrib, ui_->CheckLong, ui_->CheckInfo, ui_->Opt1, ui_->Opt2, ui_->Opt3,
           ui_->Option1, ui_->Option2, ui_->Option3, ui_->Check1})
    connect(bouton, &QAbstractButton::toggled, this, [this, bouton] {
      const bool deuxFois = !bouton->isChecked() && bouton->autoExclusive();  // the other one of a group comes as well
      if (!deuxFois) Redessiner();
    });
  connect(ui_->CheckIndiv, &QCheckBox::toggled, this, [this] {
    LireReglages();
    factor::InclurePoints(etat_);  // individuals lie far outside of the modalities
    Redessiner();
  });
  const auto niveau = [this] {
    FixerNiveauCpf(
        static_cast<int>(ValeurDuChamp(*ui_->TextBoxVal, etat_.reglages.niveauCpf, 0, factor::kNiveauCpfAuPlus)));
  };
  connect(ui_->BoutonOK, &QPushButton::clicked, this, niveau);
  connect(ui_->TextBoxVal, &QLineEdit::returnPressed, this, niveau);
  connect(ui_->CmdCpfMoins, &QToolButton::clicked, this, [this] { FixerNiveauCpf(etat_.reglages.niveauCpf - 1); });
  connect(ui_->CmdCpfPlus, &QToolButton::clicked, this, [this] { FixerNiveauCpf(etat_.reglages.niveauCpf + 1); });
}

void Graphe3::RelierTaille() {
  const auto geste = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::clicked, this, [this, effet] {
      effet();
      Dessiner();
    });
  };
  geste(ui_->BtPlus, [this] { factor::ChangerEchelle(etat_, true); });
  geste(ui_->BtMoins, [this] { factor::ChangerEchelle(etat_, false); });
  geste(ui_->BtPlusF, [this] { factor::ChangerPage(etat_, true); });
  geste(ui_->BtMoinsF, [this] { factor::ChangerPage(etat_, false); });
  geste(ui_->OptH, [this] { etat_.dimension = factor::DimensionPlan::Hauteur; });
  geste(ui_->OptL, [this] { etat_.dimension = factor::DimensionPlan::Largeur; });
  geste(ui_->OptAll, [this] { etat_.dimension = factor::DimensionPlan::Toutes; });
  geste(ui_->BtFaible, [this] { etat_.coefficient = Coefficient::Faible; });
  geste(ui_->BtMoyen, [this] { etat_.coefficient = Coefficient::Moyen; });
  geste(ui_->BtFort, [this] { etat_.coefficient = Coefficient::Fort; });
  geste(ui_->BoutonRAZ, [this] { factor::ReinitialiserCadre(etat_); });
  geste(ui_->BoutonH, [this] { factor::DeplacerImage(etat_, 0, 1); });
  geste(ui_->BoutonB, [this] { factor::DeplacerImage(etat_, 0, -1); });
  geste(ui_->Command1, [this] { factor::DeplacerImage(etat_, -1, 0); });
  geste(ui_->Command2, [this] { factor::DeplacerImage(etat_, 1, 0); });
  geste(ui_->Command3, [this] { factor::DeplacerImage(etat_, -1, 1); });
  geste(ui_->Command4, [this] { factor::DeplacerImage(etat_, 1, 1); });
  geste(ui_->Command5, [this] { factor::DeplacerImage(etat_, -1, -1); });
  geste(ui_->Command6, [this] { factor::DeplacerImage(etat_, 1, -1); });
  geste(ui_->BoutonValP, [this] { factor::ChangerPas(etat_, true); });
  geste(ui_->BoutonValM, [this] { factor::ChangerPas(etat_, false); });
  connect(ui_->CheckTaille, &QCheckBox::toggled, this, [this](bool reelle) {
    if (reelle) ui_->Image->Zoomer(ui_->Image->logicalDpiX() / kPointsParPouce / ui_->Image->Echelle());
    else ui_->Image->Ajuster();
  });
}

// What the boxes and buttons say; the fields are read when they are left.
void Graphe3::LireReglages() {
  factor::ReglagesPlan& reglages = etat_.reglages;
  reglages.pointExact = ui_->PointExact->isChecked();
  reglages.parContribution = ui_->CheckContrib->isChecked();
  reglages.intitulesLongs = ui_->CheckLong->isChecked();
  reglages.information = ui_->CheckInfo->isChecked();
  reglages.individus = ui_->CheckIndiv->isChecked();
  reglages.ensemble = ui_->Opt2->isChecked()   ? factor::EnsemblePoints::Actifs
                      : ui_->Opt3->isChecked() ? factor::EnsemblePoints::Supplementaires
                                               : factor::EnsemblePoints::Tous;
  reglages.taille = ui_->Option1->isChecked()   ? factor::TailleTexte::Petite
                    : ui_->Option3->isChecked() ? factor::TailleTexte::Grande
                                                : factor::TailleTexte::Moyenne;
  reglages.gras = ui_->Check1->isChecked();
  factor::ReglagesLiens& liens = reglages.liens;
  liens.actif = ui_->CheckPEM->isChecked() || ui_->ChkLgnPEM->isChecked();
  liens.lignes = ui_->ChkLgnPEM->isChecked();
  liens.values = ui_->BtVal->isChecked();
  liens.arbre = ui_->CheckArbrMin->isChecked();
  reglages.cah.actif = ui_->CheckCAH->isChecked();
  reglages.cah.trace = ui_->BtCouleursOui->isChecked() ? factor::TraceCah::Couleurs : factor::TraceCah::Lignes;
  reglages.ellipses = {ui_->CheckEllipseC->isChecked(), ui_->CheckEllipseM->isChecked(),
                       ui_->CheckEllipseI->isChecked()};
}

// What follows from the state in fields and labels.
void Graphe3::MontrerReglages() {
  const factor::ReglagesPlan& reglages = etat_.reglages;
  ui_->TextFH->setText(VersQt(factor::TexteAxe(reglages.horizontal)));
  ui_->TextFV->setText(VersQt(factor::TexteAxe(reglages.vertical)));
  const QSignalBlocker bloqueX(ui_->CheckInvX);
  const QSignalBlocker bloqueY(ui_->CheckInvY);
  ui_->CheckInvX->setChecked(reglages.horizontal.inverse);
  ui_->CheckInvY->setChecked(reglages.vertical.inverse);
  ui_->TextBoxVal->setText(QString::number(reglages.niveauCpf));
  ui_->ValeurPas->setText(VersQt(Joindre({Nombre(etat_.pas), " millièmes"_w})));
  ui_->EcMinVal->setText(VersQt(Nombre(reglages.liens.ecMin)));
  ui_->EcSupVal->setText(VersQt(Nombre(reglages.liens.ecSup)));
  ui_->ValeurProg->setText(reglages.liens.progressif ? VersQt(Nombre(*reglages.liens.progressif)) : QString());
  for (QWidget* controle : {ui_->CmdProgMoins, ui_->CmdProgPlus}) controle->setEnabled(ui_->CheckProg->isChecked());
  ui_->ValCAH->setText(VersQt(Nombre(reglages.cah.niveau)));
  ui_->ValNCla->setText(
      etat_.donnees.cah ? VersQt(Nombre(factor::ClassesAuNiveau(*etat_.donnees.cah, reglages.cah.niveau))) : QString());
  const bool colonnes = factor::PorteUneMarque(etat_, factor::kMarqueColonne);
  const bool lignes = factor::PorteUneMarque(etat_, factor::kMarqueLigne);
  MontrerMarques();
  ui_->BoutonAssoc->setEnabled(colonnes || (lignes && !etat_.donnees.Individus()));
  for (QWidget* controle : std::initializer_list<QWidget*>{ui_->Label8, ui_->TextNouvCol})
    controle->setVisible(colonnes);
  for (QWidget* controle : std::initializer_list<QWidget*>{ui_->Label2, ui_->TextNouvNom}) controle->setVisible(lignes);
}

void Graphe3::ChangerAxe(QLineEdit& texte, factor::AxePlan& axe) {
  const std::string voulu = DepuisQt(texte.text());
  if (EgalSansCasse(Rogner(voulu), factor::TexteAxe(axe))) return;
  if (!factor::FixerAxe(etat_.donnees, axe, voulu)) {
    services_.ecran.biper();
    ui_->Information->setPlainText(
        QStringLiteral("Les facteurs vont de 1 à %1 ; la lettre C montre leur CPF.").arg(etat_.donnees.facteurs));
  }
  Recaler();
}

void Graphe3::Recaler() {
  factor::Caler(etat_);
  RefaireEllipses();
  Redessiner();
}

// The files are read anew and none is written: the report tells the ellipses once the form is left. Without them the
// graph goes on.
void Graphe3::RefaireEllipses() {
  LireReglages();
  etat_.ellipses.clear();
  *ellipses_ = {};
  const factor::DemandeEllipses demande = factor::EllipsesDemandees(etat_);
  if (demande.choix.Aucune()) return;
  services_.Lancer([&](const Contexte&) { *ellipses_ = factor::MesurerEllipses(contexte_, demande); });
  for (const std::string& avis : ellipses_->avis) services_.ecran.demander(avis, Boutons::Ok);
  if (ellipses_->arret) {
    for (QCheckBox* boite : {ui_->CheckEllipseC, ui_->CheckEllipseM, ui_->CheckEllipseI}) {
      const QSignalBlocker bloque(boite);
      boite->setChecked(false);
    }
    Refuser(*ellipses_->arret, QStringLiteral("Les ellipses n'ont pas pu être calculées :\n"));
  }
  etat_.ellipses = ellipses_->tracees;
  factor::InclureEllipses(etat_);
}

// What does not belong to the plane is told the first time that it is drawn, and goes into the report.
void Graphe3::DireLesEtrangers() {
  std::string boite;
  for (const std::string& remarque :
       factor::RemarquesDesFichiers(etat_.donnees.etrangers, factor::FichiersMontres(etat_))) {
    if (std::ranges::find(dites_, remarque) != dites_.end()) continue;
    dites_.push_back(remarque);
    rapport_->Ajouter(Joindre({kAttention, remarque, "\r\n"}));
    boite += (boite.empty() ? "" : "\r\n") + remarque;
  }
  if (boite.empty()) return;
  services_.ecran.demander(boite, Boutons::Ok);
  rapport_->Montrer(contexte_);
}

void Graphe3::Redessiner() {
  LireReglages();
  Dessiner();
}

// The network file is written when its box is ticked, and as the graph stands when the form is left.
void Graphe3::EcrireLeReseau() {
  LireReglages();
  if (!etat_.reglages.liens.actif || !ui_->FichPajek->isChecked()) return;
  try {
    factor::EcrireReseau(contexte_, etat_);
  } catch (Erreur& erreur) {
    const QSignalBlocker bloque(ui_->FichPajek);
    ui_->FichPajek->setChecked(false);
    Refuser(erreur.Situer({contexte_.Nom(".net")}), QStringLiteral("Le réseau ne peut pas être écrit : "));
  }
}

void Graphe3::done(int resultat) {
  EcrireLeReseau();
  Forme::done(resultat);
}

void Graphe3::Dessiner() {
  ui_->Image->Montrer(factor::DessinerPlan(etat_));
  MontrerReglages();
}

void Graphe3::FixerNiveauCpf(int niveau) {
  etat_.reglages.niveauCpf = std::clamp(niveau, 0, factor::kNiveauCpfAuPlus);
  Redessiner();
}

void Graphe3::FixerEcMin(double limite) {
  etat_.reglages.liens.ecMin = std::clamp(limite, 0.0, factor::kLimiteDeLienAuPlus);
  Redessiner();
}

void Graphe3::FixerEcSup(double limite) {
  etat_.reglages.liens.ecSup = std::clamp(limite, 0.0, factor::kLimiteDeLienAuPlus);
  Redessiner();
}

void Graphe3::FixerProgression(std::int64_t liens) {
  etat_.reglages.liens.progressif = static_cast<std::size_t>(std::max<std::int64_t>(liens, 1));
  Redessiner();
}

void Graphe3::FixerNiveauCah(std::int64_t niveau) {
  const auto etapes = static_cast<std::int64_t>(etat_.donnees.cah ? etat_.donnees.cah->etapes.size() : 0);
  etat_.reglages.cah.niveau = static_cast<std::size_t>(std::clamp<std::int64_t>(niveau, 0, etapes));
  Redessiner();
}

void Graphe3::RelierLiens() {
  const auto limite = [this](QLineEdit& champ, QAbstractButton& moins, QAbstractButton& plus,
                             double factor::ReglagesLiens::*membre, void (Graphe3::*fixer)(double)) {
    const auto presente = [this, membre] { return etat_.reglages.liens.*membre; };
    connect(&champ, &QLineEdit::editingFinished, this, [this, &champ, presente, fixer] {
      const double voulue = ValeurDuChamp(champ, presente(), 0, factor::kLimiteDeLienAuPlus);
      if (voulue != presente()) (this->*fixer)(voulue);
    });
    connect(&moins, &QAbstractButton::clicked, this, [this, presente, fixer] { (this->*fixer)(presente() - 1); });
    connect(&plus, &QAbstractButton::clicked, this, [this, presente, fixer] { (this->*fixer)(presente() + 1); });
  };
  limite(*ui_->EcMinVal, *ui_->CmdFiltrMoinsMin, *ui_->CmdFiltrPlusMin, &factor::ReglagesLiens::ecMin,
         &Graphe3::FixerEcMin);
  limite(*ui_->EcSupVal, *ui_->CmdFiltrMoinsSup, *ui_->CmdFiltrPlusSup, &factor::ReglagesLiens::ecSup,
         &Graphe3::FixerEcSup);
  for (QAbstractButton* bouton : std::initializer_list<QAbstractButton*>{ui_->BtVal, ui_->CheckArbrMin})
    connect(bouton, &QAbstractButton::toggled, this, &Graphe3::Redessiner);
  connect(ui_->CheckPEM, &QCheckBox::toggled, this, [this] {
    Redessiner();
    DireLesEtrangers();
  });
  connect(ui_->FichPajek, &QCheckBox::toggled, this, &Graphe3::EcrireLeReseau);
  connect(ui_->ChkLgnPEM, &QCheckBox::toggled, this, [this](bool lignes) {
    FixerEcMin(lignes ? factor::kEcMinDesLiensDeLignes : 0);
    DireLesEtrangers();
  });
  connect(ui_->CheckProg, &QCheckBox::toggled, this, [this](bool progressif) {
    etat_.reglages.liens.progressif = progressif ? std::optional<std::size_t>(1) : std::nullopt;
    Redessiner();
  });
  const auto progression = [this] { return static_cast<std::int64_t>(etat_.reglages.liens.progressif.value_or(1)); };
  connect(ui_->CmdProgMoins, &QToolButton::clicked, this, [=, this] { FixerProgression(progression() - 1); });
  connect(ui_->CmdProgPlus, &QToolButton::clicked, this, [=, this] { FixerProgression(progression() + 1); });
}

void Graphe3::RelierCah() {
  const auto niveau = [this] { return static_cast<std::int64_t>(etat_.reglages.cah.niveau); };
  // A level is one of the steps of the tree.
  const auto etapes = [this] {
    return etat_.donnees.cah ? static_cast<double>(etat_.donnees.cah->etapes.size()) : 0.0;
  };
  connect(ui_->CheckCAH, &QCheckBox::toggled, this, [this] {
    LireReglages();
    DireLesEtrangers();
    if (!etat_.donnees.cah) ui_->CheckCAH->setChecked(false);
    Redessiner();
  });
  connect(ui_->CmdCahMoins, &QToolButton::clicked, this, [=, this] { FixerNiveauCah(niveau() - 1); });
  connect(ui_->CmdCahPlus, &QToolButton::clicked, this, [=, this] { FixerNiveauCah(niveau() + 1); });
  connect(ui_->ValCAH, &QLineEdit::editingFinished, this, [=, this] {
    const double voulu = ValeurDuChamp(*ui_->ValCAH, static_cast<double>(niveau()), 0, etapes());
    if (voulu != static_cast<double>(niveau())) FixerNiveauCah(static_cast<std::int64_t>(voulu));
  });
  const auto classesAuPlus = static_cast<double>(factor::DescriptionGraphe().De("classes").maximum);
  connect(ui_->ValNCla, &QLineEdit::editingFinished, this, [=, this] {
    if (!etat_.donnees.cah) return;
    const factor::ArbreCah& cah = *etat_.donnees.cah;
    const std::size_t presentes = factor::ClassesAuNiveau(cah, etat_.reglages.cah.niveau);
    const auto voulues =
        static_cast<std::size_t>(ValeurDuChamp(*ui_->ValNCla, static_cast<double>(presentes), 0, classesAuPlus));
    const std::optional<std::size_t> trouve = factor::NiveauDesClasses(cah, voulues);
    if (voulues != presentes && trouve) FixerNiveauCah(static_cast<std::int64_t>(*trouve));
    else MontrerReglages();
  });
  connect(ui_->BtCouleursOui, &QRadioButton::clicked, this, [this] {
    std::optional<std::uint32_t>& hasard = etat_.reglages.cah.hasard;
    if (etat_.reglages.cah.trace == factor::TraceCah::Couleurs) hasard = ++tirages_;
    else hasard.reset();
    Redessiner();
  });
  connect(ui_->BtCouleursNon, &QRadioButton::clicked, this, &Graphe3::Redessiner);
  connect(ui_->BoutonCAH, &QPushButton::clicked, this, &Graphe3::CouperLaClassification);
  for (QCheckBox* boite : {ui_->CheckEllipseC, ui_->CheckEllipseM, ui_->CheckEllipseI})
    connect(boite, &QCheckBox::toggled, this, [this] {
      RefaireEllipses();
      Redessiner();
    });
}

}  // namespace quelvar::forms
