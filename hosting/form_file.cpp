#include "hosting/form_file.h"

#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "foundation/dispatch_object.h"
#include "foundation/string_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "platform/picture.h"
#include "platform/std_font.h"

namespace zk {
namespace {

constexpr std::string_view kHeader = "ZKBaseGUIControls form 1";
constexpr int32_t kErrorLoadingFromFile = 31037;

constexpr std::array<std::u16string_view, 10> kExtenderKeys = {
    u"Left",    u"Top",    u"Width",       u"Height",   u"Visible",
    u"Default", u"Cancel", u"ToolTipText", u"TabIndex", u"TabStop"};

bool IsExtenderKey(std::u16string_view key) {
  for (std::u16string_view known : kExtenderKeys) {
    if (MemberNameEquals(known, key)) return true;
  }
  return false;
}

std::u16string QuoteText(std::u16string_view text) {
  std::u16string out = u"\"";
  for (char16_t c : text) {
    switch (c) {
      case u'"':
        out += u"\\\"";
        break;
      case u'\\':
        out += u"\\\\";
        break;
      case u'\r':
        out += u"\\r";
        break;
      case u'\n':
        out += u"\\n";
        break;
      case u'\t':
        out += u"\\t";
        break;
      default:
        if (c < 0x20) {
          char buffer[8];
          std::snprintf(buffer, sizeof buffer, "\\u%04X", static_cast<unsigned>(c));
          out += Utf8ToUtf16(buffer);
        } else {
          out.push_back(c);
        }
    }
  }
  return out + u"\"";
}

std::u16string NumberText(double value) {
  return MStringUtils::FormatNumberText(value, u".", -1, false);
}

std::u16string BoolText(bool value) {
  return value ? u"True" : u"False";
}

// Pixels as bytes, each 0xAARRGGBB value least significant byte first.
std::vector<uint8_t> PixelBytes(const std::vector<uint32_t>& pixels) {
  std::vector<uint8_t> bytes;
  bytes.reserve(pixels.size() * 4);
  for (const uint32_t pixel : pixels) {
    for (int shift = 0; shift < 32; shift += 8)
      bytes.push_back(static_cast<uint8_t>(pixel >> shift));
  }
  return bytes;
}

std::u16string ValueText(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::kBoolean:
      return BoolText(value.ToBool());
    case Variant::Type::kInteger:
    case Variant::Type::kDouble:
      return NumberText(value.ToDouble());
    case Variant::Type::kString:
      return QuoteText(value.ToText());
    case Variant::Type::kEmpty:
      return u"Empty";
    case Variant::Type::kObject:
      if (auto font = std::dynamic_pointer_cast<StdFont>(value.ToObject())) {
        return u"Font(" + QuoteText(font->Name()) + u", " + NumberText(font->Size()) + u", " +
               NumberText(font->Weight()) + u", " + BoolText(font->Italic()) + u", " +
               BoolText(font->Underline()) + u", " + BoolText(font->Strikethrough()) + u", " +
               NumberText(font->Charset()) + u")";
      }
      if (auto picture = std::dynamic_pointer_cast<Picture>(value.ToObject())) {
        return u"Picture(" + NumberText(picture->WidthPixels()) + u", " +
               NumberText(picture->HeightPixels()) + u", " +
               QuoteText(Utf8ToUtf16(Base64Encode(PixelBytes(picture->Pixels())))) + u")";
      }
      break;
  }
  return u"Nothing";
}

// Reads one value at `pos` of a line; throws std::invalid_argument with a reason.
class ValueReader {
 public:
  ValueReader(std::u16string_view text, std::shared_ptr<const IFontCatalogue> fonts,
              IPictureLoader& pictures)
      : text_(text), fonts_(std::move(fonts)), pictures_(pictures) {}

  Variant ReadWhole() {
    Variant value = Read();
    SkipBlanks();
    if (pos_ != text_.size()) throw std::invalid_argument("unexpected text after the value");
    return value;
  }

 private:
  void SkipBlanks() {
    while (pos_ < text_.size() && (text_[pos_] == u' ' || text_[pos_] == u'\t'))
      ++pos_;
  }

  bool Consume(std::u16string_view word) {
    SkipBlanks();
    if (text_.substr(pos_, word.size()) != word) return false;
    pos_ += word.size();
    return true;
  }

  void Expect(std::u16string_view word) {
    if (!Consume(word)) throw std::invalid_argument("expected '" + Utf16ToUtf8(word) + "'");
  }

