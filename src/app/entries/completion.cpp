#include "app/entries/completion.h"

#include <algorithm>
#include <iterator>

#include "model/text.h"

namespace tallyfold {

std::vector<std::string> Completions(const TextList& texts, std::string_view typed) {
  if (typed.empty()) return texts;
  const std::string wanted = FoldCase(typed);
  std::vector<std::string> found;
  std::vector<std::string> elsewhere;
  for (const std::string& text : texts) {
    const auto place = FoldCase(text).find(wanted);
    if (place == 0) {
      found.push_back(text);
    } else if (place != std::string::npos) {
      elsewhere.push_back(text);
    }
  }
  std::move(elsewhere.begin(), elsewhere.end(), std::back_inserter(found));
  return found;
}

const TextList& FormerTexts::Texts() const {
  if (!texts_) {
    const auto account = account_.lock();
    texts_ = account != nullptr && list_ != nullptr ? ((*account).*list_)() : TextList();
  }
  return *texts_;
}

}  // namespace tallyfold
