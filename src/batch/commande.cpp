#include "batch/commande.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "core/programme/horspage.h"
#include "core/programme/rapport.h"
#include "core/session/generique.h"
#include "core/texte/listes.h"

namespace quelvar::batch {

namespace {

const Programme& Trouver(const std::string& nom) {
  const std::vector<Programme>& programmes = Programmes();
  const auto trouve =
      std::find_if(programmes.begin(), programmes.end(), [&](const Programme& p) { return p.nom == Minuscules(nom); });
  if (trouve == programmes.end())
    throw UsageIncorrect(Joindre({"programme inconnu : ", nom, " (voir : quelvar-batch --liste)"}));
  return *trouve;
}

DateHeure LireHorloge(const std::string& texte) {
  DateHeure instant;
  const int lus = std::sscanf(texte.c_str(), "%d-%d-%d%*1[ T]%d:%d:%d", &instant.annee, &instant.mois, &instant.jour,
                              &instant.heure, &instant.minute, &instant.seconde);
  const auto entre = [](int valeur, int minimum, int maximum) { return valeur >= minimum && valeur <= maximum; };
  const bool valable = lus == 6 && entre(instant.annee, 1, 9999) && entre(instant.mois, 1, 12) &&
                       entre(instant.jour, 1, 31) && entre(instant.heure, 0, 23) && entre(instant.minute, 0, 59) &&
                       entre(instant.seconde, 0, 59);
  if (!valable) throw UsageIncorrect(Joindre({"--horloge attend \"AAAA-MM-JJ hh:mm:ss\" et non \"", texte, "\""}));
  return instant;
}

// Arguments taken one after the other.
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string>& tapes) : tapes_(tapes) {}
  bool Reste() const { return i_ < tapes_.size(); }
  std::string Prendre() { return DepuisUtf8(tapes_[i_++]); }
  // The same argument as a name, of which nothing is lost.
  std::string DernierNom() const { return NomDepuisUtf8(tapes_[i_ - 1]); }
  // The same argument as it was typed.
  const std::string& Dernier() const { return tapes_[i_ - 1]; }
  // What follows an option that needs it.
  std::string Valeur(const std::string& option) {
    if (!Reste()) throw UsageIncorrect(Joindre({"il manque une valeur après "_w, option}));
    return Prendre();
  }

 private:
  const std::vector<std::string>& tapes_;
  std::size_t i_ = 0;
};

// What stands behind the sign of "nom=valeur", as it was typed.
std::string_view Brute(std::string_view argument) { return argument.substr(argument.find('=') + 1); }

// What becomes of the letters that the code page lacks in the value of an option. Those of an option that is not found
// do not matter: the reading of the options refuses it.
Option::Etrangers EtrangersDe(const Programme& programme, const std::string& option) {
  try {
    return programme.options[TrouverOption(programme.options, {option, {}}, programme.nom).rang].etrangers;
  } catch (const UsageIncorrect&) {
    return Option::Etrangers::Perdus;
  }
}

// The value of an option: what the code page lacks is not made "?" where it would come into a file.
std::string ValeurDeLOption(const Programme& programme, const std::string& option, std::string_view utf8) {
  const Option::Etrangers etrangers = EtrangersDe(programme, option);
  if (etrangers == Option::Etrangers::Gardes) return NomDepuisUtf8(utf8);
  if (const std::string refus = RefusHorsPage(utf8); !refus.empty() && etrangers == Option::Etrangers::Refuses)
    throw UsageIncorrect(Joindre({"l'option ", option, " : ", refus}));
  return DepuisUtf8(utf8);
}

// Takes a global option; false when the argument is none.
bool PrendreOptionGenerale(const std::string& argument, Arguments& arguments, LigneDeCommande& demande) {
  if (argument == "-C") {
    arguments.Valeur(argument);
    const std::string repertoire = arguments.DernierNom();
    const std::optional<Chemin> trouve = ChercherFichier(".", repertoire);
    std::error_code code;
    if (!trouve || !std::filesystem::is_directory(*trouve, code))
      throw UsageIncorrect(Joindre({"répertoire introuvable : "_w, repertoire}));
    if (::access(trouve->c_str(), R_OK | X_OK) != 0)
      throw UsageIncorrect(Joindre({"répertoire interdit : "_w, repertoire}));
    demande.repertoire = *trouve;
  } else if (argument == "--niveau") {
    const std::string niveau = arguments.Valeur(argument);
    if (niveau != "1" && niveau != "2")
      throw UsageIncorrect(Joindre({"--niveau attend 1 ou 2 et non \"", niveau, "\""}));
    demande.niveau = niveau == "1" ? kNiveauSimple : kNiveauAvance;
  } else if (argument == "--reponse") {
    arguments.Valeur(argument);
    demande.reponses.push_back(arguments.DernierNom());  // it may be the name of a file or of a generic
  } else if (argument == "--horloge") {
    demande.horloge = LireHorloge(arguments.Valeur(argument));
  } else {
    return false;
  }
  return true;
}

