#include "plist/value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "plist/describe.h"
#include "plist/output.h"

namespace tallyfold::plist {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Values, StandForOneAnotherAsNumbers) {
  const struct {
    Value value;
    std::int32_t integer;
    double real;
    bool boolean;
  } cases[] = {
      {true, 1, 1.0, true},
      {false, 0, 0.0, false},
      {-7, -7, -7.0, true},
      {std::int64_t{0x1'0000'0002}, std::numeric_limits<std::int32_t>::max(), 4294967298.0, true},
      {-std::int64_t{0x8000'0001}, std::numeric_limits<std::int32_t>::min(), -2147483649.0, true},
      {1.99, 1, 1.99, true},
      {-1.99, -1, -1.99, true},
      {0.25, 0, 0.25, true},
      {1e300, std::numeric_limits<std::int32_t>::max(), 1e300, true},
      {-kInfinity, std::numeric_limits<std::int32_t>::min(), -kInfinity, true},
      {"12.75 EUR", 12, 12.75, true},
      {" \t+3", 3, 3.0, true},
      {"-4", -4, -4.0, true},
      {"+-4", 0, 0.0, false},
      {"1e400", 0, 0.0, false},
      {"inf", 0, 0.0, false},
      {"nan", 0, 0.0, false},
      {"twelve", 0, 0.0, false},
      {"", 0, 0.0, false},
      {Value(), 0, 0.0, false},
      {Array(), 0, 0.0, false},
      {Dictionary(), 0, 0.0, false},
      {Value::Opaque(Kind::Date, "2004"), 0, 0.0, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(Describe(c.value));
    EXPECT_EQ(c.value.IntegerValue(), c.integer);
    EXPECT_EQ(c.value.DoubleValue(), c.real);
    EXPECT_EQ(c.value.BooleanValue(), c.boolean);
  }
  EXPECT_EQ(Value(std::nan("")).IntegerValue(), 0);
}

TEST(Values, AreNumbersOnlyWhenTheirKindIsOne) {
  for (const Value& number : {Value(true), Value(0), Value(0.5)}) EXPECT_TRUE(number.IsNumber());
  for (const Value& other :
       {Value(), Value("1"), Value(Array()), Value(Dictionary()), Value::Opaque(Kind::Data, "AA=="),
        Value(-kInfinity), Value(std::nan(""))}) {
    EXPECT_FALSE(other.IsNumber());
  }
}

TEST(Values, HoldTextsOfAnyLength) {
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string text(length, 'x');
    Value value(text);
    const Value copy = value;
    value = Value(value);
    Value& itself = value;
    value = std::move(itself);
    EXPECT_EQ(value.StringValue(), text);
    EXPECT_EQ(copy, value);
    EXPECT_NE(Value::Opaque(Kind::Data, text), value);
  }
}

TEST(Values, SurviveAssignmentFromWithin) {
  Array inner;
  inner.Append("a text that is too long to lie within");
  Value value(std::move(inner));
  value = Value(value.ArrayValue().At(0));
  EXPECT_EQ(value.StringValue(), "a text that is too long to lie within");
}

TEST(Arrays, GrowShrinkAndAnswerBeyondTheirEnd) {
  Array array;
  for (int i = 0; i < 100; ++i) array.Append(i);
  array.Remove(0);
  array.Remove(98);
  array.Remove(98);
  array.Set(0, "first");
  array.Set(98, "nowhere");
  EXPECT_EQ(array.size(), 98U);
  EXPECT_EQ(array.At(0), Value("first"));
  EXPECT_EQ(array.At(97), Value(98));
  EXPECT_TRUE(array.At(98).IsNone());
  EXPECT_EQ(array.Take(97), Value(98));
  EXPECT_TRUE(array.At(97).IsNone());
  EXPECT_TRUE(array.Take(1000).IsNone());
  Value values[] = {"x", "y"};
  array.Adopt(values, 2);
  EXPECT_EQ(Describe(array), "[\"x\",\"y\"]");
  EXPECT_TRUE(values[0].IsNone());
}

TEST(Dictionaries, KeepTheOrderInWhichKeysWereFirstSet) {
  Dictionary dictionary;
  dictionary.Set("b", 1);
  dictionary.Set("a", 2);
  dictionary.Set("c", 3);
  dictionary.Set("b", "changed");
  EXPECT_EQ(Describe(dictionary), "{b:\"changed\",a:2,c:3}");
  dictionary.Set("a", Value());
  dictionary.Set("z", Value());
  dictionary.Set("a", 4);
  EXPECT_EQ(Describe(dictionary), "{b:\"changed\",c:3,a:4}");
  EXPECT_FALSE(dictionary.Has("z"));
  EXPECT_TRUE(dictionary.Get("z").IsNone());
  EXPECT_EQ(dictionary.Take("c"), Value(3));
  EXPECT_TRUE(dictionary.Get("c").IsNone());
}

TEST(Dictionaries, FindEveryKeyInAnyOrderAlsoWhenThereAreMany) {
  Dictionary dictionary;
  const auto key = [](int i) { return "key" + std::to_string(i); };
  for (int i = 0; i < 1000; ++i) dictionary.Set(key(i), i);
  for (int i = 999; i >= 0; --i) EXPECT_EQ(dictionary.Get(key(i)), Value(i));
  for (int i = 0; i < 1000; i += 2) dictionary.Remove(key(i));
  dictionary.Set("new", true);
  for (int i = 999; i >= 0; --i) EXPECT_EQ(dictionary.Has(key(i)), i % 2 == 1) << i;
  EXPECT_TRUE(dictionary.Has("new"));
  dictionary.Clear();
  EXPECT_FALSE(dictionary.Has(key(1)));
}

TEST(Containers, AreSharedUntilCopiedDeeply) {
  Dictionary inner;
  inner.Set("n", 1);
  Array outer;
  outer.Append(inner);
  const Array same = outer;
  const Array shallow = outer.ShallowCopy();
  const Array deep = outer.DeepCopy();
  EXPECT_EQ(deep, outer);
  inner.Set("n", 2);
  outer.Append("more");
  EXPECT_TRUE(same.IsSameAs(outer));
  EXPECT_EQ(Describe(same), "[{n:2},\"more\"]");
  EXPECT_EQ(Describe(shallow), "[{n:2}]");
  EXPECT_EQ(Describe(deep), "[{n:1}]");
  EXPECT_NE(deep, outer);
}

TEST(Values, AreEqualByKindAndContentInAnyOrderOfKeys) {
  const auto dictionary = [](const char* first, const char* second) {
    Dictionary made;
    made.Set(first, 1);
    made.Set(second, 1);
    return Value(made);
  };
  EXPECT_EQ(dictionary("a", "b"), dictionary("b", "a"));
  EXPECT_NE(dictionary("a", "b"), dictionary("a", "c"));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value(1), Value(true));
  EXPECT_NE(Value("1"), Value(1));
  EXPECT_EQ(Value(std::nan("")), Value(std::nan("")));
}

TEST(TreeBuilders, BuildWhatIsWrittenToThem) {
  TreeBuilder builder;
  EXPECT_TRUE(builder.Take().IsNone());
  builder.BeginDictionary();
  builder.Key("list");
  builder.BeginArray();
  builder.Boolean(true);
  builder.Opaque(Kind::Date, "today");
  builder.EndArray();
  builder.Key("real");
  builder.Real(2.0);
  builder.EndDictionary();
  const Value value = builder.Take();
  EXPECT_EQ(Describe(value), "{list:[true,date(today)],real:2.0}");

  TreeBuilder copier;
  Dictionary with_none = value.DictionaryValue().DeepCopy();
  static_cast<void>(with_none.Take("real"));
  copier.Write(with_none);
  EXPECT_EQ(Describe(copier.Take()), "{list:[true,date(today)]}");
}

}  // namespace
}  // namespace tallyfold::plist
