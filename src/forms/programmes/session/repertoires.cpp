#include "forms/programmes/session/repertoires.h"

#include <QDir>

#include "forms/pieces/clavier.h"
#include "forms/qt/texte.h"
#include "ui_repertoires.h"

namespace quelvar::forms {

RepertoireEnCours::RepertoireEnCours(Services& services)
    : Forme(services), ui_(std::make_unique<Ui::RepertoireEnCours>()) {
  ui_->setupUi(this);
  RelierQuitter(*ui_->BoutonFermer);
  connect(ui_->Repertoires, &ChoixRepertoire::Ouvert, this, [this](const QString& repertoire) {
    ListerInitialisations();
    services_.ouvrirInitialisation(CheminInitialisation(CheminDepuisQt(repertoire)));
  });
  connect(ui_->FileDir, &QListWidget::itemDoubleClicked, this, &RepertoireEnCours::OuvrirInitialisation);
  RelierEntree(*ui_->FileDir, [this] { OuvrirInitialisation(); });
  ui_->Repertoires->Aller(CheminVersQt(services.session.repertoire));
  ListerInitialisations();
  ui_->Repertoires->setFocus();
}

RepertoireEnCours::~RepertoireEnCours() = default;

void RepertoireEnCours::ListerInitialisations() {
  ui_->FileDir->clear();
  for (const QString& nom : QDir(ui_->Repertoires->Courant()).entryList({QStringLiteral("qvr2.ini")}, QDir::Files))
    ui_->FileDir->addItem(nom);
}

void RepertoireEnCours::OuvrirInitialisation() {
  if (const QListWidgetItem* ligne = ui_->FileDir->currentItem())
    Garder([this, nom = ligne->text()] {
      services_.ouvrirInitialisation(CheminDepuisQt(QDir(ui_->Repertoires->Courant()).filePath(nom)));
    });
}

// It stands at the present directory each time.
void OuvrirRepertoires(Services& services) {
  if (FairePlace<RepertoireEnCours>(services)) Montrer<RepertoireEnCours>(services);
}

}  // namespace quelvar::forms
