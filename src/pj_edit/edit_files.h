// Load and Save of the dialog, with sentences about their result. Does not use the form
// toolkit.
#pragma once

#include <string>

#include "interchange/file_types.h"

namespace zu {

// The definition of a file, or a sentence for the user. One of the two is empty.
struct load_result {
  std::string definition;
  std::wstring failure;
};
load_result load_definition(std::wstring const& name, file_kind kind);

// Writes the file. Returns a sentence with the reason of a failure, empty on success.
std::wstring save_definition(std::wstring const& name, file_kind kind,
                             std::string const& definition);

}  // namespace zu
