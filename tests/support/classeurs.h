// Workbooks for tests, made of their parts written out.
#pragma once

#include <zip.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace essai {

struct PartieDeClasseur {
  std::string nom;
  std::string octets;
};

inline void EcrireClasseur(const std::filesystem::path& fichier, const std::vector<PartieDeClasseur>& parties) {
  int code = 0;
  zip_t* archive = zip_open(fichier.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
  if (archive == nullptr) throw std::runtime_error("zip_open");
  for (const PartieDeClasseur& partie : parties) {
    zip_source_t* source = zip_source_buffer(archive, partie.octets.data(), partie.octets.size(), 0);
    if (source == nullptr || zip_file_add(archive, partie.nom.c_str(), source, ZIP_FL_ENC_UTF_8) < 0)
      throw std::runtime_error("zip_file_add");
  }
  if (zip_close(archive) != 0) throw std::runtime_error("zip_close");
}

// A .ods of these tables (<table:table> elements).
inline void EcrireOds(const std::filesystem::path& fichier, std::string_view tables) {
  EcrireClasseur(fichier,
                 {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
                  {"content.xml",
                   "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:document-content "
                   "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
                   "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
                   "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" "
                   "xmlns:calcext=\"urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0\" "
                   "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\"><office:body><office:spreadsheet>" +
                       std::string(tables) + "</office:spreadsheet></office:body></office:document-content>"}});
}

// A .xlsx of one or more sheets (the <row> elements of each), shared texts (<si> elements) and formats: style 1 is a
// date, 2 an hour, 3 "dd/mm/yyyy hh:mm", 4 a percentage.
inline void EcrireXlsx(const std::filesystem::path& fichier, const std::vector<PartieDeClasseur>& feuilles,
                       std::string_view textes = {}, std::string_view proprietes = {}) {
  const std::string espace = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
  const std::string lien = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const std::string relations =
      "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  std::string liste;
  std::string liens = relations;
  std::vector<PartieDeClasseur> parties;
  for (std::size_t i = 0; i < feuilles.size(); ++i) {
    const std::string n = std::to_string(i + 1);
    liste += "<sheet sheetId=\"" + n + "\" r:id=\"rId" + n + "\" " + feuilles[i].nom + "/>";
    liens += "<Relationship Id=\"rId" + n + "\" Type=\"" + lien + "/worksheet\" Target=\"worksheets/f" + n + ".xml\"/>";
    parties.push_back({"xl/worksheets/f" + n + ".xml",
                       "<worksheet " + espace + "><sheetData>" + feuilles[i].octets + "</sheetData></worksheet>"});
  }
  liens += "<Relationship Id=\"t\" Type=\"" + lien +
           "/sharedStrings\" Target=\"/xl/textes.xml\"/><Relationship Id=\"s\" Type=\"" + lien +
           "/styles\" Target=\"styles.xml\"/></Relationships>";
  parties.push_back({"_rels/.rels", relations + "<Relationship Id=\"r\" Type=\"" + lien +
                                        "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>"});
  parties.push_back({"xl/workbook.xml", "<workbook " + espace + " xmlns:r=\"" + lien + "\">" + std::string(proprietes) +
                                            "<sheets>" + liste + "</sheets></workbook>"});
  parties.push_back({"xl/_rels/workbook.xml.rels", liens});
  parties.push_back({"xl/textes.xml", "<sst " + espace + ">" + std::string(textes) + "</sst>"});
  parties.push_back(
      {"xl/styles.xml", "<styleSheet " + espace +
                            "><numFmts><numFmt numFmtId=\"164\" formatCode=\"dd/mm/yyyy\\ hh:mm\"/></numFmts>"
                            "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/>"
                            "<xf numFmtId=\"14\"/><xf numFmtId=\"20\"/><xf numFmtId=\"164\"/><xf numFmtId=\"9\"/>"
                            "</cellXfs></styleSheet>"});
  EcrireClasseur(fichier, parties);
}

}  // namespace essai
