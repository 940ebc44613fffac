#include "forms/aide/documents.h"

namespace quelvar::forms {

namespace {

constexpr const char* kAide = "QuelvarAide.html";

constexpr EntreeDAide kAides[] = {
    {"mnuAGen", kAide},
    {"mnuATriapl", kAide, "4"},
    {"mnuAOutils", kAide, "5"},
    {"mnuASaisie", kAide, "6"},
    {"mnuAImport", kAide, "7"},
    {"mnuACroise", kAide, "8"},
    {"mnuATriang", kAide, "9"},
    {"mnuAPosmod", kAide, "10"},
    {"mnuAModmod", kAide, "11"},
    {"mnuASupLignes", kAide, "11"},
    {"mnuAEcapem", kAide, "12"},
    {"mnuAPEM", kAide, "12"},
    {"mnuAAnecar", kAide, "13"},
    {"mnuAAnecarText", kAide, "13"},
    {"mnuAellipse", kAide, "13.1"},
    {"mnuAGraphe", kAide, "14"},
    {"mnuAGrapheText", kAide, "14"},
    {"mnuATabCr", kAide, "15"},
    {"mnuAPosmodR", kAide, "16"},
    {"mnuAModmodR", kAide, "17"},
    {"mnuARegtab", kAide, "18"},
    {"mnuAReglin", kAide, "19"},
    {"mnuATrifac", kAide, "20"},
    {"mnuAFichDemar", kAide, "26"},
    {"mnuAProfil", kAide, "27"},
    {"mnuAUtilitaires", kAide, "28"},
    {"mnuAPrepGen", kAide, "29"},
    {"mnuAPrepText", kAide, "29b"},
    {"mnuAImpMot", kAide, "30"},
    {"mnuATabMot", kAide, "31"},
    {"mnuATabMotAgreg", kAide, "32"},
    {"mnuAEdAf", kAide, "33"},
    {"mnuAPEMbms", "PEMbms.pdf"},
    {"mnuKhideux2", "Khideux2.pdf"},
    {"mnuTriangulaire", "Triangulaire.pdf"},
    {"mnuPrésentation", "Presentation.pdf"},
    {"mnuOptionLatin", "OptionLatin.pdf"},
    {"mnuPièges", "Pieges.pdf"},
    {"mnuBMS89", "BMS89.pdf"},
    {"mnuBMS99", "BMS99.pdf"},
    {"mnuBMS00", "BMS00.pdf"},
    {"mnuMaxVrai", "MaxVrai.pdf"},
    {"mnuChap1a", "Chap1a.pdf"},
};

}  // namespace

std::span<const EntreeDAide> EntreesDAide() { return kAides; }

}  // namespace quelvar::forms
