// The live host in the conformance suite: an interpreter inside the test program, and subjects written in its language.
#include <fstream>
#include <string>
#include <utility>

#include "host/i18n.h"
#include "hosts/python/python_host.h"
#include "tests/conformance/suite/provider.h"
#include "tests/python_host/session.h"
#include "tests/support/temporary_folder.h"

namespace {

using conformance::ClassTrait;
using conformance::MemberSubject;
using conformance::MemberTrait;
using conformance::ValueKind;
using session::run;
using session::value;

/// A text as the language writes it.
std::string quoted(const std::string& text) {
    const session::Ref object = session::Ref::steal(PyUnicode_FromString(text.c_str()));
    const session::Ref shown = session::Ref::steal(PyObject_Repr(object.get()));
    return PyUnicode_AsUTF8(shown.get());
}

class PythonProvider final : public conformance::Provider {
public:
    PythonProvider() {
        run("import sys, os\n"
            "for name in list(globals()):\n"
            "    if not name.startswith('__') and name not in ('sys', 'os', 'saved_path', 'saved_folder'):\n"
            "        del globals()[name]\n"
            "globals().pop('name', None)\n"
            "import enum, typing, types, dataclasses, numpy\n"
            "saved_path, saved_folder = list(sys.path), os.getcwd()\n");
    }

    ~PythonProvider() override {
        python_host::setStoppedDebugger(nullptr);
        python_host::setEvaluationPolicy(python_host::EvaluationPolicy::guarded);
        run("sys.path[:] = saved_path\nos.chdir(saved_folder)\nsys.modules.pop('conformance_space', None)\n"
            "sys.modules.pop('conformance_space.inner', None)");
    }

    std::string hostName() const override { return "python"; }

    qxUniqueArray value(ValueKind kind) override {
        const std::string expression = expressionFor(kind);
        return expression.empty() ? nullptr : session::value(expression);
    }

    std::optional<conformance::WatchedValue> watchedValue() override {
        run("class Watched: pass\nwatched = Watched()\nimport weakref\nwatch = weakref.ref(watched)");
        qxUniqueArray held = session::value("watched");
        run("del watched");
        return conformance::WatchedValue{std::move(held),
                                         [] { return session::evalNumber("int(watch() is not None)") != 0; }};
    }

    std::optional<conformance::PropertySubject> objectWithProperty() override {
        run("class Purse: pass\npurse = Purse()\npurse.amount = 2.5");
        return conformance::PropertySubject{session::value("purse"), "amount"};
    }

    std::u16string textBeyondAscii() override { return u"Gr\u00f6\u00dfe \U0001F600"; }

    std::string makeClass(const conformance::ClassSketch& sketch) override {
        std::string code = "class " + sketch.name + "(";
        for (const std::string& superclass : sketch.superclasses) {
            code += superclass.substr(superclass.rfind('.') + 1) + ", ";
        }
        code += "):\n pass\n";
        for (const conformance::MethodSketch& method : sketch.methods) {
            code += method.isStatic ? " @staticmethod\n def " + method.name + "(): pass\n"
                                    : " def " + method.name + "(self): pass\n";
        }
        for (const std::string& property : sketch.properties) {
            code += " " + property + " = 1\n";
        }
        run(code);
        return "__main__." + sketch.name;
    }

    std::string makeEnumeration(const std::string& name, const std::vector<std::string>& members) override {
        std::string code = "class " + name + "(enum.Enum):\n pass\n";
        for (const std::string& member : members) {
            code += " " + member + " = enum.auto()\n";
        }
        run(code);
        return "__main__." + name;
    }

    qxUniqueArray object(const std::string& className) override {
        return session::value(className.substr(className.rfind('.') + 1) + "()");
    }

    std::string classWith(ClassTrait trait) override {
        switch (trait) {
            case ClassTrait::hidden:
                run("class _Hidden: pass");
                return "__main__._Hidden";
            case ClassTrait::dynamicProperties:
                run("class Open: pass");
                return "__main__.Open";
            case ClassTrait::undefined:
            case ClassTrait::withholding:
                break;
        }
        return {};
    }

    std::optional<MemberSubject> memberWith(MemberTrait trait) override {
        run("@dataclasses.dataclass\n"
            "class Traits:\n"
            " Number = typing.Literal[1, 2]\n"
            " def __len__(self): return 0\n"
            " def _restricted(self): pass\n"
            " def __private(self): pass\n"
            " LIMIT = 5\n"
            " _restricted_value = 1\n"
            " typed: int = 3\n"
            " checked: typing.Annotated[int, callable] = 3\n"
            " listed: typing.Literal['red', 'green'] = 'red'\n"
            " converted: Number = 1\n"
            " plain = 1\n"
            " marked: int = dataclasses.field(default=1, metadata={'mark': True})\n"
            " @property\n def computed(self): return 1\n");
        const std::string cls = "__main__.Traits";
        switch (trait) {
            case MemberTrait::unlistableMethod:
            case MemberTrait::hiddenMethod:
                return MemberSubject{cls, "__len__"};
            case MemberTrait::restrictedMethod:
                return MemberSubject{cls, "_restricted", {cls}};
            case MemberTrait::privateMethod:
                return MemberSubject{cls, "_Traits__private"};
            case MemberTrait::constantProperty:
                return MemberSubject{cls, "LIMIT"};
            case MemberTrait::readOnlyProperty:
            case MemberTrait::computedProperty:
                return MemberSubject{cls, "computed"};
            case MemberTrait::unlistableProperty:
            case MemberTrait::hiddenProperty:
                return MemberSubject{cls, "__doc__"};
            case MemberTrait::restrictedProperty:
                return MemberSubject{cls, "_restricted_value", {cls}};
            case MemberTrait::typedProperty:
                return MemberSubject{cls, "typed", {"builtins.int"}};
            case MemberTrait::untypedProperty:
                return MemberSubject{cls, "plain"};
            case MemberTrait::validatedProperty:
                return MemberSubject{cls, "checked", {"builtins.int", "|", "callable"}};
            case MemberTrait::listedProperty:
                return MemberSubject{cls, "listed", {"red", "green"}};
            case MemberTrait::convertedProperty:
                return MemberSubject{cls, "converted", {"1", "2"}};
            case MemberTrait::storedProperty:
                return MemberSubject{cls, "plain"};
            case MemberTrait::attributedProperty:
                return MemberSubject{cls, "marked", {"mark"}};
            case MemberTrait::overloadedMethod:
            case MemberTrait::hiddenEnumerationMember:
                break;
        }
        return std::nullopt;
    }

