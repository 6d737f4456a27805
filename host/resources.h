#pragma once

#include <string_view>

namespace vmk {

// The bytes of a file within the running program (resource_ids.h), as long as it runs; empty when it has
// none.
std::string_view Resource(int id);

}  // namespace vmk
