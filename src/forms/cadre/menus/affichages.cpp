#include "forms/cadre/menus/affichages.h"

namespace quelvar::forms {

namespace {

constexpr EntreeDAffichage kAffichages[] = {
    {"mnuAfIMP", ".imp"},
    {"mnuAfDES", ".des"},
    {"mnuAfPOS", ".pos"},
    {"mnuAfTAP", ".tap"},
    {"mnuAfTRG", ".trg"},
    {"mnuAfTCR", ".tcr"},
    {"mnuAfREC", ".rec"},
    {"mnuAfMOD", ".mod"},
    {"mnuAfPRO", ".pro"},
    {"mnuAfAFC", ".afc"},
    {"mnuAfACP", ".acp"},
    {"mnuAfREG", ".reg"},
    {"mnuAfTRP", ".trp"},
    {"mnuAFPR2", ".pr2"},
    {"mnuAfTRF", ".trf"},
    {"mnuAfPRT", ".prt"},
    {"mnuAfPartielTCR", ".tcr", GenreDAffichage::Partiel},
    {"mnuAfPartielDAT", ".dat", GenreDAffichage::SousRegle},
    {"mnuAfPartielBRT", ".brt", GenreDAffichage::SousRegle},
    {"mnuAfPartielTXT", ".txt", GenreDAffichage::SousRegle},
};

}  // namespace

std::span<const EntreeDAffichage> EntreesDAffichage() { return kAffichages; }

}  // namespace quelvar::forms
