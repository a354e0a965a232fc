#include <Python.h>

#include <cstdio>
#include <cstdlib>

#include "hosts/python/python_host.h"
#include "tests/two_hosts/world.h"

namespace two_hosts {

namespace {

constexpr const char* statements = R"(
import sys, types, enum, numpy

bank = types.ModuleType('bank')
bank.__path__ = []
exec('''
import enum
from typing import Final
class Account:
    def deposit(self): pass
    def withdraw(self): pass
    @staticmethod
    def parse(): pass
    def _audit(self): pass
    balance = 0
    owner = ''
    @property
    def number(self): return 1
    LIMIT = 5
    _pin = 0
class Savings(Account):
    def accrue(self): pass
    def withdraw(self): pass
    rate: float = 0.0
class Colour(enum.Enum):
    red = 1
    green = 2
    blue = 3
def open_account(): pass
del enum, Final
''', bank.__dict__)
bank.rules = types.ModuleType('bank.rules')
exec('def current(): pass', bank.rules.__dict__)
sys.modules['bank'] = bank
sys.modules['bank.rules'] = bank.rules

account = bank.Account()
account.owner, account.nickname = 'ada', 'main'
savings = bank.Savings()
colour = bank.Colour.red
nested = types.SimpleNamespace(inner=types.SimpleNamespace(value=2.5), label='text')
table = {'alpha': 2.5, 'beta': 'text'}
number = 2.5
matrix = numpy.zeros((2, 3))
del sys, types, enum, numpy, bank
)";

class PythonWorld final : public World {
public:
    PythonWorld() {
        PyConfig config;
        PyConfig_InitPythonConfig(&config);
        PyConfig_SetBytesString(&config, &config.program_name, CONTEXTDATA_TEST_PYTHON);
        const PyStatus status = Py_InitializeFromConfig(&config);
        PyConfig_Clear(&config);
        if (PyStatus_Exception(status) || PyRun_SimpleString(statements) != 0) {
            std::fputs("the world cannot be built\n", stderr);
            std::exit(1);
        }
    }
    ~PythonWorld() override { Py_FinalizeEx(); }
};

}  // namespace

std::unique_ptr<World> buildWorld() { return std::make_unique<PythonWorld>(); }

}  // namespace two_hosts
