// The text box of the main form: fixed-width text of any length, its bytes kept through the screen and back.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace quelvar {

class TexteFixe : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit TexteFixe(QWidget* parent = nullptr);

  // Replaces the text; the caret stands at its head or at its end.
  void PoserTexte(std::string_view texte, bool alaFin = false);
  // Adds lines under what the box holds, the caret behind them.
  void AjouterTexte(std::string_view texte);
  // The text as bytes of the code page, lines ended by CR LF (the last one by what ended it).
  std::string Octets() const;

  void FixerTaille(int points);
};

}  // namespace quelvar
