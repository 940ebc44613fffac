#include "forms/images/vuedessin.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "forms/images/rendudessin.h"

namespace quelvar::forms {

namespace {

// Pixels for a point.
constexpr double kEchelleMinimum = 0.1;  // a page is the size of a stamp
constexpr double kEchelleMaximum = 40;   // a few letters fill the view
constexpr double kEchelleLisible = 0.8;  // below it the labels of a page cannot be read

constexpr double kPasDeZoom = 1.25;   // of a key, or of a notch of the wheel
constexpr double kTolerance = 3;      // pixels around an element
constexpr int kPasDeBarre = 20;       // steps of a scroll bar that make a view
constexpr double kPoussee = 0.1;      // share of the view that an arrow moves the picture by
constexpr double kPageEntamee = 0.5;  // pixels of the page that may lie behind the edge without a scroll bar

}  // namespace

VueDessin::VueDessin(QWidget* parent) : QAbstractScrollArea(parent) {
  viewport()->setBackgroundRole(QPalette::Mid);
  viewport()->setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

void VueDessin::Montrer(Dessin dessin) {
  dessin_ = std::move(dessin);
  if (ajuste_) Ajuster();
  else ReglerBarres();
  viewport()->update();
}

void VueDessin::Ajuster() {
  ajuste_ = true;
  const double largeur = maximumViewportSize().width() / dessin_.Largeur();
  const double hauteur = maximumViewportSize().height() / dessin_.Hauteur();
  const bool enLargeur = pageLongue && hauteur < std::min(largeur, kEchelleLisible);
  const double barre = enLargeur ? verticalScrollBar()->sizeHint().width() / dessin_.Largeur() : 0;
  echelle_ = std::clamp(enLargeur ? largeur - barre : std::min(largeur, hauteur), kEchelleMinimum, kEchelleMaximum);
  ReglerBarres();
  viewport()->update();
}

void VueDessin::Zoomer(double facteur) { FixerEchelle(echelle_ * facteur, QRectF(viewport()->rect()).center()); }

void VueDessin::Grossir(double facteur, const QPointF& ancre) {
  if (surMolette) surMolette(facteur, VersPage(ancre));
  else FixerEchelle(echelle_ * facteur, ancre);
}

// The point of the page under the anchor stays there.
void VueDessin::FixerEchelle(double echelle, const QPointF& ancre) {
  const QPointF page = VersPage(ancre);
  ajuste_ = false;
  echelle_ = std::clamp(echelle, kEchelleMinimum, kEchelleMaximum);
  ReglerBarres();
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(page.x() * echelle_ - ancre.x())));
  verticalScrollBar()->setValue(static_cast<int>(std::lround(page.y() * echelle_ - ancre.y())));
  viewport()->update();
}

void VueDessin::ReglerBarres() {
  const QSize vue = viewport()->size();
  const auto regler = [](QScrollBar* barre, double page, int visible) {
    barre->setPageStep(visible);
    barre->setSingleStep(std::max(1, visible / kPasDeBarre));
    barre->setRange(0, std::max(0, static_cast<int>(std::ceil(page - kPageEntamee)) - visible));
  };
  regler(horizontalScrollBar(), dessin_.Largeur() * echelle_, vue.width());
  regler(verticalScrollBar(), dessin_.Hauteur() * echelle_, vue.height());
}

// Corner of the page in the viewport: a page smaller than the view stands in its middle.
QPointF VueDessin::Origine() const {
  const double x = (viewport()->width() - dessin_.Largeur() * echelle_) / 2;
  const double y = (viewport()->height() - dessin_.Hauteur() * echelle_) / 2;
  return {x > 0 ? x : -horizontalScrollBar()->value(), y > 0 ? y : -verticalScrollBar()->value()};
}

QPointF VueDessin::VersPage(const QPointF& place) const { return (place - Origine()) / echelle_; }

QPointF VueDessin::VersVue(const QPointF& page) const { return page * echelle_ + Origine(); }

int VueDessin::ElementA(const QPointF& place) const {
  const QPointF page = VersPage(place);
  return dessin_.ElementSous({page.x(), page.y()}, kTolerance / echelle_).value_or(-1);
}