  Variant Read() {
    SkipBlanks();
    if (pos_ >= text_.size()) throw std::invalid_argument("missing value");
    if (text_[pos_] == u'"') return Variant(ReadText());
    if (Consume(u"True")) return Variant(true);
    if (Consume(u"False")) return Variant(false);
    if (Consume(u"Empty")) return Variant();
    if (Consume(u"Font(")) return ReadFont();
    if (Consume(u"Picture(")) return ReadPicture();
    return Variant(ReadNumber());
  }

  std::u16string ReadText() {
    ++pos_;  // the opening quote
    std::u16string out;
    while (pos_ < text_.size() && text_[pos_] != u'"') {
      char16_t c = text_[pos_++];
      if (c == u'\\') {
        if (pos_ >= text_.size()) break;
        const char16_t escape = text_[pos_++];
        switch (escape) {
          case u'r':
            c = u'\r';
            break;
          case u'n':
            c = u'\n';
            break;
          case u't':
            c = u'\t';
            break;
          case u'u': {
            if (pos_ + 4 > text_.size()) throw std::invalid_argument("short \\u escape");
            c = 0;
            for (int i = 0; i < 4; ++i) {
              const char16_t h = text_[pos_++];
              const int digit = (h >= u'0' && h <= u'9')   ? h - u'0'
                                : (h >= u'A' && h <= u'F') ? h - u'A' + 10
                                : (h >= u'a' && h <= u'f') ? h - u'a' + 10
                                                           : -1;
              if (digit < 0) throw std::invalid_argument("bad \\u escape");
              c = static_cast<char16_t>(c * 16 + digit);
            }
            break;
          }
          default:
            c = escape;  // \" and \\ stand for themselves
        }
      }
      out.push_back(c);
    }
    if (pos_ >= text_.size()) throw std::invalid_argument("text without its closing quote");
    ++pos_;
    return out;
  }

  double ReadNumber() {
    SkipBlanks();
    const size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] != u',' && text_[pos_] != u')' &&
           text_[pos_] != u' ' && text_[pos_] != u'\t') {
      ++pos_;
    }
    const std::u16string_view number = text_.substr(start, pos_ - start);
    if (!MStringUtils::IsNumberText(number)) {
      throw std::invalid_argument("not a value: " + Utf16ToUtf8(number));
    }
    return MStringUtils::ParseNumberText(number, u".");
  }

  Variant ReadFont() {
    FontRef font = StdFont::Create(fonts_);
    SkipBlanks();
    if (pos_ >= text_.size() || text_[pos_] != u'"') throw std::invalid_argument("font name");
    const std::u16string name = ReadText();
    Expect(u",");
    const double size = ReadNumber();
    Expect(u",");
    const double weight = ReadNumber();
    Expect(u",");
    const bool italic = ReadBool();
    Expect(u",");
    const bool underline = ReadBool();
    Expect(u",");
    const bool strikethrough = ReadBool();
    Expect(u",");
    const double charset = ReadNumber();
    Expect(u")");
    font->SetName(name);
    font->SetSize(size);
    font->SetWeight(Variant(weight).ToInt16());
    font->SetItalic(italic);
    font->SetUnderline(underline);
    font->SetStrikethrough(strikethrough);
    font->SetCharset(Variant(charset).ToInt16());
    return Variant(font);
  }

  Variant ReadPicture() {
    const double width = ReadNumber();
    Expect(u",");
    const double height = ReadNumber();
    Expect(u",");
    SkipBlanks();
    if (pos_ >= text_.size() || text_[pos_] != u'"') throw std::invalid_argument("picture pixels");
    const std::optional<std::vector<uint8_t>> bytes = Base64Decode(Utf16ToUtf8(ReadText()));
    Expect(u")");
    if (!bytes || bytes->size() % 4 != 0) throw std::invalid_argument("picture pixels");
    if (!(width >= 1 && width <= INT32_MAX && height >= 1 && height <= INT32_MAX)) {
      throw std::invalid_argument("picture size");
    }
    std::vector<uint32_t> pixels(bytes->size() / 4);
    for (size_t i = 0; i < pixels.size(); ++i) {
      const uint8_t* b = bytes->data() + 4 * i;
      pixels[i] =
          uint32_t{b[0]} | (uint32_t{b[1]} << 8) | (uint32_t{b[2]} << 16) | (uint32_t{b[3]} << 24);
    }
    try {
      return Variant(pictures_.MakePicture(static_cast<int32_t>(width),
                                           static_cast<int32_t>(height), std::move(pixels)));
    } catch (const ZKError&) {
      throw std::invalid_argument("pixels that do not fill the picture");
    }
  }

  bool ReadBool() {
    if (Consume(u"True")) return true;
    if (Consume(u"False")) return false;
    throw std::invalid_argument("expected True or False");
  }

  std::u16string_view text_;
  std::shared_ptr<const IFontCatalogue> fonts_;
  IPictureLoader& pictures_;
  size_t pos_ = 0;
};

