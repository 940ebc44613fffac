// The run that the preview of an import starts: under which generic, and the box that lets the user give it up.
#include <algorithm>
#include <memory>

#include "capture/apercu/options.h"
#include "capture/cible.h"
#include "core/programme/annulation.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "forms/programmes/capture/import/apercu/apercu.h"
#include "forms/programmes/capture/import/attente/avancement.h"
#include "forms/qt/texte.h"
#include "ui_apercu.h"

namespace quelvar::forms {

std::string ApercuImport::Generique() const {
  return GeneriqueSaisi(NomDepuisUtf8(ui_->TextGenerique->text().toStdString()));
}

void ApercuImport::MontrerGenerique() {
  const std::string generique = Generique();
  const std::string refus = capture::RefusDuGenerique(generique);
  QString texte;
  if (!refus.empty()) texte = VersQt(refus);
  else if (capture::GeneriqueOccupe(cible_.repertoire, generique, preparation_.Fichier()))
    texte = QStringLiteral("existe déjà");
  else texte = QStringLiteral("nouvelle enquête");
  ui_->LabelGenerique->setText(texte);
}

// Choices made by hand come to a command by the file that the import writes: there is none before it, and one that says
// something else is not what is shown.
std::string ApercuImport::Commande() const {
  const std::string generique = Generique();
  const std::string imc = generique + ".IMC";
  capture::OptionsImport options = preparation_.Options();
  options.choix.clear();
  options.remplacer = capture::GeneriqueOccupe(cible_.repertoire, generique, preparation_.Fichier());
  const auto ligne = [&] {
    return CommandeEquivalente(capture::DescriptionImport(), generique, services_.session.niveau, options);
  };
  const capture::ChoixGardes gardes = capture::ComparerAuxGardes(cible_.repertoire, imc, preparation_.Choix());
  if (gardes != capture::ChoixGardes::Memes && preparation_.RienDeChoisi()) return ligne();
  if (gardes == capture::ChoixGardes::Autres)
    return Joindre({"(aucune : "_w, imc, " a d'autres choix ; \"Importer\" y écrit ceux qui sont montrés)"_w});
  options.fichierChoix = imc;
  if (gardes == capture::ChoixGardes::Memes) return ligne();
  options.remplacer = true;  // by then the survey is there
  return Joindre({ligne(), "  # après \"Importer\", qui écrit "_w, imc});
}

void ApercuImport::Importer() {
  if (!ui_->Lancer->isEnabled() && !attend_) return;
  if (const std::string refus = capture::RefusDuGenerique(Generique()); !refus.empty()) {
    ui_->TextGenerique->setFocus();
    services_.ecran.biper();
    return;
  }
  attend_ = examen_.EnCours();
  MontrerBilan();
  if (attend_) return;
  if (!preparation_.Refus().empty()) {
    ui_->TextFautes->setFocus();
    services_.ecran.biper();
    return;
  }
  LancerImport();
}

namespace {

// The screen of the run, with a box beside that lets the user give it up.
Dialogue EcranAbandonnable(const Dialogue& ecran, Avancement& avancement) {
  Dialogue abandonnable = ecran;
  auto maximum = std::make_shared<std::int64_t>(1);
  abandonnable.montrerProgression = [&ecran, &avancement, maximum](std::int64_t valeur) {
    *maximum = std::max<std::int64_t>(valeur, 1);
    if (valeur == 0) avancement.Cacher();
    ecran.montrerProgression(valeur);
  };
  abandonnable.progresser = [&ecran, &avancement, maximum](std::int64_t faits) {
    ecran.progresser(faits);
    const auto pourcent = static_cast<int>(std::min<std::int64_t>(faits * 100 / *maximum, 100));
    if (!avancement.Montrer(QStringLiteral("Importation en cours"), pourcent)) throw Annulation();
  };
  return abandonnable;
}

}  // namespace

void ApercuImport::LancerImport() {
  const std::string generique = Generique();
  const bool dit = cible_.remplacer && generique == cible_.generique;
  if (!dit && capture::GeneriqueOccupe(cible_.repertoire, generique, preparation_.Fichier()) &&
      !DemanderRemplacement(services_.ecran, generique)) {
    ui_->TextGenerique->setFocus();
    return;
  }
  if (!services_.formes.LaisserLeTravail()) return;  // on the files that the import replaces
  Avancement avancement(this, QStringLiteral("Importation"));
  Dialogue ecran = EcranAbandonnable(services_.ecran, avancement);
  const Contexte contexte{cible_.repertoire, generique, services_.session.niveau, &ecran};
  capture::OptionsImport options = preparation_.Options();
  options.remplacer = true;  // it was asked here
  Fin fin = Fin::Arret;
  bool renonce = false;
  const bool lancee = services_.Lancer([&](const Contexte&) {
    try {
      fin = capture::Importer(contexte, options);
    } catch (const Annulation&) {  // nothing is written, and the preview stays
      renonce = true;
    }
  });
  if (!lancee || renonce) return;
  if (fin == Fin::Normale) {
    if (cible_.repertoire != services_.session.repertoire) PrendreRepertoire(services_.session, cible_.repertoire);
    services_.adopterGenerique(generique);
  }
  accept();
}

}  // namespace quelvar::forms
