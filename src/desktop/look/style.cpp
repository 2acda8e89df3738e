#include "desktop/look/style.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style_parts.h"

namespace tallyfold::desktop {
namespace {

constexpr QLatin1String kBaseStyle("Fusion");

// The option as what it is for a control; null where a caller gave something else.
template <typename Option>
const Option* As(const QStyleOption* option) {
  return qstyleoption_cast<const Option*>(option);
}

// Lines of the list below a pop-up are as tall as those of a menu.
class PopUpListDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const bool is_separator =
        index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
    size.setHeight(is_separator ? style::kMenuSeparatorHeight : MenuItemHeight(option.fontMetrics));
    return size;
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    if (index.data(Qt::AccessibleDescriptionRole).toString() != QLatin1String("separator")) {
      return QStyledItemDelegate::paint(painter, option, index);
    }
    const QRect middle = CenteredIn(option.rect, option.rect.width() - 2 * kGap, 1);
    DrawRuleBelow(*painter, middle, ColorsOf(option.palette)[Role::Rule]);
  }
};

}  // namespace

int style::MnemonicFlag(const QStyle& style, const Canvas& canvas) {
  return style.styleHint(QStyle::SH_UnderlineShortcut, &canvas.option, canvas.widget) != 0
             ? Qt::TextShowMnemonic
             : Qt::TextHideMnemonic;
}

Style::Style() : QProxyStyle(QStyleFactory::create(kBaseStyle)) {}

