// The VIT part of the preparation of a recoding: what builds, corrects, checks and stores the displayed block.
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/programme/rapport.h"
#include "sorts/preparation/preprecod.h"
#include "sorts/regles/vit.h"

namespace quelvar::sorts {

namespace {

constexpr std::size_t kLargeurNomVit = kLargeurDeQuestion;                       // a VIT becomes a question
constexpr std::size_t kFinCodeVit = kColonneDeCodeVit + kColonnesDeCodeVit - 1;  // its last column

bool EstElement(const std::string& ligne) { return ligne.find(kMarqueVit) == std::string::npos; }

// The line of the element that is being built, if there is one.
std::string* ElementEnCours(EtatPrepRecod& etat) {
  return etat.vitAffichee.empty() || !EstElement(etat.vitAffichee.back()) ? nullptr : &etat.vitAffichee.back();
}

// Columns 8-9 of the element that is being built.
void PoserCode(EtatPrepRecod& etat, const std::string& texte) {
  std::string* element = ElementEnCours(etat);
  if (element == nullptr || element->size() < kLargeurNomVit) return;
  element->resize(kLargeurNomVit);
  *element += CadreDroit(texte, static_cast<int>(kFinCodeVit - kLargeurNomVit));
}

}  // namespace

void CommencerVit(EtatPrepRecod& etat, std::string_view nom) {
  std::string court(Rogner(nom));
  std::erase(court, '$');
  if (court.empty()) {
    etat.message = "Nom vide, recommencez ou annulez";
    return;
  }
  if (std::string* inacheve = ElementEnCours(etat); inacheve != nullptr && inacheve->empty())
    etat.vitAffichee.pop_back();
  etat.vitAffichee.push_back(Joindre({kMarqueVit, court.substr(0, kLargeurNomVit)}));
  etat.message.clear();
}

bool AjouterQuestionALaVit(EtatPrepRecod& etat) {
  const Question* question = QuestionCourante(etat);
  if (question == nullptr) {
    etat.message = "Cliquer sur une question à prendre comme VIT";
    return false;
  }
  if (etat.vitAffichee.empty()) return false;
  std::string* element = ElementEnCours(etat);
  // A name that got no code gives way to the new one.
  if (element == nullptr || element->size() > kLargeurNomVit) element = &etat.vitAffichee.emplace_back();
  *element = CadreGauche(question->nom, kLargeurNomVit);
  etat.message.clear();
  return true;
}

void AjouterCodeALaVit(EtatPrepRecod& etat, int code) { PoserCode(etat, Nombre(code)); }

void AjouterScoreALaVit(EtatPrepRecod& etat, std::string_view score) {
  const std::string_view seul = Rogner(score);
  std::string* element = ElementEnCours(etat);
  if (seul == "+") PoserCode(etat, "+");
  else if (element != nullptr && !seul.empty()) *element += Joindre({" ", seul});
}

void CommencerElementDeVit(EtatPrepRecod& etat) {
  const std::string* element = ElementEnCours(etat);
  if (element != nullptr && !element->empty()) etat.vitAffichee.emplace_back();
  etat.message = "Cliquer sur une question à prendre comme VIT";
}

void CorrigerVit(EtatPrepRecod& etat) { etat.message = "Corrigez les erreurs éventuelles et validez la VIT"_w; }

void ReprendreTexteVit(EtatPrepRecod& etat, std::string_view texte) {
  etat.vitAffichee.clear();
  while (!texte.empty()) {
    const std::size_t fin = std::min(texte.find('\n'), texte.size());
    std::string_view ligne = texte.substr(0, fin);
    if (!ligne.empty() && ligne.back() == '\r') ligne.remove_suffix(1);
    etat.vitAffichee.emplace_back(ligne);
    texte.remove_prefix(std::min(fin + 1, texte.size()));
  }
}

std::string TexteVit(const EtatPrepRecod& etat) {
  std::string texte;
  for (const std::string& ligne : etat.vitAffichee) texte += (texte.empty() ? "" : "\r\n") + ligne;
  return texte;
}

namespace {

std::string FauteDElement(const EtatPrepRecod& etat, const Vit& vit) {
  for (const ElementVit& element : vit.elements) {
    if (element.sansCode)
      return Joindre({"Un élément de la VIT "_w, vit.nom, " n'a pas de valeur en colonnes 8-9 : "_w, element.ligne,
                      " ; elle n'est pas validée"_w});
    const auto sienne = [&](const QuestionPreparee& q) {
      return EgalSansCasse(Rogner(q.question.nom), Rogner(element.nom));
    };
    if (std::ranges::none_of(etat.questions, sienne))
      return Joindre({"Un élément de la VIT "_w, vit.nom, " n'a pas de question dans le fichier *.POS : "_w,
                      element.ligne, " ; elle n'est pas validée"_w});
  }
  return {};
}

// The sentence on what the recoding would refuse in a block; empty when there is nothing.
std::string FauteDuBloc(const EtatPrepRecod& etat, const std::vector<std::string>& lignes) {
  try {
    for (const Vit& vit : LireBlocVit(lignes).vits) {
      if (std::string faute = FauteDElement(etat, vit); !faute.empty()) return faute;
      if (!vit.PlusOublie()) continue;
      return Joindre({"Oubli de signe + : il en faut à tous les éléments de la VIT "_w, vit.nom,
                      " ou à aucun, elle n'est pas validée"_w});
    }
  } catch (const Erreur& erreur) {
    return Joindre({TexteErreur(erreur), " : la VIT n'est pas validée"_w});
  }
  return {};
}

// The lines of the displayed block that say something.
std::vector<std::string> LignesDeVit(const EtatPrepRecod& etat) {
  std::vector<std::string> lignes = etat.vitAffichee;
  std::erase_if(lignes, [](const std::string& l) { return Rogner(l).empty() || Rogner(l) == kMarqueVit; });
  return lignes;
}

}  // namespace

bool ResteUneVit(const EtatPrepRecod& etat) { return LignesDeVit(etat) != etat.vit; }

bool ValiderVit(EtatPrepRecod& etat) {
  std::vector<std::string> lignes = LignesDeVit(etat);
  // Without the line of its name the block would be taken for questions.
  if (!lignes.empty() && MarqueDeFin(lignes.front()) != FinDeListe::Dollars) {
    etat.message = "Nom vide, recommencez ou annulez";
    return false;
  }
  if (std::string faute = FauteDuBloc(etat, lignes); !faute.empty()) {
    etat.message = std::move(faute);
    return false;
  }
  etat.vit = etat.vitAffichee = std::move(lignes);
  etat.modifie = true;
  etat.message = "La VIT affichée est validée (mais non enregistrée)"_w;
  return true;
}

void SupprimerVit(EtatPrepRecod& etat) {
  etat.message = etat.vitAffichee.empty() && etat.vit.empty() ? std::string_view("Il n'y a pas de VIT en cours")
                                                              : "La VIT a été supprimée"_w;
  etat.modifie = etat.modifie || !etat.vit.empty();
  etat.vitAffichee.clear();
  etat.vit.clear();
}

}  // namespace quelvar::sorts
