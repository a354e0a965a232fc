// Lists an unchanged class again and again on the live host, in C++, and prints nanoseconds a name.
//
// A line a listing: "what|names|median nanoseconds a name|the same for a copy of the list". The copy makes the same
// strings and drops them again, which no list can do without.
#include <Python.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "contextdata/class_member_names.h"
#include "hosts/python/python_host.h"

namespace {

using ZELKContextData::ResolvedClassID;
using Names = std::vector<std::u16string>;
using Listing = bool (*)(const ResolvedClassID& cls, Names& names, bool& flag);

constexpr int rounds = 2'000;

// Names of the lengths that people give to members.
constexpr const char* program = R"(
import enum, numpy, pandas
Many = type("Many", (), {f"method_number_{number}": lambda self: None for number in range(1000)}
            | {f"property_number_{number}": property(lambda self: None) for number in range(200)})
Choices = enum.Enum("Choices", {f"CHOICE_{number}": number for number in range(300)})
)";

bool startInterpreter() {
    PyConfig config;
    PyConfig_InitPythonConfig(&config);
    PyConfig_SetBytesString(&config, &config.program_name, CONTEXTDATA_BENCH_PYTHON);
    const PyStatus status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    return !PyStatus_Exception(status) && PyRun_SimpleString(program) == 0;
}

Names list(Listing listing, const ResolvedClassID& cls) {
    Names names;
    bool flag = false;
    listing(cls, names, flag);
    return names;
}

/// The median time of making a list and dropping it, in nanoseconds a name.
template <class Make>
double nanosecondsPerName(Make make) {
    std::vector<double> times;
    std::size_t names = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        names = make().size();
        times.push_back(std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2] / static_cast<double>(names);
}

/// Prints one line; false when the class is not there or lists nothing.
bool measure(const char* what, const char* expression, Listing listing) {
    PyObject* main = PyModule_GetDict(PyImport_AddModule("__main__"));
    PyObject* type = PyRun_String(expression, Py_eval_input, main, main);
    if (type == nullptr || !PyType_Check(type)) {
        PyErr_Print();
        return false;
    }
    const auto cls =
        ResolvedClassID::fromKnownResolvedClassID(python_host::classIdOf(reinterpret_cast<PyTypeObject*>(type)));
    const Names names = list(listing, cls);
    if (names.empty()) {
        std::fprintf(stderr, "unchanged_class: %s lists nothing\n", what);
        return false;
    }
    std::printf("%s|%zu|%.2f|%.2f\n", what, names.size(), nanosecondsPerName([&] { return list(listing, cls); }),
                nanosecondsPerName([&] { return Names(names); }));
    Py_DECREF(type);
    return true;
}

}  // namespace

int main() {
    if (!startInterpreter()) {
        std::fprintf(stderr, "unchanged_class: the interpreter does not start\n");
        return 1;
    }
    const Listing methods = ZELKContextData::getClassMethodNames;
    const Listing properties = ZELKContextData::getClassPropertyNames;
    const bool measured =
        measure("methods of a class of 1 200 members", "Many", methods) &&
        measure("properties of a class of 1 200 members", "Many", properties) &&
        measure("members of an enumeration of 300", "Choices", ZELKContextData::getClassEnumerationNames) &&
        measure("methods of a DataFrame", "pandas.DataFrame", methods) &&
        measure("methods of an ndarray", "numpy.ndarray", methods) &&
        measure("properties of an ndarray", "numpy.ndarray", properties);
    return Py_FinalizeEx() == 0 && measured ? 0 : 1;
}
