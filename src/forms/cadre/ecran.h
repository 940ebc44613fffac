// The room that the screen leaves to a window.
#pragma once

#include <QScreen>
#include <QWidget>

namespace quelvar::forms {

// The largest window that the screen shows whole, with what the window system puts around it.
inline QSize PlaceSurLEcran(const QWidget& fenetre) {
  constexpr QSize cadre(0, 40);
  return fenetre.screen()->availableSize() - cadre;
}

}  // namespace quelvar::forms
