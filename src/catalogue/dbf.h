// The library's own dBase table engine: the common dBase III layout and two
// binary field types, one record in memory at a time. No index, no memo, no
// locking. Fields are called properties in the names.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basic/file.h"

// Definition of one field for create.
class Tzu_dbf_prpdef {
 public:
  Tzu_dbf_prpdef() = default;
  Tzu_dbf_prpdef(std::string name, char type, std::uint8_t length, std::uint8_t decimal = 0)
      : name_(std::move(name)), type_(type), length_(length), decimal_(decimal) {}

  std::string const& get_name() const noexcept { return name_; }
  void set_name(std::string name) { name_ = std::move(name); }
  char get_type() const noexcept { return type_; }
  void set_type(char type) noexcept { type_ = type; }
  std::uint8_t get_length() const noexcept { return length_; }
  void set_length(std::uint8_t length) noexcept { length_ = length; }
  std::uint8_t get_decimal() const noexcept { return decimal_; }
  void set_decimal(std::uint8_t decimal) noexcept { decimal_ = decimal; }

 private:
  std::string name_;  // at most 10 characters are stored
  char type_ = 'C';
  std::uint8_t length_ = 0;
  std::uint8_t decimal_ = 0;
};

class Tzu_dbf_prpdefs {
 public:
  void add(Tzu_dbf_prpdef definition) { items_.push_back(std::move(definition)); }
  Tzu_dbf_prpdef const& get(std::size_t index) const { return items_.at(index); }
  Tzu_dbf_prpdef& get(std::size_t index) { return items_.at(index); }
  std::size_t get_size() const noexcept { return items_.size(); }
  void set_size(std::size_t size) { items_.resize(size); }
  void clear() noexcept { items_.clear(); }
  void assign(Tzu_dbf_prpdefs const& other) { items_ = other.items_; }

 private:
  std::vector<Tzu_dbf_prpdef> items_;
};

// One open table. Value calls use the current record and need a set_rec before them. A damaged
// table never causes an access outside a buffer: a part that a header, a descriptor or a
// record claims beyond the file or the record reads as zero bytes, and writes there are
// dropped.
class Tzu_file_dbf_exe {
 public:
  Tzu_file_dbf_exe() = default;
  ~Tzu_file_dbf_exe() { close(); }
  Tzu_file_dbf_exe(Tzu_file_dbf_exe const&) = delete;
  Tzu_file_dbf_exe& operator=(Tzu_file_dbf_exe const&) = delete;

  // Opens a table by its name in the system's ANSI code page. Closes the table that was open
  // before. 0 on success, 1 when the file cannot be opened.
  int open(char const* name, bool read_only);
  // Creates a table with `records` blank records. 0 on success, 1 when the file cannot be
  // created.
  int create(char const* name, Tzu_dbf_prpdefs const& definitions, std::uint32_t records);
  // Writes back a changed record and closes. False when anything written since open or create
  // did not reach the file.
  bool close();

  std::uint32_t get_nr() const noexcept;  // records, as the header claims
  std::uint32_t get_np() const noexcept { return static_cast<std::uint32_t>(fields_.size()); }
  // Records that begin inside the file and before its end mark. A header can claim any number;
  // use this one for a loop over all records.
  std::uint32_t get_records_in_file() noexcept;

  // Finds the first field with the name. Both are trimmed and compared without regard to case.
  bool find_prp_by_name(std::string_view name, std::uint32_t& index) const;
  // A view into the table's descriptors.
  std::string_view get_prp_name(std::uint32_t index) const noexcept;
  char get_prp_type(std::uint32_t index) const noexcept;
  unsigned get_prp_len(std::uint32_t index) const noexcept;
  unsigned get_prp_dec(std::uint32_t index) const noexcept;
  // Renames a field and writes that to the file at once. True when written.
  bool set_prp_name(std::uint32_t index, char const* name);

  void set_rec(std::uint32_t record);
  // The untrimmed text of a field. It is in a buffer of the table and valid until the next
  // value call.
  char const* get_str(std::uint32_t index);
  // The same text without a copy; valid until the record or table changes. Empty for fields of
  // the binary types: they have no text.
  std::string_view get_text(std::uint32_t index) const noexcept;
  int get_int(std::uint32_t index);
  double get_dbl(std::uint32_t index) const noexcept;
  bool get_bool(std::uint32_t index);
  static bool try_bool(std::string_view text, bool& flag) noexcept;
  void set_str(std::uint32_t index, char const* text);
  void set_int(std::uint32_t index, int value);
  void set_dbl(std::uint32_t index, double value);
  void set_bool(std::uint32_t index, bool flag);
  bool add_rec(std::uint32_t count);

