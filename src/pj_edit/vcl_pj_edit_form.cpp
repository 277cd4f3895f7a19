#include "pj_edit/vcl_pj_edit_form.h"

#include <wx/msgdlg.h>

#include <algorithm>
#include <array>
#include <optional>

#include "basic/file.h"
#include "basic/path.h"
#include "basic/str.h"
#include "catalogue/catalogue.h"
#include "pj_edit/edit_files.h"
#include "pj_edit/edit_find.h"
#include "pj_edit/edit_note.h"
#include "pj_edit/edit_paste.h"
#include "pj_edit/panel_tools.h"
#include "pj_edit/vcl_pj_find.h"
#include "pj_edit/vcl_pj_trial.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "vcl/clipboard.h"
#include "vcl/event_guard.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

// The kind of a position in the filter of both file dialogs.
std::optional<zu::file_kind> kind_at(int filter_index) {
  if (filter_index == 0) return zu::file_kind::parameters;
  if (filter_index == 1) return zu::file_kind::esri;
  return {};
}

// The file dialog asks before it replaces the file that the user chose. It does not ask when
// the forced extension leads to another file.
bool may_replace(wxWindow* parent, std::wstring const& chosen, std::wstring const& name) {
  if (name == chosen || !zu::file::exists(name)) return true;
  // A question of the toolkit, so that its own translation is used.
  auto const question = wxString::Format(
      wxGetTranslation("File '%s' already exists, do you really want to overwrite it?"), name);
  return wxMessageBox(question, wxGetTranslation("Confirm"), wxYES_NO | wxICON_QUESTION, parent) ==
         wxYES;
}

}  // namespace

