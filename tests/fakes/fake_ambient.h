#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fakes/fake_clock.h"
#include "platform/ambient.h"

namespace tallyfold {

class FakeLog final : public SystemLog {
 public:
  void Write(std::string_view line) override { lines_.emplace_back(line); }

  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  // The lines so far, which are then forgotten.
  [[nodiscard]] std::vector<std::string> Take() { return std::exchange(lines_, {}); }

 private:
  std::vector<std::string> lines_;
};

// Every text is its own key, but for those a test translates.
class FakeLocalizer final : public Localizer {
 public:
  [[nodiscard]] std::string Text(std::string_view key) const override {
    const auto found = texts_.find(key);
    if (brackets) return '[' + std::string(key) + ']';
    std::string text = found == texts_.end() ? std::string(key) : found->second;
    if (lengthens) text += std::string(text.size() * 2 / 5, 'm');
    return text;
  }

  // Every text is two fifths longer, as in another language.
  bool lengthens = false;

  void Translate(std::string key, std::string text) {
    texts_.insert_or_assign(std::move(key), std::move(text));
  }

  // Shows which texts are looked up: "[Cancel]".
  bool brackets = false;

 private:
  std::map<std::string, std::string, std::less<>> texts_;
};

// At first an American's: "%m/%d/%y", ".", "," and UTF-8.
class FakeLocale final : public UserLocale {
 public:
  [[nodiscard]] std::string ShortDateFormat() const override { return short_date_format; }
  [[nodiscard]] std::string DecimalSeparator() const override { return decimal_separator; }
  [[nodiscard]] std::string ThousandsSeparator() const override { return thousands_separator; }
  [[nodiscard]] std::int32_t DefaultTextEncoding() const override { return default_encoding; }

  std::string short_date_format = "%m/%d/%y";
  std::string decimal_separator = ".";
  std::string thousands_separator = ",";
  std::int32_t default_encoding = 4;
};

// The four services in force as long as this lives, for a test to set up and look at.
struct FakeAmbient {
  FakeLog log;
  FakeLocalizer localizer;
  FakeLocale locale;
  FakeClock clock;
  ScopedAmbient in_force{{&log, &localizer, &locale, &clock}};
};

}  // namespace tallyfold
