#include "core/fichiers/reprise.h"

#include <algorithm>
#include <cerrno>

#include "core/fichiers/provisoire.h"
#include "core/fichiers/signaux.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/marque.h"
#include "core/panne/attention.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

bool Present(const Chemin& chemin) { return appels::Existe(chemin.c_str()); }

bool Est(const Chemin& chemin, const EntreeDeReleve& e) {
  return MesurerFichier(chemin) == MesureDeFichier{e.taille, e.empreinte};
}

// The former file of an entry that removes it.
bool EstLAncien(const Chemin& chemin, const EntreeDeReleve& e) {
  std::uint64_t noeud = 0;
  std::int64_t instant = 0;
  return NoterEtat(chemin, noeud, instant) && noeud == e.noeud && instant == e.instant;
}

// Where a file of a cut commit stands.
struct Avance {
  bool pose = false;     // the new file is in place
  bool ancien = false;   // the former one is still there under the scratch name
  bool posable = false;  // the new file is whole under the scratch name
  bool entier = true;    // the file in place is the one that was recorded
};

// The bytes of the cut run stand behind the former ones, and maybe others behind them.
bool EstAllonge(const EntreeDeReleve& e) {
  if (!Present(e.cible) || LongueurFichier(e.cible) < e.taille) return false;
  CondenseDOctets condense;
  condense.Ajouter(LireMorceau(e.cible, e.ancienne, e.taille - e.ancienne));
  return condense.Valeur() == e.empreinte;
}

Avance Examiner(const EntreeDeReleve& e, bool memeAmorce) {
  if (e.genre == GenreDEntree::Allonge) return {.pose = EstAllonge(e)};
  appels::Exiger(appels::AcheverEchange(e.cible.c_str(), e.provisoire.c_str()), e.cible);
  Avance avance;
  const bool reste = Present(e.provisoire);
  if (e.genre == GenreDEntree::Efface) {
    avance.pose = reste || !EstLAncien(e.cible, e);
    avance.ancien = reste;
    avance.posable = !avance.pose;
    return avance;
  }
  avance.posable = reste && Est(e.provisoire, e) && !(e.genre == GenreDEntree::Remplace && !Present(e.cible));
  if (e.genre == GenreDEntree::Nouveau) {
    avance.pose = !reste;
  } else {
    // The scratch name holds the former file as soon as the target holds the new one.
    avance.pose = !reste || (!avance.posable && Est(e.cible, e));
    avance.ancien = reste && avance.pose;
  }
  if (avance.pose && !memeAmorce) avance.entier = Est(e.cible, e);
  return avance;
}

void EffacerProvisoires(const std::vector<EntreeDeReleve>& entrees) {
  for (const EntreeDeReleve& e : entrees)
    if (!e.provisoire.empty() && Present(e.provisoire)) appels::Exiger(appels::Effacer(e.provisoire.c_str()), e.cible);
}

void Finir(const std::vector<EntreeDeReleve>& entrees, const std::vector<Avance>& avances) {
  for (std::size_t i = 0; i < entrees.size(); ++i) {
    // The bytes that lengthen a file are nowhere else: only a whole one is finished.
    if (!avances[i].pose) PoserFichier(entrees[i]);
  }
  EffacerProvisoires(entrees);
}

void Annuler(const std::vector<EntreeDeReleve>& entrees, const std::vector<Avance>& avances) {
  for (std::size_t i = entrees.size(); i-- > 0;) {
    const EntreeDeReleve& e = entrees[i];
    if (e.genre == GenreDEntree::Allonge) RetirerAjout(e);
    if (!avances[i].pose || e.genre == GenreDEntree::Allonge) continue;
    if (e.genre == GenreDEntree::Nouveau) {
      // A file that another program has put there meanwhile is not ours to remove.
      if (Present(e.cible) && (!avances[i].entier || Est(e.cible, e)))
        appels::Exiger(appels::RenommerSansRemplacer(e.cible.c_str(), e.provisoire.c_str()), e.cible);
    } else if (e.genre == GenreDEntree::Remplace) {
      appels::Exiger(appels::Echanger(e.cible.c_str(), e.provisoire.c_str()), e.cible);
    } else if (avances[i].ancien && !Present(e.cible)) {
      appels::Exiger(appels::RenommerSansRemplacer(e.provisoire.c_str(), e.cible.c_str()), e.cible);
    }
  }
  EffacerProvisoires(entrees);
}

