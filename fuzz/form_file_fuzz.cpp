// Feeds form files to the form reader. A file that fails must change nothing (the form's own
// saved text stays as it was); a file that loads must save to a text that loads back on another
// form and saves to the same text again.
//
// Input: the form file's bytes, as a host would read them from disk.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/debug_utils.h"
#include "foundation/zk_error.h"
#include "hosting/headless_form.h"
#include "platform/headless/headless_platform.h"

namespace {

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

struct Fixture {
  Fixture() : scope(platform), form(platform), second(platform) {
    zk::MDebugUtils::SetTraceSink([](const zk::MDebugUtils::TraceRecord&) {});
    // Nobody reads the notifications here; kept, they would pile up from input to input.
    platform.Recorder().keep_property_changes = false;
  }
  zk::HeadlessPlatform platform;
  zk::PlatformScope scope;
  zk::HeadlessForm form;
  zk::HeadlessForm second;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Fixture* fixture = new Fixture();
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  zk::HeadlessForm& form = fixture->form;
  // Both forms are emptied when the input is done, so that a run frees what it allocated:
  // libFuzzer looks for leaks only after a run whose allocations and frees do not balance.
  struct Cleared {
    Fixture& fixture;
    ~Cleared() {
      fixture.form.RemoveAll();
      fixture.second.RemoveAll();
    }
  } cleared{*fixture};
  // A form that holds something, so that a failed load has something to keep.
  form.AddControl(u"ZKLabel", u"Kept");
  const std::string before = form.SaveText();
  try {
    form.LoadText(file);
  } catch (const zk::ZKError& error) {
    Check(error.Number() == 31037);
    Check(form.SaveText() == before);
    return 0;
  }
  const std::string saved = form.SaveText();
  fixture->second.LoadText(saved);
  Check(fixture->second.SaveText() == saved);
  return 0;
}
