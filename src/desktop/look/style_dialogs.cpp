#include <QLabel>
#include <QLatin1String>
#include <algorithm>
#include <iterator>

#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style_parts.h"

namespace tallyfold::desktop::style {
namespace {

constexpr int kAlertTextWidth = 340;

struct StandardIconName {
  QStyle::StandardPixmap picture;
  QLatin1String name;
  Role role;
};

constexpr StandardIconName kStandardIcons[] = {
    {QStyle::SP_MessageBoxInformation, QLatin1String("info"), Role::Accent},
    {QStyle::SP_MessageBoxQuestion, QLatin1String("question"), Role::Accent},
    {QStyle::SP_MessageBoxWarning, QLatin1String("warning"), Role::Warning},
    {QStyle::SP_MessageBoxCritical, QLatin1String("problem"), Role::Problem},
    {QStyle::SP_ArrowBack, QLatin1String("chevron-left"), Role::Text},
    {QStyle::SP_ArrowForward, QLatin1String("chevron-right"), Role::Text},
    {QStyle::SP_FileDialogBack, QLatin1String("chevron-left"), Role::Text},
    {QStyle::SP_FileDialogToParent, QLatin1String("arrow-up"), Role::Text},
    {QStyle::SP_FileDialogNewFolder, QLatin1String("folder-new"), Role::Text},
    {QStyle::SP_FileDialogListView, QLatin1String("list"), Role::Text},
    {QStyle::SP_FileDialogDetailedView, QLatin1String("entries"), Role::Text},
    {QStyle::SP_DirIcon, QLatin1String("folder"), Role::Dim},
    {QStyle::SP_DirOpenIcon, QLatin1String("folder"), Role::Dim},
    {QStyle::SP_DirClosedIcon, QLatin1String("folder"), Role::Dim},
    {QStyle::SP_DirLinkIcon, QLatin1String("folder"), Role::Dim},
    {QStyle::SP_DirHomeIcon, QLatin1String("folder"), Role::Dim},
    {QStyle::SP_FileIcon, QLatin1String("file"), Role::Dim},
    {QStyle::SP_FileLinkIcon, QLatin1String("file"), Role::Dim},
    {QStyle::SP_TrashIcon, QLatin1String("remove"), Role::Dim},
    {QStyle::SP_ComputerIcon, QLatin1String("computer"), Role::Dim},
    {QStyle::SP_DesktopIcon, QLatin1String("computer"), Role::Dim},
    {QStyle::SP_DriveHDIcon, QLatin1String("drive"), Role::Dim},
    {QStyle::SP_DriveFDIcon, QLatin1String("drive"), Role::Dim},
    {QStyle::SP_DriveCDIcon, QLatin1String("drive"), Role::Dim},
    {QStyle::SP_DriveDVDIcon, QLatin1String("drive"), Role::Dim},
    {QStyle::SP_DriveNetIcon, QLatin1String("drive"), Role::Dim},
};

}  // namespace

QIcon StandardIcon(QStyle::StandardPixmap picture) {
  const auto* found =
      std::find_if(std::begin(kStandardIcons), std::end(kStandardIcons),
                   [picture](const StandardIconName& each) { return each.picture == picture; });
  return found != std::end(kStandardIcons) ? IconNamed(found->name, found->role) : QIcon();
}

void PolishAlert(QLabel& label) {
  const QFont body = label.window()->font();
  if (label.objectName() == QLatin1String("qt_msgbox_label")) {
    label.setFont(DemiBoldFont(LargerFont(body, kSheetHeadingPoints)));
  } else if (label.objectName() == QLatin1String("qt_msgbox_informativelabel")) {
    label.setFont(SmallFont(body));
    label.setMinimumWidth(kAlertTextWidth);
    SetTextInk(label, Role::Dim);
  }
}

void KeepIconInk(QStyleOptionViewItem& line, double scale) {
  if (!line.state.testFlag(QStyle::State_Selected) || line.icon.isNull()) return;
  QIcon icon;
  icon.addPixmap(line.icon.pixmap(line.decorationSize, scale, QIcon::Normal), QIcon::Selected);
  line.icon = icon;
}

void DrawHeaderPanel(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  canvas.painter.fillRect(canvas.option.rect, colors[Role::Base]);
  DrawRuleBelow(canvas.painter, canvas.option.rect, colors[Role::Rule]);
}

void DrawHeaderArrow(const Canvas& canvas) {
  const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(&canvas.option);
  if (header == nullptr || header->sortIndicator == QStyleOptionHeader::None) return;
  // The toolkit's down is ascending.
  const bool is_ascending = header->sortIndicator == QStyleOptionHeader::SortDown;
  DrawIcon(canvas.painter, CenteredIn(header->rect, kChevronSize, kChevronSize),
           QLatin1String(is_ascending ? "chevron-up" : "chevron-down"),
           canvas.colors()[Role::Accent], header->direction);
}

}  // namespace tallyfold::desktop::style
