// What a fuzz target is: one function over bytes. A fuzzer of the compiler's leads it, or the replay program beside it.
#pragma once

#include <cstddef>
#include <cstdint>

/// Runs one case. Whatever is wrong ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
