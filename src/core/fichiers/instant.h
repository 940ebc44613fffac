// The time of the last write of a file, by which one that was changed since is known.
#pragma once

#include <sys/stat.h>

#include <cstdint>

namespace quelvar {

// In nanoseconds, as the file system keeps it.
inline std::int64_t InstantDEcriture(const struct stat& etat) {
  constexpr std::int64_t kNanosecondes = 1'000'000'000;  // of a second
  return etat.st_mtim.tv_sec * kNanosecondes + etat.st_mtim.tv_nsec;
}

}  // namespace quelvar
