#include "vcl/file_dialog.h"

#include "basic/path.h"
#include "vcl/modal.h"

// Made at first use: few users need these windows, and a form should open fast.
bool Tzu_vcl_file_dialog::execute() {
  std::wstring const folder(zu::path::folder_of(file_name_));
  zu::vcl::Tmodal<wxFileDialog> dialog(form_, title_, folder, wxEmptyString, filter_, style_);
  dialog.SetFilterIndex(filter_index_);
  if (dialog.ShowModal() != wxID_OK) return false;
  file_name_ = dialog.GetPath().ToStdWstring();
  filter_index_ = dialog.GetFilterIndex();
  return true;
}
