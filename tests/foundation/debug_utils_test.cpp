#include "foundation/debug_utils.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "foundation/zk_error.h"

namespace zk {
namespace {

using MDebugUtils::TraceRecord;

class TraceErrorTest : public testing::Test {
 protected:
  void SetUp() override {
    previous_ = MDebugUtils::SetTraceSink([this](const TraceRecord& r) { lines_.push_back(r); });
  }
  void TearDown() override { MDebugUtils::SetTraceSink(std::move(previous_)); }

  std::vector<TraceRecord> lines_;
  MDebugUtils::TraceSink previous_;
};

TEST_F(TraceErrorTest, ExplicitNumberAndDescriptionAreKept) {
  MDebugUtils::TraceError(u"ZKLabel1", u"Font (SET)", -1, u"New_Font is nothing");
  ASSERT_EQ(lines_.size(), 1u);
  EXPECT_EQ(lines_[0], (TraceRecord{u"ZKLabel1", u"Font (SET)", -1, u"New_Font is nothing"}));
  EXPECT_EQ(MDebugUtils::FormatTraceLine(lines_[0]),
            u"ZKLabel1 | Font (SET) | -1 | New_Font is nothing");
}

TEST_F(TraceErrorTest, MissingArgumentsComeFromTheErrorBeingHandled) {
  try {
    throw ZKError::Overflow();
  } catch (...) {
    MDebugUtils::TraceError(u"ZKSlider1", u"ParseArchiveStr (el: 7)");
    MDebugUtils::TraceError(u"ZKSlider1", u"only number given", 99);
  }
  try {
    throw std::runtime_error("boom");
  } catch (...) {
    MDebugUtils::TraceError(u"x", u"std");
  }
  MDebugUtils::TraceError(u"x", u"nothing pending");
  ASSERT_EQ(lines_.size(), 4u);
  EXPECT_EQ(lines_[0].number, 6);
  EXPECT_EQ(lines_[0].description, u"Overflow");
  EXPECT_EQ(lines_[1].number, 99);
  EXPECT_EQ(lines_[1].description, u"Overflow");
  EXPECT_EQ(lines_[2].number, error_number::kInternalError);
  EXPECT_EQ(lines_[2].description, u"boom");
  EXPECT_EQ(lines_[3].number, 0);
  EXPECT_EQ(lines_[3].description, u"");
}

TEST_F(TraceErrorTest, AThrowingSinkDoesNotEscape) {
  MDebugUtils::SetTraceSink([](const TraceRecord&) { throw std::runtime_error("sink broke"); });
  EXPECT_NO_THROW(MDebugUtils::TraceError(u"a", u"b", 1, u"c"));
}

}  // namespace
}  // namespace zk
