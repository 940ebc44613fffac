#include "forms/programmes/capture/zonedefrappe.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <optional>

#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

using capture::NomDeTouche;
using capture::Touche;

std::optional<NomDeTouche> NomDe(int cle) {
  switch (cle) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return NomDeTouche::Entree;
    case Qt::Key_Escape: return NomDeTouche::Echappement;
    case Qt::Key_Tab: return NomDeTouche::Tabulation;
    case Qt::Key_End: return NomDeTouche::Fin;
    case Qt::Key_PageDown: return NomDeTouche::PageSuivante;
    case Qt::Key_PageUp: return NomDeTouche::PagePrecedente;
    case Qt::Key_Down: return NomDeTouche::Bas;
    case Qt::Key_Up: return NomDeTouche::Haut;
    case Qt::Key_Left: return NomDeTouche::Gauche;
    case Qt::Key_Right: return NomDeTouche::Droite;
    case Qt::Key_Backspace: return NomDeTouche::Retour;
    case Qt::Key_Delete: return NomDeTouche::Suppr;
    case Qt::Key_CapsLock: return NomDeTouche::VerrMaj;
    default: return std::nullopt;
  }
}

// Keys that go with these belong to the window: its shortcuts, its menus.
bool EstRaccourci(const QKeyEvent& evenement) {
  return (evenement.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

}  // namespace

ZoneDeFrappe::ZoneDeFrappe(QWidget* parent) : QLabel(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_InputMethodEnabled);
  setTextFormat(Qt::PlainText);
  setBackgroundRole(QPalette::Base);
  setForegroundRole(QPalette::Text);
}

QVariant ZoneDeFrappe::inputMethodQuery(Qt::InputMethodQuery question) const {
  if (question == Qt::ImEnabled) return true;
  if (question == Qt::ImHints) return static_cast<int>(Qt::ImhNoPredictiveText);
  return QLabel::inputMethodQuery(question);
}

bool ZoneDeFrappe::event(QEvent* evenement) {
  if (evenement->type() == QEvent::KeyPress && Traiter(*static_cast<QKeyEvent*>(evenement))) {
    evenement->accept();
    return true;
  }
  return QLabel::event(evenement);
}

bool ZoneDeFrappe::Traiter(const QKeyEvent& evenement) {
  if (evenement.key() == Qt::Key_F4 && evenement.modifiers() == Qt::NoModifier) {
    emit ListeDemandee();
    return true;
  }
  if (EstRaccourci(evenement)) return false;
  if (const std::optional<NomDeTouche> nom = NomDe(evenement.key())) {
    emit Frappe({*nom}, evenement.isAutoRepeat());
    return true;
  }
  if (evenement.text().isEmpty()) return false;
  // The point of the keypad is a point whatever the keyboard has there.
  const bool pave = (evenement.modifiers() & Qt::KeypadModifier) != 0;
  const bool point = pave && (evenement.key() == Qt::Key_Comma || evenement.key() == Qt::Key_Period);
  Envoyer(point ? QStringLiteral(".") : evenement.text(), evenement.isAutoRepeat());
  return true;
}

void ZoneDeFrappe::inputMethodEvent(QInputMethodEvent* evenement) {
  Envoyer(evenement->commitString(), false);
  evenement->accept();
}

// Characters that the code page lacks are not taken.
void ZoneDeFrappe::Envoyer(const QString& texte, bool tenue) {
  for (const QChar caractere : texte) {
    const std::string octets = DepuisQt(QString(caractere));
    if (octets.size() == 1 && (octets[0] != '?' || caractere == u'?'))
      emit Frappe({NomDeTouche::Caractere, octets[0]}, tenue);
  }
}

}  // namespace quelvar::forms
