// Receivers of result texts, and host adapters that feed them.
#pragma once

#include <string>

#include "suite/zuk_basic.h"

// Base of the library's own adapters. Each feed replaces the text before. A null text
// empties the target, and so does a failed conversion.
class Tzu_string_adapter_base {
 public:
  Tzu_string_adapter_base() = default;
  Tzu_string_adapter_base(Tzu_string_adapter_base const&) = delete;
  Tzu_string_adapter_base& operator=(Tzu_string_adapter_base const&) = delete;

  virtual void feed(char const* text) = 0;
  virtual void feed(wchar_t const* text) = 0;

  // Callbacks for zu_string_adp_create. The context is the adapter object.
  static void zu_ansi_string_callback(char const* text, void* context);
  static void zu_unicode_string_callback(wchar_t const* text, void* context);

 protected:
  ~Tzu_string_adapter_base() = default;
};

// Writes into a wide string of the caller, which must outlive the adapter. Narrow text
// is converted from the system's ANSI code page.
class Tzu_std_wstring_adapter final : public Tzu_string_adapter_base {
 public:
  explicit Tzu_std_wstring_adapter(std::wstring* target) : target_(target) {}
  void feed(char const* text) override;
  void feed(wchar_t const* text) override;

 private:
  std::wstring* target_;
};

// Writes into a narrow string of the caller, which must outlive the adapter. Wide text
// is converted to the system's ANSI code page, narrow text is not converted.
class Tzu_std_string_adapter final : public Tzu_string_adapter_base {
 public:
  explicit Tzu_std_string_adapter(std::string* target) : target_(target) {}
  void feed(char const* text) override;
  void feed(wchar_t const* text) override;

 private:
  std::string* target_;
};

namespace zu {

// Owns a host adapter that feeds one of the adapters above. Made for one call of a
// function that produces a text.
class string_adp {
 public:
  explicit string_adp(Tzu_string_adapter_base& target)
      : handle_(zu_string_adp_create(&Tzu_string_adapter_base::zu_ansi_string_callback,
                                     &Tzu_string_adapter_base::zu_unicode_string_callback,
                                     &target)) {}
  ~string_adp() { zu_string_adp_destroy(handle_); }
  string_adp(string_adp const&) = delete;
  string_adp& operator=(string_adp const&) = delete;

  Izu_string_adp* get() const noexcept { return handle_; }

 private:
  Izu_string_adp* handle_;
};

}  // namespace zu
