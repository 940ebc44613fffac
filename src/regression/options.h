// The options of the regression programs as the command line and the forms know them.
#pragma once

#include "core/options/description.h"
#include "regression/anatab.h"
#include "regression/modifmodr.h"
#include "regression/varint/varint.h"

namespace quelvar::regression {

// Of the programs that find all they need in the files of the survey.
struct SansOption {
  bool operator==(const SansOption&) const = default;
};

const Description<OptionsModifModR>& DescriptionModifModR();
const Description<OptionsAnatab>& DescriptionAnatab();
const Description<SansOption>& DescriptionReglin();
const Description<OptionsVarint>& DescriptionVarint();

}  // namespace quelvar::regression
