#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "plist/output.h"

namespace tallyfold::plist {

// Writes one value as an XML property list: UTF-8, tabs, dictionaries in their own order.
//
// What Read() makes of the file equals the value, and the same value always gives the same bytes.
// Control characters are written as numeric references. Text that is no valid UTF-8 is written as
// ToValidUtf8() makes it, so that no text can spoil the file.
class XmlWriter final : public Output {
 public:
  // Takes the file's content in order, in blocks of about kBlockSize. The view is only good during
  // the call. A failure is the sink's to remember; writing goes on.
  using Sink = std::function<void(std::string_view block)>;
  static constexpr std::size_t kBlockSize = 64 * 1024;

  explicit XmlWriter(Sink sink);
  XmlWriter(const XmlWriter&) = delete;
  XmlWriter& operator=(const XmlWriter&) = delete;
  // Does not finish the file.
  ~XmlWriter() override = default;

  void BeginDictionary() override;
  void EndDictionary() override;
  void BeginArray() override;
  void EndArray() override;
  void Key(std::string_view key) override;
  void Boolean(bool value) override;
  void Integer(std::int64_t value) override;
  void Real(double value) override;
  void String(std::string_view text) override;
  void Opaque(Kind kind, std::string_view text) override;

  // Ends the file and hands its last block to the sink. To be called once, after the one value.
  void Finish();

 private:
  void Begin(std::string_view element);
  void End(std::string_view element);
  void StartLine();
  void Put(std::string_view text);
  void PutText(std::string_view text);
  void PutEscaped(std::string_view text);
  void PutReference(unsigned character);
  // At least `size` bytes of room in the block; `size` is small.
  char* Room(std::size_t size);
  void Flush();

  Sink sink_;
  std::unique_ptr<char[]> block_;
  std::size_t used_ = 0;
  std::size_t level_ = 0;
  // The last thing written is "<dict" or "<array", which is still to be closed either way.
  bool is_open_ = false;
};

// The whole file as a string. `value` is not none.
[[nodiscard]] std::string ToXml(const Value& value);

}  // namespace tallyfold::plist
