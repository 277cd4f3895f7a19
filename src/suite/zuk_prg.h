// The functions of the host suite's geometry library that this library calls. The types
// are our own stand-ins; other code uses them only through these functions.
#pragma once

#include <memory>

#include "zu_pj_edit/geometry.h"

namespace zu::prg {

struct closer {
  void operator()(Tzu_pp2d* sequence) const noexcept { zu_pv_d2_destroy(sequence); }
  void operator()(Tzu_op2d* set) const noexcept { zu_ov_d2_destroy(set); }
  void operator()(Tzu_pvtx_d3* sequence) const noexcept { zu_pv_d3_destroy(sequence); }
  void operator()(Tzu_ovtx_d3* set) const noexcept { zu_ov_d3_destroy(set); }
};

using pv_d2 = std::unique_ptr<Tzu_pp2d, closer>;
using ov_d2 = std::unique_ptr<Tzu_op2d, closer>;
using pv_d3 = std::unique_ptr<Tzu_pvtx_d3, closer>;
using ov_d3 = std::unique_ptr<Tzu_ovtx_d3, closer>;

}  // namespace zu::prg
