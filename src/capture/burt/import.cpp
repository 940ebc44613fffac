#include "capture/burt/import.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "capture/burt/lecture.h"
#include "capture/compterendu/fichiers.h"
#include "capture/dbase/tableau.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/panne/attention.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

// Short and long name of a row.
struct ModaliteDeBurt {
  std::string nom;
  std::string intitule;
};

std::vector<ModaliteDeBurt> Nommer(const FaitsBurt& faits, NomsCourts noms) {
  std::vector<ModaliteDeBurt> modalites;
  for (std::size_t i = 0; i < faits.rangees; ++i) {
    const std::string& intitule = faits.intitules[i];
    if (noms == NomsCourts::Automatiques)
      modalites.push_back({CadreGauche(Nombre(i + 1), kLargeurDeModalite), intitule});
    else
      modalites.push_back(
          {CadreGauche(intitule, kLargeurDeModalite), std::string(Milieu(intitule, kLargeurDeModalite + 1))});
  }
  return modalites;
}

// Short names given by the user must let every row be found: stops the run for one that ends the list of modalities or
// that two rows share.
void ExigerNoms(Rapport& rapport, const std::vector<ModaliteDeBurt>& modalites) {
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t i = 0; i < modalites.size(); ++i) {
    const std::string& nom = modalites[i].nom;
    if (FinitLesModalites(nom)) {
      rapport.Ligne({"Le nom court de la ligne "_w, Nombre(i + 1), " (\"", nom,
                     "\") n'est pas possible : il terminerait la liste des modalités"_w});
      throw Erreur(kArretAnnonce);
    }
    if (const auto [deja, neuf] = rangs.emplace(nom, i); !neuf) {
      rapport.Ligne(
          {"Les lignes "_w, Nombre(deja->second + 1), " et ", Nombre(i + 1), " ont le même nom court (\""_w, nom,
           "\") : donnez-leur des noms différents sur 4 caractères, ou prenez les noms courts automatiques"_w});
      throw Erreur(kArretAnnonce);
    }
  }
}

void PrevenirDUnEffectifNonEntier(const Dialogue& dialogue, double effectif, std::string_view pos) {
  if (effectif == std::floor(effectif)) return;
  dialogue.demander(
      Joindre({kAttention, "un effectif de "_w, Nombre(effectif),
               " individus n'est pas un nombre entier : vérifiez le tableau, et corrigez la ligne 2 de "_w, pos,
               " avant d'analyser"}),
      Boutons::Ok);
}

// Asks the size of the survey until the number of questions that it gives is agreed to.
double DemanderEffectif(Rapport& rapport, const Contexte& contexte, const FaitsBurt& faits) {
  const std::optional<double> questions = faits.Questions();
  const std::string propose = questions ? Nombre(faits.diagonale / *questions) : std::string();
  const std::string demande = questions ? Joindre({"Entrez l'effectif de l'enquête si différent de "_w, propose})
                                        : std::string("Entrez l'effectif de l'enquête  "_w);
  for (;;) {
    std::string reponse = contexte.Ecran().saisir(demande, propose);
    if (Rogner(reponse).empty()) reponse = propose;
    if (reponse.empty()) {  // nothing is proposed and nothing was typed: the box was closed
      rapport.Ligne("Importation abandonnée : l'effectif de l'enquête n'est pas donné"_w);
      throw Erreur(kArretAnnonce);
    }
    const double effectif = ValeurDe(reponse);
    if (effectif <= 0) continue;
    const Reponse coherent = contexte.Ecran().demander(
        Joindre(
            {"le nombre de questions est de ", Nombre(faits.diagonale / effectif),
             " : est-ce cohérent ? (une valeur fractionnaire est incohérente). En cas d'incertitude, répondez oui : "
             "vous pourrez ultérieurement corriger la valeur de l'effectif dans la deuxième ligne du fichier *.POS "
             "en utilisant l'éditeur. "_w}),
        Boutons::OuiNon);
    if (coherent == Reponse::Non) continue;
    PrevenirDUnEffectifNonEntier(contexte.Ecran(), effectif, contexte.Nom(".POS"));
    return effectif;
  }
}

void SauvegarderAnciens(Rapport& rapport, const Contexte& contexte, JeuDeFichiers& sauvegardes) {
  for (const std::string_view extension : {".BRT", ".MOD", ".POS"})
    if (const std::optional<Chemin> ancien = contexte.Chercher(extension))
      SauvegarderAncien(rapport, contexte.Nom(extension), *ancien, sauvegardes);
}

void SignalerIntitulesCoupes(const Dialogue& dialogue, const std::vector<ModaliteDeBurt>& modalites) {
  const auto coupes = std::count_if(modalites.begin(), modalites.end(), [](const auto& modalite) {
    return modalite.intitule.size() > std::size_t{kIntituleDeModaliteAuPlus};
  });
  if (coupes > 0)
    dialogue.demander(Joindre({"Intitulés de plus de "_w, Nombre(kIntituleDeModaliteAuPlus),
                               " caractères, coupés dans *.MOD : "_w, Nombre(static_cast<std::int64_t>(coupes))}),
                      Boutons::Ok);
}

