#include "frontends/python/src/complete.h"

#include <span>
#include <utility>

#include "contextdata/values.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/subject.h"
#include "frontends/python/src/arguments.h"
#include "frontends/python/src/asker.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/live_members.h"
#include "frontends/python/src/module_members.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/question.h"
#include "frontends/python/src/results.h"
#include "frontends/python/src/variables.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::ParsedText;
using completion::Refusal;
using completion::Wanted;

namespace {

using Chain = std::span<const std::u16string_view>;

/// At most so many, and how many more there are.
std::pair<pybind11::object, Py_ssize_t> limited(pybind11::object items, Py_ssize_t limit) {
    const Py_ssize_t count = PyTuple_GET_SIZE(items.ptr());
    if (count <= limit) {
        return {std::move(items), 0};
    }
    PyObject* first = PyTuple_GetSlice(items.ptr(), 0, limit);
    if (first == nullptr) {
        throwRaised();
    }
    return {pybind11::reinterpret_steal<pybind11::object>(first), count - limit};
}

pybind11::object noReason() {
    // The interpreter has one empty text, which needs no memory.
    return pybind11::reinterpret_steal<pybind11::object>(PyUnicode_FromStringAndSize(nullptr, 0));
}

pybind11::object completeText(const CompleteArguments& arguments, const Asker& named) {
    const std::u16string text = utf16Of(arguments.text, arguments.cursor);
    const ParsedText parsed = completion::parse(text, text.size());
    const bool isAsked = parsed.wanted != Wanted::nothing;
    Question question(arguments, parsed, arguments.inside == nullptr && isAsked ? askerInFocus() : named);
    Offered offered = question.answer();
    const bool isEmpty = PyTuple_GET_SIZE(offered.items.ptr()) == 0;
    pybind11::object reason = isEmpty ? question.reason() : noReason();
    // An answer that is empty stands at the cursor when the text itself is refused.
    const std::size_t typed = isEmpty && parsed.refusal != Refusal::none ? 0 : offered.typed;
    auto [items, leftOut] = limited(std::move(offered.items), arguments.limit);
    return completionsOf({codePointBefore(arguments.text, arguments.cursor, typed), arguments.cursor, leftOut,
                          std::move(items), std::move(reason)});
}

/// The error that is being handled as the reason of an empty answer. The interrupt passes.
pybind11::object failedAnswer(const CompleteArguments& arguments) {
    setErrorFromException();
    if (PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0) {
        throwRaised();
    }
    return completionsOf({arguments.cursor, arguments.cursor, 0, pybind11::tuple(),
                          strOf(u"the completion failed: " + takeErrorText())});
}

pybind11::object answerTo(const CompleteArguments& arguments) {
    // Before anything else: a mistake is to be told whatever the text is.
    const Asker named = arguments.inside == nullptr ? Asker() : askerNamed(arguments.inside);
    try {
        return completeText(arguments, named);
    } catch (...) {
        return failedAnswer(arguments);
    }
}

/// How many names of a chain, from its first, lead somewhere.
std::size_t lengthFollowed(Chain chain, Variables& variables) {
    qxSharedArray value = variables.find(std::u16string(chain.front()));
    if (!value) {
        const bool isName = namedInSession(chain).nature != completion::Subject::Nature::nothing;
        return isName ? chain.size() : 0;
    }
    std::size_t followed = 1;
    while (followed < chain.size() && (value = completion::follow(value, chain.subspan(followed, 1)))) {
        ++followed;
    }
    return followed;
}

}  // namespace

PyObject* complete(PyObject* /*module*/, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return guarded([&] { return answerTo(readCompleteArguments(values, count, keywords)); });
}

PyObject* members(PyObject* /*module*/, PyObject* object) noexcept {
    return guarded([&]() -> pybind11::object {
        const qxSharedArray value = makeSharedPtr(python_host::wrap(object).release());
        return orThrow(PySequence_List(membersOfValue(value, {}, {}).ptr()));
    });
}

pybind11::tuple explain(const pybind11::str& text, const pybind11::dict& variables) {
    const std::u16string units = utf16Of(text.ptr(), PyUnicode_GET_LENGTH(text.ptr()));
    const ParsedText parsed = completion::parse(units, units.size());
    const pybind11::list chain = newList();
    if (parsed.wanted == Wanted::members) {
        for (const std::u16string_view segment : parsed.chain) {
            append(chain, strOf(segment));
        }
    }
    const python_host::CurrentWorkspace workspace(variables.ptr());
    Variables names(workspace);
    const std::size_t followed = chain.empty() ? 0 : lengthFollowed(parsed.chain, names);
    return tupleWith(strOfAscii(completion::textOf(parsed.refusal)), pybind11::object(chain),
                     orThrow(PyLong_FromSize_t(followed)));
}

}  // namespace contextdata::python
