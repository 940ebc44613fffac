// Search in the editor: the find dialog, occurrences one by one or all at once, lines by their number.
#include <QApplication>
#include <QInputDialog>

#include "core/document/parties.h"
#include "core/panne/erreur.h"
#include "forms/editeur/frmfind.h"
#include "forms/editeur/frmsdi.h"
#include "forms/qt/curseur.h"
#include "forms/qt/texte.h"
#include "ui_frmsdi.h"

namespace quelvar::forms {

namespace {

bool PartieContient(const Chemin& fichier, std::size_t rang, const OptionsRecherche& options) {
  try {
    const DocumentTexte document = DecoderTexte(LirePartie(fichier, rang, frmSDI::kTaillePartie));
    return ChercherDansLigne(document.texte, options, 0, false) >= 0;
  } catch (const Erreur&) {  // a part that can't be read holds nothing
    return false;
  }
}

}  // namespace

frmFind& frmSDI::DialogueRecherche() {
  if (recherche_ == nullptr) {
    recherche_ = new frmFind(this);
    connect(recherche_, &frmFind::Cherche, this, &frmSDI::Chercher);
    connect(recherche_, &frmFind::Remplace, this, &frmSDI::Remplacer);
    connect(recherche_, &frmFind::RemplaceTout, this, &frmSDI::RemplacerPartout);
  }
  return *recherche_;
}

void frmSDI::OuvrirRecherche(bool remplacer) {
  const QString selection = ui_->TexteEd->textCursor().selectedText();
  DialogueRecherche().Ouvrir(selection.contains(QChar::ParagraphSeparator) ? QString() : selection, remplacer);
}

void frmSDI::Chercher(bool enArriere) {
  frmFind& dialogue = DialogueRecherche();
  const OptionsRecherche options = dialogue.Options();
  if (options.motif.isEmpty()) {
    OuvrirRecherche(false);
    return;
  }
  EditTexte* texte = ui_->TexteEd;
  texte->AcheverChargement();
  std::optional<QTextCursor> trouve = ChercherDansTexte(texte->textCursor(), options, enArriere);
  QString phrase;
  if (!trouve && parties_ > 1 && ChercherDansLesParties(enArriere)) return;
  if (!trouve && dialogue.Boucle() && parties_ == 1) {
    QTextCursor bout(texte->document());
    bout.movePosition(enArriere ? QTextCursor::End : QTextCursor::Start);
    trouve = ChercherDansTexte(bout, options, enArriere);
    phrase = enArriere ? QStringLiteral("Reprise à la fin du texte") : QStringLiteral("Reprise au début du texte");
  }
  if (trouve) {
    texte->Montrer(*trouve);
  } else {
    phrase = QStringLiteral("« %1 » est introuvable").arg(options.motif);
    QApplication::beep();
  }
  dialogue.Dire(phrase);
  Dire(phrase);
}

// Goes on in the other parts of a long file, round to the present one where the dialog says so.
bool frmSDI::ChercherDansLesParties(bool enArriere) {
  const OptionsRecherche options = recherche_->Options();
  const bool boucle = recherche_->Boucle();
  const std::size_t depart = partie_;
  const Curseur attente(Qt::WaitCursor);
  for (std::size_t pas = 1; pas <= parties_; ++pas) {
    const std::size_t place = enArriere ? depart + parties_ - pas : depart + pas;
    if (!boucle && (enArriere ? place < parties_ : place >= parties_)) return false;
    const std::size_t rang = place % parties_;
    if (!PartieContient(CheminDepuisQt(fichier_), rang, options)) continue;
    if (rang != partie_) LirePartieDuFichier(rang);
    ui_->TexteEd->AcheverChargement();
    ui_->TexteEd->moveCursor(enArriere ? QTextCursor::End : QTextCursor::Start);
    if (std::optional<QTextCursor> trouve = ChercherDansTexte(ui_->TexteEd->textCursor(), options, enArriere)) {
      ui_->TexteEd->Montrer(*trouve);
      recherche_->Dire(QStringLiteral("Partie %1 sur %2").arg(rang + 1).arg(parties_));
      return true;
    }
  }
  return false;
}

void frmSDI::Remplacer() {
  EditTexte* texte = ui_->TexteEd;
  texte->AcheverChargement();
  QTextCursor selection = texte->textCursor();
  if (EstOccurrence(selection, DialogueRecherche().Options())) {
    selection.insertText(texte->Admettre(DialogueRecherche().Remplacement()));
    texte->setTextCursor(selection);
  }
  Chercher(false);
}

void frmSDI::RemplacerPartout() {
  EditTexte* texte = ui_->TexteEd;
  texte->AcheverChargement();
  const int nombre = RemplacerTout(*texte->document(), DialogueRecherche().Options(),
                                   texte->Admettre(DialogueRecherche().Remplacement()));
  const QString phrase = nombre == 0 ? QStringLiteral("« %1 » est introuvable").arg(DialogueRecherche().Options().motif)
                         : nombre == 1 ? QStringLiteral("1 remplacement")
                                       : QStringLiteral("%1 remplacements").arg(nombre);
  DialogueRecherche().Dire(phrase);
  Dire(phrase);
}

void frmSDI::AllerALigne() {
  EditTexte* texte = ui_->TexteEd;
  texte->AcheverChargement();
  bool accepte = false;
  const int ligne = QInputDialog::getInt(this, QStringLiteral("Aller à la ligne"),
                                         QStringLiteral("Numéro de la ligne (1 à %1) :").arg(texte->blockCount()),
                                         texte->Ligne(), 1, texte->blockCount(), 1, &accepte);
  if (accepte) texte->AllerALigne(ligne);
}

}  // namespace quelvar::forms
