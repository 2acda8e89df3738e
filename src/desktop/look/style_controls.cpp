#include <QComboBox>
#include <QFontMetrics>
#include <QIcon>
#include <QPainterPath>
#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style_parts.h"

namespace tallyfold::desktop::style {
namespace {

constexpr double kProblemOutline = 1.5;
constexpr double kDefaultRing = 1.5;
constexpr int kButtonPadding = 16;
constexpr QLatin1String kChevronDown("chevron-down");
constexpr QLatin1String kChevronUp("chevron-up");

bool IsDefault(const Canvas& canvas) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&canvas.option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

bool IsFlat(const Canvas& canvas) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&canvas.option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::Flat);
}

void DrawRing(const Canvas& canvas, const QRect& rect, int radius) {
  DrawBox(canvas.painter, rect, radius, {}, canvas.colors()[Role::Accent], kRing);
}

// A share of text in a ground, by what the pointer does.
double ShareUnderPointer(const Canvas& canvas, double hover, double pressed) {
  if (!canvas.Is(QStyle::State_Enabled)) return 0.0;
  if (canvas.Is(QStyle::State_Sunken) || canvas.Is(QStyle::State_On)) return pressed;
  return canvas.Is(QStyle::State_MouseOver) ? hover : 0.0;
}

void DrawDefaultPanel(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const double share = ShareUnderPointer(canvas, 0.10, 0.18);
  const Role with = colors.IsDark() ? Role::OnAccent : Role::Text;
  const QRect& rect = canvas.option.rect;
  DrawBox(canvas.painter, rect, kRadius, colors.Mixed(Role::Accent, with, share), {});
  if (canvas.Is(QStyle::State_HasFocus)) {
    DrawBox(canvas.painter, rect.adjusted(2, 2, -2, -2), kRadius - 2, {}, colors[Role::OnAccent],
            kDefaultRing);
  }
}

// A field, the frame of a pop-up or of a spin box.
void DrawFieldBox(const Canvas& canvas, bool has_focus, const QColor& fill, const QColor& outline) {
  const Colors& colors = canvas.colors();
  const QRect& rect = canvas.option.rect;
  if (!canvas.Is(QStyle::State_Enabled)) {
    DrawBox(canvas.painter, rect, kRadius, {}, colors[Role::Rule]);
  } else if (HasProblem(canvas.widget)) {
    DrawBox(canvas.painter, rect, kRadius, colors[Role::ProblemFill], colors[Role::Problem],
            has_focus ? kRing : kProblemOutline);
  } else if (has_focus) {
    DrawBox(canvas.painter, rect, kRadius, fill, colors[Role::Accent], kRing);
  } else {
    DrawBox(canvas.painter, rect, kRadius, fill, outline);
  }
}

void DrawTick(const Canvas& canvas, const QColor& color) {
  PainterState state(canvas.painter);
  canvas.painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = canvas.option.rect;
  const auto at = [&box](double x, double y) {
    return QPointF(box.x() + box.width() * x / 16, box.y() + box.height() * y / 16);
  };
  QPainterPath path(at(4, 8.5));
  path.lineTo(at(6.75, 11.25));
  path.lineTo(at(12, 5));
  canvas.painter.setPen(QPen(color, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  canvas.painter.drawPath(path);
}

}  // namespace

void DrawButtonPanel(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const QRect& rect = canvas.option.rect;
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  if (is_enabled && IsDefault(canvas)) return DrawDefaultPanel(canvas);
  const bool has_focus = canvas.Is(QStyle::State_HasFocus);
  if (IsFlat(canvas)) {
    const double tint = ShareUnderPointer(canvas, 0.07, 0.14);
    if (tint > 0) {
      DrawBox(canvas.painter, rect, kRadius, colors.Mixed(Role::Window, Role::Text, tint), {});
    }
    if (has_focus) DrawRing(canvas, rect, kRadius);
  } else if (!is_enabled) {
    DrawBox(canvas.painter, rect, kRadius, {}, colors[Role::Rule]);
  } else {
    const double share = ShareUnderPointer(canvas, 0.05, 0.10);
    DrawBox(canvas.painter, rect, kRadius, colors.Mixed(Role::Raised, Role::Text, share),
            has_focus ? colors[Role::Accent] : colors.ButtonOutline(), has_focus ? kRing : 1.0);
  }
}

void DrawButtonLabel(const Canvas& canvas, const QStyleOptionButton& button, int mnemonic) {
  QPainter& painter = canvas.painter;
  PainterState state(painter);
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  const bool is_default = is_enabled && IsDefault(canvas);
  if (is_default) painter.setFont(DemiBoldFont(painter.font()));
  painter.setPen(is_default ? canvas.colors()[Role::OnAccent] : canvas.Ink());
  const QFontMetrics metrics = painter.fontMetrics();
  const int text_width = metrics.size(mnemonic, button.text).width();
  if (button.icon.isNull()) {
    painter.drawText(button.rect, Qt::AlignCenter | mnemonic, button.text);
    return;
  }
  const int icon = button.iconSize.width();
  const int gap = button.text.isEmpty() ? 0 : kGap;
  const QRect both = CenteredIn(button.rect, icon + gap + text_width, button.rect.height());
  const QIcon::Mode mode = !is_enabled  ? QIcon::Disabled
                           : is_default ? QIcon::Selected
                                        : QIcon::Normal;
  const QRect icon_place(both.x(), both.y() + (both.height() - icon) / 2, icon, icon);
  button.icon.paint(&painter, canvas.Visual(icon_place), Qt::AlignCenter, mode);
  painter.drawText(canvas.Visual(both.adjusted(icon + gap, 0, kGap, 0)),
                   static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft) | mnemonic, button.text);
}

