#include "forms/images/rendudessin.h"

#include <QBuffer>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QPageSize>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPrinter>
#include <QStaticText>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/dessin/svg.h"
#include "forms/qt/imprimante.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

constexpr int kCorpsDeReference = 48;    // glyphs are made at this size and scaled, so that fractions of a point count
constexpr double kPixelsMaximum = 60e6;  // 240 megabytes in memory
constexpr std::size_t kSegmentsLisses = 4000;  // more are drawn without smoothing on the screen

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

QPolygonF Sommets(const Dessin& dessin, const FormeDessinee& forme) {
  QPolygonF sommets;
  for (std::size_t rang = 0; rang < forme.nombre; ++rang) {
    const Position p = dessin.SurPage(forme, rang);
    sommets << QPointF(p.x, p.y);
  }
  return sommets;
}

// The font of a text at the size of reference. It is made once for each look: to find the fonts of a family takes
// longer than to write a label.
const QFont& FonteDe(const Police& police) {
  static const auto faire = [](bool gras, bool italique) {
    QFont fonte;
    fonte.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("Helvetica")});
    fonte.setStyleHint(QFont::SansSerif);
    fonte.setPixelSize(kCorpsDeReference);
    fonte.setBold(gras);
    fonte.setItalic(italique);
    fonte.setHintingPreference(QFont::PreferNoHinting);
    return fonte;
  };
  static const auto& fontes =
      *new std::array{faire(false, false), faire(true, false), faire(false, true), faire(true, true)};
  return fontes[(police.gras ? 1U : 0U) + (police.italique ? 2U : 0U)];
}

// Labels with their glyphs laid out, kept from one picture to the next: a plane is drawn anew at each turn of the
// wheel.
const QStaticText& TexteDispose(const FormeDessinee& forme, const QFont& fonte) {
  constexpr qsizetype gardes = 20000;                         // the labels of a plane of individuals
  static auto& textes = *new QHash<QByteArray, QStaticText>;  // never freed: the fonts are gone before statics are
  QByteArray cle(forme.texte.data(), static_cast<qsizetype>(forme.texte.size()));
  cle.append(forme.police.gras ? 'g' : '-').append(forme.police.italique ? 'i' : '-');
  const auto trouve = textes.constFind(cle);
  if (trouve != textes.constEnd()) return *trouve;
  if (textes.size() >= gardes) textes.clear();
  QStaticText texte(VersQt(forme.texte));
  texte.setTextFormat(Qt::PlainText);
  texte.setPerformanceHint(QStaticText::AggressiveCaching);
  texte.prepare({}, fonte);
  return *textes.insert(cle, texte);
}

