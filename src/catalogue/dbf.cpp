#include "catalogue/dbf.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "basic/number.h"
#include "basic/str.h"
#include "text/strconv.h"

namespace {

// Layout of the file header and of a field descriptor.
constexpr std::size_t header_count_at = 4;
constexpr std::size_t header_length_at = 8;
constexpr std::size_t record_length_at = 10;
constexpr std::size_t code_page_at = 29;
constexpr std::size_t field_name_size = 11;
constexpr std::size_t field_type_at = 11;
constexpr std::size_t field_offset_at = 12;
constexpr std::size_t field_length_at = 16;
constexpr std::size_t field_decimal_at = 17;
constexpr std::uint8_t terminator = 0x0D;
constexpr std::uint8_t end_of_file = 0x1A;
constexpr std::uint8_t blank = 0x20;
constexpr std::size_t scratch_size = 1000;

unsigned get_u16(std::span<std::uint8_t const> from, std::size_t at) noexcept {
  return from[at] | static_cast<unsigned>(from[at + 1]) << 8U;
}

std::uint32_t get_u32(std::span<std::uint8_t const> from, std::size_t at) noexcept {
  return get_u16(from, at) | static_cast<std::uint32_t>(get_u16(from, at + 2)) << 16U;
}

void put_u16(std::span<std::uint8_t> to, std::size_t at, unsigned value) noexcept {
  to[at] = static_cast<std::uint8_t>(value & 0xFFU);
  to[at + 1] = static_cast<std::uint8_t>(value >> 8U & 0xFFU);
}

void put_u32(std::span<std::uint8_t> to, std::size_t at, std::uint32_t value) noexcept {
  put_u16(to, at, value & 0xFFFFU);
  put_u16(to, at + 2, value >> 16U);
}

void put_name(std::span<std::uint8_t> descriptor, std::string_view name) noexcept {
  std::fill_n(descriptor.begin(), field_name_size, std::uint8_t{0});
  std::copy_n(name.begin(), std::min(name.size(), field_name_size - 1), descriptor.begin());
}

std::string_view as_text(std::span<std::uint8_t const> bytes) noexcept {
  return {reinterpret_cast<char const*>(bytes.data()), bytes.size()};
}

std::span<std::uint8_t const> as_bytes(std::string_view text) noexcept {
  return {reinterpret_cast<std::uint8_t const*>(text.data()), text.size()};
}

}  // namespace

unsigned Tzu_file_dbf_exe::header_length() const noexcept {
  return get_u16(header_, header_length_at);
}
unsigned Tzu_file_dbf_exe::record_length() const noexcept {
  return get_u16(header_, record_length_at);
}
std::uint32_t Tzu_file_dbf_exe::get_nr() const noexcept {
  return get_u32(header_, header_count_at);
}

std::uint64_t Tzu_file_dbf_exe::record_offset(std::uint32_t record) const noexcept {
  return header_length() + static_cast<std::uint64_t>(record) * record_length();
}

std::uint32_t Tzu_file_dbf_exe::get_records_in_file() noexcept {
  if (!file_ || record_length() == 0) return 0;
  std::uint64_t const size = zu::file::size(file_.get());
  if (size <= header_length()) return 0;
  std::uint64_t const begun = (size - header_length() + record_length() - 1) / record_length();
  auto count = static_cast<std::uint32_t>(std::min<std::uint64_t>(begun, get_nr()));
  // The mark of the file's end is no record. Some programs fill the last block with it.
  std::uint8_t first = 0;
  while (count > 0 && read_at(record_offset(count - 1), {&first, 1}) == 1 && first == end_of_file)
    --count;
  return count;
}

