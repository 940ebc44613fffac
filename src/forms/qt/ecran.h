// What every window is given before it comes to the screen: its place, and a name for each control; how long it speaks.
#pragma once

#include <QWidget>

namespace quelvar::forms {

// Milliseconds that a sentence stays in the status bar of a window.
inline constexpr int kDureeDUnePhrase = 8000;

// The largest window that the screen shows whole, with what the window system puts around it.
QSize PlaceSurLEcran(const QWidget& fenetre);

// Makes the window no larger than the screen, and puts it where its frame lies inside. A content that needs more than
// that scrolls.
void TenirDansLEcran(QWidget& fenetre);
// The same for a screen of that place.
void TenirDans(QWidget& fenetre, const QRect& ecran);
// Whether the content of the window needs more than the screen has.
bool DepasseLEcran(const QWidget& fenetre);

// Gives the controls that take the focus the name by which a screen reader calls them, from what stands beside them:
// the label that leads to it, its tool tip, or for a button whose caption is a sign or a number the frame that it is
// in. A name that is there stays, and a caption in words is one.
void NommerLesControles(QWidget& fenetre);

}  // namespace quelvar::forms
