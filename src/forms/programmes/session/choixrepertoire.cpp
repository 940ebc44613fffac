#include "forms/programmes/session/choixrepertoire.h"

#include <QDir>
#include <QIcon>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QStyle>
#include <QVBoxLayout>

#include "forms/pieces/clavier.h"

namespace quelvar::forms {

namespace {

constexpr int kRetrait = 2;  // blanks a step down the branch

bool EstVolumeDUtilisateur(const QStorageInfo& volume) {
  const QString racine = volume.rootPath();
  if (!volume.isValid() || !volume.isReady()) return false;
  if (racine == QStringLiteral("/")) return true;
  for (const char* systeme : {"/proc", "/sys", "/dev", "/boot", "/snap", "/etc", "/var", "/tmp", "/usr"})
    if (racine.startsWith(QLatin1String(systeme))) return false;
  return !racine.startsWith(QStringLiteral("/run")) || racine.startsWith(QStringLiteral("/run/media"));
}

}  // namespace

ChoixRepertoire::ChoixRepertoire(QWidget* parent)
    : QWidget(parent), lieux_(new QComboBox(this)), branche_(new QListWidget(this)) {
  lieux_->setObjectName(QStringLiteral("Drive1"));
  lieux_->setToolTip(QStringLiteral("Lieu"));
  branche_->setObjectName(QStringLiteral("Dir1"));
  branche_->setToolTip(QStringLiteral("Double-cliquez sur un répertoire pour l'ouvrir"));
  auto* disposition = new QVBoxLayout(this);
  disposition->setContentsMargins(0, 0, 0, 0);
  disposition->addWidget(lieux_);
  disposition->addWidget(branche_);
  setFocusPolicy(Qt::StrongFocus);  // a label may lead here by its letter
  setFocusProxy(branche_);
  RemplirLieux();
  connect(lieux_, &QComboBox::activated, this, [this](int rang) {
    Aller(lieux_->itemData(rang).toString());
    lieux_->setCurrentIndex(-1);
  });
  const auto ouvrir = [this] {
    Aller(Designe());
    emit Ouvert(courant_);
  };
  connect(branche_, &QListWidget::itemDoubleClicked, this, ouvrir);
  RelierEntree(*branche_, ouvrir);
}

void ChoixRepertoire::RemplirLieux() {
  const QIcon dossier = style()->standardIcon(QStyle::SP_DirHomeIcon);
  const QString personnel = QDir::homePath();
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  lieux_->addItem(dossier, QStringLiteral("Dossier personnel"), personnel);
  if (documents != personnel && QDir(documents).exists())
    lieux_->addItem(style()->standardIcon(QStyle::SP_DirIcon), QStringLiteral("Documents"), documents);
  const QIcon disque = style()->standardIcon(QStyle::SP_DriveHDIcon);
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (EstVolumeDUtilisateur(volume)) lieux_->addItem(disque, volume.displayName(), volume.rootPath());
  lieux_->setPlaceholderText(QStringLiteral("Aller à..."));
  lieux_->setCurrentIndex(-1);
}

void ChoixRepertoire::Aller(const QString& repertoire) {
  QDir visee(repertoire);
  while (!visee.exists() && !visee.isRoot()) visee.setPath(QFileInfo(visee.absolutePath()).path());
  courant_ = visee.absolutePath();
  RemplirBranche();
}

QString ChoixRepertoire::Designe() const {
  const QListWidgetItem* ligne = branche_->currentItem();
  return ligne == nullptr ? courant_ : ligne->data(Qt::UserRole).toString();
}

void ChoixRepertoire::RemplirBranche() {
  branche_->clear();
  const QIcon ouvert = style()->standardIcon(QStyle::SP_DirOpenIcon);
  const QIcon ferme = style()->standardIcon(QStyle::SP_DirClosedIcon);
  const auto ajouter = [&](const QIcon& icone, const QString& nom, const QString& chemin, int profondeur) {
    auto* ligne = new QListWidgetItem(icone, QString(profondeur * kRetrait, u' ') + nom, branche_);
    ligne->setData(Qt::UserRole, chemin);
    return ligne;
  };
  QStringList ancetres;
  for (QDir dossier(courant_);; dossier.cdUp()) {
    ancetres.prepend(dossier.absolutePath());
    if (dossier.isRoot()) break;
  }
  int profondeur = 0;
  QListWidgetItem* courante = nullptr;
  for (const QString& chemin : ancetres) {
    const QString nom = QFileInfo(chemin).fileName();
    courante = ajouter(ouvert, nom.isEmpty() ? chemin : nom, chemin, profondeur++);
  }
  const QDir dossier(courant_);
  for (const QFileInfo& enfant :
       dossier.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase | QDir::LocaleAware))
    ajouter(ferme, enfant.fileName(), enfant.absoluteFilePath(), profondeur);
  branche_->setCurrentItem(courante);
  branche_->scrollToItem(courante);
}

}  // namespace quelvar::forms
