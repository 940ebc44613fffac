#include "capture/saisie/saisie.h"

#include <unordered_set>

#include "capture/fichiers.h"
#include "capture/saisie/touches.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/posfile.h"
#include "core/texte/horspage.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

// The fault of a name whose three first characters would end the list of .POS or hide another question of it.
void SignalerNoms(Descripteur& descripteur) {
  std::unordered_set<std::string> pris;
  for (const DescriptionDeQuestion& description : descripteur.descriptions) {
    const std::string court = description.nom.substr(0, kLargeurDeQuestion);
    std::string_view faute;
    if (MarqueDeFin(court)) faute = "*** Attention les 3 premiers caractères du nom arrêtent la liste de *.POS"_w;
    else if (!pris.insert(court).second)
      faute = "*** Attention les 3 premiers caractères du nom sont déjà ceux d'une autre question"_w;
    if (faute.empty()) continue;
    descripteur.fautes.push_back(Joindre({faute, " Question ", description.nom}));
    ++descripteur.nombreFautes;
  }
}

// The fault of the first question that .POS can't tell the position of.
void SignalerPositions(Descripteur& descripteur) {
  std::size_t position = 1;
  for (const DescriptionDeQuestion& description : descripteur.descriptions) {
    if (position > std::size_t{kDernierePosition}) {
      descripteur.fautes.push_back(
          Joindre({"*** Attention cette question et les suivantes sont au-delà de la position "_w,
                   Nombre(kDernierePosition), ", *.POS ne peut pas les désigner Question "_w, description.nom}));
      ++descripteur.nombreFautes;
      return;
    }
    position += static_cast<std::size_t>(description.Largeur());
  }
}

// What becomes of a .POS that tells more than the descriptor, and of the copy that its own copy takes the name of.
std::string AnnonceDuPos(const Contexte& contexte) {
  const std::string pos = contexte.Nom(".POS");
  const std::string sauvegarde = NomDeSauvegarde(pos);
  std::string annonce = Joindre(
      {"Le fichier ", pos,
       " contient autre chose que ce que donne le descripteur (intitulés, règles) : il sera remplacé au premier "
       "enregistrement et sauvegardé sous le nom "_w,
       sauvegarde});
  const std::optional<Chemin> ancien = ChercherPos(contexte.repertoire, contexte.Nom(".POS"));
  const std::string nom = ancien ? NomPourAncienneSauvegarde(contexte.repertoire, *ancien, sauvegarde) : std::string();
  if (!nom.empty())
    annonce += Joindre({"\r\nL'ancienne sauvegarde ", sauvegarde, " sera conservée sous le nom "_w, nom});
  return annonce;
}

void AjouterLigne(std::string& texte, std::string_view ligne) {
  texte += Joindre({std::string_view(texte.empty() ? "" : "\r\n"), ligne});
}

// An entry that a fault of the replayed text stops has that line in place of the normal end.
void Finir(Rapport& rapport, std::int64_t faits, std::string_view faute = {}) {
  rapport.Ligne("Interruption de la saisie");
  rapport.Ligne({"Nombre d'enregistrements déjà faits ="_w, NombreNu(faits)});
  rapport.Ligne();
  rapport.Ligne(faute.empty() ? std::string_view("Fin normale du programme") : faute);
}

// Lines of the replayed text that something befell.
struct Lignes {
  std::int64_t nombre = 0;
  std::int64_t premiere = 0;
  std::string question = {};  // the one concerned in the first of them

  void Noter(std::int64_t ligne, std::string_view nom = {}) {
    if (nombre++ > 0) return;
    premiere = ligne;
    question = nom;
  }
};

// What the text that is replayed came to.
struct Rejeu {
  std::int64_t ligne = 0;  // the one that is taken, from 1
  bool quitter = false;    // Escape was struck
  Lignes vides;            // records that were not kept
  Lignes laissees;         // corrections that Escape left
  Lignes recrites;         // long numbers without the zeros that stood in front
  Lignes sautees;          // answers to questions that a skip test jumps over
};

void Enregistrer(SaisieEnCours& saisie, Rejeu& rejeu) {
  if (!Enregistrer(saisie)) rejeu.vides.Noter(rejeu.ligne);
}

