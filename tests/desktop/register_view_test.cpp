#include "desktop/register/register_view.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstddef>
#include <random>
#include <set>
#include <string>

#include "desktop/look/measures.h"
#include "desktop/shown_register.h"
#include "model/account_entry.h"

namespace tallyfold::desktop {
namespace {

class RegisterViewTest : public testing::Test {
 protected:
  explicit RegisterViewTest(std::size_t entries = 0) : shown_({.entries = entries}) {
    shown_.resize(1000, 400);
    shown_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&shown_));
    view_.setFocus();
  }

  void Press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QTest::keyClick(&view_, key, keys);
  }
  void Click(int row, const char* column, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QModelIndex index = view_.model()->index(row, view_.Rows().IndexOf(column));
    QTest::mouseClick(view_.viewport(), Qt::LeftButton, keys, view_.visualRect(index).center());
  }
  [[nodiscard]] std::string Selected() const {
    std::string text;
    for (const RowSelection::Range& range : view_.SelectedRows().Ranges()) {
      text += std::to_string(range.first) + "-" + std::to_string(range.last) + " ";
    }
    return text + "at " + std::to_string(view_.CurrentRow());
  }
  [[nodiscard]] std::string Description(int row) const {
    return view_.Rows().CellAt(row, view_.Rows().IndexOf("description")).text;
  }

  ShownRegister shown_;
  RegisterView& view_ = shown_.View();
};

TEST_F(RegisterViewTest, SelectsByKeysAndClicks) {
  const QSignalSpy told(&view_, &RegisterView::RowSelected);
  Click(2, "description");
  EXPECT_EQ(Selected(), "2-2 at 2");
  Press(Qt::Key_Down);
  EXPECT_EQ(Selected(), "3-3 at 3");
  EXPECT_EQ(shown_.Table().SelectedRow(), 3);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "3-5 at 5");
  Click(8, "type", Qt::ControlModifier);
  EXPECT_EQ(Selected(), "3-5 8-8 at 8");
  Click(4, "type", Qt::ControlModifier);
  EXPECT_EQ(Selected(), "3-3 5-5 8-8 at 3");
  Press(Qt::Key_End);
  EXPECT_EQ(Selected(), "22-22 at 22");
  Press(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "0-22 at 0");
  Press(Qt::Key_Home);
  EXPECT_EQ(Selected(), "0-0 at 0");
  Press(Qt::Key_Up);
  EXPECT_EQ(Selected(), "0-0 at 0");
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(view_.SelectedRows().Count(), 23U);
  EXPECT_GT(told.count(), 0);
  view_.SetSelectsOneRow(true);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "1-1 at 1");
}

TEST_F(RegisterViewTest, TellsWhatIsWantedOfItsRows) {
  const QSignalSpy activated(&view_, &RegisterView::RowActivated);
  const QSignalSpy marked(&view_, &RegisterView::MarkWanted);
  const QSignalSpy mark_key(&view_, &RegisterView::MarkKeyPressed);
  const QSignalSpy removed(&view_, &RegisterView::RemoveWanted);
  Click(3, "description");
  Click(5, "cleared");
  EXPECT_EQ(Selected(), "3-3 at 3");
  ASSERT_EQ(marked.count(), 1);
  EXPECT_EQ(marked.at(0).at(0).toInt(), 5);
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);
  Press(Qt::Key_Delete);
  EXPECT_EQ(mark_key.count(), 1);
  EXPECT_EQ(activated.count(), 1);
  EXPECT_EQ(removed.count(), 1);
  const QRect cell = view_.visualRect(view_.model()->index(4, 0));
  QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, cell.center());
  EXPECT_EQ(activated.at(1).at(0).toInt(), 4);
  EXPECT_EQ(Selected(), "3-3 at 3");
}

TEST_F(RegisterViewTest, KeepsTheSelectionOnItsEntriesWhenRowsAreSorted) {
  view_.SelectForUser({1, 2, 5});
  const std::set<std::string> before = {Description(1), Description(2), Description(5)};
  const std::string current = Description(5);
  emit view_.HeaderClicked(QStringLiteral("description"));
  std::set<std::string> after;
  for (const RowSelection::Range& range : view_.SelectedRows().Ranges()) {
    for (int row = range.first; row <= range.last; ++row) after.insert(Description(row));
  }
  EXPECT_EQ(after, before);
  EXPECT_EQ(Description(view_.CurrentRow()), current);
  QTest::keyClicks(&view_, QStringLiteral("week 2"));
  EXPECT_EQ(Description(view_.CurrentRow()), "Week 8") << "a space is no letter of a search";
  EXPECT_EQ(view_.SelectedRows().Count(), 1U);
}

