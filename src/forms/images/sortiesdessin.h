// What a form that shows a picture does with it: a file under the usual name, a file of the user's choice, paper.
#pragma once

#include <QAbstractButton>
#include <functional>
#include <string_view>

#include "forms/images/vuedessin.h"
#include "forms/services/services.h"

namespace quelvar::forms {

struct BoutonsDessin {
  QAbstractButton& enregistrer;
  QAbstractButton& enregistrerSous;
  QAbstractButton& imprimer;
};

// Ties the buttons to the picture that the view shows when they are pressed. `suffixe` stands behind the generic in the
// usual name ("Fac" for ENQFac.bmp); `resolution` gives the dots an inch of BMP and PNG. The form takes the name of the
// saved file as its caption.
void RelierSorties(QWidget& forme, Services& services, const VueDessin& vue, const Contexte& contexte,
                   std::string_view suffixe, const BoutonsDessin& boutons, std::function<int()> resolution);

}  // namespace quelvar::forms
