// The screen that a program talks to: progress display, boxes and file choice of the window, and the window kept from
// the user's hands while the program runs.
#pragma once

#include <QLabel>
#include <QObject>
#include <QProgressBar>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/programme/dialogue.h"

namespace quelvar::forms {

// What a run moves on the main form.
struct EcranDeRun {
  QWidget* fenetre;           // parent of the boxes
  QProgressBar* progression;  // hidden between two runs
  QLabel* iteration;
  std::function<void(const Affichage&)> afficher;
  std::function<bool()> enCours;  // whether a run is going on
};

// The functions live as long as the widgets. An input box that is cancelled during a run, and Escape or the cross of a
// question of yes and no, give the run up (Annulation); outside of a run the answer is empty, or no.
Dialogue DialogueQt(const EcranDeRun& ecran);

// An input box of the program; nothing when it is cancelled.
std::optional<std::string> DemanderTexte(QWidget* parent, std::string_view question, std::string_view propose);

// "Fichiers *.dat|*.dat|Tous fichiers *.*|*.*" as Qt writes filters; a name is matched in lower and in upper case.
QString FiltreQt(const QString& filtre);

// A file box: its title, the directory or the file that it begins with, the filters as programs write them.
struct DemandeDeFichier {
  QString titre;
  QString depart;
  QString filtre;
};
// The path of an existing file, or of one to be written; empty when the user gave up. `filtre` takes the filter that
// stood there at the end, as Qt writes it.
QString ChoisirAOuvrir(QWidget* parent, const DemandeDeFichier& demande);
QString ChoisirAEcrire(QWidget* parent, const DemandeDeFichier& demande, QString* filtre = nullptr);

// A message box of the program: text, buttons, and the button that was chosen. Of three buttons Escape is the last; in
// the boxes of a run, where that one says yes for all times to come, it is "Non".
enum class Echappement { Dernier, Non };
Reponse DemanderReponse(QWidget* parent, const QString& texte, Boutons boutons,
                        Echappement echappement = Echappement::Dernier);

// While one lives, key and mouse events and the cross of a window reach the boxes that the run opens and nothing else,
// and the cursor is busy.
class Occupation : public QObject {
 public:
  Occupation();
  ~Occupation() override;
  Occupation(const Occupation&) = delete;
  Occupation& operator=(const Occupation&) = delete;

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  static bool EstPourLaBoite(const QObject* objet);
};

}  // namespace quelvar::forms
