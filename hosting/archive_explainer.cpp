#include "hosting/archive_explainer.h"

#include <array>
#include <utility>

#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "foundation/string_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr std::array<std::u16string_view, 12> kExtenderFields = {
    u"Name",    u"Top",    u"Left",    u"Width",       u"Height",   u"Visible",
    u"Default", u"Cancel", u"Enabled", u"ToolTipText", u"TabIndex", u"TabStop"};
constexpr std::array<std::u16string_view, 6> kFontFields = {
    u"Name", u"Size", u"Bold", u"Italic", u"Underline", u"Strikethrough"};
constexpr std::array<ArchiveKind, 12> kExtenderKinds = {
    ArchiveKind::kText,   ArchiveKind::kNumber, ArchiveKind::kNumber, ArchiveKind::kNumber,
    ArchiveKind::kNumber, ArchiveKind::kBool,   ArchiveKind::kBool,   ArchiveKind::kBool,
    ArchiveKind::kBool,   ArchiveKind::kText,   ArchiveKind::kNumber, ArchiveKind::kBool};

std::u16string Padded(std::u16string text, size_t width) {
  text.append(text.size() < width ? width - text.size() : 1, u' ');
  return text;
}

std::u16string Index(size_t index) {
  std::u16string number = Utf8ToUtf16(std::to_string(index));
  return std::u16string(number.size() < 3 ? 3 - number.size() : 0, u' ') + number;
}

std::u16string Decoded(ArchiveKind kind, std::u16string_view element) {
  // An empty field is one that the host does not offer for the control.
  if (element.empty() && kind != ArchiveKind::kText) return u"(empty: reads as 0 or False)";
  switch (kind) {
    case ArchiveKind::kText:
      return u"text \"" + MArchiveUtils::ArchiveUnescapeString(element) + u"\"";
    case ArchiveKind::kNumber: {
      std::u16string shown =
          u"number " + MStringUtils::FormatNumberText(MArchiveUtils::ArchiveUnescapeNumber(element),
                                                      u".", -1, false);
      if (!MStringUtils::IsNumberText(element)) shown += u" (not a number: reads as 0)";
      return shown;
    }
    case ArchiveKind::kBool: {
      std::u16string shown = MArchiveUtils::ArchiveUnescapeBool(element) ? u"True" : u"False";
      if (element != u"T" && element != u"F") shown += u" (only \"T\" is true)";
      return shown;
    }
    case ArchiveKind::kFont:
      return u"font";
    case ArchiveKind::kStringList: {
      const size_t count = element.empty() ? 0 : MArchiveUtils::ArchiveSplitStrings(element).size();
      return u"string list of " + Utf8ToUtf16(std::to_string(count)) +
             (count == 1 ? u" text" : u" texts");
    }
  }
  return {};
}

}  // namespace

std::vector<std::u16string> ExplainArchive(Form& form, std::u16string_view kind,
                                           std::u16string_view archive) {
  const std::u16string probe_name = u"ArchiveExplainProbe";
  ZKControl& probe = form.AddControl(kind, probe_name);
  std::vector<std::u16string> lines;
  const std::span<const ArchiveField> fields = probe.ArchiveFields();
  const std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(archive);
  const size_t expected = fields.size() + 1;
  lines.push_back(std::u16string(probe.Kind()) + u": " + Utf8ToUtf16(std::to_string(expected)) +
                  u" elements expected, " + Utf8ToUtf16(std::to_string(elements.size())) +
                  u" found");
  for (size_t i = 0; i < std::max(expected, elements.size()); ++i) {
    if (i >= expected) {
      lines.push_back(Index(i) + u"  " + Padded(u"(extra, ignored)", 22) + elements[i]);
      continue;
    }
    const std::u16string what = i == 0
                                    ? u"extender block"
                                    : (fields[i - 1].property.empty()
                                           ? u"(" + std::u16string(fields[i - 1].description) + u")"
                                           : std::u16string(fields[i - 1].property));
    if (i >= elements.size()) {
      lines.push_back(Index(i) + u"  " + Padded(what, 22) + u"MISSING");
      continue;
    }
    const std::u16string& element = elements[i];
    if (i == 0) {
      lines.push_back(Index(i) + u"  " + Padded(what, 22) + element);
      const auto parts = MArchiveUtils::ArchiveSplit(element, MArchiveUtils::kBlockSeparator, true);
      if (parts.size() != kExtenderFields.size()) {
        lines.push_back(u"       wrong number of fields: " +
                        Utf8ToUtf16(std::to_string(parts.size())) +
                        u", expected 12 (the block is ignored)");
      }
      for (size_t f = 0; f < std::min(parts.size(), kExtenderFields.size()); ++f) {
        lines.push_back(u"       " + Padded(std::u16string(kExtenderFields[f]), 15) +
                        Decoded(kExtenderKinds[f], parts[f]) +
                        (f == 0 ? u" (not applied: a control keeps its own name)" : u""));
      }
      continue;
    }
    const ArchiveField& field = fields[i - 1];
    lines.push_back(Index(i) + u"  " + Padded(what, 22) + Decoded(field.kind, element));
    if (field.kind == ArchiveKind::kStringList && !element.empty()) {
      const std::vector<std::u16string> texts = MArchiveUtils::ArchiveSplitStrings(element);
      for (size_t t = 0; t < texts.size(); ++t) {
        lines.push_back(u"       " + Padded(u"[" + Utf8ToUtf16(std::to_string(t)) + u"]", 15) +
                        u"text \"" + texts[t] + u"\"");
      }
    }
    if (field.kind == ArchiveKind::kFont) {
      const auto parts = MArchiveUtils::ArchiveSplit(element, MArchiveUtils::kFontSeparator, false);
      if (parts.size() < kFontFields.size()) {
        lines.push_back(u"       fewer than six fields: the default font");
      }
      const std::array<ArchiveKind, 6> font_kinds = {ArchiveKind::kText, ArchiveKind::kNumber,
                                                     ArchiveKind::kBool, ArchiveKind::kBool,
                                                     ArchiveKind::kBool, ArchiveKind::kBool};
      for (size_t f = 0; f < std::min(parts.size(), kFontFields.size()); ++f) {
        lines.push_back(u"       " + Padded(std::u16string(kFontFields[f]), 15) +
                        Decoded(font_kinds[f], parts[f]));
      }
    }
  }
  // What a control of the kind makes of the string.
  std::vector<MDebugUtils::TraceRecord> traces;
  auto previous = MDebugUtils::SetTraceSink(
      [&traces](const MDebugUtils::TraceRecord& record) { traces.push_back(record); });
  const bool accepted = probe.ParseArchiveStr(archive);
  MDebugUtils::SetTraceSink(std::move(previous));
  lines.push_back(accepted ? u"ParseArchiveStr: True" : u"ParseArchiveStr: False");
  for (auto& record : traces) {
    if (record.source == probe_name) record.source = probe.Kind();
    lines.push_back(u"  trace: " + MDebugUtils::FormatTraceLine(record));
  }
  form.RemoveControl(probe_name);
  return lines;
}

}  // namespace zk
