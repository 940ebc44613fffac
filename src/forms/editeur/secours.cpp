#include "forms/editeur/secours.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>
#include <utility>

namespace quelvar::forms {

namespace {

constexpr const char* kCopie = ".secours";
constexpr const char* kVerrou = ".verrou";
constexpr const char* kMarque = "Quelvar secours 1\n";

// The four facts of a form, a letter each.
QByteArray EcrireForme(const FormeTexte& forme) {
  QByteArray lettres;
  lettres += forme.encodage == EncodageDuTexte::Utf8 ? 'U' : 'P';
  lettres += forme.marqueUtf8 ? 'M' : '-';
  lettres += forme.fins == FinsDeLigne::Lf ? 'L' : 'C';
  lettres += forme.finsMelangees ? 'X' : '-';
  lettres += forme.finale1A ? 'Z' : '-';
  return lettres;
}

FormeTexte LireForme(const QByteArray& lettres) {
  return {lettres.contains('U') ? EncodageDuTexte::Utf8 : EncodageDuTexte::PageDeCode, lettres.contains('M'),
          lettres.contains('L') ? FinsDeLigne::Lf : FinsDeLigne::CrLf, lettres.contains('X'), lettres.contains('Z')};
}

}  // namespace

QString DossierDeSecours() {
  const QString etat = qEnvironmentVariable("XDG_STATE_HOME");
  const QString racine = QDir::isAbsolutePath(etat) ? etat : QDir::homePath() + QStringLiteral("/.local/state");
  return racine + QStringLiteral("/quelvar/editeur");
}

Secours::Secours(QString dossier) : Secours(std::move(dossier), QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

Secours::~Secours() { Relacher(); }

QString Secours::Chemin(const char* extension) const { return dossier_ + u'/' + nom_ + QString::fromLatin1(extension); }

// The lock falls with the process, however it ends.
bool Secours::Tenir() {
  if (verrou_ >= 0) return true;
  const int verrou =
      ::open(QFile::encodeName(Chemin(kVerrou)).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (verrou < 0) return false;
  if (::flock(verrou, LOCK_EX | LOCK_NB) != 0) {
    ::close(verrou);
    return false;
  }
  verrou_ = verrou;
  return true;
}

void Secours::Relacher() {
  if (verrou_ < 0) return;
  if (!QFileInfo::exists(Chemin(kCopie))) QFile::remove(Chemin(kVerrou));
  ::close(std::exchange(verrou_, -1));
}

bool Secours::Ecrire(const TexteDeSecours& texte) {
  constexpr QFileDevice::Permissions moiSeul = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
  if (dossier_.isEmpty() || !QDir().mkpath(dossier_)) return false;
  QFile::setPermissions(dossier_, moiSeul | QFileDevice::ExeOwner);
  if (!Tenir()) return false;
  QSaveFile copie(Chemin(kCopie));
  if (!copie.open(QIODevice::WriteOnly)) return false;
  copie.setPermissions(moiSeul);
  copie.write(kMarque);
  copie.write(texte.fichier.toUtf8().toPercentEncoding("/") + '\n');
  copie.write(EcrireForme(texte.forme) + '\n');
  copie.write(texte.texte.toUtf8());
  return copie.commit();
}

void Secours::Effacer() {
  if (verrou_ < 0) return;
  QFile::remove(Chemin(kCopie));
  Relacher();
}

std::optional<TexteDeSecours> Secours::Lire() const {
  QFile copie(Chemin(kCopie));
  if (!copie.open(QIODevice::ReadOnly) || copie.readLine() != kMarque) return std::nullopt;
  TexteDeSecours texte;
  texte.fichier = QString::fromUtf8(QByteArray::fromPercentEncoding(copie.readLine().trimmed()));
  texte.forme = LireForme(copie.readLine().trimmed());
  texte.texte = QString::fromUtf8(copie.readAll());
  return texte;
}

QDateTime Secours::Instant() const { return QFileInfo(Chemin(kCopie)).lastModified(); }

std::vector<std::unique_ptr<Secours>> Secours::Abandonnes(const QString& dossier) {
  std::vector<std::unique_ptr<Secours>> abandonnes;
  if (dossier.isEmpty()) return abandonnes;
  for (const QFileInfo& copie :
       QDir(dossier).entryInfoList({QString(u'*') + QString::fromLatin1(kCopie)}, QDir::Files, QDir::Time)) {
    std::unique_ptr<Secours> secours(new Secours(dossier, copie.completeBaseName()));
    if (secours->Tenir()) abandonnes.push_back(std::move(secours));
  }
  return abandonnes;
}

}  // namespace quelvar::forms
