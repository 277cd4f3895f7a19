// The modal form round one editor: Apply, Cancel, Load and Save.
#pragma once

#include <memory>
#include <string>

#include "pj_edit/vcl_pj_edit.h"
#include "vcl/bottom_buttons.h"
#include "vcl/file_dialog.h"
#include "vcl/form.h"
#include "vcl/note_strip.h"

class Tzu_vcl_pj_edit_form : public Tzu_vcl_form {
 public:
  void create() override;
  void load_rc() override;

  // Shows the form on a definition (null counts as empty) until it is closed.
  // Returns the edited definition after Apply, else `text` unchanged; `changed`
  // receives 1 or 0. The text belongs to the form and is never null.
  char const* pj_edit(char const* text, unsigned char* changed);

  Tzu_vcl_pj_edit* get_editor() const noexcept { return editor_; }
  Tzu_vcl_note_strip* get_note() const noexcept { return note_; }
  Tzu_vcl_bottom_buttons* get_buttons() const noexcept { return buttons_; }

 private:
  void on_apply();
  void on_cancel();
  void on_save();
  void on_load();
  // Tells what there is to tell now, and gives it room.
  void refresh_note();

  bool applied_ = false;
  Tzu_vcl_pj_edit* editor_ = nullptr;
  Tzu_vcl_note_strip* note_ = nullptr;
  Tzu_vcl_bottom_buttons* buttons_ = nullptr;
  std::unique_ptr<Tzu_vcl_file_dialog> open_;
  std::unique_ptr<Tzu_vcl_file_dialog> save_;
  std::wstring file_note_;  // of the last Load or Save
  std::wstring catalogue_note_;
  std::string source_text_;
  std::string result_text_;
};
