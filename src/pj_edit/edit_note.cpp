#include "pj_edit/edit_note.h"

#include <algorithm>

#include "basic/path.h"
#include "basic/str.h"
#include "proj4/reading_report.h"
#include "text/own_texts.h"
#include "text/strconv.h"

namespace zu {
namespace {

// A longer list does not help the user.
constexpr std::size_t longest_list = 800;

// "begin first; second".
class Tlist {
 public:
  explicit Tlist(std::wstring begin) : text_(std::move(begin)) {}

  void add(std::wstring const& item) {
    if (text_.size() > longest_list) {
      is_cut_ = true;
      return;
    }
    text_.append(is_empty_ ? L" " : L"; ").append(item);
    is_empty_ = false;
  }
  void add_if(std::string const& piece, own_text which, std::wstring const& second = {}) {
    if (!piece.empty()) add(fill_own_text(which, strconv::from_system(piece), second));
  }
  std::wstring take() const {
    return is_empty_ ? std::wstring() : text_ + (is_cut_ ? L"; ..." : L"");
  }

 private:
  std::wstring text_;
  bool is_empty_ = true;
  bool is_cut_ = false;
};

std::wstring tell_losses(Tzu_pj_editor const& editor) {
  edit_state const& state = editor.state();
  Tlist list(get_own_text(own_text::not_kept));
  list.add_if(state.lost_datum, own_text::not_in_catalogue);
  list.add_if(state.lost_grids, own_text::grids_not_kept);
  auto const* const taken = editor.ellipse_record();
  if (taken == nullptr)
    list.add_if(state.lost_ellipse, own_text::not_in_catalogue);
  else
    list.add_if(state.lost_ellipse, own_text::other_ellipsoid,
                strconv::from_system(taken->get_caption()));
  for (reading_loss const& loss : find_reading_losses(editor.given()))
    if (loss.moves_points) list.add(tell(loss));
  return list.take();
}

// What Apply does not return. An empty definition is worth a line even when the input was
// empty, if the note also has a line about a file.
std::wstring tell_definition(Tzu_pj_editor const& editor, bool is_warned) {
  if (editor.state().kind != definition_kind::none) return tell_losses(editor);
  std::string const given(str::trim(editor.given()));
  if (!given.empty())
    return fill_own_text(own_text::returns_empty_instead, strconv::from_system(given));
  return is_warned ? get_own_text(own_text::returns_empty) : std::wstring();
}

}  // namespace

std::wstring tell_catalogue(std::vector<std::wstring> const& missing_folders,
                            std::vector<catalogue_fault> const& faults) {
  if (!missing_folders.empty()) {
    Tlist list(get_own_text(own_text::no_catalogue));
    for (auto const& folder : missing_folders) list.add(folder);
    return list.take();
  }
  if (faults.empty()) return {};
  std::wstring const first = strconv::from_system(faults.front().table);
  Tlist list(fill_own_text(own_text::damaged_catalogue, path::folder_of(first)));
  for (auto const& [table, column] : faults) {
    std::wstring const name = strconv::from_system(table);
    list.add(fill_own_text(column.empty() ? own_text::table_not_opened : own_text::column_missing,
                           path::file_name_of(name), strconv::from_system(column)));
  }
  return list.take();
}

std::wstring tell_addition(Tzu_pj_editor const& editor) {
  edit_state const& state = editor.state();
  if (state.kind == definition_kind::none || state.added == added_shift::none) return {};
  return get_own_text(state.added == added_shift::zeros ? own_text::zeros_added
                                                        : own_text::pulkovo_added);
}

std::wstring compose_note(std::wstring const& file, std::wstring const& catalogue,
                          Tzu_pj_editor const& editor) {
  std::wstring note;
  for (std::wstring line :
       {file, catalogue, tell_definition(editor, !file.empty()), tell_addition(editor)}) {
    if (line.empty()) continue;
    // A definition or a name may contain control characters.
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < L' '; }, L' ');
    note.append(note.empty() ? L"" : L"\n").append(line);
  }
  return note;
}

}  // namespace zu
