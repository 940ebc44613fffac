#include "batch/programmes.h"

namespace quelvar::batch {

const std::vector<Programme>& Programmes() {
  static const std::vector<Programme> programmes = {
      ProgrammeImportCsv(),
      ProgrammeTriapl(),
  };
  return programmes;
}

}  // namespace quelvar::batch
