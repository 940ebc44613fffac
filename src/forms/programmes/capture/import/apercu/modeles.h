// What the tables of the import preview show: the first rows of the file, and its columns with what becomes of them.
#pragma once

#include <QAbstractTableModel>
#include <QSet>

#include "capture/preparation.h"

namespace quelvar::forms {

class LignesDApercu : public QAbstractTableModel {
  Q_OBJECT
 public:
  LignesDApercu(const capture::PreparationDImport& preparation, QObject* parent);
  // The preview has changed as a whole.
  void Relire();

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation sens, int role) const override;

 private:
  const capture::PreparationDImport& preparation_;
  QSet<QPair<int, qint64>> fautives_;  // column and line of the file
};

class ColonnesDApercu : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Rubrique { Intitule, Nom, Contenu, Differentes, Vides, Devient, kRubriques };

  ColonnesDApercu(capture::PreparationDImport& preparation, QObject* parent)
      : QAbstractTableModel(parent), preparation_(preparation) {}
  void Relire();
  // Choices have changed, columns have not.
  void Rafraichir();

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation sens, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;

 signals:
  void Renomme(int colonne, const QString& nom);

 private:
  capture::PreparationDImport& preparation_;
};

// The title of a column, or its rank when it has none.
QString TitreDeColonne(const capture::FaitsDeColonne& colonne, std::size_t rang);

}  // namespace quelvar::forms
