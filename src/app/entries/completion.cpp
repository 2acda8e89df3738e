#include "app/entries/completion.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/text.h"

namespace tallyfold {

std::vector<std::string> Completions(const TextList& texts, std::string_view typed) {
  if (typed.empty()) return texts;
  const CaselessNeedle wanted(typed);
  const std::string beginning = FoldCase(typed);
  std::vector<std::string> found;
  std::vector<std::string> elsewhere;
  for (const std::string& text : texts) {
    if (!wanted.OccursIn(text)) continue;
    (FoldCase(text).starts_with(beginning) ? found : elsewhere).push_back(text);
  }
  std::move(elsewhere.begin(), elsewhere.end(), std::back_inserter(found));
  return found;
}

std::optional<std::string> FirstCompletion(const TextList& texts, std::string_view typed) {
  if (typed.empty()) return std::nullopt;
  const CaselessNeedle wanted(typed);
  const std::string beginning = FoldCase(typed);
  for (const std::string& text : texts) {
    if (wanted.OccursIn(text) && FoldCase(text).starts_with(beginning)) return text;
  }
  return std::nullopt;
}

const TextList& FormerTexts::Texts() const {
  static const TextList kNone;
  if (gathered_ == nullptr) return kNone;
  auto& [account, list, texts] = *gathered_;
  if (!texts) {
    const auto present = account.lock();
    texts = present != nullptr && list != nullptr ? ((*present).*list)() : TextList();
  }
  return *texts;
}

}  // namespace tallyfold
