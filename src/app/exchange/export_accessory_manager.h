#pragma once

#include <cstdint>
#include <vector>

#include "app/exchange/encoding_menu.h"
#include "app/face/pop_up_item.h"

namespace tallyfold {

// What the panel of the text export shows beside the name: which entries to write, as a group of
// radio buttons, and the encoding.
class LDGRExportAccessoryManager {
 public:
  // Tags of the choices of entries.
  static constexpr std::int32_t kAllEntries = -5;
  static constexpr std::int32_t kShownEntries = -1;  // those of the register in view

  LDGRExportAccessoryManager() = default;
  LDGRExportAccessoryManager(const LDGRExportAccessoryManager&) = delete;
  LDGRExportAccessoryManager& operator=(const LDGRExportAccessoryManager&) = delete;

  void exportTypes_Populate();
  void encodingPopUp_Populate(const TextEncodings& encodings) { encodings_.Populate(encodings); }

  [[nodiscard]] const EncodingMenu& encodings() const noexcept { return encodings_; }
  // 0 when no encoding is chosen. One that is not offered leaves none chosen.
  [[nodiscard]] std::uint32_t encoding() const noexcept {
    return static_cast<std::uint32_t>(encodings_.encoding());
  }
  void setEncoding(std::uint32_t encoding) noexcept {
    encodings_.setEncoding(static_cast<std::int32_t>(encoding));
  }

  [[nodiscard]] const std::vector<PopUpItem>& exportTypes() const noexcept { return types_; }
  // The tag of the chosen button.
  [[nodiscard]] std::int32_t exportType() const noexcept { return type_; }
  // A tag that does not exist chooses the first button.
  void setExportType(std::int32_t tag) noexcept {
    type_ = tag == kShownEntries ? kShownEntries : kAllEntries;
  }

 private:
  EncodingMenu encodings_;
  std::vector<PopUpItem> types_;
  std::int32_t type_ = kAllEntries;
};

}  // namespace tallyfold
