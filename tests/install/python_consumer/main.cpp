// A program with an interpreter inside: asks what may follow a class of Python's own library and a dot.
#include <Python.h>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "contextdata/class_member_names.h"
#include "host/host.h"
#include "hosts/python/python_host.h"

int main() {
    if (std::string(host::host_name()) != "python") {
        std::cout << "this is the host " << host::host_name() << '\n';
        return 1;
    }
    Py_Initialize();
    PyObject* const library = PyImport_ImportModule("fractions");
    std::vector<std::u16string> names;
    bool flag = false;
    const bool grew = ZELKContextData::getClassMethodNames(u"fractions.Fraction", names, flag);
    const bool isThere = std::find(names.begin(), names.end(), u"limit_denominator") != names.end();
    std::cout << names.size() << " methods\n";
    Py_XDECREF(library);
    return Py_FinalizeEx() == 0 && grew && isThere ? 0 : 1;
}
