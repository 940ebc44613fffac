// What every form beside the main one shares: the services it works with, the data set it was opened on, its help
// button, and how it is left.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <functional>
#include <optional>
#include <string_view>

#include "core/options/description.h"
#include "core/programme/programme.h"
#include "forms/services/lanceur.h"

namespace quelvar::forms {

struct Services;

// The question before a form closes over work that no file has yet.
inline constexpr std::string_view kNonSauvegarde =
    "Vous avez fait des modifications et vous n'avez pas sauvegardé : annulez et sauvegardez le cas échéant"_w;

class Forme : public QDialog {
  Q_OBJECT
 public:
  explicit Forme(Services& services, Qt::WindowFlags genre = {});
  // On the data set of another form.
  Forme(Services& services, const Contexte& contexte, Qt::WindowFlags genre = {});

  // Whether the form was opened on that data set.
  bool EstSur(const Contexte& contexte) const;
  // Whether something was typed or chosen that no file has yet.
  virtual bool ATravail() const { return false; }
  // Asks when the form holds work that would be lost; true when it may close.
  bool PeutFermer();

  // The user leaves: by the button of RelierQuitter, by Escape or by the cross of the window. A form that the program
  // closes is not left.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* evenement) override;

  // The question before the work is lost; Ok loses it.
  virtual std::string_view QuestionDePerte() const { return kNonSauvegarde; }

  // The button opens that entry of the menu "Aide"; it is disabled when its page is not there.
  void RelierAide(QPushButton& bouton, const char* entree);
  void RelierQuitter(QPushButton& bouton);
  // The run that ends what the form had begun, when the user leaves it, on the data set of the form. It starts once the
  // form is gone, so it holds copies only.
  void AuDepart(Programme programme) { auDepart_ = std::move(programme); }
  // The same for a form whose leaving is told by the one sentence of a run that was given up.
  void AuDepartDireLArret();

  // Reads or writes outside of a run; a failure is shown as that of a run. False when it failed.
  bool Garder(const std::function<void()>& gestes) const;

  // Runs the program on the data set of the form and tells how it ended; nothing when nothing was done
  // (Services::LancerSur), and the form then stays with its choices.
  template <class O>
  std::optional<Fin> Lancer(const Description<O>& programme, const O& options) {
    return LancerEtape([&](const Contexte& sur) { return programme.Executer(sur, options); });
  }
  // The same for a run on what no options say: lines that were edited one by one, of which two may have one name and
  // which take the place of those of the file; what was prepared when the form opened; what a picture is to show.
  std::optional<Fin> LancerEtape(const Etape& etape) const;

  Services& services_;
  const Contexte contexte_;  // of the generic that the form was opened on

 private:
  Programme auDepart_;
  bool parLeProgramme_ = false;  // closed by the program, not left by the user
};

}  // namespace quelvar::forms
