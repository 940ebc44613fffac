#include "forms/programmes/crosstab/graphe2.h"

#include "forms/images/coefficient.h"
#include "forms/images/rendudessin.h"
#include "forms/images/sortiesdessin.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/crosstab/choixvar.h"
#include "forms/qt/texte.h"
#include "ui_graphe2.h"

namespace quelvar::forms {

Graphe2::Graphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees,
                 std::string commande)
    : Forme(services, contexte, Qt::Window),
      etat_(crosstab::NouveauGraphe2(donnees)),
      commande_(std::move(commande)),
      ui_(std::make_unique<Ui::Graphe2>()) {
  ui_->setupUi(this);
  for (const crosstab::EntreeGraphe2& entree : etat_.entrees) ui_->ListVar->addItem(VersQt(entree.texte));
  ui_->ListVar->setCurrentRow(0);
  ui_->Pict2->deplacable = [](int) { return true; };
  ui_->Pict2->infobulle = [this](int element) {
    return VersQt(etat_.entrees[static_cast<std::size_t>(element)].texte);
  };
  RelierGestes();
  RelierFichiers();
  Dessiner();
}

Graphe2::~Graphe2() = default;

void Graphe2::RelierGestes() {
  const BoutonsDuCoefficient coefficient{*ui_->BtFaible, *ui_->BtMoyen, *ui_->BtFort};
  const auto geste = [this](QAbstractButton* bouton, auto effet) {
    connect(bouton, &QAbstractButton::clicked, this, [this, effet] {
      retouche_ = true;
      effet();
      Dessiner();
    });
  };
  connect(ui_->ListVar, &QListWidget::currentRowChanged, this,
          [this](int rang) { etat_.choisie = static_cast<std::size_t>(std::max(rang, 0)); });
  connect(ui_->Pict2, &VueDessin::Clique, this, [this](int element) {
    if (element >= 0) ui_->ListVar->setCurrentRow(element);
  });
  connect(ui_->Pict2, &VueDessin::Deplace, this, [this](int, const QPointF& pas) {
    crosstab::DeplacerEntree(etat_, {pas.x(), pas.y()});
    retouche_ = true;
    Dessiner();
  });
  geste(ui_->Command3, [this] { crosstab::DeplacerEntree(etat_, crosstab::SensGraphe2::Haut); });
  geste(ui_->Command4, [this] { crosstab::DeplacerEntree(etat_, crosstab::SensGraphe2::Bas); });
  geste(ui_->Command5, [this] { crosstab::DeplacerEntree(etat_, crosstab::SensGraphe2::Gauche); });
  geste(ui_->Command6, [this] { crosstab::DeplacerEntree(etat_, crosstab::SensGraphe2::Droite); });
  geste(ui_->BtPlus, [this] { crosstab::ChangerEchelle(etat_, true); });
  geste(ui_->BtMoins, [this] { crosstab::ChangerEchelle(etat_, false); });
  geste(ui_->BtPlusF, [this] { crosstab::ChangerFenetre(etat_, true); });
  geste(ui_->BtMoinsF, [this] { crosstab::ChangerFenetre(etat_, false); });
  geste(ui_->BoutonValP, [this] { crosstab::ChangerValeur(etat_, true); });
  geste(ui_->BoutonValM, [this] { crosstab::ChangerValeur(etat_, false); });
  RelierCoefficient(coefficient, etat_.coefficient, [this] {
    retouche_ = true;
    Dessiner();
  });
  geste(ui_->BoutonRAZ, [this, coefficient] {
    crosstab::Reinitialiser(etat_);
    retouche_ = false;
    MontrerCoefficient(coefficient, etat_.coefficient);
    ui_->Pict2->Ajuster();
  });
}

void Graphe2::RelierFichiers() {
  RelierSorties(*this, services_, *ui_->Pict2, contexte_, "Tab",
                {*ui_->BoutonEnreg, *ui_->BoutonEnregSous, *ui_->BoutonImpr}, [] { return kResolution; });
  AjouterVoirLaCommande(*ui_->BoutonEnreg, [this] {
    return commande_ + (retouche_ ? std::string("  # sans les retouches de l'image") : std::string());
  });
  connect(ui_->BoutonNouv, &QPushButton::clicked, this, [this] {
    close();
    if (auto* demande = services_.formes.Ouverte<ChoixVar>()) {
      demande->raise();
      demande->activateWindow();
    }
  });
  RelierQuitter(*ui_->BoutonQuitter);
}

void Graphe2::Dessiner() {
  ui_->Pict2->Montrer(crosstab::DessinerGraphe2(etat_));
  ui_->Coordonnees->setText(VersQt(crosstab::TexteFenetre(etat_)).remove(u'\r'));
}

void OuvrirGraphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees,
                   const std::string& commande) {
  if (!FairePlace<Graphe2>(services)) return;
  Montrer<Graphe2>(services, contexte, donnees, commande);
}

}  // namespace quelvar::forms
