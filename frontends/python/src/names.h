// What a text can name without a dot: variables, built-in names, words of the language.
#pragma once

#include <pybind11/pybind11.h>

#include <vector>

#include "frontends/completion/item.h"
#include "frontends/completion/ranking.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

/// The names that fit a choice, in no order: words of the language, then locals, globals and built-ins, so that of
/// several of one name the first is the one that it means. None of a choice of nothing typed.
///
/// Of the values no more than the type is looked at; keys that are no plain str, or no identifier, are passed over.
std::vector<completion::Item> namesFor(const python_host::CurrentWorkspace& workspace,
                                       const completion::Choice& choice);

/// What kind of thing a name is bound to, as its type tells; `otherwise` when the type does not.
completion::Kind kindOfBound(PyObject* value, completion::Kind otherwise);

}  // namespace contextdata::python
