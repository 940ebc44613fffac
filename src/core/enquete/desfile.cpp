#include "core/enquete/desfile.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"

namespace quelvar {

namespace {

// The columns of a line: name, code-max or number of characters, type, options.
constexpr int kLargeurNom = 7;
constexpr int kColonneNombre = kLargeurNom + 1;
constexpr int kLargeurNombre = 2;
constexpr int kColonneType = kColonneNombre + kLargeurNombre;
constexpr int kTete = 4;  // what is looked at for the end of the list

constexpr int kFautesDUneLongueur = 10;  // for how many a record of another length counts

constexpr double kSautMaximal = 32767;  // beyond the end of every descriptor

bool Contient(std::string_view texte, std::string_view cherche) {
  return texte.find(cherche) != std::string_view::npos;
}

class LecteurDeDescription {
 public:
  explicit LecteurDeDescription(Descripteur& descripteur) : descripteur_(descripteur) {}

  void Lire(std::string_view ligne) {
    DescriptionDeQuestion description;
    description.nom = CadreGauche(ligne, kLargeurNom);
    description.nombre = std::max<int>(Entier16(ValeurDe(Milieu(ligne, kColonneNombre, kLargeurNombre))), 0);
    description.alphabetique = !Rogner(Milieu(ligne, kColonneType, 1)).empty();
    description.options = Milieu(ligne, kColonneType + 1);
    description.numerique = Contient(description.options, "num") || Contient(description.options, "NUM");
    description.tabulation = Contient(description.options, "tab") || Contient(description.options, "TAB");
    LireSaut(description);
    ControlerNombre(description);
    descripteur_.descriptions.push_back(std::move(description));
  }

 private:
  void Signaler(std::string_view texte, const DescriptionDeQuestion& description) {
    descripteur_.fautes.push_back(Joindre({texte, " Question ", description.nom}));
    ++descripteur_.nombreFautes;
  }

  void ControlerNombre(DescriptionDeQuestion& description) {
    if (description.alphabetique && description.nombre > kLargeurAlphaAuPlus) {
      Signaler("*** Attention un code alpha plus grand que 20 ramené à 20 à la question "_w, description);
      description.nombre = kLargeurAlphaAuPlus;
    } else if (description.alphabetique && description.nombre == 0) {
      Signaler("*** Attention un code alpha est de largeur 0 à la question "_w, description);
    } else if (!description.alphabetique && description.nombre == 0) {
      Signaler("*** Attention un code numérique a comme code-max 0 à la question "_w, description);
    }
  }

  void LireSaut(DescriptionDeQuestion& description) {
    const std::string& options = description.options;
    const std::size_t si = Majuscules(options).find("SI");
    if (si == std::string::npos) return;
    const std::size_t signe = options.find_first_of("<=>", si);
    const std::size_t plus = options.find('+', signe == std::string::npos ? si : signe);
    if (plus == std::string::npos) return Signaler("*** Pas de signe plus dans le saut, test abandonné"_w, description);
    if (signe == std::string::npos) return Signaler("*** Pas de < ou = ou >, test abandonné"_w, description);
    const double lu = ArrondirPair(ValeurDe(std::string_view(options).substr(plus + 1)));
    const int nombre = static_cast<int>(std::min(lu, kSautMaximal));
    if (nombre <= 0) return Signaler("*** Pas de valeur dans le saut, test abandonné"_w, description);
    description.saut = SautConditionnel{
        options[signe], std::string(Rogner(std::string_view(options).substr(signe + 1, plus - signe - 1))), nombre};
  }

  Descripteur& descripteur_;
};

bool EstMarqueDeFin(std::string_view ligne) { return Contient(Milieu(ligne, 1, kTete), kFinDeListe); }
bool ArreteLaListe(std::string_view ligne) { return Rogner(Milieu(ligne, 1, kTete)).empty() || EstMarqueDeFin(ligne); }

// The fault of a list that a line without a name ends, and not "**", while questions stand behind it.
void SignalerLaSuite(LecteurLignes& lecteur, Descripteur& descripteur) {
  const std::size_t blanche = descripteur.descriptions.size() + 1;
  std::size_t laissees = 0;
  std::string premiere;
  for (std::string_view ligne; lecteur.Lire(ligne) && !EstMarqueDeFin(ligne);)
    if (!ArreteLaListe(ligne) && laissees++ == 0) premiere = CadreGauche(ligne, kLargeurNom);
  if (laissees == 0) return;
  descripteur.fautes.push_back(
      Joindre({"*** Attention la ligne "_w, Nombre(blanche),
               " du descripteur n'a pas de nom et arrête la liste ; lignes non lues derrière elle : "_w,
               Nombre(laissees), ", la première Question "_w, premiere}));
  ++descripteur.nombreFautes;
}

}  // namespace

int Descripteur::LongueurEnregistrement() const {
  int longueur = 0;
  for (const DescriptionDeQuestion& description : descriptions) longueur += description.Largeur();
  return longueur;
}

Descripteur LireDes(const Chemin& chemin) {
  Descripteur descripteur;
  LecteurDeDescription lecteurDeDescription(descripteur);
  LecteurLignes lecteur(chemin);
  std::string_view ligne;
  bool arretee = false;
  while (!arretee && lecteur.Lire(ligne)) {
    arretee = ArreteLaListe(ligne);
    if (!arretee) Situer(lecteur, [&] { lecteurDeDescription.Lire(ligne); });
  }
  if (arretee && !EstMarqueDeFin(ligne)) SignalerLaSuite(lecteur, descripteur);
  return descripteur;
}

void VerifierLongueur(Descripteur& descripteur, std::size_t longueurDerniereLigne) {
  const int longueur = descripteur.LongueurEnregistrement();
  if (static_cast<std::size_t>(longueur) == longueurDerniereLigne) return;
  descripteur.fautes.push_back(Joindre(
      {"*** Erreur : la longueur de l'enregistrement calculée à partir\r\n    du fichier de description est de "_w,
       Nombre(longueur), "\r\n    celle du dernier enregistrement du fichier de données\r\n    existant déjà est de "_w,
       Nombre(longueurDerniereLigne)}));
  descripteur.nombreFautes += kFautesDUneLongueur;
}

std::string TexteDesFautes(const Descripteur& descripteur) {
  std::string texte;
  for (const std::string& faute : descripteur.fautes) texte += (texte.empty() ? "" : "\r\n") + faute;
  return texte;
}

std::string LigneDescription(std::string_view nom, int nombre, GenreDescription genre, std::string_view options) {
  std::string_view colonnes = "     ";
  if (genre == GenreDescription::Alphabetique) colonnes = "A    ";
  if (genre == GenreDescription::NumeriqueLongue) colonnes = "A NUM";
  return Joindre({CadreGauche(nom, kLargeurNom), EntierDroit(nombre, kLargeurNombre), colonnes, options});
}

std::string CodeMaxGenere(const DescriptionDeQuestion& description) {
  if (!description.alphabetique) return TexteCodeMax(description.nombre);
  switch (description.nombre) {
    case 1: return " 9";
    case 2: return "99";
    case 3: return "L3";
    default: return EntierDroit(description.nombre, 2) + "A";
  }
}

}  // namespace quelvar
