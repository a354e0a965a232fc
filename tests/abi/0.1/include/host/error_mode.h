// The array library's error mode: what becomes of an error that it meets. Interpreter thread only.
#pragma once

#include <cstdint>

#include "host/visibility.h"

/// The modes are the host's own, save the one that the library asks for.
enum class qxErrorMode : std::int32_t {
    disabled = -1,  ///< errors are neither shown nor kept
};

/// May throw any host failure.
CONTEXTDATA_HOST_API qxErrorMode getErrorMode();

/// Never fails: it is called while failures pass.
CONTEXTDATA_HOST_API void setErrorMode(qxErrorMode mode) noexcept;
