#include "desktop/sheets/export_rows.h"

#include <QComboBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/exchange/encoding_menu.h"
#include "app/exchange/export_accessory_manager.h"
#include "app/exchange/qif_export_accessory_view.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "exchange/qif_date_formats.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kExportPopUpWidth = 280;
constexpr int kMostItems = 16;

// A pop-up of the form; `choose` gets the tag of what is chosen.
template <typename Choose>
void AddPopUp(Form& form, const QString& label, const char* name,
              const std::vector<PopUpItem>& items, std::int32_t selected, Choose choose) {
  auto* pop_up = new QComboBox(&form);
  pop_up->setMaxVisibleItems(kMostItems);
  ShowItems(*pop_up, items, selected);
  form.Add(label, pop_up, name, kExportPopUpWidth);
  QObject::connect(pop_up, &QComboBox::currentIndexChanged, pop_up, [pop_up, choose](int index) {
    if (index >= 0) choose(pop_up->itemData(index).toInt());
  });
}

// Below the files and their name.
QWidget* UnderRule(Form* form, QWidget* panel) {
  auto* rows = new QWidget(panel);
  auto* column = new QVBoxLayout(rows);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kWideGap);
  column->addWidget(new RuleLine(rows));
  column->addWidget(form);
  return rows;
}

}  // namespace

QWidget* MakeQifExportRows(LDGRQIFExportAccessoryView& accessory, QWidget* panel) {
  auto* form = new Form(panel);
  form->setObjectName(QLatin1String("QIFExportAccessoryView"));
  AddPopUp(*form, Text("Entries"), "exportAccounts_PopUp", accessory.exportAccounts(),
           IndexOfItemTagged(accessory.exportAccounts(), accessory.exportAccount()),
           [&accessory](std::int32_t tag) { accessory.setExportAccount(tag); });
  const std::string format = accessory.exportDateFormat();
  const auto show_example = [form, &accessory] {
    form->SetNote(form->findChild<QComboBox*>(QLatin1String("exportDateFormat_PopUp")),
                  ToQString(Message("a date: {1}", {accessory.exportDateExample()})));
  };
  AddPopUp(*form, Text("Dates"), "exportDateFormat_PopUp", accessory.dateFormats(),
           IndexOfItemTagged(accessory.dateFormats(), QifDateFormatTag(format).value_or(0)),
           [&accessory, show_example](std::int32_t tag) {
             accessory.setExportDateFormat(QifDateFormatForTag(tag));
             show_example();
           });
  show_example();
  AddPopUp(*form, Text("Encoding"), "exportEncoding_PopUp", accessory.encodings().items(),
           accessory.encodings().selected(), [&accessory](std::int32_t tag) {
             accessory.setEncoding(static_cast<std::uint32_t>(tag));
           });
  return UnderRule(form, panel);
}

QWidget* MakeTextExportRows(LDGRExportAccessoryManager& accessory, QWidget* panel) {
  auto* form = new Form(panel);
  form->setObjectName(QLatin1String("exportAccessoryManager_View"));
  bool is_first = true;
  for (const PopUpItem& item : accessory.exportTypes()) {
    auto* button = new QRadioButton(WithoutMnemonics(ToQString(item.title)), form);
    const bool is_all = item.tag == LDGRExportAccessoryManager::kAllEntries;
    button->setObjectName(
        QLatin1String(is_all ? "exportType_All_Button" : "exportType_Shown_Button"));
    button->setAccessibleName(ToQString(item.title));
    button->setChecked(item.tag == accessory.exportType());
    QObject::connect(button, &QRadioButton::toggled, button,
                     [&accessory, tag = item.tag](bool is_chosen) {
                       if (is_chosen) accessory.setExportType(tag);
                     });
    if (is_first) {
      form->AddRow(Text("Entries"), {button});
    } else {
      form->AddUnlabelled(button);
    }
    is_first = false;
  }
  AddPopUp(*form, Text("Encoding"), "encodingPopUp", accessory.encodings().items(),
           accessory.encodings().selected(), [&accessory](std::int32_t tag) {
             accessory.setEncoding(static_cast<std::uint32_t>(tag));
           });
  return UnderRule(form, panel);
}

QWidget* MakeImportRows(EncodingMenu& menu, QWidget* panel) {
  auto* form = new Form(panel);
  form->setObjectName(QLatin1String("QIFImportAccessoryView"));
  AddPopUp(*form, Text("Encoding"), "importEncoding_PopUp", menu.items(), menu.selected(),
           [&menu](std::int32_t tag) { menu.setEncoding(tag); });
  return UnderRule(form, panel);
}

}  // namespace tallyfold::desktop
