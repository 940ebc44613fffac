#include "capture/saisie/saisie.h"

#include <unordered_set>
#include <utility>

#include "capture/compterendu/fichiers.h"
#include "capture/compterendu/remarques.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/posfile.h"

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
  Remarques fautes = tenu.Recit();
  if (std::string duDescripteur = TexteDesFautes(descripteur); !duDescripteur.empty())
    fautes.push_back(std::move(duDescripteur));
  if (descripteur.descriptions.empty()) fautes.emplace_back("*** Le descripteur ne contient aucune question");
  if (fichiers.PosAGarder()) fautes.push_back(AnnonceDuPos(contexte));
  if (fichiers.Reprendre())
    fautes.push_back(
        Joindre({"L'effectif du fichier ", contexte.Nom(".POS"), " a été remis d'accord avec les données"_w}));
  return SaisieEnCours{NouvelleSaisie(descripteur, examen.lignes), std::move(fichiers), EnLignes(fautes)};
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

void ImprimerFinDeSaisie(Rapport& rapport, std::int64_t faits, std::string_view faute) {
  rapport.Ligne("Interruption de la saisie");
  rapport.Ligne({"Nombre d'enregistrements déjà faits ="_w, NombreNu(faits)});
  rapport.Ligne();
  rapport.Ligne(faute.empty() ? std::string_view("Fin normale du programme") : faute);
}

Fin TerminerSaisie(const Contexte& contexte, std::int64_t faits) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{},
                           [&](Rapport& rapport) { ImprimerFinDeSaisie(rapport, faits); });
}

}  // namespace quelvar::capture
