#include "case_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

namespace case_file {
namespace {

namespace fs = std::filesystem;

std::string replaced(std::string text, std::string const& from, std::string const& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

// "\n", "\s" for a blank, "\xC6" and the like.
std::string decoded(std::string const& text) {
  static std::string const letters = "nrtvfs0\\";
  static std::string const meant("\n\r\t\v\f \0\\", 8);
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
    if (auto const at = letters.find(next); next != '\0' && at != std::string::npos) {
      result += meant[at];
      ++i;
    } else if (next == 'x' && i + 3 < text.size()) {
      result += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
      i += 3;
    } else {
      result += text[i];
    }
  }
  return result;
}

words pieces_of(std::string const& text, std::string const& separator) {
  words pieces;
  for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + separator.size()) {
    end = text.find(separator, at);
    pieces.push_back(text.substr(at, end - at));
  }
  return pieces;
}

// Splits a line as a shell does. All quotes are double ones.
words shell_words(std::string const& text) {
  words parts;
  std::istringstream stream(text);
  for (std::string word; stream >> std::ws && !stream.eof();) {
    bool const quoted = stream.peek() == '"';
    if (quoted) stream.get();
    std::getline(stream, word, quoted ? '"' : ' ');
    parts.push_back(decoded(word));
  }
  return parts;
}

// "..." stands for any text, and "+-0.01" at the end for numbers that are so near.
bool fits(std::string const& text, std::string const& wanted) {
  if (auto const mark = wanted.rfind(" +-"); mark != std::string::npos) {
    std::istringstream numbers(text);
    std::istringstream others(wanted.substr(0, mark));
    double number = 0;
    double other = 0;
    while (others >> other)
      if (!(numbers >> number) || !(std::abs(number - other) <= std::stod(wanted.substr(mark + 3))))
        return false;
    return !(numbers >> number) && others.eof();
  }
  auto const pieces = pieces_of(wanted, "...");
  if (pieces.size() == 1) return text == wanted;
  if (!text.starts_with(pieces.front())) return false;
  std::size_t at = pieces.front().size();
  for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
    at = text.find(pieces[i], at);
    if (at == std::string::npos) return false;
    at += pieces[i].size();
  }
  return text.size() >= at + pieces.back().size() && text.ends_with(pieces.back());
}

// Lines of a text that "< ", "> " and other marks begin; "\c" ends the last one
// without a line's end.
struct marked_lines {
  void add(std::string const& line) {
    bool const open = line.ends_with("\\c");
    text += decoded(open ? line.substr(0, line.size() - 2) : line) + (open ? "" : "\n");
  }
  std::string text;
};

OPERATION(put) {
  std::ofstream(in.path(a.at(0)), std::ios::binary)
      << (a.size() > 1 ? a[1] : in.with_folder(in.input));
  return "";
}

