#include "hosts/python/python_host.h"

namespace python_host {

namespace {

/// Under the GIL.
EvaluationPolicy currentPolicy = EvaluationPolicy::guarded;

}  // namespace

EvaluationPolicy evaluationPolicy() noexcept { return currentPolicy; }

void setEvaluationPolicy(EvaluationPolicy policy) noexcept { currentPolicy = policy; }

}  // namespace python_host
