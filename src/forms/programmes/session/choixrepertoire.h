// Drives and directories: a list of places (Drive1) and under it the branch of directories that leads to the current
// one, with the directories inside it (Dir1).
#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QWidget>

namespace quelvar::forms {

class ChoixRepertoire : public QWidget {
  Q_OBJECT
 public:
  explicit ChoixRepertoire(QWidget* parent = nullptr);

  // Goes to a directory, or to its nearest parent that can be read.
  void Aller(const QString& repertoire);
  // The directory that is open.
  const QString& Courant() const { return courant_; }
  // The directory under the cursor, the open one when there is none.
  QString Designe() const;

 signals:
  // The user has opened a directory, by a double click or by Return.
  void Ouvert(const QString& repertoire);

 private:
  void RemplirLieux();
  void RemplirBranche();

  QString courant_;
  QComboBox* lieux_;
  QListWidget* branche_;
};

}  // namespace quelvar::forms
