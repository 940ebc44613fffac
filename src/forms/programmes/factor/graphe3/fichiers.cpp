// The files that the factor plane makes: pictures, the network, the cut of the tree, a table of merged elements.
#include <QSignalBlocker>

#include "factor/coupe/coupe.h"
#include "factor/coupe/coupe_options.h"
#include "factor/plan/graphe_options.h"
#include "forms/images/sortiesdessin.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/factor/graphe3/graphe3.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "forms/texte/enregistrement.h"
#include "modalities/regroupement/modifburt_options.h"
#include "ui_graphe3.h"

namespace quelvar::forms {

// The network file is written when its box is ticked, and as the graph stands when the form is left. It is of what the
// form holds, as the pictures are: no file is read and no report made, and a form may be left during a run, so it is no
// run; it takes its place as the outputs of a run do, with the data set held, and the former file stays where it
// cannot.
void Graphe3::EcrireLeReseau() {
  LireReglages();
  if (!etat_.reglages.liens.actif || !ui_->FichPajek->isChecked()) return;
  const Chemin reseau = CheminDEcriture(contexte_.repertoire, contexte_.Nom(".net"));
  const auto ecrire = [this] {
    const GeneriqueTenu tenu = TenirEnLeDisant(services_, contexte_, ".net");
    factor::EcrireReseau(contexte_, etat_);
  };
  if (EcrireOuDire(this, reseau, ecrire)) return;
  const QSignalBlocker bloque(ui_->FichPajek);
  ui_->FichPajek->setChecked(false);
}

void Graphe3::done(int resultat) {
  EcrireLeReseau();
  Forme::done(resultat);
}

factor::OptionsCoupe Graphe3::Coupe() const {
  return {static_cast<int>(etat_.reglages.cah.niveau), etat_.reglages.intitulesLongs};
}

// The cut goes on with the report that the opening has begun; the program by itself would begin it anew.
void Graphe3::CouperLaClassification() {
  const factor::OptionsCoupe options = Coupe();
  std::string nouveau;
  rapport_->Continuer(services_.lanceur, [&](const Contexte&) {
    ExecuterProgramme(
        contexte_, contexte_.Nom(".PRT"), LibellesErreur{},
        [&](Rapport& rapport) { factor::CouperArbre(contexte_, rapport, options, nouveau); }, ModeEcriture::Suite);
  });
  if (!nouveau.empty()) services_.adopterGenerique(nouveau);
}

modalities::OptionsModifBurt Graphe3::Association() const {
  modalities::OptionsModifBurt options;
  for (std::size_t i = 0; i < etat_.reglages.marques.size(); ++i) {
    const std::string& nom = etat_.donnees.points[i].nom;
    if (etat_.reglages.marques[i] == 0) continue;
    if (i < etat_.donnees.colonnes) options.colonnes.push_back(nom);
    else if (!etat_.donnees.Individus()) options.lignes.push_back(nom);
  }
  options.nomColonne = DepuisQt(ui_->TextNouvCol->text());
  options.nomLigne = DepuisQt(ui_->TextNouvNom->text());
  return options;
}

void Graphe3::Associer() {
  modalities::OptionsModifBurt options = Association();
  std::vector<std::string> colonnes;
  std::vector<std::string> lignes;
  for (std::size_t i = 0; i < etat_.reglages.marques.size(); ++i)
    (i < etat_.donnees.colonnes ? colonnes : lignes).push_back(etat_.donnees.points[i].nom);
  if (const std::string refus = modalities::RefusDuNom(options, colonnes, lignes); !refus.empty()) {
    services_.ecran.biper();
    return ui_->Information->setPlainText(VersQt(refus));
  }
  const std::string annonce = modalities::AnnonceDuRegroupement(options);
  if (annonce.empty() ||
      services_.ecran.demander(
          Joindre({annonce, "\r\nLe tableau modifié ira dans un nouveau générique. L'acceptez-vous ?"_w}),
          Boutons::OuiNon) != Reponse::Oui)
    return;
  std::string nouveau;
  options.nouveau = &nouveau;
  if (Lancer(modalities::DescriptionModifBurt(), options) != Fin::Normale) return;
  Services& services = services_;
  services.adopterGenerique(nouveau);
  OuvrirModifMod(services);
}

void Graphe3::RelierFichiers() {
  connect(ui_->BoutonAssoc, &QPushButton::clicked, this, &Graphe3::Associer);
  connect(ui_->TextMarques, &QLineEdit::editingFinished, this, &Graphe3::PrendreMarques);
  RelierSorties(*this, services_, *ui_->Image, contexte_, "Fac",
                {*ui_->BoutonEnreg, *ui_->BoutonEnregSous, *ui_->BoutonImpr},
                [this] { return ui_->Resolution->value(); });
  RelierCommande(*ui_->BoutonQuitter, factor::DescriptionGraphe(), contexte_, [this] {
    LireReglages();
    return factor::OptionsDuPlan(etat_, ui_->FichPajek->isChecked());
  });
  RelierCommande(*ui_->BoutonCAH, factor::DescriptionWardCoupe(), contexte_,
                 [this] {
                   LireReglages();
                   return Coupe();
                 },
                 {QStringLiteral("BoutCommandeCAH"), QStringLiteral("Voir la commande de la coupe")});
  RelierCommande(*ui_->BoutonAssoc, modalities::DescriptionModifBurt(), contexte_, [this] { return Association(); },
                 {QStringLiteral("BoutCommandeAssoc"), QStringLiteral("Voir la commande du regroupement")});
  RelierQuitter(*ui_->BoutonQuitter);
  // The ellipses of the picture begin the report anew, or go on with what was launched.
  AuDepart([rapport = rapport_, ellipses = ellipses_](const Contexte& contexte) {
    if (rapport->Commence()) rapport->Poser();
    if (ellipses->tracees.empty()) return rapport->Montrer(contexte);
    factor::RapporterEllipses(contexte, *ellipses, rapport->Commence() ? ModeEcriture::Suite : ModeEcriture::Neuf);
  });
}

}  // namespace quelvar::forms