std::u16string_view Trim(std::u16string_view text) {
  while (!text.empty() && (text.front() == u' ' || text.front() == u'\t'))
    text.remove_prefix(1);
  while (!text.empty() && (text.back() == u' ' || text.back() == u'\t' || text.back() == u'\r')) {
    text.remove_suffix(1);
  }
  return text;
}

[[noreturn]] void Fail(size_t line, const std::string& reason) {
  throw ZKError(kErrorLoadingFromFile, u"Error loading from file (line " +
                                           Utf8ToUtf16(std::to_string(line)) + u"): " +
                                           Utf8ToUtf16(reason));
}

}  // namespace

std::span<const std::u16string_view> FormFileExtenderKeys() {
  return kExtenderKeys;
}

namespace {

void WriteBlocks(const std::vector<FormFileControl>& controls, const std::u16string& indent,
                 std::u16string& out) {
  for (const FormFileControl& control : controls) {
    out += indent + u"Begin " + control.kind + u" " + control.name + u"\n";
    for (const auto* bag : {&control.extender, &control.properties}) {
      for (const auto& [key, value] : bag->Entries()) {
        out += indent + u"  " + key + u" = " + ValueText(value) + u"\n";
      }
    }
    WriteBlocks(control.contained, indent + u"  ", out);
    out += indent + u"End\n";
  }
}

}  // namespace

std::string WriteFormFile(const FormFile& form) {
  std::u16string out = Utf8ToUtf16(kHeader) + u"\n";
  WriteBlocks(form.controls, u"", out);
  return Utf16ToUtf8(out);
}

FormFile ReadFormFile(std::string_view text, std::shared_ptr<const IFontCatalogue> fonts,
                      IPictureLoader& pictures) {
  const std::u16string all = Utf8ToUtf16(text);
  FormFile form;
  // The blocks that are open, outermost first; the last one takes the values and the blocks
  // that begin inside it. Only the innermost one grows, so the others stay where they are.
  std::vector<FormFileControl*> open;
  bool header_seen = false;
  size_t line_number = 0;
  size_t start = 0;
  while (start <= all.size()) {
    size_t end = all.find(u'\n', start);
    if (end == std::u16string::npos) end = all.size();
    const std::u16string_view line = Trim(std::u16string_view(all).substr(start, end - start));
    start = end + 1;
    ++line_number;
    if (line.empty() || line.front() == u'\'') continue;
    if (!header_seen) {
      if (Utf16ToUtf8(line) != kHeader) Fail(line_number, "not a form file");
      header_seen = true;
    } else if (line.starts_with(u"Begin ")) {
      const std::u16string_view rest = Trim(line.substr(6));
      const size_t blank = rest.find(u' ');
      if (blank == std::u16string_view::npos) Fail(line_number, "Begin needs a kind and a name");
      if (open.size() >= kMaxContainerNesting) Fail(line_number, "controls nested too deeply");
      std::vector<FormFileControl>& siblings =
          open.empty() ? form.controls : open.back()->contained;
      siblings.push_back({std::u16string(rest.substr(0, blank)),
                          std::u16string(Trim(rest.substr(blank + 1))),
                          {},
                          {},
                          {}});
      open.push_back(&siblings.back());
    } else if (line == u"End") {
      if (open.empty()) Fail(line_number, "End without Begin");
      open.pop_back();
    } else {
      if (open.empty()) Fail(line_number, "a property outside a control");
      FormFileControl* current = open.back();
      const size_t equals = line.find(u'=');
      if (equals == std::u16string_view::npos) Fail(line_number, "expected KEY = VALUE");
      const std::u16string key(Trim(line.substr(0, equals)));
      Variant value;
      try {
        value = ValueReader(line.substr(equals + 1), fonts, pictures).ReadWhole();
      } catch (const std::invalid_argument& error) {
        Fail(line_number, error.what());
      } catch (const ZKError& error) {
        Fail(line_number, Utf16ToUtf8(error.Description()));
      }
      MemoryPropertyBag& bag = IsExtenderKey(key) ? current->extender : current->properties;
      bag.Store(key, value);
    }
  }
  if (!header_seen) Fail(line_number, "empty file");
  if (!open.empty()) Fail(line_number, "the last control has no End");
  return form;
}

}  // namespace zk