void Style::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (auto* pop_up = qobject_cast<QComboBox*>(widget)) {
    pop_up->setAttribute(Qt::WA_Hover);
    pop_up->setItemDelegate(new PopUpListDelegate(pop_up));
  } else if (auto* text = qobject_cast<QPlainTextEdit*>(widget)) {
    // Its ground is that of its frame, whose corners are round.
    text->viewport()->setAutoFillBackground(false);
  } else if (auto* label = qobject_cast<QLabel*>(widget)) {
    style::PolishAlert(*label);
  }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
    case PM_DefaultFrameWidth:
    case PM_SplitterWidth:
    case PM_MenuPanelWidth:
      return 1;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return kMarkSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return 7;
    case PM_ScrollBarExtent:
      return kScrollBarExtent;
    case PM_ScrollBarSliderMin:
      return kShortestThumb;
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
    case PM_ButtonIconSize:
      return kIconSize;
    case PM_MessageBoxIconSize:
      return style::kAlertIconSize;
    case PM_ToolBarIconSize:
      return kToolIconSize;
    case PM_TabBarIconSize:
      return kTabIconSize;
    case PM_ToolBarItemSpacing:
      return kTightGap;
    case PM_ToolBarItemMargin:
      return 6;
    case PM_ToolBarFrameWidth:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ButtonDefaultIndicator:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabOverlap:
    case PM_TabBarBaseHeight:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
      return 0;
    case PM_MenuBarHMargin:
      return 3;
    case PM_ToolBarSeparatorExtent:
      // The spacing of the tools stands on either side as well.
      return 2 * (kGap - kTightGap) + 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
      return kTightGap;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
      return kGap;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
      return kGroupGap;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const {
  switch (hint) {
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
    case SH_ScrollBar_Transient:
    case SH_Menu_SubMenuUniDirection:
      return 0;
    case SH_ItemView_ShowDecorationSelected:
      return 1;
    case SH_ToolTip_WakeUpDelay:
      return kToolTipDelay;
    case SH_TabBar_Alignment:
      return Qt::AlignLeft;
    case SH_DialogButtonLayout:
      // As in the sheets: the default button at the trailing end.
      return QDialogButtonBox::GnomeLayout;
    case SH_ComboBox_PopupFrameStyle:
      return static_cast<int>(QFrame::StyledPanel) | QFrame::Plain;
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
  }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  switch (type) {
    case CT_PushButton:
      if (const auto* button = As<QStyleOptionButton>(option)) return style::ButtonSize(*button);
      break;
    case CT_ToolButton:
      if (const auto* button = As<QStyleOptionToolButton>(option)) {
        return style::ToolButtonSize(*button);
      }
      break;
    case CT_LineEdit:
      if (const auto* frame = As<QStyleOptionFrame>(option);
          frame != nullptr && frame->lineWidth > 0) {
        return {contents.width() + 2 * style::kFieldPadding, ControlHeight(frame->fontMetrics)};
      }
      break;
    case CT_ComboBox:
      if (option != nullptr) {
        return {contents.width() + style::kPopUpPadding, ControlHeight(option->fontMetrics)};
      }
      break;
    case CT_SpinBox:
      if (option != nullptr) {
        return {contents.width() + style::kPopUpPadding, ControlHeight(option->fontMetrics)};
      }
      break;
    case CT_CheckBox: {
      const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
      return {size.width() + style::kCheckRing, std::max(size.height(), kMarkSize + 6)};
    }
    case CT_MenuItem:
      if (const auto* item = As<QStyleOptionMenuItem>(option)) {
        return style::MenuItemSize(*item, contents);
      }
      break;
    case CT_MenuBarItem:
      if (const auto* item = As<QStyleOptionMenuItem>(option)) {
        return style::MenuBarItemSize(*item, contents);
      }
      break;
    case CT_TabBarTab:
      if (const auto* tab = As<QStyleOptionTab>(option)) return style::TabSize(*tab);
      break;
    default:
      break;
  }
  return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option,
                            const QWidget* widget) const {
  if (element == SE_LineEditContents) {
    if (const auto* frame = As<QStyleOptionFrame>(option);
        frame != nullptr && frame->lineWidth > 0) {
      // The field itself adds two pixels.
      return frame->rect.adjusted(style::kFieldPadding - 2, 1, 2 - style::kFieldPadding, -1);
    }
  }
  return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
  if (const auto* pop_up = As<QStyleOptionComboBox>(option); control == CC_ComboBox && pop_up) {
    return style::PopUpPart(*pop_up, part);
  }
  if (const auto* box = As<QStyleOptionSpinBox>(option); control == CC_SpinBox && box) {
    return style::SpinBoxPart(*box, part);
  }
  if (const auto* bar = As<QStyleOptionSlider>(option); control == CC_ScrollBar && bar) {
    return style::ScrollBarPart(*bar, part);
  }
  return QProxyStyle::subControlRect(control, option, part, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const style::Canvas canvas{*option, *painter, widget};
  switch (element) {
    case PE_FrameFocusRect:
    case PE_FrameDefaultButton:
    case PE_FrameStatusBarItem:
    case PE_PanelStatusBar:
    case PE_IndicatorButtonDropDown:
      return;
    case PE_PanelButtonCommand:
    case PE_PanelButtonBevel:
      return style::DrawButtonPanel(canvas);
    case PE_PanelButtonTool:
      return style::DrawToolPanel(canvas);
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
      return style::DrawFieldPanel(canvas);
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      return style::DrawCheckIndicator(canvas);
    case PE_IndicatorRadioButton:
      return style::DrawRadioIndicator(canvas);
    case PE_Frame:
      if (qobject_cast<const QPlainTextEdit*>(widget)) return style::DrawFieldPanel(canvas);
      return DrawFrame(*painter, option->rect, canvas.colors()[Role::Rule]);
    case PE_FrameMenu:
      return DrawFrame(*painter, option->rect, canvas.colors()[Role::Rule]);
    case PE_PanelMenu:
    case PE_PanelTipLabel:
      painter->fillRect(option->rect, canvas.colors()[Role::Raised]);
      return DrawFrame(*painter, option->rect, canvas.colors()[Role::Rule]);
    case PE_IndicatorToolBarSeparator: {
      const QRect rule = CenteredIn(option->rect, 1, kToolIconSize);
      return DrawRuleBefore(*painter, rule, canvas.colors()[Role::Rule]);
    }
    case PE_PanelItemViewItem:
    case PE_PanelItemViewRow:
      return style::DrawListPanel(canvas);
    case PE_PanelScrollAreaCorner:
      return painter->fillRect(option->rect, canvas.colors()[Role::Base]);
    case PE_IndicatorHeaderArrow:
      return style::DrawHeaderArrow(canvas);
    case PE_FrameTabBarBase:
      return DrawRuleBelow(*painter, option->rect, canvas.colors()[Role::Rule]);
    default:
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  const style::Canvas canvas{*option, *painter, widget};
  const int mnemonic = style::MnemonicFlag(*this, canvas);
  const auto* button = As<QStyleOptionButton>(option);
  const auto* item = As<QStyleOptionMenuItem>(option);
  const auto* tab = As<QStyleOptionTab>(option);
  switch (element) {
    case CE_PushButtonLabel:
      if (button != nullptr) return style::DrawButtonLabel(canvas, *button, mnemonic);
      break;
    case CE_CheckBox:
    case CE_RadioButton:
      QProxyStyle::drawControl(element, option, painter, widget);
      if (button != nullptr && canvas.Is(State_HasFocus)) {
        const bool is_check = element == CE_CheckBox;
        const auto part = is_check ? SE_CheckBoxContents : SE_RadioButtonContents;
        style::DrawCheckRing(canvas, subElementRect(part, option, widget), button->text);
      }
      return;
    case CE_ComboBoxLabel:
      if (const auto* pop_up = As<QStyleOptionComboBox>(option)) {
        return style::DrawPopUpLabel(canvas, *pop_up);
      }
      break;
    case CE_ToolButtonLabel:
      if (const auto* tool = As<QStyleOptionToolButton>(option)) {
        return style::DrawToolLabel(canvas, *tool, mnemonic);
      }
      break;
    case CE_TabBarTabShape:
      if (tab != nullptr) return style::DrawTabShape(canvas, *tab);
      break;
    case CE_TabBarTabLabel:
      if (tab != nullptr) return style::DrawTabLabel(canvas, *tab, mnemonic);
      break;
    case CE_MenuBarEmptyArea:
      return painter->fillRect(option->rect, canvas.colors()[Role::Window]);
    case CE_MenuBarItem:
      if (item != nullptr) return style::DrawMenuBarItem(canvas, *item, mnemonic);
      break;
    case CE_MenuItem:
      if (item != nullptr) return style::DrawMenuItem(canvas, *item, mnemonic);
      break;
    case CE_Splitter:
      painter->fillRect(option->rect, canvas.colors()[Role::Rule]);
      return;
    case CE_ToolBar:
      painter->fillRect(option->rect, canvas.colors()[Role::Window]);
      return DrawRuleBelow(*painter, option->rect, canvas.colors()[Role::Rule]);
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
      return style::DrawHeaderPanel(canvas);
    case CE_ItemViewItem:
      if (const auto* line = As<QStyleOptionViewItem>(option)) {
        QStyleOptionViewItem ours(*line);
        // The tint of a selected line is pale: its text stays the ink it is.
        ours.palette.setColor(QPalette::HighlightedText, canvas.colors()[Role::Text]);
        style::KeepIconInk(ours, painter->device()->devicePixelRatioF());
        return QProxyStyle::drawControl(element, &ours, painter, widget);
      }
      break;
    default:
      break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  const style::Canvas canvas{*option, *painter, widget};
  if (const auto* pop_up = As<QStyleOptionComboBox>(option); control == CC_ComboBox && pop_up) {
    return style::DrawPopUp(canvas, *pop_up);
  }
  if (const auto* box = As<QStyleOptionSpinBox>(option); control == CC_SpinBox && box) {
    return style::DrawSpinBox(canvas, *box);
  }
  if (const auto* tool = As<QStyleOptionToolButton>(option); control == CC_ToolButton && tool) {
    style::DrawToolPanel(canvas);
    return style::DrawToolLabel(canvas, *tool, style::MnemonicFlag(*this, canvas));
  }
  if (const auto* bar = As<QStyleOptionSlider>(option); control == CC_ScrollBar && bar) {
    return style::DrawScrollBar(canvas, *bar, style::ScrollBarPart(*bar, SC_ScrollBarSlider));
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption* option,
                          const QWidget* widget) const {
  QIcon icon = style::StandardIcon(picture);
  return icon.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : icon;
}

void InstallStyle(QApplication& application) {
  application.setFont(BodyFont(QApplication::font()));
  if (QApplication::style()->name().compare(kBaseStyle, Qt::CaseInsensitive) == 0) {
    QApplication::setStyle(new Style);
  }
}

void LeaveSelectionToTable(QStyleOptionViewItem& option) {
  if (dynamic_cast<const Style*>(QApplication::style()) != nullptr) return;
  option.palette.setColor(QPalette::Highlight, Qt::transparent);
}

}  // namespace tallyfold::desktop