    std::optional<std::pair<std::string, std::string>> legacyName() override {
        return std::pair{"int", "builtins.int"};
    }

    std::optional<conformance::NamespaceSubject> filledNamespace() override {
        run("space = types.ModuleType('conformance_space')\n"
            "exec('class Account: pass\\ndef opening(): pass', space.__dict__)\n"
            "space.inner = types.ModuleType('conformance_space.inner')\n"
            "sys.modules['conformance_space'] = space\nsys.modules['conformance_space.inner'] = space.inner");
        return conformance::NamespaceSubject{
            "conformance_space", {"conformance_space.Account"}, {"opening"}, {"conformance_space.inner"}};
    }

    std::optional<std::pair<std::string, std::string>> precedence() override {
        run("class First: __array_priority__ = 2\nclass Second: __array_priority__ = 1");
        return std::pair{"__main__.First", "__main__.Second"};
    }

    std::optional<conformance::ScopeSubject> scope() override {
        std::ofstream(disk_.path("code.py")) << "from collections import OrderedDict as Shortened\n";
        run("import collections");
        return conformance::ScopeSubject{disk_.text("code.py"), "Shortened", "collections.OrderedDict"};
    }

    std::optional<std::pair<std::string, std::string>> qualifiedName() override {
        return std::pair{"#1/__main__.Account", "__main__.Account"};
    }

    bool hasFileSystem() override { return true; }
    bool workIn(const std::filesystem::path& folder) override {
        run("os.chdir(" + quoted(folder.string()) + ")");
        return true;
    }
    bool searchIn(const std::vector<std::filesystem::path>& folders) override {
        run("sys.path.clear()");
        for (const std::filesystem::path& folder : folders) {
            run("sys.path.append(" + quoted(folder.string()) + ")");
        }
        return true;
    }

    bool setVariable(const std::string& name, ValueKind kind) override {
        run(name + " = " + expressionFor(kind));
        return true;
    }
    std::optional<conformance::ExpressionSubject> expressions() override {
        run("known = 2.5");
        return conformance::ExpressionSubject{u"known", u"unknown_variable"};
    }
    std::u16string interruptedExpression() override {
        python_host::setEvaluationPolicy(python_host::EvaluationPolicy::full);
        run("def stop(): raise KeyboardInterrupt");
        return u"stop()";
    }
    std::optional<conformance::FunctionCallSubject> interruptedFunction() override {
        run("class Stopping:\n def __dir__(self): raise KeyboardInterrupt\nstopping = Stopping()");
        return conformance::FunctionCallSubject{"properties", session::value("stopping")};
    }
    std::string declaringFunction() override {
        run("def declared(first, *, named): pass");
        return "declared";
    }
    std::u16string documentedBuiltin() override { return u"len"; }
    bool print(const std::u16string& text, bool isError) override {
        run("print(" + quoted(fl::i18n::to_string(text)) + ", end='', file=" + (isError ? "sys.stderr" : "sys.stdout") +
            ")");
        return true;
    }
    std::u16string stopDebugger() override {
        run("import pdb, io\n"
            "space = {'sys': sys}\n"
            "exec(compile('frame = sys._getframe()', '/debugged/file.py', 'exec'), space)\n"
            "debugger = pdb.Pdb(stdin=io.StringIO(), stdout=io.StringIO(), nosigint=True, readrc=False)\n"
            "debugger.reset()\ndebugger.setup(space['frame'], None)\n");
        python_host::setStoppedDebugger(session::eval("debugger").get());
        return u"/debugged/file.py";
    }

private:
    static std::string expressionFor(ValueKind kind) {
        switch (kind) {
            case ValueKind::doubleScalar:
                return "2.5";
            case ValueKind::doubleRow:
                return "numpy.array([[1, 2, 3.5]])";
            case ValueKind::doubleMatrix:
                return "numpy.zeros((2, 3))";
            case ValueKind::emptyDouble:
                return "numpy.zeros((0, 0))";
            case ValueKind::logicalTrue:
                return "True";
            case ValueKind::logicalFalse:
                return "False";
            case ValueKind::logicalRow:
                return "numpy.array([[True, True]])";
            case ValueKind::text:
                return "'some text'";
            case ValueKind::missingText:
                return "None";
            case ValueKind::textMatrix:
                return "numpy.array([['ab', 'cd']])";
            case ValueKind::cell:
                return "['first', 2.5]";
            case ValueKind::structure:
                return "{'alpha': 2.5, 'beta': 'some text'}";
            case ValueKind::functionHandle:
                return "len";
            case ValueKind::opaque:
                return "(each for each in [])";
            case ValueKind::olderObject:
                break;
        }
        return {};
    }

    TemporaryFolder disk_;
};

}  // namespace

std::unique_ptr<conformance::Provider> conformance::makeProvider() { return std::make_unique<PythonProvider>(); }
