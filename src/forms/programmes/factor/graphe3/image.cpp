// What the mouse does on the factor plane, and the marks of its elements.
#include "core/options/option.h"
#include "forms/programmes/factor/graphe3/graphe3.h"
#include "forms/qt/texte.h"
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

void Graphe3::MontrerMarques() { ui_->TextMarques->setText(VersQt(NomsJoints(factor::NomsMarques(etat_)))); }

// A name that no element has leaves the marks as they are.
void Graphe3::PrendreMarques() {
  const std::vector<std::uint8_t> avant = etat_.reglages.marques;
  const std::optional<std::string> absent =
      factor::MarquerParNoms(etat_, NomsSepares(DepuisQt(ui_->TextMarques->text())));
  if (absent) {
    services_.ecran.biper();
    ui_->Information->setPlainText(QStringLiteral("Aucun élément n'a le nom %1.").arg(VersQt(*absent)));
  }
  if (etat_.reglages.marques == avant) return MontrerMarques();
  RefaireMarques();
}

}  // namespace quelvar::forms
