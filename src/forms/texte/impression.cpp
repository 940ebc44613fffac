#include "forms/texte/impression.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>

#include "forms/qt/imprimante.h"
#include "forms/qt/policefixe.h"

namespace quelvar::forms {

namespace {

constexpr QMarginsF kMarges(15, 15, 15, 15);  // millimetres: a paper that is filed keeps its text
constexpr int kLignesDeTete = 2;              // the title and a blank line

// Places on the page of a device, in its units.
struct Page {
  QSizeF surface;
  qreal hauteur;  // of a line
  int colonnes;
  int lignes;  // of text, under the head
};

Page MesurerPage(QPagedPaintDevice& papier, const QFont& police) {
  const QFontMetricsF mesures(police, &papier);
  const QSizeF surface(papier.width(), papier.height());
  return {surface, mesures.lineSpacing(), std::max(1, static_cast<int>(surface.width() / LargeurDeColonne(mesures))),
          std::max(1, static_cast<int>(surface.height() / mesures.lineSpacing()) - kLignesDeTete)};
}

}  // namespace

QList<QStringList> MettreEnPages(const QString& texte, int colonnes, int lignes) {
  QList<QStringList> pages(1);
  const auto ajouter = [&](const QString& ligne) {
    if (pages.last().size() == lignes) pages.append(QStringList());
    pages.last().append(ligne);
  };
  QString net = texte;
  net.remove(u'\r');
  if (net.endsWith(u'\n')) net.chop(1);
  const QStringList feuillets = net.split(u'\f');
  for (qsizetype i = 0; i < feuillets.size(); ++i) {
    if (i > 0) pages.append(QStringList());
    for (const QString& ligne : feuillets[i].split(u'\n')) {
      ajouter(ligne.left(colonnes));
      for (qsizetype suite = colonnes; suite < ligne.size(); suite += colonnes) ajouter(ligne.mid(suite, colonnes));
    }
  }
  return pages;
}

int MettreSurPapier(QPagedPaintDevice& papier, const QString& texte, const QString& titre, int premiere, int derniere) {
  const QFont police = PoliceDesTextes();
  const Page page = MesurerPage(papier, police);
  const QList<QStringList> pages = MettreEnPages(texte, page.colonnes, page.lignes);
  const int nombre = static_cast<int>(pages.size());
  const int de = std::clamp(premiere, 1, nombre);
  const int a = derniere == 0 ? nombre : std::clamp(derniere, de, nombre);

  QPainter pinceau(&papier);
  for (int numero = de; numero <= a; ++numero) {
    if (numero > de) papier.newPage();
    pinceau.setFont(police);
    const QRectF tete(0, 0, page.surface.width(), page.hauteur);
    pinceau.drawText(tete, Qt::AlignLeft | Qt::TextSingleLine, titre);
    pinceau.drawText(tete, Qt::AlignRight, QStringLiteral("%1 / %2").arg(numero).arg(nombre));
    qreal y = kLignesDeTete * page.hauteur;
    for (const QString& ligne : pages[numero - 1]) {
      // Twice the width: a line that fills the page to its last column is not cut by a rounding.
      pinceau.drawText(QRectF(0, y, 2 * page.surface.width(), page.hauteur), Qt::AlignLeft | Qt::TextExpandTabs, ligne);
      y += page.hauteur;
    }
  }
  return nombre;
}

bool DemanderImpressionDuTexte(QWidget* parent, const QString& texte, const QString& titre) {
  QPrinter imprimante;
  imprimante.setDocName(titre);
  imprimante.setPageMargins(kMarges, QPageLayout::Millimeter);
  if (!DemanderImprimante(parent, imprimante, ChoixDePages::Permis)) return false;
  MettreSurPapier(imprimante, texte, titre, imprimante.fromPage(), imprimante.toPage());
  return true;
}

std::string PdfDuTexte(const QString& texte, const QString& titre) {
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  {
    QPdfWriter papier(&pdf);
    papier.setTitle(titre);
    papier.setCreator(QStringLiteral("Quelvar"));
    papier.setPageSize(QPageSize(QPageSize::A4));
    papier.setPageMargins(kMarges, QPageLayout::Millimeter);
    const auto lignes = QStringView(texte).split(u'\n');
    const int colonnes = MesurerPage(papier, PoliceDesTextes()).colonnes;
    const auto deborde = [&](QStringView ligne) {
      while (ligne.endsWith(u' ') || ligne.endsWith(u'\r')) ligne.chop(1);
      return ligne.size() > colonnes;
    };
    if (std::any_of(lignes.begin(), lignes.end(), deborde)) papier.setPageOrientation(QPageLayout::Landscape);
    MettreSurPapier(papier, texte, titre);
  }
  return pdf.data().toStdString();
}

}  // namespace quelvar::forms
