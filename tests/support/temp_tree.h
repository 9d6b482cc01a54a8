#pragma once

#include "platform/os/files.h"
#include "platform/os/paths.h"

#include <QByteArray>
#include <QString>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>

namespace support {

// A folder of a test's own, removed with all that is in it at the end. While it lives, the
// program's folder, the home folder and the XDG folders of this process (and of those that it
// starts) lie in it, so that a test has its own settings, trash and locks:
//
//     TempTree tree({{"pics/a.bmp", "pixels"}, {"pics/empty/", ""}, {"app/config.ini", "[X]\n"}});
//     list.setPath(tree.path("pics"));
//
// "app" is appPath(), "home" the home folder; "config", "data", "cache" and "run" the XDG folders.
class TempTree {
public:
    struct Entry {
        std::string name; // bytes, relative to the tree; a "/" at its end makes a folder
        std::string content = {};
    };

    // What the folder lies on. Where there is no file system in memory, or little room on it, the
    // disk takes its place.
    enum class Medium { Disk, Memory };

    explicit TempTree(std::initializer_list<Entry> entries = {}, Medium medium = Medium::Disk)
        : m_root(makeRoot(medium))
    {
        for (const char* const folder : {"app", "home", "config", "data", "cache", "run"}) {
            std::filesystem::create_directory(m_root + "/" + folder);
        }
        std::filesystem::permissions(m_root + "/run", std::filesystem::perms::owner_all);
        for (const Entry& entry : entries) {
            add(entry);
        }
        setVariable("VISTARA_HOME", m_root + "/app");
        setVariable("HOME", m_root + "/home");
        setVariable("XDG_CONFIG_HOME", m_root + "/config");
        setVariable("XDG_DATA_HOME", m_root + "/data");
        setVariable("XDG_CACHE_HOME", m_root + "/cache");
        setVariable("XDG_RUNTIME_DIR", m_root + "/run");
        platform::initialisePaths();
    }

    ~TempTree()
    {
        for (const auto& [name, value] : m_before) {
            if (value) {
                ::setenv(name.c_str(), value->c_str(), 1);
            } else {
                ::unsetenv(name.c_str());
            }
        }
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }

    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    [[nodiscard]] QString root() const { return platform::fromNative(m_root); }

    // The path of an entry, as the program writes paths and as the file system does.
    [[nodiscard]] QString path(const std::string& name) const
    {
        return platform::fromNative(native(name));
    }
    [[nodiscard]] std::string native(const std::string& name) const { return m_root + "/" + name; }

    // Makes an entry, with the folders on its way.
    void add(const Entry& entry) const
    {
        const std::filesystem::path path = native(entry.name);
        if (entry.name.ends_with('/')) {
            std::filesystem::create_directories(path);
            return;
        }
        std::filesystem::create_directories(path.parent_path());
        EXPECT_TRUE(platform::writeFileWhole(platform::fromNative(path.native()),
                                             QByteArray::fromStdString(entry.content)))
            << entry.name;
    }

    void remove(const std::string& name) const { std::filesystem::remove_all(native(name)); }

    [[nodiscard]] bool exists(const std::string& name) const
    {
        std::error_code ignored;
        return std::filesystem::exists(std::filesystem::symlink_status(native(name), ignored));
    }

    // The content of a file, "" for one that isn't there.
    [[nodiscard]] std::string content(const std::string& name) const
    {
        return platform::readFile(path(name)).value_or(QByteArray()).toStdString();
    }

    // Sets a variable of the environment until the tree goes; an empty value takes it away.
    void setVariable(const std::string& name, const std::string& value)
    {
        const char* const before = std::getenv(name.c_str());
        m_before.try_emplace(name,
                             before != nullptr ? std::optional<std::string>(before) : std::nullopt);
        if (value.empty()) {
            ::unsetenv(name.c_str());
        } else {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }

private:
    static std::filesystem::path parentOf(Medium medium)
    {
        constexpr std::uintmax_t kRoom = 1U << 30U;
        const std::filesystem::path memory = "/dev/shm";
        std::error_code noSpace;
        const std::filesystem::space_info space = std::filesystem::space(memory, noSpace);
        const bool usable = medium == Medium::Memory && !noSpace && space.available >= kRoom &&
                            ::access(memory.c_str(), W_OK) == 0;
        return usable ? memory : std::filesystem::temp_directory_path();
    }

    static std::string makeRoot(Medium medium)
    {
        std::string pattern = (parentOf(medium) / "vistara-test-XXXXXX").native();
        EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
        return std::filesystem::canonical(pattern).native();
    }

    std::string m_root;
    std::map<std::string, std::optional<std::string>> m_before;
};

} // namespace support