// Reads the bytes that the file has at `offset` and fills the rest of the target with zeros.
std::size_t Tzu_file_dbf_exe::read_at(std::uint64_t offset,
                                      std::span<std::uint8_t> target) noexcept {
  std::size_t got = 0;
  if (position_ == offset || zu::file::seek(file_.get(), offset))
    got = std::fread(target.data(), 1, target.size(), file_.get());
  std::fill(target.begin() + static_cast<std::ptrdiff_t>(got), target.end(), std::uint8_t{0});
  position_ = got == target.size() ? std::optional(offset + got) : std::nullopt;
  return got;
}

bool Tzu_file_dbf_exe::write_at(std::uint64_t offset, bytes source) noexcept {
  if (!file_) return false;
  position_.reset();
  bool const written = !read_only_ && zu::file::seek(file_.get(), offset) &&
                       std::fwrite(source.data(), 1, source.size(), file_.get()) == source.size();
  failed_ = failed_ || !written;
  return written;
}

int Tzu_file_dbf_exe::open(char const* name, bool read_only) {
  close();
  file_ = zu::file::open(zu::strconv::from_system(name), read_only ? "rb" : "rb+");
  if (!file_) return 1;
  name_ = name;
  read_only_ = read_only;
  read_at(0, header_);
  read_descriptors();
  allocate_buffers();
  return 0;
}

// Whether there is a descriptor at this place: not the terminator, not beyond the header's
// length, and inside the file.
bool Tzu_file_dbf_exe::probe_descriptor(std::uint32_t index) noexcept {
  std::uint8_t first = 0;
  std::uint64_t const offset = 32U + 32U * static_cast<std::uint64_t>(index);
  if (read_at(offset, {&first, 1}) == 0 || first == terminator) return false;
  // Cut to 16 bits, because the header's length has 16 bits.
  return ((32U * index + 64U) & 0xFFFFU) <= header_length();
}

void Tzu_file_dbf_exe::read_descriptors() {
  std::uint32_t count = 0;
  while (probe_descriptor(count)) ++count;
  fields_.assign(count, descriptor{});
  std::uint32_t offset = 1;
  for (std::uint32_t i = 0; i < count; ++i) {
    descriptor& field = fields_[i];
    read_at(32U + 32U * static_cast<std::uint64_t>(i), field);
    if (get_u32(field, field_offset_at) == 0) put_u32(field, field_offset_at, offset);
    offset = get_u32(field, field_offset_at) + field[field_length_at];
  }
}

void Tzu_file_dbf_exe::allocate_buffers() {
  record_.assign(record_length(), 0);
  current_.reset();
  dirty_ = false;
  if (scratch_.size() < scratch_size) scratch_.assign(scratch_size, '\0');
}

int Tzu_file_dbf_exe::create(char const* name, Tzu_dbf_prpdefs const& definitions,
                             std::uint32_t records) {
  close();
  file_ = zu::file::open(zu::strconv::from_system(name), "wb+");
  if (!file_) return 1;
  name_ = name;
  read_only_ = false;
  auto const count = static_cast<unsigned>(definitions.get_size());
  unsigned length = 1;
  fields_.assign(count, descriptor{});
  for (unsigned i = 0; i < count; ++i) {
    Tzu_dbf_prpdef const& definition = definitions.get(i);
    descriptor& field = fields_[i];
    put_name(field, definition.get_name());
    field[field_type_at] = static_cast<std::uint8_t>(definition.get_type());
    put_u32(field, field_offset_at, length);
    field[field_length_at] = definition.get_length();
    field[field_decimal_at] = definition.get_decimal();
    length = (length + definition.get_length()) & 0xFFFFU;
  }
  header_ = {3, 1, 1, 1};
  put_u32(header_, header_count_at, records);
  put_u16(header_, header_length_at, 32 * count + 33);
  put_u16(header_, record_length_at, length);
  write_header();
  for (unsigned i = 0; i < count; ++i) write_at(32U + 32U * i, fields_[i]);
  write_at(32U + 32U * count, {&terminator, 1});
  allocate_buffers();
  std::ranges::fill(record_, blank);
  write_blank_records(record_offset(0), records);
  return 0;
}

