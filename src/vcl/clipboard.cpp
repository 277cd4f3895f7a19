#include "vcl/clipboard.h"

#include <wx/clipbrd.h>

#include <memory>

namespace zu::vcl {

void put_on_clipboard(std::wstring const& text) {
  wxClipboardLocker const lock;
  if (!lock) return;
  // The clipboard owns the object that it gets.
  wxTheClipboard->SetData(std::make_unique<wxTextDataObject>(text).release());
  wxTheClipboard->Flush();
}

std::wstring text_on_clipboard() {
  wxClipboardLocker const lock;
  wxTextDataObject text;
  if (!lock || !wxTheClipboard->GetData(text)) return {};
  return text.GetText().ToStdWstring();
}

}  // namespace zu::vcl
