#include "desktop/services/qt_file_panels.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QToolButton>
#include <utility>

#include "desktop/texts.h"

namespace tallyfold::desktop {

namespace {

constexpr int kPanelWidth = 720;
constexpr int kPlacesWidth = 152;

// Files and folders as the style draws them, not in the colours of their kinds.
class PlainFileIcons final : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
    return icon(info.isDir() ? Folder : File);
  }
};

// How far a part of the panel is from the edge at which lines begin.
int LeadingEdge(const QFileDialog& panel, const QWidget& part) {
  const int left = part.mapTo(&panel, QPoint()).x();
  const bool is_left = panel.layoutDirection() == Qt::LeftToRight;
  return is_left ? left : panel.width() - left - part.width();
}

// Brings the panel's own fields and those of the rows below them into one column, with the labels
// of both flush with it.
void AlignColumns(QFileDialog& panel, QGridLayout& grid, QWidget& rows) {
  const auto* own = panel.findChild<QLineEdit*>(QLatin1String("fileNameEdit"));
  const auto* ours = rows.findChild<QComboBox*>();
  auto* label = panel.findChild<QLabel*>(QLatin1String("fileNameLabel"));
  if (own == nullptr || ours == nullptr || label == nullptr) return;
  const int more = LeadingEdge(panel, *ours) - LeadingEdge(panel, *own);
  if (more > 0) {
    grid.setColumnMinimumWidth(0, label->width() + more);
    grid.activate();
  } else {
    rows.setContentsMargins(-more, 0, 0, 0);
  }
  for (const char* name : {"lookInLabel", "fileNameLabel", "fileTypeLabel"}) {
    auto* each = panel.findChild<QLabel*>(QLatin1String(name));
    if (each == nullptr) continue;
    each->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    each->setForegroundRole(QPalette::PlaceholderText);
  }
}

}  // namespace

// Ends only with a name that the request's check takes.
class QtFilePanels::Panel final : public QFileDialog {
 public:
  explicit Panel(FileNameCheck* check) : QFileDialog(QApplication::activeWindow()), check_(check) {
    setOption(QFileDialog::DontUseNativeDialog);
    // It is asked until the last of the panel is gone, in a thread of the toolkit's.
    static PlainFileIcons icons;
    setIconProvider(&icons);
    if (check != nullptr) setOption(QFileDialog::DontConfirmOverwrite);
  }

  [[nodiscard]] std::string Path() const {
    if (!path_.empty()) return path_;
    const QStringList files = selectedFiles();
    return files.isEmpty() ? std::string() : ToUtf8(files.front());
  }

  void accept() override {
    const QStringList files = selectedFiles();
    if (check_ == nullptr || files.isEmpty() || QFileInfo(files.front()).isDir()) {
      return QFileDialog::accept();
    }
    const QFileInfo file(files.front());
    const std::string folder = ToUtf8(file.absolutePath());
    const auto name = check_->userEnteredFilename(folder, ToUtf8(file.fileName()), true);
    if (!name) return;
    path_ = ToUtf8(QDir(file.absolutePath()).filePath(ToQString(*name)));
    // What the check let through needs no second look at whether the file is there.
    QDialog::accept();
  }

  // Rows of its own below those of the toolkit.
  void SetRows(QWidget* rows) {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) return;
    rows_ = rows;
    grid->addWidget(rows, grid->rowCount(), 0, 1, grid->columnCount());
  }

 private:
  void showEvent(QShowEvent* event) override {
    QFileDialog::showEvent(event);
    // Only then are the parts where they will be.
    if (rows_ != nullptr) AlignColumns(*this, *static_cast<QGridLayout*>(layout()), *rows_);
  }

  FileNameCheck* check_;
  std::string path_;
  QWidget* rows_ = nullptr;
};

