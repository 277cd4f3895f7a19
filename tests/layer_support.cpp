#include "layer_support.h"

#include <iostream>
#include <optional>
#include <string>
#include <utility>

#include "basic/file.h"
#include "core_support.h"
#include "text/rc.h"

namespace {

int failures = 0;
std::optional<core_test::Ttemp_folder> folder;

struct {
  int count = 0;
  std::optional<std::string> narrow;
  std::optional<std::wstring> wide;
} received;

}  // namespace

void layer_check(int holds, char const* what, char const* file, int line) {
  if (holds != 0) return;
  ++failures;
  std::cerr << file << ':' << line << ": " << what << '\n';
}

int layer_result() {
  folder.reset();
  return std::exchange(failures, 0);
}

int layer_same(char const* left, char const* right) {
  return left != nullptr && right != nullptr && std::string_view(left) == right ? 1 : 0;
}

Izu_string_adp* layer_adapter() {
  static Izu_string_adp* const adapter = zu_string_adp_create(
      [](char const* text, void* /*context*/) {
        received.narrow = text;
        ++received.count;
      },
      [](wchar_t const* text, void* /*context*/) {
        received.wide = text;
        ++received.count;
      },
      nullptr);
  received = {};
  return adapter;
}

int layer_received_count() { return received.count; }
int layer_received(char const* text) {
  return received.count == 1 && received.narrow == text ? 1 : 0;
}
int layer_received_wide(wchar_t const* text) {
  return received.count == 1 && received.wide == text ? 1 : 0;
}
char const* layer_received_narrow() { return received.narrow ? received.narrow->c_str() : nullptr; }

void layer_set_language(int language) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(language);
}

wchar_t const* layer_file(wchar_t const* name) {
  static std::wstring path;
  if (!folder) folder.emplace();
  path = folder->wide(name);
  return path.c_str();
}

char const* layer_content(wchar_t const* name) {
  static std::optional<std::string> content;
  content = zu::file::read_whole(name);
  return content ? content->c_str() : nullptr;
}
