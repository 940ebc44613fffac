#include "capture/encodage/pagecode.h"

#include <cstddef>

#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr std::u16string_view k437 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
constexpr std::u16string_view k850 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒáíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
constexpr std::size_t kPremierHaut = 128;  // bytes below are ASCII in every page

constexpr TableDOctets kTelle = [] {
  TableDOctets table{};
  for (std::size_t octet = 0; octet < table.size(); ++octet) table[octet] = static_cast<char>(octet);
  return table;
}();

constexpr TableDOctets AvecHauts(std::u16string_view hauts) {
  TableDOctets table = kTelle;
  for (std::size_t i = 0; i < hauts.size(); ++i) {
    const int octet = OctetDe(hauts[i]);
    table[kPremierHaut + i] = octet < 0 ? '?' : static_cast<char>(octet);
  }
  return table;
}

static_assert(k437.size() == kTelle.size() - kPremierHaut && k850.size() == kTelle.size() - kPremierHaut);
constexpr TableDOctets kTable437 = AvecHauts(k437);
constexpr TableDOctets kTable850 = AvecHauts(k850);

// Language bytes of the two pages of DOS in Western Europe and America.
constexpr std::string_view kLangues437 = "\x01\x09\x0B\x0D\x0F\x11\x15\x18\x19\x1B";
constexpr std::string_view kLangues850 = "\x02\x0A\x0E\x10\x12\x14\x16\x1A\x1D\x25\x37";
constexpr std::string_view kLangues1252 = "\x03\x57\x58\x59";

}  // namespace

PageDeCode PageDeLangue(unsigned char octet) {
  const auto parmi = [octet](std::string_view langues) {
    return langues.find(static_cast<char>(octet)) != std::string_view::npos;
  };
  if (parmi(kLangues437)) return PageDeCode::Dos437;
  if (parmi(kLangues850)) return PageDeCode::Dos850;
  return parmi(kLangues1252) ? PageDeCode::Windows1252 : PageDeCode::Inconnue;
}

std::string_view NomDePage(PageDeCode page) {
  switch (page) {
    case PageDeCode::Dos437: return "437";
    case PageDeCode::Dos850: return "850";
    case PageDeCode::Windows1252: return "1252";
    case PageDeCode::Inconnue: break;
  }
  return {};
}

const TableDOctets& TableDePage(PageDeCode page) {
  switch (page) {
    case PageDeCode::Dos437: return kTable437;
    case PageDeCode::Dos850: return kTable850;
    case PageDeCode::Windows1252:
    case PageDeCode::Inconnue: break;
  }
  return kTelle;
}

}  // namespace quelvar::capture
