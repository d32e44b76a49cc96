// The folders are the build targets, and a target may only use the targets below it. The compiler
// cannot tell: every target sees the repository root on its include path. This test reads every
// source file and fails on an include that crosses a layer the wrong way, naming file and line.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Which project folders a folder's files may include from. A deeper folder is judged by its own
// row (platform/common/ is not platform/). Folders of the same target include each other freely.
struct LayerRule {
  std::string folder;
  std::vector<std::string> may_include;
};

const std::vector<LayerRule>& Rules() {
  static const std::vector<LayerRule> rules = {
      {"foundation/", {"foundation/"}},
      {"enumerations/", {}},
      {"models/", {"foundation/", "enumerations/", "models/"}},
      // The interfaces: no backend and no code shared by the backends.
      {"platform/", {"foundation/", "platform/"}},
      {"platform/common/", {"foundation/", "platform/", "platform/common/"}},
      {"platform/icu/", {"foundation/", "platform/", "platform/icu/"}},
      {"platform/headless/",
       {"foundation/", "platform/", "platform/common/", "platform/icu/", "platform/headless/"}},
      {"platform/qt/",
       {"foundation/", "platform/", "platform/common/", "platform/icu/", "platform/qt/"}},
      {"services/", {"foundation/", "platform/", "services/"}},
      {"framework/", {"foundation/", "enumerations/", "platform/", "services/", "framework/"}},
      // Controls run on any platform: they see the interfaces only.
      {"controls/",
       {"foundation/", "enumerations/", "models/", "platform/", "services/", "framework/",
        "controls/"}},
      // The host builds forms on each backend: it sees the whole library, but no program or test.
      {"hosting/",
       {"foundation/", "enumerations/", "models/", "platform/", "platform/common/", "platform/icu/",
        "platform/headless/", "platform/qt/", "services/", "framework/", "controls/", "hosting/"}},
  };
  return rules;
}

// Folders whose own row is a narrower one: an include of platform/common/x.h is judged against
// "platform/common/", not against "platform/".
const std::vector<std::string>& KnownFolders() {
  static const std::vector<std::string> folders = [] {
    std::vector<std::string> all = {"apps/", "bench/", "fuzz/", "tests/"};
    for (const LayerRule& rule : Rules())
      all.push_back(rule.folder);
    return all;
  }();
  return folders;
}

