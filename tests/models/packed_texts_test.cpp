#include "models/packed_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zk {
namespace {

using Texts = std::vector<std::u16string>;

Texts Contents(const PackedTexts& packed) {
  Texts texts;
  for (int32_t i = 0; i < packed.Size(); ++i)
    texts.emplace_back(packed.At(i));
  return texts;
}

PackedTexts Packed(const Texts& texts) {
  PackedTexts packed;
  for (const std::u16string& text : texts)
    packed.Insert(packed.Size(), text);
  return packed;
}

// Each change shifts the ends of the texts after it; empty texts have an end of their own.
TEST(PackedTexts, ChangesKeepEveryOtherText) {
  struct Case {
    const char* name;
    Texts before;
    enum { kInsert, kErase, kReplace } change;
    int32_t offset;
    std::u16string text;
    Texts after;
  };
  const Case cases[] = {
      {"insert first", {u"bb", u"c"}, Case::kInsert, 0, u"a", {u"a", u"bb", u"c"}},
      {"insert between", {u"bb", u"c"}, Case::kInsert, 1, u"xyz", {u"bb", u"xyz", u"c"}},
      {"insert last", {u"bb", u"c"}, Case::kInsert, 2, u"d", {u"bb", u"c", u"d"}},
      {"insert empty", {u"bb", u"c"}, Case::kInsert, 1, u"", {u"bb", u"", u"c"}},
      {"insert into nothing", {}, Case::kInsert, 0, u"", {u""}},
      {"erase first", {u"a", u"bb", u"c"}, Case::kErase, 0, u"", {u"bb", u"c"}},
      {"erase middle", {u"a", u"bb", u"c"}, Case::kErase, 1, u"", {u"a", u"c"}},
      {"erase last", {u"a", u"bb", u"c"}, Case::kErase, 2, u"", {u"a", u"bb"}},
      {"erase empty", {u"a", u"", u"c"}, Case::kErase, 1, u"", {u"a", u"c"}},
      {"replace longer", {u"a", u"bb", u"c"}, Case::kReplace, 1, u"wxyz", {u"a", u"wxyz", u"c"}},
      {"replace shorter", {u"a", u"bb", u"c"}, Case::kReplace, 1, u"q", {u"a", u"q", u"c"}},
      {"replace by empty", {u"a", u"bb", u"c"}, Case::kReplace, 0, u"", {u"", u"bb", u"c"}},
      {"replace empty",
       {u"", u"bb"},
       Case::kReplace,
       0,
       u"\u00e9\U0001F600",
       {u"\u00e9\U0001F600", u"bb"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PackedTexts packed = Packed(c.before);
    switch (c.change) {
      case Case::kInsert:
        packed.Insert(c.offset, c.text);
        break;
      case Case::kErase:
        packed.Erase(c.offset);
        break;
      case Case::kReplace:
        packed.Replace(c.offset, c.text);
        break;
    }
    EXPECT_EQ(Contents(packed), c.after);
    size_t units = 0;
    for (const std::u16string& text : c.after)
      units += text.size();
    EXPECT_EQ(packed.Units(), units);
  }
}

TEST(PackedTexts, ATailMovesBehindAnotherSequence) {
  struct Case {
    Texts from;
    int32_t first;
    Texts to;
    Texts from_after;
    Texts to_after;
  };
  const Case cases[] = {
      {{u"a", u"bb", u"ccc"}, 1, {u"x"}, {u"a"}, {u"x", u"bb", u"ccc"}},
      {{u"a", u"bb", u"ccc"}, 0, {}, {}, {u"a", u"bb", u"ccc"}},
      {{u"a", u"bb", u"ccc"}, 3, {u"x"}, {u"a", u"bb", u"ccc"}, {u"x"}},
      {{u"", u"", u"q"}, 1, {u"", u"x"}, {u""}, {u"", u"x", u"", u"q"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.first);
    PackedTexts from = Packed(c.from);
    PackedTexts to = Packed(c.to);
    from.MoveTailTo(c.first, to);
    EXPECT_EQ(Contents(from), c.from_after);
    EXPECT_EQ(Contents(to), c.to_after);
    // Both stay usable: the moved texts are found by their new offsets.
    to.Insert(to.Size(), u"end");
    from.Insert(0, u"start");
    EXPECT_EQ(to.Back(), u"end");
    EXPECT_EQ(from.At(0), u"start");
  }
}

}  // namespace
}  // namespace zk
