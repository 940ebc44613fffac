#include "core/programme/programme.h"

#include "core/chiffres/nombres.h"
#include "core/fichiers/generiquetenu.h"
#include "core/programme/annulation.h"
#include "core/programme/refus.h"

namespace quelvar {

namespace {

constexpr std::uintmax_t kLimiteTexte = 35000;  // bytes that Text1 shows at most

std::string EnLignes(const std::vector<std::string>& lignes) {
  std::string texte;
  for (const std::string& ligne : lignes) texte += ligne + "\r\n";
  return texte;
}

// What the screen tells beside the lines of the report, which have their fixed words.
std::string PanneDe(const Erreur& erreur) { return TexteDuLieu(erreur).empty() ? std::string() : TexteErreur(erreur); }

Affichage AffichageDErreur(const Erreur& erreur, std::string_view nomRapport, const LibellesErreur& libelles) {
  return {
      Affichage::Ou::Texte, EnLignes(LignesDErreur(erreur, libelles)), std::string(nomRapport), {}, PanneDe(erreur)};
}

// The lines of the report joined by CR LF.
std::string LireRapport(const Chemin& chemin) {
  std::string texte;
  LecteurLignes lecteur(chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    texte += ligne;
    texte += "\r\n";
  }
  return texte;
}

// Runs the body; gives the failure that stopped it, and whether its report is to be kept. A failure to write the report
// itself comes out as an Erreur.
std::optional<Erreur> ExecuterCorps(Rapport& rapport, const LibellesErreur& libelles,
                                    const std::function<void(Rapport&)>& corps, bool& garde) {
  try {
    corps(rapport);
    return std::nullopt;
  } catch (const Annulation&) {
    throw;
  } catch (const Refus&) {
    garde = false;
    return Erreur(kArretAnnonce);
  } catch (...) {
    const Erreur erreur = ErreurEnCours();
    rapport.Lignes(LignesDErreur(erreur, libelles));
    return erreur;
  }
}

}  // namespace

std::vector<std::string> LignesDErreur(const Erreur& erreur, const LibellesErreur& libelles) {
  const int numero = erreur.Numero();
  if (!erreur.Phrase().empty()) return {erreur.Phrase()};
  if (numero == kArretAnnonce) return {};
  std::vector<std::string> lignes;
  if (libelles.avecAsterisques) lignes.emplace_back("**** ERREUR ********");
  if (numero == kFinDeFichierDepassee) {
    lignes.insert(lignes.end(), libelles.finDeFichier.begin(), libelles.finDeFichier.end());
  } else if (numero == kArgumentIncorrect && erreur.Question()) {
    const RepereQuestion& question = *erreur.Question();
    lignes.emplace_back("Il y a probablement une erreur dans le fichier *.POS");
    lignes.push_back(Joindre({libelles.question, NombreNu(question.numero), " nom=", question.nom}));
    lignes.push_back(
        Joindre({"position =", NombreNu(question.position), " code maximum=", NombreNu(question.codeMax)}));
    lignes.emplace_back("Verifiez et corrigez avant de relancer");
  } else {
    lignes.emplace_back(libelles.imprevue);
    lignes.push_back(
        Joindre({libelles.numero, NombreNu(numero), libelles.avecTexte ? TexteErreur(numero) : std::string_view{}}));
    if (libelles.avecAssistance) lignes.emplace_back(libelles.assistance);
  }
  return lignes;
}

namespace {

// Nobody keeps the report of an empty generic, nor one without a name of its own.
bool EstEphemere(const Contexte& contexte, std::string_view nomRapport) {
  return contexte.generique.empty() || nomRapport == kRapportSansNom;
}

// Such a report goes once it is shown; the viewer reads a long one from its file.
bool SEfface(const Contexte& contexte, std::string_view nomRapport, const Chemin& rapport) {
  return EstEphemere(contexte, nomRapport) &&
         (nomRapport != kRapportSansNom || LongueurFichier(rapport) <= kLimiteTexte);
}

Affichage Presenter(const Chemin& rapport, std::string_view nomRapport, bool ephemere) {
  const std::string garde = ephemere ? std::string() : rapport.native();
  if (LongueurFichier(rapport) > kLimiteTexte)
    return {Affichage::Ou::Lecteur,
            TexteTropLong(nomRapport) + std::string("Programme terminé"_w),
            std::string(nomRapport),
            garde,
            {}};
  return {Affichage::Ou::Texte, LireRapport(rapport), std::string(nomRapport), garde, {}};
}

}  // namespace

Affichage FinProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles) {
  try {
    const std::optional<Chemin> rapport = ChercherFichier(contexte.repertoire, nomRapport);
    if (!rapport) throw Erreur(kFichierIntrouvable).Situer({.fichier = std::string(nomRapport)});
    const bool ephemere = SEfface(contexte, nomRapport, *rapport);
    Affichage affichage = Presenter(*rapport, nomRapport, ephemere);
    if (ephemere) EffacerFichier(*rapport);
    return affichage;
  } catch (const Erreur& erreur) {
    return AffichageDErreur(erreur, nomRapport, libelles);
  }
}