void VueDessin::paintEvent(QPaintEvent* evenement) {
  QPainter peintre(viewport());
  peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const QPointF coin = VersPage(evenement->rect().topLeft());
  const QPointF oppose = VersPage(evenement->rect().bottomRight() + QPoint(1, 1));
  peintre.translate(Origine());
  peintre.scale(echelle_, echelle_);
  const QRectF page(0, 0, dessin_.Largeur(), dessin_.Hauteur());
  peintre.fillRect(page, Qt::white);
  peintre.setClipRect(page, Qt::IntersectClip);
  PeindreDessin(peintre, dessin_, {coin.x(), coin.y(), oppose.x() - coin.x(), oppose.y() - coin.y()});
}

void VueDessin::resizeEvent(QResizeEvent* evenement) {
  QAbstractScrollArea::resizeEvent(evenement);
  if (ajuste_) Ajuster();
  else ReglerBarres();
}

void VueDessin::wheelEvent(QWheelEvent* evenement) {
  constexpr double unCran = QWheelEvent::DefaultDeltasPerStep;
  const double crans = evenement->angleDelta().y() / unCran;
  Grossir(std::pow(kPasDeZoom, crans), evenement->position());
  evenement->accept();
}

void VueDessin::keyPressEvent(QKeyEvent* evenement) {
  switch (evenement->key()) {
    case Qt::Key_Plus: return Grossir(kPasDeZoom, QRectF(viewport()->rect()).center());
    case Qt::Key_Minus: return Grossir(1 / kPasDeZoom, QRectF(viewport()->rect()).center());
    case Qt::Key_0: return Ajuster();
    case Qt::Key_Left: return Pousser({-1, 0}, evenement);
    case Qt::Key_Right: return Pousser({1, 0}, evenement);
    case Qt::Key_Up: return Pousser({0, -1}, evenement);
    case Qt::Key_Down: return Pousser({0, 1}, evenement);
    default: return QAbstractScrollArea::keyPressEvent(evenement);
  }
}

// An arrow does what a drag over a tenth of the view does, or moves the view.
void VueDessin::Pousser(const QPointF& sens, QKeyEvent* evenement) {
  if (!surGlissement) return QAbstractScrollArea::keyPressEvent(evenement);
  const QPointF milieu = QRectF(viewport()->rect()).center();
  surGlissement(VersPage(milieu), VersPage(milieu + kPoussee * QPointF(sens.x() * width(), sens.y() * height())));
}

void VueDessin::mousePressEvent(QMouseEvent* evenement) {
  const int element = ElementA(evenement->position());
  if (evenement->button() == Qt::LeftButton) {
    dernier_ = evenement->position();
    saisi_ = element >= 0 && deplacable(element) ? element : -1;
  }
  emit Clique(element, evenement->button());
  emit Presse(VersPage(evenement->position()), evenement->button());
}

void VueDessin::mouseMoveEvent(QMouseEvent* evenement) {
  if (!dernier_ || (evenement->buttons() & Qt::LeftButton) == 0) return;
  const QPointF pas = evenement->position() - *dernier_;
  const QPointF avant = *dernier_;
  dernier_ = evenement->position();
  if (surGlissement) {
    surGlissement(VersPage(avant), VersPage(*dernier_));
    return;
  }
  if (saisi_ >= 0) {
    emit Deplace(saisi_, pas / echelle_);
    return;
  }
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(horizontalScrollBar()->value() - pas.x())));
  verticalScrollBar()->setValue(static_cast<int>(std::lround(verticalScrollBar()->value() - pas.y())));
}

void VueDessin::mouseReleaseEvent(QMouseEvent*) {
  dernier_.reset();
  saisi_ = -1;
}

bool VueDessin::viewportEvent(QEvent* evenement) {
  if (evenement->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(evenement);
  const auto* aide = static_cast<QHelpEvent*>(evenement);
  if (infobulleDeLaPlace) {
    QToolTip::showText(aide->globalPos(), infobulleDeLaPlace(VersPage(aide->pos())), viewport());
    return true;
  }
  const int element = ElementA(aide->pos());
  QToolTip::showText(aide->globalPos(), element < 0 ? QString() : infobulle(element), viewport());
  return true;
}

void VueDessin::scrollContentsBy(int dx, int dy) { viewport()->scroll(dx, dy); }

}  // namespace quelvar::forms
