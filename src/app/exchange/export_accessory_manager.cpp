#include "app/exchange/export_accessory_manager.h"

#include "platform/ambient.h"

namespace tallyfold {

void LDGRExportAccessoryManager::exportTypes_Populate() {
  types_ = {{LocalizedText("All Entries"), kAllEntries},
            {LocalizedText("Current Filter Results"), kShownEntries}};
}

}  // namespace tallyfold
