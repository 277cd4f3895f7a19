// A small stand-in for the host suite's base module. Tests load it as a host
// would and look at what it was asked.

extern "C" {

struct zuk_basic_state {
  wchar_t const* main_module_path;
  int language;
  int adapters;  // made and not destroyed
  int feeds;
};

zuk_basic_state zuk_basic_now{L"/opt/suite/bin/suite", 0, 0, 0};

struct zuk_adapter {
  void (*narrow)(char const*, void*);
  void (*wide)(wchar_t const*, void*);
  void* context;
};

wchar_t const* zu_options_get_main_module_path() { return zuk_basic_now.main_module_path; }

int zu_res_get_lng() { return zuk_basic_now.language; }

zuk_adapter* zu_string_adp_create(void (*narrow)(char const*, void*),
                                  void (*wide)(wchar_t const*, void*), void* context) {
  ++zuk_basic_now.adapters;
  return new zuk_adapter{narrow, wide, context};
}

void zu_string_adp_destroy(zuk_adapter* adapter) {
  --zuk_basic_now.adapters;
  delete adapter;
}

void zu_string_adp_feed_c(zuk_adapter* adapter, char const* text) {
  ++zuk_basic_now.feeds;
  adapter->narrow(text, adapter->context);
}

void zu_string_adp_feed(zuk_adapter* adapter, wchar_t const* text) {
  ++zuk_basic_now.feeds;
  adapter->wide(text, adapter->context);
}

}  // extern "C"
