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
  static constexpr std::size_t kBlockSize = 65536;

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
  // What the last Begin wrote still lacks its ">", lest the container turn out empty.
  void Opened();
  // Whether a closing tag of its own is to follow.
  [[nodiscard]] bool Closed();
  // Indents a line; returns where its `room` bytes begin, of which Wrote() then tells the end.
  [[nodiscard]] char* StartLine(std::size_t room);
  template <std::size_t N, std::size_t M>
  void PutTextElement(const char (&opening)[N], std::string_view text, const char (&closing)[M]);
  // `text` is valid UTF-8.
  void PutEscaped(std::string_view text);
  void PutReference(unsigned character);
  void Put(std::string_view text);
  // At least `size` bytes within the block, `size` being far less than that.
  [[nodiscard]] char* Room(std::size_t size) {
    if (size > kBlockSize - used_) Flush();
    return block_.get() + used_;
  }
  void Wrote(const char* end) noexcept { used_ = static_cast<std::size_t>(end - block_.get()); }
  void Flush();

  Sink sink_;
  std::unique_ptr<char[]> block_;
  std::size_t used_ = 0;
  std::size_t level_ = 0;
  // The last thing written is "<dict" or "<array".
  bool is_open_ = false;
};

// The whole file as a string. `value` is not none.
[[nodiscard]] std::string ToXml(const Value& value);

}  // namespace tallyfold::plist
