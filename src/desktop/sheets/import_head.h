#pragma once

#include <QWidget>
#include <cstddef>
#include <string>

class QLabel;

namespace tallyfold::desktop {

// What the options of every import begin with: which file it is, and what is in it.
class ImportHead final : public QWidget {
 public:
  explicit ImportHead(QWidget* parent);

  void ShowTitle(const std::string& title);
  void ShowFacts(const std::string& facts);

 private:
  QLabel* title_;
  QLabel* facts_;
};

// The sentence with so many entries between two days, as they are shown.
[[nodiscard]] std::string EntriesInWords(std::size_t count, const std::string& first_day,
                                         const std::string& last_day);
// What the button says that goes on to them.
[[nodiscard]] QString ReviewTitle(std::size_t count);

}  // namespace tallyfold::desktop
