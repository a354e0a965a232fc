#include "tests/python_host/evaluation.h"

#include "contextdata/workspace.h"
#include "host/evaluation.h"
#include "host/i18n.h"

namespace session {

namespace {

std::string reprOf(const qxArray* value) {
    const Ref text = Ref::steal(PyObject_Repr(python_host::unwrap(value)));
    const char* shown = text ? PyUnicode_AsUTF8(text.get()) : nullptr;
    if (shown == nullptr) {
        PyErr_Clear();
        return "<what cannot be shown>";
    }
    return shown;
}

}  // namespace

std::string evaluated(const std::string& text, bool flag) {
    qxArray* output = nullptr;
    const inExecutionStatus status =
        inEvalExp(fl::i18n::to_ustring(text), 1, &output, flag, inEvaluationSource::introspection);
    const qxUniqueArray value(output);
    EXPECT_EQ(value != nullptr, status == inExecutionStatus::success) << text;
    EXPECT_EQ(PyErr_Occurred(), nullptr) << text;
    return value ? reprOf(value.get()) : "refused";
}

std::string found(const std::string& text) {
    const qxSharedArray value = GetValueFromCurrentWorkspace(fl::i18n::to_ustring(text));
    EXPECT_EQ(PyErr_Occurred(), nullptr) << text;
    return value ? reprOf(value.get()) : "nothing";
}

}  // namespace session
