#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "plist/value.h"

namespace tallyfold::plist {

// Where a record writes its dictionary form: into a tree of values (TreeBuilder) or straight into
// a file (XmlWriter), so that saving needs no second copy of everything in memory.
//
// The caller nests properly: within a dictionary every value follows its Key(), every Begin has
// its End. None values are not written; a caller leaves their key out too.
class Output {
 public:
  virtual ~Output() = default;

  virtual void BeginDictionary() = 0;
  virtual void EndDictionary() = 0;
  virtual void BeginArray() = 0;
  virtual void EndArray() = 0;
  // `key` must live until the value that follows it is complete.
  virtual void Key(std::string_view key) = 0;
  virtual void Boolean(bool value) = 0;
  virtual void Integer(std::int64_t value) = 0;
  virtual void Real(double value) = 0;
  virtual void String(std::string_view text) = 0;
  // A date or data element, its text as it stood in the file it came from.
  virtual void Opaque(Kind kind, std::string_view text) = 0;

  // Any value with all it holds. Keys of none values inside dictionaries are left out, none
  // elements of arrays are skipped.
  void Write(const Value& value);
};

// Builds the value that was written to it.
class TreeBuilder final : public Output {
 public:
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

  // The finished value; none before anything was written.
  [[nodiscard]] Value Take();

 private:
  struct Level {
    Value container;
    std::string_view key;  // of the value being built
  };
  void Put(Value value);

  std::vector<Level> levels_;
  Value result_;
};

}  // namespace tallyfold::plist
