#include "forms/rendudessin.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

#include "core/dessin_svg.h"
#include "forms/texte_qt.h"

namespace quelvar {

namespace {

constexpr double kPointsParPouce = 72;
constexpr int kCorpsDeReference = 48;  // glyphs are made at this size and scaled, so that fractions of a point count
constexpr double kPixelsMaximum = 60e6;

QColor TonDe(Couleur couleur, double teinte) {
  const Rvb rvb = RvbDe(couleur, teinte);
  return {rvb.rouge, rvb.vert, rvb.bleu};
}

QPen PlumeQt(const Plume& plume) {
  if (plume.epaisseur <= 0) return Qt::NoPen;
  QPen stylo(TonDe(plume.couleur, plume.teinte), plume.epaisseur, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  if (plume.style == StyleTrait::Tirets) stylo.setDashPattern({4 / plume.epaisseur, 2 / plume.epaisseur});
  if (plume.style == StyleTrait::Pointilles) stylo.setDashPattern({1 / plume.epaisseur, 2 / plume.epaisseur});
  return stylo;
}

QBrush FondQt(const Fond& fond) { return fond.teinte > 0 ? QBrush(TonDe(fond.couleur, fond.teinte)) : Qt::NoBrush; }

QPolygonF Sommets(const Dessin& dessin, const Forme& forme) {
  QPolygonF sommets;
  for (std::size_t rang = 0; rang < forme.nombre; ++rang) {
    const Position p = dessin.SurPage(forme, rang);
    sommets << QPointF(p.x, p.y);
  }
  return sommets;
}

void PeindreTexte(QPainter& peintre, const Dessin& dessin, const Forme& forme) {
  const Police& police = forme.police;
  QFont fonte;
  fonte.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("Helvetica")});
  fonte.setStyleHint(QFont::SansSerif);
  fonte.setPixelSize(kCorpsDeReference);
  fonte.setBold(police.gras);
  fonte.setItalic(police.italique);
  fonte.setHintingPreference(QFont::PreferNoHinting);
  const QString texte = VersQt(forme.texte);
  const double largeur = police.ancre == Ancre::Debut ? 0 : QFontMetricsF(fonte).horizontalAdvance(texte);
  const Position place = dessin.SurPage(forme);
  peintre.save();
  peintre.translate(place.x, place.y + DescenteDeLaBase(police));
  peintre.scale(police.corps / kCorpsDeReference, police.corps / kCorpsDeReference);
  peintre.setFont(fonte);
  peintre.setPen(TonDe(police.couleur, 1));
  peintre.drawText(QPointF(police.ancre == Ancre::Milieu ? -largeur / 2 : -largeur, 0), texte);
  peintre.restore();
}

void PeindreForme(QPainter& peintre, const Dessin& dessin, const Forme& forme) {
  if (forme.genre == GenreForme::Texte) {
    PeindreTexte(peintre, dessin, forme);
    return;
  }
  peintre.setPen(PlumeQt(forme.plume));
  peintre.setBrush(forme.genre == GenreForme::Ligne ? QBrush(Qt::NoBrush) : FondQt(forme.fond));
  if (forme.genre == GenreForme::Cercle) {
    const Position centre = dessin.SurPage(forme);
    peintre.drawEllipse(QPointF(centre.x, centre.y), forme.rayon, forme.rayon);
  } else if (forme.genre == GenreForme::Polygone) {
    peintre.drawPolygon(Sommets(dessin, forme));
  } else {
    peintre.drawPolyline(Sommets(dessin, forme));
  }
}

Zone PageDe(const Dessin& dessin) { return {0, 0, dessin.Largeur(), dessin.Hauteur()}; }

QImage ImageDe(const Dessin& dessin, int resolution) {
  // A page beyond what a memory holds is drawn coarser.
  const double voulue = resolution / kPointsParPouce;
  const double echelle = std::min(voulue, std::sqrt(kPixelsMaximum / (dessin.Largeur() * dessin.Hauteur())));
  QImage image(std::max(1, static_cast<int>(dessin.Largeur() * echelle)),
               std::max(1, static_cast<int>(dessin.Hauteur() * echelle)), QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(static_cast<int>(echelle * kPointsParPouce / 0.0254));
  image.setDotsPerMeterY(image.dotsPerMeterX());
  QPainter peintre(&image);
  peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  peintre.scale(echelle, echelle);
  PeindreDessin(peintre, dessin, PageDe(dessin));
  return image;
}

bool EcrirePdfDessin(QIODevice& sortie, const Dessin& dessin) {
  QPdfWriter pdf(&sortie);
  pdf.setPageSize(
      QPageSize(QSizeF(dessin.Largeur(), dessin.Hauteur()), QPageSize::Point, QString(), QPageSize::ExactMatch));
  pdf.setPageMargins(QMarginsF());
  pdf.setResolution(1200);
  QPainter peintre;
  if (!peintre.begin(&pdf)) return false;
  peintre.scale(1200 / kPointsParPouce, 1200 / kPointsParPouce);
  PeindreDessin(peintre, dessin, PageDe(dessin));
  return peintre.end();
}

}  // namespace

void PeindreDessin(QPainter& peintre, const Dessin& dessin, const Zone& zone) {
  const Zone* coupe = nullptr;
  const auto couper = [&](const std::optional<Zone>& voulue) {
    if ((voulue ? &*voulue : nullptr) == coupe) return;
    if (coupe != nullptr) peintre.restore();
    coupe = voulue ? &*voulue : nullptr;
    if (coupe == nullptr) return;
    peintre.save();
    peintre.setClipRect(QRectF(coupe->x, coupe->y, coupe->largeur, coupe->hauteur), Qt::IntersectClip);
  };
  for (const Forme& forme : dessin.Formes()) {
    if (!dessin.Visible(forme)) continue;
    // A text may be a little wider in the font at hand than in the metrics of the picture.
    constexpr double marge = 12;
    Zone etendue = dessin.Etendue(forme);
    etendue = {etendue.x - marge, etendue.y - marge, etendue.largeur + 2 * marge, etendue.hauteur + 2 * marge};
    if (!etendue.Touche(zone)) continue;
    couper(dessin.Coupe(forme));
    PeindreForme(peintre, dessin, forme);
  }
  couper({});
}

bool EnregistrerDessin(const QString& fichier, const Dessin& dessin, int resolution) {
  QSaveFile sortie(fichier);
  if (!sortie.open(QIODevice::WriteOnly)) return false;
  const QString genre = QFileInfo(fichier).suffix().toLower();
  bool ecrit = false;
  if (genre == QStringLiteral("svg")) {
    const std::string svg = TexteSvg(dessin);
    ecrit = sortie.write(svg.data(), static_cast<qint64>(svg.size())) == static_cast<qint64>(svg.size());
  } else if (genre == QStringLiteral("pdf")) {
    QBuffer tampon;
    tampon.open(QIODevice::WriteOnly);
    ecrit = EcrirePdfDessin(tampon, dessin) && sortie.write(tampon.data()) == tampon.data().size();
  } else if (genre == QStringLiteral("png") || genre == QStringLiteral("bmp")) {
    ecrit = ImageDe(dessin, resolution).save(&sortie, genre.toLatin1().constData());
  }
  if (!ecrit) sortie.cancelWriting();
  return sortie.commit() && ecrit;
}

bool ImprimerDessin(QWidget* parent, const Dessin& dessin) {
  QPrinter imprimante(QPrinter::HighResolution);
  imprimante.setPageOrientation(dessin.Largeur() > dessin.Hauteur() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPrintDialog dialogue(&imprimante, parent);
  if (dialogue.exec() != QDialog::Accepted || !imprimante.isValid()) return false;
  QPainter peintre;
  if (!peintre.begin(&imprimante)) return false;
  const QRectF page = imprimante.pageRect(QPrinter::DevicePixel);
  const double echelle = std::min(page.width() / dessin.Largeur(), page.height() / dessin.Hauteur());
  peintre.scale(echelle, echelle);
  PeindreDessin(peintre, dessin, PageDe(dessin));
  return peintre.end();
}

}  // namespace quelvar
