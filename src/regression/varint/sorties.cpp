#include "regression/varint/sorties.h"

#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/programme/rapport.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeurDuPem = 4;  // FMT= of the table

}  // namespace

GroupeDeBarres BarresDe(const FichierPos& pos, const Profil& profil) {
  const auto intitule = [&](std::size_t rang) {
    const Question& question = pos.questions[rang];
    const std::string_view nom = Rogner(question.nom);
    const std::string_view longNom = Rogner(question.intitule);
    // Many long names begin with the short one.
    return longNom.substr(0, nom.size()) == nom ? std::string(longNom)
                                                : std::string(RognerDroite(Joindre({nom, " ", longNom})));
  };
  GroupeDeBarres groupe{Joindre({"Profil de ", intitule(profil.question)}), {}};
  for (const LienDeProfil& lien : profil.liens)
    groupe.barres.push_back({intitule(lien.question), static_cast<int>(lien.pem), true});
  return groupe;
}

void EcrireTable(Ecrivain& fichier, const FichierPos& pos, const std::vector<Profil>& profils) {
  for (const Profil& profil : profils) {
    const Question& question = pos.questions[profil.question];
    fichier.Ecrire(CadreGauche(question.nom, kLargeurDeQuestion));
    for (const double pem : profil.pems) fichier.Ecrire(NombreFixe(pem, kLargeurDuPem, 0));
    fichier.Ligne(Joindre({" ", question.intitule}));
  }
}

std::vector<std::string> SuiteDuMod(const std::optional<Chemin>& mod) {
  std::vector<std::string> suite;
  if (!mod) return suite;
  LecteurLignes lecteur(*mod);
  bool derriere = false;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (derriere) suite.emplace_back(ligne);
    else derriere = Milieu(ligne, 1, kLargeurDeModalite).find(kFinDeListe) != std::string_view::npos;
  }
  return suite;
}

void EcrireModalites(Ecrivain& fichier, std::string_view generique, const FichierPos& pos,
                     const std::vector<Profil>& profils, const std::vector<std::string>& suite) {
  fichier.Ligne(generique);
  fichier.Ligne(RognerDroite(LigneDeParametres({{"BRT=", profils.size()}, {"FMT=", kLargeurDuPem}})));
  for (const Profil& profil : profils) {
    const Question& question = pos.questions[profil.question];
    fichier.Ligne(LigneModalite(question.nom, false, question.intitule));
  }
  fichier.Ligne(kFinDeListe);
  for (const std::string& ligne : suite) fichier.Ligne(ligne);
}

}  // namespace quelvar::regression
