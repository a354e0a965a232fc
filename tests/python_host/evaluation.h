// Short ways to ask what a text evaluates to.
#pragma once

#include <string>

#include "hosts/python/python_host.h"
#include "tests/python_host/session.h"

namespace session {

/// The `repr` of what the host evaluates a text to, or "refused".
std::string evaluated(const std::string& text, bool flag = false);

/// The `repr` of what the library finds for a text in the current workspace, or "nothing".
std::string found(const std::string& text);

/// Tests put the policy back.
class EvaluationTest : public PythonTest {
protected:
    void TearDown() override {
        python_host::setEvaluationPolicy(python_host::EvaluationPolicy::guarded);
        PythonTest::TearDown();
    }
};

}  // namespace session