TEST_F(RegisterViewTest, StoresTheWidthOfADraggedColumnAndNoOther) {
  QHeaderView& header = *view_.horizontalHeader();
  const int date = view_.Rows().IndexOf("date");
  const double factor = ColumnFactor(view_.font());
  const auto stored = shown_.Table().Columns();
  const int edge = header.sectionViewportPosition(date) + header.sectionSize(date) - 1;
  const QPoint from(edge, header.height() / 2);
  QTest::mousePress(header.viewport(), Qt::LeftButton, {}, from);
  QTest::mouseMove(header.viewport(), from + QPoint(20, 0));
  QTest::mouseMove(header.viewport(), from + QPoint(44, 0));
  QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, from + QPoint(44, 0));
  EXPECT_DOUBLE_EQ(shown_.Table().Columns()[0].width, header.sectionSize(date) / factor);
  EXPECT_GT(shown_.Table().Columns()[0].width, stored[0].width);
  // A double click on the edge makes it as wide as its cells, and that is stored too.
  const QPoint wide = from + QPoint(header.sectionSize(date) - (edge + 1), 0);
  QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, wide);
  QTest::mouseDClick(header.viewport(), Qt::LeftButton, {}, wide);
  EXPECT_LT(shown_.Table().Columns()[0].width, stored[0].width + 44 / factor);
  EXPECT_DOUBLE_EQ(shown_.Table().Columns()[0].width, header.sectionSize(date) / factor);
  shown_.resize(500, 300);
  for (std::size_t i = 1; i < stored.size(); ++i) {
    EXPECT_EQ(shown_.Table().Columns()[i].width, stored[i].width) << stored[i].identifier;
  }
  shown_.Rows().HideTableColumnWithIdentifier("type");
  EXPECT_TRUE(header.isSectionHidden(view_.Rows().IndexOf("type")));
  header.moveSection(header.visualIndex(view_.Rows().IndexOf("balance")), 0);
  EXPECT_EQ(shown_.Table().Columns().front().identifier, "balance");
  shown_.Rows().ShowTableColumnWithIdentifier("type");
  EXPECT_EQ(header.visualIndex(view_.Rows().IndexOf("balance")), 0);
}

TEST_F(RegisterViewTest, CopiesRowsAsTextAndAsATable) {
  view_.SelectForUser({7, 1});
  view_.copy();
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  const QStringList lines = copied->text().split(QLatin1Char('\n'));
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0].split(QLatin1Char('\t')).size(), 8);
  EXPECT_TRUE(lines[1].contains(QLatin1String("-$58.12"))) << lines[1].toStdString();
  EXPECT_TRUE(copied->html().contains(QLatin1String("<td>January pay</td>")));
}

TEST_F(RegisterViewTest, FollowsTheCoreThroughAnyChangeOfRows) {
  const QAbstractItemModelTester tester(view_.model(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  std::mt19937 random(11);
  const EntryList all = shown_.Account()->GetEntries();
  EntryList entries = all;
  for (int round = 0; round < 200; ++round) {
    switch (random() % 5) {
      case 0:
        if (!entries.empty()) {
          entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(random() % entries.size()));
        }
        break;
      case 1: {
        const auto& entry = all[random() % all.size()];
        if (std::find(entries.begin(), entries.end(), entry) == entries.end()) {
          entries.push_back(entry);
        }
        break;
      }
      case 2:
        entries = round % 10 == 0 ? EntryList() : all;
        break;
      case 3:
        shown_.Rows().ClickedTableColumn(random() % 2 == 0 ? "date" : "description");
        continue;
      default:
        view_.SelectForUser({static_cast<int>(random() % 23), static_cast<int>(random() % 23)});
        continue;
    }
    shown_.Rows().Reload(entries);
    ASSERT_EQ(view_.model()->rowCount(), static_cast<int>(entries.size()));
    ASSERT_EQ(view_.CurrentRow(), shown_.Table().SelectedRow());
    for (const RowSelection::Range& range : view_.SelectedRows().Ranges()) {
      ASSERT_LT(range.last, static_cast<int>(entries.size()));
    }
    view_.grab();
  }
}

class LongRegisterTest : public RegisterViewTest {
 protected:
  LongRegisterTest() : RegisterViewTest(2'000) {}
};

TEST_F(LongRegisterTest, KeepsWhatIsInSightWhenRowsComeAndGoAbove) {
  view_.ScrollToRow(1'000);
  const std::string top = Description(view_.rowAt(0));
  EntryList entries = shown_.Account()->GetEntries();
  const auto first = entries.front();
  entries.erase(entries.begin());
  shown_.Rows().Reload(entries);
  EXPECT_EQ(Description(view_.rowAt(0)), top);
  entries.insert(entries.begin(), first);
  shown_.Rows().Reload(entries);
  EXPECT_EQ(Description(view_.rowAt(0)), top);
  EXPECT_EQ(view_.verticalScrollBar()->width(), kScrollBarExtent);
  Press(Qt::Key_End);
  EXPECT_GE(view_.rowAt(view_.viewport()->height() - 2), 1'999);
}

}  // namespace
}  // namespace tallyfold::desktop
