#include "hosts/python/resolution/file_scopes.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/resolution/import_scope.h"

namespace python_host {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t fileLimit = 256;
constexpr std::uintmax_t sourceLimit = std::uintmax_t{16} << 20U;

/// What a file was when it was read.
struct FileState {
    fs::file_time_type changed;
    std::uintmax_t size = 0;

    friend bool operator==(const FileState&, const FileState&) = default;
};

std::optional<FileState> stateOf(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) {
        return std::nullopt;
    }
    FileState state;
    state.size = fs::file_size(file, error);
    if (!error) {
        state.changed = fs::last_write_time(file, error);
    }
    return error ? std::nullopt : std::optional(state);
}

std::optional<std::string> contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// The full name of the package whose folder a file lies in; empty when the folder is none.
std::string packageOf(const fs::path& file) {
    std::string package;
    std::error_code error;
    for (fs::path folder = fs::absolute(file, error).parent_path();
         folder.has_filename() && fs::exists(folder / "__init__.py", error); folder = folder.parent_path()) {
        const std::string name = folder.filename().string();
        package.insert(0, package.empty() ? name : name + '.');
    }
    return package;
}

/// One file that was asked for.
struct FileScopes {
    std::unique_ptr<ModuleScope> module;
    ImportScope imports;
    std::optional<FileState> state;
    bool everParsed = false;
};

PyObject* fileNameOf(PyObject* module) {
    PyObject* name = PyModule_Check(module) ? findItem(PyModule_GetDict(module), keys().file) : nullptr;
    return name != nullptr && PyUnicode_CheckExact(name) ? name : nullptr;
}

bool isSameFile(const std::string& moduleFile, const fs::path& file) {
    const fs::path other(moduleFile);
    if (other.filename() != file.filename()) {
        return false;
    }
    std::error_code error;
    return fs::equivalent(other, file, error) && !error;
}

/// The first loaded module that says that it was made from the file. Borrowed, or null.
PyObject* moduleOfFile(const std::string& file) {
    PyObject* exact = nullptr;
    std::string buffer;
    std::vector<std::pair<std::string, PyObject*>> others;
    const std::string name = fs::path(file).filename().string();
    eachTextItem(loadedModules(), [&](PyObject* /*key*/, PyObject* value) {
        PyObject* moduleFile = exact == nullptr ? fileNameOf(value) : nullptr;
        const auto text = moduleFile == nullptr ? std::nullopt : utf8Of(moduleFile, buffer);
        if (text && *text == file) {
            exact = value;
        } else if (text && text->ends_with(name)) {
            others.emplace_back(*text, value);
        }
    });
    for (auto other = others.begin(); exact == nullptr && other != others.end(); ++other) {
        exact = isSameFile(other->first, file) ? other->second : nullptr;
    }
    return exact;
}

class FileScopeTable {
public:
    FunctionScope* find(const std::string& file) {
        if (PyObject* module = moduleOfFile(file)) {
            return &moduleScope(file, Ref::share(module));
        }
        return importScope(file);
    }

private:
    FunctionScope& moduleScope(const std::string& file, const Ref& module) {
        FileScopes& scopes = entry(file);
        if (!scopes.module || scopes.module->module() != module.get()) {
            Ref weak = Ref::steal(orThrow(PyWeakref_NewRef(module.get(), nullptr)));
            scopes.module = std::make_unique<ModuleScope>(std::move(weak));
        }
        return *scopes.module;
    }

    FunctionScope* importScope(const std::string& file) {
        const auto state = stateOf(file);
        if (!state || state->size > sourceLimit) {
            return nullptr;
        }
        FileScopes& scopes = entry(file);
        if (scopes.state != state) {
            read(file, scopes);
            scopes.state = state;
        }
        return scopes.everParsed ? &scopes.imports : nullptr;
    }

    /// Text that is just being typed is often no program; what was known of it before is then the better answer.
    static void read(const std::string& file, FileScopes& scopes) {
        const auto content = contentOf(file);
        auto imports = content ? parseImports(*content, packageOf(file)) : std::nullopt;
        if (imports) {
            scopes.imports.replace(std::move(*imports));
            scopes.everParsed = true;
        }
    }

    FileScopes& entry(const std::string& file) {
        const auto found = files_.find(file);
        if (found != files_.end()) {
            return *found->second;
        }
        if (order_.size() >= fileLimit) {
            files_.erase(order_.front());
            order_.pop_front();
        }
        order_.push_back(file);
        return *(files_[file] = std::make_unique<FileScopes>());
    }

    std::unordered_map<std::string, std::unique_ptr<FileScopes>> files_;
    std::deque<std::string> order_;
};

}  // namespace

FunctionScope* scopeOfFile(const std::string& file) {
    // Never destroyed: it holds references, and the interpreter may be gone first.
    static FileScopeTable& table = *new FileScopeTable;
    return file.empty() ? nullptr : table.find(file);
}

}  // namespace python_host
