// Keys that a control answers to as it does to the mouse.
#pragma once

#include <QWidget>
#include <functional>
#include <initializer_list>

namespace quelvar::forms {

// Each of the keys acts while the control has the keyboard.
void RelierTouches(QWidget& controle, std::initializer_list<Qt::Key> touches, const std::function<void()>& action);
// Both keys of that name.
inline void RelierEntree(QWidget& controle, const std::function<void()>& action) {
  RelierTouches(controle, {Qt::Key_Return, Qt::Key_Enter}, action);
}

}  // namespace quelvar::forms
