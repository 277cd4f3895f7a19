// The window that finds a system for the editor.
#pragma once

#include <wx/checkbox.h>
#include <wx/listbox.h>
#include <wx/timer.h>

#include <string>
#include <vector>

#include "pj_edit/edit_find.h"
#include "vcl/edit.h"
#include "vcl/modal.h"
#include "vcl/panel.h"

// Opens over a form. Letters go to the search line. From there the arrow keys move in the
// list. Enter and a double click take the chosen row; Escape takes none.
class Tzu_vcl_pj_find : public zu::vcl::Tmodal<wxDialog> {
 public:
  Tzu_vcl_pj_find(wxWindow* form, zu::catalogue_lists const& lists);

  // Returns whether a system was taken.
  bool execute();
  std::string const& get_definition() const noexcept { return definition_; }

  Tzu_vcl_edit* get_words() const noexcept { return words_; }
  wxListBox* get_list() const noexcept { return list_; }
  Tzu_vcl_edit* get_details() const noexcept { return details_; }

 private:
  void create();
  void search();
  void search_again();
  void choose(int row);
  void show_details();
  void take();
  void on_key(wxKeyEvent& event);

  zu::catalogue_lists lists_;
  std::vector<zu::listed_system const*> rows_;
  std::string definition_;
  Tzu_vcl_edit* words_ = nullptr;
  wxCheckBox* deprecated_ = nullptr;
  wxListBox* list_ = nullptr;
  Tzu_vcl_edit* details_ = nullptr;
  Tzu_vcl_button* take_ = nullptr;
  wxTimer waiting_;
};
