// The session: its variables, the few functions that can be called by name, and the names of classes.
//
// Its whole language is the name of a variable. That is enough for chains: from a variable on, the library walks along
// properties and fields itself, and asks for an evaluation only where it cannot go on.
#include <map>

#include "data.h"
#include "failure.h"
#include "host/class_objects.h"
#include "host/class_system.h"
#include "host/evaluation.h"
#include "host/host.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/name_resolution.h"
#include "host/text.h"

const char* host::host_name() noexcept { return "minimal"; }

namespace minimal_host {

namespace {
std::map<std::string, Value, std::less<>> variables;
}

void assign(const std::string& variable, Value value) { variables[variable] = std::move(value); }

void forgetDefinitions();
void forgetEverything() {
    variables.clear();
    forgetDefinitions();
}

}  // namespace minimal_host

using minimal_host::Value;

// Variables and expressions.

namespace {

Value variable(std::string_view name) {
    const auto found = minimal_host::variables.find(name);
    return found == minimal_host::variables.end() ? nullptr : found->second;
}

/// Gives a result to a caller that has room for it.
void give(Value result, int outputCount, qxArray** outputs) {
    if (outputCount > 0) {
        outputs[0] = result.detach();
    }
}

}  // namespace

bool inValidInterpreterAvailable() { return true; }
qxSharedArray inGetValueFromCurrentWorkspace(const std::string& name) { return variable(name); }

inExecutionStatus inEvalExp(const std::u16string& expression, int outputCount, qxArray** outputs, bool /*flag*/,
                            inEvaluationSource /*source*/) {
    // What cannot be converted is no name of a variable, which is an error of the expression: a status.
    constexpr bool refuses = false;
    const Value value = variable(fl::i18n::to_string(expression, fl::i18n::codecvt_ustring_to_string(refuses)));
    if (!value) {
        return inExecutionStatus{1};
    }
    give(value, outputCount, outputs);
    return inExecutionStatus::success;
}

// Functions that are called by name. Each gets one value and gives a cell of texts.

namespace {

using Texts = std::vector<std::string>;

/// Collects the names of what a class shows.
class NameCollector final : public zelk::COSVisitor<zelk::COSInterface*> {
public:
    void visit(zelk::COSInterface* node) override {
        const zelk::COSMethodInfo* method = zelk::cosiToMethod(node);
        names.emplace_back(method == nullptr ? zelk::cosiToProp(node)->getName() : method->getName());
    }
    Texts names;
};

using ClassWalk = void (zelk::COSClass::*)(zelk::COSVisitor<zelk::COSInterface*>&);

Texts namesInClass(const qxArray* value, ClassWalk walk) {
    NameCollector collector;
    if (zelk::COSClass* cls = zelk::COSClass::getClass(omGetCOSClassID(value))) {
        (cls->*walk)(collector);
    }
    return collector.names;
}

Texts namesOfFields(const qxArray* value) {
    Texts names;
    for (std::size_t number = 0; number < qxGetNumberOfFields(value); ++number) {
        names.emplace_back(qxGetFieldNameByNumber(value, number));
    }
    return names;
}

Texts called(std::string_view function, const qxArray* value) {
    if (function == "methods") {
        return namesInClass(value, &zelk::COSClass::visitMethods);
    }
    if (function == "properties") {
        return namesInClass(value, &zelk::COSClass::visitProperties);
    }
    if (function == "fieldnames") {
        return namesOfFields(value);
    }
    throw template_host::Failure("no function " + std::string(function));
}

Value cellOf(const Texts& texts) {
    qxUniqueArray cell = qxCreateCell(texts.size(), 1);
    for (std::size_t index = 0; index < texts.size(); ++index) {
        qxSetCell(cell.get(), index, qxCreateString(fl::i18n::to_ustring(texts[index])));
    }
    return minimal_host::shared(std::move(cell));
}

}  // namespace

void inCallFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
               const char* functionName) {
    if (inputCount != 1) {
        throw template_host::Failure("every function here has one input");
    }
    give(cellOf(called(functionName, inputs[0])), outputCount, outputs);
}

void inFullFevalFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs) {
    if (inputCount < 1) {
        throw template_host::Failure("the first input names the function");
    }
    inCallFcn(outputCount, outputs, inputCount - 1, inputs + 1, fl::i18n::to_string(getScalarText(inputs[0])).c_str());
}

int inCallFcnWithTrap(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
                      const char* functionName, bool trap) {
    try {
        inCallFcn(outputCount, outputs, inputCount, inputs, functionName);
        return 0;
    } catch (const template_host::Failure&) {
        // Only errors of functions are trapped; an interrupt, if there were one, would pass.
        if (!trap) {
            throw;
        }
        return 1;
    }
}

qxArray* inCallMethodSingleInputSingleOutput(const qxArray* /*value*/, const char* methodName) {
    throw template_host::Failure(std::string(methodName) + " has a name here, but no body");
}

// Names of classes. There are no imports, so a class is known by its full name everywhere.

std::string zelk::nameresolution::omResolveAnyClass(const std::string& name, const FunctionScope* /*scope*/) {
    const zelk::COSClass* cls = zelk::COSClass::getClass(minimal_host::id(name));
    return cls == nullptr ? "" : cls->getName();
}
std::string zelk::nameresolution::getBaseClassNameFromFullName(std::string_view fullName) {
    return std::string(fullName);
}
bool zelk::nameresolution::isSoftwarePackageQualifiedName(std::string_view /*name*/) noexcept { return false; }
