// The application's window: the owner of every form shown.
#pragma once

// Holds the native window (HWND, X11 window id cast to a pointer) that owns
// forms; null at the start.
class Tzu_application {
 public:
  static Tzu_application& instance() noexcept;

  void* get_handle() const noexcept { return handle_; }
  void set_handle(void* handle) noexcept { handle_ = handle; }

  ~Tzu_application() = default;
  Tzu_application(Tzu_application const&) = delete;
  Tzu_application& operator=(Tzu_application const&) = delete;

 private:
  Tzu_application() = default;

  void* handle_ = nullptr;
};

// Makes a window the application's window for the length of a scope. Restores the previous
// window however the scope ends.
class Tzu_handle_scope {
 public:
  explicit Tzu_handle_scope(void* handle) noexcept
      : kept_(Tzu_application::instance().get_handle()) {
    Tzu_application::instance().set_handle(handle);
  }
  ~Tzu_handle_scope() { Tzu_application::instance().set_handle(kept_); }

  Tzu_handle_scope(Tzu_handle_scope const&) = delete;
  Tzu_handle_scope& operator=(Tzu_handle_scope const&) = delete;

 private:
  void* kept_;
};
