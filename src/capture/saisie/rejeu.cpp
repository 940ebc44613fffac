#include "capture/saisie/rejeu.h"

#include <optional>
#include <utility>

#include "capture/compterendu/remarques.h"
#include "capture/saisie/saisie.h"
#include "capture/saisie/touches.h"
#include "core/chiffres/nombres.h"
#include "core/programme/horspage.h"

namespace quelvar::capture {

namespace {

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
    const SuiteDeFrappe effet = Frapper(saisie.etat, frappe.touche);
    if (effet.bip) ecran.biper();
    if (effet.demande == DemandeDeSaisie::Enregistrer) Enregistrer(saisie, rejeu);
    if (effet.demande == DemandeDeSaisie::LaisserLaCorrection) {
      rejeu.laissees.Noter(rejeu.ligne);
      RecommencerIndividu(saisie.etat);
    }
    rejeu.quitter = effet.demande == DemandeDeSaisie::Quitter;
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
Remarques Remarquer(const SaisieEnCours& saisie, const Rejeu& rejeu) {
  Remarques remarques;
  const auto dire = [&remarques](std::string_view quoi, const Lignes& lignes) {
    if (lignes.nombre == 0) return;
    const std::string question = lignes.question.empty() ? std::string() : ", question " + lignes.question;
    remarques.push_back(Joindre(
        {quoi, " : ", Nombre(lignes.nombre), " (le premier à la ligne "_w, Nombre(lignes.premiere), question, ")"}));
  };
  dire("Enregistrements vides non conservés"_w, rejeu.vides);
  dire("Enregistrements corrigés puis laissés par Echap, non changés"_w, rejeu.laissees);
  dire("Enregistrements dont un nombre long est récrit sans les zéros de devant"_w, rejeu.recrites);
  dire("Enregistrements qui gardent une réponse à une question que saute un test du descripteur"_w, rejeu.sautees);
  if (EstEntame(saisie.etat))
    remarques.push_back(Joindre({"Réponses non validées par Entrée, non conservées : celles de l'enregistrement "_w,
                                 Nombre(saisie.etat.corrige.value_or(saisie.etat.faits + 1))}));
  return remarques;
}

// What a replay has come to.
struct FinDeRejeu {
  std::string faute;  // the line that can't be taken and why, or nothing when the text came to its end
  Remarques remarques;
};

FinDeRejeu Rejouer(SaisieEnCours& saisie, const OptionsSaisie& options, const LectureDeLigne& lire,
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
  if (!faute.empty()) faute = Joindre({"Ligne ", Nombre(rejeu.ligne), " : ", faute});
  return {std::move(faute), Remarquer(saisie, rejeu)};
}

}  // namespace

Fin Saisie(const Contexte& contexte, const OptionsSaisie& options, const LectureDeLigne& lire) {
  bool entiere = false;
  const Fin fin = ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    std::optional<SaisieEnCours> saisie =
        CommencerSaisie(contexte, options.synchroniser ? Synchronisation::Oui : Synchronisation::Non);
    ExigerFichiers(rapport, contexte.Ecran(), {{contexte.Nom(".DES"), saisie.has_value()}}, kArretAbsence);
    saisie->etat.directe = options.directe;
    FinDeRejeu rejeu;
    entiere =
        saisie->fautes.empty() || contexte.Ecran().demander(saisie->fautes, Boutons::OkAnnuler) != Reponse::Annuler;
    if (entiere) rejeu = Rejouer(*saisie, options, lire, contexte.Ecran());
    MontrerRemarques(contexte.Ecran(), rejeu.remarques);
    if (!rejeu.faute.empty()) {
      contexte.Ecran().demander(rejeu.faute, Boutons::Ok);
      entiere = false;
    }
    ImprimerFinDeSaisie(rapport, saisie->etat.faits, rejeu.faute);
  });
  return entiere ? fin : Fin::Arret;
}

}  // namespace quelvar::capture
