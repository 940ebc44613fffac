#include "forms/cadre/menus/barre.h"

#include <QActionGroup>
#include <QMenu>
#include <QStack>

namespace quelvar::forms {

namespace {

enum class GenreDeLigne { Menu, SousMenu, FinDeSousMenu, Entree, Coche, Separateur };
using enum GenreDeLigne;

struct LigneDeMenu {
  GenreDeLigne genre;
  const char* nom = "";        // objectName of the action or menu
  const char* texte = "";      // UTF-8
  const char* raccourci = "";  // as QKeySequence reads it
};

constexpr LigneDeMenu kLignes[] = {
    {Menu, "mnuFichier", "&Fichier de démarrage"},
    {Entree, "mnuPrem", "P&remière utilisation..."},
    {Entree, "mnuPreced", "Précé&dent du répertoire en cours"},
    {Entree, "mnuChercher", "C&hercher un fichier Qvr2.ini...", "Ctrl+O"},
    {Entree, "mnuChangeRepert", "&Afficher/modifier répertoire en cours"},
    {Separateur},
    {SousMenu, "mnuNiveau", "&Niveau d'utilisateur"},
    {Coche, "mnuNiv1", "Niveau &1 (minimum d'options)"},
    {Coche, "mnuNiv2", "Niveau &2 (maximum d'options)"},
    {FinDeSousMenu},
    {SousMenu, "mnuEcr", "&Taille de l'écran"},
    {Coche, "mnuEcr35", "Taille d'une &page d'impression"},
    {Coche, "mnuEcr38", "Taille plus &grande"},
    {Coche, "mnuEcrAuto", "Taille &maximum"},
    {FinDeSousMenu},
    {Separateur},
    {Entree, "mnuImpr", "Im&primer...", "Ctrl+P"},
    {Entree, "mnuPDF", "Imprimer dans un &fichier PDF..."},
    {Separateur},
    {Entree, "mnuQuitter", "&Quitter", "Ctrl+Q"},

    {Menu, "mnuEditeur", "&Editeur"},
    {Entree, "mnuEdDES", "&Descripteur de saisie (*.des)"},
    {Entree, "mnuEdPOS", "&Questions (*.pos)"},
    {Entree, "mnuEdTRG", "Graphique &triangulaire (*.trg)"},
    {Entree, "mnuEdMOD", "&Modalités (*.mod)"},
    {Separateur},
    {Entree, "mnuEdAutres", "&Autres fichiers...", "Ctrl+E"},
    {Entree, "mnuEdWordpad", "&Lecteur de fichiers longs..."},

    {Menu, "mnuAffichage", "Affic&hage"},
    {Entree, "mnuAfIMP", "&Importation (*.imp)"},
    {Entree, "mnuAfDES", "&Descripteur de saisie (*.des)"},
    {Entree, "mnuAfPOS", "&Questions (*.pos)"},
    {Entree, "mnuAfTAP", "Tri à &plat (*.tap)"},
    {Entree, "mnuAfTRG", "Graphique trian&gulaire (*.trg)"},
    {Entree, "mnuAfTCR", "Tri &croisé (*.tcr)"},
    {Entree, "mnuAfREC", "Rec&odage (*.rec)"},
    {Entree, "mnuAfMOD", "&Modalités (*.mod)"},
    {Entree, "mnuAfPRO", "Pro&fil de PEM (*.pro)"},
    {Entree, "mnuAfAFC", "Corre&spondances (*.afc)"},
    {Entree, "mnuAfACP", "Composantes principa&les (*.acp)"},
    {Entree, "mnuAfREG", "Régression données qua&ntitatives (*.reg)"},
    {Entree, "mnuAfTRP", "Régression données qualita&tives (*.trp)"},
    {Entree, "mnuAFPR2", "Profil d'&une modalité (*.pr2)"},
    {Entree, "mnuAfTRF", "&Variable(s) d'intérêt (*.trf)"},
    {Entree, "mnuAfPRT", "Dive&rs (*.prt)"},
    {Separateur},
    {SousMenu, "mnuAfPartiel", "Affichage p&artiel"},
    {Entree, "mnuAfPartielTCR", "&Tri croisé (*.tcr)"},
    {Entree, "mnuAfPartielDAT", "&Données (*.dat)"},
    {Entree, "mnuAfPartielBRT", "Tableau de &Burt (*.brt)"},
    {Entree, "mnuAfPartielTXT", "Te&xte (*.txt)"},
    {Entree, "MnuAfPartielAll", "Fichier &quelconque"},
    {FinDeSousMenu},
    {Separateur},
    {Entree, "mnuEnregSous", "&Enregistrer sous...", "Ctrl+S"},

    {Menu, "mnuDonnees", "Nouvelles &données"},
    {Entree, "mnuSaisie", "&Saisie"},
    {Entree, "mnuImport", "&Importation d'un fichier externe"},

    {Menu, "mnuTris", "Tri&s"},
    {Entree, "mnuTriapl", "Tri à &plat", "Ctrl+T"},
    {Entree, "mnuCroise", "Tri &croisé"},
    {Entree, "mnuTriang", "Graphique &triangulaire"},

    {Menu, "mnuModifier", "&Modifier"},
    {Entree, "mnuNomQuest", "Noms et intitulés des &questions"},
    {Entree, "mnuNomMod", "Noms et intitulés des &modalités"},
    {Separateur},
    {Entree, "mnuPrepRecod", "&1) Préparer les recodages, pondérations, filtres et VIT"},
    {Entree, "mnuOutils", "&2) Recoder, pondérer, filtrer, créer VIT"},

    {Menu, "mnuFactorielle", "Anal&yse factorielle"},
    {Entree, "mnuVarInt", "&Variables d'intérêt"},
    {Entree, "mnuPosmod", "&Créer les modalités"},
    {Entree, "mnuModifMod", "&Modifier les modalités"},
    {Entree, "mnuEcapem", "&PEM et examen du tableau"},
    {Entree, "mnuAnecar", "&Facteurs"},
    {Entree, "mnuGraphe", "&Graphique factoriel"},
    {Separateur},
    {Entree, "mnexportCSV", "&Exporter les données en CSV"},

    {Menu, "mnuRegression", "&Régression"},
    {Entree, "mnuPosmod2", "&Créer les modalités"},
    {Entree, "mnuModifModR", "Coder le &modèle"},
    {Entree, "mnuAnatab", "Régression sur données d'&enquête"},
    {Entree, "mnuReglin", "Régression sur données &numériques"},

    {Menu, "mnuTextuel", "Données te&xtuelles"},
    {Entree, "mnuPrepText", "&Préparer le texte"},
    {Entree, "mnuImpMot", "&Découper le texte en mots"},
    {Entree, "mnuTabMot", "&Tableau lexical des questions"},
    {Entree, "mnuAnecarText", "&Facteurs"},
    {Entree, "mnuGrapheText", "&Graphique factoriel"},
    {Entree, "mnuSupLignes", "&Modifier les lignes et les colonnes"},
    {Entree, "mnuTabMotAgreg", "Tableau &agrégé"},
    {Entree, "mnuPEM", "P&EM du tableau"},

    {Menu, "mnuComplements", "&Compléments"},
    {Entree, "mnuProfil", "&Profil d'une modalité"},
    {Entree, "mnuUtil", "Programmes &utilitaires"},

    {Menu, "mnuAide", "A&ide"},
    {Entree, "mnuAGen", "Aide &générale", "F1"},
    {Separateur},
    {Entree, "mnuAFichDemar", "Fichier de &démarrage"},
    {Entree, "mnuAEdAf", "&Editeur et affichage"},
    {SousMenu, "mnuADonnees", "&Nouvelles données"},
    {Entree, "mnuASaisie", "&Saisie"},
    {Entree, "mnuAImport", "&Importation"},
    {FinDeSousMenu},
    {SousMenu, "mnuATris", "&Tris"},
    {Entree, "mnuATriapl", "Tri à &plat"},
    {Entree, "mnuACroise", "Tri &croisé"},
    {Entree, "mnuATabCr", "G&raphe d'un tableau croisé"},
    {Entree, "mnuATriang", "Graphique &triangulaire"},
    {FinDeSousMenu},
    {SousMenu, "mnuAModifier", "&Modifier"},
    {Entree, "mnuAPrepGen", "&Préparer les recodages"},
    {Entree, "mnuAOutils", "&Recoder, pondérer, filtrer, créer VIT"},
    {FinDeSousMenu},
    {SousMenu, "mnuAFactorielle", "Analyse &factorielle"},
    {Entree, "mnuATrifac", "&Variables d'intérêt"},
    {Entree, "mnuAPosmod", "&Créer les modalités"},
    {Entree, "mnuAModmod", "&Modifier les modalités"},
    {Entree, "mnuAEcapem", "&PEM et examen du tableau"},
    {Entree, "mnuAAnecar", "&Facteurs"},
    {Entree, "mnuAGraphe", "&Graphique factoriel"},
    {Entree, "mnuAellipse", "&Ellipses d'inertie"},
    {FinDeSousMenu},
    {SousMenu, "mnuARegression", "&Régression"},
    {Entree, "mnuAPosmodR", "&Créer les modalités"},
    {Entree, "mnuAModmodR", "Coder le &modèle"},
    {Entree, "mnuARegtab", "Régression sur données d'&enquête"},
    {Entree, "mnuAReglin", "Régression sur données &numériques"},
    {FinDeSousMenu},
    {SousMenu, "mnuATextuel", "Données te&xtuelles"},
    {Entree, "mnuAPrepText", "&Préparer le texte"},
    {Entree, "mnuAImpMot", "&Découper le texte en mots"},
    {Entree, "mnuATabMot", "&Tableau lexical des questions"},
    {Entree, "mnuAAnecarText", "&Facteurs"},
    {Entree, "mnuAGrapheText", "&Graphique factoriel"},
    {Entree, "mnuASupLignes", "&Modifier les lignes et les colonnes"},
    {Entree, "mnuATabMotAgreg", "Tableau &agrégé"},
    {Entree, "mnuAPEM", "P&EM du tableau"},
    {FinDeSousMenu},
    {SousMenu, "mnuAComplements", "&Compléments"},
    {Entree, "mnuAProfil", "&Profil d'une modalité"},
    {Entree, "mnuAUtilitaires", "Programmes &utilitaires"},
    {FinDeSousMenu},
    {SousMenu, "mnuADocuments", "Documents de mét&hode"},
    {Entree, "mnuAPEMbms", "Le &PEM"},
    {Entree, "mnuKhideux2", "Le &khi-deux"},
    {Entree, "mnuTriangulaire", "Le graphique &triangulaire"},
    {Entree, "mnuPrésentation", "P&résentation de Quelvar"},
    {Entree, "mnuOptionLatin", "Un exemple : l'option &latin"},
    {Entree, "mnuPièges", "Les p&ièges"},
    {Entree, "mnuBMS89", "Tableaux et profils (&1989)"},
    {Entree, "mnuBMS99", "Données te&xtuelles (1999)"},
    {Entree, "mnuBMS00", "Régression et &sous-effets (2000)"},
    {Entree, "mnuMaxVrai", "Le &maximum de vraisemblance"},
    {Entree, "mnuChap1a", "&Croiser des questions"},
    {FinDeSousMenu},
    {Separateur},
    {Entree, "mnuAPropos", "À pr&opos de Quelvar..."},
};

void AjouterEntree(QMenu& menu, const LigneDeMenu& ligne) {
  auto* action = new QAction(QString::fromUtf8(ligne.texte), &menu);
  action->setObjectName(QString::fromUtf8(ligne.nom));
  action->setShortcut(QKeySequence(QString::fromUtf8(ligne.raccourci)));
  action->setEnabled(false);
  if (ligne.genre == Coche) {
    action->setCheckable(true);
    if (menu.findChild<QActionGroup*>() == nullptr) new QActionGroup(&menu);
    menu.findChild<QActionGroup*>()->addAction(action);
  }
  menu.addAction(action);
}

}  // namespace

void ConstruireMenus(QMenuBar& barre) {
  QStack<QMenu*> pile;
  for (const LigneDeMenu& ligne : kLignes) {
    const QString texte = QString::fromUtf8(ligne.texte);
    switch (ligne.genre) {
      case Menu:
        pile = {};
        pile.push(barre.addMenu(texte));
        pile.top()->setObjectName(QString::fromUtf8(ligne.nom));
        break;
      case SousMenu:
        pile.push(pile.top()->addMenu(texte));
        pile.top()->setObjectName(QString::fromUtf8(ligne.nom));
        break;
      case FinDeSousMenu: pile.pop(); break;
      case Separateur: pile.top()->addSeparator(); break;
      case Entree:
      case Coche: AjouterEntree(*pile.top(), ligne); break;
    }
  }
}

}  // namespace quelvar::forms