// One line of the text; what is wrong with it, or nothing.
std::string RejouerTouches(SaisieEnCours& saisie, std::string_view ligne, const Dialogue& ecran, Rejeu& rejeu) {
  const LigneDeTouches lue = LireTouches(ligne);
  if (!lue.faute.empty()) return Joindre({"la touche \"", lue.faute, "\" n'existe pas"});
  for (const Frappe& frappe : lue.frappes) {
    if (frappe.enregistrement != 0) {
      if (std::string refus = Revoir(saisie, frappe.enregistrement); !refus.empty()) return refus;
      continue;
    }
    const Effet effet = Frapper(saisie.etat, frappe.touche);
    if (effet.bip) ecran.biper();
    if (effet.demande == Demande::Enregistrer) Enregistrer(saisie, rejeu);
    if (effet.demande == Demande::LaisserLaCorrection) {
      rejeu.laissees.Noter(rejeu.ligne);
      RecommencerIndividu(saisie.etat);
    }
    rejeu.quitter = effet.demande == Demande::Quitter;
    if (rejeu.quitter) return {};
  }
  return {};
}

// A blank line is an empty record.
std::string RejouerEnregistrement(SaisieEnCours& saisie, std::string_view ligne, Rejeu& rejeu) {
  Passage passage;
  std::string faute = Rogner(ligne).empty() ? std::string() : PrendreReponses(saisie.etat, ligne, passage);
  if (!passage.recrite.empty()) rejeu.recrites.Noter(rejeu.ligne, passage.recrite);
  if (!passage.sautee.empty()) rejeu.sautees.Noter(rejeu.ligne, passage.sautee);
  if (faute.empty()) Enregistrer(saisie, rejeu);
  else RecommencerIndividu(saisie.etat);
  return faute;
}

// What the replay has left out or changed.
void Signaler(const SaisieEnCours& saisie, const Rejeu& rejeu, const Dialogue& ecran) {
  std::string texte;
  const auto dire = [&texte](std::string_view quoi, const Lignes& lignes) {
    if (lignes.nombre == 0) return;
    const std::string question = lignes.question.empty() ? std::string() : ", question " + lignes.question;
    AjouterLigne(texte, Joindre({quoi, " : ", Nombre(lignes.nombre), " (le premier à la ligne "_w,
                                 Nombre(lignes.premiere), question, ")"}));
  };
  dire("Enregistrements vides non conservés"_w, rejeu.vides);
  dire("Enregistrements corrigés puis laissés par Echap, non changés"_w, rejeu.laissees);
  dire("Enregistrements dont un nombre long est récrit sans les zéros de devant"_w, rejeu.recrites);
  dire("Enregistrements qui gardent une réponse à une question que saute un test du descripteur"_w, rejeu.sautees);
  if (EstEntame(saisie.etat))
    AjouterLigne(texte, Joindre({"Réponses non validées par Entrée, non conservées : celles de l'enregistrement "_w,
                                 Nombre(saisie.etat.corrige.value_or(saisie.etat.faits + 1))}));
  if (!texte.empty()) ecran.demander(texte, Boutons::Ok);
}

// Returns the line that can't be taken and why, or nothing when the text came to its end.
std::string Rejouer(SaisieEnCours& saisie, const OptionsSaisie& options, const LectureDeLigne& lire,
                    const Dialogue& ecran) {
  std::string ligne;
  std::string faute;
  Rejeu rejeu;
  while (faute.empty() && !rejeu.quitter && lire(ligne)) {
    ++rejeu.ligne;
    if (NomMontrable(ligne) != ligne) faute = RefusHorsPage(VersUtf8(ligne));
    else if (options.entree == ModeDEntree::Touches) faute = RejouerTouches(saisie, ligne, ecran, rejeu);
    else faute = RejouerEnregistrement(saisie, ligne, rejeu);
  }
  Signaler(saisie, rejeu, ecran);
  return faute.empty() ? faute : Joindre({"Ligne ", Nombre(rejeu.ligne), " : ", faute});
}

}  // namespace

