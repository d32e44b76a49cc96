#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "foundation/debug_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "headless_fixture.h"

namespace zk {
namespace {

class HeadlessPlatformTest : public HeadlessTest {
 protected:
  std::u16string WriteFile(const std::string& name, const std::vector<uint8_t>& bytes) {
    const auto path = std::filesystem::temp_directory_path() / ("zk_picture_test_" + name);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    written_.push_back(path);
    return Utf8ToUtf16(path.string());
  }
  ~HeadlessPlatformTest() override {
    for (const auto& path : written_)
      std::filesystem::remove(path);
  }
  std::vector<std::filesystem::path> written_;
};

TEST_F(HeadlessPlatformTest, IsCurrentAndRecordsTracesAndBeeps) {
  EXPECT_EQ(&CurrentPlatform(), &platform_);
  MDebugUtils::TraceError(u"ZKLabel1", u"GetArchiveStr (el: 3)", 5, u"Invalid");
  CurrentPlatform().Screen().Beep();
  ASSERT_EQ(platform_.Recorder().traces.size(), 1u);
  EXPECT_EQ(platform_.Recorder().traces[0].procedure, u"GetArchiveStr (el: 3)");
  EXPECT_EQ(platform_.Recorder().beeps, 1);
  EXPECT_EQ(platform_.Screen().TwipsPerPixelX(), 15.0);
  EXPECT_EQ(platform_.Locale().Name(), u"en-US");
  EXPECT_EQ(platform_.Locale().DecimalSeparator(), u".");
}

TEST_F(HeadlessPlatformTest, TracesGoBackToThePreviousSinkWhenAPlatformEnds) {
  {
    HeadlessPlatform inner(HeadlessOptions{u"de-DE"});
    EXPECT_EQ(inner.Locale().DecimalSeparator(), u",");
    MDebugUtils::TraceError(u"inner", u"p", 1, u"d");
    EXPECT_EQ(inner.Recorder().traces.size(), 1u);
  }
  MDebugUtils::TraceError(u"outer", u"p", 1, u"d");
  ASSERT_EQ(platform_.Recorder().traces.size(), 1u);
  EXPECT_EQ(platform_.Recorder().traces[0].source, u"outer");
}

TEST_F(HeadlessPlatformTest, PicturesTakeTheirSizeFromTheFileHeader) {
  std::vector<uint8_t> png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0,
                              0,    13,  'I', 'H', 'D',  'R',  0,    0,    0, 32,
                              0,    0,   0,   20,  8,    6,    0,    0,    0};
  std::vector<uint8_t> gif = {'G', 'I', 'F', '8', '9', 'a', 20, 0, 16, 0, 0, 0};
  std::vector<uint8_t> bmp(30, 0);
  bmp[0] = 'B';
  bmp[1] = 'M';
  bmp[18] = 5;
  bmp[22] = 0xFD;  // -3: rows stored top-down
  bmp[23] = bmp[24] = bmp[25] = 0xFF;
  struct Row {
    std::string name;
    std::vector<uint8_t> bytes;
    int32_t width;
    int32_t height;
  };
  const Row rows[] = {{"a.png", png, 32, 20}, {"b.gif", gif, 20, 16}, {"c.bmp", bmp, 5, 3}};
  int32_t last_handle = 0;
  for (const Row& row : rows) {
    PictureRef picture = platform_.Pictures().LoadPicture(WriteFile(row.name, row.bytes));
    EXPECT_EQ(picture->WidthPixels(), row.width) << row.name;
    EXPECT_EQ(picture->HeightPixels(), row.height) << row.name;
    EXPECT_GT(picture->Handle(), last_handle);
    last_handle = picture->Handle();
  }
  EXPECT_EQ(platform_.Pictures().LoadPicture(WriteFile("d.png", png))->GetProperty(u"Width"),
            Variant(int32_t{847}));  // 32 pixels in HiMetric
}

TEST_F(HeadlessPlatformTest, UnreadableOrBrokenPictureFilesRaiseErrors) {
  auto error_of = [&](const std::u16string& path) {
    try {
      platform_.Pictures().LoadPicture(path);
    } catch (const ZKError& error) {
      return error.Number();
    }
    return 0;
  };
  EXPECT_EQ(error_of(u"/nonexistent/picture.png"), error_number::kFileNotFound);
  EXPECT_EQ(error_of(WriteFile("e.png", {'n', 'o', 't'})), error_number::kInvalidPicture);
  EXPECT_EQ(error_of(WriteFile("f.png", {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13,
                                         'I',  'H', 'D', 'R', 0,    0,    0,    0,    0, 0, 0, 0})),
            error_number::kInvalidPicture);  // zero width
}

}  // namespace
}  // namespace zk
