#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/common/form_ambient.h"
#include "platform/common/form_extender.h"
#include "platform/common/memory_property_bag.h"
#include "platform/headless/headless_control_site.h"
#include "platform/headless/headless_font_catalogue.h"
#include "platform/headless/headless_platform.h"

namespace zk {
namespace {

int32_t ErrorOf(const auto& action) {
  try {
    action();
  } catch (const ZKError& error) {
    return error.Number();
  }
  return 0;
}

TEST(FormExtenderTest, WithheldPropertiesFailLikeMissingMembers) {
  FormExtender extender(u"ZKLabel1");
  extender.OfferDefaultAndCancel(false);
  extender.OfferTabStop(false);
  for (const char16_t* name : {u"Default", u"Cancel", u"TabStop", u"Colour"}) {
    SCOPED_TRACE(testing::PrintToString(std::u16string(name)));
    EXPECT_EQ(ErrorOf([&] { extender.GetProperty(name); }), error_number::kMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { extender.SetProperty(name, Variant(true)); }),
              error_number::kMemberNotFound);
  }
  EXPECT_EQ(extender.GetProperty(u"name"), Variant(u"ZKLabel1"));
  EXPECT_NE(ErrorOf([&] { extender.SetProperty(u"Name", Variant(u"Other")); }), 0);
  EXPECT_EQ(extender.Name(), u"ZKLabel1");
}

TEST(FormExtenderTest, WritesConvertNotifyAndRefuseNegativeSizes) {
  FormExtender extender(u"ZKLabel1");
  std::vector<std::u16string> written;
  auto connection = extender.PropertyWritten().Connect(
      [&](std::u16string_view name) { written.emplace_back(name); });
  extender.SetProperty(u"Top", Variant(u"120"));
  extender.SetProperty(u"TabIndex", Variant(2.5));
  extender.SetProperty(u"ToolTipText", Variant(u"a|b,c"));
  EXPECT_EQ(ErrorOf([&] { extender.SetProperty(u"Width", Variant(-1.0)); }),
            error_number::kInvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { extender.SetProperty(u"Visible", Variant(u"maybe")); }),
            error_number::kTypeMismatch);
  EXPECT_EQ(extender.Top(), 120.0);
  EXPECT_EQ(extender.TabIndex(), 2);
  EXPECT_EQ(extender.ToolTipText(), u"a|b,c");
  EXPECT_TRUE(extender.Visible());
  EXPECT_EQ(written, (std::vector<std::u16string>{u"Top", u"TabIndex", u"ToolTipText"}));

  bool control_enabled = true;
  extender.BindEnabled([&] { return control_enabled; }, [&](bool on) { control_enabled = on; });
  extender.SetProperty(u"Enabled", Variant(false));
  EXPECT_FALSE(control_enabled);
  EXPECT_EQ(extender.GetProperty(u"Enabled"), Variant(false));
}

TEST(MemoryPropertyBagTest, DefaultsAreNotStoredAndFontsAreNeverShared) {
  auto catalogue = std::make_shared<HeadlessFontCatalogue>();
  MemoryPropertyBag bag;
  bag.WriteProperty(u"Caption", Variant(u"Label"), Variant(u"Label"));
  bag.WriteProperty(u"BorderMargin", Variant(int32_t{2}), Variant(2.0));
  bag.WriteProperty(u"Alignment", Variant(int32_t{1}), Variant(int32_t{0}));
  EXPECT_FALSE(bag.Contains(u"Caption"));
  EXPECT_FALSE(bag.Contains(u"BorderMargin"));
  EXPECT_EQ(bag.ReadProperty(u"alignment", Variant(int32_t{0})), Variant(int32_t{1}));
  EXPECT_EQ(bag.ReadProperty(u"Caption", Variant(u"Label")), Variant(u"Label"));
  // Writing the default again removes a stored value.
  bag.WriteProperty(u"Alignment", Variant(int32_t{0}), Variant(int32_t{0}));
  EXPECT_FALSE(bag.Contains(u"Alignment"));

  FontRef font = StdFont::Create(catalogue);
  font->SetSize(12);
  bag.WriteProperty(u"Font", Variant(font), Variant(StdFont::Create(catalogue)));
  font->SetSize(20);
  auto first = std::dynamic_pointer_cast<StdFont>(bag.ReadProperty(u"Font", Variant()).ToObject());
  auto second = std::dynamic_pointer_cast<StdFont>(bag.ReadProperty(u"Font", Variant()).ToObject());
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->Size(), 12.0);
  EXPECT_NE(first, second);
  // A font equal to the default font is not stored.
  bag.WriteProperty(u"Font", Variant(StdFont::Create(catalogue)),
                    Variant(StdFont::Create(catalogue)));
  EXPECT_FALSE(bag.Contains(u"Font"));
}

TEST(HeadlessSiteTest, AmbientChangesAndPropertyChangesAreReported) {
  HeadlessPlatform platform(HeadlessOptions{u"en-US"});
  FormAmbient ambient(platform.NewFont());
  const WindowHandle form = platform.Windows().CreateWindow(0, u"Form", {0, 0, 400, 300});
  HeadlessControlSite site(platform, ambient, form, u"ZKLabel1");
  EXPECT_EQ(ambient.BackColor(), system_color::kButtonFace);
  EXPECT_EQ(ambient.ForeColor(), system_color::kButtonText);
  EXPECT_TRUE(ambient.UserMode());
  std::vector<std::u16string> changed;
  auto connection = site.Ambient().AmbientChanged().Connect(
      [&](std::u16string_view name) { changed.emplace_back(name); });
  ambient.SetBackColor(0xFF);
  ambient.SetUserMode(false);
  site.PropertyChanged(u"Caption");
  EXPECT_EQ(changed, (std::vector<std::u16string>{u"BackColor", u"UserMode"}));
  EXPECT_EQ(platform.Recorder().property_changes,
            (std::vector<PropertyChangeRecord>{{u"ZKLabel1", u"Caption"}}));
}

}  // namespace
}  // namespace zk
