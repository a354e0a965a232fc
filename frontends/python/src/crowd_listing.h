// The listing of an object that has very many names of its own, made of the keys that Python has them under.
#pragma once

#include <pybind11/pybind11.h>

#include "frontends/completion/item.h"
#include "frontends/python/src/listing.h"

namespace contextdata::python {

/// What a class's listing and the public keys of a dictionary offer together; a key that the class has as well is the
/// class's. No text is converted, and no item made, until somebody asks for items: for thousands of names, most of the
/// time would go there.
///
/// Null when there is a key that Python keeps in more than a byte a letter. Runs no user code, except what the
/// collector runs when completions are made; the dictionary is not looked at any more then.
ListingPtr crowdListing(const ListingPtr& ofClass, PyObject* dictionary, completion::Kind kind);

}  // namespace contextdata::python
