#include "desktop/fields/completion_list.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "model/text.h"

namespace tallyfold::desktop {
namespace {

constexpr int kNoteRole = Qt::UserRole;
constexpr int kTypedRole = Qt::UserRole + 1;
constexpr int kMostLines = 10;
constexpr int kListInset = 4;

// Where the typed text stands in another, by characters, whatever their case; -1 for nowhere.
qsizetype PlaceOf(const QString& typed, const QString& text) {
  if (typed.isEmpty()) return -1;
  const std::string folded = FoldCase(ToUtf8(text));
  const auto place = folded.find(FoldCase(ToUtf8(typed)));
  if (place == std::string::npos) return -1;
  return ToQString(std::string_view(folded).substr(0, place)).size();
}

class LineDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {0, MenuItemHeight(option.fontMetrics)};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    PainterState saved(*painter);
    const Colors& colors = ColorsOf(option.palette);
    if (option.state.testFlag(QStyle::State_Selected)) {
      DrawBox(*painter, option.rect, kSmallRadius, colors[Role::Selection], {});
    }
    QRect rect = option.rect.adjusted(kGap, 0, -kGap, 0);
    const QString note = index.data(kNoteRole).toString();
    if (!note.isEmpty()) {
      painter->setFont(SmallFont(option.font));
      painter->setPen(colors[Role::Dim]);
      painter->drawText(rect, Qt::AlignTrailing | Qt::AlignVCenter, note);
      const int taken = painter->fontMetrics().horizontalAdvance(note) + kWideGap;
      rect = QStyle::visualRect(option.direction, rect, rect.adjusted(0, 0, -taken, 0));
    }
    DrawParts(*painter, rect, option, index);
  }

 private:
  // What was typed in demi-bold.
  static void DrawParts(QPainter& painter, const QRect& rect, const QStyleOptionViewItem& option,
                        const QModelIndex& index) {
    const QString text = index.data(Qt::DisplayRole).toString();
    const QString typed = index.data(kTypedRole).toString();
    const qsizetype place = PlaceOf(typed, text);
    const QString parts[] = {text.left(std::max<qsizetype>(0, place)),
                             place < 0 ? QString() : text.mid(place, typed.size()),
                             place < 0 ? text : text.mid(place + typed.size())};
    painter.setPen(ColorsOf(option.palette)[Role::Text]);
    int x = 0;
    for (int i = 0; i < 3; ++i) {
      painter.setFont(i == 1 ? DemiBoldFont(option.font) : option.font);
      const QFontMetrics metrics = painter.fontMetrics();
      const int room = rect.width() - x;
      if (room <= 0 || parts[i].isEmpty()) continue;
      const QString shown = metrics.elidedText(parts[i], Qt::ElideRight, room);
      const QRect piece = QStyle::visualRect(option.direction, rect,
                                             QRect(rect.x() + x, rect.y(), room, rect.height()));
      painter.drawText(piece, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, shown);
      x += metrics.horizontalAdvance(parts[i]);
    }
  }
};

}  // namespace

class CompletionList::Lines final : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(texts.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const std::string& text = texts[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) return ToQString(text);
    if (role == kNoteRole) return notes ? notes(text) : QString();
    if (role == kTypedRole) return typed;
    return {};
  }
  void Take(std::vector<std::string> other, const QString& now_typed) {
    beginResetModel();
    texts = std::move(other);
    typed = now_typed;
    endResetModel();
  }

  std::vector<std::string> texts;
  QString typed;
  NoteOf notes;
};

CompletionList::CompletionList(QWidget* field)
    : QListView(field), field_(field), lines_(new Lines(this)) {
  setWindowFlag(Qt::Popup);
  // No focus proxy: the toolkit would take the list for the last part of the field when it orders
  // the fields of a sheet, and Tab would not get past it.
  setFocusPolicy(Qt::NoFocus);
  setModel(lines_);
  setItemDelegate(new LineDelegate(this));
  setUniformItemSizes(true);
  setMouseTracking(true);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setViewportMargins(kListInset, kListInset, kListInset, kListInset);
  setAccessibleName(Text("Completions"));
}

void CompletionList::SetNotes(NoteOf notes) {
  lines_->notes = std::move(notes);
}

void CompletionList::Show(std::vector<std::string> texts, const QString& typed, int highlighted) {
  const int count = static_cast<int>(texts.size());
  lines_->Take(std::move(texts), typed);
  if (count == 0) {
    hide();
    return;
  }
  setCurrentIndex(lines_->index(std::min(highlighted, count - 1)));
  Place();
  if (!isVisible()) show();
}

void CompletionList::Place() {
  setFont(field_->font());
  const int lines = std::min(lines_->rowCount(), kMostLines);
  const int height = lines * MenuItemHeight(fontMetrics()) + 2 * (kListInset + frameWidth());
  const QPoint below = field_->mapToGlobal(QPoint(0, field_->height() + 2));
  QRect place(below, QSize(field_->width(), height));
  if (const QScreen* screen = field_->screen();
      screen != nullptr && place.bottom() > screen->availableGeometry().bottom()) {
    place.moveBottom(field_->mapToGlobal(QPoint(0, 0)).y() - 2);
  }
  setGeometry(place);
}

void CompletionList::Step(int lines) {
  const int count = lines_->rowCount();
  if (count == 0) return;
  const int row = currentIndex().row();
  const int next = row < 0 ? (lines > 0 ? 0 : count - 1) : (row + lines + count) % count;
  setCurrentIndex(lines_->index(next));
}

QString CompletionList::Highlighted() const {
  return currentIndex().isValid() ? currentIndex().data(Qt::DisplayRole).toString() : QString();
}

bool CompletionList::event(QEvent* event) {
  // The pop-up has the keyboard; what is typed belongs to the field, shortcuts too.
  if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::InputMethod) {
    return QCoreApplication::sendEvent(field_, event);
  }
  return QListView::event(event);
}

void CompletionList::keyPressEvent(QKeyEvent* event) {
  QCoreApplication::sendEvent(field_, event);
}

void CompletionList::mouseMoveEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (index.isValid()) setCurrentIndex(index);
}

void CompletionList::mouseReleaseEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->position().toPoint());
  if (!index.isValid()) return;
  const QString text = index.data(Qt::DisplayRole).toString();
  hide();
  emit Taken(text);
}

}  // namespace tallyfold::desktop