QSize ButtonSize(const QStyleOptionButton& button) {
  // By the font of a default button, so that none changes its width with its state.
  const QFontMetrics metrics(DemiBoldFont(QFont()));
  const int bold = metrics.size(Qt::TextShowMnemonic, button.text).width();
  const int plain = button.fontMetrics.size(Qt::TextShowMnemonic, button.text).width();
  int width = std::max(bold, plain) + 2 * kButtonPadding;
  if (!button.icon.isNull()) width += button.iconSize.width() + kGap;
  const int height = ControlHeight(button.fontMetrics);
  if (button.text.isEmpty() && !button.icon.isNull()) return {height, height};
  const bool is_flat = button.features.testFlag(QStyleOptionButton::Flat);
  return {is_flat ? width - kButtonPadding : std::max(kLeastButtonWidth, width), height};
}

void DrawFieldPanel(const Canvas& canvas) {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&canvas.option);
  const Colors& colors = canvas.colors();
  if (frame != nullptr && frame->lineWidth <= 0) {
    // In a frame of somebody else's, who has filled it; an editor in a table fills its cell.
    const bool is_editor = canvas.widget != nullptr && canvas.widget->autoFillBackground();
    if (is_editor) canvas.painter.fillRect(frame->rect, colors[Role::Base]);
    return;
  }
  DrawFieldBox(canvas, canvas.Is(QStyle::State_HasFocus), colors[Role::Base], colors[Role::Edge]);
}

void DrawCheckIndicator(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const QRect& rect = canvas.option.rect;
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  const bool is_mixed = canvas.Is(QStyle::State_NoChange);
  if (!is_mixed && !canvas.Is(QStyle::State_On)) {
    DrawBox(canvas.painter, rect, kSmallRadius, is_enabled ? colors[Role::Base] : QColor(),
            colors[is_enabled ? Role::Edge : Role::Rule]);
    return;
  }
  DrawBox(canvas.painter, rect, kSmallRadius, canvas.Ink(Role::Accent), {});
  const QColor& mark = colors[is_enabled ? Role::OnAccent : Role::Base];
  if (!is_mixed) return DrawTick(canvas, mark);
  const QRect bar = CenteredIn(rect, 8, 2);
  DrawBox(canvas.painter, bar, 1, mark, {});
}

void DrawRadioIndicator(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const QRect& rect = canvas.option.rect;
  const double radius = rect.width() / 2.0;
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  if (!canvas.Is(QStyle::State_On)) {
    DrawBox(canvas.painter, rect, radius, is_enabled ? colors[Role::Base] : QColor(),
            colors[is_enabled ? Role::Edge : Role::Rule]);
    return;
  }
  DrawBox(canvas.painter, rect, radius, canvas.Ink(Role::Accent), {});
  DrawBox(canvas.painter, CenteredIn(rect, 6, 6), 3,
          colors[is_enabled ? Role::OnAccent : Role::Base], {});
}

void DrawCheckRing(const Canvas& canvas, const QRect& label, const QString& text) {
  const QFontMetrics& metrics = canvas.option.fontMetrics;
  const int width = metrics.size(Qt::TextShowMnemonic, text).width() + 2 * kCheckRing;
  const int height = metrics.height() + kCheckRing;
  QRect ring(label.x() - kCheckRing, label.y() + (label.height() - height) / 2, width, height);
  if (canvas.option.direction == Qt::RightToLeft) ring.moveRight(label.right() + kCheckRing);
  DrawRing(canvas, ring.intersected(canvas.option.rect), kSmallRadius);
}

