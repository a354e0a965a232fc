#include "frontends/python/src/policy.h"

#include <algorithm>
#include <array>

#include "frontends/python/src/errors.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

namespace {

using python_host::EvaluationPolicy;

struct NamedPolicy {
    EvaluationPolicy policy;
    const char* name;
    completion::Rules rules;
};

constexpr std::array<NamedPolicy, 3> policies = {{
    // Members are read one by one by rules that are the guarded policy's own.
    {EvaluationPolicy::strict, "strict", {.name = u"strict", .walks = false}},
    {EvaluationPolicy::guarded, "guarded", {.name = u"guarded"}},
    {EvaluationPolicy::full, "full", {.name = u"full", .runsCode = true}},
}};

const NamedPolicy& policyInForce() noexcept {
    const auto isInForce = [](const NamedPolicy& each) { return each.policy == python_host::evaluationPolicy(); };
    return *std::find_if(policies.begin(), policies.end(), isInForce);
}

}  // namespace

completion::Rules rulesInForce() noexcept { return policyInForce().rules; }

const char* policy() noexcept { return policyInForce().name; }

void setPolicy(const pybind11::str& name) {
    for (const NamedPolicy& each : policies) {
        if (PyUnicode_CompareWithASCIIString(name.ptr(), each.name) == 0) {
            python_host::setEvaluationPolicy(each.policy);
            return;
        }
    }
    PyErr_Format(PyExc_ValueError, "there is no policy %R; the policies are 'strict', 'guarded' and 'full'",
                 name.ptr());
    throwRaised();
}

}  // namespace contextdata::python