OPERATION(cat) {
  std::ifstream stream(in.path(a.at(0)), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

OPERATION(mkdir) { return fs::create_directories(in.path(a.at(0))) ? "" : "no"; }

OPERATION(cd) {
  fs::current_path(in.path(""));
  return "";
}

OPERATION(env) {
  core_test::set_variable(a.at(0).c_str(), a.at(1).c_str());
  return "";
}

class Tfile {
 public:
  explicit Tfile(fs::path file) : file_(std::move(file)) {}

  void run() {
    std::ifstream stream(file_);
    while (std::getline(stream, line_)) {
      ++number_;
      take(line_);
    }
    finish();
    EXPECT_GT(cases_, 0U) << file_;
  }

 private:
  void take(std::string const& raw) {
    if (raw.starts_with('#')) return;
    std::string const line = expanded(raw);
    if (line.starts_with("< ") || line == "<")
      return input_.add(line.substr(line.size() < 2 ? 1 : 2));
    if (line.starts_with("> ") || line == ">")
      return wanted_.add(line.substr(line.size() < 2 ? 1 : 2));
    if (line.starts_with("! ") || line.starts_with("? ")) return wanted_.add(line);
    finish();
    if (line.empty()) return;
    auto const arrow = line.rfind(" =>");
    if (line.starts_with("let ")) {
      auto const equals = line.find(" = ");
      macros_[line.substr(4, equals - 4)] = line.substr(equals + 3);
    } else if (line[0] == '[' && arrow == std::string::npos) {
      section_ = shell_words(line.substr(1, line.find(']') - 1));
      wrap_ = {"%", "%"};
    } else if (line.starts_with("wrap ")) {
      wrap_ = {line.substr(5, arrow - 5), line.substr(arrow + 4)};
    } else if (line.starts_with("$ ")) {
      take_command(line.substr(2, arrow - 2));
      if (arrow != std::string::npos) expect(line.substr(arrow + 3));
      may_end_ = arrow != std::string::npos;
    } else if (arrow != std::string::npos) {
      take_rows(line.substr(0, arrow), line.substr(arrow + 3));
    } else {
      ADD_FAILURE() << file_ << ":" << number_ << ": no case: " << line;
    }
  }

  // "operation input... < line"
  void take_command(std::string const& command) {
    auto const input = command.find(" < ");
    call_ = shell_words(command.substr(0, input));
    if (input != std::string::npos) input_.add(command.substr(input + 3));
    started_ = number_;
  }

  // Lines of output may follow the last one.
  void take_rows(std::string const& inputs, std::string const& wanted) {
    for (auto const& input : pieces_of(inputs, " || ")) {
      finish();
      call_ = section_;
      for (auto const& each : pieces_of(replaced(wrap_[0], "%", input), " | "))
        call_.push_back(decoded(each));
      started_ = number_;
      std::string const text = wanted == " %" ? " " + input : wanted;
      expect(text.size() < 2 || text == " \"\"" ? text
                                                : " " + replaced(wrap_[1], "%", text.substr(1)));
    }
  }

  // Takes the text after "=>".
  void expect(std::string const& text) {
    if (text == " \"\"") return wanted_.add("\\c");
    if (text.size() > 1) wanted_.add(text.substr(1) + "\\c");
  }

  std::string expanded(std::string line) const {
    for (std::size_t at = 0; (at = line.find("$(", at)) != std::string::npos;) {
      auto const end = line.find(')', at);
      std::string const name = line.substr(at + 2, end - at - 2);
      std::string text;
      if (auto const found = macros_.find(name); found != macros_.end()) {
        text = found->second;
      } else {
        auto const star = name.find('*');
        for (int i = std::stoi(name); i > 0; --i) text += name.substr(star + 1);
      }
      line.replace(at, end + 1 - at, text);
    }
    return line;
  }

  // Runs the case that has been read, if any.
  void finish() {
    if (call_.empty()) return;
    auto const name = call_.front();
    words arguments;
    for (std::size_t i = 1; i < call_.size(); ++i)
      arguments.push_back(scope_.with_folder(call_[i]));
    scope_.input = input_.text;
    std::string const where = file_.string() + ":" + std::to_string(started_) + ": " + name;
    if (!operations().contains(name)) {
      ADD_FAILURE() << where << ": no such operation";
    } else {
      std::string const result =
          core_test::recorded(scope_.without_folder(operations().at(name)(scope_, arguments)));
      EXPECT_TRUE(fits(result, wanted_.text) || (may_end_ && fits(result, wanted_.text + "\n")))
          << where << ' ' << testing::PrintToString(arguments).substr(0, 2000) << "\n  expected \""
          << wanted_.text.substr(0, 4000) << "\"\n  actual   \"" << result.substr(0, 4000) << '"';
    }
    ++cases_;
    call_.clear();
    input_ = {};
    wanted_ = {};
    may_end_ = false;
  }

  fs::path const file_;
  scope scope_;
  std::map<std::string, std::string> macros_;
  words section_;
  words wrap_{"%", "%"};
  words call_;
  marked_lines input_;
  marked_lines wanted_;
  bool may_end_ = false;  // the output, whether that is written or not
  std::string line_;
  std::size_t number_ = 0;
  std::size_t started_ = 0;
  std::size_t cases_ = 0;
};

}  // namespace

std::map<std::string, operation>& operations() {
  static std::map<std::string, operation> all;
  return all;
}

scope::scope()
    : environment({{"LC_ALL", "C"}, {"DISPLAY", nullptr}, {"WAYLAND_DISPLAY", nullptr}}),
      before(fs::current_path()) {}

scope::~scope() { fs::current_path(before); }

fs::path scope::path(std::string const& utf8) const {
  return fs::path(folder.wide(L"")) / std::u8string(utf8.begin(), utf8.end());
}

std::string scope::with_folder(std::string text) const {
  return replaced(std::move(text), "<folder>/", folder.file(""));
}

std::string scope::without_folder(std::string text) const {
  return replaced(std::move(text), folder.file(""), "<folder>/");
}

namespace {

// Those of the program.
std::vector<fs::path> files() {
  fs::directory_iterator const entries(fs::path(ZU_TEST_CASES) / core_test::program_path().stem());
  std::vector<fs::path> files(begin(entries), end(entries));
  std::ranges::sort(files);
  return files;
}

class Cases : public testing::TestWithParam<fs::path> {};

TEST_P(Cases, give_what_is_expected) { Tfile(GetParam()).run(); }

INSTANTIATE_TEST_SUITE_P(Files, Cases, testing::ValuesIn(files()),
                         [](auto const& file) { return file.param.stem().string(); });

}  // namespace

}  // namespace case_file
