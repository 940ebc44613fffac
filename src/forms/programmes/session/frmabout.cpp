#include "forms/programmes/session/frmabout.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStorageInfo>
#include <QSysInfo>
#include <QThread>

#include "core/programme/version.h"
#include "forms/qt/texte.h"
#include "ui_frmabout.h"

namespace quelvar::forms {

namespace {

constexpr double kCorpsDuTitre = 1.6;  // times that of the form
constexpr int kCoteDeLIcone = 64;      // pixels, the room of picIcon

QString InformationsSysteme(const QWidget& fenetre) {
  const QScreen* ecran = fenetre.screen();
  const QStorageInfo disque(QStringLiteral("."));
  constexpr qint64 mebioctet = 1 << 20;
  return QStringLiteral(
             "Système : %1\nNoyau : %2 %3\nProcesseur : %4, %5 unités\nBibliothèque Qt : %6\n"
             "Écran : %7 x %8 points, échelle %9\n")
             .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                  QSysInfo::currentCpuArchitecture())
             .arg(QThread::idealThreadCount())
             .arg(QString::fromLatin1(qVersion()))
             .arg(ecran->size().width())
             .arg(ecran->size().height())
             .arg(ecran->devicePixelRatio()) +
         QStringLiteral("Espace libre du répertoire en cours : %1 Mio").arg(disque.bytesAvailable() / mebioctet);
}

}  // namespace

FrmAbout::FrmAbout(Services& services) : Forme(services), ui_(std::make_unique<Ui::frmAbout>()) {
  ui_->setupUi(this);
  ui_->lblVersion->setText(QStringLiteral("Version ") + VersQt(kVersion));
  QFont titre = font();
  titre.setPointSizeF(titre.pointSizeF() * kCorpsDuTitre);
  titre.setBold(true);
  ui_->lblTitle->setFont(titre);
  ui_->picIcon->setPixmap(QGuiApplication::windowIcon().pixmap(kCoteDeLIcone));
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, [this] {
    ui_->lblInfos->setPlainText(InformationsSysteme(*this));
    ui_->lblInfos->show();
    ui_->cmdSysInfo->setEnabled(false);
  });
  connect(ui_->cmdOK, &QPushButton::clicked, this, &FrmAbout::close);
  ui_->cmdOK->setFocus();
}

FrmAbout::~FrmAbout() = default;

void OuvrirAPropos(Services& services) { Montrer<FrmAbout>(services); }

}  // namespace quelvar::forms
