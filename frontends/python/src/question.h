// One text that was parsed, and what may follow it in the live session.
#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <span>
#include <string>

#include "frontends/completion/complete.h"
#include "frontends/completion/ranking.h"
#include "frontends/python/src/arguments.h"
#include "frontends/python/src/asker.h"
#include "frontends/python/src/variables.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

/// A prompt is no file: names mean what they mean in the session.
inline const std::u16string noFile;

/// What is offered, and how many UTF-16 units before the cursor a chosen name replaces.
struct Offered {
    pybind11::object items;  ///< a tuple of `Completion`
    std::size_t typed = 0;
};

/// Takes its variables from the workspace that was current, or named, when it was made. The interrupt passes.
class Question {
public:
    /// The parsed text outlives this, and so does the text that it was parsed from.
    Question(const CompleteArguments& arguments, const completion::ParsedText& parsed, const Asker& asker);

    Offered answer();

    /// Why there is no answer, as a str.
    pybind11::object reason();

private:
    completion::Request request(std::span<const completion::Item> names) const;
    Offered offered(pybind11::object items) const;
    pybind11::object membersAt(const qxSharedArray& value) const;
    pybind11::object membersOfChain();
    qxSharedArray valueOfExpression() const;
    Offered keys();
    completion::Items modules();
    completion::Items importedNames();

    const completion::ParsedText& parsed_;
    completion::Choice choice_;
    Asker asker_;
    python_host::CurrentWorkspace workspace_;
    Variables variables_;
};

}  // namespace contextdata::python
