#include "storage/refusal_watch.h"

#include <algorithm>
#include <array>

namespace tallyfold {

void RefusalWatch::Write(std::string_view line) {
  static constexpr std::array<std::string_view, 3> kPhrases = {
      " wrong format", "Invalid theDictionary", "index out of range"};
  heard_ = heard_ || std::any_of(kPhrases.begin(), kPhrases.end(), [line](std::string_view phrase) {
             return line.find(phrase) != std::string_view::npos;
           });
  if (log_ != nullptr) log_->Write(line);
}

}  // namespace tallyfold
