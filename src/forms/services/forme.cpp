#include "forms/services/forme.h"

#include <QCloseEvent>

#include "core/programme/annulation.h"
#include "forms/services/services.h"

namespace quelvar::forms {

Forme::Forme(Services& services, Qt::WindowFlags genre) : Forme(services, services.ContexteEnCours(), genre) {}

Forme::Forme(Services& services, const Contexte& contexte, Qt::WindowFlags genre)
    : QDialog(&services.fenetre, genre), services_(services), contexte_(contexte) {}

bool Forme::EstSur(const Contexte& contexte) const {
  return contexte.repertoire == contexte_.repertoire && contexte.generique == contexte_.generique;
}

bool Forme::PeutFermer() {
  if (!ATravail()) return true;
  show();
  raise();
  activateWindow();
  return services_.ecran.demander(QuestionDePerte(), Boutons::OkAnnuler) == Reponse::Ok;
}

void Forme::reject() {
  if (parLeProgramme_) {
    QDialog::reject();
    return;
  }
  if (!PeutFermer()) return;
  QDialog::reject();
  if (auDepart_)
    services_.lanceur.LancerEnsuite(
        [programme = auDepart_, contexte = contexte_](const Contexte& /*courant*/) { programme(contexte); });
}

void Forme::closeEvent(QCloseEvent* evenement) {
  parLeProgramme_ = !evenement->spontaneous();
  QDialog::closeEvent(evenement);
}

void Forme::RelierAide(QPushButton& bouton, const char* entree) {
  bouton.setEnabled(services_.aide.Existe(QString::fromUtf8(entree)));
  connect(&bouton, &QPushButton::clicked, this, [this, entree] { services_.aide.Ouvrir(QString::fromUtf8(entree)); });
}

void Forme::AuDepartDireLArret() {
  AuDepart([](const Contexte& contexte) { RendreCompte(contexte, kArretVolontaire, {}, kRapportSansNom); });
}

bool Forme::Garder(const std::function<void()>& gestes) const { return services_.lanceur.Garder(gestes); }

std::optional<Fin> Forme::LancerEtape(const Etape& etape) const { return services_.LancerSur(contexte_, etape); }

void Forme::RelierQuitter(QPushButton& bouton) { connect(&bouton, &QPushButton::clicked, this, &QDialog::reject); }

}  // namespace quelvar::forms
