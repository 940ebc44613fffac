// The table of the programs that quelvar-batch runs: names, options, and the function behind each. The list, the help
// and the parsing of the command line all come from it.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/programme/programme.h"
#include "core/texte/nombres.h"

namespace quelvar::batch {

// A command line that can't be run; the text (code page) is for the user.
struct UsageIncorrect : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Option {
  std::string nom;      // as typed before "="; any beginning of it that names no other option will do
  std::string valeurs;  // what may stand behind it
  std::string defaut;
  std::string aide;
  std::vector<std::string> autresNoms;  // that of the control on the form, above all
};

// An option as typed, in the order of the command line.
using ValeurDOption = std::pair<std::string, std::string>;

struct Programme {
  std::string nom;
  std::string resume;
  std::vector<Option> options;
  // Raises UsageIncorrect before anything runs when an option or a value is not known.
  std::function<Fin(const Contexte&, const std::vector<ValeurDOption>&)> executer;
};

// Index of the option that a name stands for: the option itself, one of its other names, or the only one that begins
// so. `nomProgramme` is for the message. Raises UsageIncorrect.
std::size_t TrouverOption(const std::vector<Option>& options, const std::string& nom, const std::string& nomProgramme);

// The value of a box that is ticked or not. Raises UsageIncorrect.
bool LireOuiNon(const std::string& nom, const std::string& valeur);

// The names of a list separated by commas; an empty text holds none. Blanks belong to the names.
std::vector<std::string> NomsSepares(std::string_view texte);

// "SEX1=Homme" in two: a name of at most four characters, and the text behind the sign. Raises UsageIncorrect.
std::pair<std::string, std::string> NomEtTexte(const std::string& option, const std::string& valeur);

// Builds a Programme around an options struct: each option names the member that it sets, and its default is read from
// a struct fresh from its constructor.
template <typename Options>
class Description {
 public:
  using Entree = Fin (*)(const Contexte&, const Options&);
  using Poser = std::function<void(Options&, const std::string& valeur)>;

  Description(std::string nom, std::string_view resume, Entree entree) : entree_(entree) {
    programme_.nom = std::move(nom);
    programme_.resume = resume;
  }

  // oui or non.
  Description& OuiNon(std::string nom, bool Options::*membre, std::string_view aide) {
    return Choix(std::move(nom), membre, {{"oui", true}, {"non", false}}, aide);
  }

  // One of a few words.
  template <typename T>
  Description& Choix(std::string nom, T Options::*membre, std::vector<std::pair<std::string, T>> mots,
                     std::string_view aide) {
    std::string valeurs;
    std::string defaut;
    for (const auto& [mot, valeur] : mots) {
      valeurs += (valeurs.empty() ? "" : "|") + mot;
      if (Options{}.*membre == valeur && defaut.empty()) defaut = mot;
    }
    return Libre(nom, valeurs, defaut, aide, [nom, valeurs, membre, mots](Options& options, const std::string& texte) {
      for (const auto& [mot, valeur] : mots) {
        if (mot != Minuscules(texte)) continue;
        options.*membre = valeur;
        return;
      }
      throw UsageIncorrect(Joindre({"l'option ", nom, " attend ", valeurs, " et non \"", texte, "\""}));
    });
  }

  // A whole number between two bounds.
  Description& Entier(std::string nom, int Options::*membre, int minimum, int maximum, std::string_view aide) {
    const std::string valeurs = Joindre({Nombre(minimum), "..", Nombre(maximum)});
    return Libre(nom, valeurs, Nombre(Options{}.*membre), aide, [=](Options& options, const std::string& texte) {
      const std::string_view chiffres = std::string_view(texte).substr(texte.starts_with('-') ? 1 : 0);
      const bool entier = !chiffres.empty() && chiffres.size() <= 9 &&
                          chiffres.find_first_not_of("0123456789") == std::string_view::npos;
      const double valeur = entier ? ValeurDe(texte) : 0;
      if (!entier || valeur < minimum || valeur > maximum)
        throw UsageIncorrect(
            Joindre({"l'option ", nom, " attend un nombre entier (", valeurs, ") et non \"", texte, "\""}));
      options.*membre = static_cast<int>(valeur);
    });
  }

  Description& Texte(std::string nom, std::string Options::*membre, std::string_view valeurs, std::string_view aide) {
    return Libre(std::move(nom), valeurs, Options{}.*membre, aide,
                 [membre](Options& options, const std::string& texte) { options.*membre = texte; });
  }

  // Names separated by commas.
  Description& Noms(std::string nom, std::optional<std::vector<std::string>> Options::*membre, std::string_view defaut,
                    std::string_view aide) {
    return Libre(std::move(nom), "NOM,NOM...", defaut, aide,
                 [membre](Options& options, const std::string& texte) { options.*membre = NomsSepares(texte); });
  }

  // Anything else: `poser` sets the struct or raises UsageIncorrect.
  Description& Libre(std::string nom, std::string_view valeurs, std::string_view defaut, std::string_view aide,
                     Poser poser) {
    programme_.options.push_back({std::move(nom), std::string(valeurs), std::string(defaut), std::string(aide), {}});
    poseurs_.push_back(std::move(poser));
    return *this;
  }

  // Other names of the option described last.
  Description& Alias(std::initializer_list<std::string> noms) {
    programme_.options.back().autresNoms = noms;
    return *this;
  }

  operator Programme() const {
    Programme programme = programme_;
    programme.executer = [entree = entree_, decrites = programme_.options, poseurs = poseurs_, nom = programme_.nom](
                             const Contexte& contexte, const std::vector<ValeurDOption>& valeurs) {
      Options options;
      for (const auto& [cle, valeur] : valeurs) poseurs[TrouverOption(decrites, cle, nom)](options, valeur);
      return entree(contexte, options);
    };
    return programme;
  }

 private:
  Entree entree_;
  Programme programme_;
  std::vector<Poser> poseurs_;
};

// Every program, in the order of --liste.
const std::vector<Programme>& Programmes();

// One function a program, each in its own file.
Programme ProgrammeAnecar();
Programme ProgrammeCaracteres();
Programme ProgrammeCroise();
Programme ProgrammeEcapem();
Programme ProgrammeExportCsv();
Programme ProgrammeExporter();
Programme ProgrammeFusionner();
Programme ProgrammeGendat();
Programme ProgrammeGraphe();
Programme ProgrammeImportBurt();
Programme ProgrammeImportCsv();
Programme ProgrammeImportDbf();
Programme ProgrammeImportTableau();
Programme ProgrammeInversion();
Programme ProgrammeModifMod();
Programme ProgrammeNomeMod();
Programme ProgrammeNomQuest();
Programme ProgrammePosmod();
Programme ProgrammePrepRecod();
Programme ProgrammePrepText();
Programme ProgrammeRecodage();
Programme ProgrammeSaisieMot();
Programme ProgrammeSuplMot();
Programme ProgrammeTabMot();
Programme ProgrammeTri();
Programme ProgrammeTabMotAgreg();
Programme ProgrammeSaisie();
Programme ProgrammeTriapl();
Programme ProgrammeTriFichier();
Programme ProgrammeWardCoupe();

}  // namespace quelvar::batch
