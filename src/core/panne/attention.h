// The words in front of a remark, where a report makes a warning of it.
#pragma once

#include <string_view>

namespace quelvar {

inline constexpr std::string_view kAttention = "*** Attention : ";

}  // namespace quelvar
