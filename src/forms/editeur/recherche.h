// Search and replacement in the text of the editor.
#pragma once

#include <QString>
#include <QTextCursor>
#include <optional>

namespace quelvar::forms {

struct OptionsRecherche {
  QString motif;
  bool casse = false;      // upper and lower case differ
  bool motEntier = false;  // no letter, digit or "_" on either side
};

// Place of the first occurrence in a line that begins at `depuis` or behind it, of the last one that begins before it
// when going backward; -1 without one.
qsizetype ChercherDansLigne(QStringView ligne, const OptionsRecherche& options, qsizetype depuis, bool enArriere);

// The next occurrence behind the selection (before it when going backward), selected; nothing up to the end of the
// text.
std::optional<QTextCursor> ChercherDansTexte(const QTextCursor& selection, const OptionsRecherche& options,
                                             bool enArriere);

// True when the selection is an occurrence.
bool EstOccurrence(const QTextCursor& selection, const OptionsRecherche& options);

// Replaces every occurrence of the text, to be undone in one step; returns their number.
int RemplacerTout(QTextDocument& document, const OptionsRecherche& options, const QString& remplacement);

}  // namespace quelvar::forms