void Tzu_vcl_pj_edit_form::create() {
  editor_ = zu::vcl::make_child<Tzu_vcl_pj_edit>(this);
  editor_->create();
  result_ = zu::vcl::make_child<Tzu_vcl_result_strip>(this);
  result_->create();
  result_->on_undo = [this] { on_undo(); };
  result_->on_redo = [this] { on_redo(); };
  note_ = zu::vcl::make_child<Tzu_vcl_note_strip>(this);
  note_->create();
  note_->on_layout = [this] { fit_to_content(); };
  buttons_ = zu::vcl::make_child<Tzu_vcl_bottom_buttons>(this);
  buttons_->create();
  auto* const sizer = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  sizer->Add(editor_, wxSizerFlags(1).Expand());
  sizer->Add(result_, wxSizerFlags().Expand());
  sizer->Add(note_, wxSizerFlags().Expand());
  sizer->Add(buttons_, wxSizerFlags().Expand());
  zu::vcl::bind_guarded(*this, wxEVT_SHOW, [this] {
    if (IsShown()) zu::vcl::platform::focus_first(*editor_->get_type()->get_selbox());
  });
  zu::vcl::bind_guarded(*this, wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { on_key(event); });
  zu::vcl::bind_guarded(*this, wxEVT_DROP_FILES,
                        [this](wxDropFilesEvent& event) { on_drop(event); });
  zu::vcl::platform::accept_dropped_files(*this);
  buttons_->on_apply = [this] { on_apply(); };
  buttons_->on_cancel = [this] { on_cancel(); };
  buttons_->on_load = [this] { on_load(); };
  buttons_->on_save = [this] { on_save(); };
  buttons_->set_load_visible(true);
  buttons_->set_save_visible(true);
  open_ = std::make_unique<Tzu_vcl_file_dialog>(this, wxFD_OPEN);
  save_ = std::make_unique<Tzu_vcl_file_dialog>(this, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
}

void Tzu_vcl_pj_edit_form::load_rc() {
  set_caption(zu::vcl::rc_text(zu::editor_text::projection));
  editor_->load_rc();
  using zu::vcl::rc_text;
  result_->set_captions(rc_text(zu::own_text::undo), rc_text(zu::own_text::redo),
                        rc_text(zu::own_text::more));
  result_->set_name(rc_text(zu::own_text::result_name));
  result_->set_items({{rc_text(zu::own_text::copy_definition), [this] { on_copy(); }},
                      {rc_text(zu::own_text::copy_esri), [this] { on_copy_esri(); }},
                      {rc_text(zu::own_text::paste_system), [this] { on_paste(); }},
                      {},
                      {rc_text(zu::own_text::find_system), [this] { on_find(); }},
                      {rc_text(zu::own_text::try_point), [this] { on_try(); }}});
  set_added_height(result_->GetEffectiveMinSize().y);
  buttons_->load_rc();
  catalogue_note_ =
      zu::tell_catalogue(Tzu_pj_dbf::get_missing_folders(), zu::get_catalogue_faults());
  open_->set_title(buttons_->get_button(Tzu_vcl_bottom_buttons::load)->get_caption());
  save_->set_title(buttons_->get_button(Tzu_vcl_bottom_buttons::save)->get_caption());
  for (auto* const files : {open_.get(), save_.get()})
    files->set_filter(zu::vcl::rc_text(zu::editor_text::file_filter));
}

char const* Tzu_vcl_pj_edit_form::pj_edit(char const* text, unsigned char* changed) {
  *changed = 0;
  source_text_ = text == nullptr ? "" : text;
  applied_ = false;
  editor_->set_proj4_string(source_text_.c_str());
  editor_->on_layout = [this] { refresh_note(); };
  editor_->on_edit = [this] {
    history_.record(editor_->get_rules().step());
    refresh_result();
  };
  history_.start(editor_->get_rules().step());
  refresh_result();
  file_note_.clear();
  refresh_note();
  show_modal();
  zu::system_finder::finish();
  result_text_ = applied_ ? editor_->get_proj4_string() : source_text_;
  *changed = applied_ ? 1 : 0;
  return result_text_.c_str();
}

void Tzu_vcl_pj_edit_form::refresh_result() {
  std::string const definition = editor_->get_proj4_string();
  std::wstring summary;
  Tzu_std_wstring_adapter target(&summary);
  zu::string_adp const adapter(target);
  zu_pj4_get_short_text(definition.c_str(), adapter.get());
  result_->set_text(zu::strconv::from_system(definition), summary);
  result_->set_steps(history_.can_undo(), history_.can_redo());
}

void Tzu_vcl_pj_edit_form::on_undo() {
  editor_->set_step(history_.undo());
  refresh_result();
}

void Tzu_vcl_pj_edit_form::on_redo() {
  editor_->set_step(history_.redo());
  refresh_result();
}

void Tzu_vcl_pj_edit_form::on_copy() {
  if (!commit_edits()) return;
  zu::vcl::put_on_clipboard(zu::strconv::from_system(editor_->get_proj4_string()));
}

void Tzu_vcl_pj_edit_form::on_copy_esri() {
  if (!commit_edits()) return;
  std::wstring wkt;
  Tzu_std_wstring_adapter target(&wkt);
  zu::string_adp const adapter(target);
  std::wstring const definition = zu::strconv::from_system(editor_->get_proj4_string());
  file_note_.clear();
  if (zu_pj4_export_esri(definition.c_str(), adapter.get()) != 0)
    zu::vcl::put_on_clipboard(wkt);
  else
    file_note_ = zu::get_own_text(zu::own_text::copy_unconverted);
  refresh_note();
}

void Tzu_vcl_pj_edit_form::on_paste() {
  std::wstring const text = zu::vcl::text_on_clipboard();
  file_note_.clear();
  editor_->change(
      [&](zu::Tzu_pj_editor& rules) { file_note_ = zu::paste_definition(rules, text).note; });
}

void Tzu_vcl_pj_edit_form::on_find() {
  if (!commit_edits()) return;
  Tzu_vcl_pj_find window(this, editor_->get_rules().lists());
  if (!window.execute()) return;
  file_note_.clear();
  editor_->set_proj4_string(window.get_definition().c_str());
}

void Tzu_vcl_pj_edit_form::on_try() {
  if (!commit_edits()) return;
  Tzu_vcl_pj_trial window(this, editor_->get_proj4_string());
  window.ShowModal();
}

void Tzu_vcl_pj_edit_form::on_key(wxKeyEvent& event) {
  struct shortcut {
    int key;
    int modifiers;
    void (Tzu_vcl_pj_edit_form::*act)();
  };
  constexpr int both = wxMOD_CONTROL | wxMOD_SHIFT;
  constexpr std::array<shortcut, 6> shortcuts{{{'T', wxMOD_CONTROL, &Tzu_vcl_pj_edit_form::on_try},
                                               {'F', wxMOD_CONTROL, &Tzu_vcl_pj_edit_form::on_find},
                                               {'Z', wxMOD_CONTROL, &Tzu_vcl_pj_edit_form::on_undo},
                                               {'Y', wxMOD_CONTROL, &Tzu_vcl_pj_edit_form::on_redo},
                                               {'C', both, &Tzu_vcl_pj_edit_form::on_copy},
                                               {'V', both, &Tzu_vcl_pj_edit_form::on_paste}}};
  auto const* const found = std::ranges::find_if(shortcuts, [&event](shortcut const& each) {
    return each.key == event.GetKeyCode() && each.modifiers == event.GetModifiers();
  });
  // An edit has its own undo while the user is typing.
  auto const* const edit = dynamic_cast<Tzu_vcl_dbl_edit*>(wxWindow::FindFocus());
  bool const is_typing = edit != nullptr && edit->is_being_typed();
  if (found == shortcuts.end() || (is_typing && found->modifiers == wxMOD_CONTROL))
    event.Skip();
  else
    (this->*found->act)();
}

void Tzu_vcl_pj_edit_form::on_drop(wxDropFilesEvent& event) {
  if (event.GetNumberOfFiles() == 0) return;
  std::wstring const name = event.GetFiles()[0].ToStdWstring();
  bool const is_esri =
      zu::str::equal_no_case(zu::strconv::to_utf8(zu::path::extension_of(name)), ".prj");
  zu::load_result const loaded =
      zu::load_definition(name, is_esri ? zu::file_kind::esri : zu::file_kind::parameters);
  file_note_ = loaded.failure;
  // Unlike Load, a dropped file that cannot be read leaves the form as it is.
  if (loaded.failure.empty())
    editor_->set_proj4_string(loaded.definition.c_str());
  else
    refresh_note();
}

void Tzu_vcl_pj_edit_form::refresh_note() {
  note_->set_text(zu::compose_note(file_note_, catalogue_note_, editor_->get_rules()));
  fit_to_content();
}

// A typed number counts even if its edit still has the focus. A refused number keeps the form
// open.
void Tzu_vcl_pj_edit_form::on_apply() {
  if (!commit_edits()) return;
  applied_ = true;
  close_form();
}

void Tzu_vcl_pj_edit_form::on_cancel() {
  applied_ = false;
  close_form();
}

void Tzu_vcl_pj_edit_form::on_save() {
  if (!commit_edits()) return;
  if (!save_->execute()) return;
  std::wstring const& chosen = save_->get_file_name();
  auto const kind = kind_at(save_->get_filter_index());
  if (!kind) return;
  std::wstring const name =
      zu::path::replace_extension(chosen, *kind == zu::file_kind::esri ? L".prj" : L".pj4");
  if (!may_replace(this, chosen, name)) return;
  file_note_ = zu::save_definition(name, *kind, editor_->get_proj4_string());
  if (file_note_.empty() && name != chosen)
    file_note_ = zu::fill_own_text(zu::own_text::saved_as, zu::path::file_name_of(name));
  refresh_note();
}

void Tzu_vcl_pj_edit_form::on_load() {
  if (!open_->execute()) return;
  zu::load_result loaded;
  if (auto const kind = kind_at(open_->get_filter_index()))
    loaded = zu::load_definition(open_->get_file_name(), *kind);
  file_note_ = loaded.failure;
  editor_->set_proj4_string(loaded.definition.c_str());
}
