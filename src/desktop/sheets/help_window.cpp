#include "desktop/sheets/help_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextTable>
#include <QVBoxLayout>
#include <vector>

#include "app/help/guide.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/sheets/page_list.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kHelpWidth = 860;
constexpr int kHelpHeight = 620;
constexpr double kLineHeight = 130;  // in hundredths of the font's

QTextBlockFormat Paragraph(double space_above) {
  QTextBlockFormat format;
  format.setTopMargin(space_above);
  format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
  return format;
}

QTextCharFormat Written(const QFont& font) {
  QTextCharFormat format;
  format.setFont(font);
  return format;
}

void WriteKeys(QTextCursor& cursor, const GuideChapter::KeyGroup& group, const QFont& font) {
  cursor.insertBlock(Paragraph(kColumnGap), Written(DemiBoldFont(font)));
  cursor.insertText(ToQString(group.title));
  QTextTableFormat format;
  format.setBorderStyle(QTextFrameFormat::BorderStyle_None);
  format.setCellPadding(kTightGap);
  format.setCellSpacing(0);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, 40),
                                    QTextLength(QTextLength::PercentageLength, 60)});
  QTextTable* table = cursor.insertTable(static_cast<int>(group.keys.size()), 2, format);
  int row = 0;
  for (const GuideKey& key : group.keys) {
    table->cellAt(row, 0).firstCursorPosition().insertText(ToQString(key.keys),
                                                           Written(MediumFont(font)));
    table->cellAt(row, 1).firstCursorPosition().insertText(ToQString(key.effect), Written(font));
    ++row;
  }
  cursor.movePosition(QTextCursor::End);
}

void Write(QTextDocument& document, const GuideChapter& chapter, const QFont& font) {
  QTextCursor cursor(&document);
  cursor.setBlockFormat(Paragraph(0));
  cursor.setCharFormat(Written(DemiBoldFont(LargerFont(font, kSummaryTitlePoints))));
  cursor.insertText(ToQString(chapter.title));
  for (const std::string& paragraph : chapter.paragraphs) {
    cursor.insertBlock(Paragraph(kWideGap), Written(font));
    cursor.insertText(ToQString(paragraph));
  }
  for (const GuideChapter::KeyGroup& group : chapter.key_groups) WriteKeys(cursor, group, font);
}

// Shows that it has the keys, which scroll it.
class HelpText final : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

 private:
  void paintEvent(QPaintEvent* event) override {
    QTextBrowser::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(viewport());
    DrawBox(painter, viewport()->rect(), 0, {}, ColorsOf(palette())[Role::Accent], kRing);
  }
  void focusInEvent(QFocusEvent* event) override {
    QTextBrowser::focusInEvent(event);
    viewport()->update();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QTextBrowser::focusOutEvent(event);
    viewport()->update();
  }
};

}  // namespace

HelpWindow::HelpWindow() : pages_(new PageList(this, "help_Chapters_List")) {
  setObjectName(QLatin1String("help_Window"));
  setWindowTitle(Text("Tallyfold Help"));
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(pages_);
  for (const GuideChapter& chapter : Guide()) Add(chapter);
  resize(kHelpWidth, kHelpHeight);
}

void HelpWindow::Add(const GuideChapter& chapter) {
  auto* page = new HelpText(this);
  page->setObjectName(QLatin1String("help_Text"));
  page->setAccessibleName(ToQString(chapter.title));
  page->setFrameShape(QFrame::NoFrame);
  page->document()->setDocumentMargin(kGap);
  Write(*page->document(), chapter, font());
  page->moveCursor(QTextCursor::Start);
  pages_->Add(chapter.name, ToQString(chapter.title), page);
}

HelpKey::HelpKey() {
  qApp->installEventFilter(this);
}

HelpKey::~HelpKey() {
  delete shown_;
}

void HelpKey::Open() {
  if (shown_ == nullptr) {
    shown_ = new HelpWindow;
    shown_->setAttribute(Qt::WA_DeleteOnClose);
  }
  shown_->show();
  shown_->raise();
  shown_->activateWindow();
}

bool HelpKey::eventFilter(QObject* receiver, QEvent* event) {
  // The key goes first to the window of the system, once, whatever widget has the focus.
  if (event->type() == QEvent::KeyPress && receiver->isWindowType() &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) {
    Open();
    return true;
  }
  return QObject::eventFilter(receiver, event);
}

}  // namespace tallyfold::desktop
