#include "forms/programmes/capture/import/attente/avancement.h"

#include <QCoreApplication>
#include <limits>

namespace quelvar::forms {

namespace {
constexpr qint64 kPatience = 500;  // milliseconds before the box comes
constexpr qint64 kPas = 40;        // milliseconds between two paintings
}  // namespace

Avancement::Avancement(QWidget* parent, const QString& titre)
    : boite_(QString(), QStringLiteral("&Annuler"), 0, 100, parent) {
  boite_.setObjectName(QStringLiteral("BoiteAvancement"));
  boite_.setWindowTitle(titre);
  boite_.setWindowModality(Qt::ApplicationModal);
  boite_.setAutoClose(false);
  boite_.setAutoReset(false);
  boite_.setMinimumDuration(std::numeric_limits<int>::max());  // it is shown here
  constexpr int kLargeur = 360;
  boite_.setMinimumWidth(kLargeur);
  depuis_.start();
}

bool Avancement::Montrer(const QString& texte, int pourcent) {
  if (boite_.wasCanceled()) return false;
  if (peinte_.isValid() && peinte_.elapsed() < kPas) return true;
  peinte_.start();
  if (depuis_.elapsed() < kPatience) return true;
  if (!boite_.isVisible()) boite_.show();
  boite_.setLabelText(texte);
  boite_.setValue(pourcent);
  QCoreApplication::processEvents();
  return !boite_.wasCanceled();
}

}  // namespace quelvar::forms