bool Tzu_file_dbf_exe::write_blank_records(std::uint64_t offset, std::uint32_t count) {
  std::vector<std::uint8_t> const empty(record_length(), blank);
  bool written = true;
  for (std::uint32_t i = 0; i < count && written; ++i) {
    written = write_at(offset, empty);
    offset += empty.size();
  }
  return write_at(offset, {&end_of_file, 1}) && written;
}

bool Tzu_file_dbf_exe::add_rec(std::uint32_t count) {
  write_blank_records(record_offset(get_nr()), count);
  put_u32(header_, header_count_at, get_nr() + count);
  write_header();
  return true;
}

void Tzu_file_dbf_exe::write_back() noexcept {
  if (dirty_ && current_) write_at(record_offset(*current_), record_);
  dirty_ = false;
}

bool Tzu_file_dbf_exe::close() {
  if (!file_) return true;
  write_back();
  bool const good = std::fclose(file_.release()) == 0 && !failed_;
  failed_ = false;
  position_.reset();
  header_ = {};
  fields_.clear();
  record_.clear();
  scratch_.clear();
  current_.reset();
  name_.clear();
  return good;
}

bool Tzu_file_dbf_exe::find_prp_by_name(std::string_view name, std::uint32_t& index) const {
  for (std::uint32_t i = 0; i < get_np(); ++i) {
    if (zu::str::trim_stricmp(name, get_prp_name(i)) != 0) continue;
    index = i;
    return true;
  }
  return false;
}

std::string_view Tzu_file_dbf_exe::get_prp_name(std::uint32_t index) const noexcept {
  if (index >= fields_.size()) return {};
  auto const name = as_text(bytes(fields_[index]).first(field_name_size));
  return name.substr(0, name.find('\0'));
}

char Tzu_file_dbf_exe::get_prp_type(std::uint32_t index) const noexcept {
  return index < fields_.size() ? static_cast<char>(fields_[index][field_type_at]) : '\0';
}

unsigned Tzu_file_dbf_exe::get_prp_len(std::uint32_t index) const noexcept {
  return index < fields_.size() ? fields_[index][field_length_at] : 0;
}

unsigned Tzu_file_dbf_exe::get_prp_dec(std::uint32_t index) const noexcept {
  return index < fields_.size() ? fields_[index][field_decimal_at] : 0;
}

bool Tzu_file_dbf_exe::set_prp_name(std::uint32_t index, char const* name) {
  if (index >= fields_.size()) return false;
  descriptor& field = fields_[index];
  put_name(field, name);
  return write_at(32U + 32U * static_cast<std::uint64_t>(index),
                  bytes(field).first(field_name_size));
}

void Tzu_file_dbf_exe::set_rec(std::uint32_t record) {
  if (!file_ || current_ == record) return;
  write_back();
  read_at(record_offset(record), record_);
  current_ = record;
}

// The part of the field that lies inside the record.
Tzu_file_dbf_exe::extent Tzu_file_dbf_exe::field_extent(std::uint32_t index) const noexcept {
  if (index >= fields_.size()) return {};
  std::size_t const offset = get_u32(fields_[index], field_offset_at);
  if (offset >= record_.size()) return {};
  return {offset, std::min<std::size_t>(fields_[index][field_length_at], record_.size() - offset)};
}

std::string_view Tzu_file_dbf_exe::get_text(std::uint32_t index) const noexcept {
  char const type = get_prp_type(index);
  if (type == 'B' || type == 'I') return {};
  extent const field = field_extent(index);
  auto const text = as_text(bytes(record_).subspan(field.offset, field.length));
  return text.substr(0, text.find('\0'));
}

template <class Value>
Value Tzu_file_dbf_exe::binary_value(std::uint32_t index) const noexcept {
  extent const field = field_extent(index);
  Value value{};
  if (field.length == 0) return value;
  std::memcpy(&value, record_.data() + field.offset, std::min(field.length, sizeof value));
  return value;
}

