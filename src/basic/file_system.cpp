#include "basic/file_system.h"

#include <algorithm>

#include "basic/file_system_calls.h"
#include "basic/path.h"

namespace zu::file_system {
namespace {

bool matches(std::wstring_view name, std::wstring_view pattern) noexcept {
  constexpr auto none = std::wstring_view::npos;
  std::size_t at = 0;
  std::size_t in_pattern = 0;
  std::size_t star = none;  // the last "*", and where what follows it was tried
  std::size_t tried = 0;
  while (at < name.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == L'*') {
      star = in_pattern++;
      tried = at;
    } else if (in_pattern < pattern.size() &&
               (pattern[in_pattern] == L'?' || pattern[in_pattern] == name[at])) {
      ++in_pattern;
      ++at;
    } else if (star != none) {
      in_pattern = star + 1;
      at = ++tried;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', in_pattern) == none;
}

// Whether `from` exists and may replace what `to` names, if that exists.
bool may_replace(std::optional<attributes> const& from, std::wstring_view to) {
  if (path::to_native(to).empty()) return false;
  auto const old = get_attributes(to);
  return from && (!old || !(from->is_folder || old->is_folder || old->is_read_only));
}

}  // namespace

bool is_folder(std::wstring_view name) {
  auto const found = get_attributes(name);
  return found && found->is_folder;
}

std::wstring identity(std::wstring_view name) {
  std::wstring const full = path::make_full(name);
  std::error_code error;
  auto const whole = std::filesystem::weakly_canonical(path::to_native(full), error);
  return calls::fold_case(error ? full : path::from_native(whole));
}

bool copy_file(std::wstring_view from, std::wstring_view to) {
  auto const source = get_attributes(from);
  if (!may_replace(source, to)) return false;
  auto const part = make_temporary_file(path::folder_of(to));
  if (!part) return false;
  auto const copied = path::to_native(*part);
  if (calls::copy(path::to_native(from), copied) && set_read_only(*part, source->is_read_only) &&
      calls::rename(copied, path::to_native(to)) == calls::outcome::done)
    return true;
  // The copy may be read-only already.
  set_read_only(*part, false);
  remove_file(*part);
  return false;
}

bool move(std::wstring_view from, std::wstring_view to) {
  if (!may_replace(get_attributes(from), to)) return false;
  auto const outcome = calls::rename(path::to_native(from), path::to_native(to));
  if (outcome != calls::outcome::other_volume) return outcome == calls::outcome::done;
  return copy_file(from, to) && remove_file(from);
}

bool make_folders(std::wstring_view name) {
  auto const native = path::to_native(name);
  std::error_code error;
  std::filesystem::create_directories(native, error);
  return std::filesystem::is_directory(native, error);
}

std::optional<std::vector<std::wstring>> find(std::wstring_view folder, std::wstring_view pattern) {
  namespace fs = std::filesystem;
  std::error_code error;
  std::wstring const wanted = calls::fold_case(pattern);
  std::vector<std::wstring> names;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : path::to_native(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code no_file;
    if (!entry->is_regular_file(no_file)) continue;
    auto const native = entry->path().filename();
    std::wstring name = path::from_native(native);
    // A name that is invalid in the system's encoding has no wide form.
    if (path::to_native(name) == native && matches(calls::fold_case(name), wanted))
      names.push_back(std::move(name));
  }
  if (error) return std::nullopt;
  std::ranges::sort(names);
  return names;
}

}  // namespace zu::file_system
