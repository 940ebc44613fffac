#include "forms/programmes/tables/graphe.h"

#include "forms/images/coefficient.h"
#include "forms/images/rendudessin.h"
#include "forms/images/sortiesdessin.h"
#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "tables/triangle/triang_options.h"
#include "ui_graphe.h"

namespace quelvar::forms {

Graphe::Graphe(Services& services, tables::FichierTrg trg, Brouillon rapport)
    : Forme(services, Qt::Window), etat_(tables::NouveauTriangle(std::move(trg))), ui_(std::make_unique<Ui::Graphe>()) {
  ui_->setupUi(this);
  for (const tables::EntreeTriangle& entree : etat_.entrees) ui_->ListVar->addItem(VersQt(entree.texte));
  ui_->Pict2->deplacable = [](int) { return true; };
  ui_->Pict2->infobulle = [this](int element) {
    return VersQt(etat_.entrees[static_cast<std::size_t>(element)].texte);
  };
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
  // Once a picture is saved the report is written beside it; that of a graph which was only looked at is shown.
  const auto garde = std::make_shared<bool>(false);
  connect(this, &QWidget::windowTitleChanged, this, [garde] { *garde = true; });
  AuDepart([rapport = std::make_shared<Brouillon>(std::move(rapport)), garde](const Contexte& contexte) {
    if (!*garde) {
      rapport->Ajouter(Joindre({tables::kFinDuTriangle, "\r\n"}));
      return rapport->Montrer(contexte);
    }
    rapport->Poser();
    tables::TerminerTriang(contexte);
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

// What the table of the program names are settings of the whole picture; the marks are those of the chosen text.
void Graphe::RelierReglages() {
  RelierBoutons(*this, tables::DescriptionTriang().Table(), [this] {
    if (remplissage_) return;
    etat_.reglages = OptionsDesControles(*this, tables::DescriptionTriang()).reglages;
    Dessiner();
  });
  const auto regler = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::toggled, this, [this, effet](bool pris) {
      if (remplissage_) return;
      effet(pris);
      Dessiner();
    });
  };
  regler(ui_->Check2, [this](bool pris) { etat_.entrees[etat_.choisie].invisible = pris; });
  const Marques marques = MarquesDuPoint();
  for (std::size_t i = 0; i < marques.size(); ++i)
    regler(marques[i], [this, i](bool pris) {
      if (pris) etat_.entrees[etat_.choisie].marque = static_cast<int>(i);
    });
}

void Graphe::RelierTailles() {
  const BoutonsDuCoefficient coefficient{*ui_->BtFaible, *ui_->BtMoyen, *ui_->BtFort};
  const auto geste = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::clicked, this, [this, effet] {
      effet();
      Dessiner();
    });
  };
  const auto dimension = [&](QRadioButton* bouton, tables::DimensionTriangle sienne) {
    bouton->setChecked(etat_.dimension == sienne);
    geste(bouton, [this, sienne] { etat_.dimension = sienne; });
  };
  dimension(ui_->Option17, tables::DimensionTriangle::Largeur);
  dimension(ui_->Option18, tables::DimensionTriangle::Hauteur);
  dimension(ui_->Option19, tables::DimensionTriangle::Ensemble);
  geste(ui_->BtPlus, [this] { tables::ChangerTaille(etat_, true); });
  geste(ui_->BtMoins, [this] { tables::ChangerTaille(etat_, false); });
  geste(ui_->BtPlusF, [this] { tables::ChangerFenetreTriangle(etat_, true); });
  geste(ui_->BtMoinsF, [this] { tables::ChangerFenetreTriangle(etat_, false); });
  RelierCoefficient(coefficient, etat_.coefficient, [this] { Dessiner(); });
  const auto cote = [&](QAbstractButton* bouton, tables::CoteTriangle quel, bool dedans) {
    geste(bouton, [this, quel, dedans] { tables::DeplacerCote(etat_, quel, dedans); });
  };
  cote(ui_->BoutonGp, tables::CoteTriangle::Gauche, true);
  cote(ui_->BoutonGm, tables::CoteTriangle::Gauche, false);
  cote(ui_->BoutonDp, tables::CoteTriangle::Droit, true);
  cote(ui_->BoutonDm, tables::CoteTriangle::Droit, false);
  cote(ui_->BoutonBp, tables::CoteTriangle::Bas, true);
  cote(ui_->BoutonBm, tables::CoteTriangle::Bas, false);
  geste(ui_->BoutonRAZ, [this, coefficient] {
    tables::ReinitialiserTriangle(etat_);
    MontrerCoefficient(coefficient, etat_.coefficient);
    MontrerReglages();
    ui_->Pict2->Ajuster();
  });
}

void Graphe::MontrerReglages() {
  remplissage_ = true;
  MontrerOptions(*this, tables::DescriptionTriang(), tables::OptionsDuTriangle(etat_));
  remplissage_ = false;
  MontrerPoint();
}

void Graphe::MontrerPoint() {
  remplissage_ = true;
  const tables::EntreeTriangle& entree = etat_.entrees[etat_.choisie];
  const bool point = etat_.choisie >= tables::kEntreeDuPremierPoint;
  const Marques marques = MarquesDuPoint();
  for (std::size_t i = 0; i < marques.size(); ++i) {
    marques[i]->setEnabled(point);
    marques[i]->setChecked(static_cast<int>(i) == entree.marque);
  }
  ui_->Check2->setChecked(entree.invisible);
  remplissage_ = false;
}

Graphe::Marques Graphe::MarquesDuPoint() const {
  return {ui_->Option9, ui_->Option10, ui_->Option11, ui_->Option12, ui_->Option13, ui_->Option14};
}

void Graphe::Dessiner() { ui_->Pict2->Montrer(tables::DessinerTriangle(etat_)); }

void OuvrirTriang(Services& services) {
  if (!FairePlace<Graphe>(services)) return;
  auto prepare = Preparer(services, ".prt", tables::PrepTriang);
  if (prepare) Montrer<Graphe>(services, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace quelvar::forms