// The deepest known folder that `path` (relative to the root, '/' separated) lies in.
std::string FolderOf(std::string_view path) {
  std::string best;
  for (const std::string& folder : KnownFolders()) {
    if (path.substr(0, folder.size()) == folder && folder.size() > best.size()) best = folder;
  }
  if (best.empty()) {
    const std::size_t slash = path.find('/');
    best = std::string(path.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
  }
  return best;
}

const LayerRule* RuleFor(std::string_view folder) {
  for (const LayerRule& rule : Rules()) {
    if (rule.folder == folder) return &rule;
  }
  return nullptr;
}

// A project include is one that names a folder of the repository ("platform/host.h").
bool MayInclude(const LayerRule& rule, std::string_view included) {
  const std::string target = FolderOf(included);
  return std::find(rule.may_include.begin(), rule.may_include.end(), target) !=
         rule.may_include.end();
}

// Qt may be used by the Qt backend, the Qt form host, and the programs around the library.
bool MayUseQt(std::string_view path) {
  for (std::string_view prefix : {"platform/qt/", "hosting/qt_", "apps/", "bench/", "tests/"}) {
    if (path.substr(0, prefix.size()) == prefix) return true;
  }
  return false;
}

bool MayUseIcu(std::string_view path) {
  return path.substr(0, 13) == "platform/icu/" || path.substr(0, 6) == "tests/";
}

struct Violation {
  std::string file;
  int line;
  std::string text;
};

// Every forbidden include of one file, given by its path relative to the root.
std::vector<Violation> CheckFile(const std::string& relative, std::istream& in) {
  static const std::regex project_include(R"re(^\s*#\s*include\s*"([^"]+)")re");
  static const std::regex system_include(R"re(^\s*#\s*include\s*<([^>]+)>)re");
  std::vector<Violation> found;
  const LayerRule* rule = RuleFor(FolderOf(relative));
  std::string line;
  int number = 0;
  while (std::getline(in, line)) {
    ++number;
    std::smatch match;
    if (std::regex_search(line, match, project_include)) {
      if (rule != nullptr && !MayInclude(*rule, match[1].str())) {
        found.push_back({relative, number, line});
      }
    } else if (std::regex_search(line, match, system_include)) {
      const std::string header = match[1].str();
      const bool qt = header.size() > 1 && header[0] == 'Q' &&
                      (std::isupper(static_cast<unsigned char>(header[1])) || header[1] == 't');
      const bool icu = header.rfind("unicode/", 0) == 0;
      if ((qt && !MayUseQt(relative)) || (icu && !MayUseIcu(relative))) {
        found.push_back({relative, number, line});
      }
    }
  }
  return found;
}

std::vector<Violation> CheckText(const std::string& relative, const std::string& text) {
  std::istringstream in(text);
  return CheckFile(relative, in);
}

TEST(LayerRules, JudgeIncludesByTheDeepestFolder) {
  struct Case {
    const char* file;
    const char* include;
    bool allowed;
  };
  const Case cases[] = {
      {"controls/display/label.cpp", "#include \"platform/surface.h\"", true},
      {"controls/display/label.cpp", "#include \"platform/common/element_state.h\"", false},
      {"controls/display/label.cpp", "#include \"platform/headless/headless_surface.h\"", false},
      {"controls/display/label.cpp", "#include \"platform/qt/qt_surface.h\"", false},
      {"controls/display/label.cpp", "#include \"hosting/form.h\"", false},
      {"controls/text/text_edit.cpp", "#include \"models/typed_text_model.h\"", true},
      {"models/typed_text_model.cpp", "#include \"platform/locale.h\"", false},
      {"models/typed_text_model.cpp", "#include \"framework/control.h\"", false},
      {"models/typed_text_model.cpp", "#include \"enumerations/enumerations.h\"", true},
      {"foundation/variant.cpp", "#include \"platform/types.h\"", false},
      {"enumerations/enumerations.h", "#include \"foundation/variant.h\"", false},
      {"platform/host.h", "#include \"platform/common/form_extender.h\"", false},
      {"platform/common/form_extender.h", "#include \"platform/host.h\"", true},
      {"platform/headless/headless_surface.h", "#include \"platform/qt/qt_surface.h\"", false},
      {"framework/control.h", "#include \"models/typed_text_model.h\"", false},
      {"hosting/form.cpp", "#include \"apps/gallery.h\"", false},
      {"hosting/form.cpp", "#include \"tests/support/test_composite.h\"", false},
      {"controls/display/label.cpp", "#include <QWidget>", false},
      {"platform/qt/qt_surface.cpp", "#include <QWidget>", true},
      {"hosting/qt_form.cpp", "#include <QtWidgets/QWidget>", true},
      {"hosting/form.cpp", "#include <QWidget>", false},
      {"platform/common/surface_base.cpp", "#include <unicode/coll.h>", false},
      {"platform/icu/icu_locale.cpp", "#include <unicode/coll.h>", true},
      {"controls/display/label.cpp", "#include <queue>", true},
  };
  for (const Case& c : cases) {
    const std::vector<Violation> found = CheckText(c.file, std::string(c.include) + "\n");
    EXPECT_EQ(found.empty(), c.allowed) << c.file << ": " << c.include;
  }
}

TEST(LayerRules, NameTheLineOfEachForbiddenInclude) {
  const std::vector<Violation> found =
      CheckText("controls/buttons/color_button.cpp",
                "#include <string>\n#include \"framework/control.h\"\n#include "
                "\"platform/qt/qt_surface.h\"\n");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].line, 3);
}

TEST(Layers, NoSourceFileIncludesAcrossItsLayer) {
  const fs::path root(ZK_SOURCE_DIR);
  std::vector<std::string> report;
  int files = 0;
  for (const LayerRule& rule : Rules()) {
    const fs::path folder = root / rule.folder;
    ASSERT_TRUE(fs::is_directory(folder)) << folder;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
      const std::string extension = entry.path().extension().string();
      if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
      const std::string relative = fs::relative(entry.path(), root).generic_string();
      // Subfolders with their own row are read when their row comes up.
      if (FolderOf(relative) != rule.folder) continue;
      std::ifstream in(entry.path());
      ASSERT_TRUE(in) << relative;
      ++files;
      for (const Violation& v : CheckFile(relative, in)) {
        report.push_back(v.file + ":" + std::to_string(v.line) + ": " + v.text);
      }
    }
  }
  // Programs and tests may use Qt and the whole library, but ICU stays in its backend.
  for (const char* folder : {"apps/", "bench/", "fuzz/"}) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / folder)) {
      if (!entry.is_regular_file()) continue;
      const std::string relative = fs::relative(entry.path(), root).generic_string();
      std::ifstream in(entry.path());
      for (const Violation& v : CheckFile(relative, in)) {
        report.push_back(v.file + ":" + std::to_string(v.line) + ": " + v.text);
      }
    }
  }
  EXPECT_GT(files, 100) << "the source folders were not found under " << root;
  std::string joined;
  for (const std::string& line : report)
    joined += line + "\n";
  EXPECT_TRUE(report.empty()) << "includes that cross a layer:\n" << joined;
}

}  // namespace
