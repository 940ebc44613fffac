#include "batch/dialogue.h"

#include <cstdio>
#include <optional>

#include "core/fichiers/systeme/morceaux.h"
#include "core/programme/annulation.h"
#include "core/texte/caracteres.h"

namespace quelvar::batch {

namespace {

void Ecrire(std::FILE* flux, std::string_view texte) {
  if (EstAscii(texte)) {
    std::fwrite(texte.data(), 1, texte.size(), flux);
    return;
  }
  const std::string utf8 = VersUtf8(texte);
  std::fwrite(utf8.data(), 1, utf8.size(), flux);
}

// Line ends of a report as a terminal wants them.
std::string SansRetoursChariot(std::string_view texte) {
  std::string resultat;
  resultat.reserve(texte.size());
  for (;;) {
    const std::size_t fin = texte.find("\r\n");
    resultat += texte.substr(0, fin);
    if (fin == std::string_view::npos) return resultat;
    texte.remove_prefix(fin + 1);
  }
}

std::optional<std::string> ReponseSuivante(LigneDeCommande& demande) {
  if (demande.reponses.empty()) return std::nullopt;
  std::string reponse = std::move(demande.reponses.front());
  demande.reponses.pop_front();
  return reponse;
}

bool EstAnnulation(const std::optional<std::string>& reponse) { return reponse && EgalSansCasse(*reponse, "annuler"); }

Reponse ReponseDe(const std::string& mot, Boutons boutons, Reponse defaut) {
  const std::string minuscules = Minuscules(mot);
  if (boutons == Boutons::Ok) return defaut;
  const bool annule = minuscules == "annuler" || minuscules == "arrêter"_w || minuscules == "arreter";
  if (annule && boutons == Boutons::OuiNon) throw Annulation();
  if (annule && boutons != Boutons::NonOui) return Reponse::Annuler;
  if (boutons != Boutons::OkAnnuler && minuscules == "oui") return Reponse::Oui;
  if (boutons != Boutons::OkAnnuler && minuscules == "non") return Reponse::Non;
  if (boutons == Boutons::OkAnnuler && (minuscules == "ok" || minuscules == "continuer")) return Reponse::Ok;
  Ecrire(stderr, Joindre({"(réponse \""_w, mot, "\" sans objet ici : réponse par défaut)\n"_w}));
  return defaut;
}

// A report of any length, some whole lines at a time.
void EcrireRapport(const std::string& chemin) {
  std::string attente;
  ParMorceaux(chemin, [&](std::string_view octets) {
    attente += octets;
    const std::size_t fin = attente.rfind('\n') + 1;
    Ecrire(stdout, SansRetoursChariot(std::string_view(attente).substr(0, fin)));
    attente.erase(0, fin);
  });
  Ecrire(stdout, SansRetoursChariot(attente));
}

void Afficher(const Affichage& affichage) {
  if (!affichage.panne.empty()) Ecrire(stderr, Joindre({affichage.panne, "\n"}));
  if (affichage.ou == Affichage::Ou::Lecteur && !affichage.rapport.empty()) {
    EcrireRapport(affichage.rapport);
    if (affichage.nomRapport == kRapportSansNom) EffacerFichier(CheminDe(affichage.rapport));
    return;
  }
  Ecrire(stdout, SansRetoursChariot(affichage.texte));
}

}  // namespace

Dialogue DialogueBatch(LigneDeCommande& demande) {
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
    const std::optional<std::string> reponse = ReponseSuivante(demande);
    if (EstAnnulation(reponse)) throw Annulation();
    return reponse.value_or(std::string(propose));
  };
  dialogue.choisirFichier = [&demande](std::string_view titre, std::string_view) {
    Ecrire(stderr, Joindre({titre, "\n"}));
    const std::optional<std::string> reponse = ReponseSuivante(demande);
    return EstAnnulation(reponse) ? std::string() : reponse.value_or(std::string());
  };
  dialogue.afficher = Afficher;
  if (demande.horloge) dialogue.horloge = [instant = *demande.horloge] { return instant; };
  return dialogue;
}

}  // namespace quelvar::batch
