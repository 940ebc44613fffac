// Bytes of the code pages of DOS brought to the code page of the reports, for dBase files and for tables of text.
#pragma once

#include <array>
#include <string_view>

namespace quelvar::capture {

// How the bytes of a text are to be read; Inconnue keeps them as they stand.
enum class PageDeCode { Inconnue, Dos437, Dos850, Windows1252 };

// The code page that the language byte of a dBase header stands for.
PageDeCode PageDeLangue(unsigned char octet);

// "437", "850", "1252", or nothing.
std::string_view NomDePage(PageDeCode page);

using TableDOctets = std::array<char, 256>;
// The byte of Windows-1252 for each byte of the page; "?" for a character that Windows-1252 does not hold.
const TableDOctets& TableDePage(PageDeCode page);

}  // namespace quelvar::capture
