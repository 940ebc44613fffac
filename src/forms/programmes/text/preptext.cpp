#include "forms/programmes/text/preptext.h"

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/texte.h"
#include "text/preparation/preptext_options.h"
#include "ui_preptext.h"

namespace quelvar::forms {

namespace {

constexpr std::string_view kPresentation =
    "Le présent programme, facultatif, permet :\r\n"
    "- de choisir un fichier de texte qui n'a pas une extension *.txt (option par défaut) :prendre le fichier *.dat ou "
    "le "
    "choisir manuellement\r\n"
    "- de supprimer les accents du texte (option à décliquer éventuellement)\r\n"
    "- de supprimer la ponctuation (idem)\r\n"
    "- de transformer les majuscules en minuscules (idem)\r\n"
    "Un nouveau fichier d'extension *.txt sera créé et le générique incrémenté\r\n"
    "Pour avoir le détail des traitements possibles, cliquer sur chacune des options"_w;
constexpr std::string_view kAideAccents =
    "Cette option transforme les accents de la manière suivante :\r\n"
    "- â,ä,à,å,Ä,Å,æ,Æ,á, deviennent a\r\n"
    "- é,ê,ë,è,É,         deviennent e\r\n"
    "- ï,î,ì,             deviennent i\r\n"
    "- ô,ö,ò,             deviennent o\r\n"
    "- û,ù,               deviennent u\r\n"
    "de même,\r\n"
    "- ç                  devient c\r\n"
    "et tous les caractères de code ascii numérique supérieur à 122 et non encore transformés par les règles "
    "précédentes "
    "sont transformés en blancs"_w;
constexpr std::string_view kAidePonctuation =
    "Cette option transforme en blancs les ponctuations suivantes (et la tabulation):\r\n! \" ' ( ) , . : ; ? `"_w;
constexpr std::string_view kAideMajuscules = "Cette option transforme les majuscules en minuscules. ";
constexpr std::string_view kAideMinuscules = "Cette option transforme les minuscules en majuscules. ";
constexpr std::string_view kAideFinsDeLigne =
    "Cette option transforme en blancs les fins de ligne, sauf celles que trois signes & précèdent."_w;

}  // namespace

PrepText::PrepText(Services& services) : Forme(services), ui_(std::make_unique<Ui::PrepText>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, text::DescriptionPrepText());
  Expliquer(kPresentation);
  const auto expliquer = [this](QCheckBox* boite, std::string_view texte) {
    connect(boite, &QCheckBox::clicked, this, [this, texte] { Expliquer(texte); });
  };
  expliquer(ui_->ChkAccents, kAideAccents);
  expliquer(ui_->ChKPonct, kAidePonctuation);
  expliquer(ui_->ChkMaj, kAideMajuscules);
  expliquer(ui_->ChkMin, kAideMinuscules);
  expliquer(ui_->ChkOpt, kAideFinsDeLigne);
  connect(ui_->CmdFichDAT, &QPushButton::clicked, this, [this] {
    fichierDat_ = true;
    fichier_.clear();
    ui_->LabelA->setText(VersQt(contexte_.Nom(".DAT")));
  });
  connect(ui_->CmdFichA, &QPushButton::clicked, this, &PrepText::ChoisirFichier);
  connect(ui_->BtLancer, &QPushButton::clicked, this, &PrepText::LancerPrepText);
  RelierCommande(*ui_->BtLancer, text::DescriptionPrepText(), contexte_, [this] { return Options(); });
  RelierQuitter(*ui_->BtNul);
  RelierAide(*ui_->BoutAide, "mnuAPrepText");
}

PrepText::~PrepText() = default;

void PrepText::Expliquer(std::string_view texte) { ui_->TextAide->setText(VersQt(texte)); }

void PrepText::ChoisirFichier() {
  const std::string choisi =
      services_.ecran.choisirFichier("Choisir un autre fichier", "Fichiers *.txt|*.txt|Tous fichiers *.*|*.*");
  if (choisi.empty()) return;
  fichierDat_ = false;
  fichier_ = choisi;
  ui_->LabelA->setText(VersQt(text::NomDeLOrigine(contexte_, Options())));
}

text::OptionsPrepText PrepText::Options() const {
  text::OptionsPrepText options = OptionsDesControles(*this, text::DescriptionPrepText());
  options.fichierDat = fichierDat_;
  options.fichier = fichier_;
  return options;
}

void PrepText::LancerPrepText() {
  const text::OptionsPrepText options = Options();
  const std::string refus = text::RefusDePreparer(contexte_, options);
  if (!refus.empty()) {
    services_.ecran.biper();
    Expliquer(refus);
    return;
  }
  std::string nouveau;
  const std::optional<Fin> fin =
      LancerEtape([&](const Contexte& sur) { return text::PrepText(sur, options, nouveau); });
  if (!fin) return;
  Services& services = services_;
  accept();
  if (fin == Fin::Normale) services.adopterGenerique(nouveau);
}

void OuvrirPrepText(Services& services) {
  if (FairePlace<PrepText>(services)) Montrer<PrepText>(services);
}

}  // namespace quelvar::forms
