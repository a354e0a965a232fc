// An interpreter inside the test program, and short ways to ask about what lives in it.
#pragma once

#include <Python.h>
#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/array_library.h"
#include "host/class_system.h"
#include "hosts/python/references.h"

namespace session {

using python_host::Ref;
using Names = std::vector<std::string>;

/// Runs statements in `__main__`; a Python error fails the test.
void run(const std::string& code);

/// The value of an expression in `__main__`.
Ref eval(const std::string& expression);
long evalNumber(const std::string& expression);
std::string evalText(const std::string& expression);

/// The expression as a host value.
qxUniqueArray value(const std::string& expression);

zelk::COSInternedID id(const std::string& name);
zelk::COSClass* classOf(const std::string& name);

/// The canonical name of the class that an expression gives.
std::string nameOfClass(const std::string& expression);

/// What the library lists for a class name.
Names methods(const std::string& className);
Names staticMethods(const std::string& className);
Names properties(const std::string& className);
Names constants(const std::string& className);
Names enumerationMembers(const std::string& className);

/// What a function of the interpreter, such as "properties", answers for an expression.
Names call(const std::string& function, const std::string& expression);

/// The names of the nodes of a walk.
Names walk(const zelk::COSIteratorPtr& nodes, const std::function<const char*(zelk::COSInterface*)>& name);

/// The views of a class's member; null when there is none.
zelk::COSPropInfo* property(const std::string& className, const std::string& name);
zelk::COSMethodInfo* method(const std::string& className, const std::string& name);

/// A folder of this process alone, since tests run side by side. Not made yet.
std::filesystem::path ownFolder();

/// Tests start from an empty `__main__`, with an empty list `trace` in which code that should not run leaves a mark.
class PythonTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

}  // namespace session
