#include "vcl/list_keys.h"

namespace zu::vcl::platform {

void add_list_keys(Tzu_vcl_selbox& /*list*/) {}

}  // namespace zu::vcl::platform
