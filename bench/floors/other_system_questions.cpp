// Packages of the older object system, Java, structures, and what lies in a folder.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>

#include "bench/floors/questions.h"
#include "bench/floors/silent_evaluation.h"
#include "contextdata/other_object_systems.h"
#include "contextdata/what_list.h"
#include "contextdata/workspace.h"
#include "host/dispatcher.h"
#include "host/evaluation.h"
#include "host/i18n.h"
#include "host/text.h"

namespace bench {

namespace {

constexpr int files = 20;

/// A folder that is there as long as anybody asks about it.
class Folder {
public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "contextdata-bench-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    void add(const std::string& name) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name) << "";
    }
    std::u16string path() const { return path_.u16string(); }

private:
    std::filesystem::path path_;
};

std::shared_ptr<Folder> folderOnPath(memory_host::World& world) {
    auto folder = std::make_shared<Folder>();
    for (int number = 0; number < files; ++number) {
        folder->add("tools/file_of_number" + std::to_string(number) + ".k");
        folder->add("tools/note" + std::to_string(number) + ".txt");
        folder->add("@xob/method_of_number" + std::to_string(number) + ".k");
    }
    world.searchPathEntry(folder->path());
    world.workingFolder(folder->path());
    return folder;
}

/// What a folder of that name holds, in every entry of the path, less what does not end so.
void appendFiles(const std::u16string& folder, std::u16string_view suffix, Names& names) {
    Names found;
    Dispatcher::getDispatcher().GetCurrentPath().visit([&](const std::shared_ptr<IPathEntry>& entry) {
        const std::optional<vfs::Location> place = entry->findFolder(folder);
        if (place && entry->getKind() != privatePathEntry) {
            const std::u16string path = vfs::GetStringFromIRI(*place);
            if (is_directory(status(path))) {
                ioGetDirList(path + u"\\*", found, 1);
            }
        }
        return true;
    });
    for (const std::u16string& name : found) {
        if (name.ends_with(suffix)) {
            names.push_back(name);
        }
    }
}

void appendMarkedFolders(const std::u16string& folder, Names& names) {
    Names found;
    appendFiles(folder, u"", found);
    for (const std::u16string& name : found) {
        if (name.size() > 1 && name.front() == u'@') {
            names.push_back(name.substr(1));
        }
    }
}

qxSharedArray propertyOf(const qxArray* object, const char* name, std::size_t index) {
    qxArray* value = qxGetPropertyShared(object, index, name);
    if (value == nullptr) {
        return {};
    }
    qxSetArrayScope(value, qxArrayScope::none);
    return {value, false};
}

void appendNames(const qxArray* package, const char* property, Names& names) {
    const qxSharedArray objects = propertyOf(package, property, 0);
    for (std::size_t index = 0; index < qxGetNumberOfElements(objects.get()); ++index) {
        const qxSharedArray name = propertyOf(objects.get(), "Name", index);
        if (!qxIsEmpty(name.get())) {
            names.push_back(getScalarText(name.get()));
        }
    }
}

Names floorPackage(const std::u16string& package) {
    Names names;
    const qxUniqueArray name = qxCreateString(package);
    const qxArray* input = name.get();
    qxArray* output = nullptr;
    inCallFcnWithTrap(1, &output, 1, &input, "findpackage", true);
    const qxUniqueArray object(output);
    if (qxIsScalar(object.get())) {
        appendNames(object.get(), "Classes", names);
        appendNames(object.get(), "Functions", names);
    }
    appendFiles(u"@" + package, u".k", names);
    appendFiles(u"@" + package, u".qxew64", names);
    appendMarkedFolders(u"@" + package, names);
    return names;
}

bool floorIsPackage(const std::u16string& name) {
    const qxUniqueArray answer = evaluatedSilently(u"isa(findpackage('" + name + u"'), 'opaque');", true);
    return answer && qxIsLogicalScalarTrue(answer.get());
}

bool floorIsJava(const std::u16string& qualified) {
    const std::string name = fl::i18n::to_string(qualified, fl::i18n::codecvt_ustring_to_ascii(false));
    const std::size_t dot = name.rfind('.');
    const qxUniqueArray cls = qxCreateClassArray(name.substr(0, dot).c_str());
    const qxUniqueArray member = qxFindClassMember(cls.get(), name.substr(dot + 1).c_str());
    return member && qxIsA(member.get(), "java");
}

Names floorFields(const qxArray* structure) {
    Names names;
    for (std::size_t number = 0, count = qxGetNumberOfFields(structure); number < count; ++number) {
        names.push_back(
            fl::i18n::to_ustring(qxGetFieldNameByNumber(structure, number), fl::i18n::codecvt_ascii_to_ustring(false)));
    }
    return names;
}

qxUniqueArray named(memory_host::World& world, const std::u16string& name) {
    qxUniqueArray objects = world.olderObject("xob.entry");
    world.setProperty(objects, "Name", world.charRow(name));
    return objects;
}

void addPackage(memory_host::World& world) {
    world.function("findpackage", [&world](const qxArray*) {
        qxUniqueArray package = world.opaque("xob.package");
        world.setProperty(package, "Classes", named(world, u"Alphabetical"));
        world.setProperty(package, "Functions", named(world, u"run"));
        return package;
    });
}

qxSharedArray structureOf(memory_host::World& world, std::size_t fields) {
    qxUniqueArray structure = world.structure();
    for (std::size_t number = 0; number < fields; ++number) {
        world.setField(structure, "fieldOfNumber" + std::to_string(number), qxUniqueArray());
    }
    return {structure.release(), false};
}

Question whatList(const std::string& name, const std::shared_ptr<Folder>& folder, const std::u16string& asked) {
    return question(
        "what lists", name, files,
        [folder, asked] {
            Names names;
            getWhatList(asked, names, ".k");
            return names;
        },
        [folder, asked] {
            Names names;
            appendFiles(asked, u".k", names);
            return names;
        });
}

Question fields(memory_host::World& world, std::size_t count) {
    const qxSharedArray structure = structureOf(world, count);
    return question(
        "structures", "getStructFieldNames, " + std::to_string(count), count,
        [structure] {
            Names names;
            StructContextData::getStructFieldNames(structure.get(), names);
            return names;
        },
        [structure] { return floorFields(structure.get()); });
}

}  // namespace

std::vector<Question> otherSystemQuestions(memory_host::World& world) {
    const std::shared_ptr<Folder> folder = folderOnPath(world);
    addPackage(world);
    world.javaMember("java.lang.String", "valueOf");
    const std::u16string package = u"xob";
    const std::u16string java = u"java.lang.String.valueOf";
    return {
        whatList("getWhatList, a folder of 40 files on the search path", folder, u"tools"),
        fields(world, 10),
        fields(world, 1'000),
        question(
            "older object systems", "IsXOBPackage", 1, [package] { return IsXOBPackage(package); },
            [package] { return floorIsPackage(package); }),
        question(
            "older object systems", "getPackageStrings", 1,
            [package, folder] {
                Names names;
                XOBContextData::getPackageStrings(package, names);
                return names;
            },
            [package] { return floorPackage(package); }),
        question(
            "older object systems", "IsJavaFunction", 1, [java] { return IsJavaFunction(java); },
            [java] { return floorIsJava(java); }),
    };
}

}  // namespace bench
