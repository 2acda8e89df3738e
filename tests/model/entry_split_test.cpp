#include "model/entry_split.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/plist_literals.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

const std::string kWrongSplit =
    "theValue is in the wrong format in LDGRAccountEntrySplit:initWithDictionary";
const std::string kOutOfRange =
    "Split index out of range of split array in LDGRAccountEntrySplit:SetAmount";

std::string Missing(const char* what) {
  return std::string("No ") + what +
         " defined for theDictionary in LDGRAccountEntrySplit:initWithDictionary";
}

// The lines in use, up to the last that is not empty: description|to/from|amount.
std::string Text(const LDGRAccountEntrySplit& split) {
  std::string text;
  std::string pending;
  for (std::size_t i = 0; i < LDGRAccountEntrySplit::kLines; ++i) {
    pending += split.GetDescription(i) + "|" + split.GetToFrom(i) + "|" +
               std::to_string(split.GetAmount(i)).substr(0, 5) + " ";
    const bool used = !split.GetDescription(i).empty() || !split.GetToFrom(i).empty() ||
                      split.GetAmount(i) != 0.0;
    if (used) text += std::exchange(pending, "");
  }
  return text;
}

TEST(Splits, AreReadKeyByKey) {
  FakeAmbient ambient;
  const plist::Array eleven = List({"a", "", "", "", "", "", "", "", "", "", "k"});
  const plist::Array twelve = List({1.0, 0, 0, 0, 0, 0, 0, 0, 0, 10.0, 11.0, 12.0});
  const struct {
    std::optional<plist::Dictionary> dictionary;
    const char* lines;
    Lines log;
  } cases[] = {
      {std::nullopt, "", {}},
      {Dict({}), "", {Missing("description"), Missing("toFroms"), Missing("amounts")}},
      {Dict({{"descriptions", List({"a", "b", ""})},
             {"toFrom", List({"", "y"})},
             {"amounts", List({1.005, -2})}}),
       "a||1.010 b|y|-2.00 ",
       {}},
      {Dict({{"descriptions", "a"}, {"toFrom", 1}, {"amounts", List({})}}),
       "",
       {kWrongSplit, kWrongSplit}},
      {Dict({{"descriptions", List({1, "b"})},
             {"toFrom", List({List({}), "y"})},
             {"amounts", List({"2.5", Dict({}), true})}}),
       "||2.500 b|y|0.000 ||1.000 ",
       {}},
      {Dict({{"descriptions", eleven}, {"toFrom", eleven}, {"amounts", twelve}}),
       "a|a|1.000 ||0.000 ||0.000 ||0.000 ||0.000 ||0.000 ||0.000 ||0.000 ||0.000 ||10.00 ",
       {kOutOfRange, kOutOfRange}}};
  for (const auto& c : cases) {
    EXPECT_EQ(Text(LDGRAccountEntrySplit(c.dictionary)), c.lines);
    EXPECT_EQ(ambient.log.Take(), c.log);
  }
}

TEST(Splits, ChangeLineByLine) {
  FakeAmbient ambient;
  LDGRAccountEntrySplit split;
  split.SetDescription("last", 9);
  split.SetDescription(std::nullopt, 9);
  split.SetDescription("beyond", 10);
  split.SetToFrom("first", 0);
  split.SetToFrom(std::nullopt, 0);
  split.SetToFrom("beyond", 10);
  split.SetAmount(1.10, 0);
  split.SetAmount(-10.006, 1);
  split.SetAmount(0.0, 1);
  split.SetAmount(2.2, 9);
  EXPECT_TRUE(ambient.log.Lines().empty());
  split.SetAmount(5.0, 10);
  split.SetAmount(5.0, static_cast<std::size_t>(-1));
  EXPECT_EQ(ambient.log.Take(), (Lines{kOutOfRange, kOutOfRange}));
  split.SetEnabled(true, 2);
  split.SetEnabled(true, 10);

  EXPECT_EQ(split.GetDescription(9), "last");
  EXPECT_EQ(split.GetToFrom(0), "first");
  EXPECT_EQ(split.GetDescription(10), "");
  EXPECT_EQ(split.GetToFrom(10), "");
  EXPECT_EQ(split.GetAmount(10), 0.0);
  EXPECT_TRUE(split.GetEnabled(2));
  EXPECT_FALSE(split.GetEnabled(9));
  EXPECT_FALSE(split.GetEnabled(10));
  EXPECT_EQ(split.GetTotal(), 1.10 + 2.2);  // line 9 counts, switched on or not
}

TEST(Splits, TakeTheTextOfOneLineIntoAnother) {
  LDGRAccountEntrySplit split;
  split.SetDescription("Milk", 0);
  const std::string* const first = &split.GetDescription(0);
  for (std::size_t line = 1; line < LDGRAccountEntrySplit::kLines; ++line) {
    split.SetDescription(split.GetDescription(line - 1), line);
    EXPECT_EQ(split.GetDescription(line), "Milk");
    EXPECT_EQ(&split.GetDescription(0), first) << "moved while line " << line << " was set";
  }
}

TEST(Splits, AreWrittenWholeAndCopiedWithoutStates) {
  LDGRAccountEntrySplit split;
  split.SetDescription("Milk", 1);
  split.SetAmount(2.5, 1);
  split.SetEnabled(true, 1);
  const plist::Dictionary dictionary = split.asDictionary();
  const plist::Value none = "";
  const plist::Value zero = 0.0;
  const auto rest = [](const plist::Value& first, const plist::Value& second,
                       const plist::Value& unused) {
    return List({first, second, unused, unused, unused, unused, unused, unused, unused, unused});
  };
  EXPECT_EQ(dictionary, Dict({{"descriptions", rest(none, "Milk", none)},
                              {"toFrom", rest(none, none, none)},
                              {"amounts", rest(zero, 2.5, zero)}}));
  EXPECT_EQ(KeysOf(dictionary), "descriptions toFrom amounts");

  const auto copy = LDGRAccountEntrySplit::splitWithSplit(&split);
  EXPECT_FALSE(copy->GetEnabled(1));
  copy->SetDescription("Bread", 1);
  EXPECT_EQ(Text(*copy), "||0.000 Bread||2.500 ");
  EXPECT_EQ(split.GetDescription(1), "Milk");
  EXPECT_EQ(LDGRAccountEntrySplit::splitWithSplit(nullptr), nullptr);
}

TEST(OldSplits, KeepSingleValuesUnderPluralKeys) {
  FakeAmbient ambient;
  const plist::Dictionary whole = Dict({{"descriptions", "Milk"}, {"amounts", 1.005}});
  const struct {
    std::optional<plist::Dictionary> dictionary;
    plist::Dictionary written;
    Lines log;
  } cases[] = {{std::nullopt, Dict({{"amounts", 0.0}}), {}},
               {whole, whole, {}},
               {Dict({}), Dict({{"amounts", 0.0}}), {Missing("description"), Missing("amount")}},
               {Dict({{"descriptions", List({"a"})}, {"amounts", "1"}}),
                Dict({{"amounts", 0.0}}),
                {kWrongSplit, kWrongSplit}}};
  for (const auto& c : cases) {
    LDGRAccountEntrySplit_Old split(c.dictionary);
    EXPECT_EQ(split.asDictionary(), c.written);
    EXPECT_EQ(ambient.log.Take(), c.log);
    split.SetDescription("Bread");
    split.SetDescription(std::nullopt);
    split.SetAmount(0.001);
    EXPECT_EQ(split.asDictionary(), Dict({{"descriptions", "Bread"}, {"amounts", 0.001}}));
  }
}

}  // namespace
}  // namespace tallyfold
