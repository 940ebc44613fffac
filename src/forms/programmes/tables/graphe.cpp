#include "forms/programmes/tables/graphe.h"

#include "forms/images/rendudessin.h"
#include "forms/images/sortiesdessin.h"
#include "forms/pieces/commande.h"
#include "forms/texte/texte_qt.h"
#include "tables/triangle/triang_options.h"
#include "ui_graphe.h"

namespace quelvar::forms {

namespace {

constexpr int kMarques = 6;  // Option9 to Option14

}  // namespace

Graphe::Graphe(Services& services, tables::FichierTrg trg, Brouillon rapport)
    : Forme(services, Qt::Window), etat_(tables::NouveauTriangle(std::move(trg))), ui_(std::make_unique<Ui::Graphe>()) {
  ui_->setupUi(this);
  for (const tables::EntreeTriangle& entree : etat_.entrees) ui_->ListVar->addItem(VersQt(entree.texte));
  ui_->Pict2->deplacable = [](int) { return true; };
  ui_->Pict2->infobulle = [this](int element) {
    return VersQt(etat_.entrees[static_cast<std::size_t>(element)].texte);
  };
  ui_->BtMoyen->setChecked(true);
  ui_->Option19->setChecked(true);
  RelierTextes();
  RelierReglages();
  RelierTailles();
  RelierSorties(*this, services_, *ui_->Pict2, contexte_, "Trg",
                {*ui_->BoutonEnreg, *ui_->BoutonEnregSous, *ui_->BoutonImpr}, [] { return kResolution; });
  QPushButton& commande = AjouterVoirLaCommande(*ui_->BoutonQuitter, [this] {
    return CommandeEquivalente(tables::DescriptionTriang(), contexte_.generique, contexte_.niveau,
                               tables::OptionsDuTriangle(etat_));
  });
  setTabOrder(ui_->BoutonEnregSous, &commande);
  RelierAide(*ui_->BoutAide, "mnuATriang");
  RelierQuitter(*ui_->BoutonQuitter);
  // Once a picture is saved the report stays with it; a graph that was only looked at leaves the former one.
  const auto garde = std::make_shared<bool>(false);
  connect(this, &QWidget::windowTitleChanged, this, [garde] { *garde = true; });
  AuDepart([rapport = std::make_shared<Brouillon>(std::move(rapport)), garde](const Contexte& contexte) {
    rapport->Poser();
    tables::TerminerTriang(contexte);
    if (!*garde) rapport->Reprendre();
  });
  ui_->ListVar->setCurrentRow(0);
  MontrerReglages();
  Dessiner();
}

Graphe::~Graphe() = default;

void Graphe::Choisir(int rang) {
  etat_.choisie = static_cast<std::size_t>(std::max(rang, 0));
  MontrerPoint();
}

void Graphe::RelierTextes() {
  connect(ui_->ListVar, &QListWidget::currentRowChanged, this, &Graphe::Choisir);
  connect(ui_->Pict2, &VueDessin::Clique, this, [this](int element) {
    if (element >= 0) ui_->ListVar->setCurrentRow(element);
  });
  connect(ui_->Pict2, &VueDessin::Deplace, this, [this](int, const QPointF& pas) {
    tables::DeplacerTexte(etat_, Position{pas.x(), pas.y()});
    Dessiner();
  });
  const auto deplacer = [this](QAbstractButton* bouton, tables::SensTriangle sens) {
    connect(bouton, &QAbstractButton::clicked, this, [this, sens] {
      tables::DeplacerTexte(etat_, sens);
      Dessiner();
    });
  };
  deplacer(ui_->Command3, tables::SensTriangle::Haut);
  deplacer(ui_->Command4, tables::SensTriangle::Bas);
  deplacer(ui_->Command5, tables::SensTriangle::Gauche);
  deplacer(ui_->Command6, tables::SensTriangle::Droite);
}

void Graphe::RelierReglages() {
  const auto regler = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::toggled, this, [this, effet](bool pris) {
      if (remplissage_) return;
      effet(pris);
      Dessiner();
    });
  };
  tables::ReglagesTriangle& reglages = etat_.reglages;
  regler(ui_->Option4, [&reglages](bool pris) {
    reglages.forme = pris ? tables::FormeTriangle::Triangulaire : tables::FormeTriangle::AngleDroit;
  });
  const auto taille = [&](QAbstractButton* bouton, tables::TailleTriangle valeur) {
    regler(bouton, [&reglages, valeur](bool pris) {
      if (pris) reglages.taille = valeur;
    });
  };
  taille(ui_->Option6, tables::TailleTriangle::Petite);
  taille(ui_->Option7, tables::TailleTriangle::Moyenne);
  taille(ui_->Option8, tables::TailleTriangle::Grande);
  regler(ui_->Check1, [&reglages](bool pris) { reglages.gras = pris; });
  regler(ui_->CheckLong, [&reglages](bool pris) { reglages.intitulesLongs = pris; });
  regler(ui_->ChkCentre, [&reglages](bool pris) { reglages.centre = pris; });
  regler(ui_->ChkGauche, [&reglages](bool pris) { reglages.troisieme = pris; });
  regler(ui_->ChkTrait, [&reglages](bool pris) { reglages.traits = pris; });
  regler(ui_->Check2, [this](bool pris) { etat_.entrees[etat_.choisie].invisible = pris; });
  QAbstractButton* const marques[kMarques] = {ui_->Option9,  ui_->Option10, ui_->Option11,
                                              ui_->Option12, ui_->Option13, ui_->Option14};
  for (int i = 0; i < kMarques; ++i)
    regler(marques[i], [this, i](bool pris) {
      if (pris) etat_.entrees[etat_.choisie].marque = i;
    });
}

