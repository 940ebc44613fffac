// The table of a program's options around their struct: what the companion, the form and the equivalent command know of
// a program, said once and beside it.
//
// Reading what was written gives the same options back, and the order in which options are typed never matters: they
// are set in the order of the table, so that one which bears on another stands before it.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/options/option.h"
#include "core/programme/programme.h"
#include "core/texte/nombres.h"
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
class Description {
 public:
  using Entree = std::function<Fin(const Contexte&, const Options&)>;
  using Poser = std::function<void(Options&, const std::string& valeur)>;
  // The values that set the struct so: none when the option was not given, several for one that may be repeated.
  using Ecrire = std::function<std::vector<std::string>(const Options&)>;
  template <typename Membre>
  using TypeDe =
      typename detail::SansOptional<std::remove_cvref_t<std::invoke_result_t<const Membre&, Options&>>>::Type;
  template <typename T>
  using Mots = std::vector<std::pair<std::string, T>>;

  Description(std::string nom, std::string_view resume, Entree entree)
      : nom_(std::move(nom)), resume_(resume), entree_(std::move(entree)) {}

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
    return Ajouter(std::move(option), poser, Ecrivain(membre, [](int valeur) { return Nombre(valeur); }));
  }

  template <typename Membre>
  Description& Reel(std::string nom, Membre membre, std::string_view aide) {
    Option option;
    option.nom = nom;
    option.genre = Option::Genre::Reel;
    option.valeurs = "NOMBRE";
    option.aide = aide;
    const auto poser = [=](Options& options, const std::string& texte) {
      std::invoke(membre, options) = LireReel(nom, texte);
    };
    return Ajouter(std::move(option), poser, Ecrivain(membre, EcrireReel));
  }

  template <typename Membre>
  Description& Texte(std::string nom, Membre membre, std::string_view valeurs, std::string_view aide) {
    Option option;
    option.nom = std::move(nom);
    option.genre = Option::Genre::Texte;
    option.valeurs = valeurs;
    option.aide = aide;
    const auto poser = [=](Options& options, const std::string& texte) { std::invoke(membre, options) = texte; };
    return Ajouter(std::move(option), poser, Ecrivain(membre, [](const std::string& texte) { return texte; }));
  }

  // Names separated by commas.
  template <typename Membre>
  Description& Noms(std::string nom, Membre membre, std::string_view aide) {
    Option option;
    option.nom = std::move(nom);
    option.genre = Option::Genre::Noms;
    option.valeurs = "NOM,NOM...";
    option.aide = aide;
    const auto poser = [=](Options& options, const std::string& texte) {
      std::invoke(membre, options) = NomsSepares(texte);
    };
    return Ajouter(std::move(option), poser, Ecrivain(membre, NomsJoints));
  }

  // "NOM=TEXTE", which may be repeated: the pairs in their order.
  Description& Couples(std::string nom, std::vector<std::pair<std::string, std::string>> Options::*membre,
                       std::string_view valeurs, std::string_view aide) {
    const auto poser = [nom, membre](Options& options, const std::string& texte) {
      (options.*membre).push_back(NomEtTexte(nom, texte));
    };
    const auto ecrire = [membre](const Options& options) {
      std::vector<std::string> textes;
      for (const auto& couple : options.*membre) textes.push_back(couple.first + "=" + couple.second);
      return textes;
    };
    Libre(std::move(nom), valeurs, aide, poser, ecrire);
    return Repetable();
  }

  // Anything else: `poser` sets the struct or raises UsageIncorrect, `ecrire` tells it back.
  Description& Libre(std::string nom, std::string_view valeurs, std::string_view aide, Poser poser, Ecrire ecrire) {
    Option option;
    option.nom = std::move(nom);
    option.valeurs = valeurs;
    option.aide = aide;
    return Ajouter(std::move(option), std::move(poser), std::move(ecrire));
  }

  // One of the things that are done one after the other, each on what the former ones left: only among them does the
  // order count. `EcrireGestes` tells all of them back.
  Description& Geste(std::string nom, std::string_view valeurs, std::string_view aide, Poser poser) {
    if (gestes_ == kAucun) gestes_ = options_.size();
    Libre(std::move(nom), valeurs, aide, std::move(poser), [](const Options&) { return std::vector<std::string>(); });
    options_.back().geste = true;
    return Repetable();
  }
  Description& EcrireGestes(std::function<LigneDOptions(const Options&)> ecrire) {
    ecrireGestes_ = std::move(ecrire);
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
    etape_ = {options_.size() - 1, std::move(avancer), std::move(lancements)};
    return *this;
  }

  // --- about the option described last ---

  // The words of the help for what stands when the option is not given.
  Description& Defaut(std::string_view defaut) {
    options_.back().defaut = defaut;
    return *this;
  }
  // The words of the help for what may stand behind the name.
  Description& Valeurs(std::string_view valeurs) {
    options_.back().valeurs = valeurs;
    return *this;
  }
  Description& Alias(std::initializer_list<std::string> noms) {
    for (const std::string& nom : noms) options_.back().autresNoms.push_back({nom});
    return *this;
  }
  // Another name with words of its own.
  Description& Alias(std::string nom, std::vector<std::pair<std::string, std::string>> mots) {
    options_.back().autresNoms.push_back({std::move(nom), std::move(mots)});
    return *this;
  }
  // The control that shows it: a box that says "oui" when ticked, or what holds the value. Its name in lower case is
  // another name of the option.
  Description& Montre(std::string controle) {
    const bool caseACocher = options_.back().genre == Option::Genre::Mots && options_.back().mots.front() == "oui";
    Alias({Minuscules(controle)});
    options_.back().controles.push_back({std::move(controle), caseACocher ? "oui" : ""});
    return *this;
  }
  // A box whose caption denies the option.
  Description& MontreLeContraire(std::string controle) {
    Alias(Minuscules(controle), {{"oui", "non"}, {"non", "oui"}});
    options_.back().controles.push_back({std::move(controle), "non"});
    return *this;
  }
  // A radio button, or a box, that stands for one of the values.
  Description& Bouton(std::string_view controle, std::string valeur) {
    options_.back().controles.push_back({std::string(controle), std::move(valeur)});
    return *this;
  }
  // The words that an option with a reading of its own takes.
  Description& Parmi(std::initializer_list<std::string> mots) {
    options_.back().genre = Option::Genre::Mots;
    options_.back().mots = mots;
    return *this;
  }
  Description& Repetable() {
    options_.back().repetable = true;
    return *this;
  }

  // --- what is made of it ---

  const std::string& Nom() const { return nom_; }
  const std::string& Resume() const { return resume_; }
  const std::vector<Option>& Table() const { return options_; }
  Fin Executer(const Contexte& contexte, const Options& options) const { return entree_(contexte, options); }

  // The option of that name. A name that the table has not is a fault of ours.
  const Option& De(std::string_view nom) const { return options_[RangDe(nom)]; }

  // Raises UsageIncorrect before anything runs: an option that is not known, a value that it does not take, two values
  // for an option that takes one.
  Options Lire(const LigneDOptions& ligne) const {
    Options options;
    auto debut = ligne.begin();
    while (true) {
      const auto fin = std::find_if(debut, ligne.end(), [&](const ValeurDOption& typee) { return EstEtape(typee); });
      PoserDansLOrdre(options, {debut, fin});
      if (fin == ligne.end() || fin + 1 == ligne.end()) return options;
      etape_->avancer(options);
      debut = fin + 1;
    }
  }

  // The options that differ from their default, so that Lire gives the same struct.
  LigneDOptions Ecrite(const Options& options) const {
    LigneDOptions ligne;
    Options courantes;
    if (!etape_) {
      EcrireEcarts(options, courantes, ligne);
      return ligne;
    }
    const std::vector<Options> lancements = etape_->lancements(options);
    for (std::size_t i = 0; i < lancements.size(); ++i) {
      if (i > 0) etape_->avancer(courantes);
      EcrireEcarts(lancements[i], courantes, ligne);
      if (lancements.size() > 1) ligne.emplace_back(options_[etape_->rang].nom, "oui");
    }
    return ligne;
  }

  // One option by the name of the table, of another name or of a control: what a form does with what is typed in it.
  // Raises UsageIncorrect.
  void PoserUne(Options& options, const std::string& nom, const std::string& valeur) const {
    const OptionTrouvee trouvee = TrouverOption(options_, {Minuscules(nom), valeur}, nom_);
    if (!trouvee.sansEffet) poseurs_[trouvee.rang](options, trouvee.valeur);
  }
  // The value that an option has now; empty when it was not given.
  std::string ValeurEcrite(const Options& options, std::string_view nom) const {
    const std::vector<std::string> textes = ecriveurs_[RangDe(nom)](options);
    return textes.empty() ? std::string() : textes.front();
  }

 private:
  struct EtapeDecrite {
    std::size_t rang;
    std::function<void(Options&)> avancer;
    std::function<std::vector<Options>(const Options&)> lancements;
  };

  template <typename Membre, typename EnTexte>
  static Ecrire Ecrivain(Membre membre, EnTexte enTexte) {
    return [membre, enTexte](const Options& options) {
      const auto* const valeur = detail::Presente(std::invoke(membre, options));
      return valeur == nullptr ? std::vector<std::string>() : std::vector<std::string>{enTexte(*valeur)};
    };
  }

  Description& Ajouter(Option option, Poser poser, Ecrire ecrire) {
    const std::vector<std::string> parDefaut = ecrire(Options{});
    if (!parDefaut.empty()) option.defaut = parDefaut.front();
    options_.push_back(std::move(option));
    poseurs_.push_back(std::move(poser));
    ecriveurs_.push_back(std::move(ecrire));
    return *this;
  }

  std::size_t RangDe(std::string_view nom) const {
    const auto trouvee =
        std::find_if(options_.begin(), options_.end(), [&](const Option& option) { return option.nom == nom; });
    if (trouvee == options_.end()) throw std::logic_error(Joindre({nom_, " : ", nom}));
    return static_cast<std::size_t>(trouvee - options_.begin());
  }

  bool EstEtape(const ValeurDOption& typee) const {
    return etape_ && TrouverOption(options_, typee, nom_).rang == etape_->rang;
  }

  // The options of one launch, whatever their order.
  void PoserDansLOrdre(Options& options, const LigneDOptions& typees) const {
    std::vector<OptionTrouvee> trouvees;
    for (const ValeurDOption& typee : typees) {
      OptionTrouvee trouvee = TrouverOption(options_, typee, nom_);
      if (!trouvee.sansEffet) trouvees.push_back(std::move(trouvee));
    }
    const auto place = [&](const OptionTrouvee& o) { return options_[o.rang].geste ? gestes_ : o.rang; };
    std::stable_sort(trouvees.begin(), trouvees.end(),
                     [&](const OptionTrouvee& a, const OptionTrouvee& b) { return place(a) < place(b); });
    for (std::size_t i = 0; i < trouvees.size(); ++i) {
      const Option& option = options_[trouvees[i].rang];
      const bool encore = i > 0 && trouvees[i - 1].rang == trouvees[i].rang && !option.repetable;
      if (encore && trouvees[i - 1].valeur != trouvees[i].valeur)
        throw UsageIncorrect(Joindre({"l'option ", option.nom, " est donnée deux fois : \""_w, trouvees[i - 1].valeur,
                                      "\" et \"", trouvees[i].valeur, "\""}));
      poseurs_[trouvees[i].rang](options, trouvees[i].valeur);
    }
  }

  // Adds what makes `courantes` into `voulues`, and makes it so.
  void EcrireEcarts(const Options& voulues, Options& courantes, LigneDOptions& ligne) const {
    for (std::size_t i = 0; i < options_.size(); ++i) {
      if (i == gestes_) EcrireLesGestes(voulues, ligne);
      const std::vector<std::string> textes = ecriveurs_[i](voulues);
      if (textes == ecriveurs_[i](courantes)) continue;
      for (const std::string& texte : textes) {
        ligne.emplace_back(options_[i].nom, texte);
        poseurs_[i](courantes, texte);
      }
    }
  }

  void EcrireLesGestes(const Options& voulues, LigneDOptions& ligne) const {
    for (ValeurDOption& geste : ecrireGestes_(voulues)) ligne.push_back(std::move(geste));
  }

  static constexpr std::size_t kAucun = static_cast<std::size_t>(-1);

  std::string nom_;
  std::string resume_;
  Entree entree_;
  std::vector<Option> options_;
  std::vector<Poser> poseurs_;
  std::vector<Ecrire> ecriveurs_;
  std::optional<EtapeDecrite> etape_;
  std::size_t gestes_ = kAucun;  // rank of the first of them
  std::function<LigneDOptions(const Options&)> ecrireGestes_;
};

// The line of quelvar-batch that does what the options say: only those that differ from their default (code page).
template <typename Options>
std::string CommandeEquivalente(const Description<Options>& programme, std::string_view generique, int niveau,
                                const Options& options) {
  return CommandeEcrite(programme.Nom(), generique, niveau, programme.Ecrite(options));
}

}  // namespace quelvar
