// The kinds of values by their names.
#pragma once

#include <iterator>
#include <string>
#include <utility>

#include "tests/conformance/suite/provider.h"

namespace conformance {

inline constexpr std::pair<ValueKind, const char*> valueKinds[] = {
    {ValueKind::doubleScalar, "double scalars"},
    {ValueKind::doubleRow, "rows of doubles"},
    {ValueKind::doubleMatrix, "matrices of doubles"},
    {ValueKind::emptyDouble, "double arrays without elements"},
    {ValueKind::logicalTrue, "logical scalars"},
    {ValueKind::logicalFalse, "logical scalars that are false"},
    {ValueKind::logicalRow, "logical rows"},
    {ValueKind::text, "char rows"},
    {ValueKind::missingText, "missing texts"},
    {ValueKind::textMatrix, "char matrices"},
    {ValueKind::cell, "cells"},
    {ValueKind::structure, "structures"},
    {ValueKind::functionHandle, "function handles"},
    {ValueKind::opaque, "opaque values"},
    {ValueKind::olderObject, "objects of the older object system"},
};
static_assert(std::size(valueKinds) == static_cast<std::size_t>(ValueKind::olderObject) + 1, "a name for each kind");

inline std::string nameOf(ValueKind kind) { return valueKinds[static_cast<std::size_t>(kind)].second; }

}  // namespace conformance
