#include "capture/classeur/xml.h"

#include <expat.h>

#include <exception>
#include <type_traits>

namespace quelvar::capture::classeur {

namespace {

constexpr char kEntreEspaceEtNom = '|';
constexpr int kBloc = 1 << 16;

NomXml NomDe(const char* octets) {
  const std::string_view tout(octets);
  const std::size_t trait = tout.rfind(kEntreEspaceEtNom);
  if (trait == std::string_view::npos) return {{}, tout};
  return {tout.substr(0, trait), tout.substr(trait + 1)};
}

// No exception crosses the frames of the parser: the first one waits here for the end of the block.
struct LectureDeXml {
  const GestesXml& gestes;
  XML_Parser analyseur;
  std::exception_ptr faute;
  bool assez = false;

  template <typename Geste>
  void Faire(const Geste& geste) {
    if (faute || assez) return;
    try {
      geste();
      assez = gestes.assez && gestes.assez();
    } catch (...) {
      faute = std::current_exception();
    }
    if (faute || assez) XML_StopParser(analyseur, XML_FALSE);
  }
};

LectureDeXml& LectureDe(void* donnees) { return *static_cast<LectureDeXml*>(donnees); }

void XMLCALL AuDebut(void* donnees, const XML_Char* nom, const XML_Char** attributs) {
  LectureDeXml& lecture = LectureDe(donnees);
  lecture.Faire([&] { lecture.gestes.debut(NomDe(nom), AttributsXml(attributs)); });
}

void XMLCALL ALaFin(void* donnees, const XML_Char* nom) {
  LectureDeXml& lecture = LectureDe(donnees);
  lecture.Faire([&] { lecture.gestes.fin(NomDe(nom)); });
}

void XMLCALL AuTexte(void* donnees, const XML_Char* octets, int taille) {
  LectureDeXml& lecture = LectureDe(donnees);
  lecture.Faire([&] { lecture.gestes.texte({octets, static_cast<std::size_t>(taille)}); });
}

// Workbooks have no type declaration; its entities are how a small document is made to grow without end.
void XMLCALL ALaDeclaration(void* donnees, const XML_Char*, const XML_Char*, const XML_Char*, int) {
  LectureDeXml& lecture = LectureDe(donnees);
  lecture.Faire([] { RefuserClasseur("il contient une déclaration de type de document"_w); });
}

struct Liberer {
  void operator()(XML_Parser analyseur) const { XML_ParserFree(analyseur); }
};

}  // namespace

std::string_view AttributsXml::Valeur(std::string_view local, std::string_view finDEspace) const {
  for (const char** paire = paires_; *paire != nullptr; paire += 2) {
    const NomXml nom = NomDe(paire[0]);
    if (nom.local == local && nom.Dans(finDEspace)) return paire[1];
  }
  return {};
}

void LireXml(Partie partie, const GestesXml& gestes) {
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, Liberer> analyseur(
      XML_ParserCreateNS(nullptr, kEntreEspaceEtNom));
  if (!analyseur) throw Erreur(kMemoireInsuffisante);
  LectureDeXml lecture{gestes, analyseur.get(), nullptr};
  XML_SetUserData(analyseur.get(), &lecture);
  XML_SetElementHandler(analyseur.get(), AuDebut, ALaFin);
  XML_SetCharacterDataHandler(analyseur.get(), AuTexte);
  XML_SetStartDoctypeDeclHandler(analyseur.get(), ALaDeclaration);
  std::int64_t donnes = 0;
  for (bool reste = true; reste;) {
    void* bloc = XML_GetBuffer(analyseur.get(), kBloc);
    if (bloc == nullptr) throw Erreur(kMemoireInsuffisante);
    const std::size_t lus = partie.Lire({static_cast<char*>(bloc), static_cast<std::size_t>(kBloc)});
    reste = lus > 0;
    donnes += static_cast<std::int64_t>(lus);
    const XML_Status etat = XML_ParseBuffer(analyseur.get(), static_cast<int>(lus), reste ? XML_FALSE : XML_TRUE);
    if (lecture.faute) std::rethrow_exception(lecture.faute);
    if (lecture.assez) return;
    if (etat != XML_STATUS_OK) {
      if (XML_GetErrorCode(analyseur.get()) == XML_ERROR_NO_MEMORY) throw Erreur(kMemoireInsuffisante);
      RefuserClasseur(Joindre({"le fichier est abîmé (dans "_w, DepuisUtf8(partie.Nom()), ")"}));
    }
    if (donnes - XML_GetCurrentByteIndex(analyseur.get()) > kElementAuPlus)
      RefuserClasseur("un élément y occupe plus de 16 Mio"_w);
  }
}

}  // namespace quelvar::capture::classeur
