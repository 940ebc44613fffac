// A part of a workbook read as a stream of XML events: elements that begin, elements that end, text between them.
#pragma once

#include <functional>
#include <string_view>

#include "capture/classeur/archive.h"

namespace quelvar::capture::classeur {

// An expanded name: the namespace and the name in it.
struct NomXml {
  std::string_view espace;
  std::string_view local;

  // True when the namespace ends so ("office:1.0"): its beginning differs between the editions of a standard.
  bool Dans(std::string_view finDEspace) const { return espace.ends_with(finDEspace); }
};

class AttributsXml {
 public:
  explicit AttributsXml(const char** paires) : paires_(paires) {}
  // The value of the attribute of that name, in any namespace or in one that ends so; empty when it is not there.
  std::string_view Valeur(std::string_view local, std::string_view finDEspace = {}) const;

 private:
  const char** paires_;
};

// What a reader does with the events; views are UTF-8 and live during the call.
struct GestesXml {
  std::function<void(const NomXml&, const AttributsXml&)> debut;
  std::function<void(const NomXml&)> fin;
  std::function<void(std::string_view)> texte;
  // Asked after each event: true ends the reading.
  std::function<bool()> assez;
};

// Reads the part to its end or until `assez`. A document with a type declaration, and one element longer than
// kElementAuPlus, are refused; raises the sentences of Partie and a sentence (kIncompatibiliteType) for what is no XML.
inline constexpr std::int64_t kElementAuPlus = std::int64_t{16} << 20;
void LireXml(Partie partie, const GestesXml& gestes);

}  // namespace quelvar::capture::classeur
