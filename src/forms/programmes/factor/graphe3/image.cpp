// What the mouse does on the factor plane, and the files that the form writes.
#include "core/options/option.h"
#include "factor/classement/coupe.h"
#include "factor/classement/coupe_options.h"
#include "factor/plan/graphe_options.h"
#include "forms/images/sortiesdessin.h"
#include "forms/pieces/commande.h"
#include "forms/programmes/factor/graphe3/graphe3.h"
#include "forms/programmes/modalities/modifmod.h"
#include "forms/texte/texte_qt.h"
#include "modalities/regroupement/modifburt_options.h"
#include "ui_graphe3.h"

namespace quelvar::forms {

namespace {

constexpr std::size_t kElementsDUneInfobulle = 12;

Position PositionDe(const QPointF& point) { return {point.x(), point.y()}; }

}  // namespace

void Graphe3::RelierImage() {
  VueDessin& image = *ui_->Image;
  image.surMolette = [this](double facteur, const QPointF& page) {
    factor::ZoomerAutour(etat_, facteur, ui_->Image->Contenu().VersUtilisateur(PositionDe(page)));
    Dessiner();
  };
  image.surGlissement = [this](const QPointF& de, const QPointF& vers) {
    const Dessin& dessin = ui_->Image->Contenu();
    factor::Glisser(etat_, dessin.VersUtilisateur(PositionDe(de)), dessin.VersUtilisateur(PositionDe(vers)));
    Dessiner();
  };
  image.infobulleDeLaPlace = [this](const QPointF& page) { return Infobulle(page); };
  connect(&image, &VueDessin::Presse, this, [this](const QPointF& page, Qt::MouseButton bouton) {
    if (bouton == Qt::LeftButton) Informer(page);
    if (bouton == Qt::RightButton) Marquer(page);
  });
}

QString Graphe3::Infobulle(const QPointF& page) const {
  const std::vector<std::size_t> elements = factor::ElementsSous(etat_, ui_->Image->Contenu(), PositionDe(page));
  QStringList lignes;
  for (const std::size_t element : elements) {
    if (lignes.size() == static_cast<qsizetype>(kElementsDUneInfobulle)) {
      lignes << QStringLiteral("et %1 autres").arg(elements.size() - kElementsDUneInfobulle);
      break;
    }
    lignes << VersQt(factor::LigneDInformation(etat_, element)).remove(u'\r');
  }
  return lignes.join(u'\n');
}

void Graphe3::Informer(const QPointF& page) {
  const std::vector<std::size_t> elements = factor::ElementsSous(etat_, ui_->Image->Contenu(), PositionDe(page));
  if (elements.empty()) return;
  try {
    ui_->Information->setPlainText(VersQt(factor::TexteDuClic(contexte_, etat_, elements.front())).remove(u'\r'));
  } catch (const Erreur& erreur) {
    Refuser(erreur);
  }
}

void Graphe3::Marquer(const QPointF& page) {
  const std::vector<std::size_t> elements = factor::ElementsSous(etat_, ui_->Image->Contenu(), PositionDe(page));
  if (elements.empty()) return;
  factor::BasculerMarque(etat_, elements.front());
  RefaireMarques();
}

void Graphe3::RefaireMarques() {
  if (!etat_.reglages.ellipses.Aucune()) RefaireEllipses();
  Redessiner();
}

void Graphe3::MontrerMarques() {
  std::vector<std::string> noms;
  for (std::size_t i = 0; i < etat_.reglages.marques.size(); ++i)
    if (etat_.reglages.marques[i] != 0) noms.emplace_back(Rogner(etat_.donnees.points[i].nom));
  ui_->TextMarques->setText(VersQt(NomsJoints(noms)));
}

// Every element that is named, and no other one; a name that none has leaves the marks as they are.
void Graphe3::PrendreMarques() {
  std::vector<std::uint8_t> marques(etat_.reglages.marques.size(), 0);
  for (const std::string& nom : NomsSepares(DepuisQt(ui_->TextMarques->text()))) {
    std::size_t i = 0;
    while (i < marques.size() && !EgalSansCasse(Rogner(etat_.donnees.points[i].nom), Rogner(nom))) ++i;
    if (i == marques.size()) {
      services_.ecran.biper();
      ui_->Information->setPlainText(QStringLiteral("Aucun élément n'a le nom %1.").arg(VersQt(nom)));
      return MontrerMarques();
    }
    marques[i] = i < etat_.donnees.colonnes ? factor::kMarqueColonne : factor::kMarqueLigne;
  }
  if (marques == etat_.reglages.marques) return MontrerMarques();
  etat_.reglages.marques = std::move(marques);
  RefaireMarques();
}

factor::OptionsCoupe Graphe3::Coupe() const {
  return {static_cast<int>(etat_.reglages.cah.niveau), etat_.reglages.intitulesLongs};
}

void Graphe3::CouperLaClassification() {
  const factor::OptionsCoupe options = Coupe();
  std::string nouveau;
  const bool fait = services_.Lancer([&](const Contexte&) {
    rapport_->Poser();
    ExecuterProgramme(
        contexte_, contexte_.Nom(".PRT"), LibellesErreur{},
        [&](Rapport& rapport) { factor::CouperArbre(contexte_, rapport, options, nouveau); }, ModeEcriture::Suite);
  });
  if (!fait) rapport_->Reprendre();
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
  Fin fin = Fin::Arret;
  services_.Lancer([&](const Contexte&) { fin = modalities::ModifierBurt(contexte_, options); });
  if (fin != Fin::Normale) return;
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
  RelierCommande(*ui_->BoutonEnreg, factor::DescriptionGraphe(), contexte_, [this] {
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

void Graphe3::Refuser(const Erreur& erreur, const QString& quoi) {
  const std::string texte = Joindre({DepuisQt(quoi), TexteErreur(erreur)});
  ui_->Information->setPlainText(VersQt(texte).remove(u'\r'));
  if (TexteDuLieu(erreur).empty()) services_.ecran.biper();
  else services_.ecran.demander(texte, Boutons::Ok);
}

void OuvrirGraphe3(Services& services) {
  if (!FairePlace<Graphe3>(services)) return;
  auto prepare = Preparer(services, ".PRT", [](const Contexte& contexte) { return factor::PrepGraphe(contexte); });
  if (prepare) Montrer<Graphe3>(services, std::move(prepare->donnees), std::move(prepare->rapport));
}

}  // namespace quelvar::forms
