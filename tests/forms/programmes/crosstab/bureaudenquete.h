// A small survey before the forms of the crosstabs.
#pragma once

#include <QListWidget>

#include "forms/pilote.h"
#include "forms/programmes/crosstab/choixvar.h"

namespace essai {

// Eight individuals: SEX x VOT 3 1 / 1 3; REG has three codes.
struct BureauDEnquete : Bureau {
  explicit BureauDEnquete(int niveau = 2) : Bureau(niveau) {
    Ecrire("ENQ.POS", "ENQ\r\n 8 \r\nSEX   1 2 $Sexe$\r\nVOT   2 2 $Vote$\r\nREG   3 3\r\n");
    std::filesystem::create_directories(DossierProgramme() / "aide");
    EcrireOctets(DossierProgramme() / "aide" / "QuelvarAide.html", "<h2 id=\"8\">Tri</h2>");
    Ecrire("ENQ.DAT", "111\r\n112\r\n113\r\n121\r\n211\r\n222\r\n223\r\n221\r\n");
    Ouvrir();
  }
  ChoixVar& Demande() { return Demander<ChoixVar>("mnuCroise"); }
};

// Chooses these rows of a list as a click and control clicks do.
inline void Choisir(const QWidget& forme, const char* liste, const QList<int>& rangs) {
  auto& lignes = Bureau::Dans<QListWidget>(forme, liste);
  lignes.clearSelection();
  for (const int rang : rangs)
    QTest::mouseClick(lignes.viewport(), Qt::LeftButton, rang == rangs.first() ? Qt::NoModifier : Qt::ControlModifier,
                      lignes.visualItemRect(lignes.item(rang)).center());
}

}  // namespace essai