std::string Noms(const std::vector<EntreeDeReleve>& entrees, GenreDEntree genre, bool autres) {
  std::string noms;
  for (const EntreeDeReleve& e : entrees)
    if ((e.genre == genre) != autres) noms += Joindre({" ", TexteDe(e.cible.filename())});
  return noms;
}

void Raconter(std::vector<std::string>& recit, const std::vector<EntreeDeReleve>& entrees, bool finie) {
  recit.push_back(Joindre({kAttention, "l'écriture de plusieurs fichiers avait été interrompue"_w}));
  const std::string ecrits = Noms(entrees, GenreDEntree::Efface, true);
  const std::string effaces = Noms(entrees, GenreDEntree::Efface, false);
  recit.push_back(Joindre({finie ? "    elle a été achevée, ces fichiers sont les nouveaux :"_w
                                 : "    elle a été annulée, ces fichiers sont ceux d'avant :"_w,
                           finie ? ecrits : Joindre({ecrits, effaces})}));
  if (finie && !effaces.empty()) recit.push_back(Joindre({"    ceux-ci sont effacés :"_w, effaces}));
  recit.emplace_back();
}

}  // namespace

void PoserFichier(const EntreeDeReleve& entree) {
  const Chemin& cible = entree.cible;
  const Chemin& provisoire = entree.provisoire;
  switch (entree.genre) {
    case GenreDEntree::Nouveau:
      return appels::Exiger(appels::RenommerSansRemplacer(provisoire.c_str(), cible.c_str()), cible);
    case GenreDEntree::Remplace: return appels::Exiger(appels::Echanger(cible.c_str(), provisoire.c_str()), cible);
    case GenreDEntree::Efface:
      return appels::Exiger(appels::RenommerSansRemplacer(cible.c_str(), provisoire.c_str()), cible);
    case GenreDEntree::Allonge: break;
  }
}

std::vector<std::string> ReprendreGenerique(const Chemin& repertoire, std::string_view generique) {
  const Chemin chemin = CheminDeReleve(repertoire, generique);
  if (!Present(chemin)) return {};
  const SansSignaux sansSignaux;
  const std::optional<Releve> releve = LireReleve(chemin);
  if (!releve) {  // a record that is not whole was never relied upon
    EffacerReleve(repertoire, generique);
    return {};
  }
  const bool memeAmorce = !releve->amorce.empty() && releve->amorce == AmorceDuSysteme();
  const std::vector<EntreeDeReleve>& entrees = releve->entrees;
  std::vector<Avance> avances;
  for (const EntreeDeReleve& e : entrees) avances.push_back(Examiner(e, memeAmorce));
  const bool toutPose = std::all_of(avances.begin(), avances.end(), [](const Avance& a) { return a.pose; });
  const bool finissable =
      std::all_of(avances.begin(), avances.end(), [](const Avance& a) { return a.pose ? a.entier : a.posable; });
  // A former file that is gone already shows that every new one had been in place.
  bool annulable = true;
  for (std::size_t i = 0; i < avances.size(); ++i)
    annulable = annulable && (entrees[i].genre != GenreDEntree::Remplace || !avances[i].pose || avances[i].ancien);

  std::vector<std::string> recit;
  const bool finie = finissable || !annulable;
  if (finie) Finir(entrees, avances);
  else Annuler(entrees, avances);
  if (!finie || !toutPose) Raconter(recit, entrees, finie);
  EffacerReleve(repertoire, generique);
  return recit;
}

}  // namespace quelvar
