// A folder of the machine for one test.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <stdlib.h>

/// An empty folder that goes with the object, and all that lies in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "contextdata_test_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder can be made");
        }
        path_ = std::filesystem::canonical(name);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// Its own path, or the path of something in it.
    std::filesystem::path path(const std::filesystem::path& inside = {}) const {
        return inside.empty() ? path_ : path_ / inside;
    }
    std::u16string text(const std::filesystem::path& inside = {}) const { return path(inside).u16string(); }

    /// Makes an empty file, and the folders around it.
    void file(const std::filesystem::path& inside) const {
        std::filesystem::create_directories((path_ / inside).parent_path());
        std::ofstream made(path_ / inside);
    }
    void folder(const std::filesystem::path& inside) const { std::filesystem::create_directories(path_ / inside); }

private:
    std::filesystem::path path_;
};
