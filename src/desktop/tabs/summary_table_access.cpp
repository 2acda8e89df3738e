#include "desktop/tabs/summary_table_access.h"

#include <QAccessibleWidget>
#include <map>

#include "desktop/tabs/summary_table.h"

namespace tallyfold::desktop {
namespace {

class SummaryLineAccess final : public QAccessibleInterface {
 public:
  SummaryLineAccess(SummaryTable* table, int row) : table_(table), row_(row) {}

  [[nodiscard]] bool isValid() const override { return true; }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(table_);
  }
  [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? table_->SpokenRow(row_) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  [[nodiscard]] QRect rect() const override {
    const QRect line = table_->LineRect(row_);
    return {table_->mapToGlobal(line.topLeft()), line.size()};
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.focused = table_->hasFocus() && row_ == table_->CurrentRow();
    state.invisible = !table_->isVisible();
    state.offscreen = table_->visibleRegion().intersected(table_->LineRect(row_)).isEmpty();
    return state;
  }

 private:
  SummaryTable* table_;
  int row_;
};

class SummaryTableAccess final : public QAccessibleWidget {
 public:
  explicit SummaryTableAccess(SummaryTable* table)
      : QAccessibleWidget(table, QAccessible::List), table_(table) {}
  SummaryTableAccess(const SummaryTableAccess&) = delete;
  SummaryTableAccess& operator=(const SummaryTableAccess&) = delete;
  ~SummaryTableAccess() override {
    for (const auto& [row, id] : lines_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return table_->RowCount(); }
  [[nodiscard]] QAccessibleInterface* child(int row) const override {
    if (row < 0 || row >= childCount()) return nullptr;
    if (const auto known = lines_.find(row); known != lines_.end()) {
      return QAccessible::accessibleInterface(known->second);
    }
    auto* line = new SummaryLineAccess(table_, row);
    lines_.emplace(row, QAccessible::registerAccessibleInterface(line));
    return line;
  }
  int indexOfChild(const QAccessibleInterface* line) const override {
    for (const auto& [row, id] : lines_) {
      if (QAccessible::accessibleInterface(id) == line) return row;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return table_->hasFocus() ? child(table_->CurrentRow()) : nullptr;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint place = table_->mapFromGlobal(QPoint(x, y));
    for (int row = 0; row < childCount(); ++row) {
      if (table_->LineRect(row).contains(place)) return child(row);
    }
    return nullptr;
  }

 private:
  SummaryTable* table_;
  // Those that were asked for.
  mutable std::map<int, QAccessible::Id> lines_;
};

QAccessibleInterface* SummaryAccessOf(const QString& /*class_name*/, QObject* object) {
  auto* table = dynamic_cast<SummaryTable*>(object);
  return table != nullptr ? new SummaryTableAccess(table) : nullptr;
}

}  // namespace

void InstallSummaryTableAccess() {
  QAccessible::installFactory(&SummaryAccessOf);
}

}  // namespace tallyfold::desktop
