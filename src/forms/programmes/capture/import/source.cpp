#include "forms/programmes/capture/import/source.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QStandardPaths>

#include "capture/presence.h"
#include "forms/programmes/capture/import/fimport.h"
#include "forms/programmes/capture/import/ouverture.h"
#include "forms/qt/texte.h"
#include "ui_source.h"

namespace quelvar::forms {

SourceImport::SourceImport(Services& services) : Forme(services), ui_(std::make_unique<Ui::SourceImport>()) {
  ui_->setupUi(this);
  Remplir();
  ui_->LabelRepertoire->setText(QStringLiteral("Fichiers du répertoire ") +
                                VersQt(TexteRepertoire(services.session.repertoire)) +
                                QStringLiteral(". Rien n'est écrit avant que vous ayez vu l'aperçu."));
  RelierAide(*ui_->Aide, "mnuAImport");
  RelierQuitter(*ui_->Annuler);
  connect(ui_->Lancer, &QPushButton::clicked, this, &SourceImport::PrendreChoisi);
  connect(ui_->Fichiers, &QTreeWidget::itemDoubleClicked, this, &SourceImport::PrendreChoisi);
  connect(ui_->BoutFichier, &QPushButton::clicked, this, [this] {
    if (const Chemin fichier = ChoisirFichierAImporter(services_); !fichier.empty()) Prendre(fichier);
  });
  connect(ui_->BoutAutres, &QPushButton::clicked, this, [this] {
    accept();
    Montrer<FImport>(services_);
  });
}

SourceImport::~SourceImport() = default;

void SourceImport::Remplir() {
  const QLocale francais(QLocale::French);
  for (const capture::FichierImportable& fichier : capture::FichiersImportables(services_.session.repertoire)) {
    const QFileInfo info(CheminVersQt(fichier.chemin));
    auto* ligne = new QTreeWidgetItem(
        ui_->Fichiers, {info.fileName(), francais.formattedDataSize(static_cast<qint64>(fichier.octets), 0),
                        info.lastModified().toString(QStringLiteral("dd/MM/yyyy hh:mm"))});
    ligne->setData(0, Qt::UserRole, info.filePath());
    ligne->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  }
  ui_->Fichiers->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  ui_->Fichiers->header()->setStretchLastSection(false);
  for (const int rubrique : {1, 2})
    ui_->Fichiers->header()->setSectionResizeMode(rubrique, QHeaderView::ResizeToContents);
  ui_->Lancer->setEnabled(ui_->Fichiers->topLevelItemCount() > 0);
  if (ui_->Fichiers->topLevelItemCount() > 0) ui_->Fichiers->setCurrentItem(ui_->Fichiers->topLevelItem(0));
}

void SourceImport::PrendreChoisi() {
  if (const QTreeWidgetItem* ligne = ui_->Fichiers->currentItem())
    Prendre(CheminDepuisQt(ligne->data(0, Qt::UserRole).toString()));
}

void SourceImport::Prendre(const Chemin& fichier) {
  accept();
  ImporterFichier(services_, fichier);
}

namespace {

// Where the file is looked for: beside the survey, or among the user's documents before there is one.
QString DossierDeDepart(const Session& session) {
  if (session.generique.empty() && capture::FichiersImportables(session.repertoire).empty())
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return CheminVersQt(session.repertoire);
}

}  // namespace

Chemin ChoisirFichierAImporter(Services& services) {
  return CheminDepuisQt(services.ChoisirAOuvrir(
      {QStringLiteral("Importation d'un fichier externe"), DossierDeDepart(services.session),
       QStringLiteral("Tableaux de données|*.csv;*.txt;*.tsv;*.ods;*.xlsx;*.dbf|Tous fichiers *.*|*.*")}));
}

void OuvrirSourceImport(Services& services) {
  // Before there is a survey there is nothing to offer besides the dialog; the other imports belong to a generic.
  if (!services.session.generique.empty() || !capture::FichiersImportables(services.session.repertoire).empty()) {
    Montrer<SourceImport>(services);
    return;
  }
  if (const Chemin fichier = ChoisirFichierAImporter(services); !fichier.empty()) ImporterFichier(services, fichier);
}

}  // namespace quelvar::forms