char const* Tzu_file_dbf_exe::to_scratch(std::string_view text) {
  if (scratch_.size() <= text.size()) scratch_.resize(std::max(scratch_size, text.size() + 1));
  std::ranges::copy(text, scratch_.begin());
  scratch_[text.size()] = '\0';
  return scratch_.c_str();
}

char const* Tzu_file_dbf_exe::get_str(std::uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B':
      return to_scratch(zu::number::format_double(binary_value<double>(index), 6));
    case 'I':
      return to_scratch(zu::number::format_int(binary_value<std::int32_t>(index)));
    default:
      return to_scratch(get_text(index));
  }
}

int Tzu_file_dbf_exe::get_int(std::uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B': {
      double const value = std::trunc(binary_value<double>(index));
      // False for a NaN. The comparison operators may trap on one.
      bool const fits = std::isgreaterequal(value, INT32_MIN) && std::islessequal(value, INT32_MAX);
      return fits ? static_cast<int>(value) : 0;
    }
    case 'I':
      return binary_value<std::int32_t>(index);
    default:
      return zu::number::scan_int(get_text(index)).value_or(0);
  }
}

double Tzu_file_dbf_exe::get_dbl(std::uint32_t index) const noexcept {
  return binary_value<double>(index);
}

bool Tzu_file_dbf_exe::get_bool(std::uint32_t index) {
  switch (get_prp_type(index)) {
    case 'B':
      return std::fpclassify(binary_value<double>(index)) != FP_ZERO;
    case 'I':
      return binary_value<std::int32_t>(index) != 0;
    default: {
      bool flag = false;
      return try_bool(get_text(index), flag) && flag;
    }
  }
}

bool Tzu_file_dbf_exe::try_bool(std::string_view text, bool& flag) noexcept {
  constexpr std::array<std::string_view, 8> spellings{"t", "true",  "1", "y",
                                                      "f", "false", "0", "n"};
  auto const found = std::ranges::find_if(
      spellings, [text](auto spelling) { return zu::str::trim_stricmp(text, spelling) == 0; });
  if (found == spellings.end()) return false;
  flag = found - spellings.begin() < 4;
  return true;
}

void Tzu_file_dbf_exe::set_str(std::uint32_t index, char const* text) {
  std::string padded(text);
  padded.resize(get_prp_len(index), static_cast<char>(blank));
  set_binary(index, as_bytes(padded));
}

// Copies the value into the field, as many bytes as fit.
void Tzu_file_dbf_exe::set_binary(std::uint32_t index, bytes value) {
  extent const field = field_extent(index);
  if (!current_ || field.length == 0) return;
  std::memcpy(record_.data() + field.offset, value.data(), std::min(field.length, value.size()));
  dirty_ = true;
}

void Tzu_file_dbf_exe::set_int(std::uint32_t index, int value) {
  set_binary(index, {reinterpret_cast<std::uint8_t const*>(&value), sizeof value});
}

void Tzu_file_dbf_exe::set_dbl(std::uint32_t index, double value) {
  set_binary(index, {reinterpret_cast<std::uint8_t const*>(&value), sizeof value});
}

void Tzu_file_dbf_exe::set_bool(std::uint32_t index, bool flag) {
  switch (get_prp_type(index)) {
    case 'B':
      return set_dbl(index, flag ? 1 : 0);
    case 'I':
      return set_int(index, flag ? 1 : 0);
    default:
      return set_str(index, flag ? "T" : "F");
  }
}

void Tzu_file_dbf_exe::set_foxpro_code_page(std::uint8_t value) {
  header_[code_page_at] = value;
  write_header();
}

int Tzu_file_dbf::open(wchar_t const* name, bool read_only) {
  if (!zu::strconv::has_system_spelling(name)) {
    close();
    return 1;
  }
  return exe_->open(zu::strconv::to_system(name).c_str(), read_only);
}