std::optional<SaisieEnCours> CommencerSaisie(const Contexte& contexte, Synchronisation synchronisation) {
  const std::optional<Chemin> des = contexte.Chercher(".DES");
  if (!des) return std::nullopt;
  const GeneriqueTenu tenu(contexte.repertoire, contexte.generique, contexte.Nom(".DAT"));
  Descripteur descripteur = LireDes(*des);
  FichiersSaisie fichiers(contexte, descripteur, synchronisation);
  const ExamenDat& examen = fichiers.Examen();
  if (examen.longueurDerniere > 0) VerifierLongueur(descripteur, examen.longueurDerniere);
  SignalerNoms(descripteur);
  SignalerPositions(descripteur);
  std::string fautes;
  for (const std::string& ligne : tenu.Recit()) AjouterLigne(fautes, ligne);
  if (const std::string duDescripteur = TexteDesFautes(descripteur); !duDescripteur.empty())
    AjouterLigne(fautes, duDescripteur);
  if (descripteur.descriptions.empty()) AjouterLigne(fautes, "*** Le descripteur ne contient aucune question");
  if (fichiers.PosAGarder()) AjouterLigne(fautes, AnnonceDuPos(contexte));
  if (fichiers.Reprendre())
    AjouterLigne(fautes,
                 Joindre({"L'effectif du fichier ", contexte.Nom(".POS"), " a été remis d'accord avec les données"_w}));
  return SaisieEnCours{NouvelleSaisie(descripteur, examen.lignes), std::move(fichiers), std::move(fautes)};
}

bool Enregistrer(SaisieEnCours& saisie) {
  EtatSaisie& etat = saisie.etat;
  if (etat.corrige && !EstEntame(etat)) {
    std::string inchange = Joindre({"Enregistrement ", Nombre(*etat.corrige), " inchangé"_w});
    RecommencerIndividu(etat);
    etat.message = std::move(inchange);
    return true;
  }
  const std::optional<std::string> ligne = Enregistrement(etat);
  std::string message(ligne ? std::string_view{} : kEnregistrementVide);
  if (ligne && etat.corrige) {
    saisie.fichiers.Corriger(*etat.corrige, *ligne);
    message = Joindre({"Enregistrement ", Nombre(*etat.corrige), " corrigé"_w});
  } else if (ligne) {
    saisie.fichiers.Ajouter(*ligne);
    ++etat.faits;
  }
  RecommencerIndividu(etat);
  etat.message = std::move(message);
  return ligne.has_value();
}

std::string Revoir(SaisieEnCours& saisie, std::int64_t numero) {
  if (EstEntame(saisie.etat))
    return std::string("l'enregistrement en cours n'est pas validé : faites Entrée, ou videz-le"_w);
  if (numero < 1 || numero > saisie.fichiers.Examen().lignes)
    return Joindre({"il n'y a pas d'enregistrement numéro "_w, Nombre(numero)});
  PrendreEnregistrement(saisie.etat, numero, saisie.fichiers.Lire(numero));
  return {};
}

Fin TerminerSaisie(const Contexte& contexte, std::int64_t faits) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{},
                           [&](Rapport& rapport) { Finir(rapport, faits); });
}

Fin Saisie(const Contexte& contexte, const OptionsSaisie& options, const LectureDeLigne& lire) {
  bool entiere = false;
  const Fin fin = ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    std::optional<SaisieEnCours> saisie =
        CommencerSaisie(contexte, options.synchroniser ? Synchronisation::Oui : Synchronisation::Non);
    ExigerFichiers(rapport, contexte.Ecran(), {{contexte.Nom(".DES"), saisie.has_value()}}, kArretAbsence);
    saisie->etat.directe = options.directe;
    std::string faute;
    entiere =
        saisie->fautes.empty() || contexte.Ecran().demander(saisie->fautes, Boutons::OkAnnuler) != Reponse::Annuler;
    if (entiere) faute = Rejouer(*saisie, options, lire, contexte.Ecran());
    if (!faute.empty()) {
      contexte.Ecran().demander(faute, Boutons::Ok);
      entiere = false;
    }
    Finir(rapport, saisie->etat.faits, faute);
  });
  return entiere ? fin : Fin::Arret;
}

}  // namespace quelvar::capture