void PrendreProgramme(const std::string& nom, Arguments& arguments, LigneDeCommande& demande) {
  demande.programme = &Trouver(nom);
  bool avecGenerique = false;
  while (arguments.Reste()) {
    const std::string argument = arguments.Prendre();
    if (argument == "--aide") {
      demande.genre = LigneDeCommande::Genre::AideProgramme;
      return;
    }
    if (!argument.empty() && argument[0] == '-' && PrendreOptionGenerale(argument, arguments, demande)) continue;
    const bool optionDAbord = demande.programme->generiqueFacultatif && argument.find('=') != std::string::npos;
    if (!avecGenerique && !optionDAbord) {
      const std::string generique = arguments.DernierNom();
      demande.generique = SansExtension(generique);
      avecGenerique = true;
      continue;
    }
    const std::size_t egal = argument.find('=');
    if (egal == std::string::npos || egal == 0)
      throw UsageIncorrect(Joindre({"une option s'écrit nom=valeur, et non \""_w, argument, "\""}));
    const std::string option = Minuscules(argument.substr(0, egal));
    demande.options.emplace_back(option, ValeurDeLOption(*demande.programme, option, Brute(arguments.Dernier())));
  }
  if (!avecGenerique && !demande.programme->generiqueFacultatif)
    throw UsageIncorrect(Joindre({"il manque le générique après "_w, nom}));
}

}  // namespace

LigneDeCommande LireLigneDeCommande(const std::vector<std::string>& tapes) {
  LigneDeCommande demande;
  Arguments arguments(tapes);
  while (arguments.Reste()) {
    const std::string argument = arguments.Prendre();
    if (PrendreOptionGenerale(argument, arguments, demande)) continue;
    if (argument == "--liste") {
      demande.genre = LigneDeCommande::Genre::Liste;
      return demande;
    }
    if (argument == "--aide" || argument == "--help" || argument == "-h") {
      demande.genre = LigneDeCommande::Genre::AideGenerale;
      return demande;
    }
    if (!argument.empty() && argument[0] == '-') throw UsageIncorrect(Joindre({"option inconnue : ", argument}));
    PrendreProgramme(argument, arguments, demande);
    return demande;
  }
  throw UsageIncorrect("il manque le programme (voir : quelvar-batch --liste)");
}

std::string TexteListe() {
  constexpr int kLargeurDesNoms = 16;  // wider than the longest
  std::string texte;
  for (const Programme& programme : Programmes())
    texte += Joindre({CadreGauche(programme.nom, kLargeurDesNoms), "  ", programme.resume, "\n"});
  return texte;
}

std::string TexteAideGenerale() {
  return Joindre(
      {"usage : quelvar-batch [-C REPERTOIRE] [--niveau 1|2] [--reponse TEXTE]... PROGRAMME GENERIQUE "
       "[option=valeur]...\n"
       "        quelvar-batch --liste              tous les programmes\n"
       "        quelvar-batch PROGRAMME --aide     ses options, leurs valeurs et leurs défauts\n\n"
       "  -C REPERTOIRE     répertoire de travail (par défaut le répertoire courant)\n"
       "  --niveau 1|2      niveau d'utilisateur (par défaut 1)\n"
       "  --reponse TEXTE   réponse aux boîtes de dialogue, dans l'ordre : Oui, Non, Annuler ou un texte ;\n"
       "                    sans réponse, une boîte prend sa valeur par défaut\n"
       "  --horloge \"AAAA-MM-JJ hh:mm:ss\"   date et heure que portent les comptes rendus\n\n"
       "Le nom d'une option s'abrège tant qu'une seule option du programme commence ainsi.\n"
       "Le compte rendu va sur la sortie standard, les boîtes sur la sortie d'erreur.\n"
       "Code de retour : 0 fin normale, 1 arrêt du programme, 2 commande incorrecte.\n"_w});
}

namespace {

// "verification=oui|non (oui : 50, non : 0)", a name with words of its own.
std::string TexteAutreNom(const AutreNom& autre) {
  std::string mots;
  std::vector<std::string> sens;
  for (const auto& [mot, valeur] : autre.mots) {
    mots += (mots.empty() ? "" : "|") + mot;
    if (!valeur.empty()) sens.push_back(Joindre({mot, " : ", valeur}));
  }
  return Joindre({"      ou ", autre.nom, "=", mots, " (", Enumerer(sens), ")\n"});
}

}  // namespace

std::string TexteAideProgramme(const Programme& programme) {
  std::string texte =
      Joindre({programme.nom, " : ", programme.resume, "\n\nusage : quelvar-batch ", programme.nom,
               programme.generiqueFacultatif ? std::string_view(" [GENERIQUE]") : std::string_view(" GENERIQUE"),
               " [option=valeur]...\n"});
  if (!programme.options.empty()) texte += "\n";
  for (const Option& option : programme.options) {
    texte += Joindre({"  ", option.nom, "=", option.valeurs, "\n      ", option.aide});
    if (!option.defaut.empty()) texte += Joindre({" (par défaut : "_w, option.defaut, ")"});
    texte += "\n";
    for (const AutreNom& autre : option.autresNoms)
      if (!autre.mots.empty()) texte += TexteAutreNom(autre);
  }
  if (!programme.options.empty()) texte += "\nLe nom d'une option s'abrège tant qu'une seule commence ainsi\n"_w;
  if (std::ranges::any_of(programme.options, &Option::aDesNoms))
    texte +=
        "\nDans un nom, \\, \\= et \\\\ sont une virgule, un signe = et un \\ (entre apostrophes dans un terminal)\n"_w;
  return texte;
}

}  // namespace quelvar::batch
