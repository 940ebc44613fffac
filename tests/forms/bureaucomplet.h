// A survey on which every program has been run, and nobody who answers the boxes but by Escape.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QList>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>

#include "factor/analyse/anecar.h"
#include "forms/pilote.h"
#include "forms/services/services.h"
#include "modalities/creation/posmod.h"
#include "tables/ecapem.h"

namespace essai {

// Answers every box by Escape, looked at before.
class Silence : public QObject {
 public:
  explicit Silence(std::function<void(QDialog&)> regarder = {}) : regarder_(std::move(regarder)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    auto* boite = qobject_cast<QDialog*>(objet);
    if (boite != nullptr && evenement->type() == QEvent::Show && boite->isModal())
      QTimer::singleShot(0, boite, [this, boite] {
        if (regarder_) regarder_(*boite);
        boite->reject();
      });
    return QObject::eventFilter(objet, evenement);
  }

 private:
  std::function<void(QDialog&)> regarder_;
};

// A survey on which every program has been run, so that every form finds what it reads.
struct BureauComplet : Bureau {
  explicit BureauComplet(int niveau = 2) : Bureau(niveau) {
    Ecrire("ENQ.POS", "ENQ\r\n 24 \r\nSEX   1 2 $Sexe$\r\nAGE   2 3 $Age$\r\nLEC   3 3 $Lecture$\r\n");
    std::string dat;
    for (int i = 0; i < 24; ++i)
      dat += {static_cast<char>('1' + i % 2), static_cast<char>('1' + i % 3), static_cast<char>('1' + i * i / 5 % 3),
              '\r', '\n'};
    Ecrire("ENQ.DAT", dat);
    Ecrire("ENQ.DES", "");
    Ecrire("ENQ.TXT", "1 un mot\r\n2 deux mots\r\n");
    Ecrire("ENQ.TRG", "Titre\r\nun\r\ndeux\r\ntrois\r\nA1   25.0 25.0 50.0\r\n");
    Ouvrir();
    Services& services = Fenetre().ServicesDesFormes();
    const Silence silence;
    services.Lancer([](const quelvar::Contexte& contexte) {
      quelvar::modalities::OptionsPosmod choix;
      choix.actives = {"SEX", "AGE", "LEC"};
      choix.individus = true;
      quelvar::modalities::Posmod(contexte, choix);
      quelvar::tables::Ecapem(contexte, {});
      quelvar::factor::OptionsAnecar analyse;
      analyse.classification = quelvar::factor::OptionsWard{};
      quelvar::factor::Anecar(contexte, analyse);
    });
  }
  // The forms that are shown.
  QList<quelvar::forms::Forme*> Ouvertes() {
    QList<quelvar::forms::Forme*> ouvertes;
    for (auto* forme : Fenetre().findChildren<quelvar::forms::Forme*>())
      if (forme->isVisible()) ouvertes << forme;
    return ouvertes;
  }
};

}  // namespace essai
