#include "tests/python_host/session.h"

#include <unistd.h>

#include "contextdata/class_member_names.h"
#include "host/i18n.h"
#include "host/interpreter.h"
#include "host/text.h"
#include "hosts/python/python_host.h"

namespace session {

namespace {

class Interpreter final : public ::testing::Environment {
public:
    void SetUp() override {
        PyConfig config;
        PyConfig_InitPythonConfig(&config);
        config.install_signal_handlers = 1;
        PyConfig_SetBytesString(&config, &config.program_name, CONTEXTDATA_TEST_PYTHON);
        const PyStatus status = Py_InitializeFromConfig(&config);
        PyConfig_Clear(&config);
        ASSERT_FALSE(PyStatus_Exception(status)) << "the interpreter does not start";
    }

    void TearDown() override { EXPECT_EQ(Py_FinalizeEx(), 0); }
};

[[maybe_unused]] ::testing::Environment* const interpreter = ::testing::AddGlobalTestEnvironment(new Interpreter);

PyObject* globals() { return PyModule_GetDict(PyImport_AddModule("__main__")); }

Ref evaluate(const std::string& code, int start) {
    Ref result = Ref::steal(PyRun_String(code.c_str(), start, globals(), globals()));
    if (!result) {
        PyErr_Print();
        ADD_FAILURE() << "Python fails at: " << code;
    }
    return result;
}

using Listing = bool (*)(const std::u16string&, std::vector<std::u16string>&, bool&);

Names list(Listing listing, const std::string& className) {
    std::vector<std::u16string> wide;
    bool flag = false;
    listing(fl::i18n::to_ustring(className), wide, flag);
    Names names;
    for (const std::u16string& name : wide) {
        names.push_back(fl::i18n::to_string(name));
    }
    return names;
}

std::string textOf(const qxArray* value) {
    return value == nullptr ? std::string("<nothing>") : fl::i18n::to_string(getScalarText(value));
}

}  // namespace

void run(const std::string& code) { evaluate(code, Py_file_input); }

Ref eval(const std::string& expression) { return evaluate(expression, Py_eval_input); }

long evalNumber(const std::string& expression) {
    const Ref result = eval(expression);
    return result ? PyLong_AsLong(result.get()) : -1;
}

std::string evalText(const std::string& expression) {
    const Ref result = eval(expression);
    const char* text = result ? PyUnicode_AsUTF8(result.get()) : nullptr;
    return text == nullptr ? std::string() : text;
}

qxUniqueArray value(const std::string& expression) {
    const Ref object = eval(expression);
    return python_host::wrap(object ? object.get() : Py_None);
}

zelk::COSInternedID id(const std::string& name) { return zelk::internal::makeInterned(name); }

zelk::COSClass* classOf(const std::string& name) { return zelk::COSClass::getClass(id(name)); }

std::string nameOfClass(const std::string& expression) {
    const Ref type = eval(expression);
    return type && PyType_Check(type.get()) ? python_host::classIdOf(python_host::asType(type.get())).c_str() : "";
}

Names methods(const std::string& className) { return list(ZELKContextData::getClassMethodNames, className); }
Names staticMethods(const std::string& className) {
    return list(ZELKContextData::getClassStaticMethodNames, className);
}
Names properties(const std::string& className) { return list(ZELKContextData::getClassPropertyNames, className); }
Names constants(const std::string& className) {
    return list(ZELKContextData::getClassConstantPropertyNames, className);
}
Names enumerationMembers(const std::string& className) {
    return list(ZELKContextData::getClassEnumerationNames, className);
}

Names call(const std::string& function, const std::string& expression) {
    const qxUniqueArray input = value(expression);
    const qxArray* inputs[] = {input.get()};
    qxArray* output = nullptr;
    inCallFcn(1, &output, 1, inputs, function.c_str());
    const qxUniqueArray answer(output);
    Names names;
    for (std::size_t index = 0; index < qxGetNumberOfElements(answer.get()); ++index) {
        names.push_back(textOf(qxGetCell(answer.get(), index)));
    }
    return names;
}

Names walk(const zelk::COSIteratorPtr& nodes, const std::function<const char*(zelk::COSInterface*)>& name) {
    Names names;
    while (nodes && nodes->hasMoreElements()) {
        const zelk::COSInterfacePtr node = nodes->nextElement();
        names.emplace_back(name(node.get()));
    }
    return names;
}

zelk::COSPropInfo* property(const std::string& className, const std::string& name) {
    zelk::COSClass* cls = classOf(className);
    // The table behind the class keeps the node after the handle has ended.
    return cls == nullptr ? nullptr : zelk::cosiToProp(cls->findProperty(id(name)).get());
}

zelk::COSMethodInfo* method(const std::string& className, const std::string& name) {
    zelk::COSClass* cls = classOf(className);
    const zelk::COSIteratorPtr found = cls == nullptr ? zelk::COSIteratorPtr() : cls->findMethods(id(name));
    return found && found->hasMoreElements() ? zelk::cosiToMethod(found->nextElement().get()) : nullptr;
}

std::filesystem::path ownFolder() {
    return std::filesystem::temp_directory_path() / ("contextdata_python_host_test_" + std::to_string(getpid()));
}

void PythonTest::SetUp() {
    run("import gc\n"
        "for name in globals().keys() - {'__name__', '__doc__', '__package__', '__loader__', '__spec__',"
        " '__annotations__', '__builtins__', 'gc'}: del globals()[name]\n"
        "gc.collect()\n"
        "globals().pop('name', None)\n"
        "del gc\n"
        "trace = []\n");
}

void PythonTest::TearDown() {
    ASSERT_EQ(PyErr_Occurred(), nullptr) << "a Python error was left behind";
    EXPECT_EQ(evalText("repr(trace)"), "[]") << "code of a user has run";
}

}  // namespace session
