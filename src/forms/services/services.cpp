#include "forms/services/services.h"

#include <QApplication>

namespace quelvar::forms {

namespace {

QWidget* Devant(const Services& services) {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active : &services.fenetre;
}

}  // namespace

std::optional<Fin> Services::LancerSur(const Contexte& contexte, const Etape& etape) const {
  Fin fin = Fin::Arret;
  std::optional<std::string> refus;
  const bool fait = Lancer([&](const Contexte&) {
    try {
      fin = etape(contexte);
    } catch (const UsageIncorrect& erreur) {
      refus = erreur.what();
    }
  });
  if (refus) ecran.demander(*refus, Boutons::Ok);
  return fait && !refus ? std::optional(fin) : std::nullopt;
}

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
