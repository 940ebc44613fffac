// The modality list as the editing forms hold it: one text a modality, in the columns of its line of the .MOD.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"

namespace quelvar {

// The .MOD in its parts, all lines as they stand but those of the modalities, which are padded to seven columns.
struct ListeModalites {
  std::string titre;
  std::string parametres;
  std::vector<std::string> textes;  // name in columns 1-4, mark in 5-7, label from 8 on
  std::vector<std::string> suite;   // the end mark and what stands behind it
};

// A file of less than two lines has an empty list. Raises the failures of LecteurLignes.
ListeModalites LireListeModalites(const Chemin& chemin);
// Replaces the file. Raises the failures of writing.
void EcrireListeModalites(const Chemin& repertoire, std::string_view nom, const ListeModalites& liste);
// The same as one of the files of a set.
void EcrireListeModalites(Ecrivain& fichier, const ListeModalites& liste);
// Replaces the modalities of the file by these texts; what else the file holds by then stays. Raises
// kFichierIntrouvable without a file, and what ExigerMemesModalites raises.
void RemplacerModalites(const Chemin& repertoire, std::string_view nom, const std::vector<std::string>& textes);

// Texts that were read go back to the modalities that they name: when the file has been made anew with others
// meanwhile, raises kAccesFichier with a sentence.
void ExigerMemesModalites(std::string_view nom, const ListeModalites& liste, const std::vector<std::string>& textes);

// The list as a form opens it: without one, the lines of `message` tell why.
struct ListeOuverte {
  std::vector<std::string> message{};
  std::vector<std::string> textes{};
};
// Reads the .MOD of the generic, and raises nothing: what keeps it from being read is the message.
ListeOuverte OuvrirListe(const Contexte& contexte);

// Whether the names of the .MOD are all those of questions, as a run on the links of questions leaves it, and not of
// modalities. None without a .MOD or a .POS, or when one of them can't be read: that is for the readers to tell.
std::optional<bool> NommeDesQuestions(const Contexte& contexte);

// The sentence on a file that an earlier step makes, by what it is; that of the .MOD.
std::string PhraseDEtapeOmise(std::string_view quoi);
inline constexpr std::string_view kFichierDeModalites = "Le fichier de modalités"_w;

// Parts of a text of the list, or of any line: name, mark, label; and the text that they make.
inline std::string_view NomDeTexte(std::string_view texte) { return Milieu(texte, 1, kLargeurDeModalite); }
inline std::string_view MarqueDeTexte(std::string_view texte) {
  return Milieu(texte, kLargeurDeModalite + 1, kLargeurDeMarque);
}
inline std::string_view IntituleDeTexte(std::string_view texte) { return Milieu(texte, kColonneDIntitule); }
std::string TexteDeModalite(std::string_view nom, std::string_view marque, std::string_view intitule);
// Another mark, or another label as it was typed, in the place of the one that the text has.
void PoserMarque(std::string& texte, std::string_view marque);
void PoserIntitule(std::string& texte, std::string_view intitule);
// An S or s in the mark.
bool EstSupplementaire(std::string_view texte);

// Rank of the modality of that name, blanks around it aside, or the number of texts. Raises a sentence
// (kIncompatibiliteType), with the line of the second one, when several have it.
std::size_t RangDeModalite(const std::vector<std::string>& textes, std::string_view nom);
// Whether one modality has that name.
bool EstSeule(const std::vector<std::string>& textes, std::string_view nom);

}  // namespace quelvar
