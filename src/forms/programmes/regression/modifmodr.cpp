#include "forms/programmes/regression/modifmodr.h"

#include "core/enquete/colonnes.h"
#include "core/enquete/listemod.h"
#include "core/panne/annonce.h"
#include "forms/images/fenetredessin.h"
#include "forms/pieces/clavier.h"
#include "forms/pieces/commande.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "regression/anatab.h"
#include "regression/options.h"
#include "regression/reglin/reglin.h"
#include "ui_modifmodr.h"

namespace quelvar::forms {

namespace {

constexpr std::string_view kInstruction =
    "Suivre les étapes 1 à 3 dans l'ordre. Les modifications d'intitulés sont indépendantes. (Utiliser le bouton 'Aide' pour plus de détails)"_w;

constexpr std::string_view kAide[] = {
    "Pour faire une régression il faut définir une modalité à expliquer et des modalité explicatives. Dans chaque question d'origine on distingue soit une modalité à expliquer (codée Y) soit une modalité de référence (codée R)."_w,
    "Les autres modalités des questions explicatives autre que la référence sont explicatives (codées X)."_w,
    "Une seule question est à expliquer, plusieurs peuvent être explicatives."_w,
    "Pour procéder au codage, choisir en 1) le type de question (à expliquer à la première utilisation) puis cliquer sur la question en 2) puis sur la modalité choisie en 3)"_w,
    "En cas d'erreur reprendre en 1)"_w,
    "D'une manière indépendante, il est possible de modifier les intitulés longs. Conseil : faire en sorte que les 4 premiers caractères de l'intitulé long soient significatifs car seuls ces caractères sont utilisés dans certains affichages. La longueur maximale est celle de l'affichage du récapitulatif."_w};

// A click on a line, or the space bar on it.
void RelierLigne(QListWidget& liste, const std::function<void(int)>& action) {
  liste.setFont(PoliceFixe());
  const auto agir = [&liste, action] { action(liste.currentRow()); };
  QObject::connect(&liste, &QListWidget::itemClicked, &liste, agir);
  RelierTouches(liste, {Qt::Key_Space}, agir);
}

}  // namespace

ModifModR::ModifModR(Services& services)
    : Forme(services),
      etat_(OuvrirListe(contexte_)),
      duFichier_(etat_.textes),
      questions_(regression::QuestionsDesTextes(etat_.textes)),
      ui_(std::make_unique<Ui::ModifModR>()) {
  ui_->setupUi(this);
  Relier();
  RelierCommandeDite(*ui_->BoutEnreg, regression::DescriptionModifModR(), contexte_,
                     [this] { return regression::OptionsDuCodage(duFichier_, etat_.textes); });
  RelierQuitter(*ui_->BoutQuitter);
  AuDepartDireLArret();
  for (const std::string& question : questions_) ui_->ListPos->addItem(VersQt(question));
  edition_->Remplir();
  ui_->BqAExpliq->setChecked(true);  // the first step of a coding
  ChangerType();
  const bool lisible = etat_.message.empty();
  ui_->TextMsg->setPlainText(lisible ? VersQt(kInstruction) : EnUnTexte(etat_.message));
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSuivant}) bouton->setEnabled(lisible);
}

ModifModR::~ModifModR() = default;

void ModifModR::Relier() {
  const auto texte = [this](int ligne) -> std::string& { return etat_.textes[static_cast<std::size_t>(ligne)]; };
  edition_ =
      new EditionListe(*this, *ui_->ListRecap, *ui_->TextMod, *ui_->BoutSuivant,
                       AccesAuxTextes([this] { return static_cast<int>(etat_.textes.size()); }, texte,
                                      [this, texte](int ligne, const std::string& intitule) {
                                        PoserIntitule(texte(ligne), intitule);
                                        if (!montrees_.empty())
                                          MontrerModalites(etat_.textes[montrees_[0]].substr(0, kLargeurDeQuestion));
                                      }));
  connect(edition_, &EditionListe::Refuse, this, [this](const QString& refus) {
    if (!refus.isEmpty()) Dire(kTitreErreur, refus);
    else if (intituleRefuse_) ui_->TextMsg->setPlainText(VersQt(kInstruction));
    intituleRefuse_ = !refus.isEmpty();
  });
  RelierLigne(*ui_->ListPos, [this](int ligne) { CoderQuestion(ligne); });
  RelierLigne(*ui_->Listmod, [this](int ligne) { CoderModalite(ligne); });
  for (QRadioButton* bouton : {ui_->BqAExpliq, ui_->BqExpliq})
    connect(bouton, &QRadioButton::clicked, this, &ModifModR::ChangerType);
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &ModifModR::Enregistrer);
  connect(ui_->BoutAide, &QPushButton::clicked, this, [this] {
    QStringList paragraphes;
    for (const std::string_view paragraphe : kAide) paragraphes << VersQt(paragraphe);
    ui_->TextMsg->setPlainText(paragraphes.join('\n'));
  });
}

