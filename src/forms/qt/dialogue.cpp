#include "forms/qt/dialogue.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <memory>

#include "core/programme/annulation.h"
#include "forms/qt/curseur.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

constexpr int kCrans = 1000;  // steps of the progress bar, whatever the number of individuals

// Lets the window paint, at most 25 times a second: a run is not to wait for its own progress bar.
class Respiration {
 public:
  void Passer() {
    constexpr std::chrono::milliseconds cadence(40);
    if (std::chrono::steady_clock::now() - derniere_ < cadence) return;
    Forcer();
  }
  void Forcer() {
    QCoreApplication::processEvents();
    derniere_ = std::chrono::steady_clock::now();
  }

 private:
  std::chrono::steady_clock::time_point derniere_;
};

// The cursor of the boxes that a run opens is the ordinary one.
struct CurseurNormal : Curseur {
  CurseurNormal() : Curseur(Qt::ArrowCursor) {}
};

// The window that the user is in: a box over another one would bring that to the front and leave the focus there.
// Behind a dialogue of the system that has just closed none is active yet: it is then the one where the user was
// before.
class FenetreDuMoment {
 public:
  explicit FenetreDuMoment(QWidget* principale) : principale_(principale) {
    QObject::connect(qApp, &QApplication::focusChanged, principale, [derniere = derniere_](QWidget*, QWidget* nouveau) {
      const auto estFenetre = [](const QWidget* w) {
        return !w->isModal() && (w->windowType() == Qt::Window || w->windowType() == Qt::Dialog);
      };
      if (nouveau != nullptr && estFenetre(nouveau->window())) *derniere = nouveau->window();
    });
  }

  QWidget* Parent() const {
    if (QWidget* active = QApplication::activeWindow()) return active;
    return *derniere_ != nullptr && (*derniere_)->isVisible() ? derniere_->data() : principale_;
  }

 private:
  QWidget* principale_;
  std::shared_ptr<QPointer<QWidget>> derniere_ = std::make_shared<QPointer<QWidget>>();
};

// A message box that knows whether Escape or its cross has closed it: of two buttons both count as the second.
class Boite : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;
  bool Abandonnee() const { return abandonnee_; }

 protected:
  void keyPressEvent(QKeyEvent* evenement) override {
    abandonnee_ = evenement->matches(QKeySequence::Cancel);
    QMessageBox::keyPressEvent(evenement);
  }
  void closeEvent(QCloseEvent* evenement) override {
    abandonnee_ = true;
    QMessageBox::closeEvent(evenement);
  }

 private:
  bool abandonnee_ = false;
};

struct Choix {
  Reponse reponse = Reponse::Ok;
  bool abandonne = false;
};

QString SansFinsDeLigneDos(std::string_view texte) {
  return VersQt(texte).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

// A sign that a blank stands before does not begin a line of the box.
QString SignesSoudes(QString texte) {
  static const QRegularExpression signe(QStringLiteral(" ([:;?!])"));
  return texte.replace(signe, QString(QChar::Nbsp) + QStringLiteral("\\1"));
}

Choix Demander(QWidget* parent, const QString& texte, Boutons boutons, Echappement echappement);

}  // namespace

QString FiltreQt(const QString& filtre) {
  const QStringList parties = filtre.split(u'|');
  QStringList filtres;
  for (qsizetype i = 0; i + 1 < parties.size(); i += 2) {
    QStringList motifs;
    for (const QString& motif : parties[i + 1].split(u';', Qt::SkipEmptyParts)) {
      if (motif == QStringLiteral("*.*")) motifs << QStringLiteral("*");
      else motifs << motif << motif.toLower() << motif.toUpper();
    }
    motifs.removeDuplicates();
    QString nom = parties[i];  // the parentheses of a Qt filter are its patterns
    nom.remove(QRegularExpression(QStringLiteral("[()]")));
    filtres << nom + QStringLiteral(" (") + motifs.join(u' ') + u')';
  }
  return filtres.join(QStringLiteral(";;"));
}

Reponse DemanderReponse(QWidget* parent, const QString& texte, Boutons boutons, Echappement echappement) {
  return Demander(parent, texte, boutons, echappement).reponse;
}

namespace {

Choix Demander(QWidget* parent, const QString& texte, Boutons boutons, Echappement echappement) {
  Boite boite(boutons == Boutons::Ok ? QMessageBox::Information : QMessageBox::Question, QStringLiteral("Quelvar"),
              SignesSoudes(texte), QMessageBox::NoButton, parent);
  boite.setTextFormat(Qt::PlainText);
  switch (boutons) {
    case Boutons::Ok: boite.setStandardButtons(QMessageBox::Ok); break;
    case Boutons::OkAnnuler: boite.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel); break;
    case Boutons::OuiNon: boite.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case Boutons::NonOui: boite.setStandardButtons(QMessageBox::Yes | QMessageBox::No); break;
    case Boutons::OuiNonAnnuler:
      boite.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
      break;
  }
  const Reponse premier = PremierBouton(boutons);
  boite.setDefaultButton(premier == Reponse::Ok    ? QMessageBox::Ok
                         : premier == Reponse::Non ? QMessageBox::No
                                                   : QMessageBox::Yes);
  if (boutons == Boutons::OuiNonAnnuler && echappement == Echappement::Non) boite.setEscapeButton(QMessageBox::No);
  switch (boite.exec()) {
    case QMessageBox::Yes: return {Reponse::Oui, false};
    case QMessageBox::No: return {Reponse::Non, boite.Abandonnee()};
    case QMessageBox::Cancel: return {Reponse::Annuler, boite.Abandonnee()};
    default: return {Reponse::Ok, false};
  }
}

}  // namespace