void DrawPopUp(const Canvas& canvas, const QStyleOptionComboBox& pop_up) {
  const Colors& colors = canvas.colors();
  const bool has_focus = canvas.Is(QStyle::State_HasFocus);
  if (!pop_up.frame) {
    const double tint = ShareUnderPointer(canvas, 0.07, 0.14);
    if (tint > 0) {
      DrawBox(canvas.painter, pop_up.rect, kRadius, colors.Mixed(Role::Window, Role::Text, tint),
              {});
    }
    if (has_focus) DrawRing(canvas, pop_up.rect, kRadius);
  } else if (pop_up.editable) {
    DrawFieldBox(canvas, has_focus, colors[Role::Base], colors[Role::Edge]);
  } else {
    const bool is_hovered = canvas.Is(QStyle::State_MouseOver);
    DrawFieldBox(canvas, has_focus, colors.Mixed(Role::Raised, Role::Text, is_hovered ? 0.05 : 0.0),
                 colors.ButtonOutline());
  }
  const QRect arrow = PopUpPart(pop_up, QStyle::SC_ComboBoxArrow);
  DrawIcon(canvas.painter, CenteredIn(arrow, kGlyphSize, kGlyphSize), kChevronDown,
           canvas.Ink(Role::Dim), pop_up.direction);
}

void DrawPopUpLabel(const Canvas& canvas, const QStyleOptionComboBox& pop_up) {
  if (pop_up.editable) return;
  QPainter& painter = canvas.painter;
  PainterState state(painter);
  QRect text = pop_up.rect.adjusted(kFieldPadding, 0, -kArrowWidth, 0);
  if (!pop_up.currentIcon.isNull()) {
    const QRect icon(text.x(), text.y() + (text.height() - kIconSize) / 2, kIconSize, kIconSize);
    pop_up.currentIcon.paint(&painter, canvas.Visual(icon), Qt::AlignCenter,
                             canvas.Is(QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled);
    text.setLeft(text.left() + kIconSize + kToolGap);
  }
  painter.setPen(canvas.Ink());
  const QString shown =
      pop_up.fontMetrics.elidedText(pop_up.currentText, Qt::ElideRight, text.width());
  painter.drawText(canvas.Visual(text), Qt::AlignLeading | Qt::AlignVCenter, shown);
}

QRect PopUpPart(const QStyleOptionComboBox& pop_up, QStyle::SubControl part) {
  const QRect& rect = pop_up.rect;
  QRect place = rect;
  switch (part) {
    case QStyle::SC_ComboBoxArrow:
      place.setLeft(rect.right() + 1 - kArrowWidth);
      break;
    case QStyle::SC_ComboBoxEditField:
      place = rect.adjusted(kFieldPadding - 2, 2, -kArrowWidth, -2);
      break;
    default:
      break;
  }
  return QStyle::visualRect(pop_up.direction, rect, place);
}

void DrawSpinBox(const Canvas& canvas, const QStyleOptionSpinBox& box) {
  const Colors& colors = canvas.colors();
  DrawFieldBox(canvas, canvas.Is(QStyle::State_HasFocus), colors[Role::Base], colors[Role::Edge]);
  if (box.buttonSymbols == QAbstractSpinBox::NoButtons) return;
  const auto draw = [&](QStyle::SubControl part, QLatin1String icon,
                        QAbstractSpinBox::StepEnabledFlag step) {
    const bool can_step = canvas.Is(QStyle::State_Enabled) && box.stepEnabled.testFlag(step);
    DrawIcon(canvas.painter, CenteredIn(SpinBoxPart(box, part), kChevronSize, kChevronSize), icon,
             colors[can_step ? Role::Dim : Role::Off], box.direction);
  };
  draw(QStyle::SC_SpinBoxUp, kChevronUp, QAbstractSpinBox::StepUpEnabled);
  draw(QStyle::SC_SpinBoxDown, kChevronDown, QAbstractSpinBox::StepDownEnabled);
}

QRect SpinBoxPart(const QStyleOptionSpinBox& box, QStyle::SubControl part) {
  const QRect& rect = box.rect;
  const bool has_buttons = box.buttonSymbols != QAbstractSpinBox::NoButtons;
  const int middle = rect.y() + rect.height() / 2;
  QRect place = rect;
  switch (part) {
    case QStyle::SC_SpinBoxUp:
    case QStyle::SC_SpinBoxDown:
      if (!has_buttons) return {};
      place.setLeft(rect.right() + 1 - kArrowWidth);
      if (part == QStyle::SC_SpinBoxUp) {
        place.setBottom(middle - 1);
      } else {
        place.setTop(middle);
      }
      break;
    case QStyle::SC_SpinBoxEditField:
      place = rect.adjusted(kFieldPadding - 2, 2, has_buttons ? -kArrowWidth : -kFieldPadding, -2);
      break;
    default:
      break;
  }
  return QStyle::visualRect(box.direction, rect, place);
}

}  // namespace tallyfold::desktop::style
