#include "forms/textefixe.h"

#include <QFont>

#include "core/texte.h"
#include "forms/texte_qt.h"

namespace quelvar {

TexteFixe::TexteFixe(QWidget* parent) : QPlainTextEdit(parent) {
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setWordWrapMode(QTextOption::NoWrap);
  setTabChangesFocus(true);
  FixerTaille(10);
}

void TexteFixe::PoserTexte(std::string_view texte, bool alaFin) {
  setPlainText(VersQt(texte));
  moveCursor(alaFin ? QTextCursor::End : QTextCursor::Start);
}

void TexteFixe::AjouterTexte(std::string_view texte) {
  moveCursor(QTextCursor::End);
  insertPlainText(VersQt(texte));
  moveCursor(QTextCursor::End);
}

std::string TexteFixe::Octets() const {
  QString texte = document()->toRawText();  // toPlainText would turn the no-break blanks into blanks
  texte.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
  texte.replace(QChar::LineSeparator, QStringLiteral("\r\n"));
  return DepuisQt(texte);
}

void TexteFixe::FixerTaille(int points) {
  QFont police(QStringLiteral("Courier New"), points);
  police.setStyleHint(QFont::TypeWriter);
  police.setFixedPitch(true);
  setFont(police);
}

}  // namespace quelvar
