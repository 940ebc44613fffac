#include "forms/editeur/recherche.h"

#include <QTextBlock>
#include <QTextDocument>

namespace quelvar::forms {

namespace {

bool EstDeMot(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

bool EstMotEntier(QStringView ligne, qsizetype debut, qsizetype longueur) {
  const qsizetype fin = debut + longueur;
  const bool avant = debut > 0 && EstDeMot(ligne[debut - 1]) && EstDeMot(ligne[debut]);
  const bool apres = fin < ligne.size() && EstDeMot(ligne[fin]) && EstDeMot(ligne[fin - 1]);
  return !avant && !apres;
}

QTextCursor Selectionner(const QTextBlock& ligne, qsizetype debut, qsizetype longueur) {
  QTextCursor curseur(ligne);
  curseur.setPosition(ligne.position() + static_cast<int>(debut));
  curseur.setPosition(curseur.position() + static_cast<int>(longueur), QTextCursor::KeepAnchor);
  return curseur;
}

}  // namespace

qsizetype ChercherDansLigne(QStringView ligne, const OptionsRecherche& options, qsizetype depuis, bool enArriere) {
  const auto casse = options.casse ? Qt::CaseSensitive : Qt::CaseInsensitive;
  const qsizetype pas = enArriere ? -1 : 1;
  if (enArriere) --depuis;
  while (depuis >= 0 && depuis <= ligne.size()) {
    const qsizetype trouve =
        enArriere ? ligne.lastIndexOf(options.motif, depuis, casse) : ligne.indexOf(options.motif, depuis, casse);
    if (trouve < 0 || !options.motEntier || EstMotEntier(ligne, trouve, options.motif.size())) return trouve;
    depuis = trouve + pas;
  }
  return -1;
}

std::optional<QTextCursor> ChercherDansTexte(const QTextCursor& selection, const OptionsRecherche& options,
                                             bool enArriere) {
  if (options.motif.isEmpty()) return std::nullopt;
  const int depart = enArriere ? selection.selectionStart() : selection.selectionEnd();
  QTextBlock ligne = selection.document()->findBlock(depart);
  qsizetype depuis = depart - ligne.position();
  while (ligne.isValid()) {
    const QString texte = ligne.text();
    const qsizetype trouve =
        ChercherDansLigne(texte, options, enArriere ? std::min(depuis, texte.size()) : depuis, enArriere);
    if (trouve >= 0) return Selectionner(ligne, trouve, options.motif.size());
    ligne = enArriere ? ligne.previous() : ligne.next();
    depuis = enArriere ? ligne.length() : 0;
  }
  return std::nullopt;
}

bool EstOccurrence(const QTextCursor& selection, const OptionsRecherche& options) {
  if (!selection.hasSelection() || options.motif.isEmpty()) return false;
  const QTextBlock ligne = selection.document()->findBlock(selection.selectionStart());
  const qsizetype debut = selection.selectionStart() - ligne.position();
  return selection.selectionEnd() - selection.selectionStart() == options.motif.size() &&
         ChercherDansLigne(ligne.text(), options, debut, false) == debut;
}

int RemplacerTout(QTextDocument& document, const OptionsRecherche& options, const QString& remplacement) {
  if (options.motif.isEmpty()) return 0;
  // One insertion over the stretch that changes: thousands of small ones would take minutes in a long text.
  const QString texte = document.toRawText();
  QString nouveau;
  int nombre = 0;
  qsizetype premiere = -1;
  qsizetype copie = 0;
  for (qsizetype trouve = ChercherDansLigne(texte, options, 0, false); trouve >= 0;
       trouve = ChercherDansLigne(texte, options, copie, false)) {
    if (nombre++ == 0) premiere = copie = trouve;
    nouveau += QStringView(texte).sliced(copie, trouve - copie);
    nouveau += remplacement;
    copie = trouve + options.motif.size();
  }
  if (nombre == 0) return 0;
  QTextCursor curseur(&document);
  curseur.setPosition(static_cast<int>(premiere));
  curseur.setPosition(static_cast<int>(copie), QTextCursor::KeepAnchor);
  curseur.insertText(nouveau);
  return nombre;
}

}  // namespace quelvar::forms
