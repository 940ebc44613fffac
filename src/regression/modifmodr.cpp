#include "regression/modifmodr.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/panne/annonce.h"
#include "core/programme/annulation.h"
#include "core/programme/arret.h"
#include "regression/donnees/codage.h"

namespace quelvar::regression {

namespace {

constexpr std::string_view kFinNormale = "Fin normale des modifications de modalités, passer à l'étape suivante"_w;

std::string_view QuestionDe(std::string_view texte) { return texte.substr(0, kLargeurDeQuestion); }

struct Comptes {
  std::size_t y = 0;
  std::size_t r = 0;
  std::size_t x = 0;
  std::size_t blancs = 0;
};

Comptes Compter(const std::vector<std::string>& textes) {
  Comptes comptes;
  for (const std::string& texte : textes) {
    const std::string_view code = MarqueDeTexte(texte);
    const auto porte = [code](std::string_view lettres) { return code.find_first_of(lettres) != code.npos; };
    comptes.y += porte("Yy") ? 1U : 0U;
    comptes.r += porte("Rr") ? 1U : 0U;
    comptes.x += porte("Xx") ? 1U : 0U;
    comptes.blancs += Rogner(code).empty() ? 1U : 0U;
  }
  return comptes;
}

// Does what the options say, as far as the first name that no modality bears: it is returned, or nothing. Two names of
// one question are two clicks behind one choice of it: both stand, for the check of the whole to refuse.
std::optional<std::string> Appliquer(const OptionsModifModR& options, std::vector<std::string>& textes) {
  const auto coder = [&](const std::vector<std::string>& noms, TypeDeQuestion type) -> std::optional<std::string> {
    std::vector<std::string> recodees;
    for (const std::string& nom : noms) {
      const std::size_t rang = RangDeModalite(textes, Rogner(nom));
      if (rang == textes.size()) return nom;
      const std::string_view question = QuestionDe(textes[rang]);
      if (std::find(recodees.begin(), recodees.end(), question) == recodees.end()) {
        CoderQuestion(textes, question, type);
        recodees.emplace_back(question);
      }
      CoderModalite(textes[rang], type);
    }
    return std::nullopt;
  };
  if (std::optional<std::string> inconnue = coder(options.expliquer, TypeDeQuestion::AExpliquer)) return inconnue;
  if (std::optional<std::string> inconnue = coder(options.references, TypeDeQuestion::Explicative)) return inconnue;
  for (const auto& [nom, intitule] : options.intitules) {
    const std::size_t rang = RangDeModalite(textes, Rogner(nom));
    if (rang == textes.size()) return nom;
    PoserIntitule(textes[rang], intitule);
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> QuestionsDesTextes(const std::vector<std::string>& textes) {
  std::vector<std::string> questions;
  for (const std::string& texte : textes)
    if (std::find(questions.begin(), questions.end(), QuestionDe(texte)) == questions.end())
      questions.emplace_back(QuestionDe(texte));
  return questions;
}

std::vector<std::size_t> ModalitesDe(const std::vector<std::string>& textes, std::string_view question) {
  std::vector<std::size_t> rangs;
  for (std::size_t i = 0; i < textes.size(); ++i)
    if (QuestionDe(textes[i]) == question) rangs.push_back(i);
  return rangs;
}

void CoderQuestion(std::vector<std::string>& textes, std::string_view question, TypeDeQuestion type) {
  for (const std::size_t i : ModalitesDe(textes, question))
    PoserMarque(textes[i], type == TypeDeQuestion::Explicative ? " X " : "   ");
}

void CoderModalite(std::string& texte, TypeDeQuestion type) {
  PoserMarque(texte, type == TypeDeQuestion::Explicative ? " R " : " Y ");
}

std::string_view RefusDEnregistrer(const std::vector<std::string>& textes) {
  const Comptes comptes = Compter(textes);
  if (comptes.y > 1) return "Plusieurs modalités sont explicatives au lieu d'une seule"_w;
  if (comptes.y == 0) return "Il n'y a aucune modalité explicative"_w;
  if (comptes.r + 1 != QuestionsDesTextes(textes).size())
    return "Le nombre de modalités de référence est différent du nombre de questions explicatives (un seul R par question)"_w;
  return {};
}

std::string_view Incoherence(const std::vector<std::string>& textes) {
  const Comptes comptes = Compter(textes);
  if (1 + comptes.r + comptes.x + comptes.blancs == textes.size()) return {};
  return "Incohérence globale : toute question à expliquer doit avoir une modalité en Y et les autres à blanc, toutes les questions explicatives doivent avoir toutes leurs modalités en X sauf la référence en R. Cependant le fichier a été enregistré et vous pouvez continuer en sortant par le bouton 'Annuler' et en passant à l'étape suivante."_w;
}

void SauverModifModR(const Contexte& contexte, const std::vector<std::string>& textes) {
  RemplacerModalites(contexte.repertoire, contexte.Nom(".MOD"), textes);
}

Fin TerminerModifModR(const Contexte& contexte) { return RendreCompte(contexte, kFinNormale); }

Fin AbandonnerModifModR(const Contexte& contexte) { return RendreCompte(contexte, kArretVolontaire); }

OptionsDites<OptionsModifModR> OptionsDuCodage(const std::vector<std::string>& duFichier,
                                               const std::vector<std::string>& textes) {
  OptionsModifModR options;
  bool seules = true;
  const auto nommer = [&](const std::string& texte) {
    seules &= EstSeule(textes, NomDeTexte(texte));
    return std::string(NomDeTexte(texte));
  };
  for (const std::string& question : QuestionsDesTextes(textes)) {
    const std::vector<std::size_t> rangs = ModalitesDe(textes, question);
    if (std::all_of(rangs.begin(), rangs.end(),
                    [&](std::size_t i) { return MarqueDeTexte(textes[i]) == MarqueDeTexte(duFichier[i]); }))
      continue;
    for (const std::size_t i : rangs) {
      if (MarqueDeTexte(textes[i]) == " Y ") options.expliquer.push_back(nommer(textes[i]));
      if (MarqueDeTexte(textes[i]) == " R ") options.references.push_back(nommer(textes[i]));
    }
  }
  for (std::size_t i = 0; i < textes.size(); ++i)
    if (IntituleDeTexte(textes[i]) != IntituleDeTexte(duFichier[i]))
      options.intitules.emplace_back(nommer(textes[i]), IntituleDeTexte(textes[i]));
  if (!seules) return {.raison = "deux modalités ont le même nom"_w};
  std::vector<std::string> refaits = duFichier;
  if (Appliquer(options, refaits) || refaits != textes) return {.raison = "le codage d'une question n'est pas complet"};
  return {.options = std::move(options)};
}

Fin ModifModR(const Contexte& contexte, const OptionsModifModR& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    ListeOuverte etat = OuvrirListe(contexte);
    ArreterSi(rapport, etat.message);
    if (const std::optional<std::string> inconnue = Appliquer(options, etat.textes))
      Arreter(rapport, Joindre({"La modalité "_w, *inconnue, " n'est pas dans le fichier de modalités"_w}));
    if (const std::string_view refus = RefusDEnregistrer(etat.textes); !refus.empty()) {
      rapport.Ligne(kTitreErreur);
      AvertirEtArreter(rapport, contexte.Ecran(), refus);
    }
    SauverModifModR(contexte, etat.textes);
    if (const std::string_view incoherence = Incoherence(etat.textes); !incoherence.empty()) {
      rapport.Ligne(kTitreAvertissement);
      Avertir(rapport, contexte.Ecran(), incoherence);
      return;
    }
    rapport.Ligne(kFinNormale);
  });
}

}  // namespace quelvar::regression
