#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/headless/headless_control_site.h"
#include "platform/headless/headless_platform.h"
#include "test_control.h"

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

class ControlContractTest : public testing::Test {
 protected:
  ControlContractTest()
      : platform_(HeadlessOptions{u"en-US"}),
        scope_(platform_),
        ambient_(platform_.NewFont()),
        form_(platform_.Windows().CreateWindow(0, u"Form", {0, 0, 400, 300})) {}

  std::unique_ptr<TestControl> Make(std::u16string name) {
    sites_.push_back(std::make_unique<HeadlessControlSite>(platform_, ambient_, form_, name));
    FormExtender& extender = sites_.back()->Extender();
    extender.Move(100, 200, 1500, 400);
    return std::make_unique<TestControl>(*sites_.back());
  }

  std::vector<std::u16string> Notified() {
    std::vector<std::u16string> names;
    for (const auto& record : platform_.Recorder().property_changes)
      names.push_back(record.property);
    platform_.Recorder().property_changes.clear();
    return names;
  }

  std::vector<MDebugUtils::TraceRecord> Traces() {
    auto traces = platform_.Recorder().traces;
    platform_.Recorder().traces.clear();
    return traces;
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  FormAmbient ambient_;
  WindowHandle form_;
  std::vector<std::unique_ptr<HeadlessControlSite>> sites_;
};

TEST_F(ControlContractTest, ArchiveRoundTripCopiesPropertiesAndPlaceButNotTheName) {
  auto source = Make(u"Source");
  source->SetCaption(u"a \"quoted\", text");
  source->SetCount(7);
  source->SetFlag(true);
  source->SetColour(0x8000000F);
  source->Font()->SetSize(12);
  source->SetDesignMode(true);
  source->SetControlGroup(u"group|1");
  sites_.back()->Extender().SetProperty(u"ToolTipText", Variant(u"tip, with | bar"));
  const std::u16string archive = source->GetArchiveStr();
  EXPECT_EQ(archive,
            u"\"Source\"|200|100|1500|400|T|F|F|T|\"tip, with | bar\"|0|T|,"
            u"\"a \"\"quoted\"\", text\",7,T,-2147483633,\"MS Sans Serif\"#12#F#F#F#F,T,"
            u"\"group|1\"");

  auto copy = Make(u"Copy");
  Notified();
  EXPECT_TRUE(copy->ParseArchiveStr(archive));
  EXPECT_EQ(copy->Caption(), source->Caption());
  EXPECT_EQ(copy->Count(), 7);
  EXPECT_TRUE(copy->Flag());
  EXPECT_EQ(copy->Colour(), 0x8000000Fu);
  EXPECT_EQ(copy->Font()->Size(), 12.0);
  EXPECT_NE(copy->Font(), source->Font());
  EXPECT_TRUE(copy->DesignMode());
  EXPECT_EQ(copy->ControlGroup(), u"group|1");
  FormExtender& extender = sites_.back()->Extender();
  EXPECT_EQ(extender.Name(), u"Copy");
  EXPECT_EQ(extender.Top(), 200.0);
  EXPECT_EQ(extender.ToolTipText(), u"tip, with | bar");
  // Every element went through its public setter.
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Caption", u"Count", u"Flag", u"Colour",
                                                     u"Font", u"DesignMode", u"ControlGroup"}));
  EXPECT_TRUE(Traces().empty());
}

TEST_F(ControlContractTest, ParsingStopsAtTheFirstMissingElementWithATrace) {
  struct Row {
    std::u16string archive;
    bool result;
    std::u16string trace;  // empty: no trace
    std::u16string caption;
    int32_t count;
  };
  const std::u16string block = u"\"x\"|1|2|3|4|T|F|F|T|\"\"|0|T|";
  const Row rows[] = {
      {u"", false, u"ParseArchiveStr (el: 0)", u"Test", 1},
      {block + u",\"one\",2,T,0", false, u"ParseArchiveStr (el: 5)", u"one", 2},
      {block + u",\"two\",2.5,F,0,\"Arial\"#9#F#F#F#F,F,\"\",extra,more", true, u"", u"two", 2},
      {block + u",\"three\",3.5,F,0,\"Arial\"#9#F#F#F#F,F,\"\"", true, u"", u"three", 4},
      {block + u",\"refused\",20,F,0,\"Arial\"#9#F#F#F#F,F,\"\"", true, u"", u"refused", 1},
      {block + u",\"overflow\",1E+20,F", false, u"ParseArchiveStr (el: 2)", u"overflow", 1},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.archive));
    auto control = Make(u"Target");
    EXPECT_EQ(control->ParseArchiveStr(row.archive), row.result);
    EXPECT_EQ(control->Caption(), row.caption);
    EXPECT_EQ(control->Count(), row.count);
    const auto traces = Traces();
    if (row.trace.empty()) {
      EXPECT_TRUE(traces.empty());
    } else {
      ASSERT_EQ(traces.size(), 1u);
      EXPECT_EQ(traces[0].source, u"Target");
      EXPECT_EQ(traces[0].procedure, row.trace);
    }
  }
}

