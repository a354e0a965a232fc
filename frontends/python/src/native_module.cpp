// The module `contextdata._native`.
#include <pybind11/pybind11.h>

#include <utility>

#include "frontends/python/src/complete.h"
#include "frontends/python/src/describe.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/listing_cache.h"
#include "frontends/python/src/policy.h"
#include "frontends/python/src/process.h"
#include "frontends/python/src/results.h"
#include "frontends/python/src/what.h"
#include "host/exceptions.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

namespace {

constexpr const char* completeDocumentation =
    "complete(text, cursor=None, namespace=None, *, inside=None, ranked=False, limit=None)\n--\n\n"
    "Says which names may follow the text up to the cursor.\n\n"
    "After a dot these are the members of what stands before it: a literal, or a chain of names that may have\n"
    "constant subscripts, s[2]., d['k'].x. Without a dot they are the names that begin so: variables, built-in\n"
    "names, words of the language. After 'import' and 'from' they are modules and what modules hold, at the start\n"
    "of an argument the arguments that the call may name as well, in x[\" the keys of x, and in other strings\n"
    "files and folders.\n\n"
    "The text is read, never run, unless the policy is 'full': neither are the properties, descriptors and hooks\n"
    "of the objects it names; only an object's own __dir__ is asked, when its class has one. Nothing is imported.\n\n"
    "text: a str, from the start of a cell or line.\n"
    "cursor: a position in code points; the end of the text when left out.\n"
    "namespace: the plain dict of the names that the text can use, or a tuple of two, the locals and the globals;\n"
    "built-in names come last. When left out, the variables of the frame in the focus of a watched pdb that is\n"
    "stopped, else those of __main__.\n"
    "inside: the class in whose code the text stands, or its name, \"module.Class\". It is offered its private\n"
    "names as well, as they are typed there (__name), and what it and its superclasses keep to themselves\n"
    "(_name). When left out while a watched pdb is stopped in a method, the method's class; private names are\n"
    "then spelled as they are stored, which is what pdb understands.\n"
    "ranked: whether the best come first, and other letter case, left-out letters and a typing error are forgiven;\n"
    "otherwise names that begin exactly so, sorted by name.\n"
    "limit: the most names of an answer.\n\n"
    "The answer is a Completions. When it is empty, its reason says why.";

constexpr const char* membersDocumentation =
    "members(object, /)\n--\n\n"
    "Lists what may follow a live object, class or module and a dot: a list of Completion, sorted by name.";

// A second interpreter gets a copy of the module without anybody being asked, so the package has to ask.
PyObject* requireMain(PyObject* /*module*/, PyObject* /*none*/) noexcept {
    return requireMainInterpreter() ? Py_NewRef(Py_None) : nullptr;
}

// Called without the binding library's own dispatch, which costs more than a small answer does.
PyMethodDef quickFunctions[] = {
    {"complete", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(complete)), METH_FASTCALL | METH_KEYWORDS,
     completeDocumentation},
    {"members", members, METH_O, membersDocumentation},
    {"require_main_interpreter", requireMain, METH_NOARGS, "Raises ImportError in a subinterpreter."},
    {nullptr, nullptr, 0, nullptr}};

}  // namespace

namespace {

void fill(pybind11::module_& module) {
    python_host::prepare();
    followProcess();
    module.doc() = "The completion engine on the live Python session.";
    addResultTypes(module);
    if (PyModule_AddFunctions(module.ptr(), quickFunctions) != 0) {
        throwRaised();
    }
    pybind11::register_exception_translator([](std::exception_ptr thrown) {
        try {
            std::rethrow_exception(std::move(thrown));
        } catch (const RaisedError& error) {
            error.restore();
        } catch (const foundation::core::except::InterruptException&) {
            PyErr_SetNone(PyExc_KeyboardInterrupt);
        }
    });
    module.def("explain", &explain, pybind11::arg("text"), pybind11::arg("namespace"),
               "Says why a text offers nothing: (reason, names of the chain, how many of them could be followed).");
    module.def("describe", &describe, pybind11::arg("subject"), pybind11::arg("namespace"), pybind11::arg("hidden"),
               "Describes a class or an object: (module, file, description, own attributes).");
    module.def("what", &what, pybind11::arg("folder"), pybind11::arg("kind"),
               "Lists the entries of one kind in a folder; None when the folder is found nowhere.");
    module.def("policy", &policy,
               "policy()\n--\n\nThe policy under which what stands before a dot is evaluated: 'strict', 'guarded' or "
               "'full'.");
    module.def("set_policy", &setPolicy, pybind11::arg("name"),
               "set_policy(name)\n--\n\nChooses what may be evaluated before a dot: 'strict' names and plain data; "
               "'guarded', the default, constant subscripts, literals and known getters too; 'full' everything, which "
               "runs the code that stands there.");
    module.def(
        "set_stopped_debugger",
        [](const pybind11::object& debugger) {
            python_host::setStoppedDebugger(debugger.is_none() ? nullptr : debugger.ptr());
        },
        pybind11::arg("debugger"), "Says which debugger holds the program; None when none does.");
    module.def(
        "kept_listings", [] { return listingCache().size(); }, "How many listings are kept at this moment.");
    module.def(
        "forget_listings", [] { listingCache().clear(); }, "Drops the listings that are kept.");
    module.attr("most_kept_listings") = ListingCache::capacity;
}

}  // namespace

}  // namespace contextdata::python

/// What the import machinery calls, once in the process. Not by the binding library's macro: that begins with what
/// belongs to one interpreter for good, before anything can be refused.
extern "C" PYBIND11_EXPORT PyObject* PyInit__native() {  // NOLINT(bugprone-reserved-identifier): Python names it
    static pybind11::module_::module_def definition;
    if (!contextdata::python::requireMainInterpreter()) {
        return nullptr;
    }
    try {
        pybind11::detail::get_internals();
        auto module = pybind11::module_::create_extension_module("_native", nullptr, &definition);
        contextdata::python::fill(module);
        return module.ptr();
    } catch (...) {
        contextdata::python::setErrorFromException();
        return nullptr;
    }
}
