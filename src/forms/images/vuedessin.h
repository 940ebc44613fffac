// The widget that shows a picture: zoom by wheel and keys, move by drag and keys, elements under the mouse.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>

#include "core/dessin/dessin.h"

namespace quelvar::forms {

class VueDessin : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit VueDessin(QWidget* parent = nullptr);

  // The picture is shown whole until the user zooms; from then on its scale and place are kept from one to the next.
  void Montrer(Dessin dessin);
  const Dessin& Contenu() const { return dessin_; }

  // Pixels for a point.
  double Echelle() const { return echelle_; }
  void Zoomer(double facteur);
  void Ajuster();
  // A page that could not be read whole, being long, is fitted to the width of the view.
  bool pageLongue = false;

  // Where a place of the viewport lies on the page, and back.
  QPointF VersPage(const QPointF& place) const;
  QPointF VersVue(const QPointF& page) const;

  // Elements that the mouse may drag; without it a drag moves the picture.
  std::function<bool(int element)> deplacable = [](int) { return false; };
  // What the tool tip of an element says.
  std::function<QString(int element)> infobulle = [](int) { return QString(); };

  // For a picture that is drawn anew at another scale: what the wheel does about a place of the page in place of the
  // zoom of the view, the drag in place of its move, and what the tool tip of a place says.
  std::function<void(double facteur, const QPointF& page)> surMolette;
  std::function<void(const QPointF& de, const QPointF& vers)> surGlissement;
  std::function<QString(const QPointF& page)> infobulleDeLaPlace;

 signals:
  // Left or right button on an element, or on none (-1).
  void Clique(int element, Qt::MouseButton bouton);
  // The same, by the place of the page.
  void Presse(const QPointF& page, Qt::MouseButton bouton);
  // An element was dragged that far, in points.
  void Deplace(int element, const QPointF& points);

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void resizeEvent(QResizeEvent* evenement) override;
  void wheelEvent(QWheelEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  bool viewportEvent(QEvent* evenement) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void Grossir(double facteur, const QPointF& ancre);
  void Pousser(const QPointF& sens, QKeyEvent* evenement);
  void FixerEchelle(double echelle, const QPointF& ancre);
  void ReglerBarres();
  QPointF Origine() const;
  int ElementA(const QPointF& place) const;

  Dessin dessin_{1, 1};
  double echelle_ = 1;
  bool ajuste_ = true;
  std::optional<QPointF> dernier_;  // where the drag stands
  int saisi_ = -1;                  // element that is dragged
};

}  // namespace quelvar::forms
