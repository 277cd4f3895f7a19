// The open and save dialogs of a form.
#pragma once

#include <wx/filedlg.h>

#include <string>

// Belongs to its form. The next use begins with the folder and file type that the user chose
// last.
class Tzu_vcl_file_dialog {
 public:
  // `style` is a style of the toolkit.
  Tzu_vcl_file_dialog(wxWindow* form, long style) : form_(form), style_(style) {}

  void set_title(std::wstring const& title) { title_ = title; }
  void set_filter(std::wstring const& filter) { filter_ = filter; }

  // Whether the user has chosen a file.
  bool execute();

  // About the last chosen file. The first file type is 0.
  std::wstring const& get_file_name() const noexcept { return file_name_; }
  int get_filter_index() const noexcept { return filter_index_; }

 private:
  wxWindow* form_;
  long style_;
  std::wstring title_;
  std::wstring filter_;
  std::wstring file_name_;
  int filter_index_ = 0;
};
