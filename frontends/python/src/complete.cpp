#include "frontends/python/src/complete.h"

#include <span>
#include <utility>

#include "contextdata/values.h"
#include "frontends/completion/complete.h"
#include "frontends/completion/expression_value.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/subject.h"
#include "frontends/python/src/arguments.h"
#include "frontends/python/src/asker.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/listing.h"
#include "frontends/python/src/live_members.h"
#include "frontends/python/src/module_members.h"
#include "frontends/python/src/python_language.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/results.h"
#include "frontends/python/src/variables.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Items;
using completion::ParsedText;
using completion::Refusal;
using completion::Wanted;

namespace {

using Chain = std::span<const std::u16string_view>;

/// A prompt is no file: names mean what they mean in the session.
const std::u16string noFile;

pybind11::object membersOfChain(Chain chain, std::u16string_view prefix, Variables& variables, const Asker& asker) {
    qxSharedArray root = variables.find(std::u16string(chain.front()));
    if (!root) {
        return membersOfNamed(namedInSession(chain), prefix, asker);
    }
    const qxSharedArray value = completion::follow(std::move(root), chain.subspan(1));
    return value ? membersOfValue(value, prefix, asker) : pybind11::tuple();
}

/// All that is no member of a chain of plain names. A chain with subscripts leads to a live value like any other.
pybind11::object itemsBeyondChains(const ParsedText& parsed, Variables& variables, const Asker& asker) {
    if (parsed.wanted == Wanted::membersOfExpression) {
        const qxSharedArray value = completion::valueOfExpression(parsed.expression);
        return value ? membersOfValue(value, parsed.fragment, asker) : pybind11::tuple();
    }
    Items items = itemsFor(parsed, {.text = {}, .file = noFile, .language = pythonLanguage()}, variables);
    if (parsed.wanted == Wanted::importedNames) {
        items = merged(withoutPrivateModules(std::move(items)), boundNames(parsed.chain, parsed.fragment));
    } else if (parsed.wanted == Wanted::modules && parsed.fragment.empty()) {
        items = withoutPrivateModules(std::move(items));
    }
    return Listing(std::move(items)).tupleOf({});
}

/// An answer that is empty stands at the cursor when the text itself is refused.
pybind11::object answerTo(const CompleteArguments& arguments, const ParsedText& parsed, pybind11::object items) {
    const bool isRefused = parsed.refusal != Refusal::none && PyTuple_GET_SIZE(items.ptr()) == 0;
    const std::size_t typed = isRefused ? 0 : completion::typedName(parsed).size();
    return completionsOf(codePointBefore(arguments.text, arguments.cursor, typed), arguments.cursor, std::move(items));
}

pybind11::object completeText(const CompleteArguments& arguments) {
    // Before anything else: a mistake is to be told whatever the text is.
    const Asker named = arguments.inside == nullptr ? Asker() : askerNamed(arguments.inside);
    const std::u16string text = utf16Of(arguments.text, arguments.cursor);
    const ParsedText parsed = completion::parse(text, text.size());
    if (parsed.wanted == Wanted::nothing) {
        return answerTo(arguments, parsed, pybind11::tuple());
    }
    const Asker asker = arguments.inside == nullptr ? askerInFocus() : named;
    Variables variables(arguments.variables);
    if (parsed.wanted == Wanted::members) {
        return answerTo(arguments, parsed, membersOfChain(parsed.chain, parsed.fragment, variables, asker));
    }
    const python_host::CurrentWorkspace workspace(arguments.variables);
    return answerTo(arguments, parsed, itemsBeyondChains(parsed, variables, asker));
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
    return guarded([&] { return completeText(readCompleteArguments(values, count, keywords)); });
}

PyObject* members(PyObject* /*module*/, PyObject* object) noexcept {
    return guarded([&]() -> pybind11::object {
        const qxSharedArray value = makeSharedPtr(python_host::wrap(object).release());
        return pybind11::list(membersOfValue(value, {}, {}));
    });
}

pybind11::tuple explain(const pybind11::str& text, const pybind11::dict& variables) {
    const std::u16string units = utf16Of(text.ptr(), PyUnicode_GET_LENGTH(text.ptr()));
    const ParsedText parsed = completion::parse(units, units.size());
    pybind11::list chain;
    if (parsed.wanted == Wanted::members) {
        for (const std::u16string_view segment : parsed.chain) {
            chain.append(strOf(segment));
        }
    }
    Variables workspace(variables.ptr());
    const std::size_t followed = chain.empty() ? 0 : lengthFollowed(parsed.chain, workspace);
    return pybind11::make_tuple(completion::textOf(parsed.refusal), chain, followed);
}

}  // namespace contextdata::python
