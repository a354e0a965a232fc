// Expressions on behalf of introspection, under the policy of the process.
#include "host/evaluation.h"

#include <optional>

#include "host/i18n.h"
#include "hosts/python/errors.h"
#include "hosts/python/evaluation/expression_parser.h"
#include "hosts/python/evaluation/full_evaluation.h"
#include "hosts/python/evaluation/guarded_evaluation.h"
#include "hosts/python/python_host.h"

namespace python_host {

namespace {

constexpr auto failed = static_cast<inExecutionStatus>(1);

/// Nothing for a text that no source could hold.
std::optional<std::string> sourceOf(const std::u16string& expression) {
    try {
        constexpr bool refusesInvalid = true;
        return fl::i18n::to_string(expression, fl::i18n::codecvt_ustring_to_string(refusesInvalid));
    } catch (const fl::i18n::ConversionException&) {
        return std::nullopt;
    }
}

/// The expression of a statement that may end with a semicolon.
void dropSemicolon(std::string& text) {
    const std::size_t last = text.find_last_not_of(" \t\f\r\n");
    if (last != std::string::npos && text[last] == ';') {
        text.resize(last);
    }
}

Ref evaluate(const std::string& text) {
    const EvaluationPolicy policy = evaluationPolicy();
    const Workspace workspace = Workspace::current();
    if (policy == EvaluationPolicy::full) {
        return evaluateFully(text, workspace);
    }
    const std::optional<Expression> expression = parseExpression(text);
    return expression ? evaluateGuarded(*expression, workspace, policy) : Ref();
}

}  // namespace

}  // namespace python_host

inExecutionStatus inEvalExp(const std::u16string& expression, int outputCount, qxArray** outputs, bool flag,
                            inEvaluationSource /*source*/) {
    const python_host::PendingErrorGuard pending;
    std::optional<std::string> text = python_host::sourceOf(expression);
    if (!text) {
        return python_host::failed;
    }
    if (flag) {
        python_host::dropSemicolon(*text);
    }
    const python_host::Ref value = python_host::evaluate(*text);
    if (!value) {
        return python_host::failed;
    }
    if (outputCount > 0) {
        outputs[0] = python_host::wrap(value.get()).release();
    }
    return inExecutionStatus::success;
}
