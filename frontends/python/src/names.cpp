#include "frontends/python/src/names.h"

#include <string>
#include <string_view>
#include <utility>

#include "frontends/python/src/python_language.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/variables.h"

namespace contextdata::python {

using completion::Choice;
using completion::Item;
using completion::Kind;
using completion::Match;
using completion::Typed;

namespace {

/// Collects the names that fit, closely or at all.
class FittingNames {
public:
    FittingNames(std::u16string_view text, bool isForgiving, bool isClose)
        : typed_(text), isForgiving_(isForgiving), isClose_(isClose) {}

    void addWords() {
        for (const std::u16string_view word : pythonKeywords()) {
            if (fits(word)) {
                add(word, Kind::keyword, true);
            }
        }
    }

    /// Of a dictionary, or of anything else, which holds no names.
    void addKeys(PyObject* scope, bool comesWithTheLanguage) {
        if (scope == nullptr || !PyDict_Check(scope)) {
            return;
        }
        Py_ssize_t position = 0;
        PyObject* key = nullptr;
        PyObject* value = nullptr;
        while (PyDict_Next(scope, &position, &key, &value) != 0) {
            // What makes no Python object on the way cannot set off the collector, which may change the dictionary.
            if (PyUnicode_CheckExact(key) && PyUnicode_IS_READY(key) && mayFit(key)) {
                assignUtf16(name_, key);
                if (fits(name_) && python_host::isIdentifier(key)) {
                    add(name_, kindOfBound(value, Kind::variable), comesWithTheLanguage);
                }
            }
        }
    }

    std::vector<Item> take() { return std::move(items_); }

private:
    /// A first look at the letters at both ends of what was typed, which decides for most names.
    bool mayFit(PyObject* key) const {
        const std::u16string_view text = typed_.text();
        const auto length = static_cast<std::size_t>(PyUnicode_GET_LENGTH(key));
        if (!isClose_ || PyUnicode_KIND(key) == PyUnicode_4BYTE_KIND) {
            return true;
        }
        return length >= text.size() && mayBe(key, text.size() - 1) && mayBe(key, 0);
    }

    bool mayBe(PyObject* key, std::size_t place) const {
        const auto unit = static_cast<char16_t>(PyUnicode_READ_CHAR(key, static_cast<Py_ssize_t>(place)));
        const char16_t wanted = typed_.text()[place];
        return unit == wanted || (isForgiving_ && completion::lowered(unit) == completion::lowered(wanted));
    }

    bool fits(std::u16string_view name) const {
        if (!isForgiving_) {
            return name.starts_with(typed_.text());
        }
        return (isClose_ ? typed_.closeMatch(name) : typed_.match(name)) != Match::none;
    }

    void add(std::u16string_view name, Kind kind, bool comesWithTheLanguage) {
        Item item{std::u16string(name), kind};
        item.isInherited = comesWithTheLanguage;
        items_.push_back(std::move(item));
    }

    Typed typed_;
    bool isForgiving_;
    bool isClose_;
    std::u16string name_;  // the one that is looked at
    std::vector<Item> items_;
};

std::vector<Item> fittingNames(const python_host::CurrentWorkspace& workspace, FittingNames names) {
    names.addWords();
    names.addKeys(workspace.locals(), false);
    if (workspace.globals() != workspace.locals()) {
        names.addKeys(workspace.globals(), false);
    }
    names.addKeys(python_host::builtinNames(), true);
    return names.take();
}

}  // namespace

Kind kindOfBound(PyObject* value, Kind otherwise) {
    if (PyType_Check(value)) {
        return Kind::classType;
    }
    if (PyModule_Check(value)) {
        return Kind::space;
    }
    return PyFunction_Check(value) || PyCFunction_Check(value) ? Kind::function : otherwise;
}

std::vector<Item> namesFor(const python_host::CurrentWorkspace& workspace, const Choice& choice) {
    if (choice.typed.empty()) {
        return {};
    }
    std::vector<Item> names = fittingNames(workspace, {choice.typed, choice.isRanked, true});
    return names.empty() && choice.isRanked ? fittingNames(workspace, {choice.typed, true, false}) : names;
}

}  // namespace contextdata::python
