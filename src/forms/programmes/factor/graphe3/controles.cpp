// What the controls of the factor plane do: axes, points, size and place, links, tree and ellipses.
#include <QSignalBlocker>
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "factor/plan/graphe_options.h"
#include "forms/images/coefficient.h"
#include "forms/images/rendudessin.h"
#include "forms/programmes/factor/graphe3/graphe3.h"
#include "forms/qt/texte.h"
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
  RelierCoefficient({*ui_->BtFaible, *ui_->BtMoyen, *ui_->BtFort}, etat_.coefficient, [this] { Dessiner(); });
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
    DireLesDiscordances();
  });
  connect(ui_->FichPajek, &QCheckBox::toggled, this, &Graphe3::EcrireLeReseau);
  connect(ui_->ChkLgnPEM, &QCheckBox::toggled, this, [this](bool lignes) {
    FixerEcMin(lignes ? factor::kEcMinDesLiensDeLignes : 0);
    DireLesDiscordances();
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
    DireLesDiscordances();
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
    factor::ReglagesCah& cah = etat_.reglages.cah;
    if (cah.trace == factor::TraceCah::Couleurs) cah.hasard = ++tirages_;
    else cah.hasard.reset();
    cah.trace = factor::TraceCah::Couleurs;  // also while the tree is not shown, which the options then do not tell
    Redessiner();
  });
  connect(ui_->BtCouleursNon, &QRadioButton::clicked, this, [this] {
    etat_.reglages.cah.trace = factor::TraceCah::Lignes;
    Redessiner();
  });
  connect(ui_->BoutonCAH, &QPushButton::clicked, this, &Graphe3::CouperLaClassification);
  for (QCheckBox* boite : {ui_->CheckEllipseC, ui_->CheckEllipseM, ui_->CheckEllipseI})
    connect(boite, &QCheckBox::toggled, this, [this] {
      RefaireEllipses();
      Redessiner();
    });
}

}  // namespace quelvar::forms