void PeindreTexte(QPainter& peintre, const Dessin& dessin, const FormeDessinee& forme) {
  const Police& police = forme.police;
  const QFont& fonte = FonteDe(police);
  const QStaticText& texte = TexteDispose(forme, fonte);
  const double largeur = texte.size().width();
  const double retrait = police.ancre == Ancre::Debut ? 0 : police.ancre == Ancre::Milieu ? largeur / 2 : largeur;
  const Position place = dessin.SurPage(forme);
  const QTransform avant = peintre.transform();
  peintre.translate(place.x, place.y + DescenteDeLaBase(police));
  peintre.scale(police.corps / kCorpsDeReference, police.corps / kCorpsDeReference);
  peintre.setFont(fonte);
  peintre.setPen(TonDe(police.couleur, 1));
  if (police.halo > 0) {
    QPainterPath lettres;
    lettres.addText(QPointF(-retrait, 0), fonte, texte.text());
    const double largeurDuHalo = 2 * police.halo * kCorpsDeReference / police.corps;
    peintre.strokePath(lettres, QPen(Qt::white, largeurDuHalo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  peintre.drawStaticText(QPointF(-retrait, -QFontMetricsF(fonte).ascent()), texte);
  peintre.setTransform(avant);
}

void PeindreForme(QPainter& peintre, const Dessin& dessin, const FormeDessinee& forme) {
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

// Paints the marks one after the other. Segments of one pen that follow one another go to the painter together.
class Peinture {
 public:
  Peinture(QPainter& peintre, const Dessin& dessin) : peintre_(peintre), dessin_(dessin) {}
  ~Peinture() {
    Vider();
    Couper({});
  }
  Peinture(const Peinture&) = delete;
  Peinture& operator=(const Peinture&) = delete;

  void Ajouter(const FormeDessinee& forme) {
    const bool segment = forme.genre == GenreForme::Ligne && forme.nombre == 2;
    if (!segment || !(forme.plume == plume_)) Vider();
    Couper(dessin_.Coupe(forme));
    if (!segment) {
      PeindreForme(peintre_, dessin_, forme);
      return;
    }
    plume_ = forme.plume;
    const Position a = dessin_.SurPage(forme, 0);
    const Position b = dessin_.SurPage(forme, 1);
    segments_.emplace_back(a.x, a.y, b.x, b.y);
  }

 private:
  void Vider() {
    if (segments_.empty()) return;
    // On the screen that many lines are a texture: their edges take most of the time and are not seen.
    const bool lisses = peintre_.testRenderHint(QPainter::Antialiasing);
    const bool brutes = segments_.size() > kSegmentsLisses && peintre_.device()->devType() == QInternal::Widget;
    peintre_.setRenderHint(QPainter::Antialiasing, lisses && !brutes);
    peintre_.setPen(PlumeQt(plume_));
    peintre_.drawLines(segments_.data(), static_cast<int>(segments_.size()));
    peintre_.setRenderHint(QPainter::Antialiasing, lisses);
    segments_.clear();
  }
  void Couper(const std::optional<Zone>& voulue) {
    if ((voulue ? &*voulue : nullptr) == coupe_) return;
    Vider();
    if (coupe_ != nullptr) peintre_.restore();
    coupe_ = voulue ? &*voulue : nullptr;
    if (coupe_ == nullptr) return;
    peintre_.save();
    peintre_.setClipRect(QRectF(coupe_->x, coupe_->y, coupe_->largeur, coupe_->hauteur), Qt::IntersectClip);
  }

  QPainter& peintre_;
  const Dessin& dessin_;
  const Zone* coupe_ = nullptr;
  Plume plume_;
  std::vector<QLineF> segments_;
};

Zone PageDe(const Dessin& dessin) { return {0, 0, dessin.Largeur(), dessin.Hauteur()}; }

QImage ImageDe(const Dessin& dessin, int resolution) {
  constexpr double metresParPouce = 0.0254;
  // A page beyond what a memory holds is drawn coarser.
  const double voulue = resolution / kPointsParPouce;
  const double echelle = std::min(voulue, std::sqrt(kPixelsMaximum / (dessin.Largeur() * dessin.Hauteur())));
  QImage image(std::max(1, static_cast<int>(dessin.Largeur() * echelle)),
               std::max(1, static_cast<int>(dessin.Hauteur() * echelle)), QImage::Format_RGB32);
  if (image.isNull()) throw Erreur(kMemoireInsuffisante);
  image.fill(Qt::white);
  image.setDotsPerMeterX(static_cast<int>(echelle * kPointsParPouce / metresParPouce));
  image.setDotsPerMeterY(image.dotsPerMeterX());
  QPainter peintre(&image);
  peintre.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  peintre.scale(echelle, echelle);
  PeindreDessin(peintre, dessin, PageDe(dessin));
  return image;
}

// Whether the picture has got onto the paper, as large as `echelle` makes it.
bool PeindreSur(QPaintDevice& papier, const Dessin& dessin, double echelle) {
  QPainter peintre;
  if (!peintre.begin(&papier)) return false;
  peintre.scale(echelle, echelle);
  PeindreDessin(peintre, dessin, PageDe(dessin));
  return peintre.end();
}

bool EcrirePdf(QIODevice& sortie, const Dessin& dessin) {
  QPdfWriter pdf(&sortie);
  pdf.setPageSize(
      QPageSize(QSizeF(dessin.Largeur(), dessin.Hauteur()), QPageSize::Point, QString(), QPageSize::ExactMatch));
  pdf.setPageMargins(QMarginsF());
  pdf.setResolution(kResolutionLaPlusHaute);
  return PeindreSur(pdf, dessin, kResolutionLaPlusHaute / kPointsParPouce);
}

}  // namespace

void PeindreDessin(QPainter& peintre, const Dessin& dessin, const Zone& zone) {
  Peinture peinture(peintre, dessin);
  for (const FormeDessinee& forme : dessin.Formes()) {
    // A text may be a little wider in the font at hand than in the metrics of the picture.
    constexpr double marge = 12;
    Zone etendue = dessin.Etendue(forme);
    etendue = {etendue.x - marge, etendue.y - marge, etendue.largeur + 2 * marge, etendue.hauteur + 2 * marge};
    if (etendue.Touche(zone)) peinture.Ajouter(forme);
  }
}

std::string OctetsDuDessin(const Chemin& fichier, const Dessin& dessin, int resolution) {
  const QString genre = QFileInfo(CheminVersQt(fichier)).suffix().toLower();
  if (genre == QStringLiteral("svg")) return TexteSvg(dessin);
  QBuffer octets;
  octets.open(QIODevice::WriteOnly);
  bool fait = false;
  if (genre == QStringLiteral("pdf")) {
    fait = EcrirePdf(octets, dessin);
  } else if (genre == QStringLiteral("png") || genre == QStringLiteral("bmp")) {
    fait = ImageDe(dessin, resolution).save(&octets, genre.toLatin1().constData());
  } else {
    throw Erreur(kNomFichierIncorrect, "une image est un fichier .png, .svg, .pdf ou .bmp");
  }
  if (!fait) throw Erreur(kMemoireInsuffisante);
  return octets.data().toStdString();
}

bool DemanderImpressionDuDessin(QWidget* parent, const Dessin& dessin) {
  QPrinter imprimante(QPrinter::HighResolution);
  imprimante.setPageOrientation(dessin.Largeur() > dessin.Hauteur() ? QPageLayout::Landscape : QPageLayout::Portrait);
  if (!DemanderImprimante(parent, imprimante, ChoixDePages::Aucun)) return false;
  const QRectF page = imprimante.pageRect(QPrinter::DevicePixel);
  return PeindreSur(imprimante, dessin, std::min(page.width() / dessin.Largeur(), page.height() / dessin.Hauteur()));
}

}  // namespace quelvar::forms
