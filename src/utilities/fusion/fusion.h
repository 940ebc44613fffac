// Fusion of two files of fixed columns: side by side, one after the other, or matched by the number of the individual,
// with a .POS for the result.
#pragma once

#include <string>

#include "core/programme/programme.h"

namespace quelvar::utilities {

enum class TypeFusion { Aucun, CoteACote, ALaSuite, Appareillement };

struct OptionsFusion {
  std::string a, b;  // files to read
  std::string c;     // file to write
  TypeFusion type = TypeFusion::Aucun;
  bool verifier = false;  // side by side: the identifiers are compared
  bool pos = false;       // the .POS stand beside A and B, and C gets one
  // Identifiers as typed: column in A and in B, common width. Those of a verification are asked by input boxes, which
  // propose these.
  std::string positionA, positionB, largeur;

  bool operator==(const OptionsFusion&) const = default;
};

// The first thing that a launch lacks, in the words of the form; empty when nothing is missing.
std::string ManqueFusion(const Contexte& contexte, const OptionsFusion& options);

// Report: generic and ".prt". Side by side, files of unequal length stop the run before C, and the 51st difference of
// identifiers stops it with the lines before it in C. A position or width of an identifier below 1 is
// kArgumentIncorrect. A and B are never written. A verification whose boxes are cancelled leaves no trace.
Fin Fusionner(const Contexte& contexte, const OptionsFusion& options);

}  // namespace quelvar::utilities