void Graphe::RelierTailles() {
  const auto geste = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::clicked, this, [this, effet] {
      effet();
      Dessiner();
    });
  };
  const auto dimension = [this] {
    return ui_->Option17->isChecked()   ? tables::DimensionTriangle::Largeur
           : ui_->Option18->isChecked() ? tables::DimensionTriangle::Hauteur
                                        : tables::DimensionTriangle::Ensemble;
  };
  geste(ui_->BtPlus, [this, dimension] { tables::ChangerTaille(etat_, dimension(), true); });
  geste(ui_->BtMoins, [this, dimension] { tables::ChangerTaille(etat_, dimension(), false); });
  geste(ui_->BtPlusF, [this] { tables::ChangerFenetreTriangle(etat_, true); });
  geste(ui_->BtMoinsF, [this] { tables::ChangerFenetreTriangle(etat_, false); });
  geste(ui_->BtFaible, [this] { etat_.coefficient = Coefficient::Faible; });
  geste(ui_->BtMoyen, [this] { etat_.coefficient = Coefficient::Moyen; });
  geste(ui_->BtFort, [this] { etat_.coefficient = Coefficient::Fort; });
  const auto cote = [&](QAbstractButton* bouton, tables::CoteTriangle quel, bool dedans) {
    geste(bouton, [this, quel, dedans] { tables::DeplacerCote(etat_, quel, dedans); });
  };
  cote(ui_->BoutonGp, tables::CoteTriangle::Gauche, true);
  cote(ui_->BoutonGm, tables::CoteTriangle::Gauche, false);
  cote(ui_->BoutonDp, tables::CoteTriangle::Droit, true);
  cote(ui_->BoutonDm, tables::CoteTriangle::Droit, false);
  cote(ui_->BoutonBp, tables::CoteTriangle::Bas, true);
  cote(ui_->BoutonBm, tables::CoteTriangle::Bas, false);
  geste(ui_->BoutonRAZ, [this] {
    tables::ReinitialiserTriangle(etat_);
    ui_->BtMoyen->setChecked(true);
    MontrerReglages();
    ui_->Pict2->Ajuster();
  });
}

void Graphe::MontrerReglages() {
  remplissage_ = true;
  const tables::ReglagesTriangle& r = etat_.reglages;
  (r.forme == tables::FormeTriangle::Triangulaire ? ui_->Option4 : ui_->Option5)->setChecked(true);
  (r.taille == tables::TailleTriangle::Petite   ? ui_->Option6
   : r.taille == tables::TailleTriangle::Grande ? ui_->Option8
                                                : ui_->Option7)
      ->setChecked(true);
  ui_->Check1->setChecked(r.gras);
  ui_->CheckLong->setChecked(r.intitulesLongs);
  ui_->ChkCentre->setChecked(r.centre);
  ui_->ChkGauche->setChecked(r.troisieme);
  ui_->ChkTrait->setChecked(r.traits);
  remplissage_ = false;
  MontrerPoint();
}

void Graphe::MontrerPoint() {
  remplissage_ = true;
  const tables::EntreeTriangle& entree = etat_.entrees[etat_.choisie];
  const bool point = etat_.choisie >= tables::kEntreeDuPremierPoint;
  QRadioButton* const marques[kMarques] = {ui_->Option9,  ui_->Option10, ui_->Option11,
                                           ui_->Option12, ui_->Option13, ui_->Option14};
  for (int i = 0; i < kMarques; ++i) {
    marques[i]->setEnabled(point);
    marques[i]->setChecked(i == entree.marque);
  }
  ui_->Check2->setChecked(entree.invisible);
  remplissage_ = false;
}

void Graphe::Dessiner() { ui_->Pict2->Montrer(tables::DessinerTriangle(etat_)); }

void OuvrirTriang(Services& services) {
  if (!FairePlace<Graphe>(services)) return;
  auto prepare = Preparer(services, ".prt", tables::PrepTriang);
  if (prepare) Montrer<Graphe>(services, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace quelvar::forms
