#include "factor/profil/profilmod.h"

#include <algorithm>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/listemod.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/programme/constats.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "core/programme/refus.h"
#include "factor/profil/choix.h"
#include "factor/profil/dessin.h"
#include "factor/profil/edition.h"
#include "factor/profil/lecture.h"
#include "factor/profil/noms.h"

namespace quelvar::factor {

namespace {

// Tells what is missing, and stops for it.
void ArreterSurLesAbsents(Rapport& rapport, const Dialogue& ecran, const std::vector<std::string>& absents) {
  if (absents.empty()) return;
  rapport.Lignes(absents);
  AvertirEtArreter(rapport, ecran, "Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w);
}

void ImprimerNoms(Rapport& rapport, const Contexte& contexte, const FichiersDeProfil& fichiers) {
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, contexte.Nom(fichiers.donnees ? ".DAT" : ".BRT")});
  rapport.Ligne({"Le nom du fichier de positions est ", contexte.Nom(".POS")});
  rapport.Ligne({"Le nom du fichier de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".PR2")});
}

// Tells the names that are not what they should be, and stops for any.
void ArreterSurLesNoms(Rapport& rapport, const Dialogue& ecran, const std::vector<std::string>& fautes,
                       const Lieu& premiere = {}) {
  if (fautes.empty()) return;
  rapport.Lignes(fautes);
  Avertir(rapport, ecran, "Arrêt : nom de modalité non trouvé"_w);
  throw Erreur(FauteSituee{fautes.front(), premiere});
}

void ArreterSurLesCodes(Rapport& rapport, const Contexte& contexte, const CodesDesModalites& codes) {
  if (codes.homonymes.empty())
    return ArreterSurLesNoms(rapport, contexte.Ecran(), codes.fautes, {contexte.Nom(".MOD"), codes.ou.ligne});
  rapport.Lignes(codes.fautes);
  throw Erreur(kIncompatibiliteType, codes.homonymes).Situer(codes.ou);
}

// What the counts of the Burt table have to tell.
Constats ConstatsDuBurt(const Contexte& contexte, const ComptesDeProfil& comptes) {
  Constats constats;
  if (comptes.douteuses > 0)
    constats.Boite(
        Joindre({"Cellules de ", contexte.Nom(".BRT"),
                 " qui ne sont pas des nombres entiers positifs ou nuls, ou sont coupées : "_w,
                 Nombre(comptes.douteuses), ", la première "_w, comptes.premiereDouteuse,
                 ". Un nombre négatif ou à décimales est pris tel quel, un texte compte pour 0 ou jusqu'au premier "
                 "signe de trop : refaites le tableau"_w}));
  if (comptes.plusGrandeQuestion > comptes.individus)
    constats.Boite(Joindre({kAttention, contexte.Nom(".POS"),
                            " ne dit pas le nombre d'individus : celui des réponses à la première "
                            "question, "_w,
                            Nombre(comptes.individus), ", en tient lieu, mais une autre en a "_w,
                            Nombre(comptes.plusGrandeQuestion),
                            ". Les PEM et les khi-deux ne sont justes qu'avec le nombre "
                            "d'individus en ligne 2 de "_w,
                            contexte.Nom(".POS")}));
  return constats;
}

// And those of the data.
Constats ConstatsDesDonnees(const Contexte& contexte, const ComptesDeProfil& comptes, std::int64_t annonces) {
  Constats constats;
  if (comptes.individus < static_cast<double>(annonces)) constats.Alerte(kFichierPlusCourt);
  if (comptes.laisses > 0)
    constats.Boite(
        Joindre({contexte.Nom(".POS"), " annonce ", Nombre(annonces), " individus et ", contexte.Nom(".DAT"), " en a ",
                 Nombre(annonces + comptes.laisses), " : le profil ne porte que sur les premiers"}));
  return constats;
}

ComptesDeProfil CompterEtDire(Rapport& rapport, const Contexte& contexte, const FichiersDeProfil& fichiers,
                              const FichierMod& mod, const ParametresMod& parametres,
                              const std::vector<std::size_t>& choisies) {
  std::optional<FichierPos> pos;
  if (fichiers.pos) {
    pos = LirePos(*fichiers.pos);
    ExigerParentheses(pos->taille, contexte.Ecran());
  }
  if (!fichiers.donnees) {
    if (parametres.burt == 0 && !LignesSontLesColonnes(*fichiers.brt, mod.modalites))
      AvertirEtArreter(rapport, contexte.Ecran(),
                       Joindre({"Erreur : ", contexte.Nom(".BRT"),
                                " n'est pas un tableau de Burt, ses lignes ne sont pas ses "
                                "colonnes : sans fichier de données il n'y a pas de profil"_w}));
    ExigerTableDuMod(*fichiers.brt, mod, parametres);
    ComptesDeProfil comptes =
        LireBurt(*fichiers.brt, mod, parametres, choisies, pos ? static_cast<double>(pos->taille.individus) : 0);
    ConstatsDuBurt(contexte, comptes).Dire(rapport, contexte.Ecran());
    return comptes;
  }
  const CodesDesModalites codes = TrouverCodes(mod.modalites, *pos);
  ArreterSurLesCodes(rapport, contexte, codes);
  ComptesDeProfil comptes = CompterDonnees(*fichiers.donnees, *pos, codes.codes, choisies, contexte.Ecran());
  ConstatsDesDonnees(contexte, comptes, pos->taille.individus).Dire(rapport, contexte.Ecran());
  return comptes;
}

ProfilDeModalite Profiler(const FichierMod& mod, const ComptesDeProfil& comptes, std::size_t k, std::size_t choisie,
                          bool nonTri) {
  ProfilDeModalite profil{mod.modalites[choisie].nom, std::string(Rogner(mod.modalites[choisie].intitule)), {}};
  std::vector<LigneDeProfil> lignes;
  std::vector<Attraction> attractions;
  for (std::size_t j = 0; j < mod.modalites.size(); ++j) {
    if (j == choisie) continue;
    const double ensemble = comptes.ensemble[k][j];
    attractions.push_back(Attirer({comptes.individus, comptes.effectifs[choisie], comptes.effectifs[j], ensemble}));
    lignes.push_back(
        {mod.modalites[j].nom, std::string(Rogner(mod.modalites[j].intitule)), ensemble, attractions.back()});
  }
  if (nonTri) {
    profil.lignes = std::move(lignes);
    return profil;
  }
  for (const std::size_t rang : OrdreDesPem(attractions)) profil.lignes.push_back(std::move(lignes[rang]));
  return profil;
}

// The .MOD with the choice in its second line and these texts.
ListeModalites ListeDuChoix(const Contexte& contexte, const std::vector<std::string>& textes,
                            const std::vector<std::string>& noms) {
  ListeModalites liste = LireListeModalites(contexte.Exiger(".MOD"));
  ExigerMemesModalites(contexte.Nom(".MOD"), liste, textes);
  liste.parametres = LigneDuChoix(liste.parametres, noms, contexte.Nom(".MOD"));
  liste.textes = textes;
  for (std::string& texte : liste.textes) RendreMarque(texte);
  return liste;
}

// The choice and the labels that are given with the run, as one of its outputs; where the run reads them until then.
std::optional<Chemin> PoserChoix(const Contexte& contexte, Rapport& rapport, const OptionsProfil& options,
                                 JeuDeFichiers& sorties) {
  if (!options.modalites) return std::nullopt;
  if (const std::string refus = RefusDuChoix(*options.modalites); !refus.empty())
    AvertirEtArreter(rapport, contexte.Ecran(), refus);
  EtatProfil etat = ChargerProfil(contexte);
  rapport.Lignes(etat.message);
  if (!etat.cause.empty()) contexte.Ecran().demander(etat.cause, Boutons::Ok);
  if (!etat.message.empty()) throw Erreur(kArretAnnonce);
  for (const auto& [nom, intitule] : options.intitules) {
    const std::size_t rang = RangDeModalite(etat.textes, nom);
    if (rang == etat.textes.size())
      AvertirEtArreter(rapport, contexte.Ecran(), Joindre({"Erreur : ", nom, " non trouvé"_w}));
    PoserIntitule(etat.textes[rang], intitule);
  }
  EcrireListeModalites(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique),
                       ListeDuChoix(contexte, etat.textes, *options.modalites));
  return sorties.Achever(contexte.Nom(".MOD"));
}

std::vector<ProfilDeModalite> ProfilerModalites(Rapport& rapport, const Contexte& contexte,
                                                const OptionsProfil& options) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  const std::optional<Chemin> pose = PoserChoix(contexte, rapport, options, sorties);
  ImprimerBandeau(rapport, "Profil d'une modalité"_w);
  const FichiersDeProfil fichiers = TrouverFichiers(contexte);
  ArreterSurLesAbsents(rapport, contexte.Ecran(), PhrasesDesAbsents(contexte, fichiers));
  ImprimerNoms(rapport, contexte, fichiers);
  const FichierMod mod = LireMod(pose.value_or(*fichiers.mod));
  const ParametresMod parametres = LireParametres(mod.parametres, contexte.Nom(".MOD"));
  rapport.Lignes(parametres.remarques);
  ExigerEcriture(contexte, rapport, options.fichier);
  if (!fichiers.donnees && parametres.largeur <= 0)
    AvertirEtArreter(rapport, contexte.Ecran(), FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::SansLeFichier));
  const ModalitesChoisies choix =
      TrouverChoisies(mod.modalites, parametres.modPresent ? parametres.mod : std::string());
  ArreterSurLesNoms(rapport, contexte.Ecran(), choix.fautes);
  if (choix.sansIntitule) Avertir(rapport, contexte.Ecran(), "Attention : intitulé long  MOD= non trouvé"_w);
  const std::vector<std::size_t>& choisies = choix.rangs;
  constexpr std::uint64_t kMemoireDUneLigne = 300;  // count, measures and texts of a modality in a profile
  constexpr std::uint64_t kOctetsDUneLigne = 120;   // of the report
  const std::uint64_t lignesDeProfil = std::uint64_t{choisies.size()} * mod.modalites.size();
  ExigerPlace(contexte, rapport, {kMemoireDUneLigne * lignesDeProfil, kOctetsDUneLigne * lignesDeProfil});
  const ComptesDeProfil comptes = CompterEtDire(rapport, contexte, fichiers, mod, parametres, choisies);
  std::vector<ProfilDeModalite> profils;
  for (std::size_t k = 0; k < choisies.size(); ++k) {
    profils.push_back(Profiler(mod, comptes, k, choisies[k], options.nonTri));
    ImprimerProfil(rapport, profils.back(), options.detail);
  }
  if (!options.fichier.empty()) EcrireSvg(sorties, options.fichier, DessinerProfils(profils));
  sorties.Valider();
  rapport.Ligne();
  rapport.Ligne("Fin normale du programme");
  return profils;
}

}  // namespace