  std::uint8_t get_foxpro_code_page() const noexcept { return header_[29]; }
  void set_foxpro_code_page(std::uint8_t value);

 private:
  using bytes = std::span<std::uint8_t const>;
  using descriptor = std::array<std::uint8_t, 32>;
  struct extent {
    std::size_t offset = 0;
    std::size_t length = 0;
  };

  unsigned header_length() const noexcept;
  unsigned record_length() const noexcept;
  std::uint64_t record_offset(std::uint32_t record) const noexcept;
  std::size_t read_at(std::uint64_t offset, std::span<std::uint8_t> target) noexcept;
  bool write_at(std::uint64_t offset, bytes source) noexcept;
  bool write_blank_records(std::uint64_t offset, std::uint32_t count);
  bool write_header() noexcept { return write_at(0, header_); }
  bool probe_descriptor(std::uint32_t index) noexcept;
  void read_descriptors();
  void allocate_buffers();
  void write_back() noexcept;
  extent field_extent(std::uint32_t index) const noexcept;
  template <class Value>
  Value binary_value(std::uint32_t index) const noexcept;
  void set_binary(std::uint32_t index, bytes value);
  char const* to_scratch(std::string_view text);

  std::string name_;
  zu::file::stream file_;
  bool read_only_ = false;
  bool failed_ = false;
  std::optional<std::uint64_t> position_;  // the stream's position for reading
  std::array<std::uint8_t, 32> header_{};
  std::vector<descriptor> fields_;
  std::optional<std::uint32_t> current_;
  bool dirty_ = false;
  std::vector<std::uint8_t> record_;
  std::string scratch_;
};

// Handle of a table: owns the engine and forwards to it.
class Tzu_file_dbf {
 public:
  int open(char const* name, bool read_only) { return exe_->open(name, read_only); }
  // Opens a table by its wide name. The name is converted to the system's ANSI code page; a
  // name that has other characters cannot be opened.
  int open(wchar_t const* name, bool read_only);
  int create(char const* name, Tzu_dbf_prpdefs const& definitions, std::uint32_t records) {
    return exe_->create(name, definitions, records);
  }
  bool close() { return exe_->close(); }
  std::uint32_t get_nr() const noexcept { return exe_->get_nr(); }
  std::uint32_t get_np() const noexcept { return exe_->get_np(); }
  std::uint32_t get_records_in_file() noexcept { return exe_->get_records_in_file(); }
  bool find_prp_by_name(std::string_view name, std::uint32_t& index) const {
    return exe_->find_prp_by_name(name, index);
  }
  std::string_view get_prp_name(std::uint32_t index) const noexcept {
    return exe_->get_prp_name(index);
  }
  char get_prp_type(std::uint32_t index) const noexcept { return exe_->get_prp_type(index); }
  unsigned get_prp_len(std::uint32_t index) const noexcept { return exe_->get_prp_len(index); }
  unsigned get_prp_dec(std::uint32_t index) const noexcept { return exe_->get_prp_dec(index); }
  bool set_prp_name(std::uint32_t index, char const* name) {
    return exe_->set_prp_name(index, name);
  }
  void set_rec(std::uint32_t record) { exe_->set_rec(record); }
  char const* get_str(std::uint32_t index) { return exe_->get_str(index); }
  std::string_view get_text(std::uint32_t index) const noexcept { return exe_->get_text(index); }
  int get_int(std::uint32_t index) { return exe_->get_int(index); }
  double get_dbl(std::uint32_t index) const noexcept { return exe_->get_dbl(index); }
  bool get_bool(std::uint32_t index) { return exe_->get_bool(index); }
  static bool try_bool(std::string_view text, bool& flag) noexcept {
    return Tzu_file_dbf_exe::try_bool(text, flag);
  }
  void set_str(std::uint32_t index, char const* text) { exe_->set_str(index, text); }
  void set_int(std::uint32_t index, int value) { exe_->set_int(index, value); }
  void set_dbl(std::uint32_t index, double value) { exe_->set_dbl(index, value); }
  void set_bool(std::uint32_t index, bool flag) { exe_->set_bool(index, flag); }
  bool add_rec(std::uint32_t count) { return exe_->add_rec(count); }
  std::uint8_t get_foxpro_code_page() const noexcept { return exe_->get_foxpro_code_page(); }
  void set_foxpro_code_page(std::uint8_t value) { exe_->set_foxpro_code_page(value); }

 private:
  std::unique_ptr<Tzu_file_dbf_exe> exe_ = std::make_unique<Tzu_file_dbf_exe>();
};