std::optional<std::string> DemanderTexte(QWidget* parent, std::string_view question, std::string_view propose) {
  bool accepte = false;
  const QString texte =
      QInputDialog::getText(parent, QStringLiteral("Quelvar"), SignesSoudes(SansFinsDeLigneDos(question)),
                            QLineEdit::Normal, VersQt(propose), &accepte);
  if (!accepte) return std::nullopt;
  return DepuisQt(texte);
}

QString ChoisirAOuvrir(QWidget* parent, const DemandeDeFichier& demande) {
  return QFileDialog::getOpenFileName(parent, demande.titre, demande.depart, FiltreQt(demande.filtre));
}

QString ChoisirAEcrire(QWidget* parent, const DemandeDeFichier& demande, QString* filtre) {
  return QFileDialog::getSaveFileName(parent, demande.titre, demande.depart, FiltreQt(demande.filtre), filtre);
}

Dialogue DialogueQt(const EcranDeRun& ecran) {
  const auto respiration = std::make_shared<Respiration>();
  const auto maximum = std::make_shared<std::int64_t>(1);
  const FenetreDuMoment fenetre(ecran.fenetre);
  Dialogue dialogue;
  dialogue.montrerProgression = [=](std::int64_t valeur) {
    *maximum = std::max<std::int64_t>(valeur, 1);
    ecran.progression->setRange(0, kCrans);
    ecran.progression->setValue(0);
    ecran.progression->setVisible(valeur > 0);
    if (valeur == 0) ecran.iteration->clear();
    respiration->Forcer();
  };
  dialogue.progresser = [=](std::int64_t faits) {
    const double part = static_cast<double>(std::min(faits, *maximum)) / static_cast<double>(*maximum);
    ecran.progression->setValue(static_cast<int>(part * kCrans));
    respiration->Passer();
  };
  dialogue.montrerIteration = [=](std::string_view texte) {
    ecran.iteration->setText(VersQt(texte));
    respiration->Passer();
  };
  dialogue.demander = [=](std::string_view texte, Boutons boutons) {
    const CurseurNormal curseur;
    const Choix choix = Demander(fenetre.Parent(), SansFinsDeLigneDos(texte), boutons, Echappement::Non);
    if (choix.abandonne && boutons == Boutons::OuiNon && ecran.enCours()) throw Annulation();
    return choix.reponse;
  };
  dialogue.saisir = [=](std::string_view question, std::string_view propose) {
    const CurseurNormal curseur;
    const std::optional<std::string> saisi = DemanderTexte(fenetre.Parent(), question, propose);
    if (saisi) return saisi->empty() ? std::string(propose) : *saisi;
    if (ecran.enCours()) throw Annulation();
    return std::string();
  };
  dialogue.choisirFichier = [=](std::string_view titre, std::string_view filtre) {
    const CurseurNormal curseur;
    return DepuisQt(ChoisirAOuvrir(fenetre.Parent(), {VersQt(titre), QStringLiteral("."), VersQt(filtre)}));
  };
  dialogue.biper = [] { QApplication::beep(); };
  dialogue.afficher = ecran.afficher;
  return dialogue;
}

Occupation::Occupation() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  qApp->installEventFilter(this);
}

Occupation::~Occupation() {
  // What was typed or clicked during the run was meant for nothing that is still there.
  QCoreApplication::processEvents();
  qApp->removeEventFilter(this);
  QApplication::restoreOverrideCursor();
}

// True for what happens in the box that the run has opened, its own lists and menus included.
bool Occupation::EstPourLaBoite(const QObject* objet) {
  const QWidget* boite = QApplication::activeModalWidget();
  if (boite == nullptr) return false;
  if (!objet->isWidgetType()) return true;  // the window system holds back what is not for the box
  const auto* widget = static_cast<const QWidget*>(objet);
  while (widget != nullptr && widget != boite) widget = widget->parentWidget();
  return widget != nullptr;
}

bool Occupation::eventFilter(QObject* objet, QEvent* evenement) {
  switch (evenement->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride: return !EstPourLaBoite(objet);
    case QEvent::Close:  // by the cross of the window; the program closes what it wants
      if (!objet->isWidgetType() || !evenement->spontaneous() || EstPourLaBoite(objet)) break;
      evenement->ignore();
      return true;
    default: break;
  }
  return QObject::eventFilter(objet, evenement);
}

}  // namespace quelvar::forms
