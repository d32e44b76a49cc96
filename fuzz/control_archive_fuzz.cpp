// Feeds archive strings to every control kind on a headless form. A string that a control takes
// (ParseArchiveStr true) must come back the same way: its GetArchiveStr is taken by a control
// of the kind, a clone and a reading of it write the same string, and reading that string once
// more changes nothing. The controls' names differ, and a name is the one field that a reading
// never sets, so it is left out of the comparison. A string that is refused must leave no crash, no
// leak and no exception behind.
//
// Input: a kind's name, a line break and the archive string in UTF-8; a first line that names no
// kind picks one by its bytes, so that mutated names still reach every kind. Seeds stay valid
// when kinds are added.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control_kinds.h"
#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "framework/control.h"
#include "hosting/headless_form.h"
#include "platform/headless/headless_platform.h"

namespace {

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

// The archive string with the extender block's first field (the name) left out.
std::vector<std::u16string> WithoutName(std::u16string_view archive) {
  std::vector<std::u16string> elements = zk::MArchiveUtils::ArchiveSplitElements(archive);
  if (elements.empty()) return elements;
  std::vector<std::u16string> block =
      zk::MArchiveUtils::ArchiveSplit(elements[0], zk::MArchiveUtils::kBlockSeparator, false);
  if (!block.empty()) block.erase(block.begin());
  elements[0] = zk::MArchiveUtils::ArchiveJoin(block, zk::MArchiveUtils::kBlockSeparator);
  return elements;
}

struct Fixture {
  Fixture() : scope(platform), form(platform) {
    // Refused strings trace; the lines themselves do not matter here.
    zk::MDebugUtils::SetTraceSink([](const zk::MDebugUtils::TraceRecord&) {});
    // Nobody reads the notifications here; kept, they would pile up from input to input.
    platform.Recorder().keep_property_changes = false;
  }
  zk::HeadlessPlatform platform;
  zk::PlatformScope scope;
  zk::HeadlessForm form;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Fixture* fixture = new Fixture();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t line_end = std::min(input.find('\n'), input.size());
  const std::u16string name = zk::Utf8ToUtf16(input.substr(0, line_end));
  const auto kinds = zk::ControlKinds();
  const zk::ControlKind* kind = nullptr;
  size_t hash = 0;
  for (const zk::ControlKind& candidate : kinds) {
    if (candidate.name == name) kind = &candidate;
  }
  for (char16_t c : name)
    hash = hash * 31 + c;
  if (kind == nullptr) kind = &kinds[hash % kinds.size()];
  const std::u16string archive =
      zk::Utf8ToUtf16(input.substr(std::min(line_end + 1, input.size())));

  zk::HeadlessForm& form = fixture->form;
  // The controls go when the input is done, so that a run frees what it allocated: libFuzzer
  // looks for leaks only after a run whose allocations and frees do not balance.
  struct Cleared {
    zk::HeadlessForm& form;
    ~Cleared() { form.RemoveAll(); }
  } cleared{form};
  zk::ZKControl& first = form.AddControl(kind->name, u"A");
  bool taken = false;
  try {
    taken = first.ParseArchiveStr(archive);
  } catch (const zk::ZKError&) {
    // Some elements raise to the host (an overflow, a division by zero): allowed, not a taking.
    taken = false;
  }
  if (!taken) return 0;

  // What the control writes is taken again. Reading it may settle a value that the first
  // control held in a state no reading makes (a progress bar showing its value keeps a host's
  // caption only until the next redraw, and the anchor, written after the caption, redraws);
  // from the clone on, the string is a fixed point.
  const std::u16string written = first.GetArchiveStr();
  zk::ZKControl& second = form.AddControl(kind->name, u"B");
  second.Clone(form.ControlRef(u"A"));
  const std::u16string cloned = second.GetArchiveStr();
  zk::ZKControl& third = form.AddControl(kind->name, u"C");
  Check(third.ParseArchiveStr(written));
  Check(WithoutName(third.GetArchiveStr()) == WithoutName(cloned));
  zk::ZKControl& fourth = form.AddControl(kind->name, u"D");
  Check(fourth.ParseArchiveStr(cloned));
  Check(WithoutName(fourth.GetArchiveStr()) == WithoutName(cloned));
  return 0;
}
