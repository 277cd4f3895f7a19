// Load and Save of the dialog, which tells the user what became of them. Free of the
// form toolkit.
#pragma once

#include <string>

namespace zu {

enum class file_kind { parameters, esri };

// What the file holds, and a sentence for the user; of the two one is empty.
struct load_result {
  std::string definition;
  std::wstring failure;
};
load_result load_definition(std::wstring const& name, file_kind kind);

// Writes the file. Returns a sentence that tells why it could not; empty when written.
std::wstring save_definition(std::wstring const& name, file_kind kind,
                             std::string const& definition);

}  // namespace zu
