#include "capture/apercu/observation/faits.h"

#include "capture/apercu/observation/examen.h"

namespace quelvar::capture {

std::optional<FaitsDeTable> ExaminerTable(const Chemin& source, const Lecture& lecture, const Suivi& suivi,
                                          TraceDeCellules* trace) {
  LecteurDeRangees lecteur(source, lecture);
  ExamenDeTable examen(lecture, trace);
  const bool entiere = Situer(
      [&] {
        return Lieu{{}, lecteur.Ligne()};
      },
      [&] {
        examen.LireTitres(lecteur);
        return examen.LireRangees(lecteur, ExamenDeTable::kToutes, suivi);
      });
  if (!entiere) return std::nullopt;
  if (trace != nullptr) examen.AcheverLaTrace();
  return examen.Conclure(lecteur);
}

std::string_view NomContenu(Contenu contenu) {
  switch (contenu) {
    case Contenu::Vide: return "vide";
    case Contenu::Numero: return "numéro de l'individu"_w;
    case Contenu::Codes: return "codes";
    case Contenu::Nombres: return "nombres";
    case Contenu::Textes: return "liste courte de textes";
    case Contenu::TextesLongs: return "textes longs";
    case Contenu::TextesUniques: return "textes tous différents"_w;
    case Contenu::Listes: return "listes de réponses"_w;
    case Contenu::Dates: return "dates";
    case Contenu::Melange: return "mélange"_w;
  }
  return {};
}

}  // namespace quelvar::capture
