// The table of a program's options around their struct: what the companion, the form and the equivalent command know of
// a program, said once and beside it.
//
// Reading what was written gives the same options back, and the order in which options are typed never matters: they
// are set in the order of the table, so that one which bears on another stands before it. Gestures alone are done in
// the order in which they come.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/options/noms.h"
#include "core/options/option.h"
#include "core/options/table.h"
#include "core/programme/programme.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace detail {

template <typename T>
struct SansOptional {
  using Type = T;
};
template <typename T>
struct SansOptional<std::optional<T>> {
  using Type = T;
};

// A member of the struct as the option sees it: its value when it has one.
template <typename T>
const T* Presente(const T& membre) {
  return &membre;
}
template <typename T>
const T* Presente(const std::optional<T>& membre) {
  return membre ? &*membre : nullptr;
}

}  // namespace detail

// `Membre` is a pointer to a member of the struct, or a generic function from the struct to one; a member that is a
// std::optional has no value until the option is given.
template <typename Options>
class Description : public TableDOptions<Options> {
 public:
  using Entree = std::function<Fin(const Contexte&, const Options&)>;
  using typename TableDOptions<Options>::Poser;
  using typename TableDOptions<Options>::Ecrire;
  template <typename Membre>
  using TypeDe =
      typename detail::SansOptional<std::remove_cvref_t<std::invoke_result_t<const Membre&, Options&>>>::Type;
  template <typename T>
  using Mots = std::vector<std::pair<std::string, T>>;

  Description(std::string nom, std::string_view resume, Entree entree)
      : TableDOptions<Options>(std::move(nom)), resume_(resume), entree_(std::move(entree)) {}

  // --- the table: one call an option ---

  template <typename Membre>
  Description& OuiNon(std::string nom, Membre membre, std::string_view aide) {
    return Choix(std::move(nom), membre, {{"oui", true}, {"non", false}}, aide);
  }

  // One of a few words; the first word of a value is the one that is shown and written.
  template <typename Membre>
  Description& Choix(std::string nom, Membre membre, Mots<TypeDe<Membre>> mots, std::string_view aide) {
    using T = TypeDe<Membre>;
    const auto ecrire = [membre, mots](const Options& options) {
      std::vector<std::string> textes;
      const T* const valeur = detail::Presente(std::invoke(membre, options));
      if (valeur == nullptr) return textes;
      for (const auto& mot : mots)
        if (textes.empty() && mot.second == *valeur) textes.push_back(mot.first);
      return textes;
    };
    Option option;
    std::vector<T> vues;
    for (const auto& mot : mots) {
      option.mots.push_back(mot.first);
      if (std::find(vues.begin(), vues.end(), mot.second) != vues.end()) continue;
      vues.push_back(mot.second);
      option.valeurs += (option.valeurs.empty() ? "" : "|") + mot.first;
    }
    option.nom = nom;
    option.genre = Option::Genre::Mots;
    option.aide = aide;
    const std::string valeurs = option.valeurs;
    const auto poser = [nom, valeurs, membre, mots](Options& options, const std::string& texte) {
      const auto trouve =
          std::find_if(mots.begin(), mots.end(), [&](const auto& mot) { return EgalSansCasse(mot.first, texte); });
      if (trouve == mots.end()) RefuserValeur(nom, valeurs, texte);
      std::invoke(membre, options) = trouve->second;
    };
    return Ajouter(std::move(option), poser, ecrire);
  }

  // A whole number between two bounds.
  template <typename Membre>
  Description& Entier(std::string nom, Membre membre, int minimum, int maximum, std::string_view aide) {
    Option option;
    option.nom = nom;
    option.genre = Option::Genre::Entier;
    option.valeurs = Joindre({Nombre(minimum), "..", Nombre(maximum)});
    option.aide = aide;
    option.minimum = minimum;
    option.maximum = maximum;
    const auto poser = [=](Options& options, const std::string& texte) {
      std::invoke(membre, options) = LireEntier(nom, texte, minimum, maximum);
    };
    return Ajouter(std::move(option), poser, EcrireMembre(membre, [](int valeur) { return Nombre(valeur); }));
  }