Fin EnregistrerEtProfiler(const Contexte& contexte, const std::vector<std::string>& textes,
                          const std::vector<std::string>& noms, const OptionsProfil& options,
                          std::vector<ProfilDeModalite>& profils) {
  return ExecuterProgramme(contexte, contexte.Nom(".PR2"), LibellesSansTexte(), [&](Rapport& rapport) {
    EnregistrerChoix(contexte, textes, noms);
    profils = ProfilerModalites(rapport, contexte, options);
  });
}

Fin DresserProfils(const Contexte& contexte, const OptionsProfil& options, std::vector<ProfilDeModalite>& profils) {
  return ExecuterProgramme(contexte, contexte.Nom(".PR2"), LibellesSansTexte(),
                           [&](Rapport& rapport) { profils = ProfilerModalites(rapport, contexte, options); });
}

Fin ProfilMod(const Contexte& contexte, const OptionsProfil& options) {
  std::vector<ProfilDeModalite> profils;
  return DresserProfils(contexte, options, profils);
}

EtatProfil ChargerProfil(const Contexte& contexte) {
  EtatProfil etat;
  try {
    const ListeModalites liste = Situer([&] { return Lieu{.fichier = contexte.Nom(".MOD")}; },
                                        [&] { return LireListeModalites(contexte.Exiger(".MOD")); });
    if (Rogner(liste.parametres).empty())
      etat.message = {std::string(kTitreAttention),
                      std::string("La 2e ligne du fichier *.MOD (paramètres) est vide, il faut lancer une analyse "
                                  "factorielle ou une régression sur données d'enquête pour la reconstituer"_w)};
    else etat.textes = liste.textes;
    if (!etat.textes.empty() && NommeDesQuestions(contexte).value_or(false))
      etat.remarque =
          Joindre({contexte.Nom(".MOD"),
                   " nomme des questions, non des modalités (c'est celui des variables "
                   "d'intérêt) : recréez les modalités (menu 'Analyse factorielle') pour en avoir le profil"_w});
  } catch (const Erreur& erreur) {
    if (erreur.Numero() != kFichierIntrouvable) etat.cause = TexteErreur(erreur);
    etat.message = {std::string(kTitreAttention), PhraseDEtapeOmise(kFichierDeModalites)};
  }
  return etat;
}

void EnregistrerChoix(const Contexte& contexte, const std::vector<std::string>& textes,
                      const std::vector<std::string>& noms) {
  EcrireListeModalites(contexte.repertoire, contexte.Nom(".MOD"), ListeDuChoix(contexte, textes, noms));
}

Fin AbandonnerProfil(const Contexte& contexte) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesSansTexte(),
                           [](Rapport& rapport) { rapport.Ligne("Arrêt volontaire du programme"_w); });
}

}  // namespace quelvar::factor