void SignalerConversion(const Dialogue& dialogue, std::string_view nom, const Conversion& conversion) {
  if (!conversion.utf8 || conversion.accents == 0) return;
  std::string texte = Joindre(
      {"Le fichier ", nom, " est en UTF-8. Caractères convertis à la lecture : "_w, Nombre(conversion.accents)});
  if (conversion.perdus > 0)
    texte +=
        Joindre({", dont "_w, Nombre(conversion.perdus),
                 " sans équivalent, remplacés par \"?\" (le premier à la ligne "_w, Nombre(conversion.ligne), ")"});
  dialogue.demander(texte, Boutons::Ok);
}

void EcrireMod(Ecrivain& mod, const Contexte& contexte, const FaitsBurt& faits,
               const std::vector<ModaliteDeBurt>& modalites) {
  mod.Ligne(contexte.generique);
  mod.Ligne(LigneDeParametres({{"BRT=", faits.rangees}, {"FMT=", faits.largeur}}));
  for (const ModaliteDeBurt& modalite : modalites) mod.Ligne(LigneModalite(modalite.nom, false, modalite.intitule));
}

// The rows of .BRT, written to the file and to the report.
void EcrireRangees(Ecrivain& brt, Rapport& rapport, LecteurDeBurt lecteur, const FaitsBurt& faits,
                   const std::vector<ModaliteDeBurt>& modalites) {
  RangeeDeBurt rangee;
  std::string texte;
  for (std::size_t i = 0; i < faits.rangees && lecteur.Lire(faits.rangees, rangee); ++i) {
    texte = modalites[i].nom;
    for (const std::string_view mot : rangee.effectifs) texte.append(faits.largeur - mot.size(), ' ').append(mot);
    brt.Ligne(texte);
    rapport.Ligne(texte);
  }
}

// What is known of the table before anything is written.
struct PreparationDeBurt {
  Conversion conversion;
  FaitsBurt faits;
  std::vector<ModaliteDeBurt> modalites;
  double effectif = 0;  // of the survey, which the user is asked for
};

PreparationDeBurt LireTable(const Chemin& source, NomsCourts noms) {
  PreparationDeBurt lue;
  lue.conversion = ExaminerConversion(source);
  lue.faits = ExaminerBurt(source, lue.conversion.utf8);
  lue.modalites = Nommer(lue.faits, noms);
  return lue;
}

// The copies of the former files stay when the table can't be read, as the report tells; one who gives up in the
// question on the size leaves no trace.
PreparationDeBurt SauvegarderEtPreparer(Rapport& rapport, const Contexte& contexte, const Chemin& source,
                                        NomsCourts noms) {
  JeuDeFichiers sauvegardes(contexte.repertoire, contexte.generique);
  SauvegarderAnciens(rapport, contexte, sauvegardes);
  PreparationDeBurt preparation;
  const std::optional<Erreur> echec = EchecDe([&] {
    preparation = LireTable(source, noms);
    ExigerNoms(rapport, preparation.modalites);
    SignalerConversion(contexte.Ecran(), TexteDe(source.filename()), preparation.conversion);
    SignalerIntitulesCoupes(contexte.Ecran(), preparation.modalites);
    preparation.effectif = DemanderEffectif(rapport, contexte, preparation.faits);
  });
  sauvegardes.Valider();
  if (echec) throw *echec;
  return preparation;
}

void Importer(Rapport& rapport, const Contexte& contexte, const OptionsImportBurt& options) {
  const std::optional<Chemin> source = ChercherFichier(contexte.repertoire, options.fichier);
  const std::string nomSource = TexteDe(CheminDe(options.fichier).filename());
  ExigerFichiers(rapport, contexte.Ecran(), {{nomSource, source.has_value()}}, kArretAbsence);
  ImprimerBandeau(rapport, "Importation d'un tableau de Burt");
  const auto [conversion, faits, modalites, effectif] = SauvegarderEtPreparer(rapport, contexte, *source, options.noms);

  rapport.Ligne({"Le tableau de burt ", nomSource, " a été importé et est enregistré sous le nom "_w,
                 contexte.Nom(".BRT"), " imprimé ci-dessous et qu'il faut vérifier "_w});
  rapport.Ligne({"Les caractéristiques du tableau de burt sont dans le fichier "_w, contexte.Nom(".MOD")});
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireRangees(sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable), rapport,
                LecteurDeBurt(*source, conversion.utf8), faits, modalites);
  EcrireMod(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte, faits, modalites);
  Ecrivain& pos = sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique);
  pos.Ligne(contexte.generique);
  pos.Ligne(NombreNu(effectif));  // as the table has it, were it no whole number
  rapport.Ligne({"L'effectif de la population de l'enquête est de "_w, NombreNu(effectif), " individus"});
  rapport.Ligne({"Il est enregistré dans le fichier "_w, contexte.Nom(".POS")});
  rapport.Ligne("Fin normale du programme");
  sorties.Valider();
}

}  // namespace

std::string_view RefusDImporterBurt(const OptionsImportBurt& options) {
  return options.fichier.empty() ? "Vous devez définir le fichier Burt issu de SAS"_w : std::string_view{};
}

Fin ImportBurt(const Contexte& contexte, const OptionsImportBurt& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesDesTableaux(),
                           [&](Rapport& rapport) { Importer(rapport, contexte, options); });
}

}  // namespace quelvar::capture