  template <typename Membre>
  Description& Reel(std::string nom, Membre membre, std::string_view aide) {
    constexpr double kSansBorne = std::numeric_limits<double>::infinity();
    return Reel(std::move(nom), membre, -kSansBorne, kSansBorne, aide).Valeurs("NOMBRE");
  }
  // A number between two bounds.
  template <typename Membre>
  Description& Reel(std::string nom, Membre membre, double plusPetit, double plusGrand, std::string_view aide) {
    Option option;
    option.nom = nom;
    option.genre = Option::Genre::Reel;
    option.valeurs = Joindre({EcrireReel(plusPetit), "..", EcrireReel(plusGrand)});
    option.aide = aide;
    option.plusPetit = plusPetit;
    option.plusGrand = plusGrand;
    const auto poser = [=](Options& options, const std::string& texte) {
      std::invoke(membre, options) = LireReel(nom, texte, plusPetit, plusGrand);
    };
    return Ajouter(std::move(option), poser, EcrireMembre(membre, EcrireReel));
  }

  template <typename Membre>
  Description& Texte(std::string nom, Membre membre, std::string_view valeurs, std::string_view aide) {
    Option option;
    option.nom = std::move(nom);
    option.genre = Option::Genre::Texte;
    option.valeurs = valeurs;
    option.aide = aide;
    const auto poser = [=](Options& options, const std::string& texte) { std::invoke(membre, options) = texte; };
    return Ajouter(std::move(option), poser, EcrireMembre(membre, [](const std::string& texte) { return texte; }));
  }

  // The name of a file, of which no letter is lost.
  template <typename Membre>
  Description& Fichier(std::string nom, Membre membre, std::string_view valeurs, std::string_view aide) {
    return Texte(std::move(nom), membre, valeurs, aide).NommeUnFichier();
  }

  // The name of the file of a picture, which the companion writes as SVG only: another extension is refused before the
  // run that it shows. Nothing is told back when no picture is asked for.
  Description& Image(std::string nom, std::string Options::*membre, std::string_view valeurs, std::string_view aide) {
    const auto poser = [nom, membre](Options& options, const std::string& texte) {
      ExigerSvg(nom, texte);
      options.*membre = texte;
    };
    const auto ecrire = [membre](const Options& options) {
      return (options.*membre).empty() ? std::vector<std::string>() : std::vector<std::string>{options.*membre};
    };
    return Libre(std::move(nom), valeurs, aide, poser, ecrire).NommeUnFichier();
  }

  // Names separated by commas.
  template <typename Membre>
  Description& Noms(std::string nom, Membre membre, std::string_view aide) {
    Option option;
    option.nom = std::move(nom);
    option.genre = Option::Genre::Noms;
    option.valeurs = "NOM,NOM...";
    option.aide = aide;
    option.aDesNoms = true;
    const auto poser = [=](Options& options, const std::string& texte) {
      std::invoke(membre, options) = NomsSepares(texte);
    };
    return Ajouter(std::move(option), poser, EcrireMembre(membre, NomsJoints));
  }

  // "NOM=TEXTE", which may be repeated, with one text for each name: the pairs in their order.
  Description& Couples(std::string nom, std::vector<std::pair<std::string, std::string>> Options::*membre,
                       std::string_view valeurs, std::string_view aide) {
    const auto poser = [nom, membre](Options& options, const std::string& texte) {
      (options.*membre).push_back(NomEtTexte(nom, texte));
    };
    const auto ecrire = [membre](const Options& options) {
      std::vector<std::string> textes;
      for (const auto& [nomme, texte] : options.*membre) textes.push_back(EcrireCouple(nomme, texte));
      return textes;
    };
    return Libre(std::move(nom), valeurs, aide, poser, ecrire).ADesNoms().RepetableParNom();
  }

  // Anything else: `poser` sets the struct or raises UsageIncorrect, `ecrire` tells it back.
  Description& Libre(std::string nom, std::string_view valeurs, std::string_view aide, Poser poser, Ecrire ecrire) {
    return Ajouter(OptionLibre(std::move(nom), valeurs, aide), std::move(poser), std::move(ecrire));
  }

  // One of the things that are done one after the other, each on what the former ones left: only among them does the
  // order count. `EcrireGestes` tells all of them back.
  Description& Geste(std::string nom, std::string_view valeurs, std::string_view aide, Poser poser) {
    Option option = OptionLibre(std::move(nom), valeurs, aide);
    option.geste = true;
    Ajouter(std::move(option), std::move(poser), [](const Options&) { return std::vector<std::string>(); });
    return Repetable();
  }
  Description& EcrireGestes(std::function<LigneDOptions(const Options&)> ecrire) {
    this->TenirLesGestes(std::move(ecrire));
    return *this;
  }

