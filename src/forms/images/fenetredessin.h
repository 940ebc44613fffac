// Window of the pictures that a run leaves beside its report: one at a time, chosen in a list, shown, saved, printed.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/dessin/dessin.h"
#include "forms/services/services.h"

namespace Ui {
class FenetreDessin;
}

namespace quelvar::forms {

struct SujetDeDessin {
  // Literals, for they are kept as views: what stands behind the generic in the usual name of a saved picture ("Prf"),
  // what the pictures show, for a screen reader, and the caption of the list with the "&" of its letter.
  std::string_view suffixe;
  std::string_view nom;
  std::string_view choix;
  std::vector<std::string> pages;  // one picture each, by the words of the list, which is hidden when there is one
  std::function<Dessin(std::size_t page)> dessiner;  // owns what it draws from: the run is over
};

class FenetreDessin : public Forme {
  Q_OBJECT
 public:
  // `sujet` has one page at least.
  FenetreDessin(Services& services, const Contexte& contexte, SujetDeDessin sujet);
  ~FenetreDessin() override;

  const SujetDeDessin& Sujet() const { return sujet_; }

 private:
  void Dessiner();

  SujetDeDessin sujet_;
  std::unique_ptr<Ui::FenetreDessin> ui_;
};

// Opens the window on that subject, in place of the one of the same usual name; those of other programs stay. Nothing
// happens without a page.
void MontrerDessins(Services& services, const Contexte& contexte, SujetDeDessin sujet);

}  // namespace quelvar::forms
