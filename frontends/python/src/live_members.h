// The members of live objects, with what classes and modules offer taken from the cache where it stands.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/ranking.h"
#include "frontends/completion/subject.h"
#include "frontends/python/src/asker.h"
#include "host/array_library.h"

namespace contextdata::python {

/// The members of a value whose names, as the asker spells them, are chosen: a tuple of `Completion`. The interrupt
/// passes.
pybind11::object membersOfValue(const qxSharedArray& value, const completion::Choice& choice, const Asker& asker);

/// The members of a subject that is no value: a class or module known by name.
pybind11::object membersOfNamed(const completion::Subject& subject, const completion::Choice& choice,
                                const Asker& asker);

}  // namespace contextdata::python
