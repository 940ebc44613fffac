#include "batch/dialogue_batch.h"

#include <cstdio>
#include <optional>

namespace quelvar::batch {

namespace {

void Ecrire(std::FILE* flux, std::string_view texte) {
  const std::string utf8 = VersUtf8(texte);
  std::fwrite(utf8.data(), 1, utf8.size(), flux);
}

// Line ends of a report as a terminal wants them.
std::string SansRetoursChariot(std::string_view texte) {
  std::string resultat;
  resultat.reserve(texte.size());
  for (std::size_t i = 0; i < texte.size(); ++i)
    if (texte[i] != '\r' || i + 1 == texte.size() || texte[i + 1] != '\n') resultat += texte[i];
  return resultat;
}

std::optional<std::string> ReponseSuivante(Demande& demande) {
  if (demande.reponses.empty()) return std::nullopt;
  std::string reponse = std::move(demande.reponses.front());
  demande.reponses.pop_front();
  return reponse;
}

Reponse ReponseDe(const std::string& mot, Boutons boutons, Reponse defaut) {
  const std::string minuscules = Minuscules(mot);
  if (boutons == Boutons::Ok) return defaut;
  if (minuscules == "annuler" && boutons != Boutons::OuiNon && boutons != Boutons::NonOui) return Reponse::Annuler;
  if (boutons != Boutons::OkAnnuler && minuscules == "oui") return Reponse::Oui;
  if (boutons != Boutons::OkAnnuler && minuscules == "non") return Reponse::Non;
  if (boutons == Boutons::OkAnnuler && minuscules == "ok") return Reponse::Ok;
  Ecrire(stderr, Joindre({"(réponse \""_w, mot, "\" sans objet ici : réponse par défaut)\n"_w}));
  return defaut;
}

void Afficher(const Affichage& affichage) {
  if (!affichage.panne.empty()) Ecrire(stderr, Joindre({affichage.panne, "\n"}));
  if (affichage.ou == Affichage::Ou::Lecteur && !affichage.rapport.empty()) {
    Ecrire(stdout, SansRetoursChariot(LireOctets(affichage.rapport)));
    return;
  }
  Ecrire(stdout, SansRetoursChariot(affichage.texte));
}

}  // namespace

Dialogue DialogueBatch(Demande& demande) {
  Dialogue dialogue;
  dialogue.demander = [&demande](std::string_view texte, Boutons boutons) {
    Ecrire(stderr, Joindre({SansRetoursChariot(texte), "\n"}));
    const Reponse defaut = PremierBouton(boutons);
    if (boutons == Boutons::Ok) return defaut;
    const std::optional<std::string> mot = ReponseSuivante(demande);
    return mot ? ReponseDe(*mot, boutons, defaut) : defaut;
  };
  dialogue.saisir = [&demande](std::string_view question, std::string_view propose) {
    Ecrire(stderr, Joindre({SansRetoursChariot(question), "\n"}));
    return ReponseSuivante(demande).value_or(std::string(propose));
  };
  dialogue.choisirFichier = [&demande](std::string_view titre, std::string_view) {
    Ecrire(stderr, Joindre({titre, "\n"}));
    return ReponseSuivante(demande).value_or(std::string());
  };
  dialogue.afficher = Afficher;
  if (demande.horloge) dialogue.horloge = [instant = *demande.horloge] { return instant; };
  return dialogue;
}

}  // namespace quelvar::batch
