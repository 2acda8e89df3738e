#include "exchange/csv_days.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tallyfold {
namespace {

// "2024-03-07"; "" for none.
std::string DashedDay(DateNumber day) {
  if (day == 0) return {};
  std::string text = std::to_string(day + 100'000'000).substr(1);
  text.insert(6, 1, '-').insert(4, 1, '-');
  return text;
}

}  // namespace

void DayOrderJudge::Add(const WrittenDay& day, std::size_t place) noexcept {
  // These tell by themselves.
  if (!day.is_day || day.named_month < 3 || day.digits[0] == 4) return;
  std::array<DateNumber, kJudged.size()> days{};
  // What ends with a year of four digits does not begin with one.
  const std::size_t orders = day.digits[2] == 4 && !day.is_run ? 2 : kJudged.size();
  for (std::size_t i = 0; i < orders; ++i) {
    days[i] = day.In(kJudged[i]);
    if (days[i] == 0) continue;
    Count& count = counts_[i];
    ++count.read;
    if (count.last != 0 && days[i] > count.last) ++count.rising;
    if (count.last != 0 && days[i] < count.last) ++count.falling;
    count.last = days[i];
  }
  const bool differs = (days[1] != 0 && days[0] != days[1]) || (days[2] != 0 && days[0] != days[2]);
  if (!differs) return;
  if (++open_ > 1) return;
  first_open_ = day;
  place_of_first_ = place;
}

std::vector<std::size_t> DayOrderJudge::Fitting() const {
  std::size_t most = 0;
  for (const Count& each : counts_) most = std::max(most, each.read);
  std::vector<std::size_t> fitting;
  for (std::size_t i = 0; i < kJudged.size(); ++i) {
    if (counts_[i].read == most) fitting.push_back(i);
  }
  // How often the direction changes.
  std::stable_sort(fitting.begin(), fitting.end(), [this](std::size_t a, std::size_t b) {
    return std::min(counts_[a].rising, counts_[a].falling) <
           std::min(counts_[b].rising, counts_[b].falling);
  });
  return fitting;
}

bool DayOrderJudge::IsOpen() const {
  return open_ > 0 && Fitting().size() > 1;
}

StatementQuestion DayOrderJudge::Question(std::string sample) const {
  StatementQuestion question;
  question.kind = StatementQuestion::Kind::DayOrder;
  question.rows = open_;
  question.sample = std::move(sample);
  for (const std::size_t i : Fitting()) {
    question.candidates.push_back(
        {static_cast<std::int64_t>(kJudged[i]), DashedDay(first_open_.In(kJudged[i]))});
  }
  return question;
}

}  // namespace tallyfold
