// Ownership of a form by a window of the host's.
#pragma once

#include <wx/gdicmn.h>

#include <optional>

class wxTopLevelWindow;

namespace zu::vcl {

// Makes the native window `owner` the owner of `form`: the form stays above it
// and is minimised with it. A null, destroyed or made-up handle, or a display
// that knows no such handles, leaves the form without an owner.
// Returns the owner's place on the screen, empty without an owner.
std::optional<wxRect> set_owner(wxTopLevelWindow& form, void* owner);

}  // namespace zu::vcl
