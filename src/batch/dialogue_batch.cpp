#include "batch/dialogue_batch.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

namespace quelvar::batch {

namespace {

void Ecrire(std::FILE* flux, std::string_view texte) {
  const auto octets = [flux](std::string_view ecrits) { std::fwrite(ecrits.data(), 1, ecrits.size(), flux); };
  if (std::any_of(texte.begin(), texte.end(), [](char c) { return (c & '\x80') != 0; })) octets(VersUtf8(texte));
  else octets(texte);
}

// Line ends of a report as a terminal wants them.
std::string SansRetoursChariot(std::string_view texte) {
  std::string resultat;
  resultat.reserve(texte.size());
  for (std::size_t debut = 0; debut < texte.size();) {
    const std::size_t fin = std::min(texte.find("\r\n", debut), texte.size());
    resultat.append(texte.substr(debut, fin - debut));
    debut = fin + 1;
  }
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

// A long report in parts of whole lines.
void AfficherFichier(const std::string& chemin) {
  constexpr std::size_t kBloc = std::size_t{1} << 18;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> fichier(std::fopen(chemin.c_str(), "rb"), std::fclose);
  if (fichier == nullptr) throw Erreur(kFichierIntrouvable);
  std::string attente;
  std::vector<char> bloc(kBloc);
  for (std::size_t lus = kBloc; lus == kBloc;) {
    lus = std::fread(bloc.data(), 1, kBloc, fichier.get());
    attente.append(bloc.data(), lus);
    const std::size_t fin = lus < kBloc ? attente.size() : attente.rfind('\n') + 1;
    Ecrire(stdout, SansRetoursChariot(std::string_view(attente).substr(0, fin)));
    attente.erase(0, fin);
  }
}

void Afficher(const Affichage& affichage) {
  if (affichage.ou == Affichage::Ou::Lecteur && !affichage.rapport.empty()) {
    AfficherFichier(affichage.rapport);
    if (affichage.nomRapport == kRapportSansNom) EffacerFichier(CheminDe(affichage.rapport));
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
    const std::string reponse = ReponseSuivante(demande).value_or(std::string(propose));
    // What is empty on a command line was typed so, and is no cancelled box: a blank proposal stands for it.
    return reponse.empty() && Rogner(propose).empty() ? std::string(propose) : reponse;
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
