// Counts what a program takes by operator new, its libraries' share included.
#pragma once

#include <cstddef>

std::size_t allocation_count() noexcept;