regression::TypeDeQuestion ModifModR::Type() const {
  return ui_->BqExpliq->isChecked() ? regression::TypeDeQuestion::Explicative : regression::TypeDeQuestion::AExpliquer;
}

void ModifModR::ChangerType() {
  ui_->LibelleListmod->setText(VersQt(
      Type() == regression::TypeDeQuestion::AExpliquer
          ? "Cliquer sur la modalité à expliquer (mise en Y)"_w
          : "Cliquer sur la modalité de référence : elle est mise en R, les autres sont explicatives (mises en X)"_w));
  // A modality is coded by the type under which its question was chosen.
  montrees_.clear();
  ui_->Listmod->clear();
  ui_->ListPos->clearSelection();
}

void ModifModR::CoderQuestion(int ligne) {
  if (ligne < 0) return;
  const std::string& question = questions_[static_cast<std::size_t>(ligne)];
  regression::CoderQuestion(etat_.textes, question, Type());
  MontrerModalites(question);
  for (const std::size_t i : montrees_) edition_->Montrer(static_cast<int>(i));
}

void ModifModR::CoderModalite(int ligne) {
  if (ligne < 0) return;
  const std::size_t i = montrees_[static_cast<std::size_t>(ligne)];
  regression::CoderModalite(etat_.textes[i], Type());
  ui_->Listmod->item(ligne)->setText(VersQt(etat_.textes[i]));
  edition_->Montrer(static_cast<int>(i));
}

void ModifModR::MontrerModalites(const std::string& question) {
  montrees_ = regression::ModalitesDe(etat_.textes, question);
  ui_->Listmod->clear();
  for (const std::size_t i : montrees_) ui_->Listmod->addItem(VersQt(etat_.textes[i]));
}

void ModifModR::Dire(std::string_view titre, const QString& texte) {
  services_.ecran.biper();
  ui_->TextMsg->setPlainText(VersQt(titre) + '\n' + texte);
}

void ModifModR::Enregistrer() {
  if (!edition_->Ranger()) return;
  if (const std::string_view refus = regression::RefusDEnregistrer(etat_.textes); !refus.empty()) {
    ui_->TextMod->clear();
    Dire(kTitreErreur, VersQt(refus));
    edition_->Remplir();
    return;
  }
  const Sauvegarde sauvegarde = SauverSur(
      services_, contexte_, ".MOD", [this](const Contexte& sur) { regression::SauverModifModR(sur, etat_.textes); });
  if (sauvegarde.echec) Dire(kTitreErreur, VersQt(TexteErreur(*sauvegarde.echec)));
  if (!sauvegarde.faite) return;
  duFichier_ = etat_.textes;
  if (const std::string_view incoherence = regression::Incoherence(etat_.textes); !incoherence.empty()) {
    Dire(regression::kTitreAvertissement, VersQt(incoherence));
    AuDepart(regression::AbandonnerModifModR);  // the file that was saved has its report
    return;
  }
  if (LancerEtape(regression::TerminerModifModR)) accept();
}

void OuvrirModifModR(Services& services) { Montrer<ModifModR>(services); }

void OuvrirAnatab(Services& services) {
  const Contexte contexte = services.ContexteEnCours();
  regression::ImageDesEffets effets;
  const std::optional<Fin> fin =
      services.LancerSur(contexte, [&](const Contexte& sur) { return regression::Anatab(sur, {}, effets); });
  if (fin != Fin::Normale) return;
  const std::string page = effets.titre;
  MontrerDessins(services, contexte,
                 {"Eff", "Effets des modalités explicatives"_w, "", {page}, [image = std::move(effets)](std::size_t) {
                    return regression::DessinerEffets(image);
                  }});
}

void OuvrirReglin(Services& services) { services.Lancer(regression::DescriptionReglin()); }

}  // namespace quelvar::forms
