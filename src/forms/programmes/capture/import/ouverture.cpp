#include "forms/programmes/capture/import/ouverture.h"

#include <optional>
#include <utility>

#include "capture/apercu/options.h"
#include "capture/cible.h"
#include "core/programme/annulation.h"
#include "core/programme/lieunomme.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "forms/programmes/capture/import/apercu/apercu.h"
#include "forms/programmes/capture/import/attente/feuille.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

// A directory that was opened or chosen is where the files go; before that they go where the source lies.
Chemin RepertoireDe(const Session& session, const Chemin& fichier) {
  if (session.ouverture != Ouverture::SansInitialisation || session.repertoire != session.repertoireProgramme)
    return session.repertoire;
  const Chemin la = fichier.parent_path();
  return la.empty() ? session.repertoire : la;
}

void ImporterDBase(Services& services, const Chemin& fichier) {
  const Chemin repertoire = RepertoireDe(services.session, fichier);
  const std::string saisi = services.ecran.saisir(
      Joindre({"Le générique, nom commun des fichiers de l'enquête, pour "_w, TexteDe(fichier.filename())}),
      capture::GeneriquePropose(repertoire, fichier));
  const std::string generique = GeneriqueSaisi(saisi);
  if (generique.empty()) return;
  if (const std::string refus = capture::RefusDuGenerique(generique); !refus.empty()) {
    services.ecran.demander(refus, Boutons::Ok);
    return;
  }
  const Contexte contexte{repertoire, generique, services.session.niveau, &services.ecran};
  if (capture::GeneriqueOccupe(repertoire, generique, fichier) && !PeutEtreRemplace(contexte, generique)) return;
  if (!services.formes.LaisserLeTravail()) return;
  capture::OptionsImport options;
  options.fichier = TexteDe(fichier);
  const auto importer = [&](const Contexte& sur) { return capture::DescriptionImport().Executer(sur, options); };
  if (services.LancerSur(contexte, importer) != Fin::Normale) return;
  if (repertoire != services.session.repertoire) PrendreRepertoire(services.session, repertoire);
  services.adopterGenerique(generique);
}

// Nothing, and a box that tells why, when the file cannot be read.
std::optional<capture::PreparationDImport> Preparer(Services& services, const Chemin& fichier) {
  try {
    if (capture::GenreDe(fichier) != capture::GenreDeSource::Classeur) return capture::PreparationDImport(fichier, {});
    return PreparerAuLoin(&services.fenetre, fichier, {});
  } catch (const Erreur& erreur) {
    services.ecran.demander(Joindre({TexteDe(fichier.filename()), " : ", TexteErreurDuFichierNomme(erreur)}),
                            Boutons::Ok);
    return std::nullopt;
  } catch (const Annulation&) {
    return std::nullopt;
  }
}

}  // namespace

void ImporterFichier(Services& services, const Chemin& fichier) {
  if (!FairePlace<ApercuImport>(services)) return;
  if (capture::GenreDe(fichier) == capture::GenreDeSource::DBase) {
    ImporterDBase(services, fichier);
    return;
  }
  std::optional<capture::PreparationDImport> preparation = Preparer(services, fichier);
  if (!preparation) return;
  const Chemin repertoire = RepertoireDe(services.session, fichier);
  Montrer<ApercuImport>(services, *std::move(preparation),
                        ApercuImport::Cible{repertoire, capture::GeneriquePropose(repertoire, fichier), false});
}

void ImporterSourceDuGenerique(Services& services, bool toujoursMontrer) {
  if (!FairePlace<ApercuImport>(services)) return;
  const Contexte contexte = services.ContexteEnCours();
  std::optional<Chemin> source = contexte.Chercher(".CSV");
  if (!source) source = contexte.Chercher(".TXT");
  if (!source) return;
  std::optional<capture::PreparationDImport> preparation = Preparer(services, *source);
  if (!preparation) return;
  if (!toujoursMontrer && preparation->Vue().entier && preparation->ToutVaBien()) {
    services.Lancer(capture::DescriptionImport(), preparation->Options());
    services.relireGenerique();
    return;
  }
  Montrer<ApercuImport>(services, *std::move(preparation),
                        ApercuImport::Cible{contexte.repertoire, contexte.generique, true});
}

}  // namespace quelvar::forms
