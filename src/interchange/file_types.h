// The types of definition files. Load, Save and the command line know a type by its row alone.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "suite/zuk_basic.h"

namespace zu {

// An enumerator is the index of a row.
enum class file_kind : std::size_t { parameters, esri };

struct file_type {
  std::wstring_view extension;  // lower case, with its point
  bool has_wkt;                 // a file holds ESRI WKT, else a PROJ.4 definition
  // `load` feeds the definition to the adapter; `save` replaces the file. Both return false on
  // failure and throw only if memory runs out.
  bool (*load)(std::wstring const& name, Izu_string_adp* adapter);
  bool (*save)(std::wstring const& name, std::wstring const& definition);
};

// In the order of editor_text::file_filter, which has the captions.
std::span<file_type const> file_types() noexcept;

file_type const& type_of(file_kind kind);
// By the extension, in either case; a name with another extension is of the first kind.
file_kind kind_of_file(std::wstring_view name);

}  // namespace zu
