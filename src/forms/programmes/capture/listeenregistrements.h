// The records of an entry as the lines of a list, read from the data file as they come into view.
#pragma once

#include <QAbstractListModel>

#include "capture/saisie/saisie.h"

namespace quelvar::forms {

class ListeEnregistrements : public QAbstractListModel {
  Q_OBJECT
 public:
  ListeEnregistrements(const capture::SaisieEnCours& saisie, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

  // Takes over what the entry has added or changed.
  void Rafraichir();

 private:
  const capture::SaisieEnCours& saisie_;
  int lignes_ = 0;
};

}  // namespace quelvar::forms
