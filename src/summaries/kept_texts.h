#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tallyfold {

// Copies of texts, one behind another, each in its place as long as this lives.
class KeptTexts {
 public:
  KeptTexts() = default;
  KeptTexts(const KeptTexts&) = delete;
  KeptTexts& operator=(const KeptTexts&) = delete;

  std::string_view Keep(std::string_view text) {
    if (text.size() > room_) {
      room_ = std::max(kBlockSize, text.size());
      blocks_.push_back(std::make_unique<char[]>(room_));
      free_ = blocks_.back().get();
    }
    const std::string_view kept(free_, text.copy(free_, text.size()));
    free_ += kept.size();
    room_ -= kept.size();
    return kept;
  }

 private:
  static constexpr std::size_t kBlockSize = 16384;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t room_ = 0;
};

}  // namespace tallyfold
