// What Text1 shows and where it comes from: the report of a run, a result file, the head of a long one, or lines that
// belong to no file.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "core/document/affichage.h"
#include "core/document/empreinte.h"
#include "core/panne/erreur.h"
#include "core/programme/dialogue.h"
#include "core/session/session.h"
#include "forms/services/formes.h"
#include "forms/texte/textefixe.h"

namespace quelvar::forms {

class Resultats : public QObject {
  Q_OBJECT
 public:
  struct Controles {
    TexteFixe& texte;  // Text1
    QLabel& fichier;   // FichAff
    QCheckBox& verrouLignes;
    QCheckBox& verrouColonnes;
  };
  // `lecteur` shows a long file beside the program; false when it can't be started.
  Resultats(Controles controles, Session& session, Dialogue& ecran, Formes& formes,
            std::function<bool(const QString& fichier)> lecteur, QObject* parent);

  // Lines that belong to no file, in place of what stands there, or under it.
  void Remplacer(std::string_view texte);
  void Ajouter(std::string_view texte);
  // The end of a run. A report that is too long for the box closes the forms and goes to the viewer.
  void Presenter(const Affichage& affichage);

  // A result file, whole or by its head, with the ruler of the positions on demand.
  void MontrerEntier(const Chemin& fichier);
  void MontrerPartiel(const Chemin& fichier, bool avecRegle);
  void MontrerEchec(const Chemin& fichier, const Erreur& erreur);
  // A failure that no report could tell: its lines, and in a box where it was met, when that is known.
  void MontrerEchec(const Erreur& erreur);
  void LireAilleurs(const Chemin& fichier);

  // The file that is shown, as it was then; none for a report or for lines.
  const std::optional<Chemin>& Fichier() const { return fichier_; }
  Empreinte& EtatDuFichier() { return empreinte_; }
  // The box does not hold the whole of it.
  bool Partiel() const { return partiel_; }
  // The text was saved to that file.
  void NoterEnregistre(const Chemin& fichier, std::string_view octets);
  const TexteFixe& Texte() const { return controles_.texte; }
  std::string NomAffiche() const { return session_.fichierAffiche; }

 signals:
  // Another text is shown: whether it has the name of a file.
  void Change(bool nomme);
  // The title of the session has changed.
  void TitreChange();

 private:
  void Poser(std::string_view texte, const std::string& nomFichier, bool alaFin);
  void MontrerVerrous(int lignesDeRegle);
  void Retenir(const Chemin& fichier, std::string_view octets);

  Controles controles_;
  Session& session_;
  Dialogue& ecran_;
  Formes& formes_;
  std::function<bool(const QString&)> lecteur_;
  int lignesDeRegle_ = 0;
  std::optional<Chemin> fichier_;
  Empreinte empreinte_;
  bool partiel_ = false;
};

}  // namespace quelvar::forms