namespace {

void Montrer(const Contexte& contexte, const Affichage& affichage) {
  contexte.Ecran().montrerProgression(0);
  if (affichage.ou == Affichage::Ou::Lecteur) contexte.Ecran().biper();
  contexte.Ecran().afficher(affichage);
}

enum class AFinNormale { Montrer, Taire };

// The generics that a run writes to: its own, and that of its report, which may be a new one.
std::vector<GeneriqueTenu> Tenir(const Contexte& contexte, std::string_view nomRapport) {
  std::vector<GeneriqueTenu> tenus;
  tenus.emplace_back(contexte.repertoire, contexte.generique, nomRapport);
  const std::string_view autre = nomRapport.substr(0, nomRapport.rfind('.'));
  if (!EstEphemere(contexte, nomRapport) && !EgalSansCasse(autre, contexte.generique))
    tenus.emplace_back(contexte.repertoire, autre, nomRapport);
  return tenus;
}

// A run between its first line and its end: what was repaired, then the body.
struct Deroulement {
  std::optional<Erreur> panne;  // what stopped it
  bool garde = true;            // its report is to be kept
};
Deroulement Derouler(Rapport& rapport, const Contexte& contexte, std::string_view nomRapport,
                     const std::vector<GeneriqueTenu>& tenus, const LibellesErreur& libelles,
                     const std::function<void(Rapport&)>& corps) {
  if (AvecEtrangers(contexte.generique) || AvecEtrangers(nomRapport)) rapport.MontrerLesNomsEtrangers();
  for (const GeneriqueTenu& tenu : tenus) rapport.Lignes(tenu.Recit());
  Deroulement fait;
  fait.panne = ExecuterCorps(rapport, libelles, corps, fait.garde);
  rapport.Achever();
  return fait;
}

Fin Executer(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
             const std::function<void(Rapport&)>& corps, AFinNormale aFinNormale, ModeEcriture mode) {
  Fin fin = Fin::Arret;
  Affichage affichage;
  try {
    const std::vector<GeneriqueTenu> tenus = Tenir(contexte, nomRapport);
    Rapport rapport(CheminDEcriture(contexte.repertoire, nomRapport), mode);
    const auto [panne, garde] = Derouler(rapport, contexte, nomRapport, tenus, libelles, corps);
    if (!panne) fin = Fin::Normale;
    if (const Chemin& ecrit = rapport.CheminProvisoire(); !garde || SEfface(contexte, nomRapport, ecrit)) {
      affichage = Presenter(ecrit, nomRapport, true);
    } else {
      rapport.Valider();
      affichage = FinProgramme(contexte, nomRapport, libelles);
    }
    if (panne) affichage.panne = PanneDe(*panne);
    if (fin == Fin::Normale && aFinNormale == AFinNormale::Taire) return fin;
  } catch (const Annulation&) {  // no trace is left of it
    throw;
  } catch (...) {  // the report can't be opened or written: nothing but the screen is left to tell it
    fin = Fin::Arret;
    affichage = AffichageDErreur(ErreurEnCours(), nomRapport, libelles);
  }
  Montrer(contexte, affichage);
  return fin;
}

// The same without a file: whole on the screen when it was stopped, however long it is.
Fin ExecuterEnMemoire(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
                      const std::function<void(Rapport&)>& corps) {
  Affichage affichage{Affichage::Ou::Texte, {}, std::string(nomRapport), {}, {}};
  try {
    const std::vector<GeneriqueTenu> tenus = Tenir(contexte, nomRapport);
    Rapport rapport(EnMemoire{*contexte.brouillon});
    const std::optional<Erreur> panne = Derouler(rapport, contexte, nomRapport, tenus, libelles, corps).panne;
    if (!panne) return Fin::Normale;
    affichage.texte = *contexte.brouillon;
    affichage.panne = PanneDe(*panne);
  } catch (const Annulation&) {  // no trace is left of it
    throw;
  } catch (...) {
    affichage = AffichageDErreur(ErreurEnCours(), nomRapport, libelles);
  }
  Montrer(contexte, affichage);
  return Fin::Arret;
}

}  // namespace

