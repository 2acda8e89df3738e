#pragma once

#include <string>

namespace tallyfold {
struct QifImportReviewState;
struct TableFormat;
}  // namespace tallyfold

namespace tallyfold::desktop {

// What stands below the heading of a review: which entries there are, and what is odd about them as
// far as no chip counts it.
[[nodiscard]] std::string ReviewFacts(const QifImportReviewState& state, const TableFormat& format);

}  // namespace tallyfold::desktop
