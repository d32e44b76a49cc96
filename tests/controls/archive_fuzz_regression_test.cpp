// Archive strings that the fuzz target found: each is read by a control of its kind, what that
// control writes is taken again, and from the clone on the string is a fixed point (the name,
// which no reading sets, left out). A reading may settle a value that the first control held in
// a state no reading makes: a progress bar that shows its value keeps a host's caption only
// until the next redraw, and its anchor, written after the caption, redraws. Further findings
// join the table.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "framework/control.h"
#include "tests/controls/form_fixture.h"

namespace zk {
namespace {

// The archive string's elements with the extender block's first field (the name) left out.
std::vector<std::u16string> WithoutName(std::u16string_view archive) {
  std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(archive);
  if (elements.empty()) return elements;
  std::vector<std::u16string> block =
      MArchiveUtils::ArchiveSplit(elements[0], MArchiveUtils::kBlockSeparator, false);
  if (!block.empty()) block.erase(block.begin());
  elements[0] = MArchiveUtils::ArchiveJoin(block, MArchiveUtils::kBlockSeparator);
  return elements;
}

using ArchiveFuzzRegressionTest = FormTest;

TEST_F(ArchiveFuzzRegressionTest, TakenStringsComeBackTheSame) {
  const struct {
    std::u16string_view kind;
    std::u16string_view archive;
  } cases[] = {
      // A progress bar left with an empty caption while it shows its value: the clone's anchor
      // write puts the percentage there.
      {u"ZKProgessBar",
       u"\"A\"<246|120|3000|450|T|||T|\"\"|0ssBar\n\"A\"<246|120|3000|450|T|||T|\"\"|0}F|,300,T,"
       u"1,T,-10,50T,1,T,-20,}F|,300,T,1,T,-10,50T,1,T,-20,500,15#T#F#F2%\",T,\"Jofs, \"3"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(std::string(test.kind.begin(), test.kind.end()));
    ZKControl& first = form_.AddControl(test.kind, u"A");
    ASSERT_TRUE(first.ParseArchiveStr(test.archive));
    const std::u16string written = first.GetArchiveStr();
    ZKControl& second = form_.AddControl(test.kind, u"B");
    second.Clone(form_.ControlRef(u"A"));
    const std::u16string cloned = second.GetArchiveStr();
    ZKControl& third = form_.AddControl(test.kind, u"C");
    EXPECT_TRUE(third.ParseArchiveStr(written));
    EXPECT_EQ(WithoutName(third.GetArchiveStr()), WithoutName(cloned));
    ZKControl& fourth = form_.AddControl(test.kind, u"D");
    EXPECT_TRUE(fourth.ParseArchiveStr(cloned));
    EXPECT_EQ(WithoutName(fourth.GetArchiveStr()), WithoutName(cloned));
    form_.RemoveAll();
  }
}

}  // namespace
}  // namespace zk
