#include "pj_edit/vcl_pj_edit_form.h"

#include <wx/msgdlg.h>

#include "basic/file.h"
#include "basic/path.h"
#include "pj_edit/panel_tools.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "vcl/event_guard.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

// Position of a file type in the filter of both file dialogs.
enum file_type { parameters_file = 0, esri_file = 1 };

// The file dialog asks before it replaces the file that the user named, but not
// when the forced extension leads to another one.
bool may_replace(wxWindow* parent, std::wstring const& chosen, std::wstring const& name) {
  if (name == chosen || !zu::file::exists(name)) return true;
  // The toolkit's own words, in its own translation.
  auto const question = wxString::Format(
      wxGetTranslation("File '%s' already exists, do you really want to overwrite it?"), name);
  return wxMessageBox(question, wxGetTranslation("Confirm"), wxYES_NO | wxICON_QUESTION, parent) ==
         wxYES;
}

}  // namespace

void Tzu_vcl_pj_edit_form::create() {
  editor_ = zu::vcl::make_child<Tzu_vcl_pj_edit>(this);
  editor_->create();
  buttons_ = zu::vcl::make_child<Tzu_vcl_bottom_buttons>(this);
  buttons_->create();
  auto* const sizer = zu::vcl::make_sizer<wxBoxSizer>(wxVERTICAL);
  sizer->Add(editor_, wxSizerFlags(1).Expand());
  sizer->Add(buttons_, wxSizerFlags().Expand());
  SetSizer(sizer);
  zu::vcl::bind_guarded(*this, wxEVT_SHOW, [this] {
    if (IsShown()) zu::vcl::platform::focus_first(*editor_->get_type()->get_selbox());
  });
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
  set_caption(zu::vcl::rc_text(zu::editor_texts, 14));
  editor_->load_rc();
  buttons_->load_rc();
  open_->set_title(buttons_->get_button(Tzu_vcl_bottom_buttons::load)->get_caption());
  save_->set_title(buttons_->get_button(Tzu_vcl_bottom_buttons::save)->get_caption());
  for (auto* const files : {open_.get(), save_.get()})
    files->set_filter(zu::vcl::rc_text(zu::editor_texts, 35));
}

char const* Tzu_vcl_pj_edit_form::pj_edit(char const* text, unsigned char* changed) {
  *changed = 0;
  source_text_ = text == nullptr ? "" : text;
  applied_ = false;
  editor_->set_proj4_string(source_text_.c_str());
  editor_->on_layout = [this] { fit_to_content(); };
  fit_to_content();
  show_modal();
  result_text_ = applied_ ? editor_->get_proj4_string() : source_text_;
  *changed = applied_ ? 1 : 0;
  return result_text_.c_str();
}

// A number that was typed and not left yet counts; one that is refused keeps
// the form open.
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
  std::wstring const definition = zu::strconv::from_system(editor_->get_proj4_string());
  std::wstring const& chosen = save_->get_file_name();
  int const type = save_->get_filter_index();
  if (type != parameters_file && type != esri_file) return;
  std::wstring const name =
      zu::path::replace_extension(chosen, type == parameters_file ? L".pj4" : L".prj");
  if (!may_replace(this, chosen, name)) return;
  if (type == parameters_file)
    zu_pj4_save_simple_w(name.c_str(), definition.c_str());
  else
    zu_pj4_export_esri_prj(definition.c_str(), name.c_str());
}

void Tzu_vcl_pj_edit_form::on_load() {
  if (!open_->execute()) return;
  std::string definition;
  std::wstring const& name = open_->get_file_name();
  Tzu_std_string_adapter target(&definition);
  zu::string_adp const adapter(target);
  int const type = open_->get_filter_index();
  if (type == parameters_file) zu_pj4_load_simple_w(name.c_str(), adapter.get());
  if (type == esri_file) zu_pj4_import_esri(name.c_str(), adapter.get());
  editor_->set_proj4_string(definition.c_str());
}
