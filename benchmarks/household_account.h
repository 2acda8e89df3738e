#pragma once

#include <cstddef>
#include <memory>

#include "model/account.h"

namespace tallyfold::benchmarks {

// The one account of a household (see generator.h) with so many entries. The same on every call.
[[nodiscard]] std::shared_ptr<LDGRAccount> MakeHouseholdAccount(std::size_t entries);

}  // namespace tallyfold::benchmarks
