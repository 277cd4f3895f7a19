// The modal form with one editor and the buttons Apply, Cancel, Load and Save.
#pragma once

#include <wx/event.h>

#include <memory>
#include <string>

#include "pj_edit/edit_history.h"
#include "pj_edit/vcl_pj_edit.h"
#include "vcl/bottom_buttons.h"
#include "vcl/file_dialog.h"
#include "vcl/form.h"
#include "vcl/note_strip.h"
#include "vcl/result_strip.h"

class Tzu_vcl_pj_edit_form : public Tzu_vcl_form {
 public:
  void create() override;
  void load_rc() override;

  // Shows the form with a definition (null counts as empty) until it is closed. Returns the
  // edited definition after Apply, else `text` unchanged; `changed` receives 1 or 0. The form
  // owns the returned text, which is never null.
  char const* pj_edit(char const* text, unsigned char* changed);

  Tzu_vcl_pj_edit* get_editor() const noexcept { return editor_; }
  Tzu_vcl_result_strip* get_result() const noexcept { return result_; }
  Tzu_vcl_note_strip* get_note() const noexcept { return note_; }
  Tzu_vcl_bottom_buttons* get_buttons() const noexcept { return buttons_; }

 private:
  void on_apply();
  void on_cancel();
  void on_save();
  void on_load();
  void on_undo();
  void on_redo();
  void on_copy();
  void on_copy_esri();
  void on_paste();
  void on_find();
  void on_try();
  void on_key(wxKeyEvent& event);
  void on_drop(wxDropFilesEvent& event);
  // Shows the definition that Apply would return now, and whether there are steps to undo or
  // redo.
  void refresh_result();
  // Updates the note and the form's size for it.
  void refresh_note();

  bool applied_ = false;
  Tzu_vcl_pj_edit* editor_ = nullptr;
  Tzu_vcl_result_strip* result_ = nullptr;
  Tzu_vcl_note_strip* note_ = nullptr;
  Tzu_vcl_bottom_buttons* buttons_ = nullptr;
  std::unique_ptr<Tzu_vcl_file_dialog> open_;
  std::unique_ptr<Tzu_vcl_file_dialog> save_;
  zu::Tedit_history history_;
  std::wstring file_note_;  // about the last Load, Save, copy or paste
  std::wstring catalogue_note_;
  std::string source_text_;
  std::string result_text_;
};