  // What ends the options of one launch: those behind it are for the next launch, which begins from the former one.
  // `avancer` adds a launch; `lancements` gives the struct as it is with the first launch, the first two, and so on.
  Description& Etape(std::string nom, std::string_view aide, std::function<void(Options&)> avancer,
                     std::function<std::vector<Options>(const Options&)> lancements) {
    const auto poser = [nom](Options&, const std::string& texte) {
      if (!EgalSansCasse(texte, "oui")) RefuserValeur(nom, "oui", texte);
    };
    Libre(std::move(nom), "oui", aide, poser, [](const Options&) { return std::vector<std::string>(); });
    this->FinirUnLancement(std::move(avancer), std::move(lancements));
    return *this;
  }

  // --- about the option described last ---

  // The words of the help for what stands when the option is not given.
  Description& Defaut(std::string_view defaut) {
    this->Derniere().defaut = defaut;
    return *this;
  }
  // The words of the help for what may stand behind the name.
  Description& Valeurs(std::string_view valeurs) {
    this->Derniere().valeurs = valeurs;
    return *this;
  }
  Description& Alias(std::initializer_list<std::string> noms) {
    for (const std::string& nom : noms) this->Derniere().autresNoms.push_back({nom});
    return *this;
  }
  // Another name with words of its own.
  Description& Alias(std::string nom, std::vector<std::pair<std::string, std::string>> mots) {
    this->Derniere().autresNoms.push_back({std::move(nom), std::move(mots)});
    return *this;
  }
  // The control that shows it: a box that says "oui" when ticked, or what holds the value. Its name in lower case is
  // another name of the option.
  Description& Montre(std::string controle) {
    const bool caseACocher = this->Derniere().genre == Option::Genre::Mots && this->Derniere().mots.front() == "oui";
    Alias({Minuscules(controle)});
    this->Derniere().controles.push_back({std::move(controle), caseACocher ? "oui" : ""});
    return *this;
  }
  // A box whose caption denies the option.
  Description& MontreLeContraire(std::string controle) {
    Alias(Minuscules(controle), {{"oui", "non"}, {"non", "oui"}});
    this->Derniere().controles.push_back({std::move(controle), "non"});
    return *this;
  }
  // A radio button, or a box, that stands for one of the values.
  Description& Bouton(std::string_view controle, std::string valeur) {
    this->Derniere().controles.push_back({std::string(controle), std::move(valeur)});
    return *this;
  }
  // The words that an option with a reading of its own takes.
  Description& Parmi(std::initializer_list<std::string> mots) {
    this->Derniere().genre = Option::Genre::Mots;
    this->Derniere().mots = mots;
    return *this;
  }
  Description& NommeUnFichier() {
    this->Derniere().etrangers = Option::Etrangers::Gardes;
    return *this;
  }
  // The value is looked for among names that were read with the same loss.
  Description& SeCherche() {
    this->Derniere().etrangers = Option::Etrangers::Perdus;
    return *this;
  }
  // The value holds names, as core/options/noms.h reads them.
  Description& ADesNoms() {
    this->Derniere().aDesNoms = true;
    return *this;
  }
  Description& Repetable() {
    this->Derniere().repetable = true;
    return *this;
  }

  // The same with one value for each name, which stands in front of "=" unless told otherwise.
  Description& RepetableParNom(std::function<std::string(std::string_view)> nomDe = NomDuCouple) {
    this->Derniere().nomDe = std::move(nomDe);
    return Repetable();
  }

  // --- what is made of it ---

  // One line on what the program does, for the help.
  const std::string& Resume() const { return resume_; }
  // Runs the program.
  Fin Executer(const Contexte& contexte, const Options& options) const { return entree_(contexte, options); }

 private:
  template <typename Membre, typename EnTexte>
  static Ecrire EcrireMembre(Membre membre, EnTexte enTexte) {
    return [membre, enTexte](const Options& options) {
      const auto* const valeur = detail::Presente(std::invoke(membre, options));
      return valeur == nullptr ? std::vector<std::string>() : std::vector<std::string>{enTexte(*valeur)};
    };
  }

  static Option OptionLibre(std::string nom, std::string_view valeurs, std::string_view aide) {
    Option option;
    option.nom = std::move(nom);
    option.valeurs = valeurs;
    option.aide = aide;
    return option;
  }

  Description& Ajouter(Option option, Poser poser, Ecrire ecrire) {
    TableDOptions<Options>::Ajouter(std::move(option), std::move(poser), std::move(ecrire));
    return *this;
  }

  std::string resume_;
  Entree entree_;
};

// The line of quelvar-batch that does what the options say: only those that differ from their default (code page).
template <typename Options>
std::string CommandeEquivalente(const Description<Options>& programme, std::string_view generique, int niveau,
                                const Options& options) {
  return CommandeEcrite(programme.Nom(), generique, niveau, programme.Ecrite(options));
}

}  // namespace quelvar
