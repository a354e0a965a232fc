// The labels of data frames and series, which may be read like attributes.
#pragma once

#include <Python.h>

#include <functional>

#include "hosts/python/members/member_table.h"
#include "hosts/python/objects/name_list.h"
#include "hosts/python/references.h"

namespace python_host {

/// Whether `__dir__` found in this class is the frame library's own, which adds labels and nothing else.
bool isLabelledDirectory(PyTypeObject* hookOwner);

/// Adds the labels that can be attributes and are no members of the class, read from where the library stores them;
/// false when the object is not laid out in the way that is known, with nothing added.
bool appendLabels(PyObject* object, const MemberTable& members, UniqueNameList& names);

/// Whether objects of the type are frames or series of the frame library.
bool isLabelled(PyTypeObject* type);

/// Visits the labels by which parts of a frame or series are chosen, be they texts or not: the columns of a frame, the
/// index of a series. Of several levels those of the first. False when the object is not laid out in the way that is
/// known. The label is alive for the visit alone.
bool eachLabel(PyObject* object, const std::function<void(PyObject* label)>& visit);

/// The axes of a frame or series, the one whose labels are attributes first; empty when the layout is not known.
Ref axesOf(PyObject* object);

}  // namespace python_host