Fin ExecuterProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
                      const std::function<void(Rapport&)>& corps, ModeEcriture mode) {
  return Executer(contexte, nomRapport, libelles, corps, AFinNormale::Montrer, mode);
}

bool PreparerProgramme(const Contexte& contexte, std::string_view nomRapport, const LibellesErreur& libelles,
                       const std::function<void(Rapport&)>& corps) {
  if (contexte.brouillon != nullptr) return ExecuterEnMemoire(contexte, nomRapport, libelles, corps) == Fin::Normale;
  return Executer(contexte, nomRapport, libelles, corps, AFinNormale::Taire, ModeEcriture::Neuf) == Fin::Normale;
}

void MontrerRapport(const Contexte& contexte, std::string_view nomRapport) {
  Montrer(contexte, FinProgramme(contexte, nomRapport, LibellesErreur{}));
}

Fin RendreCompte(const Contexte& contexte, Texte phrase, const std::function<void()>& sauver,
                 std::string_view nomRapport) {
  return ExecuterProgramme(contexte, nomRapport.empty() ? contexte.Nom(".PRT") : std::string(nomRapport),
                           LibellesErreur{}, [&](Rapport& rapport) {
                             if (sauver) sauver();
                             rapport.Ligne(phrase);
                           });
}

std::string TexteTropLong(std::string_view nomRapport) {
  return Joindre({"texte trop long, WordPad est lancé\r\npour examiner les résultats de : "_w, nomRapport, "\r\n"});
}

std::string_view TexteFichAff(std::string_view nom) {
  constexpr std::size_t kGardes = 16;  // characters that the label has room for
  return nom.size() < kGardes ? nom : nom.substr(nom.size() - kGardes);
}

void Avertir(Rapport& rapport, const Dialogue& dialogue, Texte texte) {
  rapport.Ligne(texte);
  dialogue.biper();
}

std::string PhraseDAbsence(std::string_view nom, std::string_view sujet) {
  return Joindre({sujet, " ", nom, " n'existe pas"});
}

FichierObligatoire Obligatoire(const Contexte& contexte, std::string_view extension, std::string_view sujet) {
  return {contexte.Nom(extension), contexte.Chercher(extension).has_value(), sujet};
}

bool ImprimerLesAbsents(Rapport& rapport, std::span<const FichierObligatoire> fichiers) {
  bool manque = false;
  for (const FichierObligatoire& fichier : fichiers) {
    if (fichier.present) continue;
    rapport.Ligne(PhraseDAbsence(fichier.nom, fichier.sujet));
    manque = true;
  }
  return manque;
}

void ExigerFichiers(Rapport& rapport, const Dialogue& dialogue, std::initializer_list<FichierObligatoire> fichiers,
                    Texte ligneDArret) {
  if (!ImprimerLesAbsents(rapport, std::span(fichiers.begin(), fichiers.size()))) return;
  Avertir(rapport, dialogue, ligneDArret);
  throw Erreur(kArretAnnonce);
}

Progression::Progression(const Dialogue& dialogue, std::int64_t maximum) : dialogue_(dialogue) {
  dialogue_.montrerProgression(std::max<std::int64_t>(maximum, 1));
}

Progression::~Progression() { dialogue_.montrerProgression(0); }

}  // namespace quelvar
