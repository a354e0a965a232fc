#include "hosts/python/evaluation/guarded_evaluation.h"

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/evaluation/constant_keys.h"
#include "hosts/python/evaluation/subscripts.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/property_access.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

/// What is made on the way may set off the collector of garbage, which runs finalisers of a user's.
class CollectorPause {
public:
    CollectorPause() noexcept : wasOn_(PyGC_Disable() != 0) {}
    CollectorPause(const CollectorPause&) = delete;
    CollectorPause& operator=(const CollectorPause&) = delete;
    ~CollectorPause() {
        if (wasOn_) {
            PyGC_Enable();
        }
    }

private:
    bool wasOn_;
};

class Evaluator {
public:
    Evaluator(const Workspace& workspace, EvaluationPolicy policy) noexcept
        : workspace_(workspace), isStrict_(policy == EvaluationPolicy::strict) {}

    Ref evaluate(const Expression& expression) const {
        Ref value = start(expression);
        for (const Step& step : expression.steps) {
            if (!value) {
                return {};
            }
            value = take(value.get(), step);
        }
        return value;
    }

private:
    Ref start(const Expression& expression) const {
        if (expression.kind == Expression::Kind::name) {
            return variable(expression.name);
        }
        return isStrict_ ? Ref() : literal(expression);
    }

    Ref literal(const Expression& expression) const {
        switch (expression.kind) {
            case Expression::Kind::constant:
                return expression.constant;
            case Expression::Kind::tuple:
                return tuple(expression);
            case Expression::Kind::list: {
                const Ref elements = tuple(expression);
                return elements ? orNothing(PySequence_List(elements.get())) : Ref();
            }
            case Expression::Kind::dictionary:
                return dictionary(expression);
            default:
                return {};
        }
    }

    Ref variable(const std::string& name) const {
        const Ref key = Ref::steal(makeText(name));
        if (!key) {
            return {};
        }
        Ref found = workspace_.find(key.get());
        return found ? found : Ref::share(findInModule("builtins", key.get()));
    }

    Ref take(PyObject* holder, const Step& step) const {
        if (step.subscript) {
            return isStrict_ ? Ref() : readSubscript(holder, *step.subscript);
        }
        const Ref name = Ref::steal(makeText(step.attribute));
        const AttributeReach reach = isStrict_ ? AttributeReach::plainData : AttributeReach::knownGetters;
        return name ? readAttribute(holder, name.get(), reach) : Ref();
    }

    Ref tuple(const Expression& expression) const {
        Ref made = orNothing(PyTuple_New(static_cast<Py_ssize_t>(expression.items.size())));
        for (std::size_t index = 0; made && index < expression.items.size(); ++index) {
            Ref item = evaluate(expression.items[index]);
            if (!item) {
                return {};
            }
            PyTuple_SET_ITEM(made.get(), static_cast<Py_ssize_t>(index), item.release());
        }
        return made;
    }

    /// Keys of other kinds would be asked for their hash.
    Ref dictionary(const Expression& expression) const {
        Ref made = orNothing(PyDict_New());
        for (std::size_t index = 0; made && index + 1 < expression.items.size(); index += 2) {
            const Ref key = evaluate(expression.items[index]);
            const Ref value = key ? evaluate(expression.items[index + 1]) : Ref();
            if (!value || !isPlainKey(key.get())) {
                return {};
            }
            if (PyDict_SetItem(made.get(), key.get(), value.get()) != 0) {
                PyErr_Clear();
                return {};
            }
        }
        return made;
    }

    const Workspace& workspace_;
    bool isStrict_;
};

}  // namespace

Ref evaluateGuarded(const Expression& expression, const Workspace& workspace, EvaluationPolicy policy) {
    const CollectorPause pause;
    return Evaluator(workspace, policy).evaluate(expression);
}

}  // namespace python_host
