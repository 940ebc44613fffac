#include "forms/programmes/factor/graphe3/graphe3.h"

#include <QSignalBlocker>
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "factor/plan/graphe_options.h"
#include "forms/images/rendudessin.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "modalities/regroupement/modifburt.h"
#include "ui_graphe3.h"

namespace quelvar::forms {

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
                             factor::Concerne(plan.discordances, factor::SujetDuPlan::LiensDeLignes));
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

// The choices with which a plane begins. No option tells the dimension that a change of size is for: it changes what is
// shown, and the frame alone is kept.
void Graphe3::PoserReglages() {
  MontrerOptions(*this, factor::DescriptionGraphe(), factor::OptionsDuPlan(etat_, false));
  (etat_.dimension == factor::DimensionPlan::Hauteur   ? ui_->OptH
   : etat_.dimension == factor::DimensionPlan::Largeur ? ui_->OptL
                                                       : ui_->OptAll)
      ->setChecked(true);
}

// What the boxes and buttons say, by the table of the program; the fields are read when they are left.
void Graphe3::LireReglages() {
  factor::PoserLesCoches(OptionsDesControles(*this, factor::DescriptionGraphe()), etat_.reglages);
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
void Graphe3::DireLesDiscordances() {
  std::string boite;
  for (const std::string& remarque :
       factor::RemarquesDesFichiers(etat_.donnees.discordances, factor::FichiersMontres(etat_))) {
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

void Graphe3::Dessiner() {
  ui_->Image->Montrer(factor::DessinerPlan(etat_));
  MontrerReglages();
}

void Graphe3::Refuser(const Erreur& erreur, const QString& quoi) {
  const std::string texte = Joindre({DepuisQt(quoi), TexteErreur(erreur)});
  ui_->Information->setPlainText(VersQt(texte).remove(u'\r'));
  if (TexteDuLieu(erreur).empty()) services_.ecran.biper();
  else services_.ecran.demander(texte, Boutons::Ok);
}

void OuvrirGraphe3(Services& services) {
  if (!FairePlace<Graphe3>(services)) return;
  auto prepare = Preparer(services, ".PRT", [](const Contexte& contexte) { return factor::PrepGraphe(contexte); });
  if (prepare) Montrer<Graphe3>(services, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace quelvar::forms