TEST_F(ControlContractTest, WritingFailsWholeWhenAPropertyCannotBeRead) {
  auto control = Make(u"Broken");
  control->SetColour(13);
  EXPECT_EQ(control->GetArchiveStr(), u"");
  const auto traces = Traces();
  ASSERT_EQ(traces.size(), 1u);
  EXPECT_EQ(traces[0].procedure, u"GetArchiveStr (el: 4)");
  EXPECT_EQ(traces[0].number, error_number::kInternalError);
  EXPECT_EQ(traces[0].description, u"unreadable colour");
}

TEST_F(ControlContractTest, CloneAsksTheOtherControlByName) {
  auto source = Make(u"Source");
  source->SetCount(9);
  auto target = Make(u"Target");
  target->Clone(std::shared_ptr<TestControl>(std::move(source)));
  EXPECT_EQ(target->Count(), 9);
  EXPECT_EQ(ErrorOf([&] { target->Clone(nullptr); }), 91);
  EXPECT_EQ(ErrorOf([&] { target->Clone(std::make_shared<DispatchObject>()); }),
            error_number::kMemberNotFound);
  // Late bound, as a host calls it.
  Variant args[] = {Variant(std::shared_ptr<DispatchObject>(Make(u"Other")))};
  target->CallMethod(u"clone", args);
  EXPECT_EQ(target->Count(), 1);
}

TEST_F(ControlContractTest, TheFontIsAlwaysTheControlsOwnCopy) {
  auto control = Make(u"Fonts");
  FontRef mine = platform_.NewFont();
  control->SetFont(mine);
  EXPECT_NE(control->Font(), mine);
  const int changes = control->font_changes;
  mine->SetSize(30);
  EXPECT_EQ(control->Font()->Size(), 8.25);
  EXPECT_EQ(control->font_changes, changes);
  control->Font()->SetBold(true);  // the control's own font notifies it
  EXPECT_EQ(control->font_changes, changes + 1);

  Notified();
  control->SetFont(nullptr);
  EXPECT_TRUE(Notified().empty());
  const auto traces = Traces();
  ASSERT_EQ(traces.size(), 1u);
  EXPECT_EQ(traces[0],
            (MDebugUtils::TraceRecord{u"Fonts", u"Font (SET)", -1, u"New_Font is nothing"}));
  EXPECT_EQ(
      ErrorOf([&] { control->SetProperty(u"Font", Variant(std::make_shared<DispatchObject>())); }),
      error_number::kTypeMismatch);
}

TEST_F(ControlContractTest, MembersByNameBehaveAsTypedCalls) {
  auto control = Make(u"Named");
  control->SetProperty(u"count", Variant(u"4"));
  EXPECT_EQ(control->Count(), 4);
  control->SetProperty(u"Count", Variant(11));  // refused: no change, no notification
  EXPECT_EQ(control->GetProperty(u"COUNT"), Variant(int32_t{4}));
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Count"}));
  EXPECT_EQ(control->GetProperty(u"Colour"), Variant(int32_t{0}));
  control->SetProperty(u"Colour", Variant(u"-2147483633"));
  EXPECT_EQ(control->Colour(), 0x8000000Fu);
  const Variant index[] = {Variant(u"anything")};
  EXPECT_EQ(control->GetProperty(u"ExtraProp", index), Variant(u""));
  control->SetProperty(u"ExtraProp", Variant(u"v"), index);
  Variant action[] = {Variant(u"Do"), Variant(u"args")};
  EXPECT_EQ(control->CallMethod(u"ExtraAction", action), Variant(u""));
  for (const char16_t* missing : {u"Colours", u"Width", u""}) {
    EXPECT_EQ(ErrorOf([&] { control->GetProperty(missing); }), error_number::kMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { control->CallMethod(missing); }), error_number::kMemberNotFound);
  }
  EXPECT_EQ(ErrorOf([&] { control->SetProperty(u"hWnd", Variant(1)); }),
            error_number::kMemberNotFound);
  EXPECT_EQ(control->GetProperty(u"hWnd"), Variant(control->hWnd()));

  const AutomationTable& table = control->Automation();
  EXPECT_EQ(table.Find(u"Enabled")->dispid, dispatch_id::kEnabled);
  EXPECT_EQ(table.Find(u"Caption")->dispid, dispatch_id::kCaption);
  EXPECT_EQ(table.FindById(dispatch_id::kCaption)->name, u"Caption");
  EXPECT_EQ(table.Events()[1].name, u"Change");
  EXPECT_EQ(table.Events()[1].dispid, 2);
}

TEST_F(ControlContractTest, EventsReachObserversWithValuesAndHandlersByReference) {
  auto control = Make(u"Events");
  std::vector<std::u16string> seen;
  auto observer =
      control->EventRaised().Connect([&](std::u16string_view name, std::span<const Variant> args) {
        seen.push_back(std::u16string(name) + u"(" + args[0].ToText() + u")");
      });
  auto handler = control->Click.Connect([](int16_t& key) { key = 0; });
  int16_t key = 65;
  control->Click.Raise(key);
  EXPECT_EQ(key, 0);
  EXPECT_EQ(seen, (std::vector<std::u16string>{u"Click(65)"}));
}

TEST_F(ControlContractTest, EnabledReachesTheSurfaceAndNotifies) {
  auto control = Make(u"Switch");
  control->SetProperty(u"Enabled", Variant(false));
  EXPECT_FALSE(sites_.back()->Surface().Enabled());
  EXPECT_FALSE(control->Enabled());
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Enabled"}));
}

}  // namespace
}  // namespace zk