namespace {

// What a file can be called, of a name that may be any text.
QString FileNameFrom(const QString& name) {
  constexpr qsizetype kMostBytes = 255;
  constexpr qsizetype kCutLength = 80;
  QString file = name;
  file.replace(QLatin1Char('/'), QLatin1Char('-'));
  if (file.toUtf8().size() <= kMostBytes) return file;
  const QString suffix = QFileInfo(file).suffix();
  file.truncate(kCutLength);
  if (file.back().isHighSurrogate()) file.chop(1);
  return file + QLatin1Char('.') + suffix;
}

// A choice of one kind of file only is none.
void HideFileTypes(const QFileDialog& panel) {
  for (const char* name : {"fileTypeLabel", "fileTypeCombo"}) {
    auto* widget = panel.findChild<QWidget*>(QLatin1String(name));
    if (widget != nullptr) widget->hide();
  }
}

// As in every sheet: the buttons in a row of their own below all else.
void LayOut(QFileDialog& panel) {
  auto* grid = qobject_cast<QGridLayout*>(panel.layout());
  auto* name = panel.findChild<QLineEdit*>(QLatin1String("fileNameEdit"));
  auto* buttons = panel.findChild<QDialogButtonBox*>(QLatin1String("buttonBox"));
  if (grid != nullptr && name != nullptr && buttons != nullptr) {
    int row = 0, column = 0, rows = 0, columns = 0;
    grid->getItemPosition(grid->indexOf(name), &row, &column, &rows, &columns);
    grid->removeWidget(name);
    grid->removeWidget(buttons);
    grid->addWidget(name, row, column, 1, grid->columnCount() - column);
    grid->setColumnStretch(column, 1);
    buttons->setOrientation(Qt::Horizontal);
    grid->addWidget(buttons, grid->rowCount(), 0, 1, grid->columnCount());
  }
  if (auto* splitter = panel.findChild<QSplitter*>(QLatin1String("splitter"))) {
    splitter->setHandleWidth(0);
    splitter->setSizes({kPlacesWidth, kPanelWidth - kPlacesWidth});
  }
  panel.resize(panel.sizeHint().expandedTo({kPanelWidth, 0}));
}

// The toolkit leaves most of them without a name for assistive technology.
void NameWidgets(QFileDialog& panel) {
  const std::pair<const char*, QString> names[] = {
      {"fileNameEdit", Text("File Name")}, {"fileTypeCombo", Text("File Type")},
      {"lookInCombo", Text("Folder")},     {"listView", Text("Files")},
      {"treeView", Text("Files")},         {"sidebar", Text("Places")}};
  for (const auto& [name, title] : names) {
    auto* widget = panel.findChild<QWidget*>(QLatin1String(name));
    if (widget != nullptr) widget->setAccessibleName(title);
  }
  const auto buttons = panel.findChildren<QToolButton*>();
  for (QToolButton* button : buttons) {
    if (button->accessibleName().isEmpty()) button->setAccessibleName(button->toolTip());
  }
}

}  // namespace

std::optional<std::string> QtFilePanels::Save(const FilePanelRequest& request) {
  Panel panel(request.check);
  panel.setAcceptMode(QFileDialog::AcceptSave);
  panel.setFileMode(QFileDialog::AnyFile);
  return Run(panel, request);
}

std::optional<std::string> QtFilePanels::Open(const FilePanelRequest& request) {
  Panel panel(nullptr);
  panel.setAcceptMode(QFileDialog::AcceptOpen);
  panel.setFileMode(QFileDialog::ExistingFile);
  return Run(panel, request);
}

std::optional<std::string> QtFilePanels::Run(Panel& panel, const FilePanelRequest& request) {
  panel.setObjectName(QLatin1String("file_Panel"));
  panel.setWindowTitle(ToQString(request.title));
  panel.setDirectory(folder_.empty() ? QDir::homePath() : ToQString(folder_));
  if (!request.name.empty()) panel.selectFile(FileNameFrom(ToQString(request.name)));
  if (!request.name_label.empty()) {
    panel.setLabelText(QFileDialog::FileName, ToQString(request.name_label));
  }
  if (!request.button.empty()) {
    panel.setLabelText(QFileDialog::Accept, WithoutMnemonics(ToQString(request.button)));
  }
  const auto accessory = accessories_.find(request.accessory);
  if (accessory != accessories_.end()) panel.SetRows(accessory->second(&panel));

  if (panel.nameFilters().size() < 2) HideFileTypes(panel);
  NameWidgets(panel);
  LayOut(panel);
  ++depth_;
  const bool is_accepted = panel.exec() == QDialog::Accepted;
  --depth_;
  // Not every window manager gives the keys back.
  if (panel.parentWidget() != nullptr) panel.parentWidget()->activateWindow();
  if (!is_accepted || panel.Path().empty()) return std::nullopt;
  folder_ = ToUtf8(panel.directory().absolutePath());
  return panel.Path();
}

}  // namespace tallyfold::desktop
