#pragma once

namespace platform {

// The lock that says that this user runs the program from this folder. It lies outside the program's
// folder, holds for the life of the object, and the kernel frees it when the process dies.
class SingleInstance {
public:
    SingleInstance() = default;
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // True when no other process holds the lock. Where no lock file can be made (read-only system)
    // the answer is true: a second window does less harm than none.
    [[nodiscard]] bool acquire();

private:
    int m_descriptor = -1;
};

} // namespace platform
