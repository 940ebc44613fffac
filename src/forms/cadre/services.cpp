#include "forms/cadre/services.h"

#include <QApplication>

namespace quelvar::forms {

namespace {

QWidget* Devant(const Services& services) {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active : &services.fenetre;
}

}  // namespace

std::optional<std::string> Services::DemanderTexte(std::string_view question) const {
  return forms::DemanderTexte(Devant(*this), question, {});
}

QString Services::ChoisirAOuvrir(const DemandeDeFichier& demande) const {
  return forms::ChoisirAOuvrir(Devant(*this), demande);
}

QString Services::ChoisirAEcrire(const DemandeDeFichier& demande) const {
  return forms::ChoisirAEcrire(Devant(*this), demande);
}

}  // namespace quelvar::forms
