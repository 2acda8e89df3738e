#include "desktop/sheets/import_head.h"

#include <QLabel>
#include <QVBoxLayout>

#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold::desktop {

ImportHead::ImportHead(QWidget* parent)
    : QWidget(parent), title_(new QLabel(this)), facts_(new QLabel(this)) {
  title_->setObjectName(QLatin1String("importOptions_Title"));
  title_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  facts_->setObjectName(QLatin1String("importOptions_Facts"));
  facts_->setWordWrap(true);
  facts_->setForegroundRole(QPalette::PlaceholderText);
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(2);
  for (QLabel* each : {title_, facts_}) {
    each->setTextFormat(Qt::PlainText);
    lines->addWidget(each);
  }
}

void ImportHead::ShowTitle(const std::string& title) {
  title_->setText(ToQString(title));
}

void ImportHead::ShowFacts(const std::string& facts) {
  facts_->setText(ToQString(facts));
}

std::string EntriesInWords(std::size_t count, const std::string& first_day,
                           const std::string& last_day) {
  if (count == 0) return LocalizedText("There are no entries here: nothing to review.");
  return Message(Plural("{1} entry, {2} to {3}. Nothing is imported yet: the next step shows it.",
                        "{1} entries, {2} to {3}. Nothing is imported yet: the next step shows "
                        "each entry.",
                        count),
                 {std::to_string(count), first_day, last_day});
}

QString ReviewTitle(std::size_t count) {
  return ToQString(
      Message(Plural("Review {1} Entry", "Review {1} Entries", count), {std::to_string(count)}));
}

}  // namespace tallyfold::desktop
