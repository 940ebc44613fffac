// The ruler of columns above a fixed-width text: ticks, tens, and the column of the caret.
#pragma once

#include <QPlainTextEdit>
#include <QWidget>

namespace quelvar::forms {

class ReglePositions : public QWidget {
  Q_OBJECT
 public:
  // Follows the caret, the font and the scrolling of the text box.
  explicit ReglePositions(QPlainTextEdit& texte);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QPlainTextEdit& texte_;
};

}  // namespace quelvar::forms
